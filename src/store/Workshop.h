// A temporary folder in which something is created until it is complete. A folder left by a killed process is
// removed when the next one is created.
#pragma once

#include <memory>
#include <QLockFile>
#include <QString>
#include <QTemporaryDir>

namespace velmar {

class Workshop {
 public:
  /// Creates a folder in `folder` whose name begins with `prefix`, and removes those of dead processes.
  /// Throws StoreError when `folder` is not writable.
  Workshop(const QString& folder, const QString& prefix);

  QString path() const { return dir_.path(); }
  QString filePath(const QString& name) const { return dir_.filePath(name); }

 private:
  QTemporaryDir dir_;
  std::unique_ptr<QLockFile>
      lock_;  ///< shows other processes that this one is running; destroyed before the folder
};

/// Removes the folders with that prefix whose processes are dead, with their databases on a server. What
/// cannot be removed now is left for the next call.
void sweepWorkshops(const QString& folder, const QString& prefix);

}  // namespace velmar
