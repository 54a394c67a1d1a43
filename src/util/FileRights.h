// Who may read and write the program's files: they hold passwords and a company's figures.
#pragma once

#include <QString>

class QFileDevice;

namespace velmar {

/// Leaves a file to its owner (0600), or also to the group of its folder (0660) when the group may write
/// there. Does nothing on systems without such rights and for files of other users.
void protectFile(const QString& path);

/// Opens a file for writing that only its owner may read, such as a page or a list with data of persons.
/// Throws StoreError when it cannot be written.
void openPrivately(QFileDevice& file);

/// Leaves a folder to its owner (0700), or also to its group (0770) when the group may write in it or in the
/// folder around it.
void protectFolder(const QString& path);

}  // namespace velmar
