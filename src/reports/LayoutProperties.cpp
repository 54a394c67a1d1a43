#include "reports/LayoutProperties.h"

#include <algorithm>
#include <cmath>
#include <QHash>
#include <QRegularExpression>
#include <QSet>

#include "reports/LayoutDescription.h"
#include "util/Messages.h"
#include "util/NumberText.h"

namespace velmar::layout {

namespace {

const QString kGroupPrefix = QStringLiteral("groups.");
const QString kSumPrefix = QStringLiteral("sums.");

QString captionOf(const QString& name) {
  static const QHash<QString, const char*> kCaptions = {{"title", "Titlu"},
                                                        {"name", "Nume"},
                                                        {"x", "Stanga (mm)"},
                                                        {"y", "Sus (mm)"},
                                                        {"width", "Latime (mm)"},
                                                        {"height", "Inaltime (mm)"},
                                                        {"left", "Margine stanga (mm)"},
                                                        {"top", "Margine sus (mm)"},
                                                        {"right", "Margine dreapta (mm)"},
                                                        {"bottom", "Margine jos (mm)"},
                                                        {"sheetWidth", "Latime coala (mm)"},
                                                        {"sheetHeight", "Inaltime coala (mm)"},
                                                        {"sheetLeft", "Prima eticheta: stanga (mm)"},
                                                        {"sheetTop", "Prima eticheta: sus (mm)"},
                                                        {"columns", "Etichete pe latime"},
                                                        {"rows", "Etichete pe inaltime"},
                                                        {"gapX", "Distanta pe latime (mm)"},
                                                        {"gapY", "Distanta pe inaltime (mm)"},
                                                        {"condition", "Conditie"},
                                                        {"pages", "Pe paginile"},
                                                        {"formula", "Formula"},
                                                        {"font", "Font"},
                                                        {"points", "Marime litera"},
                                                        {"bold", "Aldin"},
                                                        {"italic", "Cursiv"},
                                                        {"underlined", "Subliniat"},
                                                        {"colour", "Culoare"},
                                                        {"align", "Aliniere"},
                                                        {"vertical", "Aliniere verticala"},
                                                        {"wraps", "Pe mai multe randuri"},
                                                        {"format", "Format"},
                                                        {"decimals", "Zecimale"},
                                                        {"hidesZero", "Zero ramane gol"},
                                                        {"pattern", "Model data"},
                                                        {"pen", "Grosime linie (mm)"},
                                                        {"rising", "Urca spre dreapta"},
                                                        {"fill", "Umplere"},
                                                        {"radius", "Raza colturilor (mm)"},
                                                        {"file", "Fisier (formula)"},
                                                        {"keepsRatio", "Pastreaza proportiile"},
                                                        {"type", "Tip cod"},
                                                        {"showsText", "Cu text"},
                                                        {"lineLeft", "Linie stanga"},
                                                        {"lineTop", "Linie sus"},
                                                        {"lineRight", "Linie dreapta"},
                                                        {"lineBottom", "Linie jos"},
                                                        {"xValue", "Valoare pe orizontala"},
                                                        {"yValue", "Valoare pe verticala"},
                                                        {"leastX", "Orizontala: de la"},
                                                        {"mostX", "Orizontala: pana la"},
                                                        {"stepX", "Orizontala: pas"},
                                                        {"doubling", "Orizontala: pasul dubleaza"},
                                                        {"leastY", "Verticala: de la"},
                                                        {"mostY", "Verticala: pana la"},
                                                        {"stepY", "Verticala: pas"},
                                                        {"growsDown", "Verticala: creste in jos"},
                                                        {"mark", "Semn"},
                                                        {"role", "Rol rand"},
                                                        {"group", "Grupa"},
                                                        {"fillsDown", "Linii pana jos"},
                                                        {"extension", "Prelungire (mm)"},
                                                        {"extendsIf", "Conditie prelungire"}};
  if (name.startsWith(kGroupPrefix))
    return QStringLiteral("Grupa %1").arg(name.mid(kGroupPrefix.size()).toInt() + 1);
  if (name.startsWith(kSumPrefix))
    return QStringLiteral("Suma %1").arg(name.mid(kSumPrefix.size()).toInt() + 1);
  return QLatin1String(kCaptions.value(name, ""));
}

// The displayed texts of the words in the file.
QString choiceText(const char* word) {
  static const QHash<QString, const char*> kTexts = {
      {"left", "la stanga"}, {"centre", "la mijloc"}, {"right", "la dreapta"},
      {"top", "sus"},        {"middle", "la mijloc"}, {"bottom", "jos"},
      {"text", "text"},      {"number", "numar"},     {"date", "data"},
      {"price", "pret"},     {"code128", "Code 128"}, {"ean13", "EAN 13"},
      {"all", "toate"},      {"first", "prima"},      {"following", "urmatoarele"},
      {"last", "ultima"},    {"none", "fara"},        {"circle", "cerc"},
      {"cross", "cruce"},    {"dot", "punct"}};
  const auto text = kTexts.constFind(QLatin1String(word));
  return QLatin1String(text == kTexts.constEnd() ? word : *text);
}

QString textOfChoice(const char*, RowRole role) { return roleName(role); }
template <typename Enum>
QString textOfChoice(const char* word, Enum) {
  return choiceText(word);
}

QString flagText(bool value) { return value ? QStringLiteral("da") : QStringLiteral("nu"); }

// Lengths set with the mouse are not displayed with all digits.
QString numberText(double value) {
  constexpr int kDecimals = 3;
  return editNumber(Round(Decimal::fromDouble(value), kDecimals));
}

// The user numbers groups from 1.
int shiftOf(const QString& name) { return name == u"group" ? 1 : 0; }

// Whether all characters are allowed in XML.
bool isStorable(const QString& text) {
  const QList<uint> characters = text.toUcs4();
  return std::none_of(characters.begin(), characters.end(), [](uint c) {
    const bool control = c < 0x20 && c != '\t' && c != '\n';
    return control || (c >= 0xD800 && c <= 0xDFFF) || c == 0xFFFE || c == 0xFFFF;
  });
}

/// Collects the values of the members.
class Collector {
 public:
  void field(const char* name, const QString& value) {
    const QString key = QLatin1String(name);
    static const QSet<QString> kFormulas = {QStringLiteral("formula"), QStringLiteral("condition"),
                                            QStringLiteral("file")};
    PropertyKind kind = PropertyKind::Text;
    if (kFormulas.contains(key) || key.startsWith(kGroupPrefix) || key.startsWith(kSumPrefix))
      kind = PropertyKind::Formula;
    else if (key == u"font")
      kind = PropertyKind::Font;
    add(key, kind, value);
  }
  void field(const char* name, double value, Range) {
    add(QLatin1String(name), PropertyKind::Number, numberText(value));
  }
  void field(const char* name, int value, Range) {
    const QString key = QLatin1String(name);
    add(key, PropertyKind::Number, QString::number(value + shiftOf(key)));
  }
  void field(const char* name, bool value) {
    add(QLatin1String(name), PropertyKind::Choice, flagText(value), {flagText(true), flagText(false)});
  }
  template <typename Enum>
  void field(const char* name, Enum value, const Choices<Enum>& choices) {
    QStringList texts;
    QString current;
    for (const auto& [choice, word] : choices) {
      texts.append(textOfChoice(word, choice));
      if (choice == value) current = texts.last();
    }
    add(QLatin1String(name), PropertyKind::Choice, current, texts);
  }
  void colour(const char* name, const QString& value) {
    add(QLatin1String(name), PropertyKind::Colour, value);
  }

