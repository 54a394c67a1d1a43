#include "store/TemplateData.h"

#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include "store/Database.h"
#include "store/Schema.h"
#include "util/Clock.h"
#include "util/Errors.h"

// The macro declares a function of the resource compiler, which is in the global namespace.
static void loadTemplateResource() { Q_INIT_RESOURCE(template_data); }

namespace velmar {

namespace {

constexpr int kDefaultDecimals = 2;

Value parsed(const QString& text, const Column& column) {
  if (text.isEmpty()) return {};
  switch (column.type) {
    case ColumnType::Integer:
    case ColumnType::AutoNumber:
    case ColumnType::Boolean:
      return static_cast<qint64>(text.toLongLong());
    case ColumnType::Real:
      if (const auto number = Decimal::parse(text)) return *number;
      throw StoreError(0, QStringLiteral("Valoarea din %1 nu este un numar: %2").arg(column.name, text));
    default:
      return text;
  }
}

void insertFile(Database& database, const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) throw StoreError(0, QStringLiteral("Lipseste resursa %1").arg(path));
  const QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
  const Table& table = companyTable(QFileInfo(path).completeBaseName());
  const QStringList columns = lines.first().split(QLatin1Char('\t'));
  std::vector<Values> rows;
  for (const QString& line : lines.mid(1)) {
    const QStringList fields = line.split(QLatin1Char('\t'));
    Values row;
    for (int i = 0; i < columns.size(); ++i) {
      const Column* column = table.column(columns[i]);
      if (!column) throw StoreError(0, QStringLiteral("Lipseste coloana %1").arg(columns[i]));
      row.push_back(parsed(fields.value(i), *column));
    }
    rows.push_back(row);
  }
  database.insertRows(table.name(), columns, rows);
}

}  // namespace

void insertTemplateData(Database& database) {
  loadTemplateResource();
  database.execute("INSERT INTO kt_info (PlanC, NrZec) VALUES (0, ?)", {kDefaultDecimals});
  QDirIterator files(QStringLiteral(":/template"), {QStringLiteral("*.tsv")});
  while (files.hasNext()) insertFile(database, files.next());
  database.execute(
      "INSERT INTO kt_pc (CONT, TITLU, DEBITN, CREDITN, DEBITN_1, CREDITN_1, SOLDN, CODBUG, CREARE, "
      "NeUtilizabil) "
      "SELECT CONT, TITLU, 0, 0, 0, 0, 0, '', ?, NeUtilizabil FROM kt_pc_2003 ORDER BY CONT",
      {clock::today().toString(QStringLiteral("dd/MM/yyyy"))});
}

void insertTemplateRows(Database& database, const QString& table) {
  loadTemplateResource();
  insertFile(database, QStringLiteral(":/template/%1.tsv").arg(table));
}

}  // namespace velmar
