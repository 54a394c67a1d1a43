// Access to open windows and their controls by name.
#pragma once

#include <QHash>
#include <QPointer>
#include <QWidget>

#include "Functions.h"

namespace velmar::scenario {

/// Records which window was shown last, and the numbers by which a script refers to windows.
class Windows : public QObject {
 public:
  Windows();

  /// The open windows of that name, the topmost one last.
  QWidgetList open(const QString& name) const;

  /// The number of the topmost open window of that name; 0 if none is open.
  int topmost(const QString& name);
  /// The window with that number, or another one of the same name if it has been closed; fails if none is
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

/// Saves a screenshot of the window; returns the file's path.
QString saveScreenshot(QWidget* window, const QString& folder, const QString& name);

}  // namespace velmar::scenario
