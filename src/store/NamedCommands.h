// The named commands that reports use: a table of statements with positional parameters.
#pragma once

#include "store/Row.h"

namespace velmar {

/// The order of documents by date, then number as a number; what is no number comes behind, as text. `id`:
/// the kind's two letters with the number.
QString documentOrder(const QString& date, const QString& id);

/// `gDataEnv`: runs the named commands on the open company's database.
class DataEnvironment {
 public:
  /// Runs the command of that name; its parameters are in the order of their placeholders. Throws StoreError
  /// for an unknown name or a wrong number of parameters.
  Recordset open(const QString& name, const Values& parameters = {}) const;

  QStringList names() const;
  /// The statement of a named command.
  QString statement(const QString& name) const;
};

}  // namespace velmar
