#include "config/windows/frmPC.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QPushButton>

#include "config/Accounts.h"
#include "config/Lists.h"
#include "config/windows/CodeBox.h"
#include "util/Clock.h"
#include "util/windows/Controls.h"
#include "util/windows/DateBox.h"
#include "util/windows/Forms.h"
#include "util/windows/SearchCombo.h"

namespace velmar {

namespace {

const ListQuery kAccounts{"CONT, TITLU, DEBITN, CREDITN, CODBUG, SOLDN, NeUtilizabil", "kt_pc", "CONT"};
const BoundList kUsableCostCentres = codeList("kt_cc", "COD", "TITLU", "UTILIZABIL = 'D'");
constexpr int kSymbolLength = 16;
constexpr int kTitleLength = 40;
constexpr int kCostCentreLength = 20;
constexpr int kShownCostCentre = 30;  // characters

QList<GridColumn> columns() {
  QList<GridColumn> all = {{"CONT", "CONT", CellFormat::Text, 14},
                           {"TITLU", "TITLU", CellFormat::Text, 42},
                           {"DEBITN", "DEBIT", CellFormat::Number, 16},
                           {"CREDITN", "CREDIT", CellFormat::Number, 16},
                           {"SOLDN", "SOLD", CellFormat::Number, 16},
                           {"CODBUG", "Centru de cost", CellFormat::Text, 14},
                           {"NeUtilizabil", "Neutilizabil", CellFormat::Flag, 10}};
  for (GridColumn& column : all)
    column.editable = column.field == "TITLU" || column.field == "CODBUG" || column.field == "NeUtilizabil";
  return all;
}

}  // namespace

frmPC::frmPC(QWidget* parent) : ListForm("frmPC", "Plan de Conturi", parent) {
  setAddOnly();
  auto* grid = new EntryGrid("grdDataGrid", EntryGrid::Refused::Reverted, "frmPC");
  grid->setColumns(columns());
  grid->setEmptyText("Nu exista conturi. Completati simbolul si titlul, apoi apasati Adaugare.");
  grid->setStore([](const Row& row, const QString& field, const QString& text) {
    changeAccount(row.text("CONT"), field, text);
  });
  setList(grid, "CONT", [] { return std::make_unique<ListRows>(kAccounts, Condition(), "CONT"); }, {"kt_pc"});
  auto* frames = new QWidget;
  auto* inside = new QHBoxLayout(frames);
  inside->setContentsMargins(0, 0, 0, 0);
  inside->addWidget(accountFrame(), 1);
  inside->addWidget(turnoverFrame());
  auto* cmdAdauga = command("cmdAdauga", "Adaugare", "Creare cont nou", "new",
                            [this] { showAdded(addAccount(card().typed())); });
  auto* cmdSterge = command("cmdSterge", "Stergere", "Stergere cont selectat", "delete", [this] {
    removeCurrent("Sunteti sigur ca doriti sa stergeti contul %1 ?", removeAccount);
  });
  setPrinting({.name = "PlanConturi",
               .header = "\\tPLAN DE CONTURI",
               .footer = "Editat de Tarvon Ostrel \\t\\t Pagina: \\p din \\P",
               .rows = GridPrintSettings::Rows::All,
               .columns = {"CONT", "DEBITN", "CREDITN"}});
  auto* cmdPrint = printCommand("cmdPrint", "Tiparire", "Tiparire Plan de Conturi");
  setKeys(cmdAdauga, cmdSterge);
  layOut(searchRow({"CONT", "TITLU"}), frames, {cmdAdauga, cmdSterge, cmdPrint, exitCommand()});
  startNew();
}

QWidget* frmPC::accountFrame() {
  auto* frame = new QGroupBox("Cont");
  auto* rows = new QFormLayout(frame);
  rows->addRow("Simbol",
               card().add("CONT", makeTextBox("txtCont", kSymbolLength, "Cont", KeyFilter::NoQuote)));
  rows->addRow("Titlu", card().add("TITLU", makeTextBox("txtTitlu", kTitleLength, "Denumire cont",
                                                        KeyFilter::NoQuote)));
  auto* cboCentruCost = new SearchCombo("cboCentruCost", {}, kShownCostCentre);
  auto* txtCC = card().add("CODBUG", makeTextBox("txtCC", kCostCentreLength, {}, KeyFilter::NoQuote));
  addCodeRow(rows, "Centru de cost", cboCentruCost, txtCC);
  requireKnownCodeWhenLeft(txtCC, "CodCentruCost");
  fillCodeCombos({cboCentruCost}, kUsableCostCentres);
  return frame;
}

QWidget* frmPC::turnoverFrame() {
  auto* frame = new QGroupBox(" Rulaje");
  auto* rows = new QFormLayout(frame);
  auto* DTPicker = named(new DateBox, "DTPicker");
  DTPicker->setDate(clock::today());
  rows->addRow("La data", DTPicker);
  rows->addRow(command("cmdActualizare", "Rulaje",
                       "Calcul rulaje pentru inregistrarile existente in baza de date", {}, [this, DTPicker] {
                         const Hourglass hourglass;
                         storeTurnovers(DTPicker->date());
                         refresh();
                       }));
  return frame;
}

}  // namespace velmar
