// What a document posts, as data: for each note its grouped totals, and the entries made once before them,
// for each group, and once behind them. One engine carries all of them out.
#pragma once

#include <vector>

#include "accounting/Notes.h"

namespace velmar {

enum class Side { Debit, Credit };

/// Where an entry's account comes from.
enum class AccountSource {
  Totals,     ///< the column of the totals, an account of the article's family
  Parameter,  ///< the column of kt_par
  VatRate,    ///< the account of the document's VAT rate
  Cash        ///< the account that a sale at the counter is paid into
};

enum class AmountOf {
  Group,  ///< the total of the group
  Vat,    ///< VAT of all groups
  Gross   ///< value and VAT of all groups
};

/// What else the row of an entry tells, added up.
enum EntryMark {
  kPartner = 1,         ///< TERT
  kCostCentre = 2,      ///< CODBUG
  kVatLink = 4,         ///< TVA_LINREF 1
  kVatPercent = 8,      ///< COTATVA
  kVatLinkIfTaxed = 16  ///< TVA_LINREF 1 where the percent is above 0
};

struct Entry {
  Side side;
  AccountSource source;
  const char* account;  ///< column of the totals or of kt_par
  AmountOf amount = AmountOf::Group;
  int marks = 0;
  bool onlyTaxed = false;  ///< made only where the VAT percent is above 0
};

/// One note of a document.
struct NoteRule {
  const char* totals;            ///< key of TotaluriConturi
  const char* journalParameter;  ///< column of kt_par
  std::vector<Entry> before;     ///< once, ahead of the groups
  std::vector<Entry> perGroup;
  std::vector<Entry> after;         ///< once, behind them
  bool journalOfDocument = false;   ///< the one chosen on the document goes before the parameter's
  bool inDocumentCurrency = false;  ///< the totals are in the document's currency, else in lei
  bool skipsZero = false;           ///< groups of 0 make no entry
};

/// A document's posting: its notes, and what their rows hold besides the amounts.
struct Posting {
  std::vector<NoteRule> notes;  ///< empty: nothing is posted
  QString journal;              ///< chosen on the document; blank: the parameter's
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

/// Posts the notes of a document in their order, each with a number of its own; the last one is stamped with
/// the kind. `head` tells kind, date, number and remark. Throws RuleError when a journal, an account or an
/// article's family is missing, StoreError when debit and credit of a note differ.
void SalvareDateContabile(const Posting& posting, const Note& head);

/// Throws as SalvareDateContabile() where it would for want of a journal, an account or a family: to be asked
/// before the write lock is taken.
void requirePostable(const Posting& posting, const QString& number);

}  // namespace velmar
