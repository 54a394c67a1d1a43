#include "documents/DocumentEditor.h"

#include <algorithm>

#include "catalogue/Articles.h"
#include "config/Checks.h"
#include "config/Lists.h"
#include "config/Lookups.h"
#include "config/Session.h"
#include "documents/HeaderChecks.h"
#include "documents/HeaderTexts.h"
#include "documents/LineChecks.h"
#include "documents/Numbering.h"
#include "documents/Validation.h"
#include "store/Database.h"
#include "store/Schema.h"
#include "util/Clock.h"
#include "util/Errors.h"
#include "util/Messages.h"
#include "util/NumberText.h"

namespace velmar {

namespace {

constexpr int kNameWidth = 35;
constexpr int kFooterDecimals = 2;

}  // namespace

DocumentEditor::DocumentEditor(const QString& prefix)
    : kind_(documentKind(prefix)), rules_(kindRules(prefix)), typed_(kind_, {}) {
  if (!rules_) throw StoreError(0, QStringLiteral("Documentul %1 nu se poate culege inca.").arg(prefix));
  header_ = companyTable(kind_.headerTable).emptyRow();
}

QString DocumentEditor::newDocument() {
  const ProposedNumber proposed = proposeNumber(kind_);
  fillNewHeader(proposed);
  lines_.clear();
  storedLines_.clear();
  isNew_ = true;
  numberLocked_ = proposed.locked;
  linesChanged();
  return proposed.warning;
}

void DocumentEditor::fillNewHeader(const ProposedNumber& proposed) {
  header_ = companyTable(kind_.headerTable).emptyRow();
  header_.set("Magazie", session().gMagazie);
  if (header_.has("SERIE")) header_.set("SERIE", session().gSerieFC);
  QHash<QString, QString> texts;
  for (const HeaderField& field : kind_.headerFields) {
    const QString before = typed_.texts().value(field.key());
    texts.insert(field.key(), field.keeps && !before.isEmpty() ? before : newText(field));
    // The payment method is not shown until it is chosen, but it has a default.
    if (field.type == HeaderFieldType::PaymentMode)
      header_.set(field.column, storedHeaderValue(field.type, field.initial));
  }
  texts.insert(kind_.numberColumn, proposed.number);
  typed_ = TypedHeader(kind_, texts);
  rules_->begin(typed_, true);
  typed_.takeChanges();
  header_ = headerFrom(typed_);
  header_.set(kind_.numberColumn, proposed.number);
  storedRate_ = shownRate_ = typed_.vatRate();
}

QString DocumentEditor::newText(const HeaderField& field) const {
  switch (field.type) {
    case HeaderFieldType::Date:
      return clock::today().toString(Qt::ISODate);
    case HeaderFieldType::DueDate:
      return clock::today().addMonths(1).toString(Qt::ISODate);
    case HeaderFieldType::PaymentMode:
      return {};
    case HeaderFieldType::VatRate:
      return defaultVatRate(kind_.partnersAreSuppliers);
    default:
      return field.initial;
  }
}

void DocumentEditor::open(const QString& number) {
  auto document = drafts().load(number);
  if (!document || document->header.flag("VALIDAT"))
    throw RuleError(
        QStringLiteral("Documentul %1 a fost validat sau sters intre timp de alt utilizator !").arg(number));
  header_ = document->header;
  typed_ = TypedHeader(kind_, textsOf(header_));
  storedRate_ = shownRate_ = typed_.vatRate();
  rules_->begin(typed_, false);
  typed_.takeChanges();
  lines_ = std::move(document->lines);
  storedLines_ = lines_;
  isNew_ = false;
  numberLocked_ = true;
  linesChanged();
}

// Shows the stored values; fields that are not stored keep their typed texts.
void DocumentEditor::reopen(const QString& number) {
  const TypedHeader asTyped = typed_;
  open(number);
  for (const HeaderField& field : kind_.headerFields)
    if (field.column.isEmpty()) typed_.set(field.key(), asTyped.texts().value(field.key()));
  typed_.takeChanges();
}

bool DocumentEditor::isPrinted() const {
  return !isNew_ && kind_.receipt.exists() && header_.flag(kind_.receipt.printed);
}

bool DocumentEditor::isSending() const {
  return !isNew_ && kind_.receipt.exists() && header_.integer(kind_.receipt.sending) != 0;
}

QHash<QString, QString> DocumentEditor::textsOf(const Row& header) const {
  QHash<QString, QString> texts;
  bool isForeign = false;
  for (const HeaderField& field : kind_.headerFields) {
    // A date box always shows a date: if none is stored, the default of a new document.
    const bool isDate = field.type == HeaderFieldType::Date || field.type == HeaderFieldType::DueDate;
    if (!field.column.isEmpty() && !(isDate && header.isNull(field.column)))
      texts.insert(field.key(), shownHeaderText(field.type, header, field.column));
    else
      texts.insert(field.key(), field.keeps ? typed_.texts().value(field.key()) : newText(field));
    if (field.type == HeaderFieldType::Currency) isForeign = !header.text(field.column).isEmpty();
  }
  for (const HeaderField& field : kind_.headerFields)
    if (field.type == HeaderFieldType::Foreign && field.column.isEmpty())
      texts.insert(field.key(), isForeign ? QStringLiteral("-1") : QStringLiteral("0"));
  return texts;
}

bool DocumentEditor::headerTyped(const QHash<QString, QString>& texts) {
  typed_ = TypedHeader(kind_, texts);
  return followRate();
}

bool DocumentEditor::headerChosen(const QString& key, const QHash<QString, QString>& texts) {
  const bool linesFollowed = headerTyped(texts);
  const bool isForeign = typed_.isForeign();
  QString currency, rate, box;
  for (const HeaderField& field : kind_.headerFields) {
    if (field.type == HeaderFieldType::Currency) currency = field.key();
    if (field.type == HeaderFieldType::Rate) rate = field.key();
    if (field.type == HeaderFieldType::Foreign) box = field.key();
  }
  if (!currency.isEmpty() && key == currency && isForeign) {
    const Decimal found = Curs(typed_.text(currency), typed_.date());
    typed_.set(rate, found.isZero() ? QString() : editNumber(found, kRateDecimals));
  } else if (!box.isEmpty() && key == box && !isForeign) {
    typed_.set(currency, {});
    typed_.set(rate, {});
  }
  rules_->follow(key, typed_);
  return linesFollowed;
}

// A typed VAT amount is kept until the rate changes, and restored with the rate under which it was typed.
bool DocumentEditor::followRate() {
  const QString rate = typed_.vatRate();
  if (isNew_ || isFrozen() || rate == shownRate_ || !isOfferedRate(kind_, rate)) return false;
  shownRate_ = rate;
  if (ProcentTVA(rate.toLongLong()) != ProcentTVA(storedRate_.toLongLong())) {
    for (Row& line : lines_) rules_->applyRate(line, typed_);
  } else {
    lines_ = storedLines_;
  }
  linesChanged();
  return true;
}

// The stored header and lines always have the same rate.
void DocumentEditor::storeRate() {
  if (isRateStored()) return;
  Row header = header_;
  for (const HeaderField& field : kind_.headerFields)
    if (field.type == HeaderFieldType::VatRate)
      header.set(field.column, storedHeaderValue(field.type, shownRate_));
  storeHeader(header);
}

void DocumentEditor::storeHeader(const Row& header) {
  Transaction transaction(database());
  drafts().requireAsShown(shownDraft());
  drafts().updateHeader(header);
  if (!isRateStored()) drafts().updateColumns(lines_, rules_->totalColumns());
  transaction.commit();
  header_ = header;
  storedLines_ = lines_;
  storedRate_ = shownRate_;
}

void DocumentEditor::save(const QHash<QString, QString>& typed) {
  headerTyped(typed);
  if (isFrozen()) throw RuleError(isPrinted() ? kind_.receipt.notChangeable : kind_.receipt.unknownText);
  // A continuous number is determined in the transaction that inserts its row.
  std::optional<Transaction> numbering;
  if (isNew_ && kind_.numbering == Numbering::Continuous) {
    numbering.emplace(database());
    typed_.set(kind_.numberColumn, proposeNumber(kind_).number);
  }
  if (!InPerioadaCulegere(typed_.date())) throw RuleError(withPeriod(kPeriodText), kind_.dateColumn);
  requireHeader(typed_, isNew_);
  requireKnownCodes(typed_, isNew_ ? QHash<QString, QString>() : textsOf(header_));
  const Row header = headerFrom(typed_);
  noticeMissingRate(header);
  if (isNew_) {
    drafts().insertHeader(header);
    if (numbering) numbering->commit();
    reopen(header.text(kind_.numberColumn));
  } else {
    storeHeader(header);
  }
}

void DocumentEditor::noticeMissingRate(const Row& header) const {
  if (kind_.texts.rateMissing.isEmpty() || !typed_.isForeign()) return;
  QString currency;
  Decimal rate;
  for (const HeaderField& field : kind_.headerFields) {
    if (field.type == HeaderFieldType::Currency) currency = header.text(field.column);
    if (field.type == HeaderFieldType::Rate) rate = header.decimal(field.column);
  }
  if (rate.isZero()) Mesaj(kind_.texts.rateMissing.arg(currency), kExclamation);
}

Row DocumentEditor::headerFrom(const TypedHeader& typed) const {
  Row header = header_;
  const bool foreign = typed.isForeign();
  for (const HeaderField& field : kind_.headerFields) {
    const QString text = typed.texts().value(field.key());
    const bool isKept =
        field.column.isEmpty() || (field.type == HeaderFieldType::Number && !isNew_) ||
        (field.type == HeaderFieldType::PaymentMode && !paymentWords().contains(text.trimmed()));
    if (isKept) continue;
    const bool isCleared =
        !foreign && (field.type == HeaderFieldType::Currency || field.type == HeaderFieldType::Rate);
    header.set(field.column, storedHeaderValue(field.type, isCleared ? QString() : text));
  }
  return header;
}

bool DocumentEditor::headerDiffers(const QHash<QString, QString>& texts) const {
  if (isNew_) return false;
  // Compares the values to be stored: a field that shows a default for a missing value does not differ.
  const Row typed = headerFrom(TypedHeader(kind_, texts));
  const Row stored = headerFrom(TypedHeader(kind_, textsOf(header_)));
  return std::any_of(kind_.headerFields.begin(), kind_.headerFields.end(), [&](const HeaderField& field) {
    return !field.column.isEmpty() && shownHeaderText(field.type, typed, field.column) !=
                                          shownHeaderText(field.type, stored, field.column);
  });
}

const LineColumn* DocumentEditor::column(const QString& field) const {
  for (const LineColumn& column : kind_.lineColumns)
    if (column.field.compare(field, Qt::CaseInsensitive) == 0) return &column;
  return nullptr;
}

DocumentEditor::Verdict DocumentEditor::check(size_t line, const QString& field, const QString& typed,
                                              bool bySupplierCode) const {
  const LineColumn* entry = column(field);
  const QString text = typed.trimmed();
  switch (entry ? entry->entry : LineEntry::Locked) {
    case LineEntry::Locked:
      return {true, {}};
    case LineEntry::Code:
      if (text.isEmpty()) return {true, QStringLiteral("Va rugam introduceti cod articol")};
      if (bySupplierCode ? !ProdusFurnizorExista(text) : !ArticolExista(text))
        return {true,
                (bySupplierCode ? QStringLiteral("Articolul cu codul produs de la furnizor %1 nu exista ")
                                : kind_.texts.unknownArticle)
                    .arg(text)};
      return {};
    case LineEntry::Name:
      return {true, text.isEmpty()
                        ? QString()
                        : QStringLiteral("Articolul %1 nu exista ! Adaugarea in grila nu se poate efectua !")
                              .arg(text)};
    case LineEntry::OptionalPositive:
      if (text.isEmpty()) return {};
      [[fallthrough]];
    case LineEntry::Number:
    case LineEntry::PositiveNumber:
      break;
  }
  const auto number = typedNumber(text);
  if (!number)
    return {true, QStringLiteral("Va rugam introduceti o valoare numerica pentru %1 !").arg(entry->caption)};
  if (entry->entry != LineEntry::Number && number->isNegative())
    return {
        true,
        QStringLiteral("Va rugam introduceti o valoare numerica pozitiva pentru %1 !").arg(entry->caption)};
  const CellObjection objection =
      line < lines_.size() ? rules_->objection(lines_[line], entry->field, *number, typed_) : CellObjection{};
  return {!objection.text.isEmpty(), objection.text, objection.setsBack};
}

bool DocumentEditor::isOpen(size_t line, const QString& field) const {
  const LineColumn* entry = column(field);
  if (!entry || isNew_ || isFrozen()) return false;
  const bool newLine = line >= lines_.size();
  switch (entry->entry) {
    case LineEntry::Locked:
      return false;
    case LineEntry::Code:
      return true;
    case LineEntry::Name:
      return newLine;
    default:
      return !newLine;
  }
}

size_t DocumentEditor::setArticle(size_t line, const QString& code, const QString& listText,
                                  bool bySupplierCode) {
  if (isNew_) throw RuleError(kind_.texts.saveFirst);
  const auto article = bySupplierCode ? articleBySupplierCode(code.trimmed()) : articleByCode(code.trimmed());
  if (!article) throw RuleError(kind_.texts.unknownArticle.arg(code.trimmed()), "CODART");
  const bool isNewLine = line >= lines_.size();
  Row row = isNewLine ? companyTable(kind_.lineTable).emptyRow() : lines_[line];
  row.set(kind_.numberColumn, number());
  row.set("CODART", article->text("CODART"));
  row.set("DENUMIRE", (listText.isEmpty() ? article->text("DENART") : listText).left(kNameWidth));
  rules_->completeLine(row, *article, typed_);
  storeRate();
  if (isNewLine) {
    drafts().insertLine(row, header_);
    storedLines_.push_back(row);
    lines_.push_back(std::move(row));
    line = lines_.size() - 1;
    linesChanged();
  } else {
    store(line, std::move(row));
  }
  return line;
}

void DocumentEditor::setNumber(size_t line, const QString& field, const QString& typed) {
  const LineColumn* entry = column(field);
  Row row = lines_.at(line);
  auto number = typedNumber(typed.trimmed());
  if (number && entry->roundTo != kAsTyped) number = Round(*number, decimalsOf(entry->roundTo));
  row.set(entry->field, number ? Value(*number) : Value());
  rules_->recalculate(row, entry->field, typed_);
  store(line, std::move(row));
}

void DocumentEditor::store(size_t line, Row row) {
  storeRate();
  drafts().updateLine(row, header_, storedLines_.at(line));
  storedLines_[line] = row;
  lines_[line] = std::move(row);
  linesChanged();
}

void DocumentEditor::deleteLine(size_t line) {
  drafts().deleteLine(header_, storedLines_.at(line));
  for (auto* lines : {&lines_, &storedLines_})
    lines->erase(lines->begin() + static_cast<std::ptrdiff_t>(line));
  linesChanged();
}

void DocumentEditor::linesChanged() {
  totals_.clear();
  for (const QString& column : rules_->totalColumns()) {
    Decimal sum;
    for (const Row& line : lines_) sum += amount(line, column);
    totals_.insert(column, sum);
  }
  refreshMarks();
}

void DocumentEditor::refreshMarks() { marks_ = rules_->marks(lines_, typed_); }

Decimal DocumentEditor::amount(const Row& line, const QString& field) const {
  const LineColumn* shown = column(field);
  if (!shown || shown->product.isEmpty()) return line.decimal(field);
  Decimal product(1);
  for (const QString& factor : shown->product) product = product * line.decimal(factor);
  return product;
}

void DocumentEditor::checkValidation(const QHash<QString, QString>& typed) {
  headerTyped(typed);
  for (const auto& check : kind_.validationChecks)
    if (isBroken(check))
      throw RuleError(check.check == ValidationCheck::OutsidePeriod ? withPeriod(check.text) : check.text,
                      check.field, 0, check.title);
  // The header is validated as shown on screen, saved or not, so it must be checked.
  requireHeader(typed_, isNew_);
  requireKnownCodes(typed_, textsOf(header_));
  storeRate();
  refreshStaleLines();
}

void DocumentEditor::refreshStaleLines() {
  if (isFrozen()) return;
  for (size_t line = 0; line < lines_.size(); ++line) {
    if (!rules_->isStale(lines_[line])) continue;
    Row row = lines_[line];
    rules_->recalculate(row, QStringLiteral("CANT"), typed_);
    store(line, std::move(row));
  }
}

bool DocumentEditor::isBroken(const Checked<ValidationCheck>& check) const {
  const QString text = typed_.text(check.field);
  const QDate date = typed_.date();
  const Decimal number = typedNumber(text).value_or(Decimal(0));
  switch (check.check) {
    case ValidationCheck::NumberEmpty:
      return text.isEmpty();
    case ValidationCheck::JournalEmpty:
      return typed_.texts().value(check.field).isEmpty();
    case ValidationCheck::NumberOfOrigin:
      return !text.isEmpty() && text == this->number();
    case ValidationCheck::OutsidePeriod:
      return !InPerioadaCulegere(date);
    case ValidationCheck::DueBeforeDate:
      return QDate::fromString(text, Qt::ISODate) < date;
    case ValidationCheck::BeforeFiscalYear:
      return date < session().DataIN;
    case ValidationCheck::CurrencyWithoutRate:
      return typed_.isForeign() && number <= 0;
    case ValidationCheck::NoLines:
      return isNew_ || lines_.empty();
    case ValidationCheck::TotalDiffers:
      return Round(total(check.detail), kFooterDecimals) != number;
    case ValidationCheck::TotalDiffersGiven:
      return !number.isZero() && Round(total(check.detail), kFooterDecimals) != number;
    case ValidationCheck::EmptyWithTotal:
      return text.isEmpty() && total(check.detail) > 0;
  }
  return true;
}

bool DocumentEditor::checkLines() const {
  const QString repeated = kind_.distinctArticles ? repeatedArticle(lines_) : QString();
  if (!repeated.isEmpty()) throw RuleError(repeatedArticleText(repeated), "CODART");
  if (!EsteValidDetaliiDocument(kind_.prefix, number())) return false;
  auto document = draftFor(typed_, number());
  if (!document) return true;             // validation reports it
  document->header = headerFrom(typed_);  // the header that validation stores, saved or not
  requireValidatable(*document);
  requirePostable(*document);
  return true;
}

void DocumentEditor::validate(const QHash<QString, QString>& typed) {
  headerTyped(typed);
  storeRate();
  SalvareDocumente(typed_, headerFrom(typed_), shownDraft());
}

void DocumentEditor::checkPrinting(const QHash<QString, QString>& typed) {
  headerTyped(typed);
  for (const auto& check : kind_.printChecks)
    if (isBroken(check)) throw RuleError(check.text, check.field, 0, check.title);
}

bool DocumentEditor::isBroken(const Checked<PrintCheck>& check) const {
  switch (check.check) {
    case PrintCheck::NumberEmpty:
    case PrintCheck::PartnerEmpty:
      return typed_.text(check.field).isEmpty();
    case PrintCheck::ReceiptPrinted:
      return isPrinted();
    case PrintCheck::BeforeFiscalYear:
      return typed_.date() < session().DataIN;
    case PrintCheck::NoLines:
      return isNew_ || lines_.empty();
    case PrintCheck::NotSaved:
      return isNew_;
  }
  return true;
}

ReceiptOutcome DocumentEditor::printReceipt(const QHash<QString, QString>& typed) {
  checkPrinting(typed);
  requireHeader(typed_, isNew_);
  storeRate();
  refreshStaleLines();
  if (!EsteValidDetaliiDocument(kind_.prefix, number())) return ReceiptOutcome::NotPrinted;
  const ReceiptOutcome outcome = printCashReceipt(typed_, headerFrom(typed_), shownDraft());
  reopen(number());
  return outcome;
}

bool DocumentEditor::followStored(const QHash<QString, QString>& typed) {
  if (isNew_) return false;
  try {
    Transaction transaction(database());
    drafts().requireAsShown(shownDraft());
    return false;
  } catch (const RuleError&) {
    const QHash<QString, QString> before = textsOf(header_);
    open(number());
    for (const HeaderField& field : kind_.headerFields) {
      const QString text = typed.value(field.key());
      const bool isTyped = field.column.isEmpty() || text != before.value(field.key());
      if (isTyped &&
          (field.column.isEmpty() || typed_.texts().value(field.key()) == before.value(field.key())))
        typed_.set(field.key(), text);
    }
  }
  typed_.takeChanges();
  followRate();
  return true;
}

bool DocumentEditor::followReceipt() {
  if (isNew_ || !kind_.receipt.exists()) return false;
  const bool wasPrinted = isPrinted();
  const bool wasSending = isSending();
  reopen(number());
  return isPrinted() != wasPrinted || isSending() != wasSending;
}

void DocumentEditor::checkDeletion() const {
  if (typed_.text(kind_.numberColumn).isEmpty() || isNew_) throw RuleError(kind_.texts.nothingToDelete);
  if (isPrinted()) throw RuleError(kind_.receipt.notDeletable);
  if (isSending()) throw RuleError(kind_.receipt.unknownText);
}

void DocumentEditor::remove() {
  drafts().remove(number());
  newDocument();
}

}  // namespace velmar
