// The functions that a scenario can call on the GUI thread, by name, with plain values as arguments and
// results. The prelude wraps them in the globals and handles that scripts use.
#pragma once

#include <functional>
#include <QHash>
#include <QVariant>
#include <stdexcept>

namespace velmar::scenario {

/// A failed call; becomes an exception in the script.
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
