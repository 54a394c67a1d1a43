#include "reports/windows/frmProiectare.h"

#include <algorithm>
#include <QApplication>
#include <QBoxLayout>
#include <QButtonGroup>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDir>
#include <QDoubleSpinBox>
#include <QFile>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QSplitter>
#include <QTabWidget>

#include "reports/Formula.h"
#include "reports/LayoutProperties.h"
#include "reports/windows/LayoutPage.h"
#include "reports/windows/LayoutText.h"
#include "reports/windows/NameList.h"
#include "reports/windows/PropertyGrid.h"
#include "reports/windows/ReportJob.h"
#include "reports/windows/ReportPreview.h"
#include "util/Errors.h"
#include "util/FileReason.h"
#include "util/Messages.h"
#include "util/windows/Controls.h"
#include "util/windows/Entry.h"
#include "util/windows/SaveName.h"
#include "util/windows/ZoomSteps.h"

namespace velmar {

using namespace layout;

namespace {

const QString kTitle = QStringLiteral("Proiectare raport");
const QString kDocument = QStringLiteral("document");
const QString kLine = QStringLiteral("linie");
const QString kReport = QStringLiteral("raport");
const QString kSums = QStringLiteral("suma");
const QString kFilter = QStringLiteral("Rapoarte (*.lst)");

constexpr int kPageWidth = 0;  // special entry among the zoom percentages
constexpr int kSelect = -1;    // tool for selecting parts
constexpr int kMostSteps = 500;
constexpr int kMostFaults = 300;  // listed at most
constexpr int kFaultRows = 5;     // visible without scrolling

// One step of the designer on the undo stack.
class EditCommand : public QUndoCommand {
 public:
  using Show = std::function<void(const State&)>;

  EditCommand(Edit edit, Show show) : edit_(std::move(edit)), show_(std::move(show)) { setText(edit_.text); }

  void undo() override { show_(edit_.before); }
  void redo() override { show_(edit_.after); }
  int id() const override { return edit_.joins.isEmpty() ? -1 : 1; }
  bool mergeWith(const QUndoCommand* next) override {
    return join(edit_, static_cast<const EditCommand*>(next)->edit_);
  }

