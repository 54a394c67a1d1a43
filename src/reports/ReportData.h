// What a report prints from: named variables for a page, named fields for a line.
#pragma once

#include <memory>
#include <QStringList>
#include <QVariant>
#include <vector>

#include "store/ListRows.h"

namespace velmar {

/// Type codes of variables and fields.
enum class LLTip : unsigned {
  Number = 0x8000000,
  Date = 0x4000008,  ///< a number of this type is a date serial: days since 30 December 1899
  Day = 0x4000003,   ///< days counted from the day 0 of date serials
  Boolean = 0x2000000,
  Text = 0x10000000
};

/// The type code of a value of that type, null or not.
LLTip GetLLTip(QMetaType type);

/// One named value besides the record sets'.
struct clsFieldVarDescription {
  QString name;
  LLTip type = LLTip::Text;
  QVariant value;
};

using ReportValues = std::vector<clsFieldVarDescription>;

/// The value with the type that its own type has.
clsFieldVarDescription described(const QString& name, const QVariant& value);

/// The value as formulas take it: a serial becomes its date.
QVariant reportValue(const clsFieldVarDescription& described);

/// What a report is given: everything is optional.
struct ReportData {
  Recordset variables;  ///< a page group for each row; its columns are variables
  bool hasVariables = false;
  std::shared_ptr<const RowSource> fields;  ///< a line for each row; nullptr: a report without lines
  QStringList fieldNames;                   ///< of `fields`, also where it has no row
  ReportValues extraVariables;              ///< one of a column's name stands in its place
  ReportValues extraFields;
};

/// The names that a layout may speak of, in order, with their types and the values of the first row. What the
/// first rows leave open is a text.
ReportValues definedVariables(const ReportData& data);
ReportValues definedFields(const ReportData& data);

}  // namespace velmar
