#include "catalogue/windows/frmFamArticole.h"

#include <QFormLayout>
#include <QGroupBox>

#include "catalogue/Families.h"
#include "config/Lists.h"
#include "config/Session.h"
#include "config/windows/CodeBox.h"
#include "util/windows/Controls.h"
#include "util/windows/Entry.h"
#include "util/windows/SearchCombo.h"

namespace velmar {

namespace {

const ListQuery kFamilies{"COD, DENUMIRE, CONTSTOCMARFA, CONTCHELT, CONTVEN, CONTSTOCPROD", "G_FAMART",
                          "COD"};
constexpr int kNameLength = 35;
constexpr int kAccountLength = 16;
constexpr int kShownAccount = 36;  // characters

const QStringList kAccountColumns = {"CONTSTOCMARFA", "CONTCHELT", "CONTVEN", "CONTSTOCPROD"};
const QStringList kAccountCaptions = {"Cont stoc marfa", "Cont cheltuieli", "Cont venituri",
                                      "Cont stoc productie"};

// If the company has not set a class, all accounts match.
QString classDigit(int digit) { return digit == 0 ? QString() : QString::number(digit); }

// The account classes offered for each of the four accounts.
QList<QStringList> accountClasses() {
  const QString stock = classDigit(session().STOC);
  const QString expense = classDigit(session().Chelt);
  return {{stock, expense}, {expense}, {classDigit(session().VENIT)}, {stock}};
}

QString indexed(const char* name, qsizetype index) { return QStringLiteral("%1(%2)").arg(name).arg(index); }

}  // namespace

frmFamArticole::frmFamArticole(QWidget* parent) : ListForm("frmFamArticole", "Familii Articole", parent) {
  auto* grid = new EntryGrid("grdDataGrid", EntryGrid::Refused::Reverted, "frmFamArticole");
  QList<GridColumn> columns = {{"COD", "Cod", CellFormat::Integer, 6},
                               {"DENUMIRE", "Denumire", CellFormat::Text, 48}};
  for (qsizetype i = 0; i < kAccountColumns.size(); ++i)
    columns.append({kAccountColumns[i], kAccountCaptions[i], CellFormat::Text, 16});
  grid->setColumns(columns);
  grid->setEmptyText("Nu exista familii. Completati denumirea si conturile, apoi apasati Adaugare.");
  setList(grid, "COD", [] { return std::make_unique<ListRows>(kFamilies, Condition(), "COD"); },
          {"G_FAMART"});
  QWidget* frame = cardFrame();
  auto* cmdAdauga = command("cmdAdauga", "Adaugare", "Creare familie noua", "new", [this] { add(); });
  auto* CommandButton1 = command("CommandButton1", "Modificare", "Modificare", "save", [this] { save(); });
  auto* cmdSterge = command("cmdSterge", "Stergere", "Stergere familie curenta", "delete", [this] {
    if (removeCurrent("Sunteti sigur ca doriti sa stergeti familia de articole cu codul : %1 ?",
                      [](const QString& code) { removeFamily(code.toLongLong()); }))
      startNew();
  });
  setKeys(cmdAdauga, cmdSterge);
  layOut(searchRow({"DENUMIRE"}), frame, {cmdAdauga, CommandButton1, cmdSterge, exitCommand()});
}

QWidget* frmFamArticole::cardFrame() {
  auto* frame = new QGroupBox("Familie");
  auto* rows = new QFormLayout(frame);
  auto* name = card().add("DENUMIRE", makeTextBox("txtDenumire", kNameLength));
  fitCapitals(name);
  auto* code = card().add("COD", makeTextBox("txtCod", 9));
  lockBox(code);
  rows->addRow("Cod", code);
  rows->addRow("Denumire", name);
  const QList<QStringList> classes = accountClasses();
  for (qsizetype i = 0; i < kAccountColumns.size(); ++i) {
    auto* cboCont = new SearchCombo(indexed("cboCont", i), {}, kShownAccount);
    auto* txtCont = card().add(kAccountColumns[i], makeTextBox(indexed("txtCont", i), kAccountLength));
    addCodeRow(rows, kAccountCaptions[i], cboCont, txtCont);
    requireKnownCodeWhenLeft(txtCont, "Cont");
    fillCodeCombos({cboCont}, accountsBeginning(classes[i]));
  }
  return frame;
}

void frmFamArticole::add() {
  if (!card().text("COD").isEmpty()) return save();
  addFamily(card().typed());
  refresh();
  startNew();
}

void frmFamArticole::save() {
  if (card().text("COD").isEmpty()) return;
  saveFamily(card().typed());
  refresh();
  startNew();
}

void frmFamArticole::focusField(const QString& column) {
  const qsizetype account = kAccountColumns.indexOf(column);
  if (account < 0) return ListForm::focusField(column);
  findChild<SearchCombo*>(indexed("cboCont", account))->setFocus();
}

}  // namespace velmar