 private:
  Edit edit_;
  Show show_;
};

ReportValues generalNames() {
  return {{QLatin1String(kPageName), LLTip::Number, {}},
          {QLatin1String(kPageCountName), LLTip::Number, {}},
          {QLatin1String(kLineName), LLTip::Number, {}}};
}

ReportValues sumNames(const Layout& layout) {
  ReportValues names;
  if (const layout::Table* table = layout.table())
    for (const Sum& sum : table->sums) names.push_back({sum.name, LLTip::Number, {}});
  return names;
}

QString damageText(const LayoutError& error) {
  return QStringLiteral("Linia %1, coloana %2: %3").arg(error.line()).arg(error.column()).arg(error.text());
}

// The property that Enter on a part edits.
QString mainProperty(const Layout& layout, const Part& part) {
  const std::vector<Property> properties = propertiesOf(layout, {part});
  for (const char* name : {"formula", "file", "role"})
    for (const Property& property : properties)
      if (property.name == QLatin1String(name)) return property.name;
  return properties.empty() ? QString() : properties.front().name;
}

}  // namespace

frmProiectare::frmProiectare(const ReportData& reportData, QWidget* parent)
    : QDialog(parent),
      data_(reportData),
      variables_(definedVariables(reportData)),
      fields_(definedFields(reportData)),
      general_(generalNames()) {
  setObjectName("frmProiectare");
  setWindowTitle(kTitle + QStringLiteral("[*]"));
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  stack_.setUndoLimit(kMostSteps);
  state_.layout = std::make_shared<Layout>();
  auto* middle = new QSplitter;
  middle->addWidget(namesPane());
  middle->addWidget(middlePane());
  lblAles_ = named(new QLabel, "lblAles");
  lblAles_->setWordWrap(true);
  grdProprietati_ = new PropertyGrid("frmProiectare");
  auto* right = new QWidget;
  auto* rightColumn = new QVBoxLayout(right);
  rightColumn->setContentsMargins(0, 0, 0, 0);
  rightColumn->addWidget(lblAles_);
  rightColumn->addWidget(grdProprietati_);
  middle->addWidget(right);
  middle->setStretchFactor(1, 1);
  const int character = fontMetrics().averageCharWidth();
  middle->setSizes({character * 38, character * 110, character * 46});
  lblFisier_ = named(new QLabel, "lblFisier");
  lblLoc_ = named(new QLabel, "lblLoc", "Locul mouse-ului, in milimetri");
  lblStare_ = named(new QLabel, "lblStare");
  auto* status = new QHBoxLayout;
  status->addWidget(lblFisier_);
  status->addStretch();
  status->addWidget(lblStare_);
  status->addStretch();
  status->addWidget(lblLoc_);
  auto* all = new QVBoxLayout(this);
  all->addWidget(drawingTools());
  all->addWidget(arrangingTools());
  all->addWidget(middle, 1);
  all->addLayout(status);
  connectPage();
  addShortcuts();
  giveMnemonics(this);
  connect(&stack_, &QUndoStack::indexChanged, this, [this] { showButtons(); });
  lstNume_->addNames(kDocument, variables_);
  lstNume_->addNames(kLine, fields_);
  lstNume_->addNames(kReport, general_);
  begin(std::make_shared<Layout>(), true);
  const QSize room = screen()->availableSize();
  resize(room.width() * 19 / 20, room.height() * 9 / 10);
  page_->setFocus();
}

// Controls and the undo stack emit signals during their destruction; the window must not receive them.
frmProiectare::~frmProiectare() {
  stack_.disconnect(this);
  for (QObject* child : findChildren<QObject*>()) child->disconnect(this);
}

// ---- Controls ----

QPushButton* frmProiectare::tool(const QString& name, const QString& caption, const QString& toolTip,
                                 const QString& picture, const std::function<void()>& action,
                                 const QKeySequence& key) {
  QPushButton* button = makeButton(name, caption, toolTip, picture);
  button->setFocusPolicy(Qt::TabFocus);  // a click must not take the keyboard focus from the page
  connect(button, &QPushButton::clicked, this,
          [this, name, action] { perform(name + QStringLiteral("_Click"), action); });
  if (!key.isEmpty())
    connect(new QShortcut(key, this), &QShortcut::activated, button, [button] { button->click(); });
  return button;
}

QWidget* frmProiectare::drawingTools() {
  struct DrawingTool {
    const char* name;
    const char* caption;
    const char* toolTip;
    const char* picture;
    int kind;
  };
  constexpr DrawingTool kTools[] = {
      {"cmdSelectie", "Alegere", "Alege si muta obiecte (Esc)", "choose", kSelect},
      {"cmdText", "Text", "Deseneaza un text", "draw-text", static_cast<int>(Kind::Text)},
      {"cmdLinie", "Linie", "Deseneaza o linie", "draw-line", static_cast<int>(Kind::Line)},
      {"cmdChenar", "Chenar", "Deseneaza un chenar", "draw-box", static_cast<int>(Kind::Box)},
      {"cmdImagine", "Imagine", "Deseneaza o imagine", "draw-picture", static_cast<int>(Kind::Picture)},
      {"cmdCodBare", "Cod de bare", "Deseneaza un cod de bare", "draw-barcode",
       static_cast<int>(Kind::BarCode)},
      {"cmdCurba", "Curba", "Deseneaza o curba peste linii", "draw-curve", static_cast<int>(Kind::Curve)},
      {"cmdTabel", "Tabel", "Deseneaza tabelul liniilor", "draw-table", static_cast<int>(Kind::Table)}};
  auto* pane = new QWidget;
  auto* row = new QHBoxLayout(pane);
  row->setContentsMargins(0, 0, 0, 0);
  tools_ = new QButtonGroup(this);
  for (const DrawingTool& each : kTools) {
    const int kind = each.kind;
    QPushButton* button =
        tool(each.name, each.caption, each.toolTip, each.picture, [this, kind] { setTool(kind); });
    button->setCheckable(true);
    tools_->addButton(button, kind - kSelect);
    row->addWidget(button);
  }
  tools_->button(0)->setChecked(true);
  row->addStretch();
  cmdInapoi_ = tool("cmdInapoi", {}, "Anuleaza ultima modificare (Ctrl+Z)", "undo", [this] { undo(); });
  cmdRefacere_ = tool("cmdRefacere", {}, "Reface modificarea anulata (Ctrl+Y)", "redo", [this] { redo(); });
  cmdSalvare_ = tool("cmdSalvare", "Salveaza", "Salveaza raportul (Ctrl+S)", "save", [this] { save(); });
  for (QPushButton* button : {cmdInapoi_, cmdRefacere_, cmdSalvare_}) row->addWidget(button);
  row->addWidget(tool("cmdSalvareCa", "Salveaza ca...", "Salveaza raportul in alt fisier", "save",
                      [this] { saveAs(); }));
  row->addWidget(tool("cmdInchide", "Inchidere", "Inchide fereastra (Esc)", "close", [this] { reject(); }));
  return pane;
}

void frmProiectare::addArranging(QLayout* row) {
  struct Arrangement {
    const char* name;
    const char* toolTip;
    const char* picture;
    std::function<void(Layout&, const Parts&)> work;
    QKeySequence key;
  };
  const auto by = [](Alignment alignment) {
    return [alignment](Layout& layout, const Parts& parts) { align(layout, parts, alignment); };
  };
  const auto same = [](bool width) {
    return [width](Layout& layout, const Parts& parts) { equalise(layout, parts, width); };
  };
  const Arrangement arrangements[] = {
      {"cmdLaStanga", "Aliniaza la stanga primului obiect ales (Ctrl+L)", "align-left", by(Alignment::Left),
       QKeySequence("Ctrl+L")},
      {"cmdLaCentru", "Aliniaza pe centrul primului obiect ales (Ctrl+E)", "align-centre",
       by(Alignment::Centre), QKeySequence("Ctrl+E")},
      {"cmdLaDreapta", "Aliniaza la dreapta primului obiect ales (Ctrl+R)", "align-right",
       by(Alignment::Right), QKeySequence("Ctrl+R")},
      {"cmdSus", "Aliniaza sus cu primul obiect ales (Ctrl+T)", "align-top", by(Alignment::Top),
       QKeySequence("Ctrl+T")},
      {"cmdLaMijloc", "Aliniaza pe mijlocul primului obiect ales (Ctrl+M)", "align-middle",
       by(Alignment::Middle), QKeySequence("Ctrl+M")},
      {"cmdJos", "Aliniaza jos cu primul obiect ales (Ctrl+B)", "align-bottom", by(Alignment::Bottom),
       QKeySequence("Ctrl+B")},
      {"cmdAceeasiLatime", "Aceeasi latime ca primul obiect ales (Ctrl+W)", "same-width", same(true),
       QKeySequence("Ctrl+W")},
      {"cmdAceeasiInaltime", "Aceeasi inaltime ca primul obiect ales (Ctrl+H)", "same-height", same(false),
       QKeySequence("Ctrl+H")}};
  for (const Arrangement& each : arrangements) {
    const auto work = each.work;
    arranging_.append(tool(
        each.name, {}, each.toolTip, each.picture, [this, work] { arrange("Aliniere", work); }, each.key));
    row->addWidget(arranging_.last());
  }
  for (const bool toFront : {true, false}) {
    ordering_.append(tool(toFront ? "cmdInFata" : "cmdInSpate", {},
                          toFront ? "Deseneaza peste celelalte obiecte" : "Deseneaza sub celelalte obiecte",
                          toFront ? "to-front" : "to-back", [this, toFront] {
                            change("Ordine", {}, [this, toFront](Layout& layout) {
                              return reorder(layout, state_.chosen, toFront);
                            });
                          }));
    row->addWidget(ordering_.last());
  }
}

QMenu* frmProiectare::tableMenu() {
  auto* menu = new QMenu(this);
  const auto add = [this, menu](const QString& caption,
                                const std::function<Parts(Layout&, const Part&)>& work) {
    menu->addAction(caption, this, [this, caption, work] {
      perform("cmdRanduri_Click", [this, caption, work] {
        const Part part = state_.chosen.front();
        change(caption, {}, [part, work](Layout& layout) { return work(layout, part); });
      });
    });
  };
  for (const RowRole role : {RowRole::Header, RowRole::Brought, RowRole::GroupHeader, RowRole::Line,
                             RowRole::GroupFooter, RowRole::Carried, RowRole::Total})
    add("Rand nou: " + roleName(role),
        [role](Layout& layout, const Part& part) { return Parts{addRow(layout, part, role)}; });
  menu->addSeparator();
  add("Celula noua (Insert)", [](Layout& layout, const Part& part) { return Parts{addCell(layout, part)}; });
  add("Celula spre stanga (Alt+Left)",
      [](Layout& layout, const Part& part) { return Parts{moveCell(layout, part, -1)}; });
  add("Celula spre dreapta (Alt+Right)",
      [](Layout& layout, const Part& part) { return Parts{moveCell(layout, part, 1)}; });
  add("Stergere celula (Delete)",
      [](Layout& layout, const Part& part) { return part.isCell() ? remove(layout, {part}) : Parts{part}; });
  add("Stergere rand", [](Layout& layout, const Part& part) {
    return part.row >= 0 ? remove(layout, {{part.object, part.row, -1}}) : Parts{part};
  });
  return menu;
}

QWidget* frmProiectare::arrangingTools() {
  constexpr double kLeastStep = 0.5;
  constexpr double kLargestStep = 50;
  auto* pane = new QWidget;
  auto* row = new QHBoxLayout(pane);
  row->setContentsMargins(0, 0, 0, 0);
  addArranging(row);
  cmdRanduri_ =
      makeButton("cmdRanduri", "Randuri si celule", "Randurile si celulele tabelului ales", "draw-table");
  cmdRanduri_->setMenu(tableMenu());
  row->addWidget(cmdRanduri_);
  row->addStretch();
  chkGrila_ = named(new QCheckBox("Grila"), "chkGrila", "Obiectele se aseaza pe grila");
  chkGrila_->setChecked(true);
  txtGrila_ = named(new QDoubleSpinBox, "txtGrila", "Distanta dintre liniile grilei");
  txtGrila_->setRange(kLeastStep, kLargestStep);
  txtGrila_->setSingleStep(kLeastStep);
  txtGrila_->setDecimals(1);
  txtGrila_->setLocale(QLocale(QLocale::Romanian));
  txtGrila_->setSuffix(" mm");
  txtGrila_->setValue(1);
  cboMarime_ = named(new QComboBox, "cboMarime", "Marimea paginii (Ctrl+plus, Ctrl+minus)");
  cboMarime_->addItem("Latimea paginii", kPageWidth);
  addZoomSteps(cboMarime_);
  row->addWidget(chkGrila_);
  row->addWidget(txtGrila_);
  row->addWidget(cboMarime_);
  connect(chkGrila_, &QCheckBox::toggled, this, &frmProiectare::setGrid);
  connect(txtGrila_, &QDoubleSpinBox::valueChanged, this, &frmProiectare::setGrid);
  connect(cboMarime_, &QComboBox::currentIndexChanged, this, &frmProiectare::setZoom);
  return pane;
}

QWidget* frmProiectare::namesPane() {
  auto* pane = new QWidget;
  auto* column = new QVBoxLayout(pane);
  column->setContentsMargins(0, 0, 0, 0);
  QLineEdit* search = makeTextBox("txtCautare", 0, "Arata numele care contin textul");
  search->setPlaceholderText("Cautare nume");
  lstNume_ = new NameList;
  column->addWidget(search);
  column->addWidget(lstNume_);
  connect(search, &QLineEdit::textChanged, lstNume_, &NameList::filter);
  connect(search, &QLineEdit::returnPressed, lstNume_, qOverload<>(&QWidget::setFocus));
  connect(lstNume_, &NameList::nameWanted, this, [this](const QString& name, bool joins) {
    perform("lstNume_DblClick", [this, name, joins] { insertName(name, joins); });
  });
  return pane;
}

QWidget* frmProiectare::middlePane() {
  page_ = new LayoutPage;
  preview_ = new ReportPreview;
  txtText_ = named(new LayoutText, "txtText", "Textul fisierului");
  connect(txtText_, &QPlainTextEdit::modificationChanged, this, [this] { showButtons(); });
  tabs_ = named(new QTabWidget, "tabPagina");
  tabs_->addTab(page_, "Pagina");
  tabs_->addTab(preview_, "Previzualizare");
  tabs_->addTab(txtText_, "Text");
  connect(tabs_, &QTabWidget::currentChanged, this,
          [this](int tab) { guarded(objectName(), "tabPagina_Click", [this, tab] { tabChanged(tab); }); });
  lstGreseli_ = named(new QListWidget, "lstGreseli", "Greselile raportului: Enter duce la loc");
  connect(lstGreseli_, &QListWidget::itemActivated, this, [this](const QListWidgetItem* item) {
    perform("lstGreseli_DblClick", [this, item] { showFault(lstGreseli_->row(item)); });
  });
  auto* pane = new QWidget;
  auto* column = new QVBoxLayout(pane);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(tabs_, 1);
  column->addWidget(lstGreseli_);
  return pane;
}

void frmProiectare::connectPage() {
  page_->setGate([this] { return grdProprietati_->commitPending(); });
  grdProprietati_->setStoreProperty(
      [this](const QString& name, const QString& typed) { storeProperty(name, typed); });
  connect(page_, &LayoutPage::chosen, this, &frmProiectare::choose);
  connect(page_, &LayoutPage::changeWanted, this,
          [this](const QString& text, const QString& joins, const Change& wanted) {
            perform("pagina_Change", [this, text, joins, wanted] { change(text, joins, wanted); });
          });
  connect(page_, &LayoutPage::nameDropped, this, [this](const QString& name, const QPointF& place) {
    perform("pagina_DragDrop", [this, name, place] { dropName(name, place); });
  });
  connect(page_, &LayoutPage::editWanted, this, &frmProiectare::editChosen);
  connect(page_, &LayoutPage::copyWanted, this, &frmProiectare::copy);
  connect(page_, &LayoutPage::cutWanted, this, [this] {
    perform("pagina_KeyDown", [this] {
      copy();
      change("Decupare", {}, [this](Layout& layout) { return remove(layout, state_.chosen); });
    });
  });
  connect(page_, &LayoutPage::pasteWanted, this, [this] { perform("pagina_KeyDown", [this] { paste(); }); });
  connect(page_, &LayoutPage::toolUsed, this, [this] { setTool(kSelect); });
  connect(page_, &LayoutPage::zoomWanted, this, &frmProiectare::zoomBy);
  connect(page_, &LayoutPage::resized, this, &frmProiectare::fitPage);
  connect(page_, &LayoutPage::pointerMoved, this, [this](const QPointF& place) {
    lblLoc_->setText(QStringLiteral("%1 x %2 mm").arg(place.x(), 0, 'f', 1).arg(place.y(), 0, 'f', 1));
  });
}

void frmProiectare::addShortcuts() {
  const auto add = [this](const QKeySequence& key, void (frmProiectare::*work)()) {
    connect(new QShortcut(key, this), &QShortcut::activated, this,
            [this, work] { perform("KeyDown", [this, work] { (this->*work)(); }); });
  };
  add(QKeySequence("Ctrl+Z"), &frmProiectare::undo);
  add(QKeySequence("Ctrl+Y"), &frmProiectare::redo);
  add(QKeySequence("F6"), &frmProiectare::nextPane);
  connect(new QShortcut(QKeySequence("Ctrl+S"), this), &QShortcut::activated, cmdSalvare_,
          [this] { cmdSalvare_->click(); });
}

void frmProiectare::perform(const QString& procedure, const std::function<void()>& work) {
  guarded(objectName(), procedure, [this, &work] {
    if (grdProprietati_->commitPending()) work();
  });
}

void frmProiectare::keyPressEvent(QKeyEvent* event) {
  // The first Esc returns to the page, the next one closes the window.
  if (event->key() == Qt::Key_Escape && tabs_->currentIndex() == kPageTab && !page_->hasFocus())
    return page_->setFocus();
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    if (auto* button = qobject_cast<QPushButton*>(focusWidget())) button->click();
    return;
  }
  QDialog::keyPressEvent(event);
}

