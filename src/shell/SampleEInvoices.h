// Electronic invoices of the sample company, out and in.
#pragma once

namespace velmar {

/// Files of all invoices, sent and accepted but for one that was refused and those of the last days; and two
/// invoices of suppliers, taken over into drafts.
void addSampleEInvoices();

}  // namespace velmar
