#include "reports/Formula.h"

#include <cmath>
#include <QDate>
#include <QJSEngine>

#include "reports/Shown.h"

namespace velmar::layout {

namespace {

// Rounds to the 15 digits that doubles represent exactly: the error beyond them (0.1 + 0.2) must not decide
// ties or enter sums.
QVariant sureValue(double value) {
  constexpr int kSureDigits = 15;
  if (!std::isfinite(value)) return {};
  return QString::number(value, 'g', kSureDigits).toDouble();
}

/// The functions of formulas in addition to JavaScript's own.
class Functions : public QObject {
  Q_OBJECT
 public:
  Q_INVOKABLE QString data(const QJSValue& value, const QString& pattern) const {
    const QVariant given = value.toVariant();
    const QDateTime moment = dateOf(given);
    return moment.isValid() ? dateText(moment, pattern.isEmpty() ? kDatePattern : pattern) : textOf(given);
  }
  Q_INVOKABLE QString data(const QJSValue& value) const { return data(value, {}); }

  Q_INVOKABLE QString numar(const QJSValue& value, int decimals) const {
    TextStyle style;
    style.format = Format::Number;
    style.decimals = std::clamp(decimals, 0, kMostDecimals);
    return shownText(value.toVariant(), style);
  }
  Q_INVOKABLE QString numar(const QJSValue& value) const { return numar(value, 2); }