void frmProiectare::nextPane() {
  QWidget* const panes[] = {tabs_->currentWidget(), grdProprietati_, lstGreseli_, lstNume_};
  const QWidget* focus = focusWidget();
  size_t current = std::size(panes) - 1;
  for (size_t i = 0; i < std::size(panes); ++i)
    if (focus && (focus == panes[i] || panes[i]->isAncestorOf(focus))) current = i;
  do current = (current + 1) % std::size(panes);
  while (!panes[current]->isVisible());
  panes[current]->setFocus(Qt::TabFocusReason);
}

// ---- Changes ----

void frmProiectare::setState(const State& state) {
  state_ = state;
  page_->setState(state_);
  lstNume_->setNames(kSums, sumNames(*state_.layout));
  showFaults();
  showChosen();
  if (tabs_->currentIndex() == kPreviewTab) showPreview();
  if (tabs_->currentIndex() == kTextTab && !txtText_->isChanged())
    txtText_->showText(QString::fromUtf8(write(*state_.layout)));
}

void frmProiectare::choose(const Parts& parts) {
  state_.chosen = parts;
  page_->setState(state_);
  showChosen();
}

void frmProiectare::change(const QString& text, const QString& joins, const Change& change) {
  if (isDamaged_) return;
  auto edit = edited(state_, text, joins, change);
  if (!edit) return;
  stack_.push(new EditCommand(std::move(*edit), [this](const State& state) { setState(state); }));
  if (!state_.chosen.empty()) page_->reveal(state_.chosen.front());
  showStatus({});
}

