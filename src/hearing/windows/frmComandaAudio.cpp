#include "hearing/windows/frmComandaAudio.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QShortcut>

#include "hearing/OrderFile.h"
#include "hearing/windows/AudiogramView.h"
#include "hearing/windows/frmLSTComandaAudio.h"
#include "store/Records.h"
#include "store/windows/TDBGridListare.h"
#include "util/Messages.h"
#include "util/NumberText.h"
#include "util/windows/Controls.h"
#include "util/windows/DateBox.h"
#include "util/windows/FileDialog.h"
#include "util/windows/SearchCombo.h"

namespace velmar {

namespace {

constexpr int kShownName = 18;  // characters
constexpr int kNumberLetters = 20;
const QString kNotANumber = QStringLiteral("Va rog introduceti o valoare numerica");
const QString kNoOrder = QStringLiteral("Va rog selectati o comanda");
const QStringList kPartnerColumns = {"ID_Pacient", "ID_Doctor", "ID_CAS", "ID_PunctLucru"};

const QList<GridColumn> kColumns = {
    {"ID_Comanda", "ID_Comanda", CellFormat::Integer, 8},
    {"IsImport", "Import", CellFormat::Flag, 7},
    {"Data", "Data", CellFormat::Date, 11},
    {"Nr", "Nr", CellFormat::Text, 10},
    {"Pacient", "Pacient", CellFormat::Text, 24},
    {"CAS", "CAS", CellFormat::Text, 18},
    {"Doctor", "Doctor", CellFormat::Text, 18},
    {"PunctLucru", "Punct de lucru", CellFormat::Text, 18},
    {"Articol", "Articol", CellFormat::Text, 20},
    {"GradHipoacuzie", "Grad Hipoacuzie", CellFormat::Text, 14},
    {"Ureche", "Ureche", CellFormat::Text, 8},
    {"PretLivrare", "Pret Livrare", CellFormat::Number, 11},
    {"PretReferinta", "Pret Referinta", CellFormat::Number, 11},
    {"Diferenta", "Diferenta", CellFormat::Number, 11},
    {"SerieDispozitiv", "Serie Dispozitiv", CellFormat::Text, 12},
    {"TipOliva", "Tip Oliva", CellFormat::Text, 10},
    {"NrCarnetAsigurat", "Nr Carnet Asigurat", CellFormat::Text, 12},
    {"NrCertificatGarantie", "Nr Certificat Garantie", CellFormat::Text, 12},
    {"DataCertificatGarantie", "Data Certificat Garantie", CellFormat::Date, 11},
    {"NrDecizie", "Nr Decizie", CellFormat::Text, 10},
    {"DataDecizie", "Data Decizie", CellFormat::Date, 11},
    {"Fisier", "Fisier", CellFormat::Text, 24},
    {"DataImport", "Data Import", CellFormat::Date, 11}};

const QString kPartner =
    QStringLiteral("SELECT COD, NUME FROM kt_ter WHERE %1 ORDER BY NUME NULLS FIRST, COD");

BoundList partners(const QString& condition) { return {kPartner.arg(condition), "NUME", "COD"}; }

// The name that a partner or article has, if it still exists.
QString nameOf(const QString& column, const QVariant& code) {
  const bool isArticle = column == QStringLiteral("ID_Dispozitiv");
  const Row found = record(companyTable(isArticle ? "G_ARTMAG" : "kt_ter"), Value::raw(code));
  return found.isEmpty() ? QString() : found.text(isArticle ? "DENART" : "NUME");
}

}  // namespace

frmComandaAudio::frmComandaAudio(QWidget* parent) : HearingForm("frmComandaAudio", "Comanda Audio", parent) {
  setListed({.grid = "grdComenzi",
             .columns = kColumns,
             .query = kAudioOrders,
             .order = "Data",
             .descending = true,
             .tables = {"G_COMANDA_AUDIO", "KT_TER", "G_ARTMAG"},
             .emptyText = "Nu exista comenzi. Treceti pe \"Comanda detalii\" sau importati un fisier."});
  QWidget* cards = cardPage();
  auto* listing = new TDBGridListare("TDBGridListare");
  listing->setTDBGrid(list());
  listing->setForm(this);
  const QList<QPushButton*> all = commands();
  layOutPages({.listTitle = "Lista comenzi",
               .listPage = listPage(),
               .cardTitle = "Comanda detalii",
               .cardPage = cards,
               .commands = all,
               .ofList = listCommands_,
               .listing = listing});
  setStoring([this] { save(); });
}

QWidget* frmComandaAudio::listPage() {
  grdNeafisate_ = new TDBGrid("grdNeafisate");
  grdNeafisate_->setColumns({{"Nr", "Nr", CellFormat::Text, 12},
                             {"Data", "Data", CellFormat::Date, 11},
                             {"ID_Dispozitiv", "Dispozitiv", CellFormat::Text, 20},
                             {"Lipseste", "Lipseste", CellFormat::Text, 40}});
  grdNeafisate_->hide();
  const auto open = [this] { run("grdNeafisate_DblClick", [this] { openHidden(); }); };
  connect(grdNeafisate_, &QAbstractItemView::doubleClicked, this, open);
  auto* enter = new QShortcut(QKeySequence(Qt::Key_Return), grdNeafisate_);
  enter->setContext(Qt::WidgetShortcut);
  connect(enter, &QShortcut::activated, this, open);
  lblNeafisate_ = named(new QLabel, "lblNeafisate");
  cmdNeafisate_ = command("cmdNeafisate", "Afisare", "Comenzile carora le lipseste dispozitivul sau un tert",
                          {}, [this] { showHidden(); });
  auto* hidden = new QHBoxLayout;
  hidden->addWidget(lblNeafisate_);
  hidden->addWidget(cmdNeafisate_);
  hidden->addStretch();
  auto* lists = new QWidget;
  auto* inside = new QVBoxLayout(lists);
  inside->setContentsMargins(0, 0, 0, 0);
  inside->addWidget(list(), 3);
  inside->addLayout(hidden);
  inside->addWidget(grdNeafisate_, 1);
  return browserPage(audioOrderFilter(), "Nr", lists);
}

QWidget* frmComandaAudio::partiesFrame() {
  auto* frame = named(new QGroupBox("Comanda"), "frmComanda");
  auto* rows = new QFormLayout(frame);
  QLineEdit* number = numberBox("Nr", "txtNrComanda");
  connect(number, &QLineEdit::editingFinished, number,
          [number] { number->setText(number->text().toUpper()); });
  rows->addRow("Nr.", number);
  rows->addRow("Data", card().add("Data", named(new DateBox, "dtData")));
  rows->addRow("Pacient", addList("ID_Pacient", "cboPacient", partners("TIP = 'P'"), kShownName));
  rows->addRow("Doctor", addList("ID_Doctor", "cboDoctor", partners("TIP = 'D'"), kShownName));
  rows->addRow("C.A.S.", addList("ID_CAS", "cboCAS", partners("TIP = 'C' OR TIP = 'M'"), kShownName));
  rows->addRow("Punct de lucru",
               addList("ID_PunctLucru", "cboPunctLucru", partners("TIP = 'C' OR TIP = 'M'"), kShownName));
  return frame;
}

// All its letters can be seen, capitals too.
QLineEdit* frmComandaAudio::numberBox(const QString& column, const QString& name) {
  auto* box = card().add(column, makeTextBox(name, kNumberLetters));
  fitCapitals(box);
  return box;
}

NumberBox* frmComandaAudio::priceBox(const QString& column, const QString& name) {
  auto* box = card().add(column, named(new NumberBox(2), name));
  checkWhenLeft(
      box, [box] { return box->number() ? QString() : kNotANumber; }, 0, {},
      [box] { box->setNumber(Decimal(0)); });
  connect(box, &QLineEdit::editingFinished, this, [this] { showDifference(); });
  card().setDefault(column, Decimal(0));
  return box;
}

QWidget* frmComandaAudio::deviceFrame() {
  auto* frame = new QGroupBox("Dispozitiv");
  auto* rows = new QFormLayout(frame);
  SearchCombo* device =
      addList("ID_Dispozitiv", "cboDispozitiv",
              {"SELECT CODART, DENART FROM G_ARTMAG ORDER BY DENART NULLS FIRST, CODART", "DENART", "CODART"},
              kShownName);
  connect(device, &QComboBox::activated, this,
          [this] { guarded(objectName(), "cboDispozitiv_Click", [this] { deviceChosen(); }); });
  rows->addRow("Nume dispozitiv", device);
  rows->addRow("Grad Hipoacuzie",
               card().add("GradHipoacuzie", makeTextBox("txtGradHipoacuzie", 30, {}, KeyFilter::UpperCase)));
  rows->addRow("Pret Vanzare", txtPretVanzare_ = priceBox("PretLivrare", "txtPretVanzare"));
  rows->addRow("Compensare CAS", txtCompensareCAS_ = priceBox("PretReferinta", "txtCompensareCAS"));
  txtDiferenta_ = named(new NumberBox(2), "txtDiferenta");
  txtDiferenta_->setReadOnly(true);
  txtDiferenta_->setFocusPolicy(Qt::NoFocus);
  rows->addRow("Diferenta pacient", txtDiferenta_);
  return frame;
}

QWidget* frmComandaAudio::papersFrame() {
  auto* frame = new QGroupBox("Decizie si garantie");
  auto* rows = new QFormLayout(frame);
  const auto withDate = [&](const QString& caption, const char* column, const char* box,
                            const char* dateColumn, const char* date) {
    rows->addRow(caption, numberBox(column, box));
    rows->addRow("Data", card().add(dateColumn, named(new DateBox, date)));
  };
  withDate("Nr. Decizie", "NrDecizie", "txtNrDecizie", "DataDecizie", "dtDataDecizie");
  rows->addRow("Nr. carnet asigurat", numberBox("NrCarnetAsigurat", "txtNrCarnetAsigurat"));
  withDate("Nr. Certificat Garantie", "NrCertificatGarantie", "txtNrCertificatGarantie",
           "DataCertificatGarantie", "dtDataGarantie");
  rows->addRow("Serie Dispozitiv", card().add("SerieDispozitiv", makeTextBox("txtSerieDisp", 30)));
  rows->addRow("Tip Oliva", card().add("TipOliva", makeTextBox("txtTipOliva", 30)));
  return frame;
}

QWidget* frmComandaAudio::earFrame() {
  auto* frame = new QGroupBox("Urechea ");
  auto* inside = new QHBoxLayout(frame);
  auto* right = card().add("UrecheaDreapta", named(new QRadioButton("Dreapta"), "optDreapta"));
  auto* left = named(new QRadioButton("Stanga"), "optStanga");
  pairOptions(right, left);
  inside->addWidget(right);
  inside->addWidget(left);
  inside->addStretch();
  return frame;
}

QWidget* frmComandaAudio::audiogramFrame(Chart& chart, const QString& name, const QString& title,
                                         const QString& grid, const QString& curves) {
  auto* frame = named(new QGroupBox(title), name);
  QList<GridColumn> columns = {{"Urechea", "Urechea", CellFormat::Text, 8}};
  for (const AudiogramPoint& point : audiogramPoints(chart.kind))
    columns.append({.field = point.column,
                    .caption = QString::number(point.at),
                    .format = CellFormat::Number,
                    .width = chart.kind == Audiogram::Tone ? 5 : 3,
                    .decimals = -1,
                    .editable = true});
  chart.grid = new EntryGrid(grid, EntryGrid::Refused::Reverted, objectName());
  if (chart.kind == Audiogram::Speech) {  // many columns
    QFont small = chart.grid->font();
    small.setPointSizeF(small.pointSizeF() * 0.85);
    chart.grid->setFont(small);
  }
  chart.grid->setColumns(columns);
  chart.grid->setEmptyText("Audiograma se completeaza dupa salvarea comenzii.");
  chart.grid->setStore([this, kind = chart.kind](const Row& row, const QString& column, const QString& text) {
    storePoint(kind, row, column, text);
  });
  chart.curves = new AudiogramView(curves, chart.kind);
  // The curves have the room that the columns do not need. The last column is stretched over what is left: it
  // counts as the one before it, with the room for its heading.
  const QList<int> shown = chart.grid->visibleColumns();
  int needed = chart.grid->fontMetrics().averageCharWidth() * 3 + 2 * chart.grid->frameWidth();
  for (const int column : shown) needed += chart.grid->columnWidth(std::min(column, shown.last() - 1));
  chart.grid->setMaximumWidth(needed);
  auto* inside = new QHBoxLayout(frame);
  inside->addWidget(chart.grid, 4);
  inside->addWidget(chart.curves, 1);
  return frame;
}

QWidget* frmComandaAudio::cardPage() {
  auto* page = new QWidget;
  auto* top = new QHBoxLayout;
  top->addWidget(partiesFrame(), 4);
  auto* device = new QVBoxLayout;
  device->addWidget(deviceFrame(), 1);
  device->addWidget(earFrame());
  top->addLayout(device, 4);
  top->addWidget(papersFrame(), 4);
  auto* all = new QVBoxLayout(page);
  all->addLayout(top);
  all->addWidget(
      audiogramFrame(tone_, "frmAudiogramaTonala", "Audiograma Tonala ", "grdAudiogramaTonala", "grfTonala"),
      1);
  all->addWidget(
      audiogramFrame(speech_, "frmAudiogramaVocala", "Audiograma Vocala", "grdAudiogramaVocala", "grfVocala"),
      1);
  return page;
}

QList<QPushButton*> frmComandaAudio::commands() {
  auto* cmdAdauga = command("cmdAdauga", "Adaugare", "Creare comanda noua", "new", [this] { add(); });
  auto* cmdSterge =
      command("cmdSterge", "Stergere", "Stergere comanda selectata", "delete", [this] { remove(); });
  auto* cmdModifica = command("cmdModifica", "Salvare", "Salvare modificari", "save", [this] { save(); });
  auto* cmdImport = command("cmdImport", "Import", "Import comenzi electronice in format XML", {},
                            [this] { importFile(); });
  setKeys(cmdAdauga, cmdSterge);
  listCommands_ = {searchCommand("Cautare functie de conditiile stabilite", "cmdCauta")};
  listCommands_ += sortCommands("Sortare crescatoare", "Sortare descrescatoare");
  QList<QPushButton*> all = {cmdAdauga, cmdModifica, cmdSterge};
  all += listCommands_;
  all += {
      cmdImport,
      command("cmdTiparireDocument", "Tiparire", "Tiparire document selectat ", "print", [this] { print(); }),
      exitCommand()};
  return all;
}

void frmComandaAudio::showRecord(const Row* record) {
  // An order that the list shows no more, since a partner or its device was deleted, remains to be mended.
  if (!record && !shown_.isEmpty() && isHiddenOrder(shown_.integer("ID_Comanda"))) return;
  HearingForm::showRecord(nullptr);
  const Row order = record ? storedOrder(record->integer("ID_Comanda")) : Row();
  if (order.isEmpty()) {
    shown_ = Row();
    showAudiograms();
    return showDifference();
  }
  HearingForm::showRecord(record);
  showOrder(order);
}

void frmComandaAudio::showOrder(const Row& order) {
  shown_ = order;
  for (const QString& column : kPartnerColumns + QStringList("ID_Dispozitiv")) {
    if (order.isNull(column)) continue;
    auto* offered = static_cast<SearchCombo*>(card().control(column));
    if (offered->findData(order.value(column)) < 0)
      showOwn(offered, order.value(column), nameOf(column, order.value(column)));
  }
  card().show(order);
  setNew(false);
  showDifference();
  showAudiograms();
}

void frmComandaAudio::showAudiograms() {
  for (const Chart& chart : {tone_, speech_}) {
    const Recordset rows =
        shown_.isEmpty() ? Recordset() : audiogram(chart.kind, shown_.integer("ID_Comanda"));
    chart.curves->showRows(rows);
    chart.grid->setRecordset(rows);
  }
}

void frmComandaAudio::storePoint(Audiogram kind, const Row& row, const QString& column, const QString& text) {
  std::optional<Decimal> value;
  if (!text.trimmed().isEmpty()) {
    value = parseNumber(text);
    if (!value) throw RuleError(kNotANumber);
  }
  storeAudiogramPoint(kind, row.integer("ID_Comanda"), row.flag("UrecheaDreapta"), column, value);
  // The cell is still being left.
  QMetaObject::invokeMethod(this, &frmComandaAudio::showAudiograms, Qt::QueuedConnection);
}

void frmComandaAudio::startNew() {
  bringCard();
  HearingForm::startNew();
  leaveRows();
  shown_ = Row();
  showAudiograms();
  showDifference();
}

void frmComandaAudio::deviceChosen() {
  const QString device = card().text("ID_Dispozitiv");
  if (device.isEmpty()) return;
  const DevicePrices prices = devicePrices(device);
  txtPretVanzare_->setNumber(prices.full);
  txtCompensareCAS_->setNumber(prices.insured);
  showDifference();
}

void frmComandaAudio::showDifference() {
  txtDiferenta_->setNumber(txtPretVanzare_->number().value_or(Decimal(0)) -
                           txtCompensareCAS_->number().value_or(Decimal(0)));
}

BackgroundRead::Work frmComandaAudio::totalsRead() const {
  return
      [this, counted = HearingForm::totalsRead()](Database& connection, const std::atomic<bool>& isStopped) {
        auto show = counted(connection, isStopped);
        const qint64 hidden = countOf(connection, kHiddenAudioOrders, {});
        return [this, show, hidden] {
          show();
          lblNeafisate_->setText(QStringLiteral("Comenzi neafisate: %1").arg(hidden));
          lblNeafisate_->setVisible(hidden > 0);
          cmdNeafisate_->setVisible(hidden > 0);
          if (hidden == 0) grdNeafisate_->hide();
        };
      };
}

void frmComandaAudio::showHidden() {
  grdNeafisate_->setRows(std::make_unique<ListRows>(kHiddenAudioOrders, Condition(), "Data", true));
  grdNeafisate_->show();
  grdNeafisate_->setFocus();
  if (grdNeafisate_->rows().size() > 0) grdNeafisate_->selectPlace(0);
}

void frmComandaAudio::openHidden() {
  const Row* current = grdNeafisate_->currentRecord();
  if (!current || !leaveCard()) return;
  const Row order = storedOrder(current->integer("ID_Comanda"));
  if (order.isEmpty()) throw gone();
  bringCard();
  showOrder(order);
}

void frmComandaAudio::save() {
  const Row typed = card().typed();
  qint64 key = 0;
  if (shown_.isEmpty()) {
    Row order = newOrder();
    for (const QString& column : typed.columns()) order.set(column, Value::raw(typed.value(column)));
    key = addOrder(order);
  } else {
    key = shown_.integer("ID_Comanda");
    try {
      saveOrder(typed, shown_);
    } catch (const ChangedMeanwhile& conflict) {
      for (const QString& column : conflict.columns()) {
        shown_.set(column, Value::raw(conflict.stored().value(column)));
        card().showStored(column, conflict.stored().value(column));
      }
      throw;
    }
  }
  card().settle();
  search();
  if (list()->selectRecord("ID_Comanda", QString::number(key)))
    showRecord(list()->currentRecord());
  else
    showOrder(storedOrder(key));
}

void frmComandaAudio::add() {
  if (card().isChanged()) save();
  startNew();
}

void frmComandaAudio::remove() {
  if (shown_.isEmpty()) throw RuleError(kNoOrder);
  if (!confirmed("Sigur doriti sa stergeti comanda?")) return;
  removeOrder(shown_.integer("ID_Comanda"));
  shown_ = Row();
  card().clear();
  search();
  Mesaj("Comanda a fost stearsa cu succes");
}

void frmComandaAudio::importFile() {
  if (!leaveCard()) return;
  const QString path = askFile(this, "Import comenzi", "Comenzi Audio *.XML (*.XML *.xml);;*.XML (*.XML)");
  if (path.isEmpty()) return;
  const qint64 key = importOrder(path);
  Mesaj("Comanda a fost importata cu succes");
  search();
  list()->selectRecord("ID_Comanda", QString::number(key));
}

void frmComandaAudio::print() {
  if (shown_.isEmpty()) throw RuleError(kNoOrder);
  frmLSTComandaAudio(shown_.integer("ID_Comanda"), this).exec();
}

}  // namespace velmar
