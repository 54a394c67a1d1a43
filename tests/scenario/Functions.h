// What a scenario may ask of the windows' thread: functions by name, taking and giving plain values. The
// prelude turns them into the globals and handles that scripts see.
#pragma once

#include <functional>
#include <QHash>
#include <QVariant>
#include <stdexcept>

namespace velmar::scenario {

/// A call that could not do what the script asked; becomes an exception of the script.
class Failure : public std::runtime_error {
 public:
  explicit Failure(const QString& text) : std::runtime_error(text.toStdString()), text_(text) {}
  const QString& text() const { return text_; }

 private:
  QString text_;
};

using Arguments = QVariantList;
using Function = std::function<QVariant(const Arguments&)>;
using Functions = QHash<QString, Function>;

}  // namespace velmar::scenario
