// The checks of a document: values that a kind lists in order. Each passes or finds a fault; what happens
// then depends on its outcome.
#pragma once

#include <functional>
#include <optional>
#include <QStringList>
#include <vector>

namespace velmar {

struct Document;

struct Fault {
  QStringList subjects = {};  ///< for %1, %2 ... of the check's text; a notice joins them for %1
  QString text = {};          ///< instead of the check's text
  QString field = {};         ///< instead of the check's field
};

enum class Outcome {
  Refuse,  ///< the step ends with the message
  Ask,     ///< the user may go on
  Tell     ///< a notice; the step goes on
};

/// When a check of a validation is made.
enum class CheckedAt {
  Once,      ///< before the write lock is taken
  Twice,     ///< and once more under the lock, since another workstation may have changed what it looks at
  UnderLock  ///< under the lock only: it reads what other workstations change
};

struct Check {
  QString text = {};   ///< the complete message
  QString field = {};  ///< column at fault, or control if it is not stored; gets the focus
  std::function<std::optional<Fault>(const Document& document)> fault = {};
  Outcome outcome = Outcome::Refuse;
  CheckedAt at = CheckedAt::Once;
  QString title = {};  ///< of the message box
};

using Checks = std::vector<Check>;

/// A check that refuses when the condition holds.
Check refusedWhen(const QString& text, const QString& field,
                  std::function<bool(const Document& document)> isBroken);

/// The check, made only for documents for which the condition holds.
Check onlyFor(std::function<bool(const Document& document)> applies, Check check);

/// Makes the checks in order. Throws RuleError with that icon for the first that refuses; asks and tells.
/// Returns false when the user does not want to go on.
bool passes(const Checks& checks, const Document& document, int icon = 0);

/// Makes once more, under the write lock, the checks that have to be. Shows nothing; throws RuleError.
void requireUnderLock(const Checks& checks, const Document& document);

}  // namespace velmar
