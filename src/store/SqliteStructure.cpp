// The structure of a company file: reading its catalogue, and changing the shape of a table. SQLite can only
// add columns to an existing table; every other change creates a new table and copies the rows.
#include <sqlite3.h>
#include <QMap>
#include <QRegularExpression>

#include "store/Sqlite.h"
#include "store/SqliteEngine.h"
#include "store/SqliteStatement.h"

namespace velmar::sqlite {

namespace {

// The catalogue contains the type, but only the C interface returns the collation.
QString collationOf(sqlite3* handle, const QString& table, const QString& column) {
  const char* collation = nullptr;
  sqlite3_table_column_metadata(handle, "main", table.toUtf8().constData(), column.toUtf8().constData(),
                                nullptr, &collation, nullptr, nullptr, nullptr);
  const QString name = QString::fromUtf8(collation);
  return name.isEmpty() || name == QStringLiteral("BINARY") ? QString() : QStringLiteral("COLLATE ") + name;
}

// The storage classes of values in a column of that type, after the engine's conversion.
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

// An empty text is not a number, and an integer has no decimals as a text: 19, not 19.0.
QString converted(const ColumnShape& from, const ColumnShape& to) {
  QString name = quotedIdentifier(from.name);
  if (!isRetyped(from, to)) return name;
  if (!to.isText)
    return QStringLiteral("CASE WHEN TYPEOF(%1) = 'text' THEN NULLIF(TRIM(%1), '') ELSE %1 END").arg(name);
  return QStringLiteral(
             "CASE WHEN TYPEOF(%1) = 'real' AND %1 = CAST(%1 AS INTEGER) THEN CAST(%1 AS INTEGER) ELSE %1 "
             "END")
      .arg(name);
}

// SQLite stores dates and times as texts; only the description says which columns contain them.
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

// Whether the change only adds columns at the end that ALTER TABLE can add: nullable ones, or ones with a
// constant default.
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

// The CHECK constraints anywhere in a CREATE TABLE statement: CHECK and the parentheses after it.
QStringList checksIn(const QString& statement) {
  static const QRegularExpression kToken(
      QStringLiteral(
          "'(?:[^']|'')*'|\"(?:[^\"]|\"\")*\"|`[^`]*`|\\[[^\\]]*\\]|--[^\\n]*|/\\*.*?\\*/|\\w+|[()]"),
      QRegularExpression::DotMatchesEverythingOption);
  QStringList checks;
  int depth = 0;
  int from = -1;  // start of the parentheses of a condition
  int outside = 0;
  bool expected = false;
  for (auto tokens = kToken.globalMatch(statement); tokens.hasNext();) {
    const auto token = tokens.next();
    const QString text = token.captured();
    if (text == QStringLiteral("(") && ++depth && expected) {
      from = static_cast<int>(token.capturedStart());
      outside = depth - 1;
    }
    if (text == QStringLiteral(")") && --depth == outside && from >= 0) {
      checks.append(QStringLiteral("CHECK ") + statement.mid(from, token.capturedEnd() - from));
      from = -1;
    }
    expected = from < 0 && text.compare(QStringLiteral("CHECK"), Qt::CaseInsensitive) == 0;
  }
  return checks;
}

// The catalogue returns a default expression without the parentheses that a declaration needs.
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
  shape.rules = rulesOf(table);
  return shape;
}

QStringList FileEngine::rulesOf(const QString& table) {
  QStringList rules;
  for (const Row& row :
       ask(QStringLiteral("SELECT (SELECT GROUP_CONCAT('\"' || REPLACE(name, '\"', '\"\"') || "
                          "'\"', ', ') FROM pragma_index_info(l.name)) AS columns "
                          "FROM pragma_index_list(?) AS l WHERE l.origin = 'u' ORDER BY l.name"),
           {table}))
    rules.append(QStringLiteral("UNIQUE (%1)").arg(row.text("columns")));
  QMap<qint64, Row> first;
  QMap<qint64, QStringList> from, to;
  for (const Row& row :
       ask(QStringLiteral("SELECT id, \"table\" AS other, \"from\" AS part, \"to\" AS target, on_update, "
                          "on_delete FROM pragma_foreign_key_list(?) ORDER BY id, seq"),
           {table})) {
    first.insert(row.integer("id"), row);
    from[row.integer("id")].append(row.text("part"));
    if (!row.isNull("target")) to[row.integer("id")].append(row.text("target"));
  }
  for (auto key = first.cbegin(); key != first.cend(); ++key) {
    const QStringList targets = to.value(key.key());
    rules.append(
        QStringLiteral("FOREIGN KEY (%1) REFERENCES %2%3 ON UPDATE %4 ON DELETE %5")
            .arg(quotedIdentifiers(from.value(key.key())), quotedIdentifier(key->text("other")),
                 targets.isEmpty() ? QString() : QStringLiteral(" (%1)").arg(quotedIdentifiers(targets)),
                 key->text("on_update"), key->text("on_delete")));
  }
  const Recordset statement =
      ask(QStringLiteral("SELECT sql FROM sqlite_master WHERE type = 'table' AND name = ? COLLATE NOCASE"),
          {table});
  return statement.isEmpty() ? rules : rules + checksIn(statement.first().text("sql"));
}

std::optional<ColumnType> FileEngine::kindOf(const TableShape& table, const ColumnShape& column) const {
  const QString type = column.type.toUpper();
  if (type == QStringLiteral("INTEGER") && table.key == QStringList(column.name) && table.suffix.isEmpty())
    return ColumnType::AutoNumber;
  // In the order of SQLite's rules for type affinity: the first match counts.
  constexpr std::pair<const char*, ColumnType> kKinds[] = {
      {"INT", ColumnType::Integer},  {"CHAR", ColumnType::Text},         {"CLOB", ColumnType::Text},
      {"TEXT", ColumnType::Text},    {"REAL", ColumnType::Real},         {"FLOA", ColumnType::Real},
      {"DOUB", ColumnType::Real},    {"NUM", ColumnType::Real},          {"DEC", ColumnType::Real},
      {"BOOL", ColumnType::Integer}, {"DATETIME", ColumnType::DateTime}, {"TIMESTAMP", ColumnType::DateTime},
      {"DATE", ColumnType::Date},    {"TIME", ColumnType::Time}};
  for (const auto& [part, kind] : kKinds)
    if (type.contains(QLatin1String(part))) return kind;
  return std::nullopt;
}

QStringList FileEngine::ownKinds() {
  QStringList names;
  for (const Row& row : ask(QStringLiteral(
           "SELECT name FROM sqlite_master WHERE type = 'table' AND sql LIKE 'CREATE VIRTUAL%' UNION ALL "
           "SELECT m.name || '.' || x.name FROM sqlite_master AS m, pragma_table_xinfo(m.name) AS x "
           "WHERE m.type = 'table' AND x.hidden <> 0")))
    names.append(row.text("name"));
  return names;
}

std::vector<StoredStatement> FileEngine::indexesOf(const QString& table) {
  return stored(QStringLiteral("SELECT name, sql FROM sqlite_master WHERE type = 'index' AND sql IS NOT NULL "
                               "AND tbl_name = ? COLLATE NOCASE ORDER BY rowid"),
                {table});
}

std::vector<StoredStatement> FileEngine::views() {
  return stored(QStringLiteral("SELECT name, sql FROM sqlite_master WHERE type = 'view' ORDER BY rowid"));
}

std::vector<StoredStatement> FileEngine::triggers() {
  return stored(QStringLiteral("SELECT name, sql FROM sqlite_master WHERE type = 'trigger' ORDER BY rowid"));
}

void FileEngine::dropTrigger(const QString& name) {
  run(QStringLiteral("DROP TRIGGER ") + quotedIdentifier(name));
}

void FileEngine::reshape(const TableShape& from, const TableShape& to) {
  if (!onlyAdds(from, to)) return rebuild(from, to);
  for (size_t i = from.columns.size(); i < to.columns.size(); ++i)
    run(QStringLiteral("ALTER TABLE %1 ADD COLUMN %2")
            .arg(quotedIdentifier(from.name), to.columns[i].declaration()));
}

void FileEngine::rebuild(const TableShape& from, const TableShape& to) {
  const Recordset computed =
      ask(QStringLiteral("SELECT name FROM pragma_table_xinfo(?) WHERE hidden <> 0 LIMIT 1"), {from.name});
  if (!computed.isEmpty())
    throw StoreError(SQLITE_ERROR,
                     QStringLiteral("Tabela %1 are coloana calculata %2 si nu poate fi refacuta. "
                                    "Stergeti coloana si incercati din nou.")
                         .arg(from.name, computed.first().text("name")));
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

// SQLite accepts any value in any column and only tries to convert it to the column's type.
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
