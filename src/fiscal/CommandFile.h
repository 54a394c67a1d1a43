// The file that tells a fiscal register what to print: lines in Windows-1250, ended by CR LF, numbers with a
// decimal point.
#pragma once

#include <QByteArray>
#include <QString>

#include "util/Decimal.h"

namespace velmar {

/// The text, a byte a character: letters with a comma below get a cedilla, "?" for what Windows-1250 lacks, a
/// blank for control characters.
QByteArray commandText(const QString& text);

/// As commandText(), for a field between semicolons: those of the text become commas.
QByteArray commandField(const QString& text);

/// The width of a name on paper: 20 where none is given.
int nameWidth(int given);

/// Rounded to `decimals` places, which are all written; zeros in front up to `digits` digits before the
/// point, none for a value below 1 when `digits` is 0.
QByteArray fixedNumber(const Decimal& value, int decimals, int digits);

/// As short as it goes: "12.5", "0.5", "3".
QByteArray shortNumber(const Decimal& value);

/// A price with VAT of that percent, rounded.
Decimal withVat(const Decimal& price, int percent, int decimals);

/// Collects lines and writes them at once.
class CommandFile {
 public:
  CommandFile& operator<<(const QByteArray& line);
  /// Replaces the file: wholly or not at all, where its folder takes new files. Throws StoreError.
  void write(const QString& path) const;

 private:
  QByteArray text_;
};

/// The lines of advertising at the end of a receipt, which are set before it is printed.
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
