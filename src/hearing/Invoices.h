// Invoices of hearing devices: drafts made of orders, of repair vouchers, and of typed lines, and their
// validation.
#pragma once

#include "accounting/Notes.h"
#include "catalogue/ArticleFigures.h"
#include "store/Filter.h"
#include "store/ListRows.h"

namespace velmar {

/// What an invoice is made from.
enum class BilledBy {
  WorkPoint = 1,  ///< orders, to a customer that sold them on
  Voucher = 2,    ///< repair vouchers
  Insurer = 3,    ///< orders, to an insurer for one work point
  Patient = 4     ///< orders, to a customer or patient
};

/// The drafts: ID_Factura, Data, Nr, Client. The condition separates those of an insurer by work point from
/// the others.
extern const ListQuery kInvoiceDrafts;
Condition draftsOf(BilledBy by);

/// The lists of the window.
QString clientsSql(BilledBy by);
const QString& workPointsSql();

Row storedInvoice(qint64 invoice);
/// The header of a new invoice: today, due a month later, VAT of 19 percent.
Row newInvoice();

/// Adds the header and returns its key, or writes the columns that differ from `shown` (storedInvoice). A
/// changed VAT rate recomputes typed lines and those of vouchers. Throws RuleError, naming the column, when a
/// field is empty, the number is taken, or the client or the work point of an invoice with orders or vouchers
/// differs; ChangedMeanwhile when another workstation has changed these columns.
qint64 addInvoice(const Row& header, BilledBy by);
void saveInvoice(const Row& header, BilledBy by, const Row& shown);
/// Deletes a draft with its lines; its orders and vouchers are free again.
void removeInvoice(qint64 invoice);

/// ID_Detaliu, ID_Articol, Articol, Cant, PretUnitar, Valoare, TVA, Total, Cost, DinComanda.
std::vector<Row> invoiceLines(qint64 invoice);
/// An empty line with these columns.
Row emptyInvoiceLine();
/// The line with an article: its name, the quantity 1 and its sale price.
Row lineWithArticle(Row line, const QString& article);
/// Recomputes Valoare, TVA (2 decimals, half to even) and Total from quantity and price.
void computeLine(Row& line, const Decimal& vatPercent);
/// Stores a new line or a changed one (`shown`) and the totals of the header. Throws RuleError when the
/// invoice is no longer a draft or the line was changed by another workstation.
qint64 addInvoiceLine(qint64 invoice, const Row& line);
void saveInvoiceLine(qint64 invoice, const Row& line, const Row& shown);
/// Also throws for a line of orders or vouchers: detachOrder() and detachVoucher() remove these.
void removeInvoiceLine(qint64 invoice, qint64 line);

/// What can be billed to the client of the invoice, and is not on another one: ID_Comanda, Data, Nr, Client,
/// Inchisa ("Da": on this invoice).
Recordset billableOrders(const Row& invoice, BilledBy by);
/// ID_BonReparatie, DataTerminare, Nr, Client, Inchis, Validat.
Recordset billableVouchers(const Row& invoice);
/// Puts the order or voucher on the draft, or takes it off, and makes the lines of all of them anew, in one
/// transaction. Throws RuleError when another workstation has put it on an invoice, or the voucher is not
/// validated.
void attachOrder(qint64 invoice, qint64 order);
void detachOrder(qint64 invoice, qint64 order);
void attachVoucher(qint64 invoice, qint64 voucher);
void detachVoucher(qint64 invoice, qint64 voucher);
/// Whether the draft has orders or vouchers.
bool hasSources(qint64 invoice);

/// The note of an invoice with these lines and their costs: revenue and VAT in the journal "JV", the expense
/// in "OD", the client on every row. Throws RuleError when an account or an article's family is missing.
std::vector<Note> notesOfInvoice(const Row& header, const std::vector<Row>& lines,
                                 const ArticleTable& articles);

/// Validates the draft: ledger, stock, lots, note; the goods of its vouchers leave with it and no longer with
/// them. `header` and `lines` are as they were shown. Throws RuleError for a violated rule or a draft that
/// another user has changed; nothing is then written.
void validateInvoice(const Row& header, const std::vector<Row>& lines);

}  // namespace velmar
