#include "config/windows/AccountsPage.h"

#include <QBoxLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QRadioButton>

#include "config/AccountPlan.h"
#include "config/Accounts.h"
#include "config/Lists.h"
#include "config/Parameters.h"
#include "config/windows/CodeBox.h"
#include "store/Records.h"
#include "util/windows/Controls.h"
#include "util/windows/Entry.h"
#include "util/windows/SearchCombo.h"

namespace velmar {

namespace {

constexpr int kDecimalsWidth = 3;

struct AccountField {
  const char* caption;
  const char* column;
};

const AccountField kAccounts[] = {{"Cont furnizori", "CONTFurnizori"},
                                  {"Cont clienti", "CONTClienti"},
                                  {"Cont NIR", "CONTNIR"},
                                  {"Cont vama", "CONTVAMA"},
                                  {"Cont intrare productie", "CONTINTRPROD"},
                                  {"Cont aviz expeditie marfa", "CONTAVIZEXP_M"},
                                  {"Cont aviz expeditie productie", "CONTAVIZEXP_P"}};

const BoundList kAccountList = codeList("kt_pc", "CONT", "TITLU");
constexpr int kShownName = 40;  // characters

// Stored in kt_info, unlike the rest of the tab.
const QString kDecimals = QStringLiteral("NrZec");

}  // namespace

AccountsPage::AccountsPage(QWidget* parent) : ParameterPage(parent) {
  auto* left = new QVBoxLayout;
  left->addWidget(accountsFrame());
  left->addStretch();
  auto* right = new QVBoxLayout;
  right->addWidget(rangeFrame("Facturi client", 0, "FC"));
  right->addWidget(rangeFrame("Facturi avize de expeditie", 2, "AE"));
  right->addWidget(pricesRow());
  right->addStretch();
  auto* all = new QHBoxLayout(this);
  all->addLayout(left, 1);
  all->addLayout(right);
}

QWidget* AccountsPage::accountsFrame() {
  auto* frame = new QGroupBox("Conturi");
  auto* grid = new QGridLayout(frame);
  for (int i = 0; i < static_cast<int>(std::size(kAccounts)); ++i) {
    QLineEdit* box = addTextBox(QStringLiteral("txtConfig(%1)").arg(i), "kt_par", kAccounts[i].column);
    auto* combo = new SearchCombo(QStringLiteral("cboCont(%1)").arg(i), {}, kShownName, this);
    moveOnWithEnter(combo);
    pairWithCombo(box, combo, shortAccountObjection);
    requireKnownCodeWhenLeft(box, "Cont");
    combos_.append(combo);
    addField(grid, i, 0, kAccounts[i].caption, box);
    grid->addWidget(combo, i, 2);
  }
  grid->setColumnStretch(2, 1);
  return frame;
}

QWidget* AccountsPage::rangeFrame(const QString& title, int firstBox, const QString& kind) {
  const QString par = QStringLiteral("kt_par");
  auto* frame = new QGroupBox(title);
  auto* grid = new QGridLayout(frame);
  QLineEdit* start = addTextBox(QStringLiteral("Text3(%1)").arg(firstBox), par, kind + "START");
  QLineEdit* end = addTextBox(QStringLiteral("Text3(%1)").arg(firstBox + 1), par, kind + "END");
  for (QLineEdit* box : {start, end}) makeRoomForDigits(box);
  addField(grid, 0, 0, "De la", start);
  addField(grid, 0, 2, "la", end);
  addField(grid, 1, 0, "Seria",
           addTextBox("txtSeria" + kind, par, "SERIE" + kind, "Numai litere; gol daca nu exista o plaja"));
  grid->setColumnStretch(4, 1);
  return frame;
}

QWidget* AccountsPage::pricesRow() {
  QLineEdit* box =
      addNumberBox("txtNrZecimale", kDecimals, kDecimalsWidth, "Valoarea trebuie sa fie numerica",
                   "Numarul de zecimale al preturilor si valorilor");
  auto* row = new QWidget;
  auto* grid = new QGridLayout(row);
  grid->setContentsMargins(0, 0, 0, 0);
  addField(grid, 0, 0, "Nr. Zecimale", box);
  grid->addWidget(stornoFrame(), 1, 0, 1, 3);
  grid->setColumnStretch(2, 1);
  return row;
}

QWidget* AccountsPage::stornoFrame() {
  auto* frame = new QGroupBox("Stornare ");
  auto* row = new QHBoxLayout(frame);
  optStornareNegru_ = card().add("StornareNegru", named(new QRadioButton("Negru "), "optStornareNegru"));
  optStornareRosu_ = named(new QRadioButton("Rosu "), "optStornareRosu");
  txtTipStornare_ = named(new QLineEdit(frame), "txtTipStornare");
  txtTipStornare_->hide();
  row->addWidget(optStornareNegru_);
  row->addWidget(optStornareRosu_);
  row->addStretch();
  connect(optStornareNegru_, &QRadioButton::toggled, this,
          [this](bool black) { txtTipStornare_->setText(black ? "1" : "0"); });
  return frame;
}

void AccountsPage::showStorno(bool black) {
  (black ? optStornareNegru_ : optStornareRosu_)->setChecked(true);
  txtTipStornare_->setText(black ? "1" : "0");
}

void AccountsPage::fillCombos() { fillCodeCombos(combos_, kAccountList); }

void AccountsPage::takePlan(int plan) {
  const Row accounts = defaultAccounts(plan);
  for (const QString& column : accounts.columns())
    static_cast<QLineEdit*>(card().control(column))->setText(accounts.text(column));
  fillCombos();
  emit edited();
}

void AccountsPage::showStored() {
  const Row parameters = storedParameters();
  Row shown = rowOf(parameters.columns() + QStringList(kDecimals), parameters);
  shown.set(kDecimals, Value::raw(storedIdentity().value(kDecimals)));
  card().show(shown);
  showStorno(parameters.flag("StornareNegru"));
  fillCombos();
}

void AccountsPage::storeShown() {
  const Row typed = card().typed();
  QStringList columns = typed.columns();
  columns.removeAll(kDecimals);
  Row accounts = rowOf(columns, typed);
  accounts.set("StornareNegru", txtTipStornare_->text().toInt());
  saveAccounts(accounts, typed.text(kDecimals));
}

}  // namespace velmar
