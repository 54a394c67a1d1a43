// Reads a spreadsheet (.xls, .xlsx, .ods) and writes the cells of one sheet as JSON to the standard output. A
// process of its own: a damaged file may break a library, or ask for any amount of time and memory.
#include <freexl.h>
#include <sys/resource.h>
#include <zip.h>
#include <cstdio>
#include <memory>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QXmlStreamReader>
#include <vector>

#include "xlsformulas.h"

namespace {

constexpr rlim_t kMostMemory = 2ULL << 30;
constexpr rlim_t kMostSeconds = 30;
constexpr zip_uint64_t kLargestPart = 256ULL << 20;
constexpr int kMostColumns = 256;
constexpr int kMostRows = 200'000;

/// What is wrong with the file, in Romanian.
struct Fault {
  QString text;
};

using Cells = std::vector<QJsonValue>;

struct Sheet {
  QString name;
  std::vector<Cells> rows;

  void put(int row, int column, const QJsonValue& value) {
    if (row < 0 || column < 0 || column >= kMostColumns) return;
    if (row >= kMostRows) {
      if (value.isNull()) return;
      throw Fault{QStringLiteral("Foaia are mai mult de %1 randuri").arg(kMostRows)};
    }
    if (static_cast<int>(rows.size()) <= row) rows.resize(static_cast<size_t>(row) + 1);
    Cells& cells = rows[static_cast<size_t>(row)];
    if (static_cast<int>(cells.size()) <= column) cells.resize(static_cast<size_t>(column) + 1);
    cells[static_cast<size_t>(column)] = value;
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
      const auto put = [&](const QJsonValue& value) { sheet.put(static_cast<int>(row), column, value); };
      if (cell.type == FREEXL_CELL_INT) put(cell.value.int_value);
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

// The text of all "t" elements within the current one.
QString richText(QXmlStreamReader& xml) {
  const QString end = xml.name().toString();
  QString text;
  while (!xml.atEnd()) {
    xml.readNext();
    if (xml.isStartElement() && xml.name() == u"rPh") xml.skipCurrentElement();
    if (xml.isStartElement() && xml.name() == u"t") text += xml.readElementText();
    if (xml.isEndElement() && xml.name() == end) break;
  }
  return text;
}

QStringList sharedStrings(const Archive& archive) {
  QStringList texts;
  const QString name = QStringLiteral("xl/sharedStrings.xml");
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

QString sheetPart(const Archive& archive, QString& name) {
  QStringList names, ids;
  QXmlStreamReader book(archive.part(QStringLiteral("xl/workbook.xml")));
  while (!book.atEnd()) {
    book.readNext();
    if (!book.isStartElement() || book.name() != u"sheet") continue;
    names.append(book.attributes().value(QStringLiteral("name")).toString());
    for (const QXmlStreamAttribute& attribute : book.attributes())
      if (attribute.qualifiedName().endsWith(u":id")) ids.append(attribute.value().toString());
  }
  requireSound(book);
  const int which = chosen(names);
  name = names[which];
  QXmlStreamReader links(archive.part(QStringLiteral("xl/_rels/workbook.xml.rels")));
  while (!links.atEnd()) {
    links.readNext();
    if (!links.isStartElement() || links.attributes().value(QStringLiteral("Id")) != ids.value(which))
      continue;
    const QString target = links.attributes().value(QStringLiteral("Target")).toString();
    return target.startsWith(u'/') ? target.mid(1) : QStringLiteral("xl/") + target;
  }
  throw Fault{QStringLiteral("Foaia nu poate fi citita")};
}

QJsonValue xlsxValue(const QString& type, const QString& value, const QStringList& shared) {
  if (type == QLatin1String("s")) return shared.value(value.toInt());
  if (type == QLatin1String("b")) return value.toInt();
  if (type == QLatin1String("str") || type == QLatin1String("inlineStr") || type == QLatin1String("e"))
    return value;
  bool isNumber = false;
  const double number = value.toDouble(&isNumber);
  return isNumber ? QJsonValue(number) : QJsonValue(value);
}

Sheet readXlsx(const Archive& archive) {
  Sheet sheet;
  const QString part = sheetPart(archive, sheet.name);
  const QStringList shared = sharedStrings(archive);
  QXmlStreamReader xml(archive.part(part));
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
  const int which = chosen(names);
  Sheet sheet{names[which], {}};
  QXmlStreamReader xml(content);
  int table = -1, row = 0, column = 0, rowTimes = 1;
  while (!xml.atEnd()) {
    xml.readNext();
    if (xml.isEndElement() && xml.name() == u"table-row" && table == which) {
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
      ++table;
    } else if (table == which && xml.name() == u"table-row") {
      rowTimes = std::min(repeated(xml.attributes(), "number-rows-repeated"), kMostRows);
      column = 0;
    } else if (table == which && xml.name() == u"table-cell") {
      const QXmlStreamAttributes attributes = xml.attributes();
      const int times = std::min(repeated(attributes, "number-columns-repeated"), kMostColumns);
      const QString kind = valueOf(attributes, "value-type");
      QStringList paragraphs;
      while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isStartElement() && xml.name() == u"p")
          paragraphs.append(xml.readElementText(QXmlStreamReader::IncludeChildElements));
        if (xml.isEndElement() && xml.name() == u"table-cell") break;
      }
      bool isNumber = false;
      const double number = valueOf(attributes, "value").toDouble(&isNumber);
      const QJsonValue value = isNumber && kind != QLatin1String("string")
                                   ? QJsonValue(number)
                                   : QJsonValue(paragraphs.join(u'\n'));
      if (!kind.isEmpty())
        for (int i = 0; i < times; ++i) sheet.put(row, column + i, value);
      column += times;
    } else if (table == which && xml.name() == u"covered-table-cell") {
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
  if (archive.has(QStringLiteral("xl/workbook.xml"))) return readXlsx(archive);
  if (archive.has(QStringLiteral("content.xml"))) return readOds(archive);
  throw Fault{QStringLiteral("Fisierul nu este un registru de calcul")};
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
  QJsonObject result;
  try {
    const Sheet sheet = read(QString::fromUtf8(argc > 1 ? argv[1] : ""));
    QJsonArray rows;
    for (const Cells& cells : sheet.rows) {
      QJsonArray row;
      for (const QJsonValue& cell : cells) row.append(cell);
      rows.append(row);
    }
    result = {{QStringLiteral("name"), sheet.name}, {QStringLiteral("rows"), rows}};
  } catch (const Fault& fault) {
    result = {{QStringLiteral("error"), fault.text}};
  } catch (const DamagedWorkbook&) {
    result = {{QStringLiteral("error"), QStringLiteral("Fisierul este deteriorat")}};
  }
  const QByteArray text = QJsonDocument(result).toJson(QJsonDocument::Compact);
  return std::fwrite(text.constData(), 1, static_cast<size_t>(text.size()), stdout) ==
                 static_cast<size_t>(text.size())
             ? 0
             : 1;
}
