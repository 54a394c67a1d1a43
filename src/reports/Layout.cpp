#include "reports/Layout.h"

#include <array>
#include <cmath>
#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QSaveFile>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include "reports/LayoutDescription.h"
#include "util/FileNames.h"
#include "util/FileReason.h"

namespace velmar::layout {

namespace {

/// Reads the attributes of an element into the members listed by describe().
class AttributeReader {
 public:
  explicit AttributeReader(const QXmlStreamReader& xml) : xml_(xml), attributes_(xml.attributes()) {}

  void field(const char* name, QString& value) {
    if (const auto text = take(name)) {
      if (text->size() > kLongestText) fail(QStringLiteral("\"%1\" este prea lung").arg(QLatin1String(name)));
      value = *text;
    }
  }

  void field(const char* name, double& value, Range range) {
    const auto text = take(name);
    if (!text) return;
    bool isNumber = false;
    value = text->toDouble(&isNumber);
    if (!isNumber || !std::isfinite(value) || value < range.least || value > range.most)
      fail(QStringLiteral("\"%1\" trebuie sa fie un numar intre %2 si %3")
               .arg(QLatin1String(name))
               .arg(range.least)
               .arg(range.most));
  }

  void field(const char* name, int& value, Range range) {
    double number = value;
    field(name, number, range);
    if (number != std::floor(number))
      fail(QStringLiteral("\"%1\" trebuie sa fie un numar intreg").arg(QLatin1String(name)));
    value = static_cast<int>(number);
  }

  void field(const char* name, bool& value) {
    const auto text = take(name);
    if (!text) return;
    if (*text != u"yes" && *text != u"no")
      fail(QStringLiteral("\"%1\" trebuie sa fie \"yes\" sau \"no\"").arg(QLatin1String(name)));
    value = *text == u"yes";
  }

  template <typename Enum>
  void field(const char* name, Enum& value, const Choices<Enum>& choices) {
    const auto text = take(name);
    if (!text) return;
    for (const auto& [choice, word] : choices)
      if (*text == QLatin1String(word)) {
        value = choice;
        return;
      }
    fail(QStringLiteral("\"%1\" nu poate fi \"%2\"").arg(QLatin1String(name), *text));
  }

  void colour(const char* name, QString& value) {
    field(name, value);
    if (!isColour(value))
      fail(QStringLiteral("\"%1\" trebuie sa fie o culoare #RRGGBB").arg(QLatin1String(name)));
  }

  /// Throws for attributes not listed by describe(): a misspelt attribute must not be ignored.
  void finish() const {
    for (const QXmlStreamAttribute& attribute : attributes_)
      if (!taken_.contains(attribute.qualifiedName().toString()))
        fail(QStringLiteral("atribut necunoscut: \"%1\"").arg(attribute.qualifiedName()));
  }

 private:
  std::optional<QString> take(const char* name) {
    const QString key = QLatin1String(name);
    taken_.append(key);
    if (!attributes_.hasAttribute(key)) return std::nullopt;
    return attributes_.value(key).toString();
  }

  [[noreturn]] void fail(const QString& text) const {
    throw LayoutError(text, static_cast<int>(xml_.lineNumber()), static_cast<int>(xml_.columnNumber()));
  }

  const QXmlStreamReader& xml_;
  QXmlStreamAttributes attributes_;
  QStringList taken_;
};

/// Collects the members listed by describe() as texts.
class AttributeTexts {
 public:
  void field(const char* name, const QString& value) { texts.emplace_back(QLatin1String(name), value); }
  void field(const char* name, double value, Range) { field(name, QString::number(value, 'g', 10)); }
  void field(const char* name, int value, Range) { field(name, QString::number(value)); }
  void field(const char* name, bool value) {
    field(name, value ? QStringLiteral("yes") : QStringLiteral("no"));
  }
  template <typename Enum>
  void field(const char* name, Enum value, const Choices<Enum>& choices) {
    for (const auto& [choice, word] : choices)
      if (choice == value) field(name, QString(QLatin1String(word)));
  }
  void colour(const char* name, const QString& value) { field(name, value); }

