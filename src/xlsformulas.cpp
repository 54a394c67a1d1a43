#include "xlsformulas.h"

#include <iconv.h>
#include <algorithm>
#include <bit>
#include <memory>
#include <optional>
#include <QString>

namespace {

template <typename Number>
Number numberAt(const QByteArray& bytes, qsizetype at) {
  if (at < 0 || at > bytes.size() - static_cast<qsizetype>(sizeof(Number)))
    throw DamagedWorkbook("read past the end");
  Number number = 0;
  for (size_t i = 0; i < sizeof(Number); ++i)
    number |=
        static_cast<Number>(Number{static_cast<quint8>(bytes.at(at + static_cast<qsizetype>(i)))} << (8 * i));
  return number;
}

quint8 byteAt(const QByteArray& bytes, qsizetype at) { return numberAt<quint8>(bytes, at); }

// The container: sectors chained by tables, with a directory of streams.
class Container {
 public:
  explicit Container(const QByteArray& file)
      : file_(file), sector_(sizeAt(30)), smallSector_(sizeAt(32)), smallBelow_(numberAt<quint32>(file, 56)) {
    QByteArray places = file_.mid(kInHeader, kHeader - kInHeader);
    const auto more = static_cast<qsizetype>(numberAt<quint32>(file_, 72));
    quint32 next = numberAt<quint32>(file_, 68);
    for (qsizetype i = 0; i < more && next < kLastSector; ++i) {
      const QByteArray table = sectorAt(next);
      places += table.first(table.size() - kEntry);
      next = numberAt<quint32>(table, table.size() - kEntry);
      if (places.size() > file_.size()) throw DamagedWorkbook("endless table");
    }
    for (qsizetype at = 0; at < places.size(); at += kEntry) {
      const quint32 place = numberAt<quint32>(places, at);
      if (place < kLastSector) next_ += sectorAt(place);
      if (next_.size() > file_.size()) throw DamagedWorkbook("endless table");
    }
    directory_ = chain(numberAt<quint32>(file_, 48));
  }

  static bool is(const QByteArray& file) {
    return file.startsWith(QByteArray::fromHex("d0cf11e0a1b11ae1")) && file.size() >= kHeader;
  }

  std::optional<QByteArray> stream(const QString& name) const {
    for (qsizetype at = kDirectoryEntry; at + kDirectoryEntry <= directory_.size(); at += kDirectoryEntry) {
      const int length = numberAt<quint16>(directory_, at + 64) / 2 - 1;
      if (byteAt(directory_, at + 66) != kStream || length != name.size() || length * 2 > 64) continue;
      QString found;
      for (int i = 0; i < length; ++i) found += QChar(numberAt<quint16>(directory_, at + 2 * i));
      if (found.compare(name, Qt::CaseInsensitive) == 0) return content(at);
    }
    return std::nullopt;
  }

 private:
  static constexpr qsizetype kHeader = 512, kInHeader = 76, kEntry = 4, kDirectoryEntry = 128;
  static constexpr quint32 kLastSector = 0xFFFFFFFA;  // above: marks, not sectors
  static constexpr int kStream = 2;

  qsizetype sizeAt(qsizetype at) const {
    const int power = numberAt<quint16>(file_, at);
    if (power < 6 || power > 12) throw DamagedWorkbook("size of sectors");
    return qsizetype{1} << power;
  }

  QByteArray sectorAt(quint32 number) const {
    const qsizetype at = (static_cast<qsizetype>(number) + 1) * sector_;
    if (at >= file_.size()) throw DamagedWorkbook("missing sector");
    return file_.mid(at, sector_).leftJustified(sector_, '\0');
  }

  QByteArray chain(quint32 first) const {
    QByteArray bytes;
    for (quint32 next = first; next < kLastSector;
         next = numberAt<quint32>(next_, static_cast<qsizetype>(next) * kEntry)) {
      bytes += sectorAt(next);
      if (bytes.size() > file_.size()) throw DamagedWorkbook("endless chain");
    }
    return bytes;
  }

