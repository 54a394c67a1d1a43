#include "documents/windows/HeaderForm.h"

#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>

#include "documents/windows/HeaderControl.h"
#include "util/windows/Controls.h"
#include "util/windows/Entry.h"

namespace velmar {

namespace {

constexpr int kMostInOneColumn = 8;

QLabel* captionOf(const HeaderControl* control, QWidget* parent) {
  auto* caption = new QLabel(control->field().caption.trimmed(), parent);
  caption->setBuddy(control->entry());
  return caption;
}

}  // namespace

HeaderForm::HeaderForm(const DocumentKind& kind, QWidget* parent)
    : QGroupBox("Antet", parent), kind_(kind), state_(named(new QLabel(this), QStringLiteral("lblStare"))) {
  for (const HeaderField& field : kind_.headerFields) addControl(field);
  layOut();
}

HeaderForm::~HeaderForm() = default;

void HeaderForm::addControl(const HeaderField& field) {
  controls_.push_back(makeHeaderControl(kind_, field, this));
  HeaderControl* control = controls_.back().get();
  for (QWidget* box : control->boxes()) moveOnWithEnter(box);
  connect(control, &HeaderControl::touched, this, &HeaderForm::touched);
  connect(control, &HeaderControl::chosen, this, [this, control] {
    followCurrency();
    if (control->field().type == HeaderFieldType::Foreign && isForeign())
      if (HeaderControl* rate = find(HeaderFieldType::Rate)) rate->entry()->setFocus();
    emit chosen(control->field().key());
  });
}

void HeaderForm::layOut() {
  std::vector<HeaderControl*> inRows;
  size_t rows = 0;
  for (const auto& control : controls_) {
    if (isBesideForeign(control.get())) continue;
    inRows.push_back(control.get());
    rows += control->below() ? 2 : 1;
  }
  const size_t inColumn = controls_.size() > kMostInOneColumn ? (rows + 1) / 2 : rows;
  auto* sideBySide = new QHBoxLayout;
  size_t filled = inColumn;  // of the current column
  for (HeaderControl* control : inRows) {
    if (filled >= inColumn) {
      if (!columns_.isEmpty()) sideBySide->addSpacing(fontMetrics().height());
      columns_.append(new QFormLayout);
      columns_.last()->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
      sideBySide->addLayout(columns_.last(), 1);
      filled = 0;
    }
    addRow(columns_.last(), control);
    filled += control->below() ? 2 : 1;
  }
  auto* all = new QVBoxLayout(this);
  all->addLayout(sideBySide);
  all->addStretch();
  all->addWidget(state_);
}

void HeaderForm::addRow(QFormLayout* rows, HeaderControl* control) {
  const HeaderFieldType type = control->field().type;
  if (type == HeaderFieldType::Foreign) return addCurrencyRow(rows, control);
  if (type == HeaderFieldType::Flag) return rows->addRow(QString(), control->entry());
  auto* row = new QHBoxLayout;
  for (QWidget* box : control->boxes()) row->addWidget(box, box == control->boxes().last() ? 1 : 0);
  if (QWidget* besides = control->besides()) row->addWidget(besides);
  if (type == HeaderFieldType::Rate) row->addWidget(rateCurrency_ = named(new QLabel(this), "lblCodValuta"));
  rows->addRow(captionOf(control, this), row);
  if (QWidget* below = control->below()) rows->addRow(QString(), below);
}

// The box, then currency and rate, which it enables.
void HeaderForm::addCurrencyRow(QFormLayout* rows, HeaderControl* box) {
  auto* row = new QHBoxLayout;
  if (HeaderControl* currency = find(HeaderFieldType::Currency)) row->addWidget(currency->entry(), 1);
  if (HeaderControl* rate = find(HeaderFieldType::Rate)) {
    row->addWidget(captionOf(rate, this));
    row->addWidget(rate->entry(), 1);
  }
  rows->addRow(box->entry(), row);
}

HeaderControl* HeaderForm::find(HeaderFieldType type) const {
  for (const auto& control : controls_)
    if (control->field().type == type) return control.get();
  return nullptr;
}

bool HeaderForm::isBesideForeign(const HeaderControl* control) const {
  const HeaderFieldType type = control->field().type;
  return (type == HeaderFieldType::Currency || type == HeaderFieldType::Rate) &&
         find(HeaderFieldType::Foreign);
}

bool HeaderForm::isForeign() const {
  const HeaderControl* box = find(HeaderFieldType::Foreign);
  return box && box->text() != QStringLiteral("0");
}

void HeaderForm::followCurrency() {
  for (const auto& control : controls_)
    if (isBesideForeign(control.get()))
      for (QWidget* widget : control->boxes()) widget->setEnabled(isForeign());
  if (rateCurrency_) rateCurrency_->setText(find(HeaderFieldType::Currency)->text());
}

void HeaderForm::fill(const QHash<QString, QString>& texts, bool numberLocked) {
  showChanges(texts);
  auto* number = qobject_cast<QLineEdit*>(control(kind_.numberColumn));
  number->setReadOnly(numberLocked);
  markLocked(number, numberLocked);
}

void HeaderForm::showChanges(const QHash<QString, QString>& texts) {
  const QSignalBlocker quiet(this);
  for (const auto& control : controls_) {
    const auto text = texts.constFind(control->field().key());
    if (text != texts.constEnd()) control->show(*text);
  }
  followCurrency();
}

void HeaderForm::refreshLists() {
  const QSignalBlocker quiet(this);
  for (const auto& control : controls_) control->refresh();
}

QHash<QString, QString> HeaderForm::texts() const {
  QHash<QString, QString> texts;
  for (const auto& control : controls_) texts.insert(control->field().key(), control->text());
  return texts;
}

QHash<QString, QString> HeaderForm::typed() {
  for (const auto& control : controls_) control->settle();
  return texts();
}

void HeaderForm::showState(const QString& text) { state_->setText(text); }

QWidget* HeaderForm::control(const QString& key) const {
  for (const auto& control : controls_)
    if (control->field().key() == key) return control->boxes().first();
  return nullptr;
}

void HeaderForm::setFieldEnabled(const QString& key, bool is) {
  for (const auto& control : controls_)
    if (control->field().key() == key)
      for (QWidget* box : control->boxes()) box->setEnabled(is);
}

void HeaderForm::focusNumber() { control(kind_.numberColumn)->setFocus(); }

QList<QWidget*> HeaderForm::tabChain() const {
  QList<QWidget*> chain;
  for (const auto& control : controls_) chain += control->boxes();
  return chain;
}

}  // namespace velmar
