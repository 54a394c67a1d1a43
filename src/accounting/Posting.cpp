#include "accounting/Posting.h"

#include <algorithm>

#include "config/Session.h"
#include "util/Errors.h"

namespace velmar {

namespace {

constexpr int kForeignDecimals = 2;
constexpr int kSumDecimals = 10;  // removes the errors of binary fractions, far smaller than a ban (0.01 lei)

bool isTotalled(TotalledLines lines, const ArticleFacts& article) {
  const bool isGoods = article.origin.compare(kGoods, Qt::CaseInsensitive) == 0;
  const bool isProduct = article.origin.compare(kProducts, Qt::CaseInsensitive) == 0;
  switch (lines) {
    case TotalledLines::All:
      return true;
    case TotalledLines::Goods:
      return isGoods;
    case TotalledLines::HeldGoods:
      return isGoods && !article.figures.FARASTOC;
    case TotalledLines::Products:
      return isProduct;
    case TotalledLines::HeldProducts:
      return isProduct && !article.figures.FARASTOC;
  }
  return false;
}

struct GroupKey {
  QStringList accounts;
  Decimal quantity;

  bool operator==(const GroupKey&) const = default;
  bool operator<(const GroupKey& other) const {
    return accounts != other.accounts ? accounts < other.accounts : quantity < other.quantity;
  }
};

// Builds one note: the rule and the sums over the groups so far.
class Composer {
 public:
  Composer(const NoteRule& rule, const PostingInputs& inputs) : rule_(rule), inputs_(inputs) {}

  Note compose() {
    const auto groups =
        TotaluriConturi(rule_.totals, rule_.lines ? *rule_.lines : inputs_.lines, inputs_.articles);
    for (const TotalsGroup& group : groups) {
      value_ += group.total;
      inCurrency_ += group.inCurrency;
      if (isTaxed()) vat_ += group.vat;
    }
    if (groups.empty()) return {};
    fillHead();
    for (const Entry& entry : rule_.before) add(entry, nullptr);
    for (const TotalsGroup& group : groups) {
      if (rule_.skipsZero && group.total.isZero()) continue;
      for (const Entry& entry : rule_.perGroup) add(entry, &group);
    }
    for (const Entry& entry : rule_.after) add(entry, nullptr);
    requireBalance(note_);
    return note_;
  }

 private:
  bool isTaxed() const { return !rule_.terms.vatPercent.isZero(); }

  void fillHead() {
    const NoteTerms& terms = rule_.terms;
    note_.kind = inputs_.kind;
    note_.date = inputs_.date;
    note_.remark = inputs_.remark;
    note_.number = terms.number.isEmpty() ? inputs_.number : terms.number;
    note_.journal = rule_.journal.trimmed().isEmpty()
                        ? requiredParameter(inputs_.parameters, rule_.journalParameter)
                        : rule_.journal;
    note_.dueDate = terms.dueDate;
    note_.currency = terms.currency;
    note_.inCurrencyForm = terms.inCurrencyForm;
    note_.rate = terms.rate;
    note_.vatOnCollection = terms.vatOnCollection;
  }

  QString accountOf(const Account& account, const TotalsGroup* group) const {
    switch (account.from) {
      case Account::From::Totals:
        return group->accounts.value(account.name);
      case Account::From::Parameter:
        return requiredParameter(inputs_.parameters, account.name);
      case Account::From::Given:
        break;
    }
    return account.name;
  }

  Decimal amountOf(const Entry& entry, const TotalsGroup* group) const {
    switch (entry.amount) {
      case AmountOf::Group:
        return group->total;
      case AmountOf::GroupVat:
        return group->vat;
      case AmountOf::GroupGross:
        return group->total + group->vat;
      case AmountOf::Value:
        return value_;
      case AmountOf::Vat:
        return vat_;
      case AmountOf::Gross:
        break;
    }
    return value_ + vat_;
  }

