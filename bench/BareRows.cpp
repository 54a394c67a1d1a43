#include "BareRows.h"

#include <cmath>

#include "documents/kinds/Kinds.h"
#include "store/Database.h"
#include "store/Schema.h"
#include "store/StockBalance.h"

namespace velmar::bench {

namespace {

constexpr QChar kSeparator(31);
constexpr double kMostInteger = 1e9;
const QString kNull = QStringLiteral("NULL");
const QString kBalance = QStringLiteral("G_STOCMAG");  // written by the company's own triggers

// A trigger for each event of each table, which notes the table, the old row and the new one.
void recordChanges(const QString& path) {
  BareConnection connection(path);
  connection.run("CREATE TABLE bench_log (ID INTEGER PRIMARY KEY, TABEL TEXT, VECHI TEXT, NOU TEXT)");
  for (const Table& table : companyTables()) {
    if (table.name() == kBalance) continue;
    const auto row = [&table](const QString& state) {
      QStringList cells;
      for (const Column& column : table.columns())
        cells.append(QStringLiteral("quote(%1.%2)").arg(state, quoted(column.name)));
      return cells.join(QStringLiteral(" || char(31) || "));
    };
    const std::tuple<QString, QString, QString> events[] = {
        {QStringLiteral("INSERT"), QStringLiteral("NULL"), row(QStringLiteral("NEW"))},
        {QStringLiteral("UPDATE"), row(QStringLiteral("OLD")), row(QStringLiteral("NEW"))},
        {QStringLiteral("DELETE"), row(QStringLiteral("OLD")), QStringLiteral("NULL")}};
    for (const auto& [event, before, after] : events)
      connection.run(qPrintable(
          QStringLiteral("CREATE TRIGGER \"bench_%1_%2\" AFTER %1 ON %3 BEGIN INSERT INTO bench_log (TABEL, "
                         "VECHI, NOU) VALUES ('%2', %4, %5); END")
              .arg(event, table.name(), quoted(table.name()), before, after)));
  }
}

// The value of a quoted cell that is not null.
std::variant<int, double, std::string> bound(const QString& cell) {
  if (cell.startsWith(u'\''))
    return cell.mid(1, cell.size() - 2).replace(QStringLiteral("''"), QStringLiteral("'")).toStdString();
  const double number = cell.toDouble();
  if (number == std::trunc(number) && std::abs(number) < kMostInteger) return static_cast<int>(number);
  return number;
}

QStringList cells(const Row& logged, const QString& column) {
  return logged.isNull(column) ? QStringList() : logged.text(column).split(kSeparator);
}

// Nothing if an update left the row as it was.
std::optional<RowChange> changeOf(const Row& logged) {
  const Table& table = companyTable(logged.text("TABEL"));
  const QStringList before = cells(logged, QStringLiteral("VECHI"));
  const QStringList after = cells(logged, QStringLiteral("NOU"));
  QStringList set, marks, where;
  RowChange change;
  for (qsizetype at = 0; at < after.size(); ++at) {
    const QString name = quoted(table.columns()[static_cast<size_t>(at)].name);
    if (before.isEmpty() ? after[at] == kNull : after[at] == before[at]) continue;
    const bool isNull = after[at] == kNull;
    set.append(before.isEmpty() ? name : name + (isNull ? " = NULL" : " = ?"));
    marks.append(QStringLiteral("?"));
    if (!isNull) change.values.push_back(bound(after[at]));
  }
  if (set.isEmpty() && !after.isEmpty()) return std::nullopt;
  for (qsizetype at = 0; at < before.size(); ++at) {
    const QString& name = table.columns()[static_cast<size_t>(at)].name;
    if (!table.keyColumns().contains(name)) continue;
    where.append(quoted(name) + QStringLiteral(" = ?"));
    change.values.push_back(bound(before[at]));
  }
  const QString condition = where.join(QStringLiteral(" AND "));
  const QString name = quoted(table.name());
  if (before.isEmpty())
    change.sql = QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
                     .arg(name, set.join(u','), marks.join(u','))
                     .toStdString();
  else if (after.isEmpty())
    change.sql = QStringLiteral("DELETE FROM %1 WHERE %2").arg(name, condition).toStdString();
  else
    change.sql =
        QStringLiteral("UPDATE %1 SET %2 WHERE %3").arg(name, set.join(u','), condition).toStdString();
  return change;
}

std::vector<RowChange> takeRecorded() {
  std::vector<RowChange> changes;
  for (const Row& logged : OpenRs("SELECT TABEL, VECHI, NOU FROM bench_log ORDER BY ID"))
    if (auto change = changeOf(logged)) changes.push_back(std::move(*change));
  ExecutaSql("DELETE FROM bench_log");
  return changes;
}

RecordedRows record(const Validated& kind, CompanySize size) {
  const QString path = copyOfCompany(Store::Files, size, kind.bench + QStringLiteral("-model.mdb"));
  if (kind.prepare) kind.prepare(path);
  recordChanges(path);
  RecordedRows rows;
  {
    const OpenCompany company(path);
    for (int draft = 0; draft < kind.measuredDrafts(); ++draft)
      for (const int lines : {kSmallDocument, kLargeDocument}) {
        const QString number = kind.number(lines, draft);
        kind.byProgram(number);
        rows[number] = takeRecorded();
      }
  }
  removeCompany(path);
  return rows;
}

std::string linesOf(const DocumentKind& kind) {
  const QString source = kind.sourceColumn.isEmpty() ? QStringLiteral("NULL") : kind.sourceColumn;
  return QStringLiteral("SELECT CODART, %1, L.* FROM %2 L WHERE %3 = ? ORDER BY NRLINIE")
      .arg(source, kind.lineTable, kind.numberColumn)
      .toStdString();
}

}  // namespace

const RecordedRows& recordedRows(const Validated& kind, CompanySize size) {
  static std::map<std::pair<QString, CompanySize>, RecordedRows> known;
  const auto found = known.find({kind.bench, size});
  if (found != known.end()) return found->second;
  return known.emplace(std::pair(kind.bench, size), record(kind, size)).first->second;
}

BareRows::BareRows(const QString& path, const Validated& kind, const RecordedRows& rows)
    : connection_(path),
      number_(connection_, kind.prefix),
      rows_(rows),
      lines_(connection_.prepare(linesOf(documentKind(kind.prefix)).c_str())) {
  const DocumentKind& document = documentKind(kind.prefix);
  whole_.push_back(connection_.prepare(qPrintable(
      QStringLiteral("SELECT * FROM %1 WHERE %2 = ?").arg(document.headerTable, document.numberColumn))));
  for (const char* sql : kind.reads.whole) whole_.push_back(connection_.prepare(sql));
  for (const char* sql : kind.reads.perArticle) perLine_.emplace_back(connection_.prepare(sql), false);
  for (const char* sql : kind.reads.perSource) perLine_.emplace_back(connection_.prepare(sql), true);
  for (const auto& [number, changes] : rows_)
    for (const RowChange& change : changes)
      if (!writes_.contains(change.sql)) writes_.emplace(change.sql, connection_.prepare(change.sql.c_str()));
}

void BareRows::validate(const QString& number) {
  number_.next();
  connection_.beginWrite();
  read(number.toStdString());
  for (const RowChange& change : rows_.at(number)) {
    BareStatement& statement = writes_.at(change.sql);
    int position = 0;
    for (const auto& value : change.values)
      std::visit(
          [&](const auto& bound) {
            if constexpr (std::is_same_v<std::decay_t<decltype(bound)>, std::string>)
              statement.bind(++position, std::string_view(bound));
            else
              statement.bind(++position, bound);
          },
          value);
    statement.run();
  }
  connection_.run("COMMIT");
}

void BareRows::read(const std::string& number) {
  for (BareStatement& statement : whole_) statement.bind(1, number).run();
  std::vector<std::pair<std::string, std::string>> lines;
  lines_.bind(1, number);
  while (lines_.step()) lines.emplace_back(lines_.text(0), lines_.text(1));
  lines_.reset();
  for (const auto& [article, source] : lines)
    for (auto& [statement, hasSource] : perLine_) {
      statement.bind(1, article);
      if (hasSource) statement.bind(2, source);
      statement.run();
    }
}

}  // namespace velmar::bench
