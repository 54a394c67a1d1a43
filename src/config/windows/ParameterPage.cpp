#include "config/windows/ParameterPage.h"

#include <QGridLayout>
#include <QLabel>

#include "store/Schema.h"
#include "util/windows/Controls.h"
#include "util/windows/Entry.h"

namespace velmar {

void makeRoomForDigits(QLineEdit* box) {
  box->setMaximumWidth(box->fontMetrics().horizontalAdvance(QLatin1Char('0')) * (box->maxLength() + 3));
  box->setMinimumWidth(box->maximumWidth());
}

ParameterPage::ParameterPage(QWidget* parent) : QWidget(parent), card_(this) {
  connect(&card_, &Card::edited, this, &ParameterPage::edited);
}

void ParameterPage::load() {
  showStored();
  card_.settle();
}

void ParameterPage::save() {
  storeShown();
  load();
}

void ParameterPage::focusColumn(const QString& column) {
  QWidget* control = card_.control(column);
  if (!control) return;
  control->setFocus();
  if (auto* box = qobject_cast<QLineEdit*>(control)) box->selectAll();
}

QLineEdit* ParameterPage::addTextBox(const QString& name, const QString& table, const QString& column,
                                     const QString& toolTip) {
  QLineEdit* box = makeTextBox(name, companyTable(table).column(column)->width, toolTip);
  moveOnWithEnter(box);
  return card_.add(column, box);
}

QLineEdit* ParameterPage::addNumberBox(const QString& name, const QString& column, int width,
                                       const QString& message, const QString& toolTip) {
  auto* box = named(new NumberBox(-1), name, toolTip);
  box->setMaxLength(width);
  makeRoomForDigits(box);
  moveOnWithEnter(box);
  requireNumberWhenLeft(box, message);
  return card_.add(column, box);
}

void addField(QGridLayout* grid, int row, int column, const QString& caption, QWidget* control, int span) {
  auto* label = new QLabel(caption);
  label->setBuddy(control);
  label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  grid->addWidget(label, row, column);
  grid->addWidget(control, row, column + 1, 1, span);
}

}  // namespace velmar
