// The properties of the parts of a layout, as the user reads and types them.
#pragma once

#include <QStringList>

#include "reports/LayoutParts.h"

namespace velmar::layout {

/// How a property is entered.
enum class PropertyKind { Text, Formula, Number, Choice, Colour, Font };

struct Property {
  QString name;     ///< as in the file
  QString caption;  ///< "Latime (mm)"
  PropertyKind kind = PropertyKind::Text;
  QString value;        ///< in the form in which it is typed
  QStringList choices;  ///< of PropertyKind::Choice
};

/// The properties common to these parts; a value is empty if they differ in it.
std::vector<Property> propertiesOf(const Layout& layout, const Parts& parts);

/// Sets the property of all these parts to the typed value. Throws RuleError when it is not valid; the layout
/// is then unchanged.
void setProperty(Layout& layout, const Parts& parts, const QString& name, const QString& typed);

/// A sum of a table in the form in which it is typed: "TOTAL = Cant * Pret", with a group "TOTAL [1] = Cant *
/// Pret".
QString textOf(const Sum& sum);
/// Throws RuleError.
Sum sumFrom(const QString& typed);

}  // namespace velmar::layout
