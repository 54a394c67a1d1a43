// Single values that windows look up: rates, accounts, exchange rates, what an article is called and costs.
#pragma once

#include <QDate>

#include "store/Database.h"

namespace velmar {

/// A cell as text: numbers in plain notation with a decimal point, null as "".
QString cellText(const QVariant& cell);

/// The first field of the first row as text, "" when there is no row.
QString ValoareSql(const QString& sql, const Values& values = {});

/// The percent of a VAT rate code, 0 when it has none.
Decimal ProcentTVA(qint64 code);
/// The account of a VAT rate code.
QString ContTVA(qint64 code);

/// Decimals in which rates of exchange are typed and shown.
inline constexpr int kRateDecimals = 4;

/// The exchange rate of the day, 0 when there is none; of several the last one entered.
Decimal Curs(const QString& currency, const QDate& date);

/// The value; a null or empty text gives the default, which is 0 when none is given.
QVariant NzGol(const QVariant& value, const QVariant& defaultValue = 0);

/// Whether the date lies in the entry period, both ends counted.
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
