// Accounting notes: the rows of kt_linii with one NDI. Every row has an account; total debit equals total
// credit.
#pragma once

#include <optional>
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
  Value partner;         ///< TERT
  Value vatLink;         ///< TVA_LINREF
  Value vatPercent;      ///< COTATVA
  Value costCentre;      ///< CODBUG
  QString journal = {};  ///< empty: that of the note
  /// Of a note read from the accounts: CANTIT, CODCC, CODIE, CODOPER, CODSUCURSALA, ID_FORMULA and LITM,
  /// which others may have filled; empty in a note that validation makes.
  Values copied = {};
};

struct Note {
  QString kind;   ///< prefix of the document, FELDOC
  QString stamp;  ///< TIPDOC; empty: not stamped
  QString journal;
  QDate date;                          ///< document date
  QString number;                      ///< document number, without the kind
  QString remark;                      ///< observations
  std::optional<QString> explanation;  ///< EXPL; none: the remark
  QString user = {};                   ///< UTILIZATOR; empty: that of the session
  std::vector<NoteRow> rows;
  QDate dueDate;                ///< invalid: none is written
  QString branch = {};          ///< CodSucursala; empty: not written
  QString currency;             ///< empty: lei
  bool inCurrencyForm = false;  ///< rate and amounts in currency are written
  Decimal rate;
  Value vatOnCollection;  ///< TVAINC
};

/// Turns the amounts round: black exchanges the sides, red changes the signs.
void turnRound(Note& note, bool inBlack);

/// Replaces the null cells of the rows by 0 or an empty text.
void fillNulls(Note& note);

/// Throws RuleError when a row has no account, StoreError when debit and credit differ.
void requireBalance(const Note& note);

/// Writes the notes with the next NDIs; returns the first. PROV is "G". Throws as requireBalance(). A note
/// without rows is not written and uses no number; returns 0 if none was written.
qint64 writeNotes(const std::vector<Note>& notes);

/// The numbers (NDI) of the notes that validation wrote for the document of that kind and number, dated
/// `from` or later. A note of a time when the kind was not stored belongs to the document of the next stamp
/// (TIPDOC) of its number.
std::vector<qint64> notesOf(const QString& kind, const QString& number, const QDate& from);

/// The notes with these NDIs, as they were written.
std::vector<Note> readNotes(const std::vector<qint64>& ndis);

/// Deletes the rows that validation wrote in these notes for the document with that number; returns how many.
int removeNotes(const std::vector<qint64>& notes, const QString& number);

}  // namespace velmar
