#include "documents/DocumentEditor.h"

#include "catalogue/Articles.h"
#include "config/Checks.h"
#include "config/Lookups.h"
#include "config/Session.h"
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
constexpr qint64 kLargestNumber = 1'000'000'000'000;  // beyond it a double no longer holds thousandths

std::optional<Decimal> typedNumber(const QString& typed) {
  const auto number = parseNumber(typed);
  return number && number->abs() < Decimal(kLargestNumber) ? number : std::nullopt;
}

QString periodText() {
  return QStringLiteral("Data document trebuie sa fie in intervalul: %1-%2")
      .arg(formatDate(session().DataIC), formatDate(session().DataSC));
}

bool partnerExists(const QString& code) {
  return !OpenRs("SELECT COD FROM kt_ter WHERE COD = ?", {static_cast<qint64>(code.toLongLong())}).isEmpty();
}

}  // namespace

DocumentEditor::DocumentEditor(const QString& prefix)
    : kind_(documentKind(prefix)), rules_(kindRules(prefix)) {
  if (!rules_) throw StoreError(0, QStringLiteral("Documentul %1 nu se poate culege inca.").arg(prefix));
  header_ = companyTable(kind_.headerTable).emptyRow();
}

QString DocumentEditor::newDocument() {
  const ProposedNumber proposed = proposeNumber(kind_);
  header_ = companyTable(kind_.headerTable).emptyRow();
  header_.set(kind_.numberColumn, proposed.number);
  header_.set(kind_.dateColumn, clock::today());
  header_.set("Magazie", session().gMagazie);
  lines_.clear();
  isNew_ = true;
  numberLocked_ = proposed.locked;
  addTotals();
  return proposed.warning;
}

void DocumentEditor::open(const QString& number) {
  auto document = drafts().load(number);
  if (!document || document->header.flag("VALIDAT"))
    throw RuleError(
        QStringLiteral("Documentul %1 a fost validat sau sters intre timp de alt utilizator !").arg(number));
  header_ = document->header;
  lines_ = std::move(document->lines);
  isNew_ = false;
  numberLocked_ = true;
  addTotals();
}

void DocumentEditor::save(const QHash<QString, QString>& typed) {
  const QDate date = QDate::fromString(typed.value(kind_.dateColumn), Qt::ISODate);
  if (!InPerioadaCulegere(date)) throw RuleError(periodText(), kind_.dateColumn);
  checkHeader(typed);
  const Row header = headerFrom(typed);
  if (isNew_) {
    drafts().insertHeader(header);
    open(header.text(kind_.numberColumn));
  } else {
    drafts().updateHeader(header);
    header_ = header;
  }
}

void DocumentEditor::checkHeader(const QHash<QString, QString>& typed) const {
  for (const auto& check : kind_.headerChecks) checkHeaderField(check, typed);
}

void DocumentEditor::checkHeaderField(const Checked<HeaderCheck>& check,
                                      const QHash<QString, QString>& typed) const {
  const QString text = typed.value(check.field).trimmed();
  bool broken = false;
  switch (check.check) {
    case HeaderCheck::NumberEmpty:
    case HeaderCheck::JournalEmpty:
      broken = text.isEmpty();
      break;
    case HeaderCheck::PartnerEmpty:
      broken = text.isEmpty();
      if (!broken && !partnerExists(text))
        throw RuleError(QStringLiteral("Tertul cu codul %1 nu exista ! Salvarea nu se poate efectua !")
                            .arg(text.left(20)),
                        check.field, kCritical);
      break;
    case HeaderCheck::RateNotNumeric:
      broken = !typedNumber(text);
      break;
    case HeaderCheck::PercentNotPositive: {
      const auto percent = typedNumber(text);
      broken = !text.isEmpty() && (!percent || percent->isNegative());
      break;
    }
    case HeaderCheck::NumberTaken:
      broken = isNew_ && Exista(text, kind_.existsKind);
      break;
  }
  if (broken) throw RuleError(check.text, check.field, kCritical);
}

Row DocumentEditor::headerFrom(const QHash<QString, QString>& typed) const {
  Row header = header_;
  for (const HeaderField& field : kind_.headerFields) {
    const QString text = typed.value(field.column).trimmed();
    switch (field.type) {
      case HeaderFieldType::Number:
        if (isNew_) header.set(field.column, text);
        break;
      case HeaderFieldType::Remark:
        header.set(field.column, text);
        break;
      case HeaderFieldType::Partner:
      case HeaderFieldType::VatRate:
        header.set(field.column, text.isEmpty() ? Value() : Value(static_cast<qint64>(text.toLongLong())));
        break;
      case HeaderFieldType::Percent:
        header.set(field.column, typedNumber(text).value_or(Decimal(0)));
        break;
      case HeaderFieldType::Date:
      case HeaderFieldType::DueDate:
        header.set(field.column, QDate::fromString(text, Qt::ISODate));
        break;
    }
  }
  return header;
}

