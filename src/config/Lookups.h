// Single values that windows look up: VAT rates, accounts, exchange rates, names and costs of articles.
#pragma once

#include <QDate>

#include "store/Database.h"

namespace velmar {

/// A cell as text: numbers in plain notation with a decimal point, null as "".
QString cellText(const QVariant& cell);

/// The first field of the first row as text, "" when there is no row.
QString ValoareSql(const QString& sql, const Values& values = {});

/// The percentage of a VAT rate code; 0 for an unknown code.
Decimal ProcentTVA(qint64 code);
/// The account of a VAT rate code.
QString ContTVA(qint64 code);

/// Percentage and account of a VAT rate code; 0 and "" for an unknown code.
struct VatRate {
  Decimal percent;
  QString account;
};
VatRate vatRate(qint64 code);

/// Decimals of exchange rates in windows.
inline constexpr int kRateDecimals = 4;

/// The exchange rate of the day, 0 when there is none; the last one entered if there are several.
Decimal Curs(const QString& currency, const QDate& date);

/// The value, or the default when the value is null or an empty text.
QVariant NzGol(const QVariant& value, const QVariant& defaultValue = 0);

/// Whether the date is in the entry period, both ends included.
bool InPerioadaCulegere(const QDate& date);

/// The sum of `VALOAREFT` over all rows; the record set is emptied.
Decimal SumaValoareFT(Recordset& recordset);
/// The same of `VALOARETVA`.
Decimal SumaValoareTVA(Recordset& recordset);

/// The unit of an article, "Buc" when there is no such article.
QString UMArticol(const QString& code);
/// The name of the article with that code, or with that supplier's code; "" when there is none.
QString DenumireArticol(const QString& code, bool bySupplierCode);
/// The code of the article with that supplier's code (or, without the flag, with that code); "" when there is
/// none.
QString CodArticolFurnizor(const QString& code, bool bySupplierCode = true);
/// 0 when there is no such article.
Decimal CostArticol(const QString& code);

}  // namespace velmar
