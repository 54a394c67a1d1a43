// Checks that windows make before they save: whether a code exists, whether a value is in range.
#pragma once

#include <QString>
#include <QVariant>

#include "store/Row.h"

namespace velmar {

/// Whether the value exists in the company's database, by kind ("Cont", "CODARTICOL", "NIR" ...). Kinds are
/// case sensitive; an unknown kind shows a message and returns false.
bool Exista(const QString& value, const QString& kind);

/// The same for links between documents ("AVIZFACTURA", "cfnir" ...). Kinds that concern a single document
/// ignore the second value.
bool Exista2(const QString& first, const QString& second, const QString& kind);

/// The message for an unknown code, by kind of Exista ("Cont", "CodJurnal", "CodValuta", "CodCentruCost",
/// "CodFamilie", "CodTert"); "" for a known code and for an empty text.
QString unknownCodeObjection(const QString& code, const QString& kind);

/// Throws RuleError, naming the column, when the row's code is unknown. A code that is unchanged from
/// `shown`, the row as it was stored, is accepted.
void requireKnownCode(const Row& row, const QString& column, const QString& kind, const Row& shown = {});

enum ValueKind { kNumberValue = 0, kDateValue = 2 };

/// Whether the typed value is a number or date between the bounds; if not, the reason is shown. Numbers are
/// compared as whole numbers. Empty values and all other kinds are accepted; a null bound is no limit.
bool ValidareValoare(const QString& value, int kind, const QVariant& minimum = {},
                     const QVariant& maximum = {});

bool ArticolExista(const QString& code);
bool ProdusFurnizorExista(const QString& code);

}  // namespace velmar