  // Small streams are parts of the stream of the directory's first entry.
  QByteArray content(qsizetype entry) const {
    const quint32 first = numberAt<quint32>(directory_, entry + 116);
    const quint32 size = numberAt<quint32>(directory_, entry + 120);
    if (size >= smallBelow_) return chain(first).left(size);
    const QByteArray all = chain(numberAt<quint32>(directory_, 116));
    const QByteArray following = chain(numberAt<quint32>(file_, 60));
    QByteArray bytes;
    for (quint32 next = first; next < kLastSector && bytes.size() < size;
         next = numberAt<quint32>(following, static_cast<qsizetype>(next) * kEntry))
      bytes += all.mid(static_cast<qsizetype>(next) * smallSector_, smallSector_)
                   .leftJustified(smallSector_, '\0');
    return bytes.left(size);
  }

  const QByteArray& file_;
  qsizetype sector_, smallSector_;
  quint32 smallBelow_;
  QByteArray next_;  // the following sector of each
  QByteArray directory_;
};

enum Kind : quint16 {
  kEnd = 0x0A,
  kContinue = 0x3C,
  kCodePage = 0x42,
  kSheet = 0x85,
  kText2 = 0x07,
  kText = 0x207,
  kBegin2 = 0x09,
  kBegin3 = 0x209,
  kBegin4 = 0x409,
  kBegin = 0x809,
  kFormula = 0x06,
  kFormula3 = 0x206,
  kFormula4 = 0x406
};

struct Record {
  quint16 kind = 0;
  QByteArray content;
};

class Records {
 public:
  Records(const QByteArray& stream, qsizetype at) : stream_(stream), at_(at) {}

  bool atEnd() const { return at_ + 4 > stream_.size(); }
  Record next() {
    Record record{numberAt<quint16>(stream_, at_), {}};
    const qsizetype size = numberAt<quint16>(stream_, at_ + 2);
    if (at_ + 4 + size > stream_.size()) throw DamagedWorkbook("cut record");
    record.content = stream_.sliced(at_ + 4, size);
    at_ += 4 + size;
    return record;
  }
  bool isNext(quint16 kind) const { return !atEnd() && numberAt<quint16>(stream_, at_) == kind; }

