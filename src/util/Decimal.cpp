#include "util/Decimal.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <stdexcept>
#include <string>
#include <utility>

// The library's convention is chosen at compile time and has to match the variant that is linked (bidgcc000):
// arguments by value, rounding mode and status flags as arguments.
#define DECIMAL_CALL_BY_REFERENCE 0
#define DECIMAL_GLOBAL_ROUNDING 0
#define DECIMAL_GLOBAL_EXCEPTION_FLAGS 0
#include <bid_conf.h>
#include <bid_functions.h>

#include "util/Errors.h"

namespace velmar {

namespace {

using Words = std::array<std::uint64_t, 2>;

// Layout of the high word: sign, 14 bits of exponent, the upper 49 bits of the coefficient. Coefficients stay
// below 10^34, so the encoding's second form (both of the top exponent bits set) only means infinity or NaN.
constexpr std::uint64_t kSign = 1ULL << 63;
constexpr std::uint64_t kNotFinite = 3ULL << 61;
constexpr std::uint64_t kCoefficientHigh = (1ULL << 49) - 1;
constexpr int kExponentShift = 49;
constexpr int kExponentBias = 6176;

constexpr int kRoundDigits = 28;
constexpr auto kHalfEven = BID_ROUNDING_TO_NEAREST;

constexpr Words pack(bool negative, std::uint64_t coefficient, int exponent) {
  return {coefficient, (negative ? kSign : 0) | static_cast<std::uint64_t>(exponent + kExponentBias)
                                                    << kExponentShift};
}

constexpr Words kZero = pack(false, 0, 0);

int exponentOf(const Words& words) {
  return static_cast<int>((words[1] & ~kSign) >> kExponentShift) - kExponentBias;
}

bool isZeroCoefficient(const Words& words) { return words[0] == 0 && (words[1] & kCoefficientHigh) == 0; }

BID_UINT128 toBid(const Words& words) { return std::bit_cast<BID_UINT128>(words); }

[[noreturn]] void throwOutOfRange() {
  throw ArithmeticError(kOverflow, QStringLiteral("Rezultatul depaseste limitele de calcul"));
}

Words fromBid(const BID_UINT128& number) {
  const auto words = std::bit_cast<Words>(number);
  if ((words[1] & kNotFinite) == kNotFinite) throwOutOfRange();
  return isZeroCoefficient(words) ? kZero : words;
}

/// 10^28 to 10^33, as (high, low) so that pairs compare by value: the smallest coefficients of 29 to 34
/// digits.
constexpr std::array<std::pair<std::uint64_t, std::uint64_t>, 6> kLongCoefficients = {{
    {0x204fce5e, 0x3e25026110000000},
    {0x1431e0fae, 0x6d7217caa0000000},
    {0xc9f2c9cd0, 0x4674edea40000000},
    {0x7e37be2022, 0xc0914b2680000000},
    {0x4ee2d6d415b, 0x85acef8100000000},
    {0x314dc6448d93, 0x38c15b0a00000000},
}};

/// How many digits the coefficient has beyond those that Round looks at.
int excessDigits(const Words& words) {
  const std::pair coefficient{words[1] & kCoefficientHigh, words[0]};
  const auto* next = std::upper_bound(kLongCoefficients.begin(), kLongCoefficients.end(), coefficient);
  return static_cast<int>(next - kLongCoefficients.begin());
}

/// Rounds a number with digits below 10^exponent to that place; others are unchanged.
Words quantized(const Words& words, int exponent) {
  if (exponentOf(words) >= exponent) return words;
  _IDEC_flags flags = 0;
  return fromBid(bid128_quantize(toBid(words), toBid(pack(false, 1, exponent)), kHalfEven, &flags));
}

constexpr bool isDigit(char16_t character) { return character >= u'0' && character <= u'9'; }

/// Skips digits from `position`; returns whether there were any.
bool skipDigits(QStringView text, qsizetype& position) {
  const qsizetype start = position;
  while (position < text.size() && isDigit(text[position].unicode())) ++position;
  return position > start;
}

bool skipSign(QStringView text, qsizetype& position) {
  const bool found = position < text.size() && (text[position] == u'-' || text[position] == u'+');
  if (found) ++position;
  return found;
}

/// [sign] digits [. digits] [e [sign] digits], with digits on at least one side of the point.
bool isNumber(QStringView text) {
  qsizetype position = 0;
  skipSign(text, position);
  bool anyDigits = skipDigits(text, position);
  if (position < text.size() && text[position] == u'.') {
    ++position;
    anyDigits = skipDigits(text, position) || anyDigits;
  }
  if (!anyDigits) return false;
  if (position < text.size() && (text[position] == u'e' || text[position] == u'E')) {
    ++position;
    skipSign(text, position);
    if (!skipDigits(text, position)) return false;
  }
  return position == text.size();
}

}  // namespace

Decimal::Decimal() : words_(kZero) {}

Decimal::Decimal(int value) : Decimal(static_cast<qint64>(value)) {}

Decimal::Decimal(qint64 value)
    : words_(pack(value < 0,
                  value < 0 ? 0 - static_cast<std::uint64_t>(value) : static_cast<std::uint64_t>(value), 0)) {
}

Decimal Decimal::fromDouble(double value) {
  if (!std::isfinite(value)) throwOutOfRange();
  if (value == 0) return {};
  std::array<char, 32> text;
  const auto written =
      std::to_chars(text.data(), text.data() + text.size(), std::abs(value), std::chars_format::scientific);
  // d[.ddd]e+-xx with at most 17 digits.
  std::uint64_t coefficient = 0;
  int fractionDigits = 0;
  bool afterPoint = false;
  const char* character = text.data();
  for (; *character != 'e'; ++character) {
    if (*character == '.') {
      afterPoint = true;
      continue;
    }
    coefficient = coefficient * 10 + static_cast<std::uint64_t>(*character - '0');
    if (afterPoint) ++fractionDigits;
  }
  if (*++character == '+') ++character;
  int exponent = 0;
  std::from_chars(character, written.ptr, exponent);
  return Decimal(pack(value < 0, coefficient, exponent - fractionDigits));
}

std::optional<Decimal> Decimal::parse(QStringView text) {
  if (!isNumber(text)) return std::nullopt;
  std::string digits = text.toLatin1().toStdString();
  _IDEC_flags flags = 0;
  const BID_UINT128 number = bid128_from_string(digits.data(), kHalfEven, &flags);
  if ((number.w[1] & kNotFinite) == kNotFinite) return std::nullopt;
  return Decimal(fromBid(number));
}

double Decimal::toDouble() const {
  // Coefficient and power are both exact doubles here, so that one division or product rounds once.
  constexpr std::uint64_t kExactLimit = 1ULL << std::numeric_limits<double>::digits;
  static constexpr std::array<double, 23> kPowers = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                     1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                     1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
  const int exponent = exponentOf(words_);
  const auto power = static_cast<std::size_t>(std::abs(exponent));
  if ((words_[1] & kCoefficientHigh) == 0 && words_[0] <= kExactLimit && power < kPowers.size()) {
    const auto coefficient = static_cast<double>(words_[0]);
    const double magnitude = exponent < 0 ? coefficient / kPowers[power] : coefficient * kPowers[power];
    return isNegative() ? -magnitude : magnitude;
  }
  _IDEC_flags flags = 0;
  const double nearest = bid128_to_binary64(toBid(words_), kHalfEven, &flags);
  if (!std::isfinite(nearest)) throwOutOfRange();
  return nearest;
}

QString Decimal::toString() const {
  // The library writes sign, digits, "E", signed exponent.
  std::array<char, 64> text{};
  _IDEC_flags flags = 0;
  bid128_to_string(text.data(), toBid(words_), &flags);
  const QString written = QString::fromLatin1(text.data());
  const qsizetype mark = written.indexOf(u'E');
  QString digits = written.mid(1, mark - 1);
  const int exponent = QStringView(written).mid(mark + 1).toInt();
  if (isZero()) return QStringLiteral("0");
  if (exponent >= 0) {
    digits += QString(exponent, u'0');
  } else {
    const qsizetype fraction = -exponent;
    if (digits.size() <= fraction) digits.prepend(QString(fraction - digits.size() + 1, u'0'));
    digits.insert(digits.size() - fraction, u'.');
    while (digits.endsWith(u'0')) digits.chop(1);
    if (digits.endsWith(u'.')) digits.chop(1);
  }
  return isNegative() ? u'-' + digits : digits;
}

Decimal Decimal::operator-() const { return isZero() ? *this : Decimal(Words{words_[0], words_[1] ^ kSign}); }

Decimal& Decimal::operator+=(const Decimal& other) {
  _IDEC_flags flags = 0;
  words_ = fromBid(bid128_add(toBid(words_), toBid(other.words_), kHalfEven, &flags));
  return *this;
}

Decimal& Decimal::operator-=(const Decimal& other) {
  _IDEC_flags flags = 0;
  words_ = fromBid(bid128_sub(toBid(words_), toBid(other.words_), kHalfEven, &flags));
  return *this;
}

Decimal& Decimal::operator*=(const Decimal& other) {
  _IDEC_flags flags = 0;
  words_ = fromBid(bid128_mul(toBid(words_), toBid(other.words_), kHalfEven, &flags));
  return *this;
}

Decimal& Decimal::operator/=(const Decimal& other) {
  if (other.isZero()) throw ArithmeticError(kDivisionByZero, QStringLiteral("Impartire la zero"));
  _IDEC_flags flags = 0;
  words_ = fromBid(bid128_div(toBid(words_), toBid(other.words_), kHalfEven, &flags));
  return *this;
}

bool operator==(const Decimal& a, const Decimal& b) {
  _IDEC_flags flags = 0;
  return a.words_ == b.words_ || bid128_quiet_equal(toBid(a.words_), toBid(b.words_), &flags) != 0;
}

std::strong_ordering operator<=>(const Decimal& a, const Decimal& b) {
  if (a == b) return std::strong_ordering::equal;
  _IDEC_flags flags = 0;
  return bid128_quiet_less(toBid(a.words_), toBid(b.words_), &flags) != 0 ? std::strong_ordering::less
                                                                          : std::strong_ordering::greater;
}

bool Decimal::isZero() const { return isZeroCoefficient(words_); }

bool Decimal::isNegative() const { return (words_[1] & kSign) != 0; }

Decimal Decimal::abs() const { return Decimal(Words{words_[0], words_[1] & ~kSign}); }

Decimal Round(const Decimal& value, int decimals) {
  Words words = value.words_;
  if (const int excess = excessDigits(words)) words = quantized(words, exponentOf(words) + excess);
  static_assert(kLongCoefficients.size() + kRoundDigits == 34);
  return Decimal(quantized(words, -decimals));
}

inline namespace literals {
Decimal operator""_dec(const char* digits) {
  const auto value = Decimal::parse(QString::fromLatin1(digits));
  if (!value) throw std::invalid_argument(std::string("not a decimal: ") + digits);
  return *value;
}
}  // namespace literals

}  // namespace velmar
