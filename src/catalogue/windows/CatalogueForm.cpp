#include "catalogue/windows/CatalogueForm.h"

#include <QBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QTabWidget>

#include "store/windows/WhereBuilder.h"
#include "util/Errors.h"
#include "util/Messages.h"
#include "util/windows/Controls.h"

namespace velmar {

namespace {

enum Tab { kListTab, kCardTab };

constexpr int kSearchWidth = 35;

}  // namespace

CatalogueForm::CatalogueForm(const QString& name, const QString& title, QWidget* parent)
    : ListForm(name, title, parent),
      tabs_(named(new QTabWidget, "SSTab")),
      filter_(new WhereBuilder),
      count_(new QLabel("0")) {}

void CatalogueForm::setCatalogue(const QList<GridColumn>& columns, const ListQuery& query,
                                 const QString& keyField, const QString& order, const Condition& always,
                                 const QSet<QString>& tables) {
  query_ = query;
  always_ = condition_ = always;
  defaultOrder_ = order_ = order;
  auto* grid = new EntryGrid("grdDataGrid", EntryGrid::Refused::Reverted, objectName());
  grid->setColumns(columns);
  const auto read = [this]() -> std::unique_ptr<RowSource> {
    std::unique_ptr<RowSource> rows = std::move(found_);
    if (!rows) rows = std::make_unique<ListRows>(query_, condition_, order_);
    count_->setText(QString::number(rows->size()));
    return rows;
  };
  setList(grid, keyField, read, tables);
  connect(grid, &QAbstractItemView::doubleClicked, this, &CatalogueForm::bringCard);
  auto* open = new QShortcut(QKeySequence(Qt::Key_Return), grid);
  open->setContext(Qt::WidgetShortcut);
  connect(open, &QShortcut::activated, this, [this] {
    // After a deletion or an addition the card is empty; the selected row is the one to open.
    if (isNew() && !card().isChanged())
      guarded(objectName(), "RowColChange", [this] { showRecord(list()->currentRecord()); });
    bringCard();
  });
}

void CatalogueForm::layOut(const Pages& pages) {
  filter_->setFields(pages.filter, pages.nameColumn);
  connect(filter_, &WhereBuilder::searchAsked, this,
          [this] { run("WhereBuilder", [this] { askedSearch(); }); });
  auto* counted = new QHBoxLayout;
  counted->addStretch();
  counted->addWidget(new QLabel(pages.countCaption));
  counted->addWidget(named(count_, pages.countName));
  auto* listPage = new QWidget;
  auto* inside = new QVBoxLayout(listPage);
  inside->addWidget(pages.searchRow);
  inside->addWidget(filter_);
  if (pages.aboveList) inside->addWidget(pages.aboveList);
  inside->addWidget(list(), 1);
  inside->addLayout(counted);
  tabs_->addTab(listPage, pages.listTitle);
  tabs_->addTab(pages.cardPage, pages.cardTitle);
  auto* all = new QVBoxLayout(this);
  all->addWidget(tabs_, 1);
  all->addLayout(commandRow(pages.commands));
  // Enter on the last field of the card moves to the button that stores it.
  QList<QPushButton*> chain = pages.commands;
  chain.removeIf([this](QPushButton* button) { return navigation_.contains(button); });
  chain += navigation_;
  for (qsizetype i = 1; i < chain.size(); ++i) setTabOrder(chain[i - 1], chain[i]);
  finish(txtCautare_);
  connect(tabs_, &QTabWidget::currentChanged, this,
          [this] { guarded(objectName(), "SSTab_Click", [this] { tabChanged(); }); });
  tabChanged();
}

QLineEdit* CatalogueForm::searchField(KeyFilter::Options keys, std::function<void()> search) {
  txtCautare_ = makeTextBox("txtCautare", kSearchWidth, "Primele litere, apoi Enter", keys);
  connect(txtCautare_, &QLineEdit::returnPressed, this, [this, search = std::move(search)] {
    run("txtCautare_KeyPress", [this, &search] {
      if (leaveCard()) search();
    });
  });
  return txtCautare_;
}

QString CatalogueForm::searchText() const { return txtCautare_->text().trimmed(); }

void CatalogueForm::cauta() {
  condition_ = always_ && filter_->condition();
  order_ = defaultOrder_;
  refresh();
}

void CatalogueForm::askedSearch() {
  if (!leaveCard()) return;
  cauta();
  if (list()->rows().size() == 0) say("Nicio inregistrare nu indeplineste conditia cautarii.");
}

bool CatalogueForm::showFound(const Condition& condition, const QString& order) {
  auto rows = std::make_unique<ListRows>(query_, condition, order);
  if (rows->size() == 0) return false;
  condition_ = condition;
  order_ = order;
  found_ = std::move(rows);
  refresh();
  return true;
}

QList<QPushButton*> CatalogueForm::navigation() {
  const QList<QPushButton*> steps = {
      command("cmdFirst", "|<", "Prima inregistrare", {},
              [this] {
                if (leaveCard()) moveTo(0);
              }),
      command("cmdPrev", "<", "Inregistrarea anterioara", {}, [this] { step(-1); }),
      command("cmdNext", ">", "Inregistrarea urmatoare", {}, [this] { step(1); }),
      command("cmdLast", ">|", "Ultima inregistrare", {}, [this] {
        if (leaveCard()) moveTo(list()->rows().size() - 1);
      })};
  navigation_ = steps;
  for (QPushButton* button : steps) button->setMaximumWidth(button->fontMetrics().horizontalAdvance("0") * 6);
  return steps;
}

void CatalogueForm::moveTo(int place) {
  if (place < 0 || place >= list()->rows().size()) return;
  list()->selectPlace(place);
  if (isNew()) showRecord(list()->currentRecord());
}

void CatalogueForm::step(int by) {
  if (!leaveCard() || list()->rows().size() == 0) return;
  const int place = list()->currentIndex().row() + by;
  if (place >= 0 && place < list()->rows().size()) return moveTo(place);
  Mesaj(QStringLiteral("Sunteti pozitionat pe ") + (by < 0 ? "primul " : "ultimul ") + " tert!");
}

void CatalogueForm::showConflict(const ChangedMeanwhile& conflict, Row& shown) {
  for (const QString& column : conflict.columns()) {
    shown.set(column, Value::raw(conflict.stored().value(column)));
    card().showStored(column, conflict.stored().value(column));
  }
}

bool CatalogueForm::onCard() const { return tabs_->currentIndex() == kCardTab; }

void CatalogueForm::bringCard() { tabs_->setCurrentIndex(kCardTab); }

void CatalogueForm::bringList() { tabs_->setCurrentIndex(kListTab); }

QWidget* CatalogueForm::searchBox() {
  bringList();
  return txtCautare_;
}

void CatalogueForm::focusField(const QString& column) {
  if (card().control(column)) bringCard();
  ListForm::focusField(column);
}

void CatalogueForm::startNew() {
  bringCard();
  ListForm::startNew();
}

}  // namespace velmar
