// What stands in the controls of a window, and how a person changes it.
#pragma once

#include "Windows.h"

class QComboBox;

namespace velmar::scenario {

/// Registers text, value, type, pick, set, tab and their kin.
void addControlFunctions(Functions& functions, Windows& windows);

/// Empties an editor by the keyboard: all of it marked, then deleted.
void clearByKeyboard(QWidget* editor);

/// What an editor or control shows as text.
QString shownText(const QWidget* widget);

/// Chooses the entry of a combo by its text, through its drop-down. Gives false when it has no such entry.
bool chooseInCombo(QComboBox* combo, const QString& text);

/// Takes the row of that text in the list that a completer has dropped down. Gives false when there is none.
bool chooseInPopup(const QString& text);

}  // namespace velmar::scenario
