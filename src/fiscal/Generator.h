// Common functions of the drivers: error reports and running the register's program.
#pragma once

#include <functional>
#include <QString>

#include "fiscal/OutsideProgram.h"
#include "fiscal/Receipt.h"

namespace velmar {

/// Runs a generator. Shows a RuleError unchanged and any other Error as formatted by `report`; in both cases
/// the result is NotPrinted.
ReceiptResult generated(const std::function<ReceiptResult()>& generator,
                        const std::function<QString(const QString& error)>& report);

/// "... in procedura P din Class Module C Linia: n"; n is the receipt's line, from 1, or 0 when the error
/// does not concern a line.
QString reportOf(const QString& error, const QString& procedure, const QString& module, int line);

/// Throws RuleError with the text `missing` and the information icon when the file does not exist.
void requireProgram(const QString& path, const QString& missing);

/// Starts a program without waiting for its end. Throws as requireProgram() when it cannot be started.
ReceiptResult startRegister(const OutsideCommand& command, const QString& missing);

/// Runs the program and waits for its end. `failed` is an additional check after exit code 0. Throws
/// RuleError when the register was not ready.
ReceiptResult runRegister(const QString& program, const std::function<bool()>& failed = {});

}  // namespace velmar
