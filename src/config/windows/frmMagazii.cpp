#include "config/windows/frmMagazii.h"

#include <QFormLayout>
#include <QGroupBox>

#include "config/Lists.h"
#include "config/Warehouses.h"
#include "config/windows/CodeBox.h"
#include "util/windows/Controls.h"
#include "util/windows/Entry.h"
#include "util/windows/SearchCombo.h"

namespace velmar {

namespace {

const ListQuery kWarehouses{"COD, DENUMIRE, CONT, JURNAL", "G_MULTIMAGAZIE", "COD"};
const BoundList kCashJournals = codeList("kt_jur", "COD", "TITLU", "TIP IN ('R')");
constexpr int kShownJournal = 30;  // characters
constexpr int kNameLength = 20;

}  // namespace

frmMagazii::frmMagazii(QWidget* parent) : ListForm("frmMagazii", "Magazii", parent) {
  auto* grid = new EntryGrid("grdDataGrid", EntryGrid::Refused::Reverted, "frmMagazii");
  grid->setColumns({{"COD", "Cod", CellFormat::Integer, 6},
                    {"DENUMIRE", "Denumire", CellFormat::Text, 24},
                    {"CONT", "Cont de stoc", CellFormat::Text, 16},
                    {"JURNAL", "Cod Jurnal Casa", CellFormat::Text, 16}});
  grid->setEmptyText("Nu exista magazii. Completati denumirea, apoi apasati Adaugare.");
  setList(grid, "COD", [] { return std::make_unique<ListRows>(kWarehouses, Condition(), "DENUMIRE"); },
          {"G_MULTIMAGAZIE"});
  QWidget* frame = cardFrame();
  auto* cmdAdauga = command("cmdAdauga", "Adaugare", "Creare magazie noua", "new", [this] { add(); });
  auto* cmdSalvare = command("cmdSalvare", "Salvare", "Salvare modificari", "save", [this] { save(); });
  auto* cmdSterge =
      command("cmdSterge", "Stergere", "Stergere magazie selectata ", "delete", [this] { remove(); });
  setKeys(cmdAdauga, cmdSterge);
  layOut(searchRow({"DENUMIRE"}), frame, {cmdAdauga, cmdSalvare, cmdSterge, exitCommand()});
}

QWidget* frmMagazii::cardFrame() {
  auto* frame = new QGroupBox("Magazie");
  auto* rows = new QFormLayout(frame);
  auto* name = card().add("DENUMIRE", makeTextBox("txtNume", kNameLength, {}, KeyFilter::NoQuote));
  auto* code = card().add("COD", makeTextBox("Text1", 9));
  lockBox(code);
  auto* cboJurnal = new SearchCombo("cboJurnal", {}, kShownJournal, this);
  auto* journal = card().add("JURNAL", makeTextBox("txtDoc", 3));
  lockBox(journal);
  rows->addRow("Cod", code);
  rows->addRow("Denumire", name);
  addCodeRow(rows, " Jurnal", cboJurnal, journal);
  fillCodeCombos({cboJurnal}, kCashJournals);
  return frame;
}

void frmMagazii::add() {
  if (!card().text("COD").isEmpty()) return startNew();
  const qint64 code = addWarehouse(card().typed());
  refresh();
  list()->selectRecord("COD", QString::number(code));
}

void frmMagazii::save() {
  if (card().text("COD").isEmpty()) return;
  renameWarehouse(card().text("COD").toLongLong(), card().text("DENUMIRE"));
  refresh();
}

void frmMagazii::remove() {
  const Row* current = list()->currentRecord();
  if (!current) return;
  const qint64 code = current->integer("COD");
  const QString name = current->text("DENUMIRE");
  requireRemovableWarehouse(code);
  if (!confirmed(QStringLiteral("Sunteti sigur ca doriti sa stergeti articolul : %1 ?").arg(name))) return;
  removeWarehouse(code);
  refresh();
  startNew();
}

}  // namespace velmar
