// The texts, checks, fields and line columns of the kinds, with a source for each group.
#pragma once

#include "documents/DocumentKind.h"

namespace velmar {

/// Completes the kind with its own description.
void describe(DocumentKind& kind);

void describeCustomerInvoice(DocumentKind& kind);
void describeCashSale(DocumentKind& kind);
void describeDeliveryNote(DocumentKind& kind);
void describeProforma(DocumentKind& kind);
void describeCustomerOrder(DocumentKind& kind);
void describeStorno(DocumentKind& kind);

void describeSupplierInvoice(DocumentKind& kind);
void describeImportInvoice(DocumentKind& kind);
void describeReceiptNote(DocumentKind& kind);
void describeInputVoucher(DocumentKind& kind);
void describeSupplierOrder(DocumentKind& kind);

void describeConsumptionVoucher(DocumentKind& kind);
void describeTransfer(DocumentKind& kind);

}  // namespace velmar
