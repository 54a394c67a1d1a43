// Reads spreadsheets through a process of its own, limited in time and memory.
#pragma once

#include <QAnyStringView>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <vector>

namespace velmar {

/// A table with a heading row. Columns are named in upper case.
class SheetTable {
 public:
  int size() const { return static_cast<int>(rows_.size()); }
  bool has(QAnyStringView column) const { return place(column) >= 0; }
  /// The cell as text, trimmed; a whole number without decimals or exponent.
  QString text(int row, QAnyStringView column) const;
  /// A number, or a text that is one; null for an empty cell and any other text.
  QVariant number(int row, QAnyStringView column) const;

 private:
  friend SheetTable readSheet(const QString& path);
  int place(QAnyStringView column) const;
  QVariant cell(int row, QAnyStringView column) const;

  QStringList columns_;
  std::vector<std::vector<QVariant>> rows_;
};

/// Reads the sheet "Sheet1" (in any case), or the only one, of an .xls, .xlsx or .ods file. Throws RuleError
/// with the reason when that cannot be done.
SheetTable readSheet(const QString& path);

}  // namespace velmar
