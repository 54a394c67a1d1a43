#include "shell/windows/frmPanou.h"

#include <QCheckBox>
#include <QEvent>
#include <QFormLayout>
#include <QGroupBox>
#include <QPushButton>
#include <QShortcut>

#include "documents/kinds/Kinds.h"
#include "einvoice/EInvoices.h"
#include "shell/Panel.h"
#include "shell/windows/MenuTable.h"
#include "store/DataChanges.h"
#include "store/windows/BrowserForm.h"
#include "store/windows/TDBGrid.h"
#include "util/Clock.h"
#include "util/NumberText.h"
#include "util/Settings.h"
#include "util/windows/Controls.h"
#include "util/windows/Entry.h"
#include "util/windows/Forms.h"
#include "util/windows/WindowHost.h"

namespace velmar {

namespace {

const QString kAtStart = QStringLiteral("frmPanou/chkLaPornire");

// Shares of the width: the drafts have short columns.
constexpr int kDraftsPart = 2;
constexpr int kStockPart = 3;

// The menu opens customer invoices by the choice of what they are made from.
QString menuWindowOf(const QString& window) {
  return window == documentKind(KindId::CustomerInvoice).window ? QStringLiteral("frmGrilaFC2") : window;
}

// The caption of the window in the menu; its name when the menu does not have it.
QString captionOf(const QString& window) {
  // The menu has two entries "Factura".
  if (window == QStringLiteral("frmFacturaAudio")) return QStringLiteral("Factura Audio");
  for (const MenuEntry& entry : menuTable())
    if (entry.window == window) return QString(entry.caption).remove(u'&');
  return window;
}

void openWindow(const QString& window) {
  if (windowHost()) windowHost()->showOffered(window);
}

// The documents of these days.
void openDocuments(const QDate& from, const QDate& to) {
  if (!windowHost()) return;
  if (auto* browser = qobject_cast<BrowserForm*>(windowHost()->showOffered("frmLDoc")))
    browser->showOnly("DATADOC", formatDate(from), from == to ? QString() : formatDate(to));
}

}  // namespace

frmPanou::frmPanou(QWidget* parent)
    : QWidget(parent),
      lblAzi_(named(new QLabel, "lblAzi")),
      lblLuna_(named(new QLabel, "lblLuna")),
      lblAcumSapte_(named(new QLabel, "lblAcumSapte")),
      lblEFactura_(named(new QLabel, "lblEFactura")),
      grdCiorne_(new TDBGrid("grdCiorne")),
      grdMinim_(new TDBGrid("grdMinim")),
      grdComenzi_(new TDBGrid("grdComenzi")) {
  setObjectName("frmPanou");
  setWindowTitle("Panou");
  grdCiorne_->setColumns({{"FEL", "Fel", CellFormat::Text, 6},
                          {"DENUMIRE", "Documente nevalidate", CellFormat::Text, 28},
                          {"NUMAR", "Numar", CellFormat::Integer, 8}});
  grdMinim_->setColumns({{"CODART", "Cod", CellFormat::Text, 14},
                         {"DENART", "Articol", CellFormat::Text, 30},
                         {"STOC", "Stoc", CellFormat::Number, 10, 3},
                         {"STOCMINIM", "Stoc minim", CellFormat::Number, 10, 3}});
  grdComenzi_->setColumns({{"NUMCOM", "Comanda", CellFormat::Text, 12},
                           {"NUME", "Client", CellFormat::Text, 30},
                           {"DATALIV", "Data livrarii", CellFormat::Date, 12},
                           {"RAMAS", "Valoare ramasa", CellFormat::Number, 14}});
  grdCiorne_->setEmptyText("Nu sunt documente nevalidate.");
  grdMinim_->setEmptyText("Niciun articol nu este sub stocul minim.");
  grdComenzi_->setEmptyText("Nicio comanda nu a intarziat.");
  auto* all = new QVBoxLayout(this);
  all->addWidget(salesFrame());
  auto* lists = new QHBoxLayout;
  lists->addWidget(listFrame("Ciorne", grdCiorne_, [this] { openDrafts(); }), kDraftsPart);
  lists->addWidget(listFrame("Stoc minim", grdMinim_, [] { openWindow("frmArticole"); }), kStockPart);
  all->addLayout(lists, 1);
  all->addWidget(listFrame("Comenzi intarziate", grdComenzi_,
                           [] { openWindow(documentKind(KindId::CustomerOrder).window); }),
                 1);
  auto* chkLaPornire =
      named(new QCheckBox("La pornire"), "chkLaPornire", "Arata panoul la deschiderea programului");
  chkLaPornire->setChecked(isWantedAtStart());
  connect(chkLaPornire, &QCheckBox::toggled, this, [](bool wanted) { settings::setLook(kAtStart, wanted); });
  QPushButton* cmdIesire = makeButton("cmdIesire", "Iesire", {}, "close");
  setUpExitButton(cmdIesire, this);
  auto* commands = new QHBoxLayout;
  commands->addWidget(chkLaPornire);
  commands->addStretch();
  commands->addWidget(cmdIesire);
  all->addLayout(commands);
  giveMnemonics(this);
  setUpKeys(this, nullptr, cmdIesire);
  connect(
      &dataChanges(), &DataChanges::written, this,
      [this] {
        if (isVisible()) read();
      },
      Qt::QueuedConnection);
}

bool frmPanou::isWantedAtStart() { return settings::look(kAtStart).toBool(); }

QWidget* frmPanou::salesFrame() {
  auto* frame = new QGroupBox("Vanzari cu TVA (lei)");
  auto* rows = new QFormLayout(frame);
  const auto add = [this, rows](const QString& caption, QLabel* figure, const std::function<void()>& opened) {
    auto* open = makeButton({}, "...", "Documentele");
    open->setAutoDefault(false);
    open->setMaximumWidth(fontMetrics().averageCharWidth() * 6);
    const auto show = [this, figure, opened] {
      guarded(objectName(), figure->objectName() + QStringLiteral("_Click"), opened);
    };
    connect(open, &QPushButton::clicked, this, show);
    clicked_[figure] = show;
    figure->setCursor(Qt::PointingHandCursor);
    figure->installEventFilter(this);
    figure->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    QFont font = figure->font();
    font.setBold(true);
    figure->setFont(font);
    auto* line = new QHBoxLayout;
    line->addWidget(figure, 1);
    line->addWidget(open);
    rows->addRow(caption, line);
  };
  const auto weekAgo = [] { return clock::today().addDays(-7); };
  const auto monthStart = [] { return QDate(clock::today().year(), clock::today().month(), 1); };
  add("Astazi", lblAzi_, [] { openDocuments(clock::today(), clock::today()); });
  add("Luna aceasta", lblLuna_, [monthStart] { openDocuments(monthStart(), clock::today()); });
  add("Acum sapte zile", lblAcumSapte_, [weekAgo] { openDocuments(weekAgo(), weekAgo()); });
  add("e-Facturi netrimise la termen", lblEFactura_, [] { openWindow("frmEFactura"); });
  return frame;
}

QWidget* frmPanou::listFrame(const QString& caption, TDBGrid* grid, const std::function<void()>& open) {
  auto* frame = new QGroupBox(caption);
  (new QVBoxLayout(frame))->addWidget(grid);
  const auto opened = [this, grid, open] {
    if (grid->currentRecord()) guarded(objectName(), grid->objectName() + "_DblClick", open);
  };
  connect(grid, &QAbstractItemView::doubleClicked, this, opened);
  for (const int key : {Qt::Key_Return, Qt::Key_Enter}) {
    auto* shortcut = new QShortcut(QKeySequence(key), grid);
    shortcut->setContext(Qt::WidgetShortcut);
    connect(shortcut, &QShortcut::activated, this, opened);
  }
  return frame;
}

void frmPanou::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  read();
}

