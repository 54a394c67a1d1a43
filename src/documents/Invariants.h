// Checks the consistency of a company's data, which each validation must preserve: ledger, articles, lots,
// links, notes and drafts.
#pragma once

#include <QString>
#include <vector>

namespace velmar {

/// An inconsistency in the data.
struct Disagreement {
  QString what;   ///< the violated rule, in Romanian
  QString where;  ///< article, document or note
};

/// All inconsistencies:
/// - an article's stock differs from the sum of the ledger (except for articles without stock);
/// - the stock of an article in a warehouse (G_STOCMAG) differs from the sum of the ledger;
/// - under FIFO, the sum of the open lots differs from the ledger, or that of the links from the issues, for
///   articles moved only by receipts, issues and returns that refer to their receipt;
/// - a lot, a delivery note or an order has less than nothing left, or more than it had; a link names a
///   document that does not exist;
/// - a note is not balanced or belongs to two documents; a document's notes are missing or have another sum;
/// - a document's cost differs from the sum of its lines by more than half a ban per line;
/// - a validated document has no ledger rows, or ledger rows have no validated document.
/// Reads each table once or twice; writes nothing.
std::vector<Disagreement> disagreements();

/// The same as one text with a line each; "" when the data is consistent.
QString disagreementText();

}  // namespace velmar
