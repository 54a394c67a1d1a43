// Lets a failed comparison show texts and amounts as people write them.
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
