#include "store/CompanyCopy.h"

#include <QCryptographicHash>

#include "store/CompanyShape.h"
#include "store/Database.h"
#include "store/DatabaseFiles.h"
#include "store/Engine.h"
#include "store/StockBalance.h"
#include "util/Errors.h"

namespace velmar {

namespace {

constexpr size_t kRowsAtOnce = 1000;

bool isNumber(const Column& column) {
  return column.type != ColumnType::Text && column.type != ColumnType::Date &&
         column.type != ColumnType::Time && column.type != ColumnType::DateTime;
}

QString selectAll(const FoundTable& found) {
  return QStringLiteral("SELECT %1 FROM %2").arg(found.columns.join(QStringLiteral(", ")), found.source);
}

// Computes the fingerprint of a table, row by row.
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
      if (cell.typeId() == QMetaType::QByteArray)
        throw StoreError(0,
                         QStringLiteral("Coloana %1 are un continut binar.").arg(table_.columns()[i].name));
      QByteArray text = cell.isNull() ? QByteArray() : cell.toString().toUtf8();
      if (isNumber(table_.columns()[i])) {
        // SQLite accepts a text in a numeric column too.
        if (cell.typeId() == QMetaType::Double || cell.typeId() == QMetaType::LongLong) {
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

TableProof proofOf(Database& company, const FoundTable& found) {
  Prover prover(found.table);
  company.each(selectAll(found), [&prover](std::vector<QVariant>&& cells) { prover.add(cells); });
  return prover.proof();
}

TableProof copyRows(Database& from, Database& into, const FoundTable& found) {
  Prover prover(found.table);
  QStringList columns;
  for (const Column& column : found.table.columns()) columns.append(into.engine().identifier(column.name));
  const QString name = into.engine().identifier(found.table.name());
  std::vector<Values> rows;
  const auto flush = [&] {
    into.insertRows(name, columns, rows);
    rows.clear();
  };
  from.each(selectAll(found), [&](std::vector<QVariant>&& cells) {
    prover.add(cells);
    Values values;
    values.reserve(cells.size());
    for (const QVariant& cell : cells) values.push_back(Value::raw(cell));
    rows.push_back(std::move(values));
    if (rows.size() == kRowsAtOnce) flush();
  });
  flush();
  into.continueNumbering(found.table);
  return prover.proof();
}

// The fingerprint of the table in the copy.
TableProof proofOfCopy(Database& into, const FoundTable& found) {
  FoundTable copy = found;
  copy.source = into.engine().identifier(found.table.name());
  copy.columns.clear();
  for (const Column& column : found.table.columns())
    copy.columns.append(into.engine().identifier(column.name));
  return proofOf(into, copy);
}

// A declaration of one engine may not be valid for the other.
template <typename Work>
void orRefuse(const QString& what, Work&& work) {
  try {
    work();
  } catch (const StoreError& error) {
    throw StoreError(
        error.number(),
        QStringLiteral("%1 nu poate fi copiata, nu s-a copiat nimic. (%2)").arg(what, error.text()));
  }
}

void copyTable(Database& from, Database& into, const FoundTable& found) {
  orRefuse(QStringLiteral("Tabela ") + found.table.name(), [&] {
    into.createTable(found.table);
    const TableProof original = copyRows(from, into, found);
    for (const StoredStatement& index : found.indexes) into.engine().run(index.statement);
    if (!(proofOfCopy(into, found) == original))
      throw StoreError(0, QStringLiteral("Copia ei nu este la fel cu originalul."));
  });
}

}  // namespace

QList<TableProof> proofOf(Database& company) {
  const Snapshot snapshot(company);
  QList<TableProof> proofs;
  for (const FoundTable& found : describeCompany(company).tables) proofs.append(proofOf(company, found));
  return proofs;
}

void copyToNewDatabase(Database& from, const QString& path, const CopyProgress& progress) {
  const auto into = Database::create(path);
  const Snapshot snapshot(from);
  const FoundCompany company = describeCompany(from);
  Transaction transaction(*into);
  into->prepareSchema();
  const int count = static_cast<int>(company.tables.size());
  int done = 0;
  for (const FoundTable& found : company.tables) {
    copyTable(from, *into, found);
    if (progress) progress(++done, count);
  }
  for (const StoredStatement& view : company.views)
    orRefuse(QStringLiteral("Interogarea ") + view.name, [&] { into->engine().run(view.statement); });
  if (company.hasTriggers) createCompanyTriggers(into->engine());
  transaction.commit();
  into->engine().studyTables();
}

void copyDatabase(const QString& from, const QString& to, const CopyProgress& progress) {
  const auto source = Database::open(from);
  makeDatabaseWhole(to, [&](const QString& draft) { copyToNewDatabase(*source, draft, progress); });
}

}  // namespace velmar
