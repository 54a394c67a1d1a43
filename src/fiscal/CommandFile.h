// The command file of a fiscal register: lines in Windows-1250 that end with CR LF, numbers with a decimal
// point.
#pragma once

#include <QByteArray>
#include <QString>

#include "util/Decimal.h"

namespace velmar {

/// The text in Windows-1250, one byte per character: letters with a comma below get a cedilla, characters
/// that do not exist there become "?", control characters become blanks.
QByteArray commandText(const QString& text);

/// As commandText(), for a field between semicolons: semicolons in the text become commas.
QByteArray commandField(const QString& text);

/// The width of a name on paper; the default, for 0, is 20.
int nameWidth(int width);

/// The value rounded to exactly `decimals` places, with leading zeros up to `digits` digits before the point;
/// with `digits` 0, a value below 1 begins with the point.
QByteArray fixedNumber(const Decimal& value, int decimals, int digits);

/// Without trailing zeros: "12.5", "0.5", "3".
QByteArray shortNumber(const Decimal& value);

/// The price plus VAT, rounded.
Decimal withVat(const Decimal& price, int percent, int decimals);

/// Collects lines and writes them at once.
class CommandFile {
 public:
  CommandFile& operator<<(const QByteArray& line);
  /// Replaces the file, atomically if its folder is writable. Throws StoreError.
  void write(const QString& path) const;

 private:
  QByteArray text_;
};

/// The advertising lines at the end of a receipt; to be set before printing.
class Advertising {
 public:
  void add(const QByteArray& line);
  void clear();
  int count() const { return count_; }
  /// Adds the lines to a file.
  void writeTo(CommandFile& file) const;

 private:
  QByteArray text_;
  int count_ = 0;
};

/// The advertising line of Datecs and OPTIMA.
QByteArray advertisingLine(const QString& text1, const QString& text2, const QString& text3,
                           const QString& text4, const QString& text5);

}  // namespace velmar
