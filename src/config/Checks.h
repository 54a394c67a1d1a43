// The small questions that windows keep asking before they save: does this exist, is this value in range.
#pragma once

#include <QString>
#include <QVariant>

#include "store/Row.h"

namespace velmar {

/// Whether the company holds the value, by kind ("Cont", "CODARTICOL", "NIR" ...). Kinds are spelled exactly;
/// an unknown one shows a message and gives false.
bool Exista(const QString& value, const QString& kind);

/// The same for links between documents ("AVIZFACTURA", "cfnir" ...). A kind that looks at one document only
/// ignores the second value.
bool Exista2(const QString& first, const QString& second, const QString& kind);

/// What to say of a code that the company does not have, by kind of Exista ("Cont", "CodJurnal", "CodValuta",
/// "CodCentruCost", "CodFamilie", "CodTert"); "" for one that it has and for an empty text.
QString unknownCodeObjection(const QString& code, const QString& kind);

/// Throws RuleError, naming the column, for a code of the row that the company does not have. A code that is
/// the same in `shown`, the row as it was stored, passes.
void requireKnownCode(const Row& row, const QString& column, const QString& kind, const Row& shown = {});

enum ValueKind { kNumberValue = 0, kDateValue = 2 };

/// Whether the typed value is a number or date between the bounds; if not, the reason is shown. Numbers
/// compare as whole numbers. An empty value and every other kind pass; a null bound does not bind.
bool ValidareValoare(const QString& value, int kind, const QVariant& minimum = {},
                     const QVariant& maximum = {});

bool ArticolExista(const QString& code);
bool ProdusFurnizorExista(const QString& code);

}  // namespace velmar
