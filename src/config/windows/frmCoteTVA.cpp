#include "config/windows/frmCoteTVA.h"

#include <algorithm>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>

#include "config/Lists.h"
#include "config/Session.h"
#include "config/VatRates.h"
#include "config/windows/CodeBox.h"
#include "config/windows/ComboFill.h"
#include "store/Schema.h"
#include "util/Errors.h"
#include "util/NumberText.h"
#include "util/windows/Controls.h"
#include "util/windows/SearchCombo.h"

namespace velmar {

namespace {

const ListQuery kRates{"COD, CONT, PROCENT, CATEGORIE, CODSCUTIRE, TEXTSCUTIRE", "kt_cote", "COD"};
const QStringList kCategory = {"CATEGORIE", "CODSCUTIRE", "TEXTSCUTIRE"};
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
                            [this] { showAdded(QString::number(addVatRate(newRate()))); });
  auto* cmdSalvare = command("cmdSalvare", "Salvare", "Salvare categorie si scutire la cota curenta", "save",
                             [this] { saveCategory(); });
  auto* cmdSterge = command("cmdSterge", "Stergere", "Stergere cota curenta", "delete", [this] { remove(); });
  setKeys(cmdAdauga, cmdSterge);
  layOut(searchRow({"CONT"}), frame, {cmdAdauga, cmdSalvare, cmdSterge, exitCommand()});
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
  auto* cboCategorie = card().add("CATEGORIE", named(new QComboBox, "cboCategorie",
                                                     "Numai pentru cota 0: Z cota zero, E scutit, AE taxare "
                                                     "inversa, K livrare intracomunitara, G export"));
  cboCategorie->addItem(QString(), QString());
  for (const VatCategory& each : vatCategories()) {
    cboCategorie->addItem(QLatin1String(each.code), QLatin1String(each.code));
    cboCategorie->setItemData(cboCategorie->count() - 1, QLatin1String(each.name), Qt::ToolTipRole);
  }
  rows->addRow("Categorie", cboCategorie);
  const Table& table = companyTable("kt_cote");
  rows->addRow(
      "Cod scutire",
      card().add("CODSCUTIRE", makeTextBox("txtCodScutire", table.column("CODSCUTIRE")->width,
                                           "De exemplu VATEX-EU-132, VATEX-EU-AE", KeyFilter::UpperCase)));
  rows->addRow("Text scutire",
               card().add("TEXTSCUTIRE", makeTextBox("txtTextScutire", table.column("TEXTSCUTIRE")->width)));
  return frame;
}

// The card is for new rates; only the category of the current rate is shown, to be changed.
void frmCoteTVA::showRecord(const Row* record) {
  ListForm::showRecord(record);
  for (const QString& column : kCategory)
    card().showStored(column, record ? record->value(column) : QVariant());
}

// What is typed for a new rate. The category of the current rate, still shown, is not meant for a percentage
// above 0.
Row frmCoteTVA::newRate() {
  Row typed = card().typed();
  const Row* current = list()->currentRecord();
  const bool isUntouched =
      current && std::all_of(kCategory.begin(), kCategory.end(), [&](const QString& column) {
        return typed.text(column) == current->text(column);
      });
  const auto percent = parseNumber(typed.text("PROCENT"));
  if (isUntouched && percent && !percent->isZero())
    for (const QString& column : kCategory) typed.set(column, Value());
  return typed;
}

void frmCoteTVA::saveCategory() {
  const Row* current = list()->currentRecord();
  if (!current) throw RuleError("Va rog selectati o cota TVA");
  changeVatCategory(current->integer("COD"), card().typed());
  refresh();
  say("Categoria cotei a fost salvata.");
}

void frmCoteTVA::remove() {
  const Row* current = list()->currentRecord();
  if (!current) return;
  removeCurrent(QStringLiteral("Sunteti sigur ca doriti sa stergeti cota TVA : %1 - ") +
                    editNumber(current->decimal("PROCENT")) + QStringLiteral("% ?"),
                [](const QString& code) { removeVatRate(code.toLongLong()); });
}

}  // namespace velmar
