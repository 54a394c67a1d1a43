#include "einvoice/windows/frmEFactura.h"

#include <QBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QShortcut>
#include <QSplitter>

#include "documents/EInvoiceState.h"
#include "store/DataChanges.h"
#include "store/windows/ListForm.h"
#include "store/windows/TDBGrid.h"
#include "store/windows/TDBGridListare.h"
#include "util/Clock.h"
#include "util/Errors.h"
#include "util/FileContent.h"
#include "util/Messages.h"
#include "util/windows/Controls.h"
#include "util/windows/DateBox.h"
#include "util/windows/Entry.h"
#include "util/windows/FileDialog.h"
#include "util/windows/Forms.h"
#include "util/windows/StatusText.h"
#include "util/windows/WindowHost.h"
#include "util/windows/WorkProgress.h"
#include "util/ZipText.h"

namespace velmar {

namespace {

const QString kForm = QStringLiteral("frmEFactura");
constexpr int kIndexLength = 30;

// What the state's system answered, a line each, with the rule that a line names.
std::vector<EFault> answered(const QString& messages) {
  static const QRegularExpression rule(QStringLiteral("\\b(BR-[A-Z0-9]+(?:-[A-Z0-9]+)*)"));
  std::vector<EFault> faults;
  for (const QString& line : messages.split(u'\n', Qt::SkipEmptyParts))
    faults.push_back({rule.match(line).captured(1), line, {}, {}, {}});
  return faults;
}

}  // namespace

frmEFactura::frmEFactura(QWidget* parent)
    : QWidget(parent),
      DTPickerdela_(named(new DateBox, "DTPickerdela")),
      DTPickerla_(named(new DateBox, "DTPickerla")),
      TDBGrid1_(new TDBGrid("TDBGrid1")),
      TDBGrid2_(new TDBGrid("TDBGrid2")),
      txtIndex_(
          makeTextBox("txtIndex", kIndexLength, "Indexul de incarcare dat de sistem", KeyFilter::NoBlank)),
      lblStare_(new StatusText("lblStare")) {
  setObjectName(kForm);
  setWindowTitle("e-Factura");
  TDBGrid1_->setColumns({{"DOCUMENT", "Document", CellFormat::Text, 14},
                         {"DATADOC", "Data", CellFormat::Date, 11},
                         {"NUME", "Client", CellFormat::Text, 40},
                         {"TOTAL", "Total", CellFormat::Number, 14},
                         {"STARE", "Stare", CellFormat::Text, 14},
                         {"INDEX_INCARCARE", "Index incarcare", CellFormat::Text, 18}});
  TDBGrid1_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  TDBGrid1_->setKeptInView("INDEX_INCARCARE", {"NUME"});
  TDBGrid1_->setSortable();
  TDBGrid1_->setHighlighted([](const Row& row) { return row.flag("INTARZIAT"); });
  TDBGrid1_->setEmptyText("In aceasta perioada nu sunt facturi validate.");
  TDBGrid2_->setColumns({{"REGULA", "Regula", CellFormat::Text, 14},
                         {"TEXT", "Greseala", CellFormat::Text, 80},
                         {"CAMP", "Camp", CellFormat::Text, 18}});
  TDBGrid2_->setEmptyText("Factura curenta nu are greseli.");
  connect(TDBGrid1_, &TDBGrid::currentRecordChanged, this,
          [this] { guarded(kForm, "TDBGrid1_RowColChange", [this] { showCurrent(); }); });
  auto* lists = new QSplitter(Qt::Vertical);
  lists->addWidget(TDBGrid1_);
  lists->addWidget(TDBGrid2_);
  lists->setStretchFactor(0, 3);
  lists->setStretchFactor(1, 1);
  lists->setChildrenCollapsible(false);
  auto* cmdCorecteaza = makeCommand(this, "cmdCorecteaza", "Corecteaza", "Deschide campul cu greseala aleasa",
                                    "settings", [this] { mend(); });
  connect(TDBGrid2_, &QAbstractItemView::doubleClicked, cmdCorecteaza, &QPushButton::click);
  auto* listing = new TDBGridListare("TDBGridListare");
  listing->setTDBGrid(TDBGrid1_);
  listing->setForm(this);
  auto* cmdIesire = makeButton("cmdIesire", "Iesire", "Inchidere fereastra", "close");
  setUpExitButton(cmdIesire, this);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  for (QWidget* each : std::initializer_list<QWidget*>{
           makeCommand(this, "cmdVerifica", "Verifica", "Verifica facturile alese", "search",
                       [this] { check(); }),
           cmdCorecteaza,
           makeCommand(this, "cmdScrie", "Scrie", "Scrie fisierele facturilor alese intr-un folder", "save",
                       [this] { write(); }),
           makeCommand(this, "cmdReface", "Reface", "Face din nou fisierul facturii curente", "new",
                       [this] { remake(); }),
           listing, cmdIesire})
    buttons->addWidget(each);
  auto* all = new QVBoxLayout(this);
  all->addLayout(periodRow());
  all->addWidget(lists, 1);
  all->addWidget(lblStare_);
  all->addLayout(sendingRow());
  all->addLayout(buttons);
  setUpKeys(this, nullptr, cmdIesire);
  giveMnemonics(this);
  auto* again = new QShortcut(Qt::Key_F5, this);
  again->setContext(Qt::WidgetWithChildrenShortcut);
  connect(again, &QShortcut::activated, this, [this] { guarded(kForm, "Form_Load", [this] { read(); }); });
  connect(
      &dataChanges(), &DataChanges::written, this,
      [this] {
        if (isVisible()) guarded(kForm, "Form_Load", [this] { read(); });
      },
      Qt::QueuedConnection);
  TDBGrid1_->setFocus();
}

QSize frmEFactura::sizeHint() const {
  return {fontMetrics().averageCharWidth() * 150, fontMetrics().height() * 32};
}

QLayout* frmEFactura::periodRow() {
  const QDate today = clock::today();
  DTPickerdela_->setDate(QDate(today.year(), today.month(), 1).addMonths(-1));
  DTPickerla_->setDate(today);
  auto* row = new QHBoxLayout;
  const std::pair<QString, DateBox*> boxes[] = {{"De la", DTPickerdela_}, {"pana la", DTPickerla_}};
  for (const auto& [caption, box] : boxes) {
    auto* label = new QLabel(caption);
    label->setBuddy(box);
    row->addWidget(label);
    row->addWidget(box);
    connect(box, &QDateEdit::dateChanged, this,
            [this] { guarded(kForm, "DTPicker_Change", [this] { read(); }); });
  }
  row->addStretch();
  return row;
}

QLayout* frmEFactura::sendingRow() {
  auto* row = new QHBoxLayout;
  auto* label = new QLabel("Index incarcare");
  label->setBuddy(txtIndex_);
  row->addWidget(label);
  row->addWidget(txtIndex_);
  row->addWidget(makeCommand(this, "cmdTrimisa", "Trimisa", "Factura curenta a fost trimisa cu acest index",
                             {}, [this] { markAsSent(); }));
  row->addWidget(makeCommand(this, "cmdRaspuns", "Raspuns", "Citeste raspunsul sistemului, zip sau XML", {},
                             [this] { readAnswers(); }));
  row->addStretch();
  return row;
}

void frmEFactura::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  guarded(kForm, "Form_Load", [this] { read(); });
}

