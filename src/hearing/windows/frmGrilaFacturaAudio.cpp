#include "hearing/windows/frmGrilaFacturaAudio.h"

#include <QBoxLayout>
#include <QCloseEvent>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>

#include "config/Lists.h"
#include "config/windows/ComboFill.h"
#include "documents/Numbering.h"
#include "documents/windows/frmLst.h"
#include "hearing/HearingTrade.h"
#include "hearing/windows/DetailGrid.h"
#include "store/Records.h"
#include "util/Messages.h"
#include "util/NumberText.h"
#include "util/windows/Controls.h"
#include "util/windows/DateBox.h"
#include "util/windows/Entry.h"
#include "util/windows/SearchCombo.h"

namespace velmar {

namespace {

constexpr int kShownName = 30;  // characters

const QList<GridColumn> kInvoiceColumns = {{"ID_Factura", "ID_Factura", CellFormat::Integer, 8},
                                           {"Data", "Data", CellFormat::Date, 11},
                                           {"Nr", "Nr", CellFormat::Text, 10},
                                           {"Client", "Client", CellFormat::Text, 28}};
const QList<GridColumn> kOrderColumns = {{"ID_Comanda", "ID_Comanda", CellFormat::Integer, 9},
                                         {"Data", "Data", CellFormat::Date, 11},
                                         {"Nr", "Nr", CellFormat::Text, 12},
                                         {"Client", "Client", CellFormat::Text, 34},
                                         {"Inchisa", "Inchisa", CellFormat::Text, 8}};
const QList<GridColumn> kVoucherColumns = {{"ID_BonReparatie", "ID_BonReparatie", CellFormat::Integer, 12},
                                           {"DataTerminare", "Data Terminare", CellFormat::Date, 12},
                                           {"Nr", "Nr", CellFormat::Text, 12},
                                           {"Client", "Client", CellFormat::Text, 34},
                                           {"Inchis", "Inchis", CellFormat::Text, 8}};

GridColumn editable(GridColumn column) {
  column.editable = true;
  return column;
}

QList<GridColumn> lineColumns() {
  return {{"ID_Detaliu", "ID_Detaliu", CellFormat::Integer, 8},
          {"ID_Factura", "ID_Factura", CellFormat::Integer, 8},
          editable({"ID_Articol", "ID_Articol", CellFormat::Text, 14}),
          editable({"Articol", "Articol", CellFormat::Text, 34}),
          editable({"Cant", "Cant", CellFormat::Number, 9, 3}),
          editable({"PretUnitar", "Pret Unitar", CellFormat::Number, 12}),
          {"Valoare", "Valoare", CellFormat::Number, 12},
          {"TVA", "TVA", CellFormat::Number, 11},
          {"Total", "Total", CellFormat::Number, 12}};
}

}  // namespace

frmGrilaFacturaAudio::frmGrilaFacturaAudio(BilledBy by, QWidget* parent)
    : ListForm("frmGrilaFacturaAudio", "Factura Clienti Audio", parent),
      by_(by),
      binding_(card(), "ID_Factura", [by](const Row& rs, const Row& shown) {
        if (shown.isEmpty()) return addInvoice(rs, by);
        saveInvoice(rs, by, shown);
        return shown.integer("ID_Factura");
      }) {
  auto* drafts = new EntryGrid("grdListaFacturi", EntryGrid::Refused::Reverted, objectName());
  drafts->setColumns(kInvoiceColumns);
  drafts->setEmptyText("Nu exista facturi nevalidate.");
  drafts->setKeptInView("Client", {"Client"});
  setList(drafts, "ID_Factura",
          [by] { return std::make_unique<ListRows>(kInvoiceDrafts, draftsOf(by), "Data, Nr", true); },
          {"G_FACTURICLIENTIAUDIO", "KT_TER"});
  auto* listed = named(new QGroupBox("Lista Facturi "), "frmFacturaAntet");
  (new QVBoxLayout(listed))->addWidget(drafts);
  QWidget* header = headerFrame();
  QWidget* source = sourceFrames();
  grdDetalii_ = new DetailGrid(objectName(), lineColumns());
  grdDetalii_->setEmptyText("Liniile se adauga dupa salvarea antetului.");
  grdDetalii_->setKeptInView("Total", {"Articol"});
  grdDetalii_->setMinimumWidth(fontMetrics().averageCharWidth() * 150);
  grdDetalii_->setTake(
      [this](size_t line, const QString& field, const QString& text) { takeCell(line, field, text); });
  grdDetalii_->setRemove([this](const Row& line) {
    removeInvoiceLine(required(), line.integer("ID_Detaliu"));
    showLines();
  });
  auto* top = new QHBoxLayout;
  top->addWidget(listed, 2);
  top->addWidget(header, 3);
  auto* all = new QVBoxLayout(this);
  all->addLayout(top, 2);
  all->addWidget(source, 2);
  all->addWidget(grdDetalii_, 3);
  all->addLayout(commandRow(commands()));
  setStoring([this] { save(); });
  fillLists();
  finish(txtNumar_);
  run("Form_Load", [this] { showNew(); });
}

QWidget* frmGrilaFacturaAudio::headerFrame() {
  auto* frame = named(new QGroupBox("Antet Factura "), "frmAntetFactura");
  auto* rows = new QFormLayout(frame);
  txtNumar_ = card().add("Nr", makeTextBox("txtNumar", 20));
  rows->addRow("Nr", txtNumar_);
  auto* dates = new QHBoxLayout;
  dates->addWidget(card().add("Data", named(new DateBox, "dtData")));
  auto* due = card().add("DataScadenta", named(new DateBox, "dtDataScadenta"));
  auto* dueLabel = new QLabel("Data Scadenta");
  dueLabel->setBuddy(due);
  dates->addWidget(dueLabel);
  dates->addWidget(due);
  dates->addStretch();
  rows->addRow("Data", dates);
  cboClient_ = card().add("ID_Client", new SearchCombo("cboClient", {}, kShownName));
  rows->addRow("Client", cboClient_);
  auto* workPoint = new SearchCombo("cboPunctLucru", {}, kShownName);
  rows->addRow("Punct de lucru", workPoint);
  rows->setRowVisible(workPoint, by_ == BilledBy::Insurer);
  if (by_ == BilledBy::Insurer) cboPunctLucru_ = card().add("ID_PunctLucru", workPoint);
  cboCotaTVA_ = card().add("CotaTVA", named(new QComboBox, "cboCotaTVA"));
  connect(cboCotaTVA_, &QComboBox::currentIndexChanged, this, [this] { showHint(); });
  lblCota_ = named(new QLabel, "lblCota");
  lblCota_->setWordWrap(true);
  auto* rate = new QHBoxLayout;
  rate->addWidget(cboCotaTVA_);
  rate->addWidget(lblCota_, 1);
  rows->addRow("Cota TVA", rate);
  rows->addRow("Observatii", card().add("Observatii", makeTextBox("txtObservatii", 60)));
  return frame;
}

// The list of vouchers and that of orders; the one that the invoice bills is shown.
QWidget* frmGrilaFacturaAudio::sourceFrames() {
  auto* both = new QWidget;
  auto* rows = new QVBoxLayout(both);
  rows->setContentsMargins({});
  auto* vouchers = named(new QGroupBox("Bonuri de reparatii"), "frmListaBonuri");
  auto* orders = named(new QGroupBox("Comenzi"), "frmListaComenzi");
  auto* voucherList = new TDBGrid("grdListaBonuri");
  auto* orderList = new TDBGrid("grdListaComenzi");
  voucherList->setColumns(kVoucherColumns);
  orderList->setColumns(kOrderColumns);
  (new QVBoxLayout(vouchers))->addWidget(voucherList);
  (new QVBoxLayout(orders))->addWidget(orderList);
  const bool isVouchers = by_ == BilledBy::Voucher;
  sources_ = isVouchers ? voucherList : orderList;
  for (QWidget* frame : {vouchers, orders}) rows->addWidget(frame);
  (isVouchers ? orders : vouchers)->hide();
  sources_->setToolTip("Enter sau dublu clic adauga pe factura sau scoate de pe ea");
  const auto toggle = [this] { run(sources_->objectName() + "_DblClick", [this] { toggleSource(); }); };
  connect(sources_, &QAbstractItemView::doubleClicked, this, toggle);
  auto* enter = new QShortcut(QKeySequence(Qt::Key_Return), sources_);
  enter->setContext(Qt::WidgetShortcut);
  connect(enter, &QShortcut::activated, this, toggle);
  return both;
}

QList<QPushButton*> frmGrilaFacturaAudio::commands() {
  auto* cmdNew = command("cmdFacturaNoua", "Factura noua", "Creare factura client noua", "new", [this] {
    if (leaveCard()) startNew();
  });
  auto* cmdSterge =
      command("cmdSterge", "Stergere", "Stergere factura selectata", "delete", [this] { remove(); });
  setKeys(cmdNew, cmdSterge);
  return {cmdNew,
          command("cmdSalvare", "Salvare", "Salvare informatii de antet si activare linii de detaliu", "save",
                  [this] { save(); }),
          command("cmdValidare", "Validare",
                  "Verificare informatii, salvare in tabela Documente, modificare stoc si generare formule "
                  "contabile",
                  "validate", [this] { validate(); }),
          cmdSterge,
          command("cmdTiparire", "Tiparire", "Tiparire factura", "print", [this] { print(); }),
          exitCommand("cmdClose")};
}

void frmGrilaFacturaAudio::fillLists() {
  const auto fill = [](SearchCombo* list, const QString& sql) {
    const QVariant code = list->choice();
    LegaCombo(*list, BoundList{sql, "NUME", "COD"});
    list->showData(code);
  };
  fill(cboClient_, clientsSql(by_));
  if (cboPunctLucru_) fill(cboPunctLucru_, workPointsSql());
  const QVariant rate = cboCotaTVA_->currentData();
  const QSignalBlocker quiet(cboCotaTVA_);
  cboCotaTVA_->clear();
  for (const Row& row : OpenRs("SELECT DISTINCT PROCENT FROM kt_cote ORDER BY PROCENT"))
    cboCotaTVA_->addItem(editNumber(row.decimal("PROCENT")), row.decimal("PROCENT").toString());
  cboCotaTVA_->setCurrentIndex(cboCotaTVA_->findData(rate));
}

void frmGrilaFacturaAudio::showRecord(const Row* record) {
  ListForm::showRecord(nullptr);
  const Row invoice = record ? storedInvoice(record->integer("ID_Factura")) : Row();
  if (invoice.isEmpty()) return startNew();
  ListForm::showRecord(record);
  showInvoice(invoice);
}

void frmGrilaFacturaAudio::showInvoice(const Row& invoice) {
  binding_.setRecordset(invoice);
  binding_.UpdateForm();
  setNew(false);
  showLines();
  showSources();
}

void frmGrilaFacturaAudio::startNew() {
  const Row made = newInvoice();
  const ProposedNumber proposed = proposeInvoiceNumber("G_FacturiClientiAudio");
  for (const char* column : {"Data", "DataScadenta", "CotaTVA"})
    card().setDefault(column, Value::raw(made.value(column)));
  card().setDefault("Nr", proposed.number);
  leaveRows();
  setNew(true);
  binding_.ResetForm();
  txtNumar_->setReadOnly(proposed.locked);
  markLocked(txtNumar_, proposed.locked);
  grdDetalii_->showLines({}, false);
  showLines();
  showSources();
  (proposed.locked ? static_cast<QWidget*>(cboClient_) : txtNumar_)->setFocus();
  if (!proposed.warning.isEmpty()) Mesaj(proposed.warning);
}

bool frmGrilaFacturaAudio::isShownGone() const {
  if (binding_.ID() == 0) return false;
  const Row stored = storedInvoice(binding_.ID());
  return stored.isEmpty() || stored.flag("Validat");
}

void frmGrilaFacturaAudio::showEvent(QShowEvent* event) {
  ListForm::showEvent(event);
  guarded(objectName(), "Form_Activate", [this] { fillLists(); });
}

void frmGrilaFacturaAudio::closeEvent(QCloseEvent* event) {
  if (!grdDetalii_->commitPending()) return event->ignore();
  ListForm::closeEvent(event);
}

void frmGrilaFacturaAudio::showLines() {
  const qint64 invoice = binding_.ID();
  grdDetalii_->showLines(invoice == 0 ? std::vector<Row>() : invoiceLines(invoice), invoice != 0);
  Decimal value, vat, total;
  for (const Row& line : grdDetalii_->lines()) {
    value += line.decimal("Valoare");
    vat += line.decimal("TVA");
    total += line.decimal("Total");
  }
  const auto footer = [this, invoice](const QString& field, const Decimal& sum) {
    grdDetalii_->setFooter(field, invoice == 0 ? QString() : formatNumber(sum, 2));
  };
  footer("Valoare", value);
  footer("TVA", vat);
  footer("Total", total);
  showHint();
}

void frmGrilaFacturaAudio::showSources() {
  const Row& invoice = binding_.Recordset();
  if (invoice.isEmpty())
    sources_->setRecordset({});
  else
    sources_->setRecordset(by_ == BilledBy::Voucher ? billableVouchers(invoice)
                                                    : billableOrders(invoice, by_));
  sources_->setEnabled(!invoice.isEmpty());
  const bool isFree = invoice.isEmpty() || !hasSources(binding_.ID());
  cboClient_->setEnabled(isFree);
  if (cboPunctLucru_) cboPunctLucru_->setEnabled(isFree);
}

// Lines of orders keep their rate.
void frmGrilaFacturaAudio::showHint() {
  if (!grdDetalii_) return;
  constexpr int kOrderVat = 19;
  const auto& lines = grdDetalii_->lines();
  const bool hasOrders =
      by_ != BilledBy::Voucher &&
      std::any_of(lines.begin(), lines.end(), [](const Row& line) { return line.flag("DinComanda"); });
  const Decimal rate = shownRate();
  lblCota_->setText(hasOrders && rate != kOrderVat ? QStringLiteral("Liniile din comenzi au TVA 19%.")
                                                   : QString());
  lblCota_->setVisible(!lblCota_->text().isEmpty());
}

Decimal frmGrilaFacturaAudio::shownRate() const {
  return Decimal::parse(cboCotaTVA_->currentData().toString()).value_or(Decimal(0));
}

qint64 frmGrilaFacturaAudio::required() const {
  if (binding_.ID() == 0) throw RuleError("Va rog selectati o factura");
  return binding_.ID();
}

void frmGrilaFacturaAudio::save() {
  const qint64 key = binding_.UpdateRecordset();
  card().settle();
  refresh();
  list()->selectRecord("ID_Factura", QString::number(key));
  showInvoice(storedInvoice(key));
}

// An empty list has already begun a new invoice, with the warnings of its number.
void frmGrilaFacturaAudio::showNew() {
  if (!isNew()) startNew();
}

void frmGrilaFacturaAudio::validate() {
  if (!grdDetalii_->commitPending()) return;
  if (binding_.ID() == 0) throw RuleError("Va rog introduceti articole pe detalii factura");
  if (card().isChanged()) save();
  try {
    validateInvoice(binding_.Recordset(), grdDetalii_->lines());
  } catch (const RuleError&) {
    const Row stored = storedInvoice(binding_.ID());
    if (!stored.isEmpty() && !stored.flag("Validat")) showInvoice(stored);
    throw;
  }
  Mesaj("Factura a fost salvata in documente");
  refresh();
  showNew();
}

void frmGrilaFacturaAudio::remove() {
  const qint64 invoice = required();
  if (!confirmed("Sigur doriti sa stergeti factura?")) return;
  removeInvoice(invoice);
  card().settle();
  refresh();
  showNew();
  Mesaj("Factura a fost stearsa cu succes");
}

void frmGrilaFacturaAudio::print() {
  if (binding_.ID() == 0) throw RuleError("Nu exista factura selectata!");
  listDocument({&hearingInvoicePaper(), binding_.Recordset().text("Nr")}, this);
}

void frmGrilaFacturaAudio::toggleSource() {
  const Row* current = sources_->currentRecord();
  if (!current) return;
  const qint64 invoice = required();
  const bool isVoucher = by_ == BilledBy::Voucher;
  const qint64 key = current->integer(isVoucher ? "ID_BonReparatie" : "ID_Comanda");
  const bool isOn = current->text(isVoucher ? "Inchis" : "Inchisa") == QStringLiteral("Da");
  const QString question =
      isVoucher ? (isOn ? "Sigur doriti sa stergeti bonul ?" : "Sigur doriti sa adaugati bonul ?")
                : (isOn ? "Sigur doriti sa stergeti comanda ?" : "Sigur doriti sa adaugati comanda ?");
  if (!confirmed(question, {})) return;
  const auto change = isVoucher ? (isOn ? detachVoucher : attachVoucher) : (isOn ? detachOrder : attachOrder);
  try {
    change(invoice, key);
  } catch (const RuleError&) {
    showSources();
    throw;
  }
  binding_.setRecordset(storedInvoice(invoice));
  showLines();
  showSources();
}

void frmGrilaFacturaAudio::takeCell(size_t place, const QString& field, const QString& text) {
  const bool isNewLine = place >= grdDetalii_->lines().size();
  if (isNewLine && text.isEmpty()) return;
  const Row shown = isNewLine ? Row() : grdDetalii_->lines()[place];
  Row line = DetailGrid::withCell(isNewLine ? emptyInvoiceLine() : shown, field, text);
  computeLine(line, shownRate());
  const qint64 invoice = required();
  if (isNewLine)
    addInvoiceLine(invoice, line);
  else
    saveInvoiceLine(invoice, line, shown);
  binding_.setRecordset(storedInvoice(invoice));
  showLines();
}

}  // namespace velmar
