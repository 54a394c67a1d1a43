#include "util/XmlText.h"

#include <algorithm>
#include <QRegularExpression>
#include <QStringDecoder>
#include <QXmlStreamReader>

#include "util/Errors.h"

namespace velmar {

namespace {

constexpr char kUtf16Big[] = "\xFE\xFF";
constexpr char kUtf16Little[] = "\xFF\xFE";
constexpr char kUtf8Mark[] = "\xEF\xBB\xBF";

// The encodings by their names in capitals.
const QStringList kEncodings = {"UTF-8",      "UTF-16",       "ISO-8859-1",
                                "ISO-8859-2", "WINDOWS-1250", "WINDOWS-1252"};

RuleError unknownEncoding() {
  return RuleError(
      QStringLiteral("Fisierul are o codificare necunoscuta. Se citesc UTF-8, UTF-16, ISO-8859-1, "
                     "ISO-8859-2, Windows-1250 si Windows-1252."));
}

// The encoding that the XML declaration names, in capitals; empty without one.
QString declaredEncoding(const QString& text) {
  static const QRegularExpression declaration(
      QStringLiteral("^\\s*<\\?xml\\b[^>]*\\bencoding\\s*=\\s*[\"']([^\"']*)[\"']"));
  return declaration.match(text.left(200)).captured(1).toUpper();
}

QString encodingOf(const QByteArray& bytes) {
  if (bytes.startsWith(kUtf16Big) || bytes.startsWith(kUtf16Little)) return QStringLiteral("UTF-16");
  const QString declared = declaredEncoding(QString::fromLatin1(bytes.left(200)));
  if (bytes.startsWith(kUtf8Mark) || declared.isEmpty()) return QStringLiteral("UTF-8");
  return declared;
}

QString decoded(const QByteArray& bytes) {
  const QString encoding = encodingOf(bytes);
  if (!kEncodings.contains(encoding)) throw unknownEncoding();
  // Without state a character that the end of the file cuts is an error too.
  QStringDecoder decoder(encoding.toLatin1().constData(), QStringConverter::Flag::Stateless);
  if (!decoder.isValid()) throw unknownEncoding();
  const QString text = decoder.decode(bytes);
  const QString declared = declaredEncoding(text);
  if (!declared.isEmpty() && declared != encoding) throw unknownEncoding();
  // The encodings of one byte leave these to control characters, or to nothing.
  const bool hasControls = std::any_of(text.begin(), text.end(), [](QChar character) {
    return (character >= QChar(0x80) && character <= QChar(0x9F)) || character == QChar(0xFFFD);
  });
  if (decoder.hasError() || hasControls || !text.isValidUtf16())
    throw RuleError(QStringLiteral("Fisierul are octeti care nu sunt in codificarea %1.").arg(encoding));
  return text;
}

}  // namespace

XmlText::XmlText(const QByteArray& bytes, Names names) {
  QXmlStreamReader reader(decoded(bytes));
  int open = -1;
  while (!reader.atEnd()) {
    switch (reader.readNext()) {
      case QXmlStreamReader::DTD:
        throw RuleError(QStringLiteral("Fisierul are o declaratie DOCTYPE. Nu se citeste."));
      case QXmlStreamReader::StartElement:
        if (elements_.empty()) rootNamespace_ = reader.namespaceUri().toString();
        elements_.push_back(
            {.name = (names == Names::Local ? reader.name() : reader.qualifiedName()).toString(),
             .parent = open,
             .line = static_cast<int>(reader.lineNumber()),
             .text = {},
             .attributes = {}});
        for (const QXmlStreamAttribute& attribute : reader.attributes())
          elements_.back().attributes.append({attribute.name().toString(), attribute.value().toString()});
        open = static_cast<int>(elements_.size()) - 1;
        break;
      case QXmlStreamReader::EndElement: {
        Element& element = elements_[static_cast<size_t>(open)];
        element.end = static_cast<int>(elements_.size());
        open = element.parent;
        break;
      }
      case QXmlStreamReader::Characters:
        if (open >= 0) elements_[static_cast<size_t>(open)].text += reader.text();
        break;
      default:
        break;
    }
  }
  if (reader.hasError() || elements_.empty())
    throw RuleError(
        QStringLiteral("Fisierul nu este XML corect, linia %1.").arg(QString::number(reader.lineNumber())));
}

QString XmlText::root() const { return elements_.front().name; }

QString XmlText::rootNamespace() const { return rootNamespace_; }

QString XmlText::name(int element) const { return elements_[static_cast<size_t>(element)].name; }

int XmlText::line(int element) const { return elements_[static_cast<size_t>(element)].line; }

QString XmlText::attribute(int element, const QString& name) const {
  for (const auto& [each, value] : elements_[static_cast<size_t>(element)].attributes)
    if (each == name) return value;
  return {};
}

// Whether the element ends the path: its name is the last one, its parent's the one before, up to the element
// `above`; -1: up to the root, -2: anywhere.
bool XmlText::matches(int element, const QStringList& names, int above) const {
  for (qsizetype i = names.size() - 1; i >= 0; --i) {
    if (element < 0 || elements_[static_cast<size_t>(element)].name != names[i]) return false;
    element = elements_[static_cast<size_t>(element)].parent;
  }
  return above == -2 || element == above;
}

std::optional<int> XmlText::find(const QString& path) const {
  const bool isAnywhere = path.startsWith(QStringLiteral("//"));
  const QStringList names = path.mid(isAnywhere ? 2 : 0).split(u'/');
  for (int element = 0; element < static_cast<int>(elements_.size()); ++element)
    if (matches(element, names, isAnywhere ? -2 : -1)) return element;
  return std::nullopt;
}

std::optional<int> XmlText::find(int element, const QString& path) const {
  const QStringList names = path.split(u'/');
  for (int inside = element + 1; inside < elements_[static_cast<size_t>(element)].end; ++inside)
    if (matches(inside, names, element)) return inside;
  return std::nullopt;
}

QString XmlText::text(int element) const {
  QString whole;
  for (int inside = element; inside < elements_[static_cast<size_t>(element)].end; ++inside)
    whole += elements_[static_cast<size_t>(inside)].text;
  return whole.trimmed();
}

QString XmlText::text(int element, const QString& path) const {
  const auto found = find(element, path);
  return found ? text(*found) : QString();
}

std::vector<std::pair<QString, QString>> XmlText::fields() const {
  std::vector<std::pair<QString, QString>> fields;
  std::vector<QString> paths;
  for (size_t i = 0; i < elements_.size(); ++i) {
    const Element& element = elements_[i];
    const bool isTop = element.parent <= 0;
    paths.push_back(i == 0  ? QString()
                    : isTop ? element.name
                            : paths[static_cast<size_t>(element.parent)] + u'/' + element.name);
    if (const QString text = element.text.trimmed(); !text.isEmpty()) fields.emplace_back(paths.back(), text);
    for (const auto& [name, value] : element.attributes)
      fields.emplace_back(paths.back() + u'@' + name, value);
  }
  return fields;
}

std::vector<int> XmlText::children(int element) const {
  std::vector<int> found;
  const int end = elements_[static_cast<size_t>(element)].end;
  for (int child = element + 1; child < end; child = elements_[static_cast<size_t>(child)].end)
    found.push_back(child);
  return found;
}

}  // namespace velmar
