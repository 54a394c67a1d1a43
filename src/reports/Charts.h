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

}  // namespace velmar
