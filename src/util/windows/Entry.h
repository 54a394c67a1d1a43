// How fields are entered: Enter moves on, locked fields show it.
#pragma once

class QLineEdit;
class QWidget;

namespace velmar {

/// Enter in the widget moves to the next field, as Tab does.
void moveOnWithEnter(QWidget* widget);

/// Paints a box in the colour of locked fields, or in the normal one.
void markLocked(QLineEdit* box, bool locked);

/// Makes a box show only: nothing can be typed into it and Tab passes it by.
void lockBox(QLineEdit* box);

/// Gives each button, box and label of a field in the form a letter of its own to reach it with Alt: the one
/// that its text asks for with "&", else the first that is free. The letters of the main menu are never free.
void giveMnemonics(QWidget* form);

}  // namespace velmar
