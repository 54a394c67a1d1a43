// Texts from outside: characters that names must not have (control characters, line breaks, and those that
// change the direction of writing, with which a text looks like another one), and plain letters.
#pragma once

#include <QString>

namespace velmar {

/// The first of these characters in the text, as "U+202E"; "" if there is none.
QString hiddenCharacter(const QString& text);

/// The message for a text that has such a character; "" if it has none.
QString hiddenObjection(const QString& text);

/// The text with "[U+202E]" in place of each such character, for display.
QString visibleText(const QString& text);

/// The text in plain letters: without diacritics, with "ss" for a sharp s, "AE", "OE" for ligatures, straight
/// quotes and hyphens for typographic ones.
QString plainLetters(const QString& text);

/// The text with each line break or tab replaced by a blank.
QString oneLine(QString text);

}  // namespace velmar
