#include "store/clsCompareBD.h"

#include <algorithm>
#include <climits>

#include "store/Database.h"
#include "store/Engine.h"
#include "store/StockBalance.h"
#include "store/TemplateData.h"

namespace velmar {

namespace {

const QString kUnits = QStringLiteral("G_UM");  // an older company gets its rows too

bool sameName(const QString& one, const QString& other) {
  return one.compare(other, Qt::CaseInsensitive) == 0;
}

// Whether two statements are the same except for spelling.
bool sameStatement(const QString& one, const QString& other) {
  const auto plain = [](QString text) { return text.remove(u'"').simplified().remove(u' ').toLower(); };
  return plain(one) == plain(other);
}

const StoredStatement* find(const std::vector<StoredStatement>& all, const QString& name) {
  const auto found = std::find_if(all.begin(), all.end(),
                                  [&name](const StoredStatement& each) { return sameName(each.name, name); });
  return found == all.end() ? nullptr : &*found;
}

}  // namespace

void clsCompareBD::Compara(const Progress& progress) {
  readTemplate();
  const auto company = Database::open(companyPath_);
  company_ = company.get();
  Transaction transaction(*company);
  company->engine().limitLockWaits();
  company->prepareSchema();
  const QStringList present = company->engine().tables();
  const int count = static_cast<int>(tables_.size());
  int done = 0;
  // The column `ID` of the parameters and its key are handled like any other column.
  for (const TableParts& table : tables_) {
    const auto found = std::find_if(present.begin(), present.end(), [&table](const QString& name) {
      return sameName(name, table.shape.name);
    });
    if (found == present.end()) {
      CopiazaObiect(table);
      if (sameName(table.shape.name, kUnits)) insertTemplateRows(*company, kUnits);
    } else {
      CompareTables(table, *found);
    }
    if (progress) progress(++done, count);
  }
  CompareViews();
  CompareTriggers();
  refillBalance(*company);
  transaction.commit();
}

// Reads the template and closes it before the company is changed: on a server no company can be created while
// it is open.
void clsCompareBD::readTemplate() {
  const auto source = Database::open(templatePath_);
  Engine& engine = source->engine();
  tables_.clear();
  for (const QString& name : engine.tables())
    tables_.push_back({engine.tableShape(name), engine.indexesOf(name)});
  views_ = engine.views();
  triggers_ = engine.triggers();
}

void clsCompareBD::CompareTables(const TableParts& wanted, const QString& name) {
  const TableShape found = company_->engine().tableShape(name);
  TableShape target = found;
  bool retyped = false;
  for (const ColumnShape& column : wanted.shape.columns) {
    if (ColumnShape* own = target.column(column.name))
      retyped = CompareFields(column, *own) || retyped;
    else
      AdaugaCamp(target, column);
  }
  CompareKeys(wanted.shape, found, target);
  if (!(target == found)) {
    setAside();
    // The condition of an index may be invalid for the new type.
    if (retyped) dropIndexes(wanted, name);
    company_->engine().reshape(found, target);
  }
  CompareIndexes(wanted, name);
}

bool clsCompareBD::CompareFields(const ColumnShape& wanted, ColumnShape& own) const {
  const auto room = [](const ColumnShape& column) { return column.width == 0 ? INT_MAX : column.width; };
  const bool texts = wanted.isText && own.isText;
  const bool narrower = texts && room(wanted) < room(own);
  const bool differs = wanted.declaredType() != own.declaredType() && !narrower;
  if (differs) ModifyField(wanted, own);
  // A default that only the company has is kept.
  if (!wanted.fallback.isEmpty()) own.fallback = wanted.fallback;
  own.required = wanted.required;
  return differs;
}

void clsCompareBD::ModifyField(const ColumnShape& wanted, ColumnShape& own) const {
  if (own.type != wanted.type) own.fallback = wanted.fallback;
  own.type = wanted.type;
  own.width = wanted.width;
  own.isText = wanted.isText;
  own.attributes = wanted.attributes;
}

void clsCompareBD::AdaugaCamp(TableShape& table, const ColumnShape& wanted) const {
  table.columns.push_back(wanted);
}

void clsCompareBD::CompareKeys(const TableShape& wanted, const TableShape& found, TableShape& target) const {
  const bool same =
      std::equal(wanted.key.begin(), wanted.key.end(), found.key.begin(), found.key.end(), sameName);
  if (!wanted.key.isEmpty() && !same) {
    target.key.clear();
    for (const QString& name : wanted.key) target.key.append(target.column(name)->name);
    target.suffix = wanted.suffix;
  }
  for (const QString& name : target.key) {
    ColumnShape* part = target.column(name);
    const ColumnShape* before = found.column(name);
    part->required = part->required || (before && before->required);
  }
}

void clsCompareBD::dropIndexes(const TableParts& wanted, const QString& name) {
  for (const StoredStatement& own : company_->engine().indexesOf(name))
    if (find(wanted.indexes, own.name))
      company_->engine().run(QStringLiteral("DROP INDEX ") + quotedIdentifier(own.name));
}

void clsCompareBD::CompareIndexes(const TableParts& wanted, const QString& name) {
  Engine& engine = company_->engine();
  const auto present = engine.indexesOf(name);
  for (const StoredStatement& index : wanted.indexes) {
    const StoredStatement* own = find(present, index.name);
    if (own && sameStatement(own->statement, index.statement)) continue;
    if (own) engine.run(QStringLiteral("DROP INDEX ") + quotedIdentifier(own->name));
    engine.run(index.statement);
  }
}

void clsCompareBD::CopiazaObiect(const TableParts& table) {
  company_->engine().run(table.shape.createStatement());
  for (const StoredStatement& index : table.indexes) company_->engine().run(index.statement);
}

// Neither engine can change a table that a stored query or a trigger uses. The company's own triggers are not
// dropped: the engine reports them if they are in the way.
void clsCompareBD::setAside() {
  for (const StoredStatement& trigger : company_->engine().triggers())
    if (find(triggers_, trigger.name)) company_->engine().dropTrigger(trigger.name);
  if (!aside_.empty()) return;
  aside_ = company_->engine().views();
  for (auto view = aside_.rbegin(); view != aside_.rend(); ++view)
    company_->engine().run(QStringLiteral("DROP VIEW ") + quotedIdentifier(view->name));
}

// An existing stored query of the same name is not changed. Engines treat names that differ only in case as
// equal.
void clsCompareBD::CompareViews() {
  Engine& engine = company_->engine();
  for (const StoredStatement& view : std::exchange(aside_, {})) engine.run(view.statement);
  const auto present = engine.views();
  for (const StoredStatement& view : views_)
    if (!find(present, view.name)) engine.run(view.statement);
}

void clsCompareBD::CompareTriggers() {
  Engine& engine = company_->engine();
  const auto present = engine.triggers();
  for (const StoredStatement& trigger : triggers_) {
    const StoredStatement* own = find(present, trigger.name);
    if (own && sameStatement(own->statement, trigger.statement)) continue;
    if (own) engine.dropTrigger(own->name);
    engine.run(trigger.statement);
  }
}

}  // namespace velmar
