#include "util/windows/WorkProgress.h"

#include <QApplication>

#include "util/Errors.h"

namespace velmar {

namespace {

constexpr int kPatience = 2000;  // milliseconds

}  // namespace

WorkProgress::WorkProgress(const QString& title, QWidget* parent)
    : dialog_(QStringLiteral("In Progres!"), QStringLiteral("Renunta"), 0, 1, parent) {
  dialog_.setWindowTitle(title);
  dialog_.setWindowModality(Qt::ApplicationModal);
  dialog_.setMinimumDuration(kPatience);
  dialog_.setValue(0);  // starts the time until the dialog is shown
}

void WorkProgress::show(int done, int of) {
  if (dialog_.maximum() != of) dialog_.setMaximum(of);
  dialog_.setValue(done);
  if (dialog_.wasCanceled()) throw Cancelled();
}

void WorkProgress::wait() {
  dialog_.setMaximum(0);
  QApplication::processEvents(dialog_.isVisible() ? QEventLoop::AllEvents
                                                  : QEventLoop::ExcludeUserInputEvents);
  if (dialog_.wasCanceled()) throw Cancelled();
}

}  // namespace velmar
