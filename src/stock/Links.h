// Open quantities of orders and delivery notes: what invoices and receipt notes take from their lines, and
// what a document that is taken back gives back to them.
#pragma once

#include <optional>
#include <QDate>
#include <QHash>
#include <QStringList>
#include <vector>

#include "stock/LedgerKey.h"
#include "util/Decimal.h"

namespace velmar {

/// A line of a supplier order, a customer order or a delivery note.
struct SourceLine {
  LedgerKey source;
  qint64 line = 0;  ///< NRLINIE
  QString article;
  int place = 0;  ///< among the lines of the article in the source, from 0
  Decimal quantity;
  Decimal open;       ///< not yet received, delivered, invoiced or returned
  QString reference;  ///< referenceOf() the last document that took from it; blank: none
  QDate date;         ///< of that
};

/// What a line of a document took from a source.
struct TakenLine {
  LedgerKey source;
  QString article;
  Decimal quantity;  ///< positive
};

/// What a line of the source states of a document that took from it: its key; of a receipt note that took
/// goods of a delivery note back, its number.
QString referenceOf(const LedgerKey& taker, const LedgerKey& source);

/// The lines of these orders and notes, in their order.
std::vector<SourceLine> readSources(const std::vector<LedgerKey>& sources);

/// The first that, with those before it, takes more than its source has open now.
std::optional<TakenLine> exceeding(const std::vector<TakenLine>& taken);

/// The customer orders from which an invoice was made.
std::vector<LedgerKey> ordersOf(const QString& invoice);

/// Open quantities in memory. Takes add up, also of several notes and orders.
class OpenSources {
 public:
  OpenSources() = default;
  explicit OpenSources(std::vector<SourceLine> lines);

  /// Takes from the lines of the article in the source, the first one first; what exceeds them is taken from
  /// the last one, whose open quantity is then below 0. An order gives no more than was ordered.
  void take(const TakenLine& taken, const LedgerKey& taker, const QDate& date);
  const std::vector<SourceLine>& lines() const { return lines_; }
  /// The lines that have changed.
  std::vector<SourceLine> changed() const;

 private:
  std::vector<SourceLine> lines_;
  QHash<QString, std::vector<size_t>> places_;  ///< of the lines, by source and article
  std::vector<bool> isChanged_;
};

/// A take of a document.
struct Take {
  TakenLine taken;
  LedgerKey taker;
  QDate date;
};

/// The lines that differ from those with all of their quantity open and these takes, made in this order.
std::vector<SourceLine> takenAnew(const std::vector<SourceLine>& lines, const std::vector<Take>& takes);

/// Writes open quantities and references of the lines, also to the ledger, and closes an order or note
/// without open lines (SOLDAT; FACTURAT and VALIDAT of its ledger row), or opens it again.
void writeSources(const std::vector<SourceLine>& lines);

}  // namespace velmar
