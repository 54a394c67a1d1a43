// A folder in which something is made apart until it is whole. One that a killed process left behind goes
// when the next one is made there.
#pragma once

#include <memory>
#include <QLockFile>
#include <QString>
#include <QTemporaryDir>

namespace velmar {

class Workshop {
 public:
  /// Makes a folder in `folder` whose name begins with `prefix`, and removes those of dead processes. Throws
  /// StoreError when that folder cannot be written.
  Workshop(const QString& folder, const QString& prefix);

  QString path() const { return dir_.path(); }
  QString filePath(const QString& name) const { return dir_.filePath(name); }

 private:
  QTemporaryDir dir_;
  std::unique_ptr<QLockFile> lock_;  ///< tells the others that this process lives; goes before the folder
};

/// Removes the folders of that prefix whose processes are dead, with their databases on a server. What cannot
/// be removed stays for the next time.
void sweepWorkshops(const QString& folder, const QString& prefix);

}  // namespace velmar
