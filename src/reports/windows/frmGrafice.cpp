#include "reports/windows/frmGrafice.h"

#include <QCheckBox>
#include <QDir>
#include <QFormLayout>
#include <QGroupBox>
#include <QPainter>
#include <QPushButton>
#include <QSplitter>

#include "config/Lists.h"
#include "config/Session.h"
#include "config/windows/ComboFill.h"
#include "store/Database.h"
#include "store/windows/LongRead.h"
#include "store/windows/TDBGrid.h"
#include "util/Errors.h"
#include "util/Messages.h"
#include "util/windows/Controls.h"
#include "util/windows/DateBox.h"
#include "util/windows/Entry.h"
#include "util/windows/Forms.h"
#include "util/windows/PrintOutput.h"
#include "util/windows/SaveName.h"
#include "util/windows/SearchCombo.h"

namespace velmar {

namespace {

constexpr int kAccountWidth = 34;  // characters
constexpr int kPictureScale = 2;
constexpr QSize kSheet{1108, 760};  // of a picture and a printed chart: a landscape A4 page

const QStringList kShapes{
    "Bare 3D",  "Bare 2D",  "Linii 3D",      "Linii 2D",      "Suprafata 3D",         "Suprafata 2D",
    "Scara 3D", "Scara 2D", "Combinatie 3D", "Combinatie 2D", "Diagrama circulara 2D"};

// One landscape page.
class ChartPrint : public PrintJob {
 public:
  explicit ChartPrint(const ChartView& chart) : chart_(chart.inSize(kSheet)) {}

  QString name() const override { return QStringLiteral("Grafic"); }
  QPageLayout pageLayout() const override {
    return {QPageSize(QPageSize::A4), QPageLayout::Landscape, QMarginsF(10, 10, 10, 10),
            QPageLayout::Millimeter};
  }
  int pageCount() const override { return 1; }
  void paintPage(QPainter& painter, int) const override {
    QRectF body = pageLayout().paintRect(QPageLayout::Point);
    body = {body.topLeft() * kTwipsPerPoint, body.size() * kTwipsPerPoint};
    chart_->render(&painter, body, {{0, 0}, kSheet}, Qt::KeepAspectRatio);
  }
  QString pageText(int) const override { return chart_->text(); }

