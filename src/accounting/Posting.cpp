#include "accounting/Posting.h"

#include "config/Session.h"

namespace velmar {

namespace {

constexpr int kForeignDecimals = 2;

// Builds one note: the rule, the document's posting, and the sums over the groups so far.
class Composer {
 public:
  Composer(const NoteRule& rule, const Posting& posting, Note head)
      : rule_(rule), posting_(posting), note_(std::move(head)) {}

  Note compose() {
    const Recordset groups = TotaluriConturi(rule_.totals, note_.number);
    for (const Row& group : groups) addUp(group);
    if (groups.isEmpty()) return {};
    fillHead();
    for (const Entry& entry : rule_.before) add(entry, nullptr);
    for (const Row& group : groups) {
      if (rule_.skipsZero && group.decimal("TOTAL").isZero()) continue;
      for (const Entry& entry : rule_.perGroup) add(entry, &group);
    }
    for (const Entry& entry : rule_.after) add(entry, nullptr);
    requireBalance(note_);
    return note_;
  }

 private:
  bool isTaxed() const { return !posting_.vatPercent.isZero(); }

  void addUp(const Row& group) {
    value_ += group.decimal("TOTAL");
    if (group.has("TVA") && isTaxed()) vat_ += group.decimal("TVA");
  }

  void fillHead() {
    const bool isChosen = rule_.journalOfDocument && !posting_.journal.trimmed().isEmpty();
    note_.journal = isChosen ? posting_.journal : requiredParameter(rule_.journalParameter);
    note_.dueDate = posting_.dueDate;
    note_.currency = posting_.currency;
    note_.inCurrencyForm = posting_.inCurrencyForm;
    note_.rate = posting_.rate;
    note_.vatOnCollection = posting_.vatOnCollection;
  }

  QString accountOf(const Entry& entry, const Row* group) const {
    switch (entry.source) {
      case AccountSource::Totals:
        return group->text(entry.account);
      case AccountSource::Parameter:
        return requiredParameter(entry.account);
      case AccountSource::Cash:
        return posting_.cashAccount;
      case AccountSource::VatRate:
        break;
    }
    return posting_.vatAccount;
  }

  Decimal amountOf(const Entry& entry, const Row* group) const {
    switch (entry.amount) {
      case AmountOf::Group:
        return group->decimal("TOTAL");
      case AmountOf::Vat:
        return vat_;
      case AmountOf::Gross:
        break;
    }
    return value_ + vat_;
  }

  void add(const Entry& entry, const Row* group) {
    if (entry.onlyTaxed && !isTaxed()) return;
    NoteRow row;
    row.account = accountOf(entry, group);
    Decimal amount = amountOf(entry, group);
    Decimal foreign;
    if (!posting_.currency.isEmpty()) {
      if (rule_.inDocumentCurrency) {
        foreign = amount;
        amount = amount * posting_.rate;
      } else if (!posting_.rate.isZero()) {
        foreign = Round(amount / posting_.rate, kForeignDecimals);
      }
    }
    (entry.side == Side::Debit ? row.debit : row.credit) = amount;
    (entry.side == Side::Debit ? row.foreignDebit : row.foreignCredit) = foreign;
    mark(row, entry.marks);
    note_.rows.push_back(std::move(row));
  }

  void mark(NoteRow& row, int marks) const {
    if (marks & kPartner) row.partner = posting_.partner;
    if (marks & kCostCentre && !posting_.costCentre.isEmpty()) row.costCentre = posting_.costCentre;
    if (marks & kVatLink || (marks & kVatLinkIfTaxed && isTaxed())) row.vatLink = 1;
    if (marks & kVatPercent) row.vatPercent = posting_.vatPercent;
  }

  const NoteRule& rule_;
  const Posting& posting_;
  Note note_;
  Decimal value_;
  Decimal vat_;
};

std::vector<Note> composed(const Posting& posting, const Note& head) {
  std::vector<Note> notes;
  // All notes of a document total the same lines.
  if (!posting.notes.empty()) requireFamilies(posting.notes.front().totals, head.number);
  for (const NoteRule& rule : posting.notes) {
    Note unstamped = head;
    unstamped.kind.clear();
    Note note = Composer(rule, posting, unstamped).compose();
    if (!note.rows.empty()) notes.push_back(std::move(note));
  }
  if (!notes.empty()) notes.back().kind = head.kind;
  return notes;
}

}  // namespace

void SalvareDateContabile(const Posting& posting, const Note& head) { writeNotes(composed(posting, head)); }

void requirePostable(const Posting& posting, const QString& number) {
  Note head;
  head.number = number;
  composed(posting, head);
}

}  // namespace velmar
