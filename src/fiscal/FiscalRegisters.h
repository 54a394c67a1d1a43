// The fiscal registers that the program knows, by the letter of the company parameter `CasaMarcat`: "D"
// Datecs, "P" Help Micro, "A" ACTIVA, "O" OPTIMA. Each is driven by a command file and an outside program;
// their folders are those of settings::driveFolder() and `gCaleAplicatie`.
#pragma once

#include "fiscal/Receipt.h"

namespace velmar {

/// What to tell the user when the register's command file does not stand, which means that its program is not
/// installed; "" when it stands. Throws RuleError for an unknown letter.
QString missingCommandFile(const QString& letter);

/// Hands the receipt to the register. On "A" and "O" that takes as long as their program runs, which the user
/// may give up (RegisterWait); on "D" and "P" a program that was started counts as a printed receipt. What
/// went wrong has been told to the user when this returns. Nothing is sent for a receipt without lines.
/// Writes nothing to the company but the missing numbers of articles, on "P", in a transaction of its own.
/// Throws RuleError for an unknown letter, Cancelled when the user gives up waiting for that write.
ReceiptResult printReceipt(const QString& letter, const Receipt& receipt);

}  // namespace velmar
