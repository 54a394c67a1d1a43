// What is wrong with a layout, told with its place, so that the designer can lead its user there. None of it
// is an obstacle to saving.
#pragma once

#include <QStringList>

#include "reports/LayoutParts.h"
#include "reports/ReportData.h"

namespace velmar::layout {

struct Fault {
  Part part;
  QString property;  ///< name as in LayoutProperties.h; empty: the part as a whole
  QString text;      ///< "Numele CLENT nu este definit"
  int column = 0;    ///< of the formula, from 1; 0 when no place is known

  bool operator==(const Fault&) const = default;
};

/// Names that formulas may speak of: of the data, of the table's sums, and those that every report has.
class KnownNames {
 public:
  KnownNames(const Layout& layout, const ReportValues& variables, const ReportValues& fields);
  bool has(const QString& name) const;

 private:
  QStringList names_;  ///< in upper case, sorted
};

/// In the order in which the parts are drawn: broken formulas, unknown names, what stands outside the sheet
/// or does not fit into its table, rows of groups that are not there.
std::vector<Fault> faultsOf(const Layout& layout, const KnownNames& names);

/// "Text CLIENT, Formula, coloana 5: ...".
QString textOf(const Layout& layout, const Fault& fault);

/// The place in a text of that line and column, both from 1; the end of a shorter line, 0 where nothing is
/// known.
int placeIn(const QString& text, int line, int column);

}  // namespace velmar::layout
