#include "fiscal/Generator.h"

#include "config/Session.h"
#include "fiscal/OutsidePath.h"
#include "util/Errors.h"
#include "util/Messages.h"

namespace velmar {

ReceiptResult generated(const std::function<ReceiptResult()>& generator,
                        const std::function<QString(const QString& error)>& report) {
  try {
    return generator();
  } catch (const RuleError& rule) {
    Mesaj(rule.text(), rule.icon());
  } catch (const Error& error) {
    Mesaj(report(error.text()));
  }
  return ReceiptResult::NotPrinted;
}

QString reportOf(const QString& error, const QString& procedure, const QString& module, int line) {
  return QStringLiteral("%1 in procedura %2 din Class Module %3 Linia: %4")
      .arg(error, procedure, module, QString::number(line));
}

void requireProgram(const QString& path, const QString& missing) {
  if (path.isEmpty() || !fileExists(path)) throw RuleError(missing, {}, kInformation);
}

ReceiptResult startRegister(const OutsideCommand& command, const QString& missing) {
  requireProgram(command.program, missing);
  if (!startOutside(command)) throw RuleError(missing, {}, kInformation);
  return ReceiptResult::Printed;
}

ReceiptResult runRegister(const QString& program, const std::function<bool()>& failed) {
  const OutsideEnd end = runOutside({program, {}, session().gCaleAplicatie});
  if (end == OutsideEnd::GivenUp) return ReceiptResult::Unknown;
  if (end == OutsideEnd::Failed || (failed && failed()))
    throw RuleError(QStringLiteral("Casa de marcat nu este pregatita !"));
  return ReceiptResult::Printed;
}

}  // namespace velmar
