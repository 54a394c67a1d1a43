#include "einvoice/windows/frmEFacturaPrimite.h"

#include <QBoxLayout>
#include <QPushButton>
#include <QShortcut>

#include "einvoice/PurchaseFiles.h"
#include "einvoice/windows/frmEFacturaAfisare.h"
#include "einvoice/windows/frmEFacturaPreluare.h"
#include "store/DataChanges.h"
#include "store/windows/TDBGrid.h"
#include "store/windows/TDBGridListare.h"
#include "util/Errors.h"
#include "util/windows/Controls.h"
#include "util/windows/Entry.h"
#include "util/windows/FileDialog.h"
#include "util/windows/Forms.h"
#include "util/windows/StatusText.h"
#include "util/windows/WorkProgress.h"

namespace velmar {

namespace {

const QString kForm = QStringLiteral("frmEFacturaPrimite");

}  // namespace

frmEFacturaPrimite::frmEFacturaPrimite(QWidget* parent)
    : QWidget(parent), TDBGrid1_(new TDBGrid("TDBGrid1")), lblStare_(new StatusText("lblStare")) {
  setObjectName(kForm);
  setWindowTitle("e-Facturi primite");
  TDBGrid1_->setColumns({{"FISIER", "Fisier", CellFormat::Text, 18},
                         {"FURNIZOR", "Furnizor", CellFormat::Text, 24},
                         {"NUMAR", "Numar", CellFormat::Text, 14},
                         {"DATA", "Data", CellFormat::Date, 11},
                         {"TOTAL", "Total", CellFormat::Number, 13},
                         {"STARE", "Stare", CellFormat::Text, 12},
                         {"LIPSESTE", "Lipseste", CellFormat::Text, 70}});
  TDBGrid1_->setKeptInView("LIPSESTE", {"FISIER", "FURNIZOR", "LIPSESTE"});
  TDBGrid1_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  TDBGrid1_->setSortable();
  TDBGrid1_->setEmptyText(
      "Nu s-a citit nimic. Apasati Fisiere sau Folder si alegeti facturile primite, XML sau zip.");
  auto* cmdDeschide =
      makeCommand(this, "cmdDeschide", "Deschide", "Factura si ciorna ei", "search", [this] { open(); });
  connect(TDBGrid1_, &QAbstractItemView::doubleClicked, cmdDeschide, &QPushButton::click);
  auto* listing = new TDBGridListare("TDBGridListare");
  listing->setTDBGrid(TDBGrid1_);
  listing->setForm(this);
  auto* cmdIesire = makeButton("cmdIesire", "Iesire", "Inchidere fereastra", "close");
  setUpExitButton(cmdIesire, this);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  for (QWidget* each : std::initializer_list<QWidget*>{
           makeCommand(this, "cmdFisiere", "Fisiere", "Citeste fisiere XML sau zip", {},
                       [this] { readFiles(); }),
           makeCommand(this, "cmdFolder", "Folder", "Citeste fisierele XML si zip ale unui folder", {},
                       [this] { readFolder(); }),
           cmdDeschide,
           makeCommand(this, "cmdPreia", "Preia", "Face ciorne de facturi furnizor din facturile alese",
                       "invoice-in", [this] { takeOverSelected(); }),
           makeCommand(this, "cmdAfisare", "Afisare", "Toate campurile fisierului", {},
                       [this] { showFields(); }),
           listing, cmdIesire})
    buttons->addWidget(each);
  auto* all = new QVBoxLayout(this);
  all->addWidget(TDBGrid1_, 1);
  all->addWidget(lblStare_);
  all->addLayout(buttons);
  setUpKeys(this, nullptr, cmdIesire);
  giveMnemonics(this);
  for (const int key : {Qt::Key_Return, Qt::Key_Enter}) {
    auto* shortcut = new QShortcut(QKeySequence(key), TDBGrid1_);
    shortcut->setContext(Qt::WidgetShortcut);
    connect(shortcut, &QShortcut::activated, cmdDeschide, &QPushButton::click);
  }
  // Also after a cancelled command, which keeps what is done.
  connect(
      &dataChanges(), &DataChanges::written, this,
      [this] {
        if (isVisible()) guarded(kForm, "Form_Load", [this] { show(); });
      },
      Qt::QueuedConnection);
  TDBGrid1_->setFocus();
}

QSize frmEFacturaPrimite::sizeHint() const {
  return {fontMetrics().averageCharWidth() * 190, fontMetrics().height() * 26};
}

void frmEFacturaPrimite::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  guarded(kForm, "Form_Load", [this] { show(); });
}