void frmProiectare::arrange(const QString& text, const std::function<void(Layout&, const Parts&)>& work) {
  change(text, {}, [this, &work](Layout& layout) {
    work(layout, state_.chosen);
    return state_.chosen;
  });
}

void frmProiectare::storeProperty(const QString& name, const QString& typed) {
  const Parts parts = state_.chosen.empty() ? Parts{Part()} : state_.chosen;
  change("Proprietate", {}, [&](Layout& layout) {
    layout::setProperty(layout, parts, name, typed);
    return state_.chosen;
  });
}

const clsFieldVarDescription* frmProiectare::described(const QString& name) const {
  for (const ReportValues* values : {&variables_, &fields_, &general_})
    for (const clsFieldVarDescription& value : *values)
      if (value.name.compare(name, Qt::CaseInsensitive) == 0) return &value;
  return nullptr;
}

void frmProiectare::dropName(const QString& name, const QPointF& place) {
  const clsFieldVarDescription* known = described(name);
  const clsFieldVarDescription added = known ? *known : clsFieldVarDescription{name, LLTip::Number, {}};
  change("Adaugare " + name, {}, [&](Layout& layout) { return Parts{addName(layout, added, place)}; });
}

void frmProiectare::insertName(const QString& name, bool joins) {
  if (tabs_->currentIndex() == kTextTab) return txtText_->insertPlainText(name);
  tabs_->setCurrentIndex(kPageTab);
  const bool isOne = state_.chosen.size() == 1;
  const Part part = isOne ? state_.chosen.front() : Part();
  const clsFieldVarDescription* known = described(name);
  const clsFieldVarDescription added = known ? *known : clsFieldVarDescription{name, LLTip::Number, {}};
  if (joins && isOne) {
    for (const Property& property : propertiesOf(*state_.layout, {part}))
      if (property.name == u"formula")
        return storeProperty(property.name,
                             property.value.isEmpty() ? name : property.value + QStringLiteral(" + ") + name);
    return showStatus("Alegeti intai un text sau o celula.");
  }
  const bool inTable = isOne && part.object >= 0 &&
                       kindOf(state_.layout->objects[static_cast<size_t>(part.object)]) == Kind::Table;
  change("Adaugare " + name, {}, [&](Layout& layout) {
    return Parts{inTable ? addNameAt(layout, added, part, false)
                         : addText(layout, added, page_->freePlace())};
  });
}

