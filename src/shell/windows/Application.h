// The program's QApplication: an error that no handler catches is shown in the error report and does not end
// the program.
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
