#include "documents/DocumentEditor.h"

#include <algorithm>

#include "catalogue/Articles.h"
#include "config/Checks.h"
#include "config/Lists.h"
#include "config/Lookups.h"
#include "config/Session.h"
#include "documents/HeaderChecks.h"
#include "documents/HeaderTexts.h"
#include "documents/kinds/Kinds.h"
#include "documents/LineCells.h"
#include "documents/LineChecks.h"
#include "documents/LineSource.h"
#include "documents/Numbering.h"
#include "documents/Validation.h"
#include "store/Database.h"
#include "store/Schema.h"
#include "util/Clock.h"
#include "util/Errors.h"
#include "util/Messages.h"
#include "util/NumberText.h"

namespace velmar {

DocumentEditor::DocumentEditor(const QString& prefix)
    : kind_(documentKind(prefix)), rules_(kind_.rules), typed_(kind_, {}) {
  if (!rules_) throw StoreError(0, QStringLiteral("Documentul %1 nu se poate culege inca.").arg(prefix));
  header_ = companyTable(kind_.headerTable).emptyRow();
}

QStringList DocumentEditor::openingNotices() const {
  QStringList texts;
  for (const Check& check : kind_.openingChecks)
    if (check.fault(onScreen())) texts.append(check.text);
  return texts;
}

QString DocumentEditor::newDocument() {
  // A document that is made from another one gets its number when that is chosen.
  const ProposedNumber proposed = kind_.hasDraft ? proposeNumber(kind_) : ProposedNumber();
  fillNewHeader(proposed);
  lines_.clear();
  storedLines_.clear();
  isNew_ = true;
  numberLocked_ = proposed.locked;
  linesChanged();
  return proposed.warning;
}

void DocumentEditor::fillNewHeader(const ProposedNumber& proposed) {
  header_ = emptyHeader(kind_);
  QHash<QString, QString> texts;
  for (const HeaderField& field : kind_.headerFields) {
    const QString before = typed_.texts().value(field.key());
    texts.insert(field.key(), field.keeps && !before.isEmpty() ? before : newHeaderText(kind_, field));
  }
  texts.insert(kind_.numberColumn, proposed.number);
  typed_ = TypedHeader(kind_, texts);
  rules_->begin(typed_, true);
  typed_.takeChanges();
  header_ = storedHeader(typed_, header_, isNew_);
  header_.set(kind_.numberColumn, proposed.number);
  storedRate_ = shownRate_ = typed_.vatRate();
}

QString DocumentEditor::open(const QString& number) {
  auto document = drafts().load(number);
  if (!document || !drafts().isOpen(document->header))
    throw RuleError(
        QStringLiteral("Documentul %1 a fost validat sau sters intre timp de alt utilizator !").arg(number));
  header_ = document->header;
  typed_ = TypedHeader(kind_, shownHeader(kind_, header_, typed_.texts()));
  storedRate_ = shownRate_ = typed_.vatRate();
  rules_->begin(typed_, false);
  typed_.takeChanges();
  lines_ = std::move(document->lines);
  storedLines_ = lines_;
  isNew_ = false;
  numberLocked_ = true;
  const QString warning = kind_.hasDraft ? QString() : startFrom(number);
  linesChanged();
  return warning;
}

// The header of the document that is made from the shown one: its own number and date.
QString DocumentEditor::startFrom(const QString& number) {
  const ProposedNumber proposed = proposeNumber(kind_);
  typed_.set(kind_.numberColumn, proposed.number);
  typed_.set(kind_.dateColumn, clock::today().toString(Qt::ISODate));
  typed_.set(kind_.remarkColumn, number);
  typed_.takeChanges();
  numberLocked_ = proposed.locked;
  return proposed.warning;
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

// Rates and percents that are typed and not saved count when the document is validated.
void DocumentEditor::storeTypedRates() {
  const Row header = storedHeader(typed_, header_, isNew_);
  if (percentChanges(header) || (rules_->linesFollowHeader() && ratesDiffer()))
    storeHeader(header);
  else
    storeRate();
}

bool DocumentEditor::percentChanges(const Row& header) const {
  const HeaderField* percent = kind_.field(HeaderFieldType::Percent);
  return percent && header.decimal(percent->column) != header_.decimal(percent->column);
}

// The stored header and lines always have the same rate.
void DocumentEditor::storeRate() {
  if (!isRateStored()) storeHeader(headerWithRate());
}

Row DocumentEditor::headerWithRate() const {
  Row header = header_;
  for (const HeaderField& field : kind_.headerFields)
    if (field.type == HeaderFieldType::VatRate)
      header.set(field.column, storedHeaderValue(field.type, shownRate_));
  return header;
}

void DocumentEditor::storeHeader(const Row& header) {
  if (percentChanges(header) || rules_->linesFollowHeader()) {
    for (Row& line : lines_) rules_->applyRate(line, typed_);
    linesChanged();
  }
  Transaction transaction(database());
  drafts().requireAsShown(shownDraft());
  drafts().updateHeader(header);
  drafts().updateColumns(changedLines(), storedNumbers());
  transaction.commit();
  header_ = header;
  storedLines_ = lines_;
  storedRate_ = shownRate_;
}

// The numbers that lines store.
QStringList DocumentEditor::storedNumbers() const {
  QStringList columns;
  for (const LineColumn& column : kind_.lineColumns)
    if (column.shownDecimals != -1 && column.product.isEmpty()) columns.append(column.field);
  return columns;
}

// Those whose numbers differ from the stored ones.
std::vector<Row> DocumentEditor::changedLines() const {
  const QStringList numbers = storedNumbers();
  std::vector<Row> changed;
  for (size_t i = 0; i < lines_.size(); ++i)
    if (std::any_of(numbers.begin(), numbers.end(), [&](const QString& column) {
          return lines_[i].decimal(column) != storedLines_[i].decimal(column);
        }))
      changed.push_back(lines_[i]);
  return changed;
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
  if (!InPerioadaCulegere(typed_.date())) throw RuleError(periodText(), kind_.dateColumn);
  passes(kind_.headerChecks, onScreen(), kCritical);
  requireKnownCodes(typed_, isNew_ ? QHash<QString, QString>() : shownHeader(kind_, header_, typed_.texts()));
  const Row header = storedHeader(typed_, header_, isNew_);
  const QString notice = missingRate(typed_, header);
  if (!notice.isEmpty()) Mesaj(notice, kExclamation);
  if (isNew_) {
    drafts().insertHeader(header);
    if (numbering) numbering->commit();
    reopen(header.text(kind_.numberColumn));
  } else {
    storeHeader(header);
  }
}

bool DocumentEditor::headerDiffers(const QHash<QString, QString>& texts) const {
  if (isNew_ || !kind_.hasDraft) return false;
  // Compares the values to be stored: a field that shows a default for a missing value does not differ.
  const Row typed = storedHeader(TypedHeader(kind_, texts), header_, isNew_);
  const Row stored =
      storedHeader(TypedHeader(kind_, shownHeader(kind_, header_, typed_.texts())), header_, isNew_);
  return std::any_of(kind_.headerFields.begin(), kind_.headerFields.end(), [&](const HeaderField& field) {
    return !field.column.isEmpty() && shownHeaderText(field.type, typed, field.column) !=
                                          shownHeaderText(field.type, stored, field.column);
  });
}

// Whether a typed rate or percentage differs from the stored one.
bool DocumentEditor::ratesDiffer() const {
  const Row typed = storedHeader(typed_, header_, isNew_);
  return std::any_of(kind_.headerFields.begin(), kind_.headerFields.end(), [&](const HeaderField& field) {
    const bool isRate = field.type == HeaderFieldType::Rate || field.type == HeaderFieldType::VatRate ||
                        field.type == HeaderFieldType::Percent;
    return isRate && typed.decimal(field.column) != header_.decimal(field.column);
  });
}

CellVerdict DocumentEditor::check(size_t line, const QString& field, const QString& typed,
                                  bool bySupplierCode) const {
  return checkedCell(typed_, line < lines_.size() ? &lines_[line] : nullptr, field, typed, bySupplierCode);
}

bool DocumentEditor::isOpen(size_t line, const QString& field) const {
  const LineColumn* entry = lineColumn(kind_, field);
  if (!entry || isNew_ || isFrozen()) return false;
  const bool newLine = line >= lines_.size();
  const LineSource* source = newLine ? nullptr : sourceOf(kind_, lines_[line]);
  if (source && !source->isOpen(entry->field)) return false;
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
  Notices notices;
  rules_->completeLine(row, *article, typed_, notices);
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
  notices.say();
  return line;
}

void DocumentEditor::setNumber(size_t line, const QString& field, const QString& typed) {
  const LineColumn* entry = lineColumn(kind_, field);
  Row row = lines_.at(line);
  auto number = typedNumber(typed.trimmed());
  if (number && entry->roundTo != kAsTyped) number = Round(*number, decimalsOf(entry->roundTo));
  row.set(entry->field, number ? Value(*number) : Value());
  Notices notices;
  rules_->recalculate(row, entry->field, typed_, notices);
  store(line, std::move(row));
  notices.say();
}

void DocumentEditor::store(size_t line, Row row) {
  storeRate();
  drafts().updateLine(row, header_, storedLines_.at(line));
  storedLines_[line] = row;
  lines_[line] = std::move(row);
  linesChanged();
}

bool DocumentEditor::addLines(const LineSource& source, const QString& number,
                              const QHash<QString, QString>& typed) {
  headerTyped(typed);
  if (isFrozen()) throw RuleError(isPrinted() ? kind_.receipt.notChangeable : kind_.receipt.unknownText);
  if (!passes(source.checks(number), onScreen())) return false;
  TypedHeader header = typed_;
  AddedLines added = source.lines(onScreen(), header, number);
  for (Row& line : added.lines) line.set(kind_.numberColumn, this->number());
  Row stored = headerWithRate();
  const QHash<QString, QString> changes = header.takeChanges();
  for (const HeaderField& field : kind_.headerFields)
    if (!field.column.isEmpty() && changes.contains(field.key()))
      stored.set(field.column, storedHeaderValue(field.type, changes.value(field.key())));
  std::vector<Row> lines = added.replaces ? std::vector<Row>() : lines_;
  Transaction transaction(database());
  drafts().requireAsShown(shownDraft());
  drafts().updateHeader(stored);
  if (added.replaces)
    drafts().deleteLines(this->number());
  else
    drafts().updateColumns(changedLines(), storedNumbers());
  drafts().insertLines(added.lines);
  source.added(onScreen(), number);
  transaction.commit();
  lines.insert(lines.end(), added.lines.begin(), added.lines.end());
  for (auto change = changes.begin(); change != changes.end(); ++change)
    typed_.set(change.key(), change.value());
  header_ = stored;
  lines_ = storedLines_ = std::move(lines);
  storedRate_ = shownRate_;
  linesChanged();
  if (!added.notice.isEmpty()) Mesaj(added.notice);
  return true;
}

bool DocumentEditor::fillFromHeader(const QHash<QString, QString>& typed) {
  if (isNew_ || !lines_.empty()) return false;
  headerTyped(typed);
  for (const LineSource* source : kind_.sources) {
    const QString named = source->namedIn(typed_);
    if (!named.isEmpty()) return addLines(*source, named, typed);
  }
  return false;
}

void DocumentEditor::deleteLine(size_t line) {
  Transaction transaction(database());
  drafts().deleteLine(header_, storedLines_.at(line));
  if (lines_.size() == 1)
    for (const LineSource* source : kind_.sources) source->emptied(number());
  transaction.commit();
  for (auto* lines : {&lines_, &storedLines_})
    lines->erase(lines->begin() + static_cast<std::ptrdiff_t>(line));
  linesChanged();
}

void DocumentEditor::linesChanged() {
  totals_ = lineTotals(kind_, lines_);
  takesTypedLines_ = !isNew_ && !isFrozen() && std::none_of(lines_.begin(), lines_.end(), [this](auto& line) {
    const LineSource* source = sourceOf(kind_, line);
    return source && !source->allowsTypedLines();
  });
  refreshMarks();
}

void DocumentEditor::refreshMarks() { marks_ = rules_->marks(lines_, typed_); }

Document DocumentEditor::onScreen() const {
  return {&kind_, isNew_ ? QString() : number(), header_, lines_, typed_.texts(), isNew_};
}

bool DocumentEditor::checkValidation(const QHash<QString, QString>& typed) {
  headerTyped(typed);
  if (!passes(kind_.validationChecks, onScreen())) return false;
  // The header is validated as shown on screen, saved or not, so it must be checked.
  if (!passes(kind_.headerChecks, onScreen(), kCritical)) return false;
  requireKnownCodes(typed_, shownHeader(kind_, header_, typed_.texts()));
  storeTypedRates();
  refreshStaleLines();
  return true;
}

void DocumentEditor::refreshStaleLines() {
  if (isFrozen()) return;
  Notices notices;
  std::vector<Row> recalculated = lines_;
  std::vector<Row> stale;
  for (Row& line : recalculated) {
    if (!rules_->isStale(line)) continue;
    rules_->recalculate(line, QStringLiteral("CANT"), typed_, notices);
    stale.push_back(line);
  }
  if (stale.empty()) return;
  Transaction transaction(database());
  drafts().requireAsShown(shownDraft());
  drafts().updateLines(stale);
  transaction.commit();
  storedLines_ = lines_ = std::move(recalculated);
  linesChanged();
  notices.say();
}

bool DocumentEditor::checkLines() const { return passes(kind_.lineChecks, onScreen()); }

void DocumentEditor::validate(const QHash<QString, QString>& typed) {
  headerTyped(typed);
  storeTypedRates();
  SalvareDocumente(typed_, storedHeader(typed_, header_, isNew_), shownDraft());
}

bool DocumentEditor::checkPrinting(const QHash<QString, QString>& typed) {
  headerTyped(typed);
  return passes(kind_.printChecks, onScreen());
}

ReceiptOutcome DocumentEditor::printReceipt(const QHash<QString, QString>& typed) {
  if (!checkPrinting(typed) || !passes(kind_.headerChecks, onScreen(), kCritical))
    return ReceiptOutcome::NotPrinted;
  storeRate();
  refreshStaleLines();
  if (!EsteValidDetaliiDocument(kind_.prefix, number())) return ReceiptOutcome::NotPrinted;
  const ReceiptOutcome outcome =
      printCashReceipt(typed_, storedHeader(typed_, header_, isNew_), shownDraft());
  if (outcome == ReceiptOutcome::OnPaper) {
    // What is printed is what is shown.
    const Transaction unchanged(database());
    drafts().requireAsShown(shownDraft());
  }
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
    const QHash<QString, QString> before = shownHeader(kind_, header_, typed_.texts());
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
  Transaction transaction(database());
  drafts().remove(number());
  for (const LineSource* source : kind_.sources) source->emptied(number());
  transaction.commit();
  newDocument();
}

}  // namespace velmar