void frmProiectare::copy() {
  const QByteArray text = copied(*state_.layout, state_.chosen);
  if (!text.isEmpty()) QApplication::clipboard()->setText(QString::fromUtf8(text));
}

void frmProiectare::paste() {
  const QByteArray text = QApplication::clipboard()->text().toUtf8();
  change("Lipire", {}, [&text](Layout& layout) { return layout::paste(layout, text); });
}

void frmProiectare::undo() {
  if (tabs_->currentIndex() == kTextTab) return txtText_->undo();
  stack_.undo();
}

void frmProiectare::redo() {
  if (tabs_->currentIndex() == kTextTab) return txtText_->redo();
  stack_.redo();
}

void frmProiectare::setTool(int kind) {
  tools_->button(kind - kSelect)->setChecked(true);
  page_->setTool(kind == kSelect ? std::nullopt : std::optional(static_cast<Kind>(kind)));
  if (kind == kSelect) return;
  tabs_->setCurrentIndex(kPageTab);
  page_->setFocus();
  showStatus("Desenati cu mouse-ul pe pagina, sau Enter pentru marimea obisnuita.");
}

void frmProiectare::setGrid() { page_->setGrid({txtGrila_->value(), chkGrila_->isChecked()}); }

void frmProiectare::setZoom() {
  constexpr double kWhole = 100;
  const int percent = cboMarime_->currentData().toInt();
  page_->setZoom(percent == kPageWidth ? page_->fittingZoom() : percent / kWhole);
}

