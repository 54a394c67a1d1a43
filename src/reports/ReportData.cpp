#include "reports/ReportData.h"

#include <algorithm>

#include "util/Decimal.h"

namespace velmar {

namespace {

constexpr int kRowsLookedAt = 50;  // rows searched for a value that determines the type of a column

/// The columns of a list, then the additional values.
template <typename RowAt>
ReportValues defined(const QStringList& columns, int rows, RowAt rowAt, const ReportValues& extra) {
  ReportValues all;
  for (const QString& column : columns) {
    QVariant first;
    LLTip type = LLTip::Text;
    for (int place = 0; place < std::min(rows, kRowsLookedAt); ++place) {
      const Row& row = rowAt(place);
      const QVariant value = row.has(column) ? row.value(column) : QVariant();
      if (place == 0) first = value;
      if (value.isNull()) continue;
      type = GetLLTip(value.metaType());
      break;
    }
    all.push_back({column, type, first});
  }
  all.insert(all.end(), extra.begin(), extra.end());
  return all;
}

}  // namespace

LLTip GetLLTip(QMetaType type) {
  switch (type.id()) {
    case QMetaType::Bool:
      return LLTip::Boolean;
    case QMetaType::QDate:
    case QMetaType::QDateTime:
      return LLTip::Date;
    case QMetaType::Char:
    case QMetaType::UChar:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Long:
    case QMetaType::ULong:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Float:
    case QMetaType::Double:
      return LLTip::Number;
    default:
      return type == QMetaType::fromType<Decimal>() ? LLTip::Number : LLTip::Text;
  }
}

clsFieldVarDescription described(const QString& name, const QVariant& value) {
  return {name, GetLLTip(value.metaType()), value};
}

QVariant reportValue(const clsFieldVarDescription& described) {
  const bool isDate = described.type == LLTip::Date || described.type == LLTip::Day;
  if (!isDate || described.value.isNull() || GetLLTip(described.value.metaType()) != LLTip::Number)
    return described.value;
  return QDate(1899, 12, 30).addDays(described.value.toLongLong());
}

ReportValues definedVariables(const ReportData& data) {
  if (!data.hasVariables) return data.extraVariables;
  return defined(
      data.variables.columns(), data.variables.size(),
      [&data](int place) -> const Row& { return data.variables[place]; }, data.extraVariables);
}

ReportValues definedFields(const ReportData& data) {
  if (!data.fields) return data.extraFields;
  return defined(
      data.fieldNames, data.fields->size(),
      [&data](int place) -> const Row& { return data.fields->row(place); }, data.extraFields);
}

}  // namespace velmar
