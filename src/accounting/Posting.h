// Posting rules of a document, as data: for each note the totals of the document's lines by account, and the
// entries made once before the groups, for each group, and once after them. One function executes all of
// them.
#pragma once

#include <vector>

#include "accounting/Notes.h"
#include "catalogue/ArticleFigures.h"

namespace velmar {

/// What is summed of a line.
using LineAmount = Decimal (*)(const Row& line, const ArticleFacts& article);

/// The columns VALOAREFT and VALOARETVA.
Decimal lineValue(const Row& line, const ArticleFacts& article);
Decimal lineVat(const Row& line, const ArticleFacts& article);

/// Which lines are summed.
enum class TotalledLines {
  All,
  Goods,        ///< of goods, also of those without stock
  HeldGoods,    ///< of goods held in stock
  Products,     ///< of own products, also of those without stock
  HeldProducts  ///< of own products held in stock
};

/// The totals of a document's lines by the accounts of the article families.
struct Totals {
  /// Columns of G_FAMART by which the lines are grouped; empty: all lines, with or without a family, are one
  /// group.
  QStringList accounts = {};
  LineAmount amount = {};
  LineAmount vat = nullptr;
  LineAmount inCurrency = nullptr;  ///< the amount in the note's currency; null: it follows from the rate
  TotalledLines lines = TotalledLines::All;
  bool byQuantity = false;  ///< lines with different quantities are not summed
};

struct TotalsGroup {
  QHash<QString, QString> accounts;  ///< by column of G_FAMART
  Decimal total;
  Decimal vat;
  Decimal inCurrency;
};

/// The groups, ordered by account and quantity. Lines of articles without a family are left out; see
/// requireFamilies().
std::vector<TotalsGroup> TotaluriConturi(const Totals& totals, const std::vector<Row>& lines,
                                         const ArticleTable& articles);

/// Throws RuleError with the article's code when an article of a line was deleted or has no family: the
/// totals, and therefore the note, would not include it.
void requireFamilies(const std::vector<Row>& lines, const ArticleTable& articles);

enum class Side { Debit, Credit };

/// Source of an entry's account.
struct Account {
  enum class From {
    Totals,     ///< the column of the totals, an account of the article's family
    Parameter,  ///< the column of kt_par
    Given       ///< the account itself
  };
  From from;
  QString name;
};

enum class AmountOf {
  Group,       ///< the total of the group
  GroupVat,    ///< VAT of the group
  GroupGross,  ///< value and VAT of the group
  Value,       ///< the total of all groups
  Vat,         ///< VAT of all groups
  Gross        ///< value and VAT of all groups
};

/// Further columns of an entry's row; can be combined.
enum EntryMark {
  kPartner = 1,         ///< TERT
  kCostCentre = 2,      ///< CODBUG
  kVatLink = 4,         ///< TVA_LINREF 1
  kVatPercent = 8,      ///< COTATVA
  kNoVatLink = 32,      ///< TVA_LINREF 0
  kVatLinkIfTaxed = 16  ///< TVA_LINREF 1 if the percent is above 0
};

struct Entry {
  Side side;
  Account account;
  AmountOf amount = AmountOf::Group;
  int marks = 0;
  bool onlyTaxed = false;  ///< made only if the VAT percent is above 0
  bool skipsZero = false;  ///< not made for an amount of 0
};

/// What the rows of one note have besides account and amount.
struct NoteTerms {
  QString number = {};  ///< of the document
  Value partner = {};
  QDate dueDate = {};           ///< invalid: none is written
  bool inCurrencyForm = false;  ///< rate and amounts in currency are written, 0 in lei
  QString currency = {};        ///< empty: lei
  Decimal rate = {};
  QString costCentre = {};
  Decimal vatPercent = {};
  Value vatOnCollection = {};  ///< TVAINC; null: left as it is
};

/// One note of a document.
struct NoteRule {
  Totals totals;
  QString journal = {};            ///< given; blank: that of the parameter
  QString journalParameter = {};   ///< column of kt_par
  std::vector<Entry> before = {};  ///< once, before the groups
  std::vector<Entry> perGroup = {};
  std::vector<Entry> after = {};    ///< once, after the groups
  bool inDocumentCurrency = false;  ///< the totals are in the note's currency, otherwise in lei
  bool skipsZero = false;           ///< groups of 0 make no entry
  int decimals = -1;                ///< of the amounts in lei; -1: they are not rounded
  NoteTerms terms = {};
  const std::vector<Row>* lines = nullptr;  ///< that are totalled; null: those of the document
};

/// What the notes of a document have in common.
struct PostingInputs {
  QString kind;  ///< prefix; the last note is stamped with it
  QString number;
  QDate date;
  QString remark;
  const std::vector<Row>& lines;
  const ArticleTable& articles;
  const Row& parameters;  ///< the row of kt_par
};

/// The notes in order. Throws RuleError when a journal, an account or an article's family is missing,
/// StoreError when debit and credit of a note differ.
std::vector<Note> SalvareDateContabile(const std::vector<NoteRule>& rules, const PostingInputs& inputs);

}  // namespace velmar