 private:
  std::unique_ptr<ChartView> chart_;
};

}  // namespace

frmGrafice::frmGrafice(QWidget* parent)
    : QDialog(parent),
      MSChart_(new ChartView("MSChart")),
      MSChartPie_(new ChartView("MSChartPie")),
      DataGrid_(new TDBGrid("DataGrid")) {
  setObjectName("frmGrafice");
  setWindowTitle("Grafice");
  MSChartPie_->hide();
  DataGrid_->setEmptyText("Alegeti un cont si apasati Arata.");
  auto* charts = new QWidget;
  auto* chartRows = new QVBoxLayout(charts);
  chartRows->setContentsMargins(0, 0, 0, 0);
  chartRows->addWidget(MSChart_);
  chartRows->addWidget(MSChartPie_);
  auto* shown = new QSplitter(Qt::Vertical);
  shown->setChildrenCollapsible(false);
  shown->addWidget(charts);
  shown->addWidget(DataGrid_);
  shown->setStretchFactor(0, 1);
  shown->setSizes({460, 160});
  auto* all = new QHBoxLayout(this);
  all->addWidget(choices());
  all->addWidget(shown, 1);
  giveMnemonics(this);
  resize(1150, 640);
}

QWidget* frmGrafice::choices() {
  cmbMod_ = named(new QComboBox, "cmbMod",
                  "Selectati Evolutie cont,  Repartitie clasa, Comparativ Cheltuieli/Venituri");
  cmbMod_->addItems(chartKinds());
  cmbTip_ = named(new QComboBox, "cmbTip",
                  "Selectati forma de reprezentare a graficului: 2D/3D, bara, linie, diagrama circulara. ");
  cmbTip_->addItems(kShapes);
  TextValoare_ = named(new NumberBox(-1), "TextValoare", "Alegeti o valoare minima");
  TextValoare_->setNumber(0);
  requireNumberWhenLeft(TextValoare_);
  CheckProcent_ = named(new QCheckBox(" Arata procente"), "CheckProcent",
                        "Afiseaza procente pe diagrama circulara, sau nu");
  DTPDeLa_ = named(new DateBox, "DTPDeLa");
  DTPLa_ = named(new DateBox, "DTPLa");
  DTPDeLa_->setDate(session().DataIN);
  DTPLa_->setDate(session().DataSN);
  cboCont_ = new SearchCombo("cboCont",
                             "Selectati un cont pentru evolutie cont, sau o clasa pentru repartitie pe clase",
                             kAccountWidth);
  guarded(objectName(), "Form_Load", [this] {
    std::vector<ListEntry> accounts;
    for (const Row& row : OpenRs("SELECT DISTINCT CONT, TITLU FROM kt_pc ORDER BY CONT"))
      accounts.push_back({row.text("CONT") + " - " + row.text("TITLU"), row.text("CONT")});
    LegaCombo(*cboCont_, accounts);
  });
  cboCont_->clearEditText();

  auto* column = new QWidget;
  auto* rows = new QVBoxLayout(column);
  rows->setContentsMargins(0, 0, 0, 0);
  const auto frame = [rows](const QString& caption, const QString& name) {
    auto* box = named(new QGroupBox(caption), name);
    rows->addWidget(box);
    return new QFormLayout(box);
  };
  frame("Tip grafic", "frmMod")->addRow(cmbMod_);
  QFormLayout* form = frame("Mod de prezentare grafic", "frmTip");
  form->addRow(cmbTip_);
  form->addRow(" Valoare minima", TextValoare_);
  form->addRow(CheckProcent_);
  QFormLayout* period = frame("Perioada", "frmPerioada");
  period->addRow("De la", DTPDeLa_);
  period->addRow(" la", DTPLa_);
  frame("Cont", "frmCont")->addRow(cboCont_);
  rows->addStretch();
  const auto add = [this, rows](const QString& name, const QString& caption, const QString& toolTip,
                                const std::function<void()>& work) {
    QPushButton* button = makeButton(name, caption, toolTip);
    connect(button, &QPushButton::clicked, this,
            [this, name, work] { run(name + QStringLiteral("_Click"), work); });
    rows->addWidget(button);
    return button;
  };
  add("cmdArata", "Arata", "Deseneaza graficul", [this] { draw(); })->setDefault(true);
  add("cmdPrint", "Tiparire", "Tipareste graficul", [this] { print(); })->setAutoDefault(false);
  add("cmdSalvare", "Salvare", "Salveaza graficul ca imagine .png", [this] {
    savePicture();
  })->setAutoDefault(false);
  QPushButton* exit = makeButton("CommandButton1", "Iesire", "Inchidere fereastra", "close");
  exit->setAutoDefault(false);
  setUpExitButton(exit, this);
  rows->addWidget(exit);
  return column;
}

void frmGrafice::run(const QString& name, const std::function<void()>& work) {
  if (!entriesAccepted(this)) return;
  guarded(objectName(), name, [&] {
    try {
      work();
    } catch (const RuleError& rule) {
      Mesaj(rule.text());
      if (rule.field() == QStringLiteral("CONT")) cboCont_->setFocus();
    }
  });
}

void frmGrafice::draw() {
  if (TextValoare_->typed().trimmed().isEmpty()) TextValoare_->setNumber(0);
  DTPDeLa_->takeTyped();
  DTPLa_->takeTyped();
  cboCont_->settle();
  ChartChoice choice{static_cast<ChartKind>(cmbMod_->currentIndex()), cboCont_->choice().toString(),
                     DTPDeLa_->date(), DTPLa_->date(), TextValoare_->number().value_or(0)};
  // A class that the plan does not have may be typed.
  if (choice.account.isEmpty())
    choice.account = cboCont_->currentText().section(QStringLiteral(" - "), 0, 0).trimmed();
  const Hourglass wait;
  ChartData figures;
  const QString account = cboCont_->currentText();
  readLong(windowTitle(), this, [&] { figures = chartData(choice, account); });
  show(figures);
}

void frmGrafice::show(const ChartData& figures) {
  constexpr int kCircle = 10;
  const int form = cmbTip_->currentIndex();
  ChartView* chart = figures.isShares ? MSChartPie_ : MSChart_;
  (figures.isShares ? MSChart_ : MSChartPie_)->hide();
  chart->showData(figures, {static_cast<ChartShape>(form / 2), form != kCircle && form % 2 == 0,
                            CheckProcent_->isChecked()});
  chart->show();
  QList<GridColumn> columns{{"Eticheta", "Eticheta", CellFormat::Text, 30}};
  for (const QString& field : figures.rows.columns().mid(1)) {
    const qsizetype series = figures.fields.indexOf(field);
    columns.append({field, series < 0 ? field.toUpper() : figures.series[series],
                    series < 0 ? CellFormat::Text : CellFormat::Number, series < 0 ? 12 : 16});
  }
  DataGrid_->setColumns(columns);
  DataGrid_->setRecordset(figures.rows);
}

ChartView* frmGrafice::shownChart() const {
  ChartView* chart = MSChartPie_->isVisible() ? MSChartPie_ : MSChart_;
  if (chart->text().isEmpty()) throw RuleError(QStringLiteral("Nu exista date pentru trasare grafic! "));
  return chart;
}

void frmGrafice::print() {
  ChartPrint job(*shownChart());
  printAndPreview(job, PrintWay::SetUpAndPreview, this);
}

void frmGrafice::savePicture() {
  ChartView* chart = shownChart();
  const QString path =
      askSaveName(this, "Salvare", QDir::home().filePath("Grafic.png"), "Imagini (*.png)",
                  [](const QString& name, const QString& /*filter*/) { return withEnding(name, ".png"); });
  if (path.isEmpty()) return;
  QPixmap picture(kSheet * kPictureScale);
  picture.fill(Qt::white);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  chart->inSize(kSheet)->render(&painter, picture.rect(), {{0, 0}, kSheet});
  painter.end();
  if (!picture.save(path, "PNG")) throw RuleError(QStringLiteral("Fisierul %1 nu poate fi scris").arg(path));
}

}  // namespace velmar
