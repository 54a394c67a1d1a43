// Makes failed comparisons print texts and amounts in readable form.
#pragma once

#include <ostream>
#include <QString>

#include "util/Decimal.h"

inline void PrintTo(const QString& text, std::ostream* stream) {
  *stream << '"' << qUtf8Printable(text) << '"';
}

namespace velmar {

inline void PrintTo(const Decimal& value, std::ostream* stream) {
  *stream << qUtf8Printable(value.toString());
}

}  // namespace velmar
