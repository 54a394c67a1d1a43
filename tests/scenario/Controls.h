// Reads the controls of a window, and changes them as a user does.
#pragma once

#include "Windows.h"

class QComboBox;

namespace velmar::scenario {

/// Registers text, value, type, pick, set, tab and related functions.
void addControlFunctions(Functions& functions, Windows& windows);

/// Clears an editor with the keyboard: selects all, then deletes.
void clearByKeyboard(QWidget* editor);

/// The text that an editor or control shows.
QString shownText(const QWidget* widget);

/// Chooses the entry of a combo by its text, in its drop-down list. Returns false if there is no such entry.
bool chooseInCombo(QComboBox* combo, const QString& text);

/// Chooses the row with that text in the drop-down list of a completer. Returns false if there is none.
bool chooseInPopup(const QString& text);

}  // namespace velmar::scenario
