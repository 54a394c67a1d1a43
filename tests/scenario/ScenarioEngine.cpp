#include "ScenarioEngine.h"

#include <QFile>
#include <QRegularExpression>
#include <QTimer>

namespace velmar::scenario {

namespace {
constexpr qint64 kLongestSilence = 30000;  // milliseconds that a script may run without a step

// Converts lists of texts to ordinary arrays.
QVariant withPlainLists(const QVariant& value) {
  if (value.typeId() == QMetaType::QStringList || value.typeId() == QMetaType::QVariantList) {
    QVariantList list;
    for (const QVariant& item : value.toList()) list.append(withPlainLists(item));
    return list;
  }
  if (value.typeId() == QMetaType::QVariantMap) {
    QVariantMap map = value.toMap();
    for (QVariant& item : map) item = withPlainLists(item);
    return map;
  }
  return value;
}

}  // namespace

ScenarioEngine::ScenarioEngine(const QString& file, Driver& driver, const Functions& functions)
    : file_(file), driver_(driver), functions_(functions) {
  clock_.start();
  auto* watch = new QTimer(this);
  connect(watch, &QTimer::timeout, this, &ScenarioEngine::watchScript);
  watch->start(1000);
}

// Detects an endless loop in the script, which makes no steps.
void ScenarioEngine::watchScript() {
  QJSEngine* engine = engine_;
  if (engine && !inStep_ && clock_.elapsed() - lastStep_ > kLongestSilence) engine->setInterrupted(true);
}

void ScenarioEngine::run() {
  execute();
  if (verdict_.line == 0) verdict_.line = lastLine_;
  engine_ = nullptr;
}

void ScenarioEngine::execute() {
  verdict_.file = file_;
  QFile script(file_);
  QFile prelude(QStringLiteral(":/scenario/prelude.js"));
  if (!script.open(QIODevice::ReadOnly) || !prelude.open(QIODevice::ReadOnly)) {
    verdict_.failed = true;
    verdict_.what = QStringLiteral("the script cannot be read: ") + script.errorString();
    return;
  }
  QJSEngine engine;
  engine.installExtensions(QJSEngine::ConsoleExtension);
  engine_ = &engine;
  lastStep_ = clock_.elapsed();
  QJSEngine::setObjectOwnership(this, QJSEngine::CppOwnership);
  QJSValue globals = engine.evaluate(QString::fromUtf8(prelude.readAll()), QStringLiteral("prelude.js"));
  QStringList stack;
  QJSValue result = globals.call({engine.newQObject(this), engine.globalObject()});
  if (!result.isError()) result = engine.evaluate(QString::fromUtf8(script.readAll()), file_, 1, &stack);
  if (engine.isInterrupted()) {
    verdict_.failed = true;
    verdict_.what = QStringLiteral("the script made no step for 30 s after this line");
  } else if (result.isError() || !stack.isEmpty()) {
    judge(result, stack);
  } else if (verdict_.checks == 0) {
    verdict_.failed = true;
    verdict_.what = QStringLiteral("the scenario runs no check");
  }
  engine_ = nullptr;
}

void ScenarioEngine::judge(const QJSValue& error, const QStringList& stack) {
  verdict_.failed = true;
  verdict_.line = error.isError() ? lineIn(error.property(QStringLiteral("stack")).toString()) : 0;
  for (int i = 0; verdict_.line == 0 && i < stack.size(); ++i) {
    const QStringList frame = stack[i].split(QChar(u':'));  // function:line:column:file
    if (frame.size() >= 4 && frame.mid(3).join(QChar(u':')).endsWith(file_)) verdict_.line = frame[1].toInt();
  }
  if (verdict_.line == 0 && error.isError())
    verdict_.line = error.property(QStringLiteral("lineNumber")).toInt();
  const QString name = error.property(QStringLiteral("name")).toString();
  const QString message =
      error.isError() ? error.property(QStringLiteral("message")).toString() : error.toString();
  verdict_.what =
      error.isError() && name != QStringLiteral("Error") ? name + QStringLiteral(": ") + message : message;
  if (error.hasProperty(QStringLiteral("expected"))) {
    verdict_.expected = error.property(QStringLiteral("expected")).toString();
    verdict_.actual = error.property(QStringLiteral("actual")).toString();
  }
}

// The innermost position in the scenario's own file.
int ScenarioEngine::lineIn(const QString& stack) const {
  static const QRegularExpression place(QStringLiteral("@(.*):(-?\\d+)$"));
  for (const QString& frame : stack.split(QChar(u'\n'))) {
    const auto match = place.match(frame.trimmed());
    if (match.hasMatch() && match.captured(1).endsWith(file_)) return std::abs(match.captured(2).toInt());
  }
  return 0;
}

QJSValue ScenarioEngine::call(const QString& stack, const QString& name, const QVariantList& arguments) {
  if (const int line = lineIn(stack); line > 0) lastLine_ = line;
  QJSEngine* engine = engine_;
  const auto function = functions_.constFind(name);
  if (function == functions_.constEnd()) {
    engine->throwError(QStringLiteral("%1 is not available").arg(name));
    return {};
  }
  inStep_ = true;
  const Outcome outcome = driver_.run([work = *function, arguments] { return work(arguments); });
  inStep_ = false;
  lastStep_ = clock_.elapsed();
  if (outcome.hung) {
    verdict_.failed = true;
    verdict_.line = lastLine_;
    verdict_.what = QStringLiteral("the program hangs: it was not idle within 30 s");
    emit hung();
    QThread::sleep(3600);
  }
  if (!outcome.error.isEmpty()) {
    engine->throwError(outcome.error);
    return {};
  }
  return outcome.value.isValid() ? engine->toScriptValue(withPlainLists(outcome.value)) : QJSValue();
}

void ScenarioEngine::sleep(int milliseconds) {
  inStep_ = true;
  QThread::msleep(static_cast<unsigned long>(std::max(0, milliseconds)));
  inStep_ = false;
  lastStep_ = clock_.elapsed();
}

}  // namespace velmar::scenario
