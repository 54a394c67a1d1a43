// The open windows by name, and the controls in them by theirs.
#pragma once

#include <QHash>
#include <QPointer>
#include <QWidget>

#include "Functions.h"

namespace velmar::scenario {

/// Keeps which window was shown last, and the numbers under which a script holds windows.
class Windows : public QObject {
 public:
  Windows();

  /// The open windows of that name, the topmost one last.
  QWidgetList open(const QString& name) const;

  /// The number of the topmost open window of that name; 0 when none is open.
  int topmost(const QString& name);
  /// The window of a number. One that has been closed gives way to another of its name; fails when none is
  /// open.
  QWidget* window(int number);
  /// The control of that name in the window of that number; fails when there is none.
  QWidget* control(const QVariant& number, const QVariant& name);

  void addFunctions(Functions& functions);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Held {
    QString name;
    QPointer<QWidget> window;
  };

  QList<Held> held_;
  QHash<const QObject*, int> shown_;
  int lastShown_ = 0;
};

/// What a screenshot of the window is saved as; gives the file's path.
QString saveScreenshot(QWidget* window, const QString& folder, const QString& name);

}  // namespace velmar::scenario
