// How fields of documents are entered: Enter moves on, locked fields show it.
#pragma once

class QLineEdit;
class QWidget;

namespace velmar {

/// Enter in the widget moves to the next field, as Tab does.
void moveOnWithEnter(QWidget* widget);

/// Paints a box in the colour of locked fields, or in the normal one.
void markLocked(QLineEdit* box, bool locked);

}  // namespace velmar
