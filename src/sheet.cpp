// Reads a spreadsheet (.xls, .xlsx, .ods) and writes the cells of one sheet as CBOR to the standard output: a
// map of its name and rows, or of an error. A process of its own: a damaged file may break a library, or ask
// for any amount of time and memory.
#include <freexl.h>
#include <sys/resource.h>
#include <zip.h>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <memory>
#include <QCborStreamWriter>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QVariant>
#include <QXmlStreamReader>
#include <vector>

#include "xlsformulas.h"

namespace {

constexpr rlim_t kMostMemory = 2ULL << 30;
constexpr rlim_t kMostSeconds = 30;
constexpr zip_uint64_t kLargestPart = 256ULL << 20;
constexpr int kMostColumns = 256;
constexpr int kMostRows = 200'000;
constexpr int kMostBlanks = 1000;

/// What is wrong with the file, in Romanian.
struct Fault {
  QString text;
};

/// Of each column a number, a text or nothing.
using Cells = std::vector<QVariant>;

struct Sheet {
  QString name;
  std::vector<Cells> rows;

  void put(int row, int column, const QVariant& value) {
    if (row < 0 || column < 0 || column >= kMostColumns) return;
    if (row >= kMostRows) {
      if (value.isNull()) return;
      throw Fault{QStringLiteral("Foaia are mai mult de %1 randuri").arg(kMostRows)};
    }
    if (static_cast<int>(rows.size()) <= row) rows.resize(static_cast<size_t>(row) + 1);
    Cells& cells = rows[static_cast<size_t>(row)];
    if (static_cast<int>(cells.size()) <= column) cells.resize(static_cast<size_t>(column) + 1);
    const bool isNoNumber = value.typeId() == QMetaType::Double && !std::isfinite(value.toDouble());
    cells[static_cast<size_t>(column)] = isNoNumber ? QVariant(QStringLiteral("#NUM!")) : value;
  }
};

// "Sheet1" in any case, else the only one.
int chosen(const QStringList& names) {
  for (int i = 0; i < names.size(); ++i)
    if (names[i].compare(QLatin1String("Sheet1"), Qt::CaseInsensitive) == 0) return i;
  if (names.size() == 1) return 0;
  throw Fault{QStringLiteral("Fisierul nu are foaia Sheet1")};
}

// Old binary workbooks.
Sheet readXls(const QString& path) {
  const void* handle = nullptr;
  if (freexl_open(path.toUtf8().constData(), &handle) != FREEXL_OK)
    throw Fault{QStringLiteral("Fisierul nu este un registru de calcul")};
  const std::unique_ptr<const void, void (*)(const void*)> closing(
      handle, [](const void* open) { freexl_close(open); });
  unsigned int count = 0;
  freexl_get_info(handle, FREEXL_BIFF_SHEET_COUNT, &count);
  // The library loses all sheets when one contains a chart.
  if (count == 0) throw Fault{QStringLiteral("Foile nu pot fi citite. Salvati fisierul ca .xlsx")};
  QStringList names;
  for (unsigned int i = 0; i < count; ++i) {
    const char* name = nullptr;
    freexl_get_worksheet_name(handle, static_cast<unsigned short>(i), &name);
    names.append(QString::fromUtf8(name));
  }
  const int which = chosen(names);
  Sheet sheet{names[which], {}};
  if (freexl_select_active_worksheet(handle, static_cast<unsigned short>(which)) != FREEXL_OK)
    throw Fault{QStringLiteral("Foaia nu poate fi citita")};
  unsigned int rows = 0;
  unsigned short columns = 0;
  freexl_worksheet_dimensions(handle, &rows, &columns);
  for (unsigned int row = 0; row < rows && row < kMostRows; ++row)
    for (unsigned short column = 0; column < columns && column < kMostColumns; ++column) {
      FreeXL_CellValue cell;
      if (freexl_get_cell_value(handle, row, column, &cell) != FREEXL_OK) continue;
      const auto put = [&](const QVariant& value) { sheet.put(static_cast<int>(row), column, value); };
      if (cell.type == FREEXL_CELL_INT) put(static_cast<double>(cell.value.int_value));
      if (cell.type == FREEXL_CELL_DOUBLE) put(cell.value.double_value);
      if (cell.type == FREEXL_CELL_TEXT || cell.type == FREEXL_CELL_SST_TEXT ||
          cell.type == FREEXL_CELL_DATE || cell.type == FREEXL_CELL_DATETIME || cell.type == FREEXL_CELL_TIME)
        put(QString::fromUtf8(cell.value.text_value));
    }
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) throw Fault{QStringLiteral("Fisierul nu poate fi deschis")};
  for (const FormulaResult& formula : formulaResults(file.readAll(), which))
    sheet.put(formula.row, formula.column, formula.value);
  return sheet;
}

