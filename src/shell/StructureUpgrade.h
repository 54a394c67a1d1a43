// The upgrade of a company's structure to that of this program, offered at login.
#pragma once

#include <functional>

#include "store/clsCompareBD.h"

namespace velmar {

/// Called when the work begins; returns the progress callback.
using ShowProgress = std::function<clsCompareBD::Progress()>;

/// Asks whether to upgrade the open company's structure if it was last upgraded by another revision of the
/// program, or if `force` is set. The login continues with any answer and result.
void VerificaVersiune(bool force, const ShowProgress& show = {});

/// Runs the upgrade and shows the result. After an error, or when the user cancels, the company is unchanged
/// and the question is asked again at the next login.
void ActualizeazaStructura(const ShowProgress& show = {});

}  // namespace velmar
