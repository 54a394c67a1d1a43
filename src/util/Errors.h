// The typed errors of the core, and the one report for what escapes a handler.
#pragma once

#include <QString>
#include <source_location>
#include <stdexcept>

class QFileDevice;

namespace velmar {

/// Numbers of errors that are the program's own; those of the engine stand beside them in reports.
enum ErrorNumber {
  kOverflow = 6,
  kDivisionByZero = 11,
  kConversionFailure = 13,
  kFileExists = 58,
  kFileFailure = 75  ///< a file or folder cannot be read, written or moved
};

/// Base of the program's errors: a number and a Romanian text, as the error report shows them.
class Error : public std::runtime_error {
 public:
  Error(int number, const QString& text);
  int number() const { return number_; }
  const QString& text() const { return text_; }

 private:
  int number_;
  QString text_;
};

/// What the database engine or the file system refused. The number is the engine's.
class StoreError : public Error {
 public:
  using Error::Error;
};

/// The error for a file that cannot be written, with what the system says of it.
StoreError notWritten(const QFileDevice& file);

/// A rule of the trade was broken: the text is the whole message a user should read.
class RuleError : public Error {
 public:
  /// field: name of the column at fault, empty when the fault lies in no single field. icon and title go to
  /// the message box (Messages.h).
  explicit RuleError(const QString& text, const QString& field = {}, int icon = 0, const QString& title = {});
  const QString& field() const { return field_; }
  int icon() const { return icon_; }
  const QString& title() const { return title_; }

 private:
  QString field_;
  int icon_;
  QString title_;
};

/// A computation that has no result, such as a division by zero (number 11).
class ArithmeticError : public Error {
 public:
  using Error::Error;
};

/// The user gave up waiting for the write lock; nothing was written and nothing more is to be said.
class Cancelled : public std::exception {};

/// Shows "Eroare n - text in procedura P din Form F Linia: L" for an error that escaped a handler. A form is
/// named by its name alone, what is no form with its kind: "User Control extTDBGrid".
void reportError(int number, const QString& text, const QString& procedure, const QString& form, int line);

/// The place a report names when the error itself knows none: the line of the call.
inline int lineOf(const std::source_location& place) { return static_cast<int>(place.line()); }

/// Runs an event handler's work: what escapes it ends in the one error report, a broken rule in its message.
/// Gives false when the work ended early.
template <typename Work>
bool guarded(const QString& form, const QString& procedure, Work&& work,
             std::source_location place = std::source_location::current());

namespace detail {
void reportCurrentException(const QString& form, const QString& procedure, int line);
}

template <typename Work>
bool guarded(const QString& form, const QString& procedure, Work&& work, std::source_location place) {
  try {
    work();
    return true;
  } catch (...) {
    detail::reportCurrentException(form, procedure, lineOf(place));
    return false;
  }
}

}  // namespace velmar
