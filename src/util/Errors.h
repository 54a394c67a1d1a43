// The exceptions of the core, and the error report for exceptions that escape an event handler.
#pragma once

#include <QString>
#include <source_location>
#include <stdexcept>

class QFileDevice;

namespace velmar {

/// Error numbers of the program; reports also contain the numbers of the database engine.
enum ErrorNumber {
  kOverflow = 6,
  kDivisionByZero = 11,
  kConversionFailure = 13,
  kFileExists = 58,
  kFileFailure = 75  ///< a file or folder cannot be read, written or moved
};

/// Base class of the program's errors: a number and a Romanian text, shown in the error report.
class Error : public std::runtime_error {
 public:
  Error(int number, const QString& text);
  int number() const { return number_; }
  const QString& text() const { return text_; }

 private:
  int number_;
  QString text_;
};

/// An error of the database engine or the file system. The number is the engine's.
class StoreError : public Error {
 public:
  using Error::Error;
};

/// The error for a file that cannot be written, with the system's message.
StoreError notWritten(const QFileDevice& file);

/// A business rule was violated: the text is the complete message for the user.
class RuleError : public Error {
 public:
  /// field: name of the column at fault; empty if no single field is at fault. icon and title: of the message
  /// box (Messages.h).
  explicit RuleError(const QString& text, const QString& field = {}, int icon = 0, const QString& title = {});
  const QString& field() const { return field_; }
  int icon() const { return icon_; }
  const QString& title() const { return title_; }

 private:
  QString field_;
  int icon_;
  QString title_;
};

/// A computation without a result, such as a division by zero (number 11).
class ArithmeticError : public Error {
 public:
  using Error::Error;
};

/// The user cancelled, for example while waiting for the write lock; nothing was written and no message is
/// needed.
class Cancelled : public std::exception {};

/// Shows "Eroare n - text in procedura P din Form F Linia: L" for an error that escaped a handler. A form is
/// identified by its name, any other object by its kind and name: "User Control extTDBGrid".
void reportError(int number, const QString& text, const QString& procedure, const QString& form, int line);

/// The line for the report when the error has none: the line of the call.
inline int lineOf(const std::source_location& place) { return static_cast<int>(place.line()); }

/// Runs the body of an event handler: an exception is reported by reportError(), a RuleError by its message.
/// Returns false if an exception was caught.
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
