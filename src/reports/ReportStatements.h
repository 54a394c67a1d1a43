// The rows of the reports of stock, sales and orders, from the ledger. All sums are exact to 6 decimals.
// The ledger has documents in a currency unrounded in lei: the amounts of a line of sales or of issues are
// rounded half to even to 2 decimals, as they are shown, so that their sums are those of the shown amounts.
#pragma once

#include "store/Row.h"
#include "util/Progress.h"

namespace velmar {

struct ReportChoice;

/// The first day that counts in a report that loses the one in that control, unless the user takes it in.
QDate firstDay(const ReportChoice& choice, const QString& control);

/// The grouping of sales and issues: "CL" by customer, "MP" by way of payment, else empty.
QString salesGrouping(const ReportChoice& choice);

/// Invoices, cash sales and stornos (these negative) of the period.
Recordset salesRows(const ReportChoice& choice);
/// Lines of issues.
Recordset issueRows(const ReportChoice& choice);
/// Turnover, cost and discounts of customers; stornos count negative.
Recordset customerTurnoverRows(const ReportChoice& choice);
/// Turnover and cost of suppliers.
Recordset supplierTurnoverRows(const ReportChoice& choice);
/// Lines of delivery notes, all or those not invoiced.
Recordset deliveryNoteRows(const ReportChoice& choice);
/// Lines of orders, all or those not delivered; `side`: "Cl" or "Fr"; `partner`: the column to order by.
Recordset orderRows(const ReportChoice& choice, const QString& side, const QString& partner);
/// Opening stock, receipts and issues of articles by warehouse, at the cost of the article.
Recordset stockTrackingRows(const ReportChoice& choice);
/// Articles in stock, with their value at the cost of the lines.
Recordset inventoryRows(const ReportChoice& choice);
/// Stock less what customer orders hold.
Recordset availableRows(const ReportChoice& choice);
/// Lines of sales with their cost. Fills G_DESCAR and reads it in one transaction.
Recordset costOfSalesRows(const ReportChoice& choice, const Progress& progress);

/// Articles with prices; CODEAN is the code where it is a valid EAN-13, else empty.
Recordset labelRows(const ReportChoice& choice);

}  // namespace velmar
