// What work points and doctors brought in through invoices to insurers in a month, and their commission.
#pragma once

#include "store/Filter.h"

namespace velmar {

enum class CommissionOf { WorkPoints, Doctors };

/// A row for each work point or doctor and insurer, by their names: PunctLucru, CAS, Valoare (credits of the
/// invoices' notes, lei), Comision (by the percentage of the partner), and the codes ID_PunctLucru, ID_CAS.
/// Notes count by their date, which is in the month of `day`; the filter applies to these columns. A doctor's
/// value counts an invoice once for each of his orders on it; representatives have none.
Recordset commissions(CommissionOf of, const QDate& day, const Condition& filter);

/// What a filter offers.
QList<FilterField> commissionFilter();

}  // namespace velmar
