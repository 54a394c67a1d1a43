// File names: made from user input, and found ignoring case.
#pragma once

#include <QString>

namespace velmar {

/// The text with "_" in place of each character that is not allowed in file names on some system.
QString asFileName(const QString& text);

/// Full path of the file of that name, ignoring case; the folder and the given name if there is no such file.
QString pathInFolder(const QString& folder, const QString& name);

/// Whether the folder contains a file of that name, ignoring case.
bool existsInFolder(const QString& folder, const QString& name);

}  // namespace velmar
