#include "store/CompanyShape.h"

#include <algorithm>
#include <QRegularExpression>

#include "store/Database.h"
#include "store/Engine.h"
#include "util/Errors.h"

namespace velmar {

namespace {

bool sameName(const QString& one, const QString& other) {
  return one.compare(other, Qt::CaseInsensitive) == 0;
}

[[noreturn]] void refuse(const QString& what) {
  throw StoreError(
      0, QStringLiteral("Societatea are %1, care nu se poate copia. Nu s-a copiat nimic.").arg(what));
}

const Table* described(const QString& name) {
  for (const Table& table : companyTables())
    if (sameName(table.name(), name)) return &table;
  return nullptr;
}

bool isPlain(const QString& name) {
  static const QRegularExpression kPlain(QStringLiteral("^[A-Za-z_][A-Za-z0-9_]*$"));
  return kPlain.match(name).hasMatch();
}

QString spelling(const QString& name) { return isPlain(name) ? name.toLower() : name; }

// Removes PostgreSQL's casts, which SQLite does not understand and does not need.
QString withoutCasts(const QString& text) {
  static const QRegularExpression kCast(
      QStringLiteral("::(double precision|character varying|timestamp without time zone|[a-z_][a-z0-9_]*)"));
  return QString(text).remove(kCast);
}

// Whether values of the found type can be stored in a column of the described type.
bool holds(ColumnType found, ColumnType wanted) {
  const auto isWhole = [](ColumnType type) {
    return type == ColumnType::Integer || type == ColumnType::AutoNumber || type == ColumnType::Boolean;
  };
  const auto isMoment = [](ColumnType type) {
    return type == ColumnType::Date || type == ColumnType::Time || type == ColumnType::DateTime;
  };
  return found == wanted || (isWhole(found) && isWhole(wanted)) ||
         (found == ColumnType::Text && isMoment(wanted));
}

// Only constants are valid as defaults on both engines.
QString constant(const QString& place, const QString& expression) {
  static const QRegularExpression kConstant(
      QStringLiteral("^\\(*('([^']|'')*'|[+-]?[0-9]+([.][0-9]+)?|null)\\)*$"),
      QRegularExpression::CaseInsensitiveOption);
  const auto found = kConstant.match(withoutCasts(expression).trimmed());
  if (!found.hasMatch()) refuse(QStringLiteral("coloana %1 cu valoarea implicita %2").arg(place, expression));
  return sameName(found.captured(1), QStringLiteral("null")) ? QString() : found.captured(1);
}

class Describer {
 public:
  explicit Describer(Engine& engine) : engine_(engine) {}

  FoundCompany company() {
    FoundCompany found;
    const QStringList kinds = engine_.ownKinds() + ownTriggers(found);
    if (!kinds.isEmpty()) refuse(kinds.join(QStringLiteral(", ")));
    const QStringList names = engine_.tables();
    for (const Table& wanted : companyTables())
      for (const QString& name : names)
        if (sameName(name, wanted.name())) found.tables.push_back(table(name, &wanted));
    QStringList own;
    for (const QString& name : names)
      if (!described(name)) own.append(name);
    std::sort(own.begin(), own.end(),
              [](const QString& a, const QString& b) { return a.toLower() < b.toLower(); });
    for (const QString& name : own) found.tables.push_back(table(name, nullptr));
    for (const StoredStatement& view : engine_.views()) found.views.push_back(portable(view));
    return found;
  }

 private:
  // The triggers that only this company has.
  QStringList ownTriggers(FoundCompany& found) {
    const auto described = engine_.companyTriggers();
    size_t missing = described.size();
    QStringList own;
    for (const StoredStatement& trigger : engine_.triggers()) {
      const bool isDescribed =
          std::any_of(described.begin(), described.end(),
                      [&trigger](const StoredStatement& each) { return sameName(each.name, trigger.name); });
      if (isDescribed)
        --missing;
      else
        own.append(QStringLiteral("trigger ") + trigger.name);
    }
    found.hasTriggers = missing == 0;
    return own;
  }

