// File names: made from user input, and found ignoring case.
#pragma once

#include <QString>

namespace velmar {

/// The text with "_" in place of each character that is not allowed in file names on some system.
QString asFileName(const QString& text);

/// Full path of the file of that name, ignoring case; the folder and the given name if there is no such file.
/// Throws StoreError when the name leads out of the folder.
QString pathInFolder(const QString& folder, const QString& name);

/// Whether the folder contains a file of that name, ignoring case, or a link that leads nowhere now.
bool existsInFolder(const QString& folder, const QString& name);

/// Throws StoreError when the path leads to a device, a pipe or anything else that is read without end.
void requirePlainFile(const QString& path);

}  // namespace velmar
