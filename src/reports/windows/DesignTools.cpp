#include "reports/windows/DesignTools.h"

#include <QBoxLayout>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QMenu>
#include <QPushButton>
#include <QShortcut>

#include "util/windows/Controls.h"
#include "util/windows/ZoomSteps.h"

namespace velmar {

using namespace layout;

namespace {

constexpr int kPageWidth = 0;  // special entry among the zoom percentages
constexpr double kWhole = 100;
constexpr int kSelect = 0;  // button for selecting parts; the drawing tools follow by kind

int buttonOf(const std::optional<Kind>& kind) { return kind ? static_cast<int>(*kind) + 1 : kSelect; }

}  // namespace

DesignTools::DesignTools(QWidget* parent) : QWidget(parent), drawing_(new QButtonGroup(this)) {
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  auto* upper = new QHBoxLayout;
  addDrawing(upper);
  upper->addStretch();
  addCommands(upper);
  auto* lower = new QHBoxLayout;
  addArranging(lower);
  addOrdering(lower);
  cmdRanduri_ =
      makeButton("cmdRanduri", "Randuri si celule", "Randurile si celulele tabelului ales", "draw-table");
  cmdRanduri_->setMenu(tableMenu());
  lower->addWidget(cmdRanduri_);
  lower->addStretch();
  addGridAndZoom(lower);
  rows->addLayout(upper);
  rows->addLayout(lower);
}

QPushButton* DesignTools::add(QBoxLayout* row, const QString& name, const QString& caption,
                              const QString& toolTip, const QString& picture, const Press& press) {
  QPushButton* button = makeButton(name, caption, toolTip, picture);
  button->setFocusPolicy(Qt::TabFocus);  // a click must not take the keyboard focus from the page
  connect(button, &QPushButton::clicked, this, [name, press] { press(name + QStringLiteral("_Click")); });
  row->addWidget(button);
  return button;
}

void DesignTools::addDrawing(QBoxLayout* row) {
  struct DrawingTool {
    const char* name;
    const char* caption;
    const char* toolTip;
    const char* picture;
    std::optional<Kind> kind;
  };
  constexpr DrawingTool kTools[] = {
      {"cmdSelectie", "Alegere", "Alege si muta obiecte (Esc)", "choose", {}},
      {"cmdText", "Text", "Deseneaza un text", "draw-text", Kind::Text},
      {"cmdLinie", "Linie", "Deseneaza o linie", "draw-line", Kind::Line},
      {"cmdChenar", "Chenar", "Deseneaza un chenar", "draw-box", Kind::Box},
      {"cmdImagine", "Imagine", "Deseneaza o imagine", "draw-picture", Kind::Picture},
      {"cmdCodBare", "Cod de bare", "Deseneaza un cod de bare", "draw-barcode", Kind::BarCode},
      {"cmdCurba", "Curba", "Deseneaza o curba peste linii", "draw-curve", Kind::Curve},
      {"cmdTabel", "Tabel", "Deseneaza tabelul liniilor", "draw-table", Kind::Table}};
  for (const DrawingTool& each : kTools) {
    QPushButton* button =
        add(row, each.name, each.caption, each.toolTip, each.picture,
            [this, kind = each.kind](const QString& procedure) { emit toolWanted(procedure, kind); });
    button->setCheckable(true);
    drawing_->addButton(button, buttonOf(each.kind));
  }
  setTool({});
}

void DesignTools::addCommands(QBoxLayout* row) {
  const auto command = [this](Command wanted) {
    return [this, wanted](const QString& procedure) { emit commandWanted(procedure, wanted); };
  };
  cmdInapoi_ =
      add(row, "cmdInapoi", {}, "Anuleaza ultima modificare (Ctrl+Z)", "undo", command(Command::Undo));
  cmdRefacere_ =
      add(row, "cmdRefacere", {}, "Reface modificarea anulata (Ctrl+Y)", "redo", command(Command::Redo));
  add(row, "cmdSalvare", "Salveaza", "Salveaza raportul (Ctrl+S)", "save", command(Command::Save));
  add(row, "cmdSalvareCa", "Salveaza ca...", "Salveaza raportul in alt fisier", "save",
      command(Command::SaveAs));
  add(row, "cmdInchide", "Inchidere", "Inchide fereastra (Esc)", "close", command(Command::Close));
}

void DesignTools::addArranging(QBoxLayout* row) {
  struct Arrangement {
    const char* name;
    const char* toolTip;
    const char* picture;
    std::function<void(Layout&, const Parts&)> work;
    const char* key;
  };
  const auto by = [](Alignment alignment) {
    return [alignment](Layout& layout, const Parts& parts) { align(layout, parts, alignment); };
  };
  const auto same = [](bool width) {
    return [width](Layout& layout, const Parts& parts) { equalise(layout, parts, width); };
  };
  const Arrangement arrangements[] = {
      {"cmdLaStanga", "Aliniaza la stanga primului obiect ales (Ctrl+L)", "align-left", by(Alignment::Left),
       "Ctrl+L"},
      {"cmdLaCentru", "Aliniaza pe centrul primului obiect ales (Ctrl+E)", "align-centre",
       by(Alignment::Centre), "Ctrl+E"},
      {"cmdLaDreapta", "Aliniaza la dreapta primului obiect ales (Ctrl+R)", "align-right",
       by(Alignment::Right), "Ctrl+R"},
      {"cmdSus", "Aliniaza sus cu primul obiect ales (Ctrl+T)", "align-top", by(Alignment::Top), "Ctrl+T"},
      {"cmdLaMijloc", "Aliniaza pe mijlocul primului obiect ales (Ctrl+M)", "align-middle",
       by(Alignment::Middle), "Ctrl+M"},
      {"cmdJos", "Aliniaza jos cu primul obiect ales (Ctrl+B)", "align-bottom", by(Alignment::Bottom),
       "Ctrl+B"},
      {"cmdAceeasiLatime", "Aceeasi latime ca primul obiect ales (Ctrl+W)", "same-width", same(true),
       "Ctrl+W"},
      {"cmdAceeasiInaltime", "Aceeasi inaltime ca primul obiect ales (Ctrl+H)", "same-height", same(false),
       "Ctrl+H"}};
  for (const Arrangement& each : arrangements) {
    QPushButton* button = add(row, each.name, {}, each.toolTip, each.picture,
                              [this, work = each.work](const QString& procedure) {
                                emit changeWanted(procedure, QStringLiteral("Aliniere"),
                                                  [work, parts = state_.chosen](Layout& layout) {
                                                    work(layout, parts);
                                                    return parts;
                                                  });
                              });
    connect(new QShortcut(QKeySequence(QLatin1String(each.key)), this), &QShortcut::activated, button,
            &QPushButton::click);
    arranging_.append(button);
  }
}

void DesignTools::addOrdering(QBoxLayout* row) {
  for (const bool toFront : {true, false})
    ordering_.append(add(row, toFront ? "cmdInFata" : "cmdInSpate", {},
                         toFront ? "Deseneaza peste celelalte obiecte" : "Deseneaza sub celelalte obiecte",
                         toFront ? "to-front" : "to-back", [this, toFront](const QString& procedure) {
                           emit changeWanted(procedure, QStringLiteral("Ordine"),
                                             [toFront, parts = state_.chosen](Layout& layout) {
                                               return reorder(layout, parts, toFront);
                                             });
                         }));
}

QMenu* DesignTools::tableMenu() {
  auto* menu = new QMenu(this);
  const auto addAction = [this, menu](const QString& caption,
                                      const std::function<Parts(Layout&, const Part&)>& work) {
    menu->addAction(caption, this, [this, caption, work] {
      emit changeWanted(QStringLiteral("cmdRanduri_Click"), caption,
                        [work, part = state_.chosen.front()](Layout& layout) { return work(layout, part); });
    });
  };
  for (const RowRole role : {RowRole::Header, RowRole::Brought, RowRole::GroupHeader, RowRole::Line,
                             RowRole::GroupFooter, RowRole::Carried, RowRole::Total})
    addAction("Rand nou: " + roleName(role),
              [role](Layout& layout, const Part& part) { return Parts{addRow(layout, part, role)}; });
  menu->addSeparator();
  addAction("Celula noua (Insert)",
            [](Layout& layout, const Part& part) { return Parts{addCell(layout, part)}; });
  addAction("Celula spre stanga (Alt+Left)",
            [](Layout& layout, const Part& part) { return Parts{moveCell(layout, part, -1)}; });
  addAction("Celula spre dreapta (Alt+Right)",
            [](Layout& layout, const Part& part) { return Parts{moveCell(layout, part, 1)}; });
  addAction("Stergere celula (Delete)", [](Layout& layout, const Part& part) {
    return part.isCell() ? remove(layout, {part}) : Parts{part};
  });
  addAction("Stergere rand", [](Layout& layout, const Part& part) {
    return part.row >= 0 ? remove(layout, {{part.object, part.row, -1}}) : Parts{part};
  });
  return menu;
}

void DesignTools::addGridAndZoom(QBoxLayout* row) {
  constexpr double kLeastStep = 0.5;
  constexpr double kLargestStep = 50;
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
  for (QWidget* each : std::initializer_list<QWidget*>{chkGrila_, txtGrila_, cboMarime_})
    row->addWidget(each);
  const auto setGrid = [this] { emit gridChanged({txtGrila_->value(), chkGrila_->isChecked()}); };
  connect(chkGrila_, &QCheckBox::toggled, this, setGrid);
  connect(txtGrila_, &QDoubleSpinBox::valueChanged, this, setGrid);
  connect(cboMarime_, &QComboBox::currentIndexChanged, this, &DesignTools::zoomChanged);
}

void DesignTools::setTool(const std::optional<Kind>& kind) {
  drawing_->button(buttonOf(kind))->setChecked(true);
}

void DesignTools::showState(const State& state) {
  state_ = state;
  for (QPushButton* button : arranging_) button->setEnabled(state_.chosen.size() > 1);
  for (QPushButton* button : ordering_) button->setEnabled(!state_.chosen.empty());
  cmdRanduri_->setEnabled(state_.chosen.size() == 1 && state_.chosen.front().object >= 0 &&
                          !placesIn(*state_.layout, state_.chosen.front().object).empty());
}

void DesignTools::showUndo(bool canUndo, bool canRedo) {
  cmdInapoi_->setEnabled(canUndo);
  cmdRefacere_->setEnabled(canRedo);
}

std::optional<double> DesignTools::zoom() const {
  const int percent = cboMarime_->currentData().toInt();
  return percent == kPageWidth ? std::nullopt : std::optional(percent / kWhole);
}

void DesignTools::stepZoom(double current, int step) { chooseZoomStep(cboMarime_, current, step); }

}  // namespace velmar
