// The rows that a validation by the program wrote, written again by bare prepared statements, one row at a
// time: the reference for a document kind that has none of its own.
#pragma once

#include <map>
#include <string>
#include <variant>
#include <vector>

#include "Bare.h"
#include "BareNumber.h"
#include "Validated.h"

namespace velmar::bench {

/// A row that was inserted, changed or deleted, as a statement with its values.
struct RowChange {
  std::string sql;
  std::vector<std::variant<int, double, std::string>> values;
};

/// The changes of rows of each document, by its number, in order.
using RecordedRows = std::map<QString, std::vector<RowChange>>;

/// Validates the drafts of the kind, in the order in which they are measured, in a file of its own in which
/// triggers note the changed rows. Done once per run for each kind and size.
const RecordedRows& recordedRows(const Validated& kind, CompanySize size);

/// Finds the next number, then in one transaction: reads what the kind reads, row by row, and writes the
/// recorded rows.
class BareRows : public BareValidation {
 public:
  BareRows(const QString& path, const Validated& kind, const RecordedRows& rows);

  void validate(const QString& number) override;

 private:
  void read(const std::string& number);

  BareConnection connection_;
  BareNumber number_;
  const RecordedRows& rows_;
  BareStatement lines_;
  std::vector<BareStatement> whole_;
  std::vector<std::pair<BareStatement, bool>> perLine_;  ///< whether bound to the line's source too
  std::map<std::string, BareStatement> writes_;
};

}  // namespace velmar::bench
