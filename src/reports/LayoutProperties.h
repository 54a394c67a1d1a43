// What can be told of a part of a layout, as its user reads and types it.
#pragma once

#include <QStringList>

#include "reports/LayoutParts.h"

namespace velmar::layout {

/// How a property is typed.
enum class PropertyKind { Text, Formula, Number, Choice, Colour, Font };

struct Property {
  QString name;     ///< as in the file
  QString caption;  ///< "Latime (mm)"
  PropertyKind kind = PropertyKind::Text;
  QString value;        ///< as it is typed
  QStringList choices;  ///< of PropertyKind::Choice
};

/// What these parts have in common; a value in which they differ is empty.
std::vector<Property> propertiesOf(const Layout& layout, const Parts& parts);

/// Gives all these parts what was typed for the property. Throws RuleError when it does not fit, and then the
/// layout stays as it was.
void setProperty(Layout& layout, const Parts& parts, const QString& name, const QString& typed);

/// A sum of a table as it is typed: "TOTAL = Cant * Pret", with its group "TOTAL [1] = Cant * Pret".
QString textOf(const Sum& sum);
/// Throws RuleError.
Sum sumFrom(const QString& typed);

}  // namespace velmar::layout
