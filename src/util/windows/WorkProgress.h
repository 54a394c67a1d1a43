// Shows how far a long piece of work is, and lets its user give it up.
#pragma once

#include <QProgressDialog>

namespace velmar {

class WorkProgress {
 public:
  /// Nothing shows until the work has taken two seconds.
  WorkProgress(const QString& title, QWidget* parent);

  /// Shows that `done` of `of` parts are done. Throws Cancelled when the user has given up.
  void show(int done, int of);

 private:
  QProgressDialog dialog_;
};

}  // namespace velmar