class Archive {
 public:
  explicit Archive(const QString& path)
      : zip_(zip_open(path.toUtf8().constData(), ZIP_RDONLY, nullptr), zip_discard) {
    if (!zip_) throw Fault{QStringLiteral("Fisierul nu este un registru de calcul")};
  }

  bool has(const QString& name) const {
    return zip_name_locate(zip_.get(), name.toUtf8().constData(), 0) >= 0;
  }

  QByteArray part(const QString& name) const {
    const QByteArray key = name.toUtf8();
    zip_stat_t state;
    if (zip_stat(zip_.get(), key.constData(), 0, &state) != 0 || !(state.valid & ZIP_STAT_SIZE) ||
        state.size > kLargestPart)
      throw Fault{QStringLiteral("Fisierul este deteriorat: lipseste %1").arg(name)};
    const std::unique_ptr<zip_file_t, int (*)(zip_file_t*)> file(zip_fopen(zip_.get(), key.constData(), 0),
                                                                 zip_fclose);
    QByteArray data(static_cast<qsizetype>(state.size), '\0');
    if (!file || zip_fread(file.get(), data.data(), state.size) != static_cast<zip_int64_t>(state.size))
      throw Fault{QStringLiteral("Fisierul este deteriorat: %1").arg(name)};
    return data;
  }

 private:
  std::unique_ptr<zip_t, void (*)(zip_t*)> zip_;
};

void requireSound(const QXmlStreamReader& xml) {
  if (xml.hasError()) throw Fault{QStringLiteral("Fisierul este deteriorat: %1").arg(xml.errorString())};
}

// Characters that XML cannot hold are written as "_x000D_", and so is an underscore before such a text.
QString unescaped(const QString& text) {
  if (!text.contains(QLatin1String("_x"))) return text;
  static const QRegularExpression kEscape(QStringLiteral("_x(?!0000)([0-9A-Fa-f]{4})_"));
  QString plain;
  qsizetype done = 0;
  for (auto found = kEscape.globalMatch(text); found.hasNext();) {
    const QRegularExpressionMatch escape = found.next();
    plain += QStringView(text).sliced(done, escape.capturedStart() - done);
    plain += QChar(escape.capturedView(1).toUShort(nullptr, 16));
    done = escape.capturedEnd();
  }
  return plain += QStringView(text).sliced(done);
}

// The text of all "t" elements within the current one.
QString richText(QXmlStreamReader& xml) {
  QString text;
  while (xml.readNextStartElement()) {
    if (xml.name() == u"t")
      text += unescaped(xml.readElementText());
    else if (xml.name() == u"r")
      text += richText(xml);
    else
      xml.skipCurrentElement();
  }
  return text;
}

QStringList sharedStrings(const Archive& archive, const QString& name) {
  QStringList texts;
  if (!archive.has(name)) return texts;
  QXmlStreamReader xml(archive.part(name));
  while (!xml.atEnd()) {
    xml.readNext();
    if (xml.isStartElement() && xml.name() == u"si") texts.append(richText(xml));
  }
  requireSound(xml);
  return texts;
}

// "BC12" is column 54 (from 0); -1 for anything else.
int columnOf(QStringView reference) {
  int column = 0;
  for (const QChar letter : reference) {
    if (letter < u'A' || letter > u'Z') break;
    column = column * 26 + (letter.unicode() - u'A' + 1);
    if (column > kMostColumns) return kMostColumns;
  }
  return column - 1;
}

struct Relationship {
  QString id, type, part;
};

// What a part refers to, by the file beside it; "" is the whole archive.
std::vector<Relationship> relationshipsOf(const Archive& archive, const QString& part) {
  const QString folder = part.contains(u'/') ? part.section(u'/', 0, -2) + u'/' : QString();
  const QString file = folder + QStringLiteral("_rels/%1.rels").arg(part.section(u'/', -1));
  std::vector<Relationship> all;
  if (!archive.has(file)) return all;
  QXmlStreamReader xml(archive.part(file));
  while (!xml.atEnd()) {
    xml.readNext();
    if (!xml.isStartElement() || xml.name() != u"Relationship") continue;
    const auto value = [&xml](const char* name) {
      return xml.attributes().value(QLatin1String(name)).toString();
    };
    const QString target = value("Target");
    all.push_back({value("Id"), value("Type").section(u'/', -1),
                   QDir::cleanPath(target.startsWith(u'/') ? target.mid(1) : folder + target)});
  }
  requireSound(xml);
  return all;
}

QString partOfType(const std::vector<Relationship>& all, const char* type, const QString& otherwise) {
  for (const Relationship& each : all)
    if (each.type == QLatin1String(type)) return each.part;
  return otherwise;
}

