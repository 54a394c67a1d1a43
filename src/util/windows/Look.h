// The one look of all windows: style, accent colour, line icons, the colour of locked fields.
#pragma once

#include <QColor>
#include <QIcon>

class QApplication;

namespace velmar {

/// Gives the program its style, its icon and Romanian texts of the toolkit; the palette and the font stay the
/// system's.
void applyLook(QApplication& application);

/// Background of locked and computed fields: that of tool tips.
QColor gCuloareInfo();
/// Text on that background.
QColor gCuloareInfoText();

/// The line icon of that name ("save", "invoice-out") in the text colour of buttons. The names are those of
/// the files in the folder icons.
QIcon icon(const QString& name);

}  // namespace velmar
