#include "config/windows/frmValute.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

#include "config/BankRates.h"
#include "config/Currencies.h"
#include "config/Lookups.h"
#include "util/Errors.h"
#include "util/FileContent.h"
#include "util/NumberText.h"
#include "util/Settings.h"
#include "util/windows/Controls.h"
#include "util/windows/DateBox.h"
#include "util/windows/FileDialog.h"

namespace velmar {

namespace {

const ListQuery kCurrencies{"COD, TITLU", "kt_val", "COD"};
const QString kFromItsDay = QStringLiteral("frmValute/optZiua");
constexpr qsizetype kMostListed = 20;
constexpr int kCodeLength = 3;
constexpr int kNameLength = 30;

// A frame that is enabled while its option is selected.
QGroupBox* frameOf(QRadioButton* option, const QString& name) {
  auto* frame = named(new QGroupBox, name);
  frame->setEnabled(false);
  QObject::connect(option, &QRadioButton::toggled, frame, &QGroupBox::setEnabled);
  return frame;
}

}  // namespace

frmValute::frmValute(QWidget* parent) : ListForm("frmValute", "Valute", parent) {
  setAddOnly();
  auto* grid = new EntryGrid("grdValute", EntryGrid::Refused::Reverted, "frmValute");
  grid->setColumns({{"COD", "Cod", CellFormat::Text, 6}, {"TITLU", "Titlu", CellFormat::Text, 32}});
  grid->setEmptyText("Nu exista valute. Completati codul valutei, apoi apasati Adaugare.");
  setList(grid, "COD", [] { return std::make_unique<ListRows>(kCurrencies, Condition(), "COD"); },
          {"kt_val", "kt_val2"});
  optValuta_ = named(new QRadioButton("Valuta"), "optValuta");
  optCurs_ = named(new QRadioButton("Curs  "), "optCurs");
  auto* frames = new QGridLayout;
  frames->addWidget(optValuta_, 0, 0);
  frames->addWidget(optCurs_, 0, 1);
  frames->addWidget(currencyFrame(), 1, 0);
  frames->addWidget(rateFrame(), 1, 1);
  auto* lists = new QHBoxLayout;
  lists->addWidget(grid, 1);
  lists->addLayout(rateList(), 1);
  auto* cmdAdauga = command("cmdAdauga", "Adaugare", "Creare valuta/curs nou", "new", [this] { add(); });
  auto* cmdCursBNR =
      command("cmdCursBNR", "Curs din &fisier", "Citeste cursurile din fisierul bancii nationale", {},
              [this] { readBankRates(); });
  optZiua_ = named(new QCheckBox("Din ziua cursului"), "optZiua",
                   "Cursul din fisier este valabil din ziua lui; altfel din ziua urmatoare");
  optZiua_->setChecked(settings::look(kFromItsDay).toBool());
  connect(optZiua_, &QCheckBox::toggled, this, [](bool isOn) { settings::setLook(kFromItsDay, isOn); });
  auto* cmdCautaCurs = command("cmdCautaCurs", "Cautare", "Cautare", "search", [this] { findRate(); });
  setKeys(cmdAdauga, [this] {
    removeCurrent("Sunteti sigur ca doriti sa stergeti valuta cu codul : %1 ?", removeCurrency);
  });
  auto* all = new QVBoxLayout(this);
  all->addLayout(lists, 1);
  all->addLayout(frames);
  all->addWidget(optZiua_, 0, Qt::AlignRight);
  all->addLayout(commandRow({cmdAdauga, cmdCautaCurs, cmdCursBNR, exitCommand()}));
  optValuta_->setChecked(true);
  finish(card().control("COD"));
  startNew();
}

QWidget* frmValute::currencyFrame() {
  QGroupBox* frame = frameOf(optValuta_, "fraValuta");
  auto* rows = new QFormLayout(frame);
  rows->addRow("Cod", card().add("COD", makeTextBox("txtCodValuta", kCodeLength,
                                                    "Cod Valuta, maxim 3 caractere alfanumerice",
                                                    KeyFilter::NoQuote)));
  rows->addRow("Denumire", card().add("TITLU", makeTextBox("txtDenumireValuta", kNameLength,
                                                           "Denumire Valuta, maxim 30 caractere")));
  return frame;
}

QWidget* frmValute::rateFrame() {
  QGroupBox* frame = frameOf(optCurs_, "fraCurs");
  auto* rows = new QFormLayout(frame);
  lblValuta_ = named(new QLabel, "lblValuta");
  auto* dteDataCurs = named(new DateBox, "dteDataCurs");
  dteDataCurs->setDisplayFormat("dd/MM/yyyy");
  rows->addRow("Valuta", lblValuta_);
  rows->addRow("Data", card().add("DATA", dteDataCurs));
  rows->addRow("Curs", card().add("CURS", named(new NumberBox(kRateDecimals), "txtCurs")));
  return frame;
}

QLayout* frmValute::rateList() {
  cboNumarCursuri_ = named(new QComboBox, "cboNumarCursuri");
  for (const int count : {5, 10, 20, 30, 50, 100}) cboNumarCursuri_->addItem(QString::number(count), count);
  cboNumarCursuri_->addItem("Toate");
  connect(cboNumarCursuri_, &QComboBox::currentIndexChanged, this,
          [this] { guarded("frmValute", "cboNumarCursuri_Change", [this] { showRates(); }); });
  grdCursValuta_ = new TDBGrid("grdCursValuta");
  grdCursValuta_->setColumns({{"COD", "COD", CellFormat::Text, 6},
                              {"DATA", "DATA", CellFormat::Date, 12},
                              {"CURS", "CURS", CellFormat::Number, 12, kRateDecimals}});
  grdCursValuta_->setEmptyText("Nu exista cursuri. Alegeti Curs, completati cursul, apoi apasati Adaugare.");
  auto* label = new QLabel("Cursuri afisate");
  label->setBuddy(cboNumarCursuri_);
  auto* head = new QHBoxLayout;
  head->addWidget(label);
  head->addWidget(cboNumarCursuri_);
  head->addStretch();
  auto* column = new QVBoxLayout;
  column->addLayout(head);
  column->addWidget(grdCursValuta_, 1);
  return column;
}

void frmValute::showRecord(const Row* record) {
  ListForm::showRecord(record);
  lblValuta_->setText(record ? record->text("COD") : QString());
  showRates();
}

void frmValute::showRates() {
  const QVariant count = cboNumarCursuri_->currentData();
  grdCursValuta_->setRecordset(
      newestRates(lblValuta_->text(), count.isNull() ? std::optional<int>() : count.toInt()));
}

void frmValute::findRate() {
  const QDate day = card().typed().date("DATA");
  grdCursValuta_->setRecordset(ratesOf(lblValuta_->text(), day));
  const bool found = grdCursValuta_->rows().size() > 0;
  say(found ? QString()
            : QStringLiteral("Nu exista curs %1 la data %2").arg(lblValuta_->text(), formatDate(day)));
}

void frmValute::readBankRates() {
  const QString path = askFile(this, "Cursuri", "Cursuri (*.xml *.XML);;Toate (*)");
  if (path.isEmpty()) return;
  QStringList currencies;
  for (int row = 0; row < list()->rows().size(); ++row)
    currencies.append(list()->rows().row(row).text("COD"));
  const std::vector<BankRate> rates =
      bankRates(fileContent(path, kLargestXml), currencies, optZiua_->isChecked());
  QStringList lines;
  for (const auto& each : compareRates(rates).different)
    lines.append(QStringLiteral("%1 din %2: %3 se schimba in %4")
                     .arg(each.rate.currency, formatDate(each.rate.date), editNumber(each.stored),
                          editNumber(each.rate.rate)));
  const qsizetype more = lines.size() - kMostListed;
  if (more > 0) lines = lines.mid(0, kMostListed) + QStringList(QStringLiteral("si inca %1").arg(more));
  const bool change =
      !lines.isEmpty() && confirmed(QStringLiteral("Exista cursuri diferite. Le schimbati?\r\n") +
                                        lines.join(QStringLiteral("\r\n")),
                                    windowTitle());
  const int stored = storeRates(rates, change);
  showRates();
  say(QStringLiteral("Cursuri salvate: %1").arg(stored));
}

void frmValute::add() {
  const Row typed = card().typed();
  if (optCurs_->isChecked()) {
    enterRate(lblValuta_->text(), typed);
    showRates();
    // The day is kept for the next currency.
    static_cast<NumberBox*>(card().control("CURS"))->setTyped({});
    card().settle();
    return focusField("CURS");
  }
  addCurrency(typed);
  showAdded(typed.text("COD"));
}

}  // namespace velmar
