#include "store/windows/BrowserForm.h"

#include <QBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "store/windows/extTDBGrid.h"
#include "store/windows/WhereBuilder.h"
#include "util/NumberText.h"
#include "util/windows/Controls.h"

namespace velmar {

BrowserForm::BrowserForm(const QString& name, const QString& title, QWidget* parent)
    : ListForm(name, title, parent),
      filter_(new WhereBuilder),
      grouping_(new extTDBGrid("extTDBGrid")),
      lblNoRecs_(named(new QLabel, "lblNoRecs")) {}

void BrowserForm::setListed(const Listed& listed) {
  listed_ = listed;
  auto* grid = new EntryGrid(listed.grid, EntryGrid::Refused::Reverted, objectName());
  grid->setColumns(listed.columns);
  grid->setEmptyText(listed.emptyText);
  QStringList keys;
  for (const QString& column : listed.query.key.split(u',')) keys.append(column.trimmed().section(u'.', -1));
  const auto read = [this]() -> std::unique_ptr<RowSource> {
    auto rows = std::make_unique<ListRows>(listed_.query, condition_, listed_.order, listed_.descending);
    // Nothing is shown for 0.
    lblNoRecs_->setText(rows->size() == 0 ? QString() : formatNumber(rows->size(), 0));
    listRead();
    return rows;
  };
  setList(grid, keys.join(u','), read, listed.tables);
  grouping_->setTDBGrid(grid);
}

void BrowserForm::setTotals(const QList<FooterTotal>& totals, const GridPrintSettings& printing) {
  totals_ = totals;
  setPrinting(printing);
}

QPushButton* BrowserForm::searchCommand(const QString& toolTip) {
  return command("cmdCautare", "Cautare", toolTip, "search", [this] { search(); });
}

QList<QPushButton*> BrowserForm::sortCommands(const QString& ascendingTip, const QString& descendingTip) {
  return {
      command("cmdSortAsc", "A-Z", ascendingTip, {}, [this] { grouping_->sortAs(extTDBGrid::kAscending); }),
      command("cmdSortDesc", "Z-A", descendingTip, {},
              [this] { grouping_->sortAs(extTDBGrid::kDescending); })};
}

void BrowserForm::layOutBrowser(const QList<FilterField>& filter, const QString& firstField, QWidget* lists,
                                const QList<QPushButton*>& commands) {
  filter_->setFields(filter, firstField);
  connect(filter_, &WhereBuilder::searchAsked, this, [this] { run("WhereBuilder", [this] { search(); }); });
  auto* counted = new QHBoxLayout;
  counted->addStretch();
  counted->addWidget(new QLabel("Nr. :"));
  counted->addWidget(lblNoRecs_);
  auto* all = new QVBoxLayout(this);
  all->addWidget(filter_);
  all->addWidget(grouping_);
  all->addWidget(lists, 1);
  all->addLayout(counted);
  all->addLayout(commandRow(commands));
  finish(list());
}

void BrowserForm::search() {
  condition_ = filter_->condition();
  refresh();
  if (list()->rows().size() == 0) say("Nicio inregistrare nu indeplineste conditia cautarii.");
}

void BrowserForm::showOnly(const QString& column, const QString& value) {
  filter_->setCondition(column, value);
  search();
}

void BrowserForm::setFooters(bool filled) {
  QStringList footers;
  QHash<QString, Decimal> sums;
  if (filled) {
    QList<TotalledField> fields;
    for (const FooterTotal& each : totals_) fields.append(each.total);
    const std::vector<Decimal> found = sumsOf(list()->rows(), list()->selectedPlaces(), fields);
    for (qsizetype i = 0; i < totals_.size(); ++i) sums[totals_[i].footer] += found[static_cast<size_t>(i)];
  }
  for (const FooterTotal& each : totals_) {
    const Decimal sum = sums.value(each.footer);
    const QString text = each.decimals < 0 ? editNumber(sum) : formatNumber(sum, each.decimals);
    list()->setFooter(each.footer, filled ? text : QString());
  }
}

void BrowserForm::printList() {
  setFooters(true);
  try {
    ListForm::printList();
  } catch (...) {
    setFooters(false);
    throw;
  }
  setFooters(false);
}

QWidget* BrowserForm::searchBox() { return filter_->findChild<QLineEdit*>("txtValoare"); }

}  // namespace velmar
