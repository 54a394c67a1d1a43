#include "config/windows/ParameterPage.h"

#include <QCheckBox>
#include <QDateEdit>
#include <QGridLayout>
#include <QLabel>
#include <QRadioButton>

#include "store/Schema.h"
#include "util/windows/Controls.h"
#include "util/windows/Entry.h"

namespace velmar {

namespace {

// The boxes of the page's own, without those inside combo and date boxes.
QList<QLineEdit*> ownBoxes(const QWidget* page) {
  QList<QLineEdit*> boxes;
  for (auto* box : page->findChildren<QLineEdit*>())
    if (!qobject_cast<QAbstractSpinBox*>(box->parentWidget()) && !box->parentWidget()->inherits("QComboBox"))
      boxes.append(box);
  return boxes;
}

}  // namespace

void makeRoomForDigits(QLineEdit* box) {
  box->setMaximumWidth(box->fontMetrics().horizontalAdvance(QLatin1Char('0')) * (box->maxLength() + 3));
  box->setMinimumWidth(box->maximumWidth());
}

void ParameterPage::load() {
  showStored();
  saved_ = state();
  emit edited();
}

void ParameterPage::save() {
  storeShown();
  load();
}

void ParameterPage::focusColumn(const QString& column) {
  QWidget* control = controls_.value(column.toUpper());
  if (!control) return;
  control->setFocus();
  if (auto* box = qobject_cast<QLineEdit*>(control)) box->selectAll();
}

QLineEdit* ParameterPage::addTextBox(const QString& name, const QString& table, const QString& column,
                                     const QString& toolTip) {
  QLineEdit* box = makeTextBox(name, companyTable(table).column(column)->width, toolTip);
  moveOnWithEnter(box);
  setControl(column, box);
  return box;
}

QLineEdit* ParameterPage::addNumberBox(const QString& name, const QString& column, int width,
                                       const QString& message, const QString& toolTip) {
  auto* box = named(new NumberBox(-1), name, toolTip);
  box->setMaxLength(width);
  makeRoomForDigits(box);
  moveOnWithEnter(box);
  requireNumberWhenLeft(box, message);
  setControl(column, box);
  return box;
}

void ParameterPage::showBoxes(const Row& row, const QString& columns) {
  for (const QString& column : columns.split(QLatin1Char(' '))) {
    QWidget* control = controls_.value(column.toUpper());
    if (auto* number = qobject_cast<NumberBox*>(control)) {
      number->setNumber(row.isNull(column) ? std::nullopt : std::optional(row.decimal(column)));
    } else if (auto* box = qobject_cast<QLineEdit*>(control)) {
      // A text from elsewhere may be longer than what is typed here; it must not be cut by being looked at.
      box->setMaxLength(std::max(box->maxLength(), static_cast<int>(row.text(column).size())));
      box->setText(row.text(column));
      box->setCursorPosition(0);
    }
  }
}

void ParameterPage::takeBoxes(Row& row) const {
  for (const QString& column : row.columns())
    if (const auto* box = qobject_cast<QLineEdit*>(controls_.value(column.toUpper())))
      row.set(column, box->text());
}

void ParameterPage::watchControls() {
  for (const QLineEdit* box : ownBoxes(this))
    connect(box, &QLineEdit::textChanged, this, &ParameterPage::edited);
  for (const auto* date : findChildren<QDateEdit*>())
    connect(date, &QDateEdit::dateChanged, this, &ParameterPage::edited);
  for (const auto* button : findChildren<QAbstractButton*>())
    connect(button, &QAbstractButton::toggled, this, &ParameterPage::edited);
}

QStringList ParameterPage::state() const {
  QStringList texts;
  for (const QLineEdit* box : ownBoxes(this)) texts.append(box->text());
  for (const auto* date : findChildren<QDateEdit*>()) texts.append(date->date().toString(Qt::ISODate));
  for (const auto* button : findChildren<QAbstractButton*>())
    texts.append(button->isChecked() ? QStringLiteral("1") : QString());
  return texts;
}

void addField(QGridLayout* grid, int row, int column, const QString& caption, QWidget* control, int span) {
  auto* label = new QLabel(caption);
  label->setBuddy(control);
  label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  grid->addWidget(label, row, column);
  grid->addWidget(control, row, column + 1, 1, span);
}

}  // namespace velmar