  FoundTable table(const QString& name, const Table* wanted) {
    const TableShape shape = engine_.tableShape(name);
    FoundTable found{Table(wanted ? wanted->name() : spelling(name)), quotedIdentifier(name), {}, {}};
    addColumns(found, shape, wanted);
    addKey(found.table, shape, wanted);
    for (const QString& rule : shape.rules) found.table.rule(withoutCasts(rule));
    addIndexes(found, name, wanted);
    return found;
  }

  // The described columns in their order, then the others by name: copies of copies have the same order.
  void addColumns(FoundTable& found, const TableShape& shape, const Table* wanted) const {
    std::vector<const ColumnShape*> own;
    for (const ColumnShape& column : shape.columns)
      if (!wanted || !wanted->column(column.name)) own.push_back(&column);
    if (wanted) {
      std::sort(own.begin(), own.end(), [](const ColumnShape* a, const ColumnShape* b) {
        return a->name.toLower() < b->name.toLower();
      });
      for (const Column& column : wanted->columns())
        if (const ColumnShape* each = shape.column(column.name)) {
          const ColumnType kind = kindOf(shape, *each);
          found.table.add(holds(kind, column.type) ? column : plain(shape, *each, kind, column.name));
          found.columns.append(quotedIdentifier(each->name));
        }
    }
    for (const ColumnShape* each : own) {
      found.table.add(plain(shape, *each, kindOf(shape, *each), spelling(each->name)));
      found.columns.append(quotedIdentifier(each->name));
    }
  }

  ColumnType kindOf(const TableShape& shape, const ColumnShape& column) const {
    const auto kind = engine_.kindOf(shape, column);
    if (!kind)
      refuse(QStringLiteral("coloana %1.%2 de tipul %3").arg(shape.name, column.name, column.declaredType()));
    return *kind;
  }

  static Column plain(const TableShape& shape, const ColumnShape& column, ColumnType kind,
                      const QString& name) {
    Column made{name, kind, column.width, false, column.required, {}};
    const bool numbered = kind == ColumnType::AutoNumber;
    if (!column.fallback.isEmpty() && !numbered)
      made.fallback = constant(shape.name + u'.' + column.name, column.fallback);
    return made;
  }

  static void addKey(Table& table, const TableShape& shape, const Table* wanted) {
    QStringList key;
    for (const QString& name : shape.key) {
      const Column* column = table.column(name);
      key.append(column ? column->name : name);
    }
    const bool same = wanted && std::equal(key.begin(), key.end(), wanted->keyColumns().begin(),
                                           wanted->keyColumns().end(), sameName);
    table.keyOf(same ? wanted->keyColumns() : key);
  }

  // The described indexes are added only to a table that has all its columns; otherwise the upgrade creates
  // them.
  void addIndexes(FoundTable& found, const QString& name, const Table* wanted) {
    QStringList known;
    if (wanted) {
      const bool whole =
          std::all_of(wanted->columns().begin(), wanted->columns().end(),
                      [&found](const Column& column) { return found.table.column(column.name) != nullptr; });
      for (const Index& index : wanted->indexes())
        if (whole) found.table.add(index);
      for (const QString& statement : createStatements(*wanted, engine_))
        known.append(statement.section(u' ', 2, 2).toLower());
    }
    for (const StoredStatement& index : engine_.indexesOf(name))
      if (!known.contains(index.name.toLower())) found.indexes.push_back(portable(index));
  }

  static StoredStatement portable(const StoredStatement& stored) {
    for (const StoredStatement& known : companyViews())
      if (sameName(known.name, stored.name)) return known;
    return {stored.name, withoutCasts(stored.statement)};
  }

  Engine& engine_;
};

}  // namespace

FoundCompany describeCompany(Database& company) { return Describer(company.engine()).company(); }

}  // namespace velmar
