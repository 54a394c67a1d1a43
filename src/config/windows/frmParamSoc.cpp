#include "config/windows/frmParamSoc.h"

#include <QBoxLayout>
#include <QCloseEvent>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QTabWidget>

#include "config/AccountPlan.h"
#include "config/Session.h"
#include "config/windows/AccountsPage.h"
#include "config/windows/FiscalYearPage.h"
#include "config/windows/IdentityPage.h"
#include "config/windows/JournalsPage.h"
#include "store/Database.h"
#include "util/Errors.h"
#include "util/Messages.h"
#include "util/windows/Controls.h"
#include "util/windows/Entry.h"
#include "util/windows/Forms.h"

namespace velmar {

namespace {

const QString kForm = QStringLiteral("frmParamSoc");

}  // namespace

frmParamSoc::frmParamSoc(QWidget* parent)
    : QWidget(parent),
      tabs_(named(new QTabWidget, "SSTab1")),
      identity_(new IdentityPage),
      accounts_(new AccountsPage),
      lblStare_(named(new QLabel, "lblStare")) {
  setObjectName(kForm);
  setWindowTitle("Parametri societate");
  addPage(0, identity_, "Societate");
  addPage(1, accounts_, "Conturi");
  addPage(2, new JournalsPage, "Jurnale");
  auto* all = new QVBoxLayout(this);
  all->setContentsMargins(8, 8, 8, 8);
  all->addWidget(tabs_, 1);
  all->addLayout(buttonRow());
  giveMnemonics(this);
  // Last, since the buttons of its calendars would take the access keys.
  addPage(1, new FiscalYearPage, "Exercitiu");
  setUpKeys(this, nullptr, findChild<QPushButton*>("cmdCancel"));
  // Ctrl+Tab goes to the next window.
  setUpTabKey(QStringLiteral("Ctrl+PgDown"), 1);
  setUpTabKey(QStringLiteral("Ctrl+PgUp"), -1);
  connect(tabs_, &QTabWidget::currentChanged, this, &frmParamSoc::showState);
  connect(identity_, &IdentityPage::planChosen, this, &frmParamSoc::changePlan);
  identity_->focusColumn("DENUMIRE");
}

QBoxLayout* frmParamSoc::buttonRow() {
  auto* save = makeButton("cmdSalvare", "Salvare", "Salvare modificari", "save");
  connect(save, &QPushButton::clicked, this, &frmParamSoc::save);
  auto* cancel = makeButton("cmdCancel", "Iesire", {}, "close");
  setUpExitButton(cancel, this);
  // A click does not take the focus: closing must not trigger the check of the box being edited.
  cancel->setFocusPolicy(Qt::TabFocus);
  auto* row = new QHBoxLayout;
  row->addWidget(lblStare_, 1);
  row->addWidget(save);
  row->addWidget(cancel);
  return row;
}

void frmParamSoc::addPage(int place, ParameterPage* page, const QString& caption) {
  tabs_->insertTab(place, page, caption);
  connect(page, &ParameterPage::edited, this, &frmParamSoc::showState);
  guarded(kForm, "Form_Load", [page] { page->load(); });
}

void frmParamSoc::setUpTabKey(const QKeySequence& keys, int step) {
  auto* shortcut = new QShortcut(keys, this);
  shortcut->setContext(Qt::WidgetWithChildrenShortcut);
  connect(shortcut, &QShortcut::activated, this, [this, step] {
    tabs_->setCurrentIndex((tabs_->currentIndex() + step + tabs_->count()) % tabs_->count());
  });
}

ParameterPage* frmParamSoc::frontPage() const { return static_cast<ParameterPage*>(tabs_->currentWidget()); }

void frmParamSoc::save() {
  if (entriesAccepted(frontPage())) savePage(frontPage());
}

void frmParamSoc::savePage(ParameterPage* page) {
  guarded(kForm, "cmdSalvare_Click", [this, page] {
    try {
      page->save();
    } catch (const RuleError& rule) {
      Mesaj(rule.text(), rule.icon(), rule.title());
      tabs_->setCurrentWidget(page);
      page->focusColumn(rule.field());
    }
  });
}

void frmParamSoc::changePlan(int plan) {
  const bool changed = guarded(kForm, "PlanConturi_Click", [this, plan] {
    changeAccountPlan(plan);
    accounts_->takePlan(plan);
  });
  guarded(kForm, "PlanConturi_Click", [this] { identity_->showPlan(); });
  if (!changed) return;
  savePage(frontPage());
  if (frontPage() != accounts_) savePage(accounts_);
}

void frmParamSoc::showState() {
  const ParameterPage* front = frontPage();
  lblStare_->setText(front && front->isChanged() ? QStringLiteral("Modificat, nesalvat") : QString());
}

void frmParamSoc::closeEvent(QCloseEvent* event) {
  if (openDatabase()) guarded(kForm, "Form_Unload", [] { InitParaSoc(); });
  QWidget::closeEvent(event);
}

}  // namespace velmar