  std::vector<Property> properties;

 private:
  void add(const QString& name, PropertyKind kind, const QString& value, const QStringList& choices = {}) {
    properties.push_back({name, captionOf(name), kind, value, choices});
  }
};

/// Sets the member of that name to the typed value.
class Setter {
 public:
  Setter(const QString& name, const QString& typed) : name_(name), typed_(typed.trimmed()) {}

  void field(const char* name, QString& value) {
    if (!isMeant(name)) return;
    if (typed_.size() > kLongestText) refuse(QStringLiteral("este prea lung"));
    if (!isStorable(typed_)) refuse(QStringLiteral("contine caractere care nu se pot salva"));
    value = typed_;
  }
  void field(const char* name, double& value, Range range) {
    if (isMeant(name)) value = number(range);
  }
  void field(const char* name, int& value, Range range) {
    if (!isMeant(name)) return;
    const int shift = shiftOf(name_);
    const double typed = number({range.least + shift, range.most + shift});
    if (typed != std::floor(typed)) refuse(QStringLiteral("trebuie sa fie un numar intreg"));
    value = static_cast<int>(typed) - shift;
  }
  void field(const char* name, bool& value) {
    if (isMeant(name)) value = choice({flagText(false), flagText(true)}) == 1;
  }
  template <typename Enum>
  void field(const char* name, Enum& value, const Choices<Enum>& choices) {
    if (!isMeant(name)) return;
    QStringList texts;
    for (const auto& [each, word] : choices) texts.append(textOfChoice(word, each));
    value = choices[static_cast<size_t>(choice(texts))].first;
  }
  void colour(const char* name, QString& value) {
    if (!isMeant(name)) return;
    if (!isColour(typed_)) refuse(QStringLiteral("trebuie sa fie o culoare #RRGGBB, de exemplu #C00000"));
    value = typed_.toUpper();
  }

