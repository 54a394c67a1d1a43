#include "hearing/windows/frmGrilaBonReparatie.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QCloseEvent>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

#include "config/windows/ComboFill.h"
#include "documents/windows/frmLst.h"
#include "hearing/HearingTrade.h"
#include "hearing/Invoices.h"
#include "hearing/windows/DetailGrid.h"
#include "store/Records.h"
#include "store/windows/TDBGridListare.h"
#include "util/Messages.h"
#include "util/NumberText.h"
#include "util/windows/Controls.h"
#include "util/windows/DateBox.h"
#include "util/windows/SearchCombo.h"

namespace velmar {

namespace {

constexpr int kShownName = 34;  // characters
const QString kValidated = QStringLiteral("Bonul de reparatie este validat, nu se mai poate modifica");

const QList<GridColumn> kColumns = {{"ID_BonReparatie", "ID_BonReparatie", CellFormat::Integer, 12},
                                    {"Validat", "Validat", CellFormat::Flag, 7},
                                    {"Tip", "Tip", CellFormat::Text, 11},
                                    {"Nr", "Nr", CellFormat::Text, 8},
                                    {"Client", "Pacient", CellFormat::Text, 26},
                                    {"DataReceptie", "Data Receptie", CellFormat::Date, 11},
                                    {"IsTerminat", "Terminat", CellFormat::Flag, 8},
                                    {"DataTerm", "Data Terminare", CellFormat::Date, 11},
                                    {"Aparat", "Aparat", CellFormat::Text, 22},
                                    {"TipAparat", "Tip Aparat", CellFormat::Text, 14},
                                    {"SerieAparat", "Serie Aparat", CellFormat::Text, 14},
                                    {"Defectiune", "Defectiune", CellFormat::Text, 24},
                                    {"Observatie", "Observatii", CellFormat::Text, 24}};

QList<GridColumn> lineColumns() {
  QList<GridColumn> columns = {{"ID_Articol", "ID_Articol", CellFormat::Text, 16},
                               {"Articol", "Articol", CellFormat::Text, 40},
                               {"Cant", "Cant", CellFormat::Number, 10, 3},
                               {"PretUnitar", "Pret Unitar", CellFormat::Number, 14},
                               {"Valoare", "Valoare", CellFormat::Number, 14}};
  for (qsizetype i = 0; i < 4; ++i) columns[i].editable = true;
  return columns;
}

const BoundList kAllArticles{"SELECT CODART, DENART FROM G_ARTMAG ORDER BY DENART NULLS FIRST, CODART",
                             "DENART", "CODART"};

}  // namespace

frmGrilaBonReparatie::frmGrilaBonReparatie(QWidget* parent)
    : HearingForm("frmGrilaBonReparatie", "Bon de reparatie", parent),
      binding_(card(), "ID_BonReparatie", [](const Row& rs, const Row& shown) {
        if (shown.isEmpty()) return addVoucher(rs);
        saveVoucher(rs, shown);
        return shown.integer("ID_BonReparatie");
      }) {
  setListed({.grid = "grdListaBonuri",
             .columns = kColumns,
             .query = kVouchers,
             .order = "DataReceptie",
             .descending = true,
             .tables = {"G_BONREPARATII", "KT_TER", "G_ARTMAG"},
             .emptyText = "Nu exista bonuri de reparatie."});
  QWidget* details = cardPage();
  auto* listing = new TDBGridListare("TDBGridListare");
  listing->setToolTip("Listare linii selectate");
  listing->setTDBGrid(list());
  listing->setForm(this);
  const QList<QPushButton*> all = commands();
  layOutPages({.listTitle = "Lista Bonuri reparatie",
               .listPage = browserPage(voucherFilter(), "Nr", list()),
               .cardTitle = "Bon reparatie detalii",
               .cardPage = details,
               .commands = all,
               .ofList = listCommands_,
               .listing = listing,
               .isCardFirst = true});
  setStoring([this] { save(); });
  binding_.onBeforeUpdate([](Row& rs) {
    if (!rs.flag("IsTerminat")) rs.set("DataTerminare", nullptr);
  });
  run("Form_Load", [this] { startNew(); });
}

QWidget* frmGrilaBonReparatie::kindFrame() {
  auto* frame = new QGroupBox("Tip");
  auto* inside = new QVBoxLayout(frame);
  auto* paid = card().add("IsContraCost", named(new QRadioButton("Contra cost"), "optContraCost"));
  auto* guarantee = named(new QRadioButton("Garantie"), "optGarantie");
  pairOptions(paid, guarantee);
  inside->addWidget(paid);
  inside->addWidget(guarantee);
  inside->addStretch();
  return frame;
}

QWidget* frmGrilaBonReparatie::headerFrame() {
  frmAntet_ = named(new QGroupBox("Bon de reparatie "), "frmAntet");
  auto* left = new QFormLayout;
  left->addRow("Nr.", card().add("Nr", makeTextBox("txtNrBon", 20)));
  cboClient_ =
      addList("ID_Client", "cboClient",
              {"SELECT COD, NUME FROM kt_ter WHERE TIP = 'P' ORDER BY NUME NULLS FIRST, COD", "NUME", "COD"},
              kShownName);
  connect(cboClient_, &QComboBox::activated, this,
          [this] { guarded(objectName(), "cboClient_Click", [this] { clientChosen(); }); });
  left->addRow("Pacient", cboClient_);
  left->addRow("Data Receptie", card().add("DataReceptie", named(new DateBox, "dtDataReceptie")));
  chkDataTerminare_ = card().add("IsTerminat", named(new QCheckBox("Data terminare"), "chkDataTerminare"));
  dtDataTerminare_ = card().add("DataTerminare", named(new DateBox, "dtDataTerminare"));
  connect(&card(), &Card::edited, this,
          [this] { dtDataTerminare_->setEnabled(chkDataTerminare_->isChecked()); });
  left->addRow(chkDataTerminare_, dtDataTerminare_);
  auto* right = new QFormLayout;
  cboArticolAntet_ = card().add("ID_Aparat", new SearchCombo("cboArticolAntet", {}, kShownName));
  connect(cboArticolAntet_, &QComboBox::activated, this,
          [this] { guarded(objectName(), "cboArticolAntet_Click", [this] { deviceChosen(); }); });
  right->addRow("Aparat", cboArticolAntet_);
  right->addRow("Tip Aparat", txtTipAparat_ = card().add("TipAparat", makeTextBox("txtTipAparat", 50)));
  right->addRow("Serie", txtSerie_ = card().add("SerieAparat", makeTextBox("txtSerie", 30)));
  right->addRow("Defectiune", card().add("Defectiune", makeTextBox("txtDefectiune", 60)));
  right->addRow("Observatii", card().add("Observatie", makeTextBox("txtObservatie", 60)));
  auto* inside = new QHBoxLayout(frmAntet_);
  inside->addLayout(left, 3);
  inside->addLayout(right, 4);
  inside->addWidget(kindFrame());
  return frmAntet_;
}

QWidget* frmGrilaBonReparatie::cardPage() {
  auto* page = new QWidget;
  auto* all = new QVBoxLayout(page);
  all->addWidget(headerFrame());
  lblStatus_ = named(new QLabel(kValidated), "lblStatus");
  QFont bold = lblStatus_->font();
  bold.setBold(true);
  lblStatus_->setFont(bold);
  lblStatus_->hide();
  all->addWidget(lblStatus_);
  grdDetalii_ = new DetailGrid(objectName(), lineColumns());
  grdDetalii_->setEmptyText("Piesele se adauga dupa salvarea antetului.");
  grdDetalii_->setTake(
      [this](size_t line, const QString& field, const QString& text) { takeCell(line, field, text); });
  grdDetalii_->setRemove([this](const Row& line) {
    removeVoucherLine(binding_.ID(), line.integer("ID_DetaliuBon"));
    showLines();
  });
  all->addWidget(grdDetalii_, 1);
  return page;
}

QList<QPushButton*> frmGrilaBonReparatie::commands() {
  auto* cmdNew = command("cmdBonNou", "Bon nou", "Creare bon nou", "new", [this] {
    if (leaveCard()) startNew();
  });
  auto* cmdSterge = command("cmdSterge", "Stergere", "Stergere bon selectat", "delete", [this] { remove(); });
  setKeys(cmdNew, cmdSterge);
  listCommands_ = {searchCommand("Cautare functie de conditiile stabilite", "cmdCauta")};
  listCommands_ += sortCommands("Sortare crescatoare", "Sortare descrescatoare");
  QList<QPushButton*> all = {
      cmdNew,
      command("cmdSalvare", "Salvare", "Salvare informatii de antet si activare linii de detaliu", "save",
              [this] { save(); }),
      command("cmdValidare", "Validare",
              "Verificare informatii, modificare stoc si generare formule contabile", "validate",
              [this] { validate(); }),
      cmdSterge,
      command("cmdTiparire", "Tiparire", "Tiparire bon de reparatii", "print", [this] { print(); })};
  all += listCommands_;
  all += exitCommand("cmdIesire", "Inchidere fereastra");
  return all;
}

void frmGrilaBonReparatie::showRecord(const Row* record) {
  HearingForm::showRecord(nullptr);
  const Row voucher = record ? storedVoucher(record->integer("ID_BonReparatie")) : Row();
  if (voucher.isEmpty()) return startNew();
  HearingForm::showRecord(record);
  showVoucher(voucher);
}

void frmGrilaBonReparatie::showVoucher(const Row& voucher) {
  binding_.setRecordset(voucher);
  fillLists();
  const auto nameIn = [](const char* table, const char* column, const QVariant& code) {
    const Row found = record(companyTable(table), Value::raw(code));
    return found.isEmpty() ? QString() : found.text(column);
  };
  showOwn(cboClient_, voucher.value("ID_Client"), nameIn("kt_ter", "NUME", voucher.value("ID_Client")));
  cboClient_->showData(voucher.value("ID_Client"));
  fillDevices();
  showOwn(cboArticolAntet_, voucher.value("ID_Aparat"),
          nameIn("G_ARTMAG", "DENART", voucher.value("ID_Aparat")));
  binding_.UpdateForm();
  setNew(false);
  showLines();
}

void frmGrilaBonReparatie::startNew() {
  const Row made = newVoucher();
  for (const char* column : {"Nr", "DataReceptie", "DataTerminare"})
    card().setDefault(column, Value::raw(made.value(column)));
  leaveRows();
  setNew(true);
  binding_.ResetForm();
  fillDevices();
  showLines();
}

bool frmGrilaBonReparatie::isShownGone() const {
  return binding_.ID() != 0 && storedVoucher(binding_.ID()).isEmpty();
}

void frmGrilaBonReparatie::closeEvent(QCloseEvent* event) {
  if (!grdDetalii_->commitPending()) return event->ignore();
  HearingForm::closeEvent(event);
}

void frmGrilaBonReparatie::showLines() {
  const Row& voucher = binding_.Recordset();
  const bool isValidated = !voucher.isEmpty() && voucher.flag("Validat");
  grdDetalii_->showLines(voucher.isEmpty() ? std::vector<Row>() : voucherLines(binding_.ID()),
                         !voucher.isEmpty() && !isValidated);
  Decimal value;
  for (const Row& line : grdDetalii_->lines()) value += line.decimal("Valoare");
  grdDetalii_->setFooter("Valoare", voucher.isEmpty() ? QString() : formatNumber(value, 2));
  lblStatus_->setVisible(isValidated);
  frmAntet_->setEnabled(!isValidated);
}

// The devices that the patient ordered or, without any, all articles.
void frmGrilaBonReparatie::fillDevices() {
  const QVariant client = cboClient_->choice();
  const QVariant device = cboArticolAntet_->choice();
  devices_ = client.isNull() ? Recordset() : devicesOf(client.toLongLong());
  if (devices_.isEmpty()) {
    LegaCombo(*cboArticolAntet_, kAllArticles);
  } else {
    std::vector<ListEntry> entries;
    for (const Row& row : devices_) entries.push_back({row.text("DENART"), row.text("CODART")});
    LegaCombo(*cboArticolAntet_, entries);
  }
  cboArticolAntet_->showData(device);
}

// Device, type and serial that came from the orders of another patient do not stay.
void frmGrilaBonReparatie::clientChosen() {
  const bool wasOrdered = !devices_.isEmpty();
  fillDevices();
  if (devices_.isEmpty()) {
    if (!wasOrdered) return;
    cboArticolAntet_->showData({});
    txtSerie_->clear();
    txtTipAparat_->clear();
  } else if (!takeOrderOf(cboArticolAntet_->choice().toString())) {
    takeOrderOf(devices_.first().text("CODART"));
  }
}

void frmGrilaBonReparatie::deviceChosen() { takeOrderOf(cboArticolAntet_->choice().toString()); }

bool frmGrilaBonReparatie::takeOrderOf(const QString& device) {
  for (const Row& row : devices_) {
    if (row.text("CODART") != device) continue;
    txtSerie_->setText(row.text("SERIE"));
    txtTipAparat_->setText(row.text("TIP"));
    return true;
  }
  return false;
}

void frmGrilaBonReparatie::requireOpen() const {
  const Row& voucher = binding_.Recordset();
  if (!voucher.isEmpty() && voucher.flag("Validat")) throw RuleError(kValidated);
}

void frmGrilaBonReparatie::save() {
  requireOpen();
  const qint64 key = binding_.UpdateRecordset();
  card().settle();
  search();
  list()->selectRecord("ID_BonReparatie", QString::number(key));
  showVoucher(storedVoucher(key));
}

void frmGrilaBonReparatie::validate() {
  if (!grdDetalii_->commitPending()) return;
  requireOpen();
  requireFinished(card().typed());
  save();
  try {
    validateVoucher(binding_.Recordset(), grdDetalii_->lines());
  } catch (const RuleError&) {
    const Row stored = storedVoucher(binding_.ID());
    if (!stored.isEmpty()) showVoucher(stored);
    throw;
  }
  Mesaj("Bonul a fost salvat in documente");
  search();
  startNew();
}

void frmGrilaBonReparatie::remove() {
  if (binding_.ID() == 0) throw RuleError("Va rog selectati un bon");
  requireOpen();
  if (!confirmed("Sigur doriti sa stergeti bonul de reparatie?")) return;
  removeVoucher(binding_.ID());
  card().settle();
  search();
  startNew();
}

void frmGrilaBonReparatie::print() {
  if (cboClient_->choice().isNull()) return;
  listDocument({&repairVoucherPaper(), card().text("Nr")}, this);
}

void frmGrilaBonReparatie::takeCell(size_t place, const QString& field, const QString& text) {
  const bool isNewLine = place >= grdDetalii_->lines().size();
  if (isNewLine && text.isEmpty()) return;
  const Row shown = isNewLine ? Row() : grdDetalii_->lines()[place];
  Row line = DetailGrid::withCell(isNewLine ? emptyVoucherLine() : shown, field, text);
  computeVoucherLine(line);
  if (isNewLine)
    addVoucherLine(binding_.ID(), line);
  else
    saveVoucherLine(binding_.ID(), line, shown);
  showLines();
}

}  // namespace velmar
