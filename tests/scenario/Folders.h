// The fresh folders a scenario works in.
#pragma once

#include <QTemporaryDir>

#include "Functions.h"

namespace velmar::scenario {

class Folders {
 public:
  /// `out` is emptied; the others lie in a temporary folder that goes with this object.
  explicit Folders(const QString& out);

  const QString& out() const { return out_; }
  QString app() const { return inside("app"); }
  /// Stands for drive C: of the fiscal programs.
  QString drive() const { return inside("drive"); }
  QString settings() const { return inside("settings"); }
  /// Makes one more empty folder for the databases of a company.
  QString nextDatabases();

 private:
  QString inside(const char* name) const { return temporary_.filePath(QString::fromLatin1(name)); }

  QTemporaryDir temporary_;
  QString out_;
  int companies_ = 0;
};

}  // namespace velmar::scenario
