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
  Date = 0x4000008,
  Day = 0x4000003,  ///< days counted from the day 0 of date serials as 2415018
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

/// What a report is given: everything is optional.
struct ReportData {
  Recordset variables;  ///< a page group for each row; its columns are variables
  bool hasVariables = false;
  std::shared_ptr<const RowSource> fields;  ///< a line for each row; nullptr: a report without lines
  QStringList fieldNames;                   ///< of `fields`, also where it has no row
  ReportValues extraVariables;
  ReportValues extraFields;
};

/// The names that a layout may speak of, in order, with their types.
ReportValues definedVariables(const ReportData& data);
ReportValues definedFields(const ReportData& data);

}  // namespace velmar
