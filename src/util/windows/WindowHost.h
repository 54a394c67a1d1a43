// The interface to the main window by which the windows of other subsystems open child windows.
#pragma once

#include <functional>
#include <QWidget>

namespace velmar {

class WindowHost {
 public:
  virtual ~WindowHost() = default;

  /// Shows a new child window, which belongs to the host from then on.
  virtual void showChild(QWidget* window) = 0;

  /// Activates the child window of that key, and creates it first if it is not open. The key is the window's
  /// name, followed by the kind for a window that can be open for several kinds.
  virtual QWidget* showOne(const QString& key, const std::function<QWidget*()>& make) = 0;

  /// Opens the window of that class as the menu does, if the menu offers it to the user. Returns a child
  /// window; null for a modal one and when nothing was opened.
  virtual QWidget* showOffered(const QString& window) = 0;
};

/// The host of this process; null before the main window opens.
WindowHost* windowHost();
void setWindowHost(WindowHost* host);

}  // namespace velmar
