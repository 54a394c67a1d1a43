#include "util/AmountText.h"

#include <array>
#include <QStringList>

namespace velmar {

namespace {

constexpr int kGroupDigits = 3;

// Singular and plural.
struct Words {
  const char* one = "";
  const char* more = "";

  QString of(bool isOne) const { return QString::fromLatin1(isOne ? one : more); }
};

struct Currency {
  const char* code;
  Words whole;
  Words hundredths;
};

constexpr Currency kCurrencies[] = {
    {"ROL", {" leu", " lei"}, {" ban", " bani"}},
    {"RON", {" leu nou", " lei noi"}, {" ban", " bani"}},
    {"USD", {" USS", " USD"}, {" US cent", " US centi"}},
    {"EUR", {" EUR", " EUR"}, {" EUR cent", " EUR centi"}},
    {"GBP", {" GBP", " GBP"}, {" GB pence", " GB pences"}},
};

// Indexed by the position of a group, starting at the units.
constexpr Words kPositions[] = {
    {}, {"mie", "mii"}, {"mlion", "milioane"}, {"miliard", "miliarde"}, {"trilion", ""}};

using Digits = std::array<const char*, 10>;
constexpr Digits kHundreds = {"", "o", "doua", "trei", "patru", "cinci", "sase", "sapte", "opt", "noua"};
constexpr Digits kTens = {"", "", "doua", "trei", "patru", "cinci", "sai", "sapte", "opt", "noua"};
constexpr Digits kTeens = {"",          "unspre",  "doispre",   "treispre", "paispre",
                           "cincispre", "saispre", "saptispre", "optispre", "nouaspre"};
constexpr Digits kUnits = {"", "", "", "trei", "patru", "cinci", "sase", "sapte", "opt", "noua"};

QString word(const Digits& words, int digit) {
  return QString::fromLatin1(words[static_cast<size_t>(digit)]);
}

int digitAt(const QString& digits, int place) { return digits.at(place).digitValue(); }

// Tens and units; `one` and `two` are the words for the units 1 and 2, except in the teens.
QString belowHundred(int tens, int units, const char* one, const char* two) {
  if (tens == 1) return word(kTeens, units) + QStringLiteral("zece");
  QString text;
  if (tens > 1) {
    text = word(kTens, tens) + QStringLiteral("zeci");
    if (units > 0) text += QStringLiteral("si");
  }
  if (units == 1) return text + QString::fromLatin1(one);
  if (units == 2) return text + QString::fromLatin1(two);
  return text + word(kUnits, units);
}

const char* wordOfOne(int position, int groups) {
  if (position == 2) return "o";
  return position == 1 && groups > 1 ? "unu" : "un";
}

QString wholeText(QString digits) {
  const auto groups = static_cast<int>((digits.size() + kGroupDigits - 1) / kGroupDigits);
  digits = digits.rightJustified(qsizetype{groups} * kGroupDigits, u'0');
  QString text;
  for (int i = 0; i < groups; ++i)
    text += Grupa(digits.mid(qsizetype{i} * kGroupDigits, kGroupDigits), groups - i, groups);
  return text;
}

}  // namespace

QString SumaText(const Decimal& amount, QString& currency) {
  currency = currency.toUpper();
  Currency words{"", {}, {}};
  for (const Currency& known : kCurrencies)
    if (currency == QLatin1String(known.code)) words = known;

  const Decimal rounded = Round(amount, 2);
  const QStringList parts = rounded.abs().toString().split(u'.');
  const QString& whole = parts.first();
  const QString decimals = parts.value(1).leftJustified(2, u'0');
  QString text = rounded.isNegative() ? QStringLiteral("minus ") : QString();
  text += wholeText(whole) + words.whole.of(rounded.abs() < 2);
  if (decimals == QStringLiteral("00")) return text;
  return text + QStringLiteral(" si ") + Zecimale(decimals) +
         words.hundredths.of(decimals == QStringLiteral("01"));
}

QString Grupa(const QString& group, int position, int groups) {
  const int hundreds = digitAt(group, 0);
  QString text = word(kHundreds, hundreds);
  if (hundreds > 0) text += QLatin1String(hundreds == 1 ? "suta" : "sute");
  text += belowHundred(digitAt(group, 1), digitAt(group, 2), wordOfOne(position, groups),
                       position == 1 ? "doi" : "doua");
  if (text.isEmpty() || position > static_cast<int>(std::size(kPositions))) return text;
  return text + kPositions[position - 1].of(group.toInt() == 1);
}

QString Zecimale(const QString& digits) {
  const int tens = digitAt(digits, 0);
  return belowHundred(tens, digitAt(digits, 1), tens == 0 ? "un" : "unu", "doi");
}

}  // namespace velmar