void frmEFactura::read() {
  const QString id = current();
  TDBGrid1_->setRecordset(eInvoices(DTPickerdela_->date(), DTPickerla_->date(), clock::today()));
  if (!id.isEmpty()) TDBGrid1_->selectRecord("ID", id);
  showCurrent();
}

QString frmEFactura::current() const {
  const Row* row = TDBGrid1_->currentRecord();
  return row ? row->text("ID") : QString();
}

QStringList frmEFactura::selected() const {
  QStringList documents;
  for (const int place : TDBGrid1_->selectedPlaces())
    documents.append(TDBGrid1_->rows().row(place).text("ID"));
  if (documents.isEmpty() && !current().isEmpty()) documents.append(current());
  if (documents.isEmpty()) throw RuleError("Va rog selectati o factura");
  return documents;
}

void frmEFactura::showCurrent() {
  const Row* row = TDBGrid1_->currentRecord();
  if (!row) {
    txtIndex_->clear();
    return showFaults({});
  }
  txtIndex_->setText(row->text("INDEX_INCARCARE"));
  const QString state = row->text("STARE");
  if (state == einvoice::kSent || state == einvoice::kAccepted) return showFaults({});
  std::vector<EFault> faults = answered(row->text("MESAJ"));
  for (EFault& fault : checkEInvoice(row->text("ID"))) faults.push_back(std::move(fault));
  showFaults(faults);
}

