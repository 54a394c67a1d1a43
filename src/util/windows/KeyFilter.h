// Filters the input of a text box: ignores certain characters, converts to upper case, and replaces line
// breaks by blanks. Also applies to pasted text, and to text set by the program except by showUnfiltered().
#pragma once

#include <QValidator>

class QLineEdit;

namespace velmar {

class KeyFilter : public QValidator {
  Q_OBJECT
 public:
  enum Option { NoQuote = 1, NoBlank = 2, UpperCase = 4 };
  Q_DECLARE_FLAGS(Options, Option)

  KeyFilter(Options options, QObject* parent) : QValidator(parent), options_(options) {}

  /// Filters what is typed into `box`.
  static void install(QLineEdit* box, Options options = NoQuote);
  /// Shows a stored text as it is.
  static void showUnfiltered(QLineEdit* box, const QString& text);

  State validate(QString& input, int& position) const override;

 private:
  Options options_;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(KeyFilter::Options)

}  // namespace velmar