void frmEFacturaPrimite::show() {
  const Row* row = TDBGrid1_->currentRecord();
  const QString id = row ? row->text("ID") : QString();
  TDBGrid1_->setRecordset(lastPurchases());
  if (!id.isEmpty()) TDBGrid1_->selectRecord("ID", id);
}

const Row& frmEFacturaPrimite::current() const {
  const Row* row = TDBGrid1_->currentRecord();
  if (!row) throw RuleError("Va rog selectati o factura");
  return *row;
}

void frmEFacturaPrimite::take(const QStringList& paths) {
  if (paths.isEmpty()) return;
  {
    const Hourglass hourglass;
    WorkProgress progress(windowTitle(), this);
    readPurchases(paths, [&progress](int done, int of) { progress.show(done, of); });
  }
  show();
  lblStare_->setText(QStringLiteral("Facturi citite: %1").arg(TDBGrid1_->rows().size()));
}

void frmEFacturaPrimite::readFiles() {
  take(askFiles(this, "e-Facturi primite", "Facturi (*.xml *.zip *.XML *.ZIP);;Toate (*)"));
}

void frmEFacturaPrimite::readFolder() {
  const QString folder = askFolder(this, "Folderul e-Facturilor primite");
  if (folder.isEmpty()) return;
  const QStringList paths = filesOf(folder);
  if (paths.isEmpty()) throw RuleError("Folderul nu are fisiere XML sau zip.");
  take(paths);
}

void frmEFacturaPrimite::open() {
  const qint64 id = current().integer("ID");
  frmEFacturaPreluare(id, this).exec();
  show();
  judgeIncomplete();  // which can be cancelled
  show();
}

// A supplier or an article that was made for one file may be what others lack.
void frmEFacturaPrimite::judgeIncomplete() {
  const Hourglass hourglass;
  WorkProgress progress(windowTitle(), this);
  PurchaseSource source;
  const RowSource& rows = TDBGrid1_->rows();
  for (int place = 0; place < rows.size(); ++place) {
    progress.show(place, rows.size());
    if (rows.row(place).text("STARE") == received::kIncomplete)
      judgeAgain(rows.row(place).integer("ID"), source);
  }
}

void frmEFacturaPrimite::takeOverSelected() {
  const QList<int> places = TDBGrid1_->selectedPlaces();
  current();  // throws without one
  std::vector<std::pair<qint64, QString>> files;
  for (const int place : places)
    files.emplace_back(TDBGrid1_->rows().row(place).integer("ID"),
                       TDBGrid1_->rows().row(place).text("STARE"));
  int taken = 0;
  QStringList left, remarks;
  {
    const Hourglass hourglass;
    WorkProgress progress(windowTitle(), this);
    PurchaseSource source;
    for (size_t i = 0; i < files.size(); ++i) {
      progress.show(static_cast<int>(i), static_cast<int>(files.size()));
      if (files[i].second == received::kTaken) continue;
      try {
        const Purchase purchase = storedPurchase(files[i].first, source);
        takeOver(purchase, source);
        ++taken;
        for (const QString& remark : remarksOn(purchase, source))
          remarks.append(QStringLiteral("%1: %2").arg(purchase.invoice.number, remark));
      } catch (const RuleError& reason) {
        left.append(reason.text());
        if (files[i].second != received::kRefused) judgeAgain(files[i].first, source);
      }
    }
  }
  show();
  QString done = QStringLiteral("Facturi preluate: %1").arg(taken);
  if (!left.isEmpty()) done += QStringLiteral(". Nepreluate: ") + left.join(QStringLiteral("; "));
  if (!remarks.isEmpty()) done += QStringLiteral(". De verificat: ") + remarks.join(QStringLiteral("; "));
  lblStare_->setText(done);
}

void frmEFacturaPrimite::showFields() { frmEFacturaAfisare(current().integer("ID"), this).exec(); }

}  // namespace velmar
