// Named values for a report, as they come from code and from the tables.
#pragma once

#include "reports/ReportData.h"

namespace velmar {

/// Adds to the extra variables of a report.
class Variables {
 public:
  explicit Variables(ReportData& data) : data_(data) {}

  void add(const QString& name, const QVariant& value);

  /// The columns of the first row, under their names behind `prefix`. One that the row has not is an empty
  /// text; without a row there are none.
  void addColumns(const Recordset& rows, const QStringList& columns, const QString& prefix = {});

  /// The open company: its name, register number, capital and seat under the names of their columns; bank,
  /// account and fiscal code behind "KT_", because partners have columns of the same names.
  void addCompany();

 private:
  ReportData& data_;
};

}  // namespace velmar