void frmProiectare::fitPage() {
  if (cboMarime_->currentData().toInt() == kPageWidth) setZoom();
}

void frmProiectare::zoomBy(int step) { chooseZoomStep(cboMarime_, page_->zoom(), step); }

void frmProiectare::editChosen() {
  const Part part = state_.chosen.empty() ? Part() : state_.chosen.front();
  grdProprietati_->editProperty(mainProperty(*state_.layout, part));
}

// ---- What is shown ----

void frmProiectare::showChosen() {
  const Parts parts = state_.chosen.empty() ? Parts{Part()} : state_.chosen;
  grdProprietati_->show(propertiesOf(*state_.layout, parts));
  lblAles_->setText(parts.size() == 1 ? nameOf(*state_.layout, parts.front())
                                      : QStringLiteral("%1 alese").arg(parts.size()));
  showButtons();
}

void frmProiectare::showButtons() {
  const bool isText = tabs_->currentIndex() == kTextTab;
  cmdInapoi_->setEnabled(isText ? txtText_->document()->isUndoAvailable() : stack_.canUndo());
  cmdRefacere_->setEnabled(isText ? txtText_->document()->isRedoAvailable() : stack_.canRedo());
  for (QPushButton* button : arranging_) button->setEnabled(!isText && state_.chosen.size() > 1);
  for (QPushButton* button : ordering_) button->setEnabled(!isText && !state_.chosen.empty());
  grdProprietati_->setEnabled(!isText);
  const bool inTable = state_.chosen.size() == 1 && state_.chosen.front().object >= 0 &&
                       !placesIn(*state_.layout, state_.chosen.front().object).empty();
  cmdRanduri_->setEnabled(!isText && inTable);
  setWindowModified(isChanged());
}

