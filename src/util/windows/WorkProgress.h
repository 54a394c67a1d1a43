// Shows the progress of a long operation, which the user can cancel.
#pragma once

#include <QProgressDialog>

namespace velmar {

class WorkProgress {
 public:
  /// The dialog is shown after two seconds.
  WorkProgress(const QString& title, QWidget* parent);

  /// Shows that `done` of `of` parts are done. Throws Cancelled when the user has cancelled.
  void show(int done, int of);
  /// Shows that the work goes on, without a measure; to be called every few milliseconds. Nothing else takes
  /// input meanwhile. Throws Cancelled when the user has cancelled.
  void wait();

 private:
  QProgressDialog dialog_;
};

}  // namespace velmar
