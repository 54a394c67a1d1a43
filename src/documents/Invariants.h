// What must agree in a company's data after every validation, whatever went before: ledger, articles, lots,
// links, notes and drafts.
#pragma once

#include <QString>
#include <vector>

namespace velmar {

/// A place where the data disagree.
struct Disagreement {
  QString what;   ///< which rule, as a user reads it
  QString where;  ///< article, document or note
};

/// All disagreements, none in sound data:
/// - an article's stock is not what the ledger adds up to (articles without stock apart);
/// - under FIFO, open lots do not add up to the ledger, or links to what was taken, for articles that only
///   receipts, issues and returns that name their receipt have moved;
/// - a note does not balance to the ban, or holds two documents;
/// - a document's cost is not the sum of its lines' to half a ban a line;
/// - a validated document lacks its ledger rows, or ledger rows lack their validated document.
/// Reads each table once or twice; writes nothing.
std::vector<Disagreement> disagreements();

/// The same as one text, a line each; "" when all agrees.
QString disagreementText();

}  // namespace velmar
