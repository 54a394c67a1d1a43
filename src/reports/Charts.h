// The charts of the accounting notes: months of an account, shares of a class, expenses and revenue,
// partners.
#pragma once

#include <QDate>
#include <QStringList>

#include "store/Row.h"
#include "util/Decimal.h"

namespace velmar {

enum class ChartKind { Account, ClassShares, ExpensesAndRevenue, Customers, Suppliers };

/// The kinds in display order, with their texts.
const QStringList& chartKinds();

struct ChartChoice {
  ChartKind kind = ChartKind::Account;
  QString account;  ///< its code, or the beginning of codes
  QDate from;
  QDate to;
  Decimal minimum = 0;  ///< rows of partners must be above it
};

/// A labelled table of figures.
struct ChartData {
  QString title;
  QString note;           ///< what the user should know of the figures; empty: nothing
  bool isShares = false;  ///< parts of a whole, else a course over months
  QStringList series;     ///< captions of the columns of figures
  QStringList fields;     ///< their fields in `rows`
  Recordset rows;         ///< `Eticheta`, then the columns of the statement
};

/// Throws RuleError when no account is chosen or there are no rows.
ChartData chartData(const ChartChoice& choice, const QString& accountText);

struct ChartSlice {
  QString label;
  Decimal figure = 0;
  int percent = 0;  ///< of the sum of all figures without their signs, to the nearest
};

/// The slices of a circle: the rows, of two columns their sums.
std::vector<ChartSlice> chartSlices(const ChartData& data);

/// The decimals that its figures are shown with: 2, or 0 where all are whole.
int chartDecimals(const ChartData& data);

/// The marks of an axis of figures: the multiples of `step` from `first` to `last`.
struct ChartScale {
  Decimal step = 1;  ///< 1, 2 or 5 times a power of ten, at least 0.01
  int first = 0;
  int last = 1;

  /// The mark as text: "40.000", "0,50".
  QString text(int mark) const;
};

/// About five marks that include both figures and 0.
ChartScale chartScale(double least, double most);

}  // namespace velmar
