#include "store/Schema.h"

#include "store/Database.h"
#include "store/Engine.h"
#include "store/StockBalance.h"
#include "util/Errors.h"

namespace velmar {

namespace {

QString createStatement(const Table& table, const Engine& engine) {
  QStringList parts;
  for (const Column& column : table.columns()) {
    QString part = engine.identifier(column.name) + QLatin1Char(' ') + engine.declaredType(column);
    if (table.keyColumns().contains(column.name) || column.required) part += QStringLiteral(" NOT NULL");
    // A line without a number is line 0 of its document.
    if (table.keyColumns().size() > 1 && table.keyColumns().last() == column.name &&
        column.type == ColumnType::Integer)
      part += QStringLiteral(" DEFAULT 0");
    if (!column.fallback.isEmpty()) part += QStringLiteral(" DEFAULT ") + column.fallback;
    parts.append(part);
  }
  QStringList key;
  for (const QString& name : table.keyColumns()) key.append(engine.identifier(name));
  if (!key.isEmpty()) parts.append(QStringLiteral("PRIMARY KEY (%1)").arg(key.join(QStringLiteral(", "))));
  parts.append(table.rules());
  const QString clustered = table.keyColumns().size() > 1 ? engine.clusteredSuffix() : QString();
  return QStringLiteral("CREATE TABLE %1 (%2)%3")
      .arg(engine.identifier(table.name()), parts.join(QStringLiteral(", ")), clustered);
}

QString createStatement(const Table& table, const Index& index, int number, const Engine& engine) {
  QStringList columns;
  for (const QString& column : index.columns) columns.append(engine.indexedColumn(table, column));
  const QString where = index.where.isEmpty() ? QString() : QStringLiteral(" WHERE ") + index.where;
  return QStringLiteral("CREATE INDEX ix%1_%2 ON %3 (%4)%5")
      .arg(QString::number(number), QString(table.name()).remove(QLatin1Char(' ')).remove(QLatin1Char('-')),
           quoted(table.name()), columns.join(QStringLiteral(", ")), where);
}

}  // namespace

QString quoted(const QString& name) {
  return name.contains(QLatin1Char(' ')) ? QStringLiteral("\"%1\"").arg(name) : name;
}

Table& Table::add(const QString& names, ColumnType type, int width, bool zeroDefault) {
  for (const QString& name : names.split(QLatin1Char(' '), Qt::SkipEmptyParts))
    columns_.push_back({name, type, width, zeroDefault, false, {}});
  return *this;
}

Table& Table::text(const QString& name, int width) { return add(name, ColumnType::Text, width); }
Table& Table::texts(const QString& names, int width) { return add(names, ColumnType::Text, width); }
Table& Table::integers(const QString& names) { return add(names, ColumnType::Integer); }
Table& Table::autoNumber(const QString& name) { return add(name, ColumnType::AutoNumber).key(name); }
Table& Table::reals(const QString& names) { return add(names, ColumnType::Real); }
Table& Table::zeroReals(const QString& names) { return add(names, ColumnType::Real, 0, true); }
Table& Table::flags(const QString& names) { return add(names, ColumnType::Boolean); }
Table& Table::dates(const QString& names) { return add(names, ColumnType::Date); }
Table& Table::times(const QString& names) { return add(names, ColumnType::Time); }
Table& Table::moments(const QString& names) { return add(names, ColumnType::DateTime); }

Table& Table::key(const QString& names) {
  key_ = names.split(QLatin1Char(' '), Qt::SkipEmptyParts);
  return *this;
}

Table& Table::numbered(const QString& column, int prefix, const QString& within) {
  return index(QStringLiteral("%1 LENGTH(%2) %2").arg(within, column), plainNumber(keyNumber(column, prefix)))
      .index(QStringLiteral("%1 %2").arg(within, column), oddNumber(column, prefix));
}

Table& Table::index(const QString& names, const QString& where) {
  indexes_.push_back({names.split(QLatin1Char(' '), Qt::SkipEmptyParts), where});
  return *this;
}

const Column* Table::column(const QString& name) const {
  // Most callers use the exact name; only the others need case folding.
  for (const Column& column : columns_)
    if (column.name == name) return &column;
  for (const Column& column : columns_)
    if (column.name.compare(name, Qt::CaseInsensitive) == 0) return &column;
  return nullptr;
}

Table& Table::add(const Column& column) {
  columns_.push_back(column);
  return *this;
}

Table& Table::add(const Index& index) {
  indexes_.push_back(index);
  return *this;
}

Table& Table::keyOf(const QStringList& columns) {
  key_ = columns;
  return *this;
}

Table& Table::rule(const QString& constraint) {
  rules_.append(constraint);
  return *this;
}

bool Table::isNullable(const QString& name) const {
  const Column* found = column(name);
  return found && !found->zeroDefault && !found->required && found->type != ColumnType::Boolean &&
         !key_.contains(name, Qt::CaseInsensitive);
}

Row Table::emptyRow() const {
  QStringList names;
  for (const Column& column : columns_) names.append(column.name);
  return Row(std::make_shared<Columns>(names));
}

const std::vector<Table>& companyTables() {
  static const std::vector<Table> tables = [] {
    std::vector<Table> all = masterTables();
    for (auto part : {documentTables(), ledgerTables(), hearingTables()})
      all.insert(all.end(), part.begin(), part.end());
    return all;
  }();
  return tables;
}

const Table& companyTable(const QString& name) {
  for (const Table& table : companyTables())
    if (table.name() == name) return table;
  for (const Table& table : companyTables())
    if (table.name().compare(name, Qt::CaseInsensitive) == 0) return table;
  throw StoreError(0, QStringLiteral("Lipseste tabela %1").arg(name));
}

const std::vector<StoredStatement>& companyViews() {
  static const std::vector<StoredStatement> views = {
      {QStringLiteral("qryTertiLinii"),
       QStringLiteral(
           "CREATE VIEW qryTertiLinii AS SELECT DISTINCT TERT FROM kt_linii WHERE TERT IS NOT NULL")},
      {QStringLiteral("G_AT"),
       QStringLiteral("CREATE VIEW G_AT AS SELECT T.ID_Comanda, T.UrecheaDreapta, T.Urechea, T.C125, T.C250, "
                      "T.C500, T.C1000, T.C2000, T.C4000, T.C8000 FROM G_AudiogramaTonala T INNER JOIN "
                      "G_COMANDA_AUDIO C ON C.ID_Comanda = T.ID_Comanda")}};
  return views;
}

QStringList createStatements(const Table& table, const Engine& engine) {
  QStringList statements{createStatement(table, engine)};
  int number = 0;
  for (const Index& index : table.indexes())
    statements.append(createStatement(table, index, ++number, engine));
  return statements;
}

void createCompanyTables(Database& database) {
  Transaction transaction(database);
  database.prepareSchema();
  for (const Table& table : companyTables()) database.createTable(table);
  for (const StoredStatement& view : companyViews()) database.execute(view.statement);
  createCompanyTriggers(database.engine());
  transaction.commit();
}

QString keyNumber(const QString& column, int prefix) {
  return prefix == 0 ? column : QStringLiteral("SUBSTR(%1, %2)").arg(column).arg(prefix + 1);
}

QString plainNumber(const QString& text) { return QStringLiteral("LTRIM(%1, '0123456789') = ''").arg(text); }

QString oddNumber(const QString& column, int prefix) {
  return QStringLiteral("(LTRIM(%1, '0123456789') <> '' OR LENGTH(%2) > %3)")
      .arg(keyNumber(column, prefix), column)
      .arg(prefix + kPlainDigits);
}

void requireWidths(const Table& table, const Row& row) {
  for (const QString& name : row.columns()) {
    const Column* column = table.column(name);
    if (!column || column->type != ColumnType::Text || column->width == 0) continue;
    if (row.text(name).size() > column->width)
      throw RuleError(QStringLiteral("Textul din campul %1 este prea lung (maxim %2 caractere) !")
                          .arg(column->name, QString::number(column->width)),
                      column->name);
  }
}

}  // namespace velmar
