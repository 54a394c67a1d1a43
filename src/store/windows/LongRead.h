// Reads that may take long, which the user can cancel.
#pragma once

#include <functional>
#include <QString>

class QWidget;

namespace velmar {

/// Runs `work`, which only reads, as readInThread() does. After two seconds a dialog is shown, in which the
/// user can cancel. Throws what `work` throws, or Cancelled.
void readLong(const QString& title, QWidget* parent, const std::function<void()>& work);

}  // namespace velmar
