// Paths of the files of the registers' programs. Their makers specify Windows paths, which are case
// insensitive; they are resolved here to the actual spelling on disk.
#pragma once

#include <QString>

namespace velmar {

/// The path of a file below `folder` ("Program Files/Help Micro/Fiscal Printer/vsu.exe"): the exact spelling
/// if it exists, else an existing spelling. Parts that do not exist are kept as given.
QString outsidePath(const QString& folder, const QString& file);

/// The path of a file specified as on drive C:, which is settings::driveFolder().
QString onDrive(const QString& file);

/// The path of a file in the program's folder, `gCaleAplicatie`.
QString inProgramFolder(const QString& file);

/// Whether the path is an existing file, not a folder.
bool fileExists(const QString& path);

}  // namespace velmar
