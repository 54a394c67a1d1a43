// `gCaleAplicatie`: a folder writable by the user, with the pictures, layouts and template that are part of
// the program. Users may change the pictures and layouts there.
#pragma once

#include <QString>

namespace velmar {

/// The standard folder for the program's data.
QString defaultApplicationFolder();

/// Makes `folder` the program's data folder: sets `gCaleAplicatie`, creates the folder, adds missing files
/// and replaces the template if another version of the program wrote it. Throws StoreError.
void prepareApplicationFolder(const QString& folder);

/// Path of a picture ("OK.bmp"): the file in the folder BMP of `gCaleAplicatie`, or the resource of the
/// program.
QString picturePath(const QString& name);

}  // namespace velmar
