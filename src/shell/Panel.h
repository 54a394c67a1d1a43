// The figures of the first page: sales, drafts, articles that run out, late orders.
#pragma once

#include <QDate>

#include "store/Row.h"
#include "util/Decimal.h"

namespace velmar {

struct PanelSales {
  Decimal today;    ///< lei with VAT: invoices and cash sales less stornos
  Decimal month;    ///< from its first day to today
  Decimal weekAgo;  ///< of the same day a week ago
};
PanelSales panelSales(const QDate& today);

/// Kinds of documents with drafts, those of the hearing-device trade included while the company has it: FEL
/// (prefix), FEREASTRA (the window's name), NUMAR.
Recordset panelDrafts();
/// Stocked articles at or below their minimum stock, if that is above 0: CODART, DENART, STOC, STOCMINIM.
Recordset panelShortages();
/// Customer orders past their delivery date with goods left: NUMCOM, NUME, DATALIV, RAMAS (value without
/// VAT).
Recordset panelLateOrders(const QDate& today);

}  // namespace velmar
