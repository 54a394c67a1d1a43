// What the generators of all registers do alike: report what goes wrong, and run the register's program.
#pragma once

#include <functional>
#include <QString>

#include "fiscal/OutsideProgram.h"
#include "fiscal/Receipt.h"

namespace velmar {

/// Runs a generator. A RuleError is shown as it is, any other Error by what `report` makes of it; in both
/// cases nothing was printed.
ReceiptResult generated(const std::function<ReceiptResult()>& generator,
                        const std::function<QString(const QString& error)>& report);

/// "... in procedura P din Class Module C Linia: n", where n is the number of the receipt's line, from 1, or
/// 0 when the error lies in none.
QString reportOf(const QString& error, const QString& procedure, const QString& module, int line);

/// Throws RuleError with that text, as an information, when there is no file at the path.
void requireProgram(const QString& path, const QString& missing);

/// Starts a program that is not waited for. Throws RuleError as requireProgram() when it cannot be started.
ReceiptResult startRegister(const OutsideCommand& command, const QString& missing);

/// Runs the program to its end. `failed` may know better than its exit code, when it ended well. Throws
/// RuleError when the register was not ready.
ReceiptResult runRegister(const QString& program, const std::function<bool()>& failed = {});

}  // namespace velmar
