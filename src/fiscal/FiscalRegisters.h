// The supported fiscal registers, by the letter of the company parameter `CasaMarcat`: "D" Datecs, "P" Help
// Micro, "A" ACTIVA, "O" OPTIMA. Each is driven by a command file and an external program, which are in
// settings::driveFolder() or `gCaleAplicatie`.
#pragma once

#include "fiscal/Receipt.h"

namespace velmar {

/// The message for a missing command file of the register, which means that its program is not installed; ""
/// when the file exists. Throws RuleError for an unknown letter.
QString missingCommandFile(const QString& letter);

/// Sends the receipt to the register, and shows errors to the user. For "A" and "O" this waits until the
/// program ends or the user gives up (RegisterWait); for "D" and "P" the receipt counts as printed once the
/// program has started. Nothing is sent for a receipt without lines. The only write to the company is that of
/// missing article identifiers, for "P", in a separate transaction. Throws RuleError for an unknown letter,
/// Cancelled when the user gives up waiting for that write.
ReceiptResult printReceipt(const QString& letter, const Receipt& receipt);

}  // namespace velmar
