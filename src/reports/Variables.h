// Collects named values for a report from code and from tables.
#pragma once

#include "reports/ReportData.h"

namespace velmar {

/// The extra variables of a report.
class Variables {
 public:
  explicit Variables(ReportData& data) : data_(data) {}

  void add(const QString& name, const QVariant& value);

  /// Adds columns of the first row, named with `prefix`. A column that the row does not have is an empty
  /// text; without a row nothing is added.
  void addColumns(const Recordset& rows, const QStringList& columns, const QString& prefix = {});

  /// Adds the open company: name, register number, capital and registered office, named as their columns;
  /// bank, account and fiscal code with the prefix "KT_", because partners have columns of the same names.
  void addCompany();

 private:
  ReportData& data_;
};

}  // namespace velmar
