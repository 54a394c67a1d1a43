// Reads spreadsheets through a process of its own, limited in time and memory.
#pragma once

#include <QHash>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <vector>

namespace velmar {

/// A table with a heading row.
class SheetTable {
 public:
  int size() const { return static_cast<int>(rows_.size()); }
  bool has(const QString& column) const { return columns_.contains(column.toUpper()); }
  /// The cell as text, trimmed; a whole number without decimals or exponent.
  QString text(int row, const QString& column) const;
  /// A number, or a text that is one; null for an empty cell and any other text.
  QVariant number(int row, const QString& column) const;

 private:
  friend SheetTable readSheet(const QString& path);
  QVariant cell(int row, const QString& column) const;

  QHash<QString, int> columns_;
  std::vector<std::vector<QVariant>> rows_;
};

/// Reads the sheet "Sheet1" (in any case), or the only one, of an .xls, .xlsx or .ods file. Throws RuleError
/// with the reason when that cannot be done.
SheetTable readSheet(const QString& path);

}  // namespace velmar
