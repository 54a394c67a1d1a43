// Posting rules of a document, as data: for each note its grouped totals, and the entries made once before
// the groups, for each group, and once after them. One function executes all of them.
#pragma once

#include <vector>

#include "accounting/Notes.h"

namespace velmar {

enum class Side { Debit, Credit };

/// Source of an entry's account.
enum class AccountSource {
  Totals,     ///< the column of the totals, an account of the article's family
  Parameter,  ///< the column of kt_par
  VatRate,    ///< the account of the document's VAT rate
  Cash        ///< the cash account of sales at the counter
};

enum class AmountOf {
  Group,  ///< the total of the group
  Vat,    ///< VAT of all groups
  Gross   ///< value and VAT of all groups
};

/// Further columns of an entry's row; can be combined.
enum EntryMark {
  kPartner = 1,         ///< TERT
  kCostCentre = 2,      ///< CODBUG
  kVatLink = 4,         ///< TVA_LINREF 1
  kVatPercent = 8,      ///< COTATVA
  kVatLinkIfTaxed = 16  ///< TVA_LINREF 1 if the percent is above 0
};

struct Entry {
  Side side;
  AccountSource source;
  const char* account;  ///< column of the totals or of kt_par
  AmountOf amount = AmountOf::Group;
  int marks = 0;
  bool onlyTaxed = false;  ///< made only if the VAT percent is above 0
};

/// One note of a document.
struct NoteRule {
  const char* totals;            ///< key of TotaluriConturi
  const char* journalParameter;  ///< column of kt_par
  std::vector<Entry> before;     ///< once, before the groups
  std::vector<Entry> perGroup;
  std::vector<Entry> after;         ///< once, after the groups
  bool journalOfDocument = false;   ///< a journal chosen on the document has precedence
  bool inDocumentCurrency = false;  ///< the totals are in the document's currency, otherwise in lei
  bool skipsZero = false;           ///< groups of 0 make no entry
};

/// A document's posting: its notes, and further values of their rows.
struct Posting {
  std::vector<NoteRule> notes;  ///< empty: nothing is posted
  QString journal;              ///< chosen on the document; empty: the parameter's
  QDate dueDate;                ///< invalid: none is written
  bool inCurrencyForm = false;  ///< rate and amounts in currency are written, 0 in lei
  QString currency;             ///< empty: lei
  Decimal rate;
  Value partner;
  QString costCentre;
  Decimal vatPercent;
  QString vatAccount;
  QString cashAccount;
  Value vatOnCollection;  ///< TVAINC; null: left as it is
};

/// Posts the notes of a document in order, each with its own number; the last one is stamped with the kind.
/// `head` has kind, date, number and remark. Throws RuleError when a journal, an account or an article's
/// family is missing, StoreError when debit and credit of a note differ.
void SalvareDateContabile(const Posting& posting, const Note& head);

/// Throws like SalvareDateContabile() if a journal, an account or a family is missing; to be called before
/// the write lock is taken.
void requirePostable(const Posting& posting, const QString& number);

}  // namespace velmar
