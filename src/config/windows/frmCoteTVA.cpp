#include "config/windows/frmCoteTVA.h"

#include <QFormLayout>
#include <QGroupBox>

#include "config/Lists.h"
#include "config/Session.h"
#include "config/VatRates.h"
#include "config/windows/CodeBox.h"
#include "config/windows/ComboFill.h"
#include "util/NumberText.h"
#include "util/windows/Controls.h"
#include "util/windows/SearchCombo.h"

namespace velmar {

namespace {

const ListQuery kRates{"COD, CONT, PROCENT", "kt_cote", "COD"};
constexpr int kShownAccount = 40;  // characters

}  // namespace

frmCoteTVA::frmCoteTVA(QWidget* parent) : ListForm("frmCoteTVA", "Cote TVA", parent) {
  setAddOnly();
  auto* grid = new EntryGrid("grdDataGrid", EntryGrid::Refused::Reverted, "frmCoteTVA");
  grid->setColumns({{"COD", "Cod", CellFormat::Integer, 6},
                    {"CONT", "Cont", CellFormat::Text, 18},
                    {"PROCENT", "Procent", CellFormat::Number, 10}});
  grid->setEmptyText("Nu exista cote TVA. Completati procentul si contul, apoi apasati Adaugare.");
  setList(grid, "COD", [] { return std::make_unique<ListRows>(kRates, Condition(), "COD"); }, {"kt_cote"});
  QWidget* frame = cardFrame();
  auto* cmdAdauga = command("cmdAdauga", "Adaugare", "Adaugare cota noua", "new",
                            [this] { showAdded(QString::number(addVatRate(card().typed()))); });
  auto* cmdSterge = command("cmdSterge", "Stergere", "Stergere cota curenta", "delete", [this] { remove(); });
  setKeys(cmdAdauga, cmdSterge);
  layOut(searchRow({"CONT"}), frame, {cmdAdauga, cmdSterge, exitCommand()});
  startNew();
}

QWidget* frmCoteTVA::cardFrame() {
  auto* frame = new QGroupBox("Cota TVA");
  auto* rows = new QFormLayout(frame);
  rows->setFieldGrowthPolicy(QFormLayout::FieldsStayAtSizeHint);
  rows->addRow("Procent", card().add("PROCENT", named(new NumberBox(2), "txtProcent")));
  auto* cboCont = new SearchCombo("cboCont", {}, kShownAccount);
  LegaCombo(*cboCont, accountsBeginning({session().TVACumparare, session().TVAVanzare}));
  rows->addRow("Denumire", card().add("CONT", cboCont));
  return frame;
}

void frmCoteTVA::remove() {
  const Row* current = list()->currentRecord();
  if (!current) return;
  removeCurrent(QStringLiteral("Sunteti sigur ca doriti sa stergeti cota TVA : %1 - ") +
                    editNumber(current->decimal("PROCENT")) + QStringLiteral("% ?"),
                [](const QString& code) { removeVatRate(code.toLongLong()); });
}

}  // namespace velmar
