// The actual structure of a company, independent of the engine: the described tables and columns that it has,
// and those that only this company has.
#pragma once

#include <vector>

#include "store/Schema.h"
#include "store/Structure.h"

namespace velmar {

/// A table found in a company.
struct FoundTable {
  Table table;          ///< what to create in the copy; names spelt as described, otherwise in lower case
  QString source;       ///< its name, quoted for statements of its own database
  QStringList columns;  ///< the names of its columns, quoted likewise, in the order of `table`
  std::vector<StoredStatement> indexes;  ///< those that only this company has
};

struct FoundCompany {
  std::vector<FoundTable> tables;      ///< the described ones, then the others by name
  std::vector<StoredStatement> views;  ///< in an order in which they can be created
  bool hasTriggers = false;            ///< whether it has the triggers of each company
};

/// Reads the catalogue. Throws StoreError with its name when the company has something that copying rows
/// cannot reproduce.
FoundCompany describeCompany(Database& company);

}  // namespace velmar
