#include "util/PlainText.h"

#include <algorithm>
#include <QHash>

namespace velmar {

namespace {

bool isHidden(QChar c) {
  const char16_t code = c.unicode();
  const bool turns = code == 0x061C || code == 0x200E || code == 0x200F ||
                     (code >= 0x202A && code <= 0x202E) || (code >= 0x2066 && code <= 0x2069);
  return turns || c.category() == QChar::Other_Control || code == QChar::LineSeparator ||
         code == QChar::ParagraphSeparator;
}

QString nameOf(QChar c) {
  return QStringLiteral("U+%1").arg(QString::number(c.unicode(), 16).toUpper(), 4, QLatin1Char('0'));
}

}  // namespace

QString hiddenCharacter(const QString& text) {
  const auto found = std::find_if(text.begin(), text.end(), isHidden);
  return found == text.end() ? QString() : nameOf(*found);
}

QString hiddenObjection(const QString& text) {
  const QString name = hiddenCharacter(text);
  if (name.isEmpty()) return {};
  return QStringLiteral(
             "Textul contine un caracter de control (%1), care nu se vede ! Scrieti-l din nou fara el.")
      .arg(name);
}

QString visibleText(const QString& text) {
  if (std::none_of(text.begin(), text.end(), isHidden)) return text;
  QString visible;
  for (const QChar c : text) visible += isHidden(c) ? QStringLiteral("[%1]").arg(nameOf(c)) : QString(c);
  return visible;
}

QString plainLetters(const QString& text) {
  static const QHash<QChar, QString> kPlain = {
      {u'\u00DF', "ss"}, {u'\u1E9E', "SS"}, {u'\u00C6', "AE"}, {u'\u00E6', "ae"}, {u'\u0152', "OE"},
      {u'\u0153', "oe"}, {u'\u00D8', "O"},  {u'\u00F8', "o"},  {u'\u0141', "L"},  {u'\u0142', "l"},
      {u'\u0110', "D"},  {u'\u0111', "d"},  {u'\u0131', "i"},  {u'\u2018', "'"},  {u'\u2019', "'"},
      {u'\u201A', "'"},  {u'\u201C', "\""}, {u'\u201D', "\""}, {u'\u201E', "\""}, {u'\u00AB', "\""},
      {u'\u00BB', "\""}, {u'\u2010', "-"},  {u'\u2011', "-"},  {u'\u2013', "-"},  {u'\u2014', "-"}};
  QString plain;
  for (const QChar character : text.normalized(QString::NormalizationForm_D)) {
    if (character.isMark()) continue;
    const auto found = kPlain.constFind(character);
    if (found == kPlain.constEnd())
      plain += character;
    else
      plain += *found;
  }
  return plain;
}

QString oneLine(QString text) {
  const auto isBreak = [](QChar c) {
    return (c >= u'\t' && c <= u'\r') || c == QChar(0x85) || c == QChar(0x2028) || c == QChar(0x2029);
  };
  if (std::none_of(text.cbegin(), text.cend(), isBreak)) return text;
  text.replace(QStringLiteral("\r\n"), QStringLiteral(" "));
  std::replace_if(text.begin(), text.end(), isBreak, u' ');
  return text;
}

}  // namespace velmar