  std::vector<std::pair<QString, QString>> texts;
};

// The messages of QXmlStreamReader are in English.
QString xmlReason(const QXmlStreamReader& xml) {
  constexpr std::pair<const char*, const char*> kReasons[] = {
      {"Start tag expected", "lipseste elementul de inceput"},
      {"Opening and ending tag mismatch", "elementul nu este inchis cu numele lui"},
      {"redefined", "un atribut apare de doua ori"},
      {"Entity", "entitate necunoscuta"},
      {"entity", "entitate necunoscuta"},
      {"Encoding", "codificare necunoscuta"},
      {"incorrectly encoded", "textul nu are codificarea declarata"},
      {"Extra content", "text dupa sfarsitul raportului"}};
  for (const auto& [english, reason] : kReasons)
    if (xml.errorString().contains(QLatin1String(english))) return QString::fromLatin1(reason);
  return xml.error() == QXmlStreamReader::PrematureEndOfDocumentError
             ? QStringLiteral("fisierul se termina prea devreme")
             : QStringLiteral("fisierul nu este scris corect");
}

/// The element names of objects, by the index of the alternative in Object::content.
constexpr std::array kObjectElements = {"text", "line", "box", "picture", "barcode", "curve", "table"};

class Reader {
 public:
  explicit Reader(const QByteArray& data) : xml_(data) {}

  Layout read() {
    Layout layout;
    if (!xml_.readNextStartElement()) failXml();
    if (xml_.name() != u"report") fail(QStringLiteral("fisierul nu este un raport"));
    AttributeReader attributes(xml_);
    attributes.field("title", layout.title);
    attributes.finish();
    while (xml_.readNextStartElement()) readPart(layout);
    while (!xml_.atEnd()) xml_.readNext();
    if (xml_.hasError()) failXml();
    return layout;
  }

 private:
  void readPart(Layout& layout) {
    if (xml_.name() == u"page") {
      layout.page = readLeaf<Page>();
      return;
    }
    if (xml_.name() == u"labels") {
      layout.labels = readLeaf<Labels>();
      return;
    }
    if (layout.objects.size() >= kMostObjects) fail(QStringLiteral("raportul are prea multe obiecte"));
    layout.objects.push_back(readObject());
    const bool isTable = std::holds_alternative<Table>(layout.objects.back().content);
    if (isTable && layout.table() != &std::get<Table>(layout.objects.back().content))
      fail(QStringLiteral("raportul are mai multe tabele"));
  }

  Object readObject() {
    Object object;
    if (!makeContent(object)) fail(QStringLiteral("element necunoscut: \"%1\"").arg(xml_.name()));
    AttributeReader attributes(xml_);
    std::array<double, 4> frame = {0, 0, 20, 5};
    describeFrame(attributes, object, frame);
    object.frame = QRectF(frame[0], frame[1], frame[2], frame[3]);
    std::visit([&](auto& content) { describe(attributes, content); }, object.content);
    attributes.finish();
    if (auto* table = std::get_if<Table>(&object.content))
      readTable(*table);
    else
      expectEnd();
    return object;
  }

  /// Sets the object's content according to the current element.
  bool makeContent(Object& object) const {
    const auto element =
        std::find_if(kObjectElements.begin(), kObjectElements.end(),
                     [this](const char* name) { return xml_.name() == QLatin1String(name); });
    switch (element - kObjectElements.begin()) {
      case 0:
        object.content = Text();
        return true;
      case 1:
        object.content = Line();
        return true;
      case 2:
        object.content = Box();
        return true;
      case 3:
        object.content = Picture();
        return true;
      case 4:
        object.content = BarCode();
        return true;
      case 5:
        object.content = Curve();
        return true;
      case 6:
        object.content = Table();
        return true;
      default:
        return false;
    }
  }

  void readTable(Table& table) {
    size_t cells = 0;
    while (xml_.readNextStartElement()) {
      if (xml_.name() == u"group") {
        AttributeReader attributes(xml_);
        attributes.field("formula", table.groups.emplace_back());
        attributes.finish();
        if (table.groups.size() > kMostGroups) fail(QStringLiteral("tabelul are prea multe grupe"));
        expectEnd();
      } else if (xml_.name() == u"sum") {
        table.sums.push_back(readLeaf<Sum>());
      } else if (xml_.name() == u"row") {
        table.rows.push_back(readRow());
        cells += table.rows.back().cells.size() + 1;
      } else {
        fail(QStringLiteral("element necunoscut: \"%1\"").arg(xml_.name()));
      }
      if (cells + table.sums.size() > kMostObjects) fail(QStringLiteral("tabelul are prea multe celule"));
    }
  }

  TableRow readRow() {
    TableRow row;
    AttributeReader attributes(xml_);
    describe(attributes, row);
    attributes.finish();
    while (xml_.readNextStartElement()) {
      if (xml_.name() != u"cell") fail(QStringLiteral("element necunoscut: \"%1\"").arg(xml_.name()));
      row.cells.push_back(readLeaf<Cell>());
      if (row.cells.size() > kMostObjects) fail(QStringLiteral("randul are prea multe celule"));
    }
    return row;
  }

