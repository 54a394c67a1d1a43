// The check that the required fields of a header are filled in: all empty ones are named in one message.
#pragma once

#include "store/Row.h"

namespace velmar {

class Completeness {
 public:
  explicit Completeness(const Row& header) : header_(header) {}

  /// `text` names the column in the message, as ": Pacient".
  Completeness& require(const QString& column, const QString& text);
  /// Throws RuleError, naming the first of the empty columns.
  void check() const;

 private:
  const Row& header_;
  QString firstColumn_;
  QString missing_;
};

/// An amount as it is stored: 4 decimals.
Decimal storedMoney(const Decimal& amount);

}  // namespace velmar
