// Which orders and repair vouchers are billed on which invoice. A link that is marked (Stornat) belongs to an
// invoice that was cancelled, or to its storno: what it names is free again.
#pragma once

#include "stock/LedgerKey.h"
#include "store/Row.h"

namespace velmar {

/// The amounts of an order that an invoice of the client bills: ID_Comanda, Nr, ID_Dispozitiv, Pret (lei
/// without VAT). The insurer pays the reference price, the work point or else the patient the rest; an amount
/// of 0 is no item.
std::vector<Row> attachedItems(const Row& invoice);
/// The same by device, in the order of the codes: an invoice has one line for each.
struct DeviceAmount {
  QString device;
  Decimal price;       ///< of all its orders
  QStringList orders;  ///< their numbers
};
std::vector<DeviceAmount> attachedDevices(const Row& invoice);
/// The ledger keys of the vouchers of the invoice, marked links included.
std::vector<LedgerKey> attachedVouchers(qint64 invoice);

/// Links the order or the voucher to the draft. Throws RuleError when it is on another invoice, does not
/// exist, (an order) has a device that does not exist, or (a voucher) is not validated or not paid by the
/// patient. The caller has the write lock.
void linkOrder(const Row& invoice, qint64 order);
void linkVoucher(const Row& invoice, qint64 voucher);
void removeLinks(qint64 invoice);

/// Whether the links of a cancelled invoice and of its storno count too.
enum class MarkedLinks { AreFree, Count };
/// The number of an invoice, draft or not, that has the order or the voucher; "" when there is none.
QString invoiceWithOrder(qint64 order, MarkedLinks marked = MarkedLinks::AreFree);
QString invoiceWithVoucher(qint64 voucher, MarkedLinks marked = MarkedLinks::AreFree);

/// Throws RuleError when an order or a voucher of the cancelled invoice is on another invoice, or the voucher
/// is not validated any more.
void requireFreeAgain(const Row& invoice);
/// Throws RuleError, naming the order, when an order of the draft has no line: it would be billed for
/// nothing.
void requireOrdersBilled(const Row& invoice, const std::vector<Row>& lines);
/// Marks the links of the invoice, or takes the mark off.
void markLinks(qint64 invoice, bool isMarked);
/// Copies the links to another invoice, marked.
void copyLinks(qint64 from, qint64 to);

/// Whether another invoice of the trade, or the ledger, has that number for an invoice or a storno.
bool isInvoiceNumberTaken(const QString& number, qint64 own);
const QString& invoiceNumberTakenText();

}  // namespace velmar