QString workbookPart(const Archive& archive) {
  return partOfType(relationshipsOf(archive, {}), "officeDocument", QStringLiteral("xl/workbook.xml"));
}

// The name of the chosen sheet and the identifier of its part.
std::pair<QString, QString> sheetOf(const QByteArray& workbook) {
  QStringList names, ids;
  QXmlStreamReader book(workbook);
  if (!book.readNextStartElement() || book.name() != u"workbook")
    throw Fault{QStringLiteral("Fisierul nu este un registru de calcul")};
  while (!book.atEnd()) {
    book.readNext();
    if (!book.isStartElement() || book.name() != u"sheet") continue;
    names.append(book.attributes().value(QStringLiteral("name")).toString());
    for (const QXmlStreamAttribute& attribute : book.attributes())
      if (attribute.qualifiedName().endsWith(u":id")) ids.append(attribute.value().toString());
  }
  requireSound(book);
  const int which = chosen(names);
  return {names[which], ids.value(which)};
}

QVariant xlsxValue(const QString& type, const QString& value, const QStringList& shared) {
  if (type == QLatin1String("s")) return shared.value(value.toInt());
  if (type == QLatin1String("b")) return static_cast<double>(value.toInt());
  if (type == QLatin1String("str") || type == QLatin1String("inlineStr") || type == QLatin1String("e"))
    return unescaped(value);
  const QByteArray digits = value.toLatin1();
  double number = 0;
  const auto [end, fault] = std::from_chars(digits.begin(), digits.end(), number);
  return fault == std::errc() && end == digits.end() ? QVariant(number) : QVariant(value.trimmed());
}

Sheet readXlsx(const Archive& archive, const QString& workbook) {
  const auto [name, id] = sheetOf(archive.part(workbook));
  const std::vector<Relationship> parts = relationshipsOf(archive, workbook);
  const auto part =
      std::find_if(parts.begin(), parts.end(), [&id](const Relationship& each) { return each.id == id; });
  if (part == parts.end()) throw Fault{QStringLiteral("Foaia nu poate fi citita")};
  Sheet sheet{name, {}};
  const QStringList shared =
      sharedStrings(archive, partOfType(parts, "sharedStrings", QStringLiteral("xl/sharedStrings.xml")));
  QXmlStreamReader xml(archive.part(part->part));
  int row = -1, column = -1;
  QString type;
  while (!xml.atEnd()) {
    xml.readNext();
    if (!xml.isStartElement()) continue;
    const QXmlStreamAttributes attributes = xml.attributes();
    if (xml.name() == u"row") {
      const int number = attributes.value(QStringLiteral("r")).toInt();
      row = number > 0 ? number - 1 : row + 1;
      column = -1;
    } else if (xml.name() == u"c") {
      const QStringView reference = attributes.value(QStringLiteral("r"));
      column = reference.isEmpty() ? column + 1 : columnOf(reference);
      type = attributes.value(QStringLiteral("t")).toString();
    } else if (xml.name() == u"v") {
      sheet.put(row, column, xlsxValue(type, xml.readElementText(), shared));
    } else if (xml.name() == u"is") {
      sheet.put(row, column, richText(xml));
    }
  }
  requireSound(xml);
  return sheet;
}

int repeated(const QXmlStreamAttributes& attributes, const char* name) {
  for (const QXmlStreamAttribute& each : attributes)
    if (each.name() == QLatin1String(name)) return std::max(1, each.value().toInt());
  return 1;
}

QString valueOf(const QXmlStreamAttributes& attributes, const char* name) {
  for (const QXmlStreamAttribute& each : attributes)
    if (each.name() == QLatin1String(name)) return each.value().toString();
  return {};
}

// The text of a paragraph or of an element within it; blanks beyond the first have elements of their own.
QString paragraphText(QXmlStreamReader& xml) {
  QString text;
  while (!xml.atEnd()) {
    xml.readNext();
    if (xml.isCharacters()) text += xml.text();
    if (xml.isEndElement()) break;
    if (!xml.isStartElement()) continue;
    if (xml.name() == u"s")
      text += QString(std::min(repeated(xml.attributes(), "c"), kMostBlanks), u' ');
    else if (xml.name() == u"tab")
      text += u'\t';
    else if (xml.name() == u"line-break")
      text += u'\n';
    if (xml.name() == u"annotation")
      xml.skipCurrentElement();
    else
      text += paragraphText(xml);
  }
  return text;
}

// The value of the current cell, and its end. Its comments and drawings are no part of it.
QVariant odsValue(QXmlStreamReader& xml) {
  const QXmlStreamAttributes attributes = xml.attributes();
  const bool isText = valueOf(attributes, "value-type") == QLatin1String("string");
  QStringList paragraphs;
  while (xml.readNextStartElement()) {
    if (xml.name() == u"p")
      paragraphs.append(paragraphText(xml));
    else
      xml.skipCurrentElement();
  }
  bool isNumber = false;
  const double number = valueOf(attributes, "value").toDouble(&isNumber);
  if (isNumber && !isText) return number;
  return paragraphs.isEmpty() ? valueOf(attributes, "string-value") : paragraphs.join(u'\n');
}

