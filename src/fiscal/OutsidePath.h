// Where the files of the registers' programs lie. Their makers tell paths of Windows, which names files
// without regard to case: so are they found here, in the spelling in which they stand.
#pragma once

#include <QString>

namespace velmar {

/// The path of a file below `folder` ("Program Files/Help Micro/Fiscal Printer/vsu.exe"): the spelling told
/// where it stands so, else that of the file that stands. What stands in no spelling keeps the one told.
QString outsidePath(const QString& folder, const QString& file);

/// A file that is told as lying on drive C:, below settings::driveFolder().
QString onDrive(const QString& file);

/// A file that is told as lying in the program's folder, `gCaleAplicatie`.
QString inProgramFolder(const QString& file);

/// Whether a file, and no folder, stands at the path.
bool fileStands(const QString& path);

}  // namespace velmar