// A figure is clicked like its button.
bool frmPanou::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::MouseButtonRelease && clicked_.contains(watched)) clicked_[watched]();
  return QWidget::eventFilter(watched, event);
}

void frmPanou::read() {
  guarded(objectName(), "Form_Load", [this] {
    const PanelSales sales = panelSales(clock::today());
    lblAzi_->setText(formatNumber(sales.today, 2));
    lblLuna_->setText(formatNumber(sales.month, 2));
    lblAcumSapte_->setText(formatNumber(sales.weekAgo, 2));
    const Recordset drafts = panelDrafts();
    Recordset shown(std::make_shared<Columns>(QStringList{"FEL", "DENUMIRE", "NUMAR", "FEREASTRA"}));
    for (const Row& row : drafts) {
      const QString window = menuWindowOf(row.text("FEREASTRA"));
      shown.append({row.value("FEL"), captionOf(window), row.value("NUMAR"), window});
    }
    grdCiorne_->setRecordset(std::move(shown));
    grdMinim_->setRecordset(panelShortages());
    grdComenzi_->setRecordset(panelLateOrders(clock::today()));
    lblEFactura_->setText(QString::number(lateEInvoices(clock::today())));
  });
}

void frmPanou::openDrafts() { openWindow(grdCiorne_->currentRecord()->text("FEREASTRA")); }

}  // namespace velmar
