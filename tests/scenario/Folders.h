// The new folders in which a scenario works.
#pragma once

#include <QTemporaryDir>

#include "Functions.h"

namespace velmar::scenario {

class Folders {
 public:
  /// `out` is emptied; the others are in a temporary folder that is removed with this object.
  explicit Folders(const QString& out);

  const QString& out() const { return out_; }
  QString app() const { return inside("app"); }
  /// Used as drive C: of the fiscal programs.
  QString drive() const { return inside("drive"); }
  QString settings() const { return inside("settings"); }
  /// Creates another empty databases folder.
  QString nextDatabases();

 private:
  QString inside(const char* name) const { return temporary_.filePath(QString::fromLatin1(name)); }

  QTemporaryDir temporary_;
  QString out_;
  int companies_ = 0;
};

}  // namespace velmar::scenario
