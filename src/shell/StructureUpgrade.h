// The offer, at login, to bring the structure of a company to that of this program.
#pragma once

namespace velmar {

/// Asks whether the open company's structure shall be brought up to date when another revision of the program
/// left it, or when `force` tells so. The login goes on whatever the answer and the outcome.
void VerificaVersiune(bool force);

/// Does it, and says how it ended. After an error the company is as it was and the question comes back.
void ActualizeazaStructura();

}  // namespace velmar
