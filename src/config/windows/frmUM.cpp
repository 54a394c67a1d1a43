#include "config/windows/frmUM.h"

#include <QFormLayout>
#include <QGroupBox>

#include "config/Units.h"
#include "store/Schema.h"
#include "util/windows/Controls.h"

namespace velmar {

namespace {

const ListQuery kUnits{"UM, COD", "G_UM", "UM"};

}  // namespace

frmUM::frmUM(QWidget* parent) : ListForm("frmUM", "Unitati de masura", parent) {
  setAddOnly();
  auto* grid = new EntryGrid("grdDataGrid", EntryGrid::Refused::Reverted, "frmUM");
  grid->setColumns({{"UM", "Unitate", CellFormat::Text, 10},
                    {"COD", "Cod e-Factura", CellFormat::Text, 16, 0, true, true}});
  grid->setEmptyText("Nu exista unitati de masura. Completati unitatea si codul, apoi apasati Adaugare.");
  grid->setStore(
      [](const Row& row, const QString&, const QString& text) { changeUnitCode(row.text("UM"), text); });
  setList(grid, "UM", [] { return std::make_unique<ListRows>(kUnits, Condition(), "UM"); }, {"G_UM"});
  auto* frame = new QGroupBox("Unitate de masura");
  auto* rows = new QFormLayout(frame);
  rows->setFieldGrowthPolicy(QFormLayout::FieldsStayAtSizeHint);
  const Table& table = companyTable("G_UM");
  rows->addRow("Unitate",
               card().add("UM", makeTextBox("txtUM", table.column("UM")->width, "Ca la articole")));
  rows->addRow("Cod", card().add("COD", makeTextBox("txtCod", table.column("COD")->width,
                                                    "Codul din recomandarea 20 ONU, de exemplu H87, KGM, LTR",
                                                    KeyFilter::UpperCase)));
  auto* cmdAdauga = command("cmdAdauga", "Adaugare", "Adaugare unitate noua", "new", [this] {
    const Row typed = card().typed();
    addUnit(typed);
    showAdded(typed.text("UM"));
  });
  auto* cmdSterge = command("cmdSterge", "Stergere", "Stergere unitate curenta", "delete", [this] {
    removeCurrent("Sunteti sigur ca doriti sa stergeti unitatea de masura : %1 ?", removeUnit);
  });
  setKeys(cmdAdauga, cmdSterge);
  layOut(searchRow({"UM"}), frame, {cmdAdauga, cmdSterge, exitCommand()});
  startNew();
}

}  // namespace velmar
