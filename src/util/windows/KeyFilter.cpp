#include "util/windows/KeyFilter.h"

#include <QLineEdit>

namespace velmar {

void KeyFilter::install(QLineEdit* box, Options options) { box->setValidator(new KeyFilter(options, box)); }

QValidator::State KeyFilter::validate(QString& input, int& position) const {
  QString kept;
  int keptPosition = position;
  for (int i = 0; i < input.size(); ++i) {
    const QChar c = input[i];
    const bool swallowed =
        (options_.testFlag(NoQuote) && c == QLatin1Char('\'')) || (options_.testFlag(NoBlank) && c.isSpace());
    if (!swallowed)
      kept.append(options_.testFlag(UpperCase) ? c.toUpper() : c);
    else if (i < position)
      --keptPosition;
  }
  input = kept;
  position = keptPosition;
  return Acceptable;
}

}  // namespace velmar