void frmEFactura::showFaults(const std::vector<EFault>& faults) {
  faults_ = faults;
  Recordset shown(std::make_shared<Columns>(QStringList{"REGULA", "TEXT", "CAMP"}));
  for (const EFault& fault : faults) shown.append({fault.rule, fault.text, fault.field});
  TDBGrid2_->setRecordset(std::move(shown));
}

void frmEFactura::check() {
  const QStringList documents = selected();
  const Hourglass hourglass;
  WorkProgress progress(windowTitle(), this);
  QStringList faulty;
  for (qsizetype i = 0; i < documents.size(); ++i) {
    progress.show(static_cast<int>(i), static_cast<int>(documents.size()));
    if (!checkEInvoice(documents[i]).empty()) faulty.append(documents[i]);
  }
  showCurrent();
  lblStare_->setText(faulty.isEmpty()
                         ? QStringLiteral("Verificate: %1, fara greseli").arg(documents.size())
                         : QStringLiteral("Verificate: %1, cu greseli: %2")
                               .arg(QString::number(documents.size()), faulty.join(QStringLiteral(", "))));
}

void frmEFactura::mend() {
  const int place = TDBGrid2_->currentIndex().isValid() ? TDBGrid2_->currentIndex().row() : 0;
  if (static_cast<size_t>(place) >= faults_.size()) throw RuleError("Va rog selectati o greseala");
  const EFault fault = faults_[static_cast<size_t>(place)];
  if (fault.window.isEmpty() || !windowHost())
    throw RuleError(
        "Aceasta greseala se corecteaza in document: stergeti-l din documente si validati-l din nou.");
  QWidget* window = windowHost()->showOffered(fault.window);
  if (!window) return;
  if (auto* list = qobject_cast<ListForm*>(window))
    list->openRecord(fault.key, fault.field);
  else
    goToControl(window, fault.field);
}

void frmEFactura::write() {
  const QStringList documents = selected();
  const QString folder = askFolder(this, "Folderul fisierelor e-Factura");
  if (folder.isEmpty()) return;
  WrittenInvoices result;
  {
    const Hourglass hourglass;
    WorkProgress progress(windowTitle(), this);
    result = writeEInvoices(documents, folder, [&progress](int done, int of) { progress.show(done, of); });
  }
  read();
  lblStare_->setText(
      QStringLiteral("Fisiere scrise: %1").arg(result.written) +
      (result.faulty.isEmpty()
           ? QString()
           : QStringLiteral("; cu greseli, nescrise: %1").arg(result.faulty.join(QStringLiteral(", ")))));
}

void frmEFactura::remake() {
  const QString document = selected().first();
  if (Mesaj(QStringLiteral("Refaceti fisierul facturii %1? Cel vechi se pastreaza.").arg(document),
            kQuestion + kYesNo, windowTitle()) != kResultYes)
    return;
  remakeEInvoice(document);
  read();
  lblStare_->setText(QStringLiteral("Fisierul facturii %1 a fost refacut. Apasati Scrie.").arg(document));
}

void frmEFactura::markAsSent() {
  if (current().isEmpty()) throw RuleError("Va rog selectati o factura");
  try {
    markSent(current(), txtIndex_->text().trimmed());
  } catch (const RuleError& rule) {
    Mesaj(rule.text(), rule.icon(), rule.title());
    if (!rule.field().isEmpty()) txtIndex_->setFocus();
    return;
  }
  read();
  lblStare_->setText("Factura a fost marcata ca trimisa.");
}

void frmEFactura::readAnswers() {
  const QStringList paths =
      askFiles(this, "Raspunsul sistemului e-Factura", "Raspunsuri (*.zip *.xml *.ZIP *.XML);;Toate (*)");
  QStringList texts;
  for (const QString& path : paths) {
    try {
      texts.append(readAnswer(fileContent(path, kLargestArchive), current()).text);
    } catch (const RuleError& rule) {  // of this file; the others are read
      Mesaj(rule.text(), rule.icon(), rule.title());
    }
  }
  if (texts.isEmpty()) return;
  read();
  lblStare_->setText(texts.join(QStringLiteral(" ")));
}

}  // namespace velmar
