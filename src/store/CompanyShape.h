// What a company really consists of, in words that any engine understands: the tables and columns of the
// description that it has, and those that only this company has.
#pragma once

#include <vector>

#include "store/Schema.h"
#include "store/Structure.h"

namespace velmar {

/// A table as it stands in a company.
struct FoundTable {
  Table table;          ///< what to make elsewhere; names spelt as described, else in small letters
  QString source;       ///< its name as statements of its own database take it
  QStringList columns;  ///< the names of its columns, likewise, in the order of `table`
  std::vector<StoredStatement> indexes;  ///< those that only this company has
};

struct FoundCompany {
  std::vector<FoundTable> tables;      ///< the described ones, then the company's own by name
  std::vector<StoredStatement> views;  ///< in the order in which they can be made
};

/// Reads the catalogue. Throws StoreError, naming it, when the company has something that no copy by rows can
/// carry.
FoundCompany describeCompany(Database& company);

}  // namespace velmar
