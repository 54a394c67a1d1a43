// The data of a report: named variables for a page, named fields for a line.
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
  Day = 0x4000003,   ///< days since day 0 of date serials
  Boolean = 0x2000000,
  Text = 0x10000000
};

/// The type code for values of that type, also null ones.
LLTip GetLLTip(QMetaType type);

/// One named value in addition to those of the record sets.
struct clsFieldVarDescription {
  QString name;
  LLTip type = LLTip::Text;
  QVariant value;
};

using ReportValues = std::vector<clsFieldVarDescription>;

/// The value with the type code of its type.
clsFieldVarDescription described(const QString& name, const QVariant& value);

/// The value for formulas: a date serial becomes a date.
QVariant reportValue(const clsFieldVarDescription& described);

/// The input of a report; everything is optional.
struct ReportData {
  Recordset variables;  ///< one page group per row; its columns are variables
  bool hasVariables = false;
  std::shared_ptr<const RowSource> fields;  ///< one line per row; nullptr: a report without lines
  QStringList fieldNames;                   ///< of `fields`, even if it has no rows
  ReportValues extraVariables;              ///< override columns of the same name
  ReportValues extraFields;
};

/// The names available to a layout, in order, with their types and the values of the first row. A type that
/// the first rows do not determine is Text.
ReportValues definedVariables(const ReportData& data);
ReportValues definedFields(const ReportData& data);

}  // namespace velmar
