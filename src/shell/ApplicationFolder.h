// `gCaleAplicatie`: a folder that the user may write, with the pictures, the report projects and the template
// that come with the program. A user may change the pictures and the projects there.
#pragma once

#include <QString>

namespace velmar {

/// The folder that the system gives the program for its data.
QString defaultApplicationFolder();

/// Makes `folder` the program's folder: sets `gCaleAplicatie`, makes the folder, adds the files that are
/// missing and writes the template anew when another version of the program made it. Throws StoreError.
void prepareApplicationFolder(const QString& folder);

/// Path of a picture ("OK.bmp"): the one in the folder BMP of `gCaleAplicatie`, or the program's own.
QString picturePath(const QString& name);

}  // namespace velmar
