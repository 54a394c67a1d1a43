// Money, prices, percents and quantities: exact decimal arithmetic.
//
// Amounts are stored as doubles and computed as decimals. A double is converted through its shortest decimal
// text (19.99 is 19.99 and not 19.989999...); sums and products are exact up to 34 digits, quotients have 34
// digits. Rounding is half to even and done only where a business rule requires it. The store and the windows
// convert doubles at their boundaries; the code between never computes with doubles. An overflow throws
// ArithmeticError number 6.
#pragma once

#include <array>
#include <compare>
#include <cstdint>
#include <optional>
#include <QMetaType>
#include <QString>

namespace velmar {

class Decimal {
 public:
  /// Zero.
  Decimal();
  Decimal(int value);     // NOLINT(google-explicit-constructor): whole numbers are exact
  Decimal(qint64 value);  // NOLINT(google-explicit-constructor)
  Decimal(double) = delete;

  /// The shortest decimal that reads back as this double. Throws ArithmeticError number 6 for infinities and
  /// NaN.
  static Decimal fromDouble(double value);

  /// Parses plain or scientific notation with a decimal point and without spaces ("-12.50", "1e3"); nothing
  /// for any other text. Rounds to 34 digits.
  static std::optional<Decimal> parse(QStringView text);

  /// The nearest double. Throws ArithmeticError number 6 if it is out of the range of doubles.
  double toDouble() const;

  /// Plain notation with a decimal point and no trailing zeros: "12.5", "-0.001", "0".
  QString toString() const;

  Decimal operator-() const;
  Decimal& operator+=(const Decimal& other);
  Decimal& operator-=(const Decimal& other);
  Decimal& operator*=(const Decimal& other);
  /// Throws ArithmeticError number 11, "Impartire la zero", when `other` is zero.
  Decimal& operator/=(const Decimal& other);

  friend Decimal operator+(Decimal a, const Decimal& b) { return a += b; }
  friend Decimal operator-(Decimal a, const Decimal& b) { return a -= b; }
  friend Decimal operator*(Decimal a, const Decimal& b) { return a *= b; }
  friend Decimal operator/(Decimal a, const Decimal& b) { return a /= b; }

  friend bool operator==(const Decimal& a, const Decimal& b);
  friend std::strong_ordering operator<=>(const Decimal& a, const Decimal& b);

  bool isZero() const;
  bool isNegative() const;  ///< below zero
  Decimal abs() const;

 private:
  using Words = std::array<std::uint64_t, 2>;
  explicit Decimal(const Words& words) : words_(words) {}
  friend Decimal Round(const Decimal& value, int decimals);

  Words
      words_;  // decimal128, binary encoding, low word first; zero has a single representation, without sign
};

/// `value` rounded to `decimals` places (0 or more), ties to the even digit: Round(2.675, 2) is 2.68,
/// Round(0.125, 2) is 0.12. The argument is first rounded to 28 digits, so that the error of a division does
/// not decide a tie.
Decimal Round(const Decimal& value, int decimals);

inline namespace literals {
/// 1.19_dec: the number as written (separators and hexadecimal throw std::invalid_argument).
Decimal operator""_dec(const char* digits);
}  // namespace literals

}  // namespace velmar

Q_DECLARE_METATYPE(velmar::Decimal)
