// Repair vouchers: which device came in with which fault, and the parts that were used.
#pragma once

#include "store/Filter.h"
#include "store/ListRows.h"

namespace velmar {

/// The vouchers whose patient and device exist: the columns of G_BonReparatii, `Client`, `Aparat`, `Tip` and
/// `DataTerm` (the date of a finished one).
extern const ListQuery kVouchers;
QList<FilterField> voucherFilter();

Row storedVoucher(qint64 voucher);
/// A new voucher: today, under guarantee, with the next number.
Row newVoucher();
/// Adds the header and returns its key, or writes the columns that differ from `shown`. Throws RuleError,
/// naming the column, when a field is empty, the number is taken, or the voucher is validated;
/// ChangedMeanwhile when another workstation has changed these columns.
qint64 addVoucher(const Row& header);
void saveVoucher(const Row& header, const Row& shown);
/// Deletes a draft with its lines. Throws RuleError when it is validated, or when it is or was on an
/// invoice.
void removeVoucher(qint64 voucher);

/// Devices that the patient ordered: CODART, DENART, TIP, SERIE, the last order first; each device once.
Recordset devicesOf(qint64 patient);

/// ID_DetaliuBon, ID_Articol, Articol, Cant, PretUnitar, Valoare, Cost.
std::vector<Row> voucherLines(qint64 voucher);
Row emptyVoucherLine();
/// Sets Valoare to quantity times price.
void computeVoucherLine(Row& line);
/// As those of an invoice.
qint64 addVoucherLine(qint64 voucher, const Row& line);
void saveVoucherLine(qint64 voucher, const Row& line, const Row& shown);
void removeVoucherLine(qint64 voucher, qint64 line);

/// Throws RuleError when the repair is not finished, or finished before the device came in or before the
/// entry period.
void requireFinished(const Row& header);

/// Validates the draft: ledger, stock, lots, and under guarantee the note. `header` and `lines` are as they
/// were shown. Throws RuleError for a violated rule or a draft that another user has changed.
void validateVoucher(const Row& header, const std::vector<Row>& lines);

}  // namespace velmar
