// Common behaviour of fields: Enter moves to the next one, locked fields have their own colour.
#pragma once

class QLineEdit;
class QWidget;

namespace velmar {

/// Enter in the widget moves to the next field, as Tab does.
void moveOnWithEnter(QWidget* widget);

/// Paints a box in the colour of locked fields, or in the normal one.
void markLocked(QLineEdit* box, bool locked);

/// Makes a box read-only and excludes it from the tab order.
void lockBox(QLineEdit* box);

/// Assigns a mnemonic to each button, box and label of a field in the form: the letter marked with "&" in its
/// text, else the first free one. The letters of the main menu are reserved.
void giveMnemonics(QWidget* form);

}  // namespace velmar
