// Names of files: made from what a user typed, and found whatever their spelling.
#pragma once

#include <QString>

namespace velmar {

/// The text with "_" for each character that file names do not take on any system.
QString asFileName(const QString& text);

/// Full path of the file of that name in any case; the name as given, in the folder, when no such file
/// exists.
QString pathInFolder(const QString& folder, const QString& name);

/// Whether the folder holds a file of that name in any case.
bool existsInFolder(const QString& folder, const QString& name);

}  // namespace velmar