  void add(const Entry& entry, const TotalsGroup* group) {
    if (entry.onlyTaxed && !isTaxed()) return;
    const NoteTerms& terms = rule_.terms;
    NoteRow row;
    row.account = accountOf(entry.account, group);
    Decimal amount = amountOf(entry, group);
    if (entry.skipsZero && amount.isZero()) return;
    Decimal foreign;
    if (!terms.currency.isEmpty()) {
      if (rule_.totals.inCurrency) {
        foreign = group ? group->inCurrency : inCurrency_;
      } else if (rule_.inDocumentCurrency) {
        foreign = amount;
        amount = amount * terms.rate;
      } else if (!terms.rate.isZero()) {
        foreign = Round(amount / terms.rate, kForeignDecimals);
      }
    }
    if (rule_.decimals >= 0) amount = Round(amount, rule_.decimals);
    (entry.side == Side::Debit ? row.debit : row.credit) = amount;
    (entry.side == Side::Debit ? row.foreignDebit : row.foreignCredit) = foreign;
    mark(row, entry.marks);
    note_.rows.push_back(std::move(row));
  }

  void mark(NoteRow& row, int marks) const {
    const NoteTerms& terms = rule_.terms;
    if (marks & kPartner) row.partner = terms.partner;
    if (marks & kCostCentre && !terms.costCentre.isEmpty()) row.costCentre = terms.costCentre;
    if (marks & kNoVatLink) row.vatLink = 0;
    if (marks & kVatLink || (marks & kVatLinkIfTaxed && isTaxed())) row.vatLink = 1;
    if (marks & kVatPercent) row.vatPercent = terms.vatPercent;
  }

  const NoteRule& rule_;
  const PostingInputs& inputs_;
  Note note_;
  Decimal value_;
  Decimal vat_;
  Decimal inCurrency_;
};

}  // namespace

Decimal lineValue(const Row& line, const ArticleFacts& /*article*/) { return line.decimal("VALOAREFT"); }

Decimal lineVat(const Row& line, const ArticleFacts& /*article*/) { return line.decimal("VALOARETVA"); }

std::vector<TotalsGroup> TotaluriConturi(const Totals& totals, const std::vector<Row>& lines,
                                         const ArticleTable& articles) {
  std::vector<std::pair<GroupKey, TotalsGroup>> found;
  for (const Row& line : lines) {
    const ArticleFacts* article = articles.find(line.text("CODART"));
    if (!article || (!article->hasFamily && !totals.accounts.isEmpty())) continue;
    if (!isTotalled(totals.lines, *article)) continue;
    GroupKey key;
    for (const QString& account : totals.accounts) key.accounts.append(article->accounts.value(account));
    if (totals.byQuantity) key.quantity = line.decimal("CANT");
    auto group =
        std::find_if(found.begin(), found.end(), [&key](const auto& known) { return known.first == key; });
    if (group == found.end()) {
      TotalsGroup added;
      for (const QString& account : totals.accounts)
        added.accounts.insert(account, article->accounts.value(account));
      group = found.insert(found.end(), {key, added});
    }
    group->second.total += totals.amount(line, *article);
    if (totals.vat) group->second.vat += totals.vat(line, *article);
    if (totals.inCurrency) group->second.inCurrency += totals.inCurrency(line, *article);
  }
  std::sort(found.begin(), found.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
  std::vector<TotalsGroup> groups;
  for (auto& [key, group] : found) {
    group.total = Round(group.total, kSumDecimals);
    group.vat = Round(group.vat, kSumDecimals);
    groups.push_back(std::move(group));
  }
  return groups;
}

void requireFamilies(const std::vector<Row>& lines, const ArticleTable& articles) {
  for (const Row& line : lines) {
    const QString code = line.text("CODART");
    const ArticleFacts* article = articles.find(code);
    if (article && article->hasFamily) continue;
    throw RuleError(
        (article ? QStringLiteral("Articolul cu codul %1 nu are familie ! Validarea nu se poate efectua !")
                 : QStringLiteral("Articolul cu codul %1 nu exista ! Validarea nu se poate efectua !"))
            .arg(code));
  }
}

std::vector<Note> SalvareDateContabile(const std::vector<NoteRule>& rules, const PostingInputs& inputs) {
  std::vector<Note> notes;
  if (std::any_of(rules.begin(), rules.end(),
                  [](const auto& rule) { return !rule.totals.accounts.isEmpty(); }))
    requireFamilies(inputs.lines, inputs.articles);
  for (const NoteRule& rule : rules) {
    Note note = Composer(rule, inputs).compose();
    if (!note.rows.empty()) notes.push_back(std::move(note));
  }
  if (!notes.empty()) notes.back().stamp = inputs.kind;
  return notes;
}

}  // namespace velmar
