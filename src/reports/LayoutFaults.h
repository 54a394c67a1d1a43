// Finds the faults of a layout with their positions, so that the designer can go to them. Faults do not
// prevent saving.
#pragma once

#include <QStringList>

#include "reports/LayoutParts.h"
#include "reports/ReportData.h"

namespace velmar::layout {

struct Fault {
  Part part;
  QString property;  ///< name as in LayoutProperties.h; empty: the part as a whole
  QString text;      ///< "Numele CLENT nu este definit"
  int column = 0;    ///< in the formula, from 1; 0 if unknown

  bool operator==(const Fault&) const = default;
};

/// Names that formulas may use: those of the data, of the table's sums, and the predefined ones.
class KnownNames {
 public:
  KnownNames(const Layout& layout, const ReportValues& variables, const ReportValues& fields);
  bool has(const QString& name) const;

 private:
  QStringList names_;  ///< in upper case, sorted
};

/// In drawing order: invalid formulas, unknown names, parts outside the sheet or too large for their table,
/// rows of groups that do not exist.
std::vector<Fault> faultsOf(const Layout& layout, const KnownNames& names);

/// "Text CLIENT, Formula, coloana 5: ...".
QString textOf(const Layout& layout, const Fault& fault);

/// The offset of a line and column (both from 1) in a text; the end of the line if it is shorter, 0 if the
/// line is unknown.
int placeIn(const QString& text, int line, int column);

}  // namespace velmar::layout