const LineColumn* DocumentEditor::column(const QString& field) const {
  for (const LineColumn& column : kind_.lineColumns)
    if (column.field.compare(field, Qt::CaseInsensitive) == 0) return &column;
  return nullptr;
}

DocumentEditor::Verdict DocumentEditor::check(const QString& field, const QString& typed,
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
                                : QStringLiteral("Articolul cu codul intern %1 nu exista "))
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
  return {};
}

bool DocumentEditor::isOpen(size_t line, const QString& field) const {
  const LineColumn* entry = column(field);
  if (!entry || isNew_) return false;
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
  if (!article)
    throw RuleError(QStringLiteral("Articolul cu codul intern %1 nu exista ").arg(code.trimmed()), "CODART");
  const bool isNewLine = line >= lines_.size();
  Row row = isNewLine ? companyTable(kind_.lineTable).emptyRow() : lines_[line];
  row.set(kind_.numberColumn, number());
  row.set("CODART", article->text("CODART"));
  row.set("DENUMIRE", listText.isEmpty() ? article->text("DENART") : listText.left(kNameWidth));
  rules_->completeLine(row, *article);
  if (isNewLine) {
    drafts().insertLine(row);
    lines_.push_back(std::move(row));
    line = lines_.size() - 1;
  } else {
    drafts().updateLine(row);
    lines_[line] = std::move(row);
  }
  addTotals();
  return line;
}

void DocumentEditor::setNumber(size_t line, const QString& field, const QString& typed) {
  const LineColumn* entry = column(field);
  Row row = lines_.at(line);
  auto number = typedNumber(typed.trimmed());
  if (number && entry->roundTo >= 0) number = Round(*number, entry->roundTo);
  row.set(entry->field, number ? Value(*number) : Value());
  rules_->recalculate(row, entry->field);
  drafts().updateLine(row);
  lines_[line] = std::move(row);
  addTotals();
}

void DocumentEditor::deleteLine(size_t line) {
  drafts().deleteLine(number(), lines_.at(line).integer("NRLINIE"));
  lines_.erase(lines_.begin() + static_cast<std::ptrdiff_t>(line));
  addTotals();
}

void DocumentEditor::addTotals() {
  totals_.clear();
  for (const QString& column : rules_->totalColumns()) {
    Decimal sum;
    for (const Row& line : lines_) sum += line.decimal(column);
    totals_.insert(column, sum);
  }
}

void DocumentEditor::checkValidation(const QHash<QString, QString>& typed) const {
  for (const auto& check : kind_.validationChecks) {
    const QDate date = QDate::fromString(typed.value(kind_.dateColumn), Qt::ISODate);
    bool broken = false;
    switch (check.check) {
      case ValidationCheck::NumberEmpty:
      case ValidationCheck::JournalEmpty:
        broken = typed.value(check.field).trimmed().isEmpty();
        break;
      case ValidationCheck::DueBeforeDate:
        broken = QDate::fromString(typed.value(check.field), Qt::ISODate) < date;
        break;
      case ValidationCheck::BeforeFiscalYear:
        broken = date < session().DataIN;
        break;
      case ValidationCheck::CurrencyWithoutRate:
        broken = typedNumber(typed.value(check.field)).value_or(Decimal(0)).isZero();
        break;
      case ValidationCheck::NoLines:
        broken = isNew_ || lines_.empty();
        break;
    }
    if (broken) throw RuleError(check.text, check.field);
  }
  // The header goes to the ledger as it stands, so it must still be whole.
  checkHeader(typed);
}

bool DocumentEditor::checkLines() const {
  const QString repeated = repeatedArticle(lines_);
  if (!repeated.isEmpty()) throw RuleError(repeatedArticleText(repeated), "CODART");
  if (!EsteValidDetaliiDocument(kind_.prefix, number())) return false;
  requirePostable(kind_, number());
  return true;
}

void DocumentEditor::validate(const QHash<QString, QString>& typed) {
  SalvareDocumente(kind_, headerFrom(typed));
  newDocument();
}

void DocumentEditor::remove() {
  drafts().remove(number());
  newDocument();
}

}  // namespace velmar
