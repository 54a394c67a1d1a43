// The offer, at login, to bring the structure of a company to that of this program.
#pragma once

#include <functional>

#include "store/clsCompareBD.h"

namespace velmar {

/// Gives, when the work begins, who hears of its progress until it ends.
using ShowProgress = std::function<clsCompareBD::Progress()>;

/// Asks whether the open company's structure shall be brought up to date when another revision of the program
/// left it, or when `force` tells so. The login goes on whatever the answer and the outcome.
void VerificaVersiune(bool force, const ShowProgress& show = {});

/// Does it, and says how it ended. After an error, or when the user gives up, the company is as it was and
/// the question comes back.
void ActualizeazaStructura(const ShowProgress& show = {});

}  // namespace velmar