void frmProiectare::showFaults() {
  QStringList texts;
  Parts faulty;
  faults_.clear();
  if (isDamaged_) {
    texts.append(damageText(damage_));
  } else {
    faults_ = faultsOf(*state_.layout, KnownNames(*state_.layout, variables_, fields_));
    for (const Fault& fault : faults_) {
      faulty.push_back(fault.part);
      if (texts.size() < kMostFaults) texts.append(textOf(*state_.layout, fault));
    }
  }
  page_->setFaulty(faulty);
  lstGreseli_->clear();
  lstGreseli_->addItems(texts);
  lstGreseli_->setVisible(!texts.isEmpty());
  const int rows = std::min(kFaultRows, static_cast<int>(texts.size()));
  lstGreseli_->setFixedHeight(rows * (fontMetrics().height() + 2) + 2 * lstGreseli_->frameWidth() + 2);
}

void frmProiectare::showFault(int row) {
  if (isDamaged_) {
    tabs_->setCurrentIndex(kTextTab);
    txtText_->markDamage(damage_);
    return;
  }
  if (row < 0 || row >= static_cast<int>(faults_.size())) return;
  const Fault fault = faults_[static_cast<size_t>(row)];
  tabs_->setCurrentIndex(kPageTab);
  if (tabs_->currentIndex() != kPageTab) return;
  choose({fault.part});
  page_->reveal(fault.part);
  if (fault.property.isEmpty())
    page_->setFocus();
  else
    grdProprietati_->editProperty(fault.property, fault.column);
}

void frmProiectare::showPreview() {
  auto job = std::make_unique<ReportJob>(file_, *state_.layout, data_);
  if (job->isEmpty())
    preview_->setJob(nullptr, "Nu sunt date de tiparit.");
  else
    preview_->setJob(std::move(job));
}

void frmProiectare::showStatus(const QString& text) { lblStare_->setText(text); }

// ---- The text of the file ----