Sheet readOds(const Archive& archive) {
  const QByteArray content = archive.part(QStringLiteral("content.xml"));
  QStringList names;
  QXmlStreamReader tables(content);
  while (!tables.atEnd()) {
    tables.readNext();
    if (tables.isStartElement() && tables.name() == u"table")
      names.append(valueOf(tables.attributes(), "name"));
  }
  requireSound(tables);
  Sheet sheet{names[chosen(names)], {}};
  QXmlStreamReader xml(content);
  bool isChosen = false;
  int row = 0, column = 0, rowTimes = 1;
  while (!xml.atEnd()) {
    xml.readNext();
    if (xml.isEndElement() && xml.name() == u"table-row" && isChosen) {
      if (row < static_cast<int>(sheet.rows.size())) {
        const Cells same = sheet.rows[static_cast<size_t>(row)];
        for (int i = 1; i < rowTimes; ++i)
          for (size_t cell = 0; cell < same.size(); ++cell)
            sheet.put(row + i, static_cast<int>(cell), same[cell]);
      }
      row += rowTimes;
    }
    if (!xml.isStartElement()) continue;
    if (xml.name() == u"table") {
      isChosen = valueOf(xml.attributes(), "name") == sheet.name;
    } else if (isChosen && xml.name() == u"table-row") {
      rowTimes = std::min(repeated(xml.attributes(), "number-rows-repeated"), kMostRows);
      column = 0;
    } else if (isChosen && xml.name() == u"table-cell") {
      const QXmlStreamAttributes attributes = xml.attributes();
      const int times = std::min(repeated(attributes, "number-columns-repeated"), kMostColumns);
      const bool isEmpty = valueOf(attributes, "value-type").isEmpty();
      const QVariant value = odsValue(xml);
      for (int i = 0; i < times && !isEmpty; ++i) sheet.put(row, column + i, value);
      column += times;
    } else if (isChosen && xml.name() == u"covered-table-cell") {
      column += std::min(repeated(xml.attributes(), "number-columns-repeated"), kMostColumns);
    }
  }
  requireSound(xml);
  return sheet;
}

// By what the file is, not by its name.
Sheet read(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) throw Fault{QStringLiteral("Fisierul nu poate fi deschis")};
  const QByteArray start = file.read(2);
  if (start != "PK") return readXls(path);
  const Archive archive(path);
  if (const QString workbook = workbookPart(archive); archive.has(workbook))
    return readXlsx(archive, workbook);
  if (archive.has(QStringLiteral("content.xml"))) return readOds(archive);
  throw Fault{QStringLiteral("Fisierul nu este un registru de calcul")};
}

void writeSheet(QCborStreamWriter& writer, const Sheet& sheet) {
  writer.startMap();
  writer.append(QLatin1String("name"));
  writer.append(sheet.name);
  writer.append(QLatin1String("rows"));
  writer.startArray(sheet.rows.size());
  for (const Cells& cells : sheet.rows) {
    writer.startArray(cells.size());
    for (const QVariant& cell : cells) {
      if (cell.isNull())
        writer.appendNull();
      else if (cell.typeId() == QMetaType::Double)
        writer.append(cell.toDouble());
      else
        writer.append(cell.toString());
    }
    writer.endArray();
  }
  writer.endArray();
  writer.endMap();
}

void writeError(QCborStreamWriter& writer, const QString& text) {
  writer.startMap();
  writer.append(QLatin1String("error"));
  writer.append(text);
  writer.endMap();
}

void limit(int resource, rlim_t most) {
  const rlimit bound{most, most};
  setrlimit(static_cast<__rlimit_resource_t>(resource), &bound);
}

}  // namespace

int main(int argc, char** argv) {
#ifndef __SANITIZE_ADDRESS__
  limit(RLIMIT_AS, kMostMemory);
#endif
  limit(RLIMIT_CPU, kMostSeconds);
  QByteArray result;
  QCborStreamWriter writer(&result);
  try {
    const Sheet sheet = read(QString::fromUtf8(argc > 1 ? argv[1] : ""));
    writeSheet(writer, sheet);
  } catch (const Fault& fault) {
    writeError(writer, fault.text);
  } catch (const DamagedWorkbook&) {
    writeError(writer, QStringLiteral("Fisierul este deteriorat"));
  }
  return std::fwrite(result.constData(), 1, static_cast<size_t>(result.size()), stdout) ==
                 static_cast<size_t>(result.size())
             ? 0
             : 1;
}
