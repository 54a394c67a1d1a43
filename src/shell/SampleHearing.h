// The data of the second sample company, a hearing-aid shop: devices, parts, insurers, work points, doctors,
// patients, and half a year of orders, repairs and invoices.
#pragma once

namespace velmar {

/// Fills the open company, which is new, with documents of the half year that ends today, limited by the
/// entry period. The personal numbers of the patients fail their check digit: nobody has them.
void fillHearingCompany();

}  // namespace velmar
