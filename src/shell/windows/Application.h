// The program's QApplication: an error that escapes every handler ends in the one error report, and not the
// program.
#pragma once

#include <QApplication>

namespace velmar {

class Application : public QApplication {
 public:
  using QApplication::QApplication;

  bool notify(QObject* receiver, QEvent* event) override;

 private:
  bool reporting_ = false;  ///< an error is being shown; errors that this causes are not reported
};

}  // namespace velmar
