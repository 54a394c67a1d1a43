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
  bool reporting_ = false;  ///< a report stands; what it brings about is not reported again
};

}  // namespace velmar
