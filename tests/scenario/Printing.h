// Printed output of a scenario: every PDF file that is created in the out folder.
#pragma once

#include <QObject>
#include <QSet>

#include "Functions.h"

namespace velmar::scenario {

/// Accepts the print options unchanged and closes previews, unless the script handles them.
class Printing : public QObject {
 public:
  explicit Printing(const QString& out);

  void addFunctions(Functions& functions);
  /// Whether no window is about to be handled.
  bool settled() const { return serving_ == 0; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QVariant printed();

  QString out_;
  QSet<QString> reported_;
  bool keepsWindows_ = false;
  int serving_ = 0;
};

}  // namespace velmar::scenario
