#include "fiscal/CommandFile.h"

#include <algorithm>
#include <iterator>
#include <QSaveFile>

#include "util/Errors.h"

namespace velmar {

namespace {

const QByteArray kLineEnd = QByteArrayLiteral("\r\n");
constexpr char32_t kAscii = 0x80;  // characters below are the same in Windows-1250

// The characters of the bytes from 0x80 on; 0 where there is none.
constexpr char16_t kUpperHalf[] = {
    0x20AC, 0x0000, 0x201A, 0x0000, 0x201E, 0x2026, 0x2020, 0x2021, 0x0000, 0x2030, 0x0160, 0x2039, 0x015A,
    0x0164, 0x017D, 0x0179, 0x0000, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014, 0x0000, 0x2122,
    0x0161, 0x203A, 0x015B, 0x0165, 0x017E, 0x017A, 0x00A0, 0x02C7, 0x02D8, 0x0141, 0x00A4, 0x0104, 0x00A6,
    0x00A7, 0x00A8, 0x00A9, 0x015E, 0x00AB, 0x00AC, 0x00AD, 0x00AE, 0x017B, 0x00B0, 0x00B1, 0x02DB, 0x0142,
    0x00B4, 0x00B5, 0x00B6, 0x00B7, 0x00B8, 0x0105, 0x015F, 0x00BB, 0x013D, 0x02DD, 0x013E, 0x017C, 0x0154,
    0x00C1, 0x00C2, 0x0102, 0x00C4, 0x0139, 0x0106, 0x00C7, 0x010C, 0x00C9, 0x0118, 0x00CB, 0x011A, 0x00CD,
    0x00CE, 0x010E, 0x0110, 0x0143, 0x0147, 0x00D3, 0x00D4, 0x0150, 0x00D6, 0x00D7, 0x0158, 0x016E, 0x00DA,
    0x0170, 0x00DC, 0x00DD, 0x0162, 0x00DF, 0x0155, 0x00E1, 0x00E2, 0x0103, 0x00E4, 0x013A, 0x0107, 0x00E7,
    0x010D, 0x00E9, 0x0119, 0x00EB, 0x011B, 0x00ED, 0x00EE, 0x010F, 0x0111, 0x0144, 0x0148, 0x00F3, 0x00F4,
    0x0151, 0x00F6, 0x00F7, 0x0159, 0x016F, 0x00FA, 0x0171, 0x00FC, 0x00FD, 0x0163, 0x02D9};
static_assert(std::size(kUpperHalf) == 0x80);

// Romanian uses letters with a comma below; Windows-1250 has them only with a cedilla.
char32_t withCedilla(char32_t character) {
  switch (character) {
    case 0x0218:
      return 0x015E;
    case 0x0219:
      return 0x015F;
    case 0x021A:
      return 0x0162;
    case 0x021B:
      return 0x0163;
    default:
      return character;
  }
}

char byteOf(char32_t character) {
  if (character < U' ' || character == 0x7F) return ' ';
  if (character < kAscii) return static_cast<char>(character);
  const auto* found = std::find(std::begin(kUpperHalf), std::end(kUpperHalf), character);
  return found == std::end(kUpperHalf) ? '?' : static_cast<char>(kAscii + (found - std::begin(kUpperHalf)));
}

}  // namespace

QByteArray commandText(const QString& text) {
  QByteArray bytes;
  for (const uint character : text.normalized(QString::NormalizationForm_C).toUcs4())
    bytes.append(byteOf(withCedilla(character)));
  return bytes;
}

QByteArray commandField(const QString& text) { return commandText(text).replace(';', ','); }

int nameWidth(int width) {
  constexpr int kUsual = 20;
  return width > 0 ? width : kUsual;
}

QByteArray fixedNumber(const Decimal& value, int decimals, int digits) {
  const Decimal rounded = Round(value, decimals);
  const QList<QByteArray> parts = shortNumber(rounded.abs()).split('.');
  const QByteArray whole = parts.first() == "0" ? QByteArray() : parts.first();
  QByteArray text = (rounded.isNegative() ? "-" : "") + whole.rightJustified(digits, '0');
  if (decimals > 0) text += '.' + parts.value(1).leftJustified(decimals, '0');
  return text;
}

QByteArray shortNumber(const Decimal& value) { return value.toString().toLatin1(); }

Decimal withVat(const Decimal& price, int percent, int decimals) {
  return Round(price * (1 + Decimal(percent) / 100), decimals);
}

CommandFile& CommandFile::operator<<(const QByteArray& line) {
  text_ += line + kLineEnd;
  return *this;
}

void CommandFile::write(const QString& path) const {
  QSaveFile file(path);
  file.setDirectWriteFallback(true);  // the root of the drive is often not writable, but the file in it is
  if (!file.open(QIODevice::WriteOnly) || file.write(text_) != text_.size() || !file.commit())
    throw notWritten(file);
}

void Advertising::add(const QByteArray& line) {
  if (count_ > 0) text_ += kLineEnd;
  text_ += line;
  ++count_;
}

void Advertising::clear() { *this = Advertising(); }

void Advertising::writeTo(CommandFile& file) const {
  if (count_ > 0) file << text_;
}

QByteArray advertisingLine(const QString& text1, const QString& text2, const QString& text3,
                           const QString& text4, const QString& text5) {
  QByteArray line = "P,1,______,_,__;";
  for (const QString* text : {&text1, &text2, &text3, &text4, &text5}) line += commandField(*text) + ';';
  return line;
}

}  // namespace velmar
