#include "config/windows/FiscalYearPage.h"

#include <QGridLayout>
#include <QLabel>

#include "config/FiscalYears.h"
#include "config/Parameters.h"
#include "util/Errors.h"
#include "util/Messages.h"
#include "util/windows/Controls.h"
#include "util/windows/DateBox.h"
#include "util/windows/Entry.h"

namespace velmar {

namespace {

constexpr int kHelpWidth = 90;  // characters

const QStringList kColumns = {"DATAIN", "DATASN", "DATAIN1", "DATASN1", "DATAIC", "DATASC"};

struct DateRange {
  const char* caption;
  const char* help;
};

const DateRange kRanges[] = {
    {"Exercitiul N de la",
     "Exercitiul N reprezinta exercitiul financiar in curs.Introduceti data de inceput si data de sfarsit."},
    {"Exercitiul N+1 de la",
     "Exercitiul N+1 reprezinta exercitiul financiar urmator.Introduceti data de inceput si data de "
     "sfarsit."},
    {"Perioada de culegere de la",
     "Perioada de culegere reprezinta intervalul pentru care autorizati culegerea inregistrarilor."}};

QLabel* makeHelp(const QString& text) {
  auto* help = new QLabel(text);
  help->setWordWrap(true);
  help->setMinimumWidth(help->fontMetrics().averageCharWidth() * kHelpWidth);
  return help;
}

}  // namespace

FiscalYearPage::FiscalYearPage(QWidget* parent) : ParameterPage(parent) {
  auto* grid = new QGridLayout(this);
  const int gap = fontMetrics().height();
  grid->addWidget(makeHelp("Introduceti datele exercitiului financiar."), 0, 0, 1, 5);
  grid->setRowMinimumHeight(1, gap);
  for (int i = 0; i < kColumns.size(); ++i) {
    auto* date = named(new DateBox, QStringLiteral("DTPicker1(%1)").arg(i));
    date->setDisplayFormat("dd/MM/yyyy");
    moveOnWithEnter(date);
    connect(date, &QDateEdit::dateChanged, this, [this, column = kColumns[i]] { warn(column); });
    dates_.append(card().add(kColumns[i], date));
  }
  int row = 2;
  for (int i = 0; i < static_cast<int>(std::size(kRanges)); ++i, row += 3) {
    addField(grid, row, 0, kRanges[i].caption, dates_[qsizetype{2} * i]);
    addField(grid, row, 2, "la", dates_[qsizetype{2} * i + 1]);
    grid->addWidget(makeHelp(kRanges[i].help), row + 1, 0, 1, 5);
    grid->setRowMinimumHeight(row + 2, gap);
  }
  grid->setColumnStretch(4, 1);
  grid->setRowStretch(row, 1);
}

// Queued, since a date also changes while the focus is moving.
void FiscalYearPage::warn(const QString& column) {
  if (quiet_) return;
  changed_ = column;
  QMetaObject::invokeMethod(this, &FiscalYearPage::showWarning, Qt::QueuedConnection);
}

void FiscalYearPage::showWarning() {
  const QString column = std::exchange(changed_, {});
  const QString text = column.isEmpty() ? QString() : fiscalYearWarning(card().typed(), column);
  if (!text.isEmpty() && isVisible()) Mesaj(text);
}

void FiscalYearPage::showStored() { card().show(storedParameters()); }

void FiscalYearPage::storeShown() {
  // Text that is still being typed is saved too. No warnings: saving makes its own checks.
  quiet_ = true;
  for (DateBox* date : dates_) date->takeTyped();
  quiet_ = false;
  changed_.clear();
  saveFiscalYears(card().typed());
}

}  // namespace velmar
