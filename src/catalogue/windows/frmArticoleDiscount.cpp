#include "catalogue/windows/frmArticoleDiscount.h"

#include <QBoxLayout>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSplitter>
#include <QStackedWidget>
#include <QStandardItemModel>
#include <QTreeView>

#include "catalogue/windows/ArticleCombo.h"
#include "catalogue/windows/ArticleTree.h"
#include "store/windows/TDBGrid.h"
#include "util/Errors.h"
#include "util/Messages.h"
#include "util/NumberText.h"
#include "util/windows/Controls.h"
#include "util/windows/Entry.h"
#include "util/windows/Forms.h"

namespace velmar {

namespace {

const QString kForm = QStringLiteral("frmArticoleDiscount");
const QString kNew = QStringLiteral("NOU");
constexpr int kBoxCharacters = 10;

NumberBox* bandBox(const QString& name, const QString& toolTip) {
  auto* box = named(new NumberBox(-1), name, toolTip);
  box->setMaximumWidth(box->fontMetrics().averageCharWidth() * kBoxCharacters * 2);
  requireNumberWhenLeft(box);
  return box;
}

QStandardItem* bandCell(const QString& text) {
  auto* cell = new QStandardItem(text);
  cell->setEditable(false);
  cell->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
  return cell;
}

}  // namespace

frmArticoleDiscount::frmArticoleDiscount(QWidget* parent) : QWidget(parent) {
  setObjectName(kForm);
  setWindowTitle(QStringLiteral("Discount pe articol"));
  pages_ = new QStackedWidget;
  auto* sides = new QSplitter;
  sides->addWidget(treeSide());
  auto* hint = new QLabel(QStringLiteral("Alegeti din stanga o familie sau un articol."));
  hint->setAlignment(Qt::AlignCenter);
  hint->setForegroundRole(QPalette::PlaceholderText);
  pages_->addWidget(hint);
  pages_->addWidget(bandSide());
  sides->addWidget(pages_);
  sides->setChildrenCollapsible(false);
  sides->setStretchFactor(0, 1);

  auto* cmdIesire = makeButton("cmdIesire", "Iesire");
  setUpExitButton(cmdIesire, this);
  auto* bottom = new QHBoxLayout;
  bottom->addStretch();
  bottom->addWidget(cmdIesire);
  auto* all = new QVBoxLayout(this);
  all->addWidget(sides, 1);
  all->addLayout(bottom);
  setUpKeys(this, findChild<QPushButton*>("cmdSalvare"), cmdIesire);
  giveMnemonics(this);
  setFocusProxy(search_);
}

QWidget* frmArticoleDiscount::treeSide() {
  nodes_ = new ArticleTree(this);
  treeArticole_ = named(new QTreeView, "treeArticole");
  treeArticole_->setHeaderHidden(true);
  treeArticole_->setUniformRowHeights(true);
  treeArticole_->setModel(nodes_);
  treeArticole_->expand(nodes_->root());
  treeArticole_->setMinimumSize(fontMetrics().averageCharWidth() * 60, fontMetrics().height() * 22);
  connect(
      treeArticole_->selectionModel(), &QItemSelectionModel::currentChanged, this,
      [this](const QModelIndex& node) { guarded(kForm, "treeArticole_NodeClick", [&] { showNode(node); }); });
  search_ = new ArticleCombo("cboCautare", articleList({}));
  search_->setToolTip(QStringLiteral("Cautare articol dupa nume, cod sau cod furnizor"));
  connect(search_, &QComboBox::activated, this,
          [this] { guarded(kForm, "cboCautare_Click", [this] { showFound(); }); });
  connect(search_->lineEdit(), &QLineEdit::returnPressed, this, [this] {
    guarded(kForm, "cboCautare_KeyPress", [this] {
      const QString text = search_->currentText().trimmed();
      if (!text.isEmpty() && search_->count() == 0)
        Mesaj(QStringLiteral("Nu exista articole care sa contina %1 !").arg(text));
    });
  });
  auto* label = new QLabel(QStringLiteral("Cautare"));
  label->setBuddy(search_);
  auto* line = new QHBoxLayout;
  line->addWidget(label);
  line->addWidget(search_, 1);
  auto* side = new QWidget;
  auto* all = new QVBoxLayout(side);
  all->setContentsMargins({});
  all->addLayout(line);
  all->addWidget(treeArticole_, 1);
  return side;
}

void frmArticoleDiscount::showFound() {
  const QModelIndex node = nodes_->nodeOf(search_->code());
  if (!node.isValid()) return;
  treeArticole_->expand(node.parent());
  treeArticole_->setCurrentIndex(node);
  treeArticole_->scrollTo(node, QAbstractItemView::PositionAtCenter);
}

QGroupBox* frmArticoleDiscount::bandSide() {
  auto* frame = named(new QGroupBox(QStringLiteral("Discounturi")), "frmDiscounturi");
  chosen_ = named(new QLabel, "lblAles");
  chosen_->setTextFormat(Qt::PlainText);
  chosen_->setWordWrap(true);
  auto* all = new QVBoxLayout(frame);
  all->addWidget(chosen_);
  all->addWidget(bandList(), 1);
  all->addWidget(bandDetails());
  all->addLayout(commands());
  return frame;
}

TDBGrid* frmArticoleDiscount::bandList() {
  rows_ = new QStandardItemModel(this);
  rows_->setHorizontalHeaderLabels({"Cant. Minima", "Cant. Maxima", "Discount"});
  lvwDiscounts_ = new TDBGrid("lvwDiscounts");
  lvwDiscounts_->setModel(rows_);
  lvwDiscounts_->setColumns({{"CantMin", "Cant. Minima", CellFormat::Integer, 12},
                             {"CantMax", "Cant. Maxima", CellFormat::Integer, 12},
                             {"Discount", "Discount", CellFormat::Number, 10}});
  lvwDiscounts_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  lvwDiscounts_->setEmptyText(
      QStringLiteral("Nu exista discounturi. Completati cele trei valori, apoi apasati \"Salvare\"."));
  lvwDiscounts_->setMinimumSize(fontMetrics().averageCharWidth() * 52, fontMetrics().height() * 8);
  connect(lvwDiscounts_->selectionModel(), &QItemSelectionModel::currentRowChanged, this, [this] {
    if (!filling_) guarded(kForm, "lvwDiscounts_ItemClick", [this] { showBand(); });
  });
  return lvwDiscounts_;
}

QWidget* frmArticoleDiscount::bandDetails() {
  auto* frame = named(new QFrame, "frmDiscountDetalii");
  txtCantMin_ = bandBox("txtCantMin", "Prima cantitate la care se acorda discountul");
  txtCantMax_ = bandBox("txtCantMax", "Ultima cantitate la care se acorda discountul");
  txtDiscount_ = bandBox("txtDiscount", "Procent");
  for (NumberBox* box : {txtCantMin_, txtCantMax_}) moveOnWithEnter(box);
  auto* form = new QFormLayout(frame);
  form->setContentsMargins({});
  form->addRow(QStringLiteral("Cant. Minima "), txtCantMin_);
  form->addRow(QStringLiteral("Cant. Maxima"), txtCantMax_);
  form->addRow(QStringLiteral("Discount "), txtDiscount_);
  return frame;
}

QLayout* frmArticoleDiscount::commands() {
  auto* line = new QHBoxLayout;
  const auto command = [this, line](const QString& name, const QString& caption, const QString& toolTip,
                                    void (frmArticoleDiscount::*work)()) {
    auto* button = makeButton(name, caption, toolTip);
    connect(button, &QPushButton::clicked, this, [this, name, work] {
      guarded(kForm, name + QStringLiteral("_Click"), [this, work] {
        if (entriesAccepted(this)) (this->*work)();
      });
    });
    line->addWidget(button);
    return button;
  };
  command("cmdAdaugare", "Adaugare", "Salvare si adaugarea unui interval nou", &frmArticoleDiscount::add);
  auto* cmdSalvare = makeButton("cmdSalvare", "Salvare", "Salvarea intervalului");
  connect(cmdSalvare, &QPushButton::clicked, this, &frmArticoleDiscount::Salveaza);
  line->addWidget(cmdSalvare);
  command("cmdSterge", "Stergere", "Stergerea ultimului interval", &frmArticoleDiscount::remove);
  cmdAplica_ = command("cmdAplica", "Aplica", "Copierea discounturilor la toate articolele familiei",
                       &frmArticoleDiscount::apply);
  line->addStretch();
  return line;
}

void frmArticoleDiscount::showNode(const QModelIndex& node) {
  editor_.reset();
  const ArticleTree::Node kind = ArticleTree::kindOf(node);
  if (kind == ArticleTree::Node::Root) {
    pages_->setCurrentIndex(0);
    return;
  }
  const bool isFamily = kind == ArticleTree::Node::Family;
  editor_ = isFamily ? DiscountBands::ofFamily(nodes_->familyCode(node))
                     : DiscountBands::ofArticle(nodes_->articleCode(node));
  chosen_->setText(node.data().toString());
  cmdAplica_->setEnabled(isFamily);
  showBands(editor_->count() - 1);
  pages_->setCurrentIndex(1);
}

void frmArticoleDiscount::showBands(int place) {
  filling_ = true;
  rows_->removeRows(0, rows_->rowCount());
  for (const DiscountBand& band : editor_->bands())
    rows_->appendRow({bandCell(QString::number(band.CantMin)),
                      bandCell(band.id ? QString::number(band.CantMax) : kNew),
                      bandCell(band.id ? editNumber(band.Discount) + u'%' : kNew)});
  if (place >= 0) lvwDiscounts_->selectRow(place);
  filling_ = false;
  showBand();
}

void frmArticoleDiscount::showBand() {
  const int place = lvwDiscounts_->currentIndex().row();
  for (NumberBox* box : {txtCantMin_, txtCantMax_, txtDiscount_}) box->setNumber(std::nullopt);
  txtCantMin_->setEnabled(rows_->rowCount() < 2);
  if (!editor_ || place < 0 || place >= editor_->count()) return;
  const DiscountBand& band = editor_->bands()[static_cast<size_t>(place)];
  txtCantMin_->setNumber(Decimal(band.CantMin));
  if (!band.id) return;
  txtCantMax_->setNumber(Decimal(band.CantMax));
  txtDiscount_->setNumber(band.Discount);
}

template <typename Work>
bool frmArticoleDiscount::attempt(Work&& work) {
  const std::vector<DiscountBand> before = editor_->bands();
  try {
    work();
    return true;
  } catch (const RuleError& rule) {
    Mesaj(rule.text(), rule.icon(), rule.title());
    if (editor_->bands() != before) showBands(editor_->count() - 1);
    for (NumberBox* box : {txtCantMin_, txtCantMax_, txtDiscount_})
      if (box->objectName() == QStringLiteral("txt") + rule.field()) box->setFocus();
    return false;
  }
}

bool frmArticoleDiscount::Salveaza() {
  bool saved = false;
  guarded(kForm, "Salveaza", [this, &saved] {
    if (!editor_ || !entriesAccepted(this)) return;
    const int place = lvwDiscounts_->currentIndex().row();
    saved = attempt([this, place] {
      editor_->save(place, {txtCantMin_->typed(), txtCantMax_->typed(), txtDiscount_->typed()});
    });
    if (saved) showBands(std::max(place, 0));
  });
  return saved;
}

void frmArticoleDiscount::add() {
  if (!Salveaza()) return;
  showBands(editor_->add());
  txtCantMax_->setFocus();
}

void frmArticoleDiscount::remove() {
  const int place = lvwDiscounts_->currentIndex().row();
  if (attempt([this, place] { editor_->remove(place); })) showBands(editor_->count() - 1);
}

void frmArticoleDiscount::apply() {
  if (Mesaj(QStringLiteral("Daca salvati discounturi pe familie - vor fi sterse discounturile setate \r\n"
                           "anterior pentru fiecare produs. Sunteti sigur ca vreti salvati?"),
            kYesNo) != kResultYes)
    return;
  attempt([this] {
    const Hourglass hourglass;
    editor_->applyToArticles();
  });
}

}  // namespace velmar
