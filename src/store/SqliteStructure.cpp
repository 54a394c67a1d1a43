// The structure of a company file: what its catalogue tells, and how a table gets another shape. The engine
// can only add columns to a table that stands, so every other change makes the table anew and moves the rows
// over.
#include <sqlite3.h>

#include "store/Sqlite.h"
#include "store/SqliteEngine.h"
#include "store/SqliteStatement.h"

namespace velmar::sqlite {

namespace {

// The catalogue keeps the type, but how a text sorts is known to the C interface alone.
QString collationOf(sqlite3* handle, const QString& table, const QString& column) {
  const char* collation = nullptr;
  sqlite3_table_column_metadata(handle, "main", table.toUtf8().constData(), column.toUtf8().constData(),
                                nullptr, &collation, nullptr, nullptr, nullptr);
  const QString name = QString::fromUtf8(collation);
  return name.isEmpty() || name == QStringLiteral("BINARY") ? QString() : QStringLiteral("COLLATE ") + name;
}

// The kinds of values that the engine keeps in a column of that type once it has brought them to it.
QString kindsOf(const ColumnShape& column) {
  const QString type = column.type.toUpper();
  if (type.contains(QStringLiteral("INT"))) return QStringLiteral("'integer'");
  if (column.isText) return QStringLiteral("'text'");
  for (const char* part : {"REAL", "FLOA", "DOUB"})
    if (type.contains(QLatin1String(part))) return QStringLiteral("'real'");
  return QStringLiteral("'integer', 'real'");
}

bool isRetyped(const ColumnShape& from, const ColumnShape& to) {
  return from.type != to.type || from.attributes != to.attributes;
}

// An empty text is no number, and a whole number reads as one: 19, not 19.0.
QString converted(const ColumnShape& from, const ColumnShape& to) {
  const QString name = quotedIdentifier(from.name);
  if (!isRetyped(from, to)) return name;
  if (!to.isText)
    return QStringLiteral("CASE WHEN TYPEOF(%1) = 'text' THEN NULLIF(TRIM(%1), '') ELSE %1 END").arg(name);
  return QStringLiteral(
             "CASE WHEN TYPEOF(%1) = 'real' AND %1 = CAST(%1 AS INTEGER) THEN CAST(%1 AS INTEGER) ELSE %1 "
             "END")
      .arg(name);
}

// The engine keeps dates and times as texts; which columns hold them is told by the description alone.
bool isMoment(const QString& tableName, const QString& columnName) {
  for (const Table& table : companyTables()) {
    if (table.name().compare(tableName, Qt::CaseInsensitive) != 0) continue;
    const Column* column = table.column(columnName);
    return column && (column->type == ColumnType::Date || column->type == ColumnType::Time ||
                      column->type == ColumnType::DateTime);
  }
  return false;
}

QString misfit(const ColumnShape& column, bool moment) {
  const QString name = quotedIdentifier(column.name);
  QString condition = QStringLiteral("%1 IS NOT NULL AND (TYPEOF(%1) NOT IN (%2)").arg(name, kindsOf(column));
  if (column.width > 0) condition += QStringLiteral(" OR LENGTH(%1) > %2").arg(name).arg(column.width);
  if (moment)
    condition += QStringLiteral(
                     " OR JULIANDAY(%1) IS NULL OR (%1 NOT GLOB '[0-9][0-9][0-9][0-9]-[0-9][0-9]-[0-9][0-9]*'"
                     " AND %1 NOT GLOB '[0-9][0-9]:[0-9][0-9]*')")
                     .arg(name);
  return condition + u')';
}

// Columns behind those that stand, which the engine can add by itself: optional ones, or with a plain
// default.
bool onlyAdds(const TableShape& from, const TableShape& to) {
  if (from.key != to.key || from.columns.size() > to.columns.size()) return false;
  for (size_t i = 0; i < to.columns.size(); ++i) {
    const ColumnShape& column = to.columns[i];
    if (i < from.columns.size()) {
      if (!(column == from.columns[i])) return false;
    } else if (column.fallback.startsWith(u'(') || (column.required && column.fallback.isEmpty())) {
      return false;
    }
  }
  return true;
}

// The catalogue gives an expression without the brackets that it needs to be declared.
QString declarable(const QString& fallback) {
  if (fallback.isEmpty() || fallback.startsWith(u'\'')) return fallback;
  for (const QChar c : fallback)
    if (!c.isLetterOrNumber() && !QStringLiteral("+-._").contains(c)) return u'(' + fallback + u')';
  return fallback;
}

}  // namespace

Recordset FileEngine::ask(const QString& sql, const Values& values) {
  return Statement(handleOf(connection_), sql, path_).query(values);
}

std::vector<StoredStatement> FileEngine::stored(const QString& sql, const Values& values) {
  std::vector<StoredStatement> all;
  for (const Row& row : ask(sql, values)) all.push_back({row.text("name"), row.text("sql")});
  return all;
}

QStringList FileEngine::tables() {
  QStringList names;
  for (const Row& row : ask(QStringLiteral("SELECT name FROM sqlite_master WHERE type = 'table' "
                                           "AND SUBSTR(name, 1, 7) <> 'sqlite_' ORDER BY rowid")))
    names.append(row.text("name"));
  return names;
}

TableShape FileEngine::tableShape(const QString& table) {
  TableShape shape;
  shape.name = table;
  const Recordset columns = ask(
      QStringLiteral("SELECT name, type, \"notnull\" AS required, dflt_value, pk FROM pragma_table_info(?) "
                     "ORDER BY cid"),
      {table});
  QMap<qint64, QString> key;
  for (const Row& row : columns) {
    ColumnShape column;
    column.name = row.text("name");
    setDeclaredType(column, row.text("type").toUpper());
    column.attributes = collationOf(handleOf(connection_), table, column.name);
    column.required = row.flag("required");
    column.fallback = declarable(row.text("dflt_value"));
    if (row.integer("pk") > 0) key.insert(row.integer("pk"), column.name);
    shape.columns.push_back(column);
  }
  shape.key = key.values();
  const Recordset kind = ask(
      QStringLiteral("SELECT wr FROM pragma_table_list WHERE name = ? COLLATE NOCASE AND schema = 'main'"),
      {table});
  if (!kind.isEmpty() && kind.first().flag("wr")) shape.suffix = clusteredSuffix();
  return shape;
}

std::vector<StoredStatement> FileEngine::indexesOf(const QString& table) {
  return stored(QStringLiteral("SELECT name, sql FROM sqlite_master WHERE type = 'index' AND sql IS NOT NULL "
                               "AND tbl_name = ? COLLATE NOCASE ORDER BY rowid"),
                {table});
}

std::vector<StoredStatement> FileEngine::views() {
  return stored(QStringLiteral("SELECT name, sql FROM sqlite_master WHERE type = 'view' ORDER BY rowid"));
}

void FileEngine::reshape(const TableShape& from, const TableShape& to) {
  if (!onlyAdds(from, to)) return rebuild(from, to);
  for (size_t i = from.columns.size(); i < to.columns.size(); ++i)
    run(QStringLiteral("ALTER TABLE %1 ADD COLUMN %2")
            .arg(quotedIdentifier(from.name), to.columns[i].declaration()));
}

void FileEngine::rebuild(const TableShape& from, const TableShape& to) {
  const auto followers =
      stored(QStringLiteral("SELECT name, sql FROM sqlite_master WHERE type IN ('index', 'trigger') "
                            "AND sql IS NOT NULL AND tbl_name = ? COLLATE NOCASE ORDER BY rowid"),
             {from.name});
  TableShape draft = to;
  draft.name += QStringLiteral("-nou");
  run(draft.createStatement());
  QStringList names, values;
  for (const ColumnShape& column : to.columns) {
    const ColumnShape* old = from.column(column.name);
    if (!old) continue;
    names.append(column.name);
    const QString value = converted(*old, column);
    const bool filled = column.required && !column.fallback.isEmpty();
    values.append(filled ? QStringLiteral("COALESCE(%1, %2)").arg(value, column.fallback) : value);
  }
  run(QStringLiteral("INSERT INTO %1 (%2) SELECT %3 FROM %4")
          .arg(quotedIdentifier(draft.name), quotedIdentifiers(names), values.join(QStringLiteral(", ")),
               quotedIdentifier(from.name)));
  for (const ColumnShape& column : to.columns) {
    const ColumnShape* old = from.column(column.name);
    if (old && isRetyped(*old, column)) requireConverted(draft.name, column, isMoment(to.name, column.name));
  }
  run(QStringLiteral("DROP TABLE ") + quotedIdentifier(from.name));
  run(QStringLiteral("ALTER TABLE %1 RENAME TO %2")
          .arg(quotedIdentifier(draft.name), quotedIdentifier(from.name)));
  for (const StoredStatement& follower : followers) run(follower.statement);
}

// The engine takes any value into any column, and only seeks to bring it to the column's type.
void FileEngine::requireConverted(const QString& table, const ColumnShape& column, bool moment) {
  const Recordset misfits =
      ask(QStringLiteral("SELECT %1 AS misfit FROM %2 WHERE %3 LIMIT 1")
              .arg(quotedIdentifier(column.name), quotedIdentifier(table), misfit(column, moment)));
  if (misfits.isEmpty()) return;
  throw StoreError(SQLITE_MISMATCH,
                   QStringLiteral("Valoarea \"%1\" din coloana %2 nu se potriveste cu tipul %3.")
                       .arg(misfits.first().text("misfit"), column.name, column.declaredType()));
}

}  // namespace velmar::sqlite
