#include "store/windows/BrowserForm.h"

#include <algorithm>
#include <QBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <utility>

#include "store/Database.h"
#include "store/windows/extTDBGrid.h"
#include "store/windows/WhereBuilder.h"
#include "util/Errors.h"
#include "util/NumberText.h"
#include "util/windows/Controls.h"

namespace velmar {

namespace {

constexpr int kShortList = 2000;  // rows; their totals are read at once

bool isSame(const Condition& one, const Condition& other) {
  return one.sql == other.sql &&
         std::equal(one.values.begin(), one.values.end(), other.values.begin(), other.values.end(),
                    [](const Value& a, const Value& b) { return a.data() == b.data(); });
}

}  // namespace

BrowserForm::BrowserForm(const QString& name, const QString& title, QWidget* parent)
    : ListForm(name, title, parent),
      filter_(new WhereBuilder),
      grouping_(new extTDBGrid("extTDBGrid")),
      lblNoRecs_(named(new QLabel, "lblNoRecs")) {}

void BrowserForm::setListed(const Listed& listed) {
  listed_ = listed;
  leaveGoneRecord(listed.staysOnRecord);
  auto* grid = new EntryGrid(listed.grid, EntryGrid::Refused::Reverted, objectName());
  grid->setColumns(listed.columns);
  grid->setEmptyText(listed.emptyText);
  QStringList keys;
  for (const QString& column : listed.query.key.split(u',')) keys.append(column.trimmed().section(u'.', -1));
  key_ = keys.join(u',');
  setList(
      grid, key_, [this] { return read(); }, listed.tables);
  grouping_->setTDBGrid(grid);
  connect(grid, &TDBGrid::allRowsNeeded, this,
          [this] { guarded(objectName(), "Form_Load", [this] { readRest(); }); });
}

// Only the first rows of a long list, unless the current record is behind them.
std::unique_ptr<RowSource> BrowserForm::read() {
  background_.stop();
  auto rows = std::make_unique<ListRows>(listed_.query, condition_, listed_.order, listed_.descending,
                                         ListRows::Read::FirstPart);
  const Row* current = list()->currentRecord();
  const QString key = current ? keyText(*current, key_) : QString();
  if (!rows->isWhole() && current && rows->placeOf(key) < 0) {
    std::vector<QVariant> keys = rows->firstKeys(kShortList);
    if (keys.size() / rows->width() < static_cast<size_t>(kShortList))
      rows->complete(std::move(keys));
    else
      rows->extend(std::move(keys));
    if (!rows->isWhole() && rows->placeOf(key) < 0)
      rows->complete(readKeys(database(), rows->keyStatement(), false));
  }
  rows_ = rows.get();
  for (const FooterTotal& each : totals_) list()->setFooter(each.footer, {});
  if (rows->isWhole() && rows->size() < kShortList) {
    totalsRead()(database(), false)();
  } else {
    lblNoRecs_->setText(QStringLiteral("..."));
    // The grid may order the rows first.
    QMetaObject::invokeMethod(this, &BrowserForm::readOn, Qt::QueuedConnection);
  }
  return rows;
}

void BrowserForm::readOn() {
  if (readShort()) return;
  std::vector<BackgroundRead::Work> works{totalsRead()};
  if (!rows_->isWhole())
    works.push_back(
        [this, statement = rows_->keyStatement()](Database& connection, const std::atomic<bool>& isStopped) {
          auto keys = std::make_shared<std::vector<QVariant>>(readKeys(connection, statement, isStopped));
          return [this, keys] {
            guarded(objectName(), "Form_Load", [&] {
              if (rows_->isWhole()) return;
              if (!rows_->isContinuedBy(*keys)) return refresh();
              extend(std::move(*keys));
            });
          };
        });
  background_.start(works, [this](const QString& text) { say(text); });
}

// The rest of a list that is not long, with its totals, at once; returns whether it was one.
bool BrowserForm::readShort() {
  if (rows_->isWhole() || rows_->size() >= kShortList) return false;
  std::vector<QVariant> keys = rows_->firstKeys(kShortList);
  if (keys.size() / rows_->width() >= static_cast<size_t>(kShortList)) return false;
  if (!rows_->isContinuedBy(keys)) {
    refresh();
    return true;
  }
  extend(std::move(keys));
  totalsRead()(database(), false)();
  return true;
}

BackgroundRead::Work BrowserForm::totalsRead() const {
  return [this, query = listed_.query, shown = condition_](Database& connection, const std::atomic<bool>&) {
    const qint64 count = countOf(connection, query, shown);
    return [this, count] { showCount(count); };
  };
}

// At once, for a command on all rows.
void BrowserForm::readRest() {
  if (rows_->isWhole()) return;
  background_.stop();
  std::vector<QVariant> keys = readKeys(database(), rows_->keyStatement(), false);
  if (!rows_->isContinuedBy(keys)) return refresh();
  extend(std::move(keys));
  readOn();
}

void BrowserForm::extend(std::vector<QVariant>&& keys) {
  const int more = static_cast<int>(keys.size() / rows_->width()) - rows_->size();
  list()->appendRows(more, [&] { rows_->complete(std::move(keys)); });
}

// Nothing is shown for 0.
void BrowserForm::showCount(qint64 count) const {
  lblNoRecs_->setText(count == 0 ? QString() : formatNumber(count, 0));
}

void BrowserForm::setTotals(const QList<FooterTotal>& totals, const GridPrintSettings& printing) {
  totals_ = totals;
  setPrinting(printing);
}

QPushButton* BrowserForm::searchCommand(const QString& toolTip, const QString& name) {
  return command(name, "Cautare", toolTip, "search", [this] { search(); });
}

QList<QPushButton*> BrowserForm::sortCommands(const QString& ascendingTip, const QString& descendingTip) {
  return {
      command("cmdSortAsc", "A-Z", ascendingTip, {}, [this] { grouping_->sortAs(extTDBGrid::kAscending); }),
      command("cmdSortDesc", "Z-A", descendingTip, {},
              [this] { grouping_->sortAs(extTDBGrid::kDescending); })};
}

QWidget* BrowserForm::browserPage(const QList<FilterField>& filter, const QString& firstField,
                                  QWidget* lists) {
  filter_->setFields(filter, firstField);
  connect(filter_, &WhereBuilder::searchAsked, this, [this] { run("WhereBuilder", [this] { search(); }); });
  auto* counted = new QHBoxLayout;
  counted->addStretch();
  counted->addWidget(new QLabel("Nr. :"));
  counted->addWidget(lblNoRecs_);
  auto* page = new QWidget;
  auto* inside = new QVBoxLayout(page);
  inside->addWidget(filter_);
  inside->addWidget(grouping_);
  inside->addWidget(lists, 1);
  inside->addLayout(counted);
  return page;
}

void BrowserForm::layOutBrowser(const QList<FilterField>& filter, const QString& firstField, QWidget* lists,
                                const QList<QPushButton*>& commands) {
  auto* all = new QVBoxLayout(this);
  QWidget* page = browserPage(filter, firstField, lists);
  page->layout()->setContentsMargins(0, 0, 0, 0);
  all->addWidget(page, 1);
  all->addLayout(commandRow(commands));
  finish(list());
}

void BrowserForm::search() {
  const Condition shown = std::exchange(condition_, filter_->condition());
  // Another search may well find other records.
  leaveGoneRecord(listed_.staysOnRecord && isSame(shown, condition_));
  refresh();
  leaveGoneRecord(listed_.staysOnRecord);
  if (list()->rows().size() == 0) say("Nicio inregistrare nu indeplineste conditia cautarii.");
}

void BrowserForm::showOnly(const QString& column, const QString& value, const QString& last) {
  filter_->setCondition(column, value, last);
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
  readRest();
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