void frmProiectare::tabChanged(int tab) {
  const int before = std::exchange(lastTab_, tab);
  if (before == kTextTab && tab != kTextTab && !takeText()) {
    tabs_->setCurrentIndex(kTextTab);
    return;
  }
  if (tab == kPreviewTab) showPreview();
  if (tab == kTextTab && before != kTextTab && !isDamaged_)
    txtText_->showText(QString::fromUtf8(write(*state_.layout)));
  showButtons();
}

bool frmProiectare::takeText() {
  if (!isDamaged_ && !txtText_->isChanged()) return true;
  try {
    auto taken = std::make_shared<const Layout>(read(txtText_->toPlainText().toUtf8()));
    const bool wasDamaged = std::exchange(isDamaged_, false);
    txtText_->accept();
    if (wasDamaged)
      begin(taken, false);
    else
      change("Modificare text", {}, [&taken](Layout& layout) {
        layout = *taken;
        return Parts();
      });
    return true;
  } catch (const LayoutError& error) {
    damage_ = error;
    if (isDamaged_) showFaults();
    txtText_->markDamage(error);
    Mesaj(QStringLiteral("Textul raportului are o greseala.\r\n%1.").arg(damageText(error)), kExclamation,
          kTitle);
    return false;
  }
}

void frmProiectare::begin(const std::shared_ptr<const Layout>& layout, bool isSaved) {
  stack_.clear();
  if (!isSaved) stack_.resetClean();
  setState({layout, {}});
  setTool(kSelect);
  lblFisier_->setText(file_.isEmpty() ? QString() : QDir::toNativeSeparators(file_));
  page_->scrollToTop();
}

// ---- Files ----

void frmProiectare::open(const QString& file) {
  QByteArray bytes;
  if (QFile stored(file); stored.exists()) {
    if (!stored.open(QIODevice::ReadOnly))
      throw StoreError(kFileFailure, QStringLiteral("Fisierul nu poate fi citit: %1 (%2)")
                                         .arg(QDir::toNativeSeparators(file), fileReason(stored)));
    bytes = stored.readAll();
  }
  file_ = file;
  isDamaged_ = false;
  lastTab_ = kPageTab;
  txtText_->showText({});
  tabs_->setCurrentIndex(kPageTab);
  try {
    begin(std::make_shared<Layout>(bytes.isEmpty() ? Layout() : read(bytes)), true);
  } catch (const LayoutError& error) {
    isDamaged_ = true;
    damage_ = error;
    begin(std::make_shared<Layout>(), true);
    tabs_->setCurrentIndex(kTextTab);
    txtText_->showText(QString::fromUtf8(bytes));
    txtText_->markDamage(error);
  }
  showButtons();
}

bool frmProiectare::isChanged() const { return !stack_.isClean() || txtText_->isChanged(); }

bool frmProiectare::mayClose() {
  if (!grdProprietati_->commitPending()) return false;
  if (!isChanged()) return true;
  switch (Mesaj("Raportul a fost modificat. Salvati modificarile?", kYesNoCancel | kQuestion, kTitle)) {
    case kResultYes:
      return save();
    case kResultNo:
      return true;
    default:
      return false;
  }
}

void frmProiectare::reject() {
  bool may = false;
  guarded(objectName(), "Form_Unload", [this, &may] { may = mayClose(); });
  if (may) QDialog::reject();
}

bool frmProiectare::save() { return file_.isEmpty() ? saveAs() : saveTo(file_); }

bool frmProiectare::saveAs() {
  const QString file =
      askSaveName(this, "Salveaza ca", file_, kFilter,
                  [](const QString& name, const QString& /*filter*/) { return withEnding(name, ".lst"); });
  return !file.isEmpty() && saveTo(file);
}

bool frmProiectare::saveTo(const QString& file) {
  if ((isDamaged_ || tabs_->currentIndex() == kTextTab) && !takeText()) return false;
  QDir().mkpath(QFileInfo(file).path());
  layout::save(file, *state_.layout);
  file_ = file;
  stack_.setClean();
  lblFisier_->setText(QDir::toNativeSeparators(file_));
  showStatus("Raportul este salvat.");
  showButtons();
  return true;
}

void designLayout(QWidget* parent, const QString& file, const ReportData& data) {
  frmProiectare window(data, parent);
  if (guarded("frmProiectare", "Form_Load", [&window, &file] { window.open(file); })) window.exec();
}

}  // namespace velmar
