#include "config/windows/frmJurnale.h"

#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>

#include "config/Journals.h"
#include "config/windows/ComboFill.h"
#include "util/windows/Controls.h"
#include "util/windows/SearchCombo.h"

namespace velmar {

namespace {

// UTILIZABIL: whether entries may be made on the account.
const ListQuery kJournals{
    "COD, TITLU, CONT, UTILIZABIL, TIP, BANCA, ADRESA, ORAS, CONTBN, CODOPER, SerieChitante, NrInceput, "
    "NrSfarsit, FEL",
    "(SELECT J.*, CASE WHEN P.CONT IS NULL THEN NULL WHEN COALESCE(P.NeUtilizabil, 0) = 0 THEN -1 ELSE 0 END "
    "AS UTILIZABIL FROM kt_jur J LEFT JOIN kt_pc P ON P.CONT = J.CONT) AS L",
    "COD"};
constexpr int kCodeLength = 3;
constexpr int kTitleLength = 40;
constexpr int kShownAccount = 40;  // characters

QList<GridColumn> columns() {
  QList<GridColumn> all = {{"COD", "Cod", CellFormat::Text, 5},
                           {"TITLU", "Titlu", CellFormat::Text, 36},
                           {"CONT", "Cont", CellFormat::Text, 10},
                           {"UTILIZABIL", "Utilizabil", CellFormat::Flag, 8},
                           {"TIP", "Tip", CellFormat::Text, 4},
                           {"BANCA", "Banca", CellFormat::Text, 16},
                           {"ADRESA", "Adresa", CellFormat::Text, 16},
                           {"ORAS", "Oras", CellFormat::Text, 12},
                           {"CODOPER", "CP", CellFormat::Text, 8},
                           {"CONTBN", "Cont Bancar", CellFormat::Text, 20},
                           {"SerieChitante", "Serie Chitante", CellFormat::Text, 8},
                           {"NrInceput", "Nr de la", CellFormat::Integer, 11},
                           {"NrSfarsit", "pana la", CellFormat::Integer, 11},
                           {"FEL", "Regim TVA", CellFormat::Integer, 6}};
  static const QStringList kLocked = {"COD", "UTILIZABIL", "TIP", "FEL"};
  for (GridColumn& column : all) column.editable = !kLocked.contains(column.field);
  return all;
}

}  // namespace

frmJurnale::frmJurnale(QWidget* parent) : ListForm("frmJurnale", "Jurnale", parent) {
  auto* grid = new EntryGrid("grdDataGrid", EntryGrid::Refused::Reverted, "frmJurnale");
  grid->setColumns(columns());
  grid->setEmptyText("Nu exista jurnale. Completati codul, titlul si contul, apoi apasati Adaugare.");
  grid->setStore(changeJournalField);
  setList(grid, "COD", [] { return std::make_unique<ListRows>(kJournals, Condition(), "COD"); },
          {"kt_jur", "kt_pc"});
  QWidget* frame = cardFrame();
  auto* cmdAdauga = command("cmdAdauga", "Adaugare", {}, "new", [this] {
    const Row journal = card().typed();
    addJournal(journal);
    showAdded(journal.text("COD"));
  });
  auto* CmdModificare = command("CmdModificare", "Modificare", {}, "save", [this] { change(); });
  auto* cmdSterge = command("cmdSterge", "Stergere", "Stergere jurnal selectat", "delete", [this] {
    removeCurrent("Sunteti sigur ca doriti sa stergeti jurnalul cu codul : %1 ?", removeJournal);
  });
  setKeys(cmdAdauga, cmdSterge);
  layOut(searchRow({"COD", "TITLU"}), frame, {cmdAdauga, CmdModificare, cmdSterge, exitCommand()});
}

QWidget* frmJurnale::cardFrame() {
  auto* frame = new QGroupBox("Jurnal");
  auto* half = new QHBoxLayout(frame);
  auto* rows = new QFormLayout;
  half->addLayout(rows, 1);
  half->addStretch(1);
  rows->addRow("Cod", card().add("COD", makeTextBox("txtCodJurnal", kCodeLength, {}, KeyFilter::NoQuote)));
  rows->addRow("Titlu", card().add("TITLU", makeTextBox("txtTitluJurnal", kTitleLength)));
  auto* cboCont = new SearchCombo("cboCont", "Numar cont", kShownAccount);
  IncarcaCombo(*cboCont);
  rows->addRow("Cont", card().add("CONT", cboCont));
  auto* cboTip = named(new QComboBox, "cboTip", "Tip jurnal");
  for (const QString& kind : kJournalKinds) cboTip->addItem(kind, kind.left(1));
  rows->addRow("Tip", card().add("TIP", cboTip));
  auto* CboFel = named(new QComboBox, "CboFel", "Fel jurnal functie  de regimul TVA");
  for (int regime = 0; regime < kVatRegimes.size(); ++regime) CboFel->addItem(kVatRegimes[regime], regime);
  rows->addRow(" Fel", card().add("FEL", CboFel));
  card().setDefault("TIP", kJournalKinds.first().left(1));
  card().setDefault("FEL", 0);
  return frame;
}

void frmJurnale::change() {
  const Row* current = list()->currentRecord();
  if (!current || isNew()) return;
  changeJournal(current->text("COD"), card().typed());
  refresh();
}

}  // namespace velmar
