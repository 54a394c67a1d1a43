// Accounting notes: the rows of kt_linii with one NDI. Every row has an account; total debit equals total
// credit.
#pragma once

#include <QDate>
#include <QString>
#include <vector>

#include "store/Row.h"

namespace velmar {

/// One side of an entry.
struct NoteRow {
  QString account;
  Decimal debit;  ///< lei, as `credit`
  Decimal credit;
  Decimal foreignDebit;  ///< in the note's currency, as `foreignCredit`
  Decimal foreignCredit;
  Value partner;     ///< TERT
  Value vatLink;     ///< TVA_LINREF
  Value vatPercent;  ///< COTATVA
  Value costCentre;  ///< CODBUG
};

struct Note {
  QString kind;  ///< prefix of the document, stamped as TIPDOC; empty: not stamped
  QString journal;
  QDate date;      ///< document date
  QString number;  ///< document number, without the kind
  QString remark;  ///< observations
  std::vector<NoteRow> rows;
  QDate dueDate;                ///< invalid: none is written
  QString currency;             ///< empty: lei
  bool inCurrencyForm = false;  ///< rate and amounts in currency are written
  Decimal rate;
  Value vatOnCollection;  ///< TVAINC
};

/// Writes the notes with the next NDIs; returns the first. PROV is "G". Throws RuleError when a row has no
/// account, StoreError when debit and credit differ. A note without rows is not written and uses no number;
/// returns 0 if none was written.
qint64 writeNotes(const std::vector<Note>& notes);

/// Throws as writeNotes().
void requireBalance(const Note& note);

/// Totals of a document's lines grouped by the accounts of the article families: the account columns, TOTAL
/// and, for sales and purchases, TVA. `key` selects the grouping.
Recordset TotaluriConturi(const QString& key, const QString& number);

/// Throws RuleError with the article's code when an article of the document was deleted or has no family: the
/// totals, and therefore the note, would not include it.
void requireFamilies(const QString& key, const QString& number);

}  // namespace velmar
