// Accounting notes: the rows of kt_linii with one NDI. Each row has its account, and debit equals credit.
#pragma once

#include <QDate>
#include <QString>
#include <QStringList>
#include <vector>

#include "store/Row.h"

namespace velmar {

/// One side of an entry. Amounts in lei.
struct NoteRow {
  QString account;
  Decimal debit;
  Decimal credit;
};

struct Note {
  QString kind;  ///< prefix of the document, stamped as TIPDOC
  QString journal;
  QDate date;      ///< document date
  QString number;  ///< document number, without the kind
  QString remark;  ///< observations
  std::vector<NoteRow> rows;
};

/// Writes the note with the next NDI in the form of vouchers (COD "LEI", PROV "G", no third party, no due
/// date), stamps it with its kind and gives the NDI. Throws RuleError when a row has no account, StoreError
/// when debit and credit differ. A note without rows is not written and gives 0.
qint64 writeNote(const Note& note);

/// Totals of a document's lines grouped by the accounts of the article families. `key` names the grouping.
Recordset TotaluriConturi(const QString& key, const QString& number);

/// An entry that a document makes for every group of its totals: debit one account, credit the other.
struct PostingStep {
  QString totals;            ///< key of TotaluriConturi
  QString journalParameter;  ///< column of kt_par
  QString debitColumn;       ///< account column of the totals
  QString creditParameter;   ///< column of kt_par
};

/// Posts the steps of one document as one note; gives its NDI, 0 when nothing was posted. Throws RuleError
/// when a journal, an account or an article's family is missing.
qint64 SalvareDateContabile(const std::vector<PostingStep>& steps, const Note& note);

/// Throws RuleError when a journal, an account or an article's family that the steps need is missing: to be
/// asked before the write lock is taken.
void requirePostable(const std::vector<PostingStep>& steps, const QString& number);

}  // namespace velmar