 private:
  bool isMeant(const char* name) const { return name_ == QLatin1String(name); }

  double number(Range range) const {
    const auto parsed = parseNumber(typed_);
    const double value = parsed ? parsed->toDouble() : 0;
    if (!parsed || value < range.least || value > range.most)
      refuse(QStringLiteral("trebuie sa fie un numar intre %1 si %2")
                 .arg(numberText(range.least), numberText(range.most)));
    return value;
  }

  // A unique prefix of a choice is sufficient.
  int choice(const QStringList& texts) const {
    int found = -1;
    int beginning = 0;
    for (int i = 0; i < texts.size(); ++i) {
      if (texts[i].compare(typed_, Qt::CaseInsensitive) == 0) return i;
      if (typed_.isEmpty() || !texts[i].startsWith(typed_, Qt::CaseInsensitive)) continue;
      found = i;
      ++beginning;
    }
    if (beginning != 1) refuse(QStringLiteral("poate fi: %1").arg(texts.join(QStringLiteral(", "))));
    return found;
  }

  [[noreturn]] void refuse(const QString& text) const {
    throw RuleError(QStringLiteral("\"%1\" %2.").arg(captionOf(name_), text), name_, kExclamation);
  }

  QString name_;
  QString typed_;
};

// Removes a group; rows and sums of the following groups keep their groups.
void removeGroup(Table& table, int group) {
  table.groups.erase(table.groups.begin() + group);
  for (TableRow& row : table.rows)
    if (row.group > group) --row.group;
  for (Sum& sum : table.sums) {
    if (sum.group == group) sum.group = -1;
    if (sum.group > group) --sum.group;
  }
}

// Groups and sums are listed one per line, followed by an empty line for a new one; clearing a line removes
// it.
template <typename Archive>
void describeLists(Archive& archive, Table& table) {
  for (size_t i = 0; i <= table.groups.size() && i < kMostGroups; ++i) {
    const bool more = i == table.groups.size();
    QString formula = more ? QString() : table.groups[i];
    // NOLINTNEXTLINE(performance-unnecessary-copy-initialization): the archive changes the text
    const QString before = formula;
    archive.field((kGroupPrefix + QString::number(i)).toLatin1().constData(), formula);
    if (formula == before) continue;
    if (more)
      table.groups.push_back(formula);
    else if (formula.isEmpty())
      removeGroup(table, static_cast<int>(i));
    else
      table.groups[i] = formula;
    return;
  }
  for (size_t i = 0; i <= table.sums.size(); ++i) {
    const bool more = i == table.sums.size();
    QString text = more ? QString() : textOf(table.sums[i]);
    // NOLINTNEXTLINE(performance-unnecessary-copy-initialization): the archive changes the text
    const QString before = text;
    archive.field((kSumPrefix + QString::number(i)).toLatin1().constData(), text);
    if (text == before) continue;
    if (text.isEmpty())
      table.sums.erase(table.sums.begin() + static_cast<std::ptrdiff_t>(i));
    else if (more)
      table.sums.push_back(sumFrom(text));
    else
      table.sums[i] = sumFrom(text);
    return;
  }
}

template <typename Archive>
void describeObject(Archive& archive, Object& object) {
  std::array<double, 4> frame = {object.frame.x(), object.frame.y(), object.frame.width(),
                                 object.frame.height()};
  describeFrame(archive, object, frame);
  object.frame = QRectF(frame[0], frame[1], frame[2], frame[3]);
  std::visit([&archive](auto& content) { describe(archive, content); }, object.content);
  if (auto* table = std::get_if<Table>(&object.content)) describeLists(archive, *table);
}

template <typename Archive>
void describePart(Archive& archive, Layout& layout, const Part& part) {
  if (part.isPage()) {
    archive.field("title", layout.title);
    describe(archive, layout.page);
    if (layout.labels) describe(archive, *layout.labels);
    return;
  }
  Object& object = layout.objects[static_cast<size_t>(part.object)];
  if (part.isObject()) return describeObject(archive, object);
  TableRow& row = std::get<Table>(object.content).rows[static_cast<size_t>(part.row)];
  if (part.isRow())
    describe(archive, row);
  else
    describe(archive, row.cells[static_cast<size_t>(part.cell)]);
}

}  // namespace

std::vector<Property> propertiesOf(const Layout& layout, const Parts& parts) {
  std::vector<Property> common;
  Layout copy = layout;
  bool first = true;
  for (const Part& part : parts) {
    if (!has(layout, part)) continue;
    Collector collector;
    describePart(collector, copy, part);
    if (std::exchange(first, false)) {
      common = std::move(collector.properties);
      continue;
    }
    const auto missing = [&collector](Property& property) {
      const auto same =
          std::find_if(collector.properties.begin(), collector.properties.end(),
                       [&property](const Property& other) { return other.name == property.name; });
      if (same == collector.properties.end()) return true;
      if (same->value != property.value) property.value.clear();
      return false;
    };
    common.erase(std::remove_if(common.begin(), common.end(), missing), common.end());
  }
  return common;
}

void setProperty(Layout& layout, const Parts& parts, const QString& name, const QString& typed) {
  Layout changed = layout;
  for (const Part& part : parts) {
    Setter setter(name, typed);
    if (has(changed, part)) describePart(setter, changed, part);
  }
  layout = std::move(changed);
}

QString textOf(const Sum& sum) {
  const QString group = sum.group < 0 ? QString() : QStringLiteral(" [%1]").arg(sum.group + 1);
  return sum.name + group + QStringLiteral(" = ") + sum.formula;
}

Sum sumFrom(const QString& typed) {
  static const QRegularExpression kSum(
      QStringLiteral("^\\s*([\\p{L}_$][\\p{L}\\p{N}_$]*)\\s*(?:\\[\\s*([1-8])\\s*\\])?\\s*=(?!=)\\s*(.*)$"),
      QRegularExpression::DotMatchesEverythingOption);
  const QRegularExpressionMatch match = kSum.match(typed);
  if (!match.hasMatch())
    throw RuleError(
        QStringLiteral("O suma se scrie \"NUME = formula\", iar pe grupa \"NUME [1] = formula\"."));
  Sum sum;
  sum.name = match.captured(1);
  sum.group = match.captured(2).isEmpty() ? -1 : match.captured(2).toInt() - 1;
  sum.formula = match.captured(3).trimmed();
  return sum;
}

}  // namespace velmar::layout
