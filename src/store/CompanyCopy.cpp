#include "store/CompanyCopy.h"

#include <QCryptographicHash>

#include "store/Database.h"
#include "store/DatabaseFiles.h"
#include "store/Engine.h"
#include "store/Schema.h"
#include "util/Errors.h"

namespace velmar {

namespace {

constexpr size_t kRowsAtOnce = 1000;

bool isNumber(const Column& column) {
  return column.type != ColumnType::Text && column.type != ColumnType::Date &&
         column.type != ColumnType::Time && column.type != ColumnType::DateTime;
}

QStringList columnNames(const Table& table) {
  QStringList names;
  for (const Column& column : table.columns()) names.append(column.name);
  return names;
}

QString selectAll(const Table& table) {
  return QStringLiteral("SELECT %1 FROM %2")
      .arg(columnNames(table).join(QStringLiteral(", ")), quoted(table.name()));
}

// Adds rows to the proof of a table, one by one.
class Prover {
 public:
  explicit Prover(const Table& table) : table_(table) {
    proof_.table = table.name();
    for (const Column& column : table.columns())
      if (isNumber(column)) proof_.sums.append(Decimal(0));
  }

  void add(const std::vector<QVariant>& cells) {
    QCryptographicHash hash(QCryptographicHash::Md5);
    qsizetype sum = 0;
    for (size_t i = 0; i < cells.size(); ++i) {
      const QVariant& cell = cells[i];
      QByteArray text = cell.isNull() ? QByteArray() : cell.toString().toUtf8();
      if (isNumber(table_.columns()[i])) {
        if (!cell.isNull()) {
          const Decimal number = cell.typeId() == QMetaType::Double
                                     ? Decimal::fromDouble(cell.toDouble())
                                     : Decimal(static_cast<qint64>(cell.toLongLong()));
          proof_.sums[sum] = proof_.sums[sum] + number;
          text = number.toString().toUtf8();
        }
        ++sum;
      }
      hash.addData(cell.isNull() ? QByteArray("\\0", 2) : text);
      hash.addData(QByteArray(1, '\0'));
    }
    quint64 mark = 0;
    memcpy(&mark, hash.result().constData(), sizeof mark);
    proof_.mark += mark;
    ++proof_.rows;
  }

  const TableProof& proof() const { return proof_; }

 private:
  const Table& table_;
  TableProof proof_;
};

TableProof proofOf(Database& company, const Table& table) {
  Prover prover(table);
  company.each(selectAll(table), [&prover](std::vector<QVariant>&& cells) { prover.add(cells); });
  return prover.proof();
}

TableProof copyTable(Database& from, Database& into, const Table& table) {
  Prover prover(table);
  const QStringList columns = columnNames(table);
  const QString name = quoted(table.name());
  std::vector<Values> rows;
  const auto flush = [&] {
    into.insertRows(name, columns, rows);
    rows.clear();
  };
  from.each(selectAll(table), [&](std::vector<QVariant>&& cells) {
    prover.add(cells);
    Values values;
    values.reserve(cells.size());
    for (const QVariant& cell : cells) values.push_back(Value::raw(cell));
    rows.push_back(std::move(values));
    if (rows.size() == kRowsAtOnce) flush();
  });
  flush();
  into.continueNumbering(table);
  return prover.proof();
}

}  // namespace

QList<TableProof> proofOf(Database& company) {
  const Snapshot snapshot(company);
  QList<TableProof> proofs;
  for (const Table& table : companyTables()) proofs.append(proofOf(company, table));
  return proofs;
}

void copyCompanyRows(Database& from, Database& into, const CopyProgress& progress) {
  const Snapshot snapshot(from);
  Transaction transaction(into);
  const int count = static_cast<int>(companyTables().size());
  int done = 0;
  for (const Table& table : companyTables()) {
    const TableProof original = copyTable(from, into, table);
    if (!(proofOf(into, table) == original))
      throw StoreError(0,
                       QStringLiteral("Copia tabelei %1 nu este la fel cu originalul, nu s-a copiat nimic.")
                           .arg(table.name()));
    if (progress) progress(++done, count);
  }
  transaction.commit();
}

void copyToNewDatabase(Database& from, const QString& path, const CopyProgress& progress) {
  const auto target = Database::create(path);
  createCompanyTables(*target);
  copyCompanyRows(from, *target, progress);
  target->engine().studyTables();
}

void copyDatabase(const QString& from, const QString& to, const CopyProgress& progress) {
  const auto source = Database::open(from);
  makeDatabaseWhole(to, [&](const QString& draft) { copyToNewDatabase(*source, draft, progress); });
}

}  // namespace velmar
