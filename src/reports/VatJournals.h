// The two VAT journals: the documents of a period from the ledger, and the work tables kt_jct and kt_jvt with
// the last calculation of each user.
#pragma once

#include "reports/StockReports.h"

namespace velmar {

/// The differences between the journals of purchases and of sales.
struct VatJournal {
  QString window;   ///< class of its window
  QString caption;  ///< of its window
  QString partner;  ///< heading of its partners
  QString command;  ///< the named command that returns its documents
  QString table;
  QString project;     ///< file name of its layout
  QString insert;      ///< fills the table from the documents
  bool keepsUser;      ///< rows contain the user who computed them
  bool canPrint;       ///< has a separate print command
  bool hasStornos;     ///< contains storno invoices, which have positive amounts in the ledger
  bool splitsUntaxed;  ///< documents without VAT have a column of their own
};

const VatJournal& purchaseJournal();
const VatJournal& salesJournal();

/// The period of the journal. Unless it is taken in, the first day itself is excluded: documents have no time
/// of day, and the period begins one second after midnight. The last day is included, whatever the time.
struct VatPeriod {
  QDate from;
  QDate to;
  bool subtractsStornos = false;  ///< stornos are included with the opposite sign
  bool takesFirstDay = false;
};

/// The largest row number: the tables store 16 bits.
inline constexpr int kLargestRowNumber = 32767;

/// The documents of the period currently in the ledger, numbered from `firstNumber`, in the journal's order:
/// the columns of the command, NRC, TOTALDOC, and base and total by whether there is VAT (BAZATVA, NEIMPDOC).
/// Amounts are rounded half to even to 2 decimals. Throws RuleError when the numbers would exceed
/// kLargestRowNumber (field txtNRC).
Recordset journalRows(const VatJournal& journal, const VatPeriod& period, int firstNumber,
                      const Progress& progress = {});

/// The number of stornos in the period.
int stornosOf(const VatJournal& journal, const VatPeriod& period);

/// Fills the journal's table in one transaction: replaces the rows of `user`, and those without a user, by
/// one row per document, numbered from `firstNumber`. Returns the number of rows. Throws RuleError when the
/// period has no documents or the numbers would exceed kLargestRowNumber (field txtNRC).
int computeJournal(const VatJournal& journal, const VatPeriod& period, int firstNumber, const QString& user,
                   const Progress& progress = {});

/// Its row in the table of reports.
StockReport reportOf(const VatJournal& journal);

}  // namespace velmar