  /// An element without child elements.
  template <typename Part>
  Part readLeaf() {
    Part part;
    AttributeReader attributes(xml_);
    describe(attributes, part);
    attributes.finish();
    expectEnd();
    return part;
  }

  void expectEnd() {
    if (xml_.readNextStartElement()) fail(QStringLiteral("element neasteptat: \"%1\"").arg(xml_.name()));
  }

  [[noreturn]] void fail(const QString& text) const {
    throw LayoutError(text, static_cast<int>(xml_.lineNumber()), static_cast<int>(xml_.columnNumber()));
  }
  [[noreturn]] void failXml() const { fail(QStringLiteral("XML gresit (%1)").arg(xmlReason(xml_))); }

  QXmlStreamReader xml_;
};

class Writer {
 public:
  QByteArray write(const Layout& layout) {
    xml_.setAutoFormatting(true);
    xml_.setAutoFormattingIndent(2);
    xml_.writeStartDocument();
    xml_.writeStartElement(QStringLiteral("report"));
    if (!layout.title.isEmpty()) xml_.writeAttribute(QStringLiteral("title"), layout.title);
    writeLeaf("page", layout.page);
    if (layout.labels) writeLeaf("labels", *layout.labels);
    for (const Object& object : layout.objects) writeObject(object);
    xml_.writeEndDocument();
    return data_;
  }

 private:
  void writeObject(Object object) {
    xml_.writeStartElement(QLatin1String(kObjectElements[object.content.index()]));
    const QRectF& at = object.frame;
    std::array<double, 4> frame = {at.x(), at.y(), at.width(), at.height()};
    AttributeTexts texts;
    describeFrame(texts, object, frame);
    for (const auto& [name, text] : texts.texts)
      if (!text.isEmpty() && !(name == u"pages" && object.pages == Pages::All))
        xml_.writeAttribute(name, text);
    std::visit([this](const auto& content) { writeAttributes(content); }, object.content);
    if (const auto* table = std::get_if<Table>(&object.content)) writeTable(*table);
    xml_.writeEndElement();
  }

  void writeTable(const Table& table) {
    for (const QString& group : table.groups) {
      xml_.writeStartElement(QStringLiteral("group"));
      xml_.writeAttribute(QStringLiteral("formula"), group);
      xml_.writeEndElement();
    }
    for (const Sum& sum : table.sums) writeLeaf("sum", sum);
    for (const TableRow& row : table.rows) {
      xml_.writeStartElement(QStringLiteral("row"));
      writeAttributes(row);
      for (const Cell& cell : row.cells) writeLeaf("cell", cell);
      xml_.writeEndElement();
    }
  }

  template <typename Part>
  void writeLeaf(const char* element, const Part& part) {
    xml_.writeStartElement(QLatin1String(element));
    writeAttributes(part);
    xml_.writeEndElement();
  }

  /// Writes only what differs from the defaults, to keep the file readable.
  template <typename Part>
  void writeAttributes(Part part) {
    Part fresh;
    AttributeTexts texts, defaults;
    describe(texts, part);
    describe(defaults, fresh);
    for (size_t i = 0; i < texts.texts.size(); ++i)
      if (texts.texts[i] != defaults.texts[i])
        xml_.writeAttribute(texts.texts[i].first, texts.texts[i].second);
  }

  QByteArray data_;
  QXmlStreamWriter xml_{&data_};
};

}  // namespace

LayoutError::LayoutError(const QString& text, int line, int column)
    : Error(kConversionFailure, text), line_(line), column_(column) {}

bool isColour(const QString& text) {
  static const QRegularExpression kColour(QStringLiteral("^(#[0-9A-Fa-f]{6})?$"));
  return kColour.match(text).hasMatch();
}

const Table* Layout::table() const {
  for (const Object& object : objects)
    if (const auto* table = std::get_if<Table>(&object.content)) return table;
  return nullptr;
}

Layout read(const QByteArray& xml) { return Reader(xml).read(); }

QByteArray write(const Layout& layout) { return Writer().write(layout); }

Layout load(const QString& path) {
  requirePlainFile(path);
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly))
    throw StoreError(kFileFailure, QStringLiteral("Fisierul nu poate fi citit: %1 (%2)")
                                       .arg(QDir::toNativeSeparators(path), fileReason(file)));
  return read(file.readAll());
}

void save(const QString& path, const Layout& layout) {
  QSaveFile file(path);
  if (!file.open(QIODevice::WriteOnly)) throw notWritten(file);
  file.write(write(layout));
  if (!file.commit()) throw notWritten(file);
}

}  // namespace velmar::layout
