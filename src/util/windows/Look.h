// The common look of all windows: style, accent colour, line icons, the colour of locked fields.
#pragma once

#include <QColor>
#include <QIcon>

class QApplication;

namespace velmar {

/// Sets the program's style, icon and Romanian texts of the toolkit; palette and font remain those of the
/// system.
void applyLook(QApplication& application);

/// Background of locked and computed fields: that of tool tips.
QColor gCuloareInfo();
/// Text on that background.
QColor gCuloareInfoText();

/// The line icon of that name ("save", "invoice-out") in the text colour of buttons. The names are those of
/// the files in the folder icons.
QIcon icon(const QString& name);

}  // namespace velmar
