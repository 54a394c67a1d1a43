// Counties, towns, countries and currencies as electronic invoices write them.
#pragma once

#include <QString>

namespace velmar {

/// The text in capitals, without diacritics.
QString plainCapitals(const QString& text);

/// "RO-BH" for a county by its code or name, in any spelling; "" for an unknown one.
QString countyCode(const QString& county);
inline const QString kBucharest = QStringLiteral("RO-B");

/// "SECTOR3": the part of Bucharest, from "sector 3" in one of the texts, or else from the second digit of
/// the post code; "" if neither contains it.
QString bucharestSector(const QStringList& texts, const QString& postCode);

/// The country code: empty is RO, EL is GR.
QString countryCode(const QString& CT);
bool isCountry(const QString& code);
/// Whether it is the code of a currency in use (ISO 4217).
bool isCurrency(const QString& code);
/// Whether the currency is lei: LEI, RON or empty.
bool isLei(const QString& currency);
/// Whether the country is in the European Union, Romania included.
bool isInUnion(const QString& country);
/// The prefix of a VAT code of that country.
QString vatPrefix(const QString& country);

}  // namespace velmar