  Q_INVOKABLE QJSValue rotunjit(const QJSValue& value, int decimals) const {
    const auto number = numberOf(value.isNumber() ? sureValue(value.toNumber()) : value.toVariant());
    if (!number) return value;
    return Round(*number, std::clamp(decimals, 0, kMostDecimals)).toDouble();
  }
  Q_INVOKABLE QJSValue rotunjit(const QJSValue& value) const { return rotunjit(value, 2); }
};

enum class TokenKind { Name, Text, Number, Sign, Bad };

struct Token {
  TokenKind kind;
  QString text;
  int column;  // from 1
};

bool beginsName(QChar letter) { return letter.isLetter() || letter == u'_' || letter == u'$'; }

// The end of the text literal that begins at `from`, -1 when it is not terminated.
qsizetype endOfText(const QString& formula, qsizetype from) {
  for (qsizetype at = from + 1; at < formula.size(); ++at) {
    if (formula[at] == u'\\')
      ++at;
    else if (formula[at] == formula[from])
      return at + 1;
  }
  return -1;
}

Token tokenAt(const QString& formula, qsizetype from) {
  const QChar first = formula[from];
  const auto token = [&](TokenKind kind, qsizetype end) {
    return Token{kind, formula.mid(from, end - from), static_cast<int>(from) + 1};
  };
  qsizetype end = from + 1;
  if (first == u'"' || first == u'\'') {
    end = endOfText(formula, from);
    return end < 0 ? token(TokenKind::Bad, formula.size()) : token(TokenKind::Text, end);
  }
  if (beginsName(first)) {
    while (end < formula.size() && (beginsName(formula[end]) || formula[end].isDigit())) ++end;
    return token(TokenKind::Name, end);
  }
  if (first.isDigit()) {
    while (end < formula.size() && (formula[end].isLetterOrNumber() || formula[end] == u'.')) ++end;
    return token(TokenKind::Number, end);
  }
  for (const char* sign : {"===", "!==", "==", "!=", "<=", ">=", "&&", "||", "??", "=>", "**", "++", "--"})
    if (QStringView(formula).mid(from).startsWith(QLatin1String(sign)))
      return token(TokenKind::Sign, from + QLatin1String(sign).size());
  return token(TokenKind::Sign, end);
}

std::vector<Token> tokensOf(const QString& formula) {
  std::vector<Token> tokens;
  for (qsizetype at = 0; at < formula.size();) {
    if (formula[at].isSpace()) {
      ++at;
      continue;
    }
    tokens.push_back(tokenAt(formula, at));
    at += tokens.back().text.size();
  }
  return tokens;
}

bool isWordOfTheLanguage(const QString& word) {
  static const QStringList kWords = {"true", "false", "null", "undefined", "NaN", "Infinity", "typeof", "in"};
  return kWords.contains(word);
}

// The functions and properties allowed in formulas: none that can run long, use unlimited memory or execute a
// text as code.
bool isKnownFunction(const QString& name) {
  static const QStringList kFunctions = {"data",   "numar",   "rotunjit",   "Number",
                                         "String", "Boolean", "parseFloat", "isNaN"};
  return kFunctions.contains(name);
}

bool isKnownProperty(const QString& owner, const QString& name) {
  static const QStringList kOfMath = {"round", "floor", "ceil", "trunc", "abs",
                                      "min",   "max",   "sign", "sqrt",  "pow"};
  static const QStringList kOfTexts = {"length",  "toUpperCase", "toLowerCase", "trim",    "substring",
                                       "substr",  "slice",       "charAt",      "indexOf", "includes",
                                       "replace", "startsWith",  "endsWith",    "toFixed"};
  return owner == u"Math" ? kOfMath.contains(name) : kOfTexts.contains(name);
}

/// A token with its neighbours; empty ones at the ends.
struct Place {
  Token before, token, after;
};

// Without loops the work of a formula grows with its length and that of the texts it gets, as replace() gives
// "$" no meaning.
constexpr qsizetype kLongestFormula = 10'000;
constexpr qsizetype kLongestText = 10'000;
const QString kPlainReplace = QStringLiteral(
    "String.prototype.replace = function(from, to) {"
    " const text = String(this), old = String(from), at = text.indexOf(old);"
    " return at < 0 ? text : text.slice(0, at) + String(to) + text.slice(at + old.length); }");

// Refuses tokens with which a formula could do more than compute a value.
std::optional<FormulaFault> forbidden(const Place& place) {
  static const QStringList kSigns = {";", "{", "}", "[", "]", "`", "=>", "++", "--", "\\", "#", "@"};
  static const QStringList kWords = {
      "function", "new",   "delete", "void",     "this",       "class",     "var",    "let",
      "const",    "while", "for",    "do",       "if",         "return",    "import", "export",
      "yield",    "await", "async",  "throw",    "try",        "switch",    "with",   "super",
      "else",     "catch", "case",   "debugger", "instanceof", "arguments", "eval",   "globalThis"};
  const Token& token = place.token;
  const auto fault = [&token](const QString& text) {
    return FormulaFault{QString(text).replace(QStringLiteral("%1"), token.text), token.column};
  };
  if (token.kind == TokenKind::Bad) return fault(QStringLiteral("textul nu este incheiat"));
  if (token.kind == TokenKind::Sign && token.text == u"=")
    return fault(QStringLiteral("o comparatie se scrie \"==\""));
  const bool isProperty = place.before.text == u".";
  if ((token.kind == TokenKind::Sign && kSigns.contains(token.text)) ||
      (token.kind == TokenKind::Name && !isProperty && kWords.contains(token.text)))
    return fault(QStringLiteral("\"%1\" nu poate sta intr-o formula"));
  if (token.kind == TokenKind::Sign && token.text == u"(" &&
      (place.before.text == u")" || place.before.kind == TokenKind::Text ||
       place.before.kind == TokenKind::Number))
    return fault(QStringLiteral("\"%1\" nu este asteptat aici"));
  const bool isCalled = place.after.kind == TokenKind::Sign && place.after.text == u"(";
  if (token.kind == TokenKind::Name && isCalled && !isProperty && !isKnownFunction(token.text))
    return fault(QStringLiteral("functie necunoscuta: %1"));
  return std::nullopt;
}

std::optional<FormulaFault> unknownProperty(const std::vector<Token>& tokens, size_t dot) {
  const Token owner = dot > 0 ? tokens[dot - 1] : Token{TokenKind::Sign, {}, 0};
  if (dot + 1 == tokens.size())
    return FormulaFault{QStringLiteral("formula nu este terminata"), tokens[dot].column};
  const Token& name = tokens[dot + 1];
  if (name.kind == TokenKind::Name && isKnownProperty(owner.text, name.text)) return std::nullopt;
  return FormulaFault{QStringLiteral("functie necunoscuta: %1").arg(name.text), name.column};
}

// An unmatched closing parenthesis would end the function generated from the formula; commas are only allowed
// between arguments.
std::optional<FormulaFault> unbalanced(const std::vector<Token>& tokens) {
  struct Open {
    int column;
    bool isCall;
  };
  std::vector<Open> open;
  for (size_t i = 0; i < tokens.size(); ++i) {
    const Token& token = tokens[i];
    if (token.kind != TokenKind::Sign) continue;
    if (token.text == u"(") {
      open.push_back({token.column, i > 0 && tokens[i - 1].kind == TokenKind::Name});
    } else if (token.text == u")") {
      if (open.empty()) return FormulaFault{QStringLiteral("\")\" nu inchide nimic"), token.column};
      open.pop_back();
    } else if (token.text == u"," && (open.empty() || !open.back().isCall)) {
      return FormulaFault{QStringLiteral("\",\" nu este asteptata aici"), token.column};
    }
  }
  if (open.empty()) return std::nullopt;
  return FormulaFault{QStringLiteral("\"(\" nu este inchisa"), open.back().column};
}

bool isSearch(const Token& token) {
  static const QStringList kSearches = {"indexOf", "includes", "replace"};
  return token.kind == TokenKind::Name && kSearches.contains(token.text);
}

// Characters handled by one evaluation whose texts have at most `longest` characters. A search compares up to
// longest / 2 characters at each of longest / 2 places.
double workOf(double steps, double searches, double longest) {
  return longest * (steps + searches * longest / 4);
}

// Well below a second.
constexpr double kMostWork = 3e8;

// The length of a value as text.
qsizetype lengthOf(const QVariant& value) {
  constexpr qsizetype kLongestNumber = 25;
  return value.typeId() == QMetaType::QString ? value.toString().size() : kLongestNumber;
}

// What a token can add to a text; names add their values.
qsizetype lengthOf(const Token& token) {
  constexpr qsizetype kLongestFixed = 125;  // of toFixed()
  if (token.kind == TokenKind::Number) return lengthOf(QVariant(0));
  if (token.kind == TokenKind::Text) return token.text.size();
  return token.text == u"toFixed" ? kLongestFixed : 1;
}

QStringList namesOf(const std::vector<Token>& tokens) {
  QStringList names;
  for (size_t i = 0; i < tokens.size(); ++i) {
    const Token& token = tokens[i];
    if (token.kind != TokenKind::Name || isWordOfTheLanguage(token.text) || names.contains(token.text))
      continue;
    const bool isProperty = i > 0 && tokens[i - 1].text == u".";
    const bool isCalled = i + 1 < tokens.size() && tokens[i + 1].text == u"(";
    const bool isLibrary = i + 1 < tokens.size() && tokens[i + 1].text == u"." && token.text == u"Math";
    if (!isProperty && !isCalled && !isLibrary) names.append(token.text);
  }
  return names;
}

// Each token is on its own line, so that the engine's line number identifies the token.
QString functionOf(const QStringList& names, const std::vector<Token>& tokens) {
  QStringList lines;
  for (const Token& token : tokens) lines.append(token.text);
  return QStringLiteral("(function(%1) { return (\n%2\n); })").arg(names.join(u','), lines.join(u'\n'));
}

std::optional<FormulaFault> compileFault(const QJSValue& result, const std::vector<Token>& tokens) {
  if (!result.isError()) return std::nullopt;
  constexpr int kLinesBefore = 2;  // the function's head, and line numbers start at 1
  const int token = result.property(QStringLiteral("lineNumber")).toInt() - kLinesBefore;
  const bool isKnown = token >= 0 && token < static_cast<int>(tokens.size());
  const Token& place = isKnown ? tokens[static_cast<size_t>(token)] : tokens.back();
  return FormulaFault{QStringLiteral("formula este gresita la \"%1\"").arg(place.text), place.column};
}

std::optional<FormulaFault> faultBefore(const std::vector<Token>& tokens) {
  if (!tokens.empty() && tokens.back().column > kLongestFormula)
    return FormulaFault{QStringLiteral("formula este prea lunga"), static_cast<int>(kLongestFormula)};
  const Token none{TokenKind::Sign, {}, 0};
  for (size_t i = 0; i < tokens.size(); ++i) {
    const Place place{i > 0 ? tokens[i - 1] : none, tokens[i], i + 1 < tokens.size() ? tokens[i + 1] : none};
    if (auto fault = forbidden(place)) return fault;
    if (tokens[i].kind != TokenKind::Sign || tokens[i].text != u".") continue;
    if (auto fault = unknownProperty(tokens, i)) return fault;
  }
  return unbalanced(tokens);
}

// Dates are passed to JavaScript as texts, which data() parses.
QJSValue scriptValue(const QVariant& value) {
  if (value.isNull()) return QString();
  switch (value.typeId()) {
    case QMetaType::Bool:
      return value.toBool();
    case QMetaType::Double:
    case QMetaType::Float:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
      return value.toDouble();
    default:
      break;
  }
  if (value.metaType() == QMetaType::fromType<Decimal>()) return value.value<Decimal>().toDouble();
  return textOf(value);
}

QVariant valueOf(const QJSValue& result) {
  if (result.isBool()) return result.toBool();
  if (result.isNumber()) return sureValue(result.toNumber());
  if (result.isString()) return result.toString();
  return {};
}

}  // namespace

QStringList namesIn(const QString& formula) { return namesOf(tokensOf(formula)); }

std::optional<FormulaFault> faultOf(const QString& formula) {
  const std::vector<Token> tokens = tokensOf(formula);
  if (tokens.empty()) return std::nullopt;
  if (auto fault = faultBefore(tokens)) return fault;
  static thread_local QJSEngine engine;
  return compileFault(engine.evaluate(functionOf(namesOf(tokens), tokens)), tokens);
}

Formulas::Formulas() : engine_(std::make_unique<QJSEngine>()) {
  const QJSValue functions = engine_->newQObject(new Functions);  // owned by the engine
  for (const QString& name : {QStringLiteral("data"), QStringLiteral("numar"), QStringLiteral("rotunjit")})
    engine_->globalObject().setProperty(name, functions.property(name));
  engine_->evaluate(kPlainReplace);
}

Formulas::~Formulas() {
  compiled_.clear();  // its functions are owned by the engine
}

int Formulas::add(const QString& formula) {
  const std::vector<Token> tokens = tokensOf(formula);
  Compiled compiled;
  compiled.isEmpty = tokens.empty();
  if (!tokens.empty() && !faultBefore(tokens)) {
    compiled.names = namesOf(tokens);
    compiled.isName = tokens.size() == 1 && compiled.names.size() == 1;
    compiled.uses.resize(compiled.names.size());
    for (const Token& token : tokens) {
      if (const qsizetype name = compiled.names.indexOf(token.text); name >= 0) ++compiled.uses[name];
      compiled.length += lengthOf(token);
      if (isSearch(token)) ++compiled.searches;
    }
    compiled.steps = static_cast<qsizetype>(tokens.size());
    if (!compiled.isName) compiled.function = engine_->evaluate(functionOf(compiled.names, tokens));
  }
  compiled_.push_back(std::move(compiled));
  return static_cast<int>(compiled_.size()) - 1;
}

bool Formulas::isTooMuch(const Compiled& compiled, const QVariantList& values) {
  qsizetype longest = compiled.length;
  for (qsizetype i = 0; i < compiled.uses.size() && i < values.size(); ++i)
    longest += compiled.uses[i] * lengthOf(values[i]);
  return workOf(static_cast<double>(compiled.steps), static_cast<double>(compiled.searches),
                static_cast<double>(longest)) > kMostWork;
}

QVariant Formulas::value(int formula, const QVariantList& values) const {
  const Compiled& compiled = compiled_[static_cast<size_t>(formula)];
  if (compiled.isName) return values.value(0);
  if (compiled.isEmpty) return {};
  const auto failed = [this, formula] {
    failed_.insert(formula);
    return QVariant();
  };
  if (!compiled.function.isCallable() || isTooMuch(compiled, values)) return failed();
  QJSValueList arguments;
  arguments.reserve(values.size());
  for (const QVariant& value : values) arguments.append(scriptValue(value));
  const QJSValue result = compiled.function.call(arguments);
  if (result.isError() || (result.isNumber() && !std::isfinite(result.toNumber()))) return failed();
  if (result.isString() && result.toString().size() > kLongestText) return failed();
  return valueOf(result);
}

}  // namespace velmar::layout

#include "Formula.moc"
