// Checks the consistency of a company's data, which each validation must preserve: ledger, articles, lots,
// links, notes and drafts.
#pragma once

#include <QString>
#include <vector>

#include "util/Progress.h"

namespace velmar {

/// What a place of an inconsistency is.
enum class Place { Article, Document };

/// What mends an inconsistency.
enum class Correction {
  None,
  StockAndNotes,   ///< correctStockAndNotes()
  WarehouseStock,  ///< refillBalance()
  Lots,            ///< correctLots()
  Draft            ///< reopenLost(): the document becomes a draft again
};

/// An inconsistency in the data.
struct Disagreement {
  QString what;   ///< the violated rule, in Romanian
  QString where;  ///< article, document or note, with details
  Place place = Place::Article;
  QString key;  ///< of the place: code or key in the ledger; empty for a note that belongs to no document
  Correction correction = Correction::None;
};

/// All inconsistencies:
/// - an article's stock differs from the sum of the ledger (except for articles without stock);
/// - the stock of an article in a warehouse (G_STOCMAG) differs from the sum of the ledger;
/// - under FIFO, the sum of the open lots differs from the ledger, or that of the links from the issues, for
///   articles moved only by receipts, issues and returns that refer to their receipt;
/// - a lot, a delivery note or an order has less than nothing left, or more than it had; a delivery note does
///   not state what it has left; a link names a document that does not exist;
/// - what is left of a validated note or order differs from what other documents took, or it is marked as
///   closed or open wrongly; a storno and its invoice do not belong together;
/// - a note is not balanced or belongs to two documents; a document's notes are missing or have another sum
///   than its kind states (PostedSum);
/// - a document's cost differs from the sum of its lines by more than half a ban per line;
/// - documents of the other trade (OtherTrade) violate its rules;
/// - a validated document has no ledger rows, or ledger rows have no validated document.
/// Reads each table once or twice; writes nothing. `progress` may throw Cancelled.
std::vector<Disagreement> disagreements(const Progress& progress = {});

/// The same as one text with a line each; "" when the data is consistent.
QString disagreementText();

}  // namespace velmar
