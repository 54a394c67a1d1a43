#include "store/Row.h"

#include "util/Errors.h"

namespace velmar {

namespace {

const QString kDateTimeFormat = QStringLiteral("yyyy-MM-dd HH:mm:ss.zzz");

QDate dateIn(const QVariant& cell) {
  constexpr int kLength = 10;
  return QDate::fromString(cell.toString().left(kLength), Qt::ISODate);
}

}  // namespace

Value::Value(const QDate& date) {
  if (date.isValid()) data_ = date.toString(Qt::ISODate);
}

Value::Value(const QTime& time) {
  if (time.isValid()) data_ = time.toString(QStringLiteral("HH:mm:ss"));
}

Value::Value(const QDateTime& moment) {
  if (moment.isValid()) data_ = moment.toString(kDateTimeFormat);
}

// Times are separated from their date by a blank or a T, which is greater.
Value endOf(const QDate& day) {
  return day.isValid() ? Value(day.toString(Qt::ISODate) + QStringLiteral("T23:59:59.999")) : Value();
}

Value Value::raw(const QVariant& data) {
  Value value;
  value.data_ = data;
  return value;
}

Columns::Columns(const QStringList& names) : names_(names) {
  for (int i = 0; i < names.size(); ++i) positions_.insert(names[i].toUpper(), i);
  for (int i = 0; i < names.size(); ++i)
    if (!positions_.contains(names[i])) positions_.insert(names[i], positions_.value(names[i].toUpper()));
}

int Columns::indexOf(const QString& name) const {
  // Most callers use the exact name; only the others need case folding.
  const auto found = positions_.constFind(name);
  if (found != positions_.cend()) return *found;
  return positions_.value(name.toUpper(), -1);
}

Row::Row(std::shared_ptr<const Columns> columns, std::vector<QVariant> cells)
    : columns_(std::move(columns)), cells_(std::move(cells)) {}

Row::Row(std::shared_ptr<const Columns> columns)
    : columns_(std::move(columns)), cells_(static_cast<size_t>(columns_->names().size())) {}

bool Row::has(const QString& column) const { return columns_ && columns_->indexOf(column) >= 0; }

const QVariant& Row::value(const QString& column) const {
  const int position = columns_ ? columns_->indexOf(column) : -1;
  if (position < 0) throw StoreError(0, QStringLiteral("Lipseste coloana %1").arg(column));
  return cells_[static_cast<size_t>(position)];
}

bool Row::operator==(const Row& other) const {
  const bool sameColumns =
      columns_ == other.columns_ || (columns_ && other.columns_ && columns() == other.columns());
  return sameColumns && cells_ == other.cells_;
}

void Row::set(const QString& column, const Value& value) {
  const int position = columns_ ? columns_->indexOf(column) : -1;
  if (position < 0) throw StoreError(0, QStringLiteral("Lipseste coloana %1").arg(column));
  cells_[static_cast<size_t>(position)] = value.data();
}

QString Row::text(const QString& column) const { return value(column).toString(); }

qint64 Row::integer(const QString& column) const { return value(column).toLongLong(); }

Decimal Row::decimal(const QString& column) const {
  const QVariant& cell = value(column);
  if (cell.isNull()) return {};
  if (cell.typeId() == QMetaType::Double) return Decimal::fromDouble(cell.toDouble());
  if (cell.typeId() == QMetaType::QString) {
    const auto number = Decimal::parse(cell.toString().trimmed());
    if (!number)
      throw StoreError(kConversionFailure,
                       QStringLiteral("Valoarea din %1 nu este un numar: %2").arg(column, cell.toString()));
    return *number;
  }
  return Decimal(static_cast<qint64>(cell.toLongLong()));
}

bool Row::flag(const QString& column) const { return integer(column) != 0; }

QDate Row::date(const QString& column) const { return dateIn(value(column)); }

void Recordset::transform(const QString& column, const std::function<QVariant(const QVariant&)>& change) {
  for (Row& row : rows_) row.set(column, Value::raw(change(row.value(column))));
}

QVariant asDate(const QVariant& cell) {
  const QDate date = dateIn(cell);
  return date.isValid() ? QVariant(date) : QVariant();
}

QVariant Nz(const QVariant& value, const QVariant& defaultValue) {
  return value.isNull() ? defaultValue : value;
}

}  // namespace velmar
