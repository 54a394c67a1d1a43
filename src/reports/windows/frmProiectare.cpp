#include "reports/windows/frmProiectare.h"

#include <algorithm>
#include <QApplication>
#include <QBoxLayout>
#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
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
#include "util/FileNames.h"
#include "util/FileReason.h"
#include "util/Messages.h"
#include "util/windows/Controls.h"
#include "util/windows/Entry.h"
#include "util/windows/SaveName.h"

namespace velmar {

using namespace layout;

namespace {

const QString kTitle = QStringLiteral("Proiectare raport");
const QString kDocument = QStringLiteral("document");
const QString kLine = QStringLiteral("linie");
const QString kReport = QStringLiteral("raport");
const QString kSums = QStringLiteral("suma");
const QString kFilter = QStringLiteral("Rapoarte (*.lst)");

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
  tools_ = new DesignTools;
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
  all->addWidget(tools_);
  all->addWidget(middle, 1);
  all->addLayout(status);
  connectTools();
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

void frmProiectare::connectTools() {
  connect(tools_, &DesignTools::toolWanted, this,
          [this](const QString& procedure, const std::optional<Kind>& kind) {
            perform(procedure, [this, &kind] { setTool(kind); });
          });
  connect(tools_, &DesignTools::changeWanted, this,
          [this](const QString& procedure, const QString& text, const Change& wanted) {
            perform(procedure, [&] { change(text, {}, wanted); });
          });
  connect(tools_, &DesignTools::commandWanted, this,
          [this](const QString& procedure, DesignTools::Command command) {
            perform(procedure, [this, command] { obey(command); });
          });
  connect(tools_, &DesignTools::gridChanged, this, [this](const Grid& grid) { page_->setGrid(grid); });
  connect(tools_, &DesignTools::zoomChanged, this, &frmProiectare::setZoom);
}

void frmProiectare::obey(DesignTools::Command command) {
  switch (command) {
    case DesignTools::Command::Undo:
      return undo();
    case DesignTools::Command::Redo:
      return redo();
    case DesignTools::Command::Save:
      save();
      return;
    case DesignTools::Command::SaveAs:
      saveAs();
      return;
    case DesignTools::Command::Close:
      return reject();
  }
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
  connect(page_, &LayoutPage::toolUsed, this, [this] { setTool({}); });
  connect(page_, &LayoutPage::zoomWanted, this, &frmProiectare::zoomBy);
  connect(page_, &LayoutPage::resized, this, &frmProiectare::fitPage);
  connect(page_, &LayoutPage::pointerMoved, this, [this](const QPointF& place) {
    lblLoc_->setText(QStringLiteral("%1 x %2 mm").arg(place.x(), 0, 'f', 1).arg(place.y(), 0, 'f', 1));
  });
}

void frmProiectare::addShortcuts() {
  const auto add = [this](const QKeySequence& key, auto(frmProiectare::*work)()) {
    connect(new QShortcut(key, this), &QShortcut::activated, this,
            [this, work] { perform("KeyDown", [this, work] { (this->*work)(); }); });
  };
  add(QKeySequence("Ctrl+Z"), &frmProiectare::undo);
  add(QKeySequence("Ctrl+Y"), &frmProiectare::redo);
  add(QKeySequence("F6"), &frmProiectare::nextPane);
  add(QKeySequence("Ctrl+S"), &frmProiectare::save);
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

void frmProiectare::setTool(const std::optional<Kind>& kind) {
  tools_->setTool(kind);
  page_->setTool(kind);
  if (!kind) return;
  tabs_->setCurrentIndex(kPageTab);
  page_->setFocus();
  showStatus("Desenati cu mouse-ul pe pagina, sau Enter pentru marimea obisnuita.");
}

void frmProiectare::setZoom() { page_->setZoom(tools_->zoom().value_or(page_->fittingZoom())); }

void frmProiectare::fitPage() {
  if (!tools_->zoom()) setZoom();
}

void frmProiectare::zoomBy(int step) { tools_->stepZoom(page_->zoom(), step); }

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
  tools_->showUndo(isText ? txtText_->document()->isUndoAvailable() : stack_.canUndo(),
                   isText ? txtText_->document()->isRedoAvailable() : stack_.canRedo());
  tools_->showState(isText ? State{state_.layout, {}} : state_);
  grdProprietati_->setEnabled(!isText);
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
  setTool({});
  lblFisier_->setText(file_.isEmpty() ? QString() : QDir::toNativeSeparators(file_));
  page_->scrollToTop();
}

// ---- Files ----

void frmProiectare::open(const QString& file) {
  QByteArray bytes;
  requirePlainFile(file);
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
