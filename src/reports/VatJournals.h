// The two VAT journals: the documents of a period from the ledger, and the work tables kt_jct and kt_jvt that
// keep the last calculation of each user.
#pragma once

#include "reports/ReportData.h"

namespace velmar {

/// What tells the journal of purchases from that of sales.
struct VatJournal {
  QString window;   ///< class of its window
  QString caption;  ///< of its window
  QString command;  ///< the named command that gives its documents
  QString table;
  QString project;  ///< file name of its layout
  QString insert;   ///< fills the table from the documents
  bool keepsUser;   ///< rows carry the user who had them computed
  bool canPrint;    ///< has a command of its own for the printer
  bool hasStornos;  ///< holds storno invoices, which the ledger keeps with positive amounts
};

const VatJournal& purchaseJournal();
const VatJournal& salesJournal();

/// What the journal is asked for. The first day itself is left out: documents have no time of day, and the
/// period begins one second after its midnight. The last day is in.
struct VatPeriod {
  QDate from;
  QDate to;
  bool subtractsStornos = false;  ///< stornos come with the opposite sign
};

/// The largest number of a row: the tables keep 16 bits.
inline constexpr int kLargestRowNumber = 32767;

/// The documents of the period as the ledger has them now, in the journal's order.
Recordset documentsOf(const VatJournal& journal, const VatPeriod& period);

/// How many stornos the period has.
int stornosOf(const VatJournal& journal, const VatPeriod& period);

/// Fills the journal's table: former rows of `user` and those of nobody go, a row for each document
/// comes, numbered from `firstNumber`. All or nothing; gives the number of rows. Throws RuleError, and
/// changes nothing, when the period has no document or its numbers would pass kLargestRowNumber (field NRC).
int computeJournal(const VatJournal& journal, const VatPeriod& period, int firstNumber, const QString& user);

/// What the journal is printed from. Throws RuleError as computeJournal().
ReportData journalReport(const VatJournal& journal, const VatPeriod& period, int firstNumber);

}  // namespace velmar