 private:
  const QByteArray& stream_;
  qsizetype at_;
};

QString decoded(const QByteArray& bytes, int codePage) {
  constexpr int kPlain = 0x8001;
  const QByteArray name = "CP" + QByteArray::number(codePage == kPlain ? 1252 : codePage);
  const iconv_t decoder = iconv_open("UTF-8", name.constData());
  if (decoder == iconv_t(-1)) return QString::fromLatin1(bytes);
  QByteArray text(bytes.size() * 4, '\0');
  char* from = const_cast<char*>(bytes.constData());
  char* to = text.data();
  size_t left = static_cast<size_t>(bytes.size()), room = static_cast<size_t>(text.size());
  const size_t failed = iconv(decoder, &from, &left, &to, &room);
  iconv_close(decoder);
  return failed == size_t(-1) ? QString::fromLatin1(bytes)
                              : QString::fromUtf8(text.first(to - text.constData()));
}

// A text of 16-bit or 8-bit characters; a record that continues it says again which.
QString unicodeText(const Record& record, Records& records) {
  int left = numberAt<quint16>(record.content, 0);
  QByteArray piece = record.content;
  qsizetype at = 2;
  QString text;
  while (left > 0) {
    const bool isWide = byteAt(piece, at++) & 1;
    for (; left > 0 && at < piece.size(); --left, at += isWide ? 2 : 1)
      text += isWide ? QChar(numberAt<quint16>(piece, at)) : QChar(byteAt(piece, at));
    if (!records.isNext(kContinue)) break;
    piece = records.next().content;
    at = 0;
  }
  return text;
}

QString byteText(const Record& record, Records& records, int codePage) {
  const bool isShort = record.kind == kText2;
  const qsizetype length = isShort ? byteAt(record.content, 0) : numberAt<quint16>(record.content, 0);
  QByteArray bytes = record.content.mid(isShort ? 1 : 2);
  while (bytes.size() < length && records.isNext(kContinue)) bytes += records.next().content;
  return decoded(bytes.left(length), codePage);
}

QString errorName(int code) {
  switch (code) {
    case 0x00:
      return QStringLiteral("#NULL!");
    case 0x07:
      return QStringLiteral("#DIV/0!");
    case 0x0F:
      return QStringLiteral("#VALUE!");
    case 0x17:
      return QStringLiteral("#REF!");
    case 0x1D:
      return QStringLiteral("#NAME?");
    case 0x24:
      return QStringLiteral("#NUM!");
    default:
      return QStringLiteral("#N/A");
  }
}

// The eight bytes of a result: a number, or a mark for another kind. A text follows in a record of its own.
QVariant resultAt(const QByteArray& content, qsizetype at) {
  const quint64 bits = numberAt<quint64>(content, at);
  if (bits >> 48 != 0xFFFF) return std::bit_cast<double>(bits);
  const int value = byteAt(content, at + 2);
  switch (byteAt(content, at)) {
    case 1:
      return static_cast<double>(value);
    case 2:
      return errorName(value);
    default:
      return QString();
  }
}

bool isBegin(quint16 kind) { return kind == kBegin || kind == kBegin2 || kind == kBegin3 || kind == kBegin4; }

bool isFormula(quint16 kind) { return kind == kFormula || kind == kFormula3 || kind == kFormula4; }

struct Place {
  qsizetype start = 0;
  bool isUnicode = false;
  int codePage = 1252;
};

// Where the sheet begins, from the records of the workbook.
Place placeOf(const QByteArray& stream, int sheet) {
  constexpr quint16 kUnicode = 0x600;
  Place place;
  Records records(stream, 0);
  const Record begin = records.next();
  if (begin.kind != kBegin) throw DamagedWorkbook("beginning");
  place.isUnicode = numberAt<quint16>(begin.content, 0) == kUnicode;
  std::optional<qsizetype> start;
  int number = 0;
  while (!records.atEnd()) {
    const Record record = records.next();
    if (record.kind == kEnd) break;
    if (record.kind == kCodePage) place.codePage = numberAt<quint16>(record.content, 0);
    if (record.kind == kSheet && number++ == sheet) start = numberAt<quint32>(record.content, 0);
  }
  if (!start) throw DamagedWorkbook("missing sheet");
  place.start = *start;
  return place;
}

}  // namespace

std::vector<FormulaResult> formulaResults(const QByteArray& file, int sheet) {
  QByteArray stream = file;
  Place place;
  if (Container::is(file)) {
    const Container container(file);
    auto found = container.stream(QStringLiteral("Workbook"));
    if (!found) found = container.stream(QStringLiteral("Book"));
    if (!found) throw DamagedWorkbook("missing stream");
    stream = *found;
    place = placeOf(stream, sheet);
  }
  std::vector<FormulaResult> results;
  Records records(stream, place.start);
  int depth = 0;  // charts within the sheet have a beginning and an end of their own
  while (!records.atEnd()) {
    const Record record = records.next();
    if (isBegin(record.kind)) ++depth;
    if (depth == 0) throw DamagedWorkbook("beginning");
    if (record.kind == kEnd && --depth <= 0) break;
    if (depth != 1) continue;
    if (isFormula(record.kind)) {
      // In BIFF2 the row is followed by three bytes of attributes, in the others by two.
      const bool isOldest = record.kind == kFormula && !Container::is(file);
      results.push_back({numberAt<quint16>(record.content, 0), numberAt<quint16>(record.content, 2),
                         resultAt(record.content, isOldest ? 7 : 6)});
    } else if ((record.kind == kText || record.kind == kText2) && !results.empty()) {
      results.back().value =
          place.isUnicode ? unicodeText(record, records) : byteText(record, records, place.codePage);
    }
  }
  return results;
}
