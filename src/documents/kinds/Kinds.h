// The registration of the document kinds. Each is described in a source of its own.
#pragma once

#include "documents/DocumentKind.h"

namespace velmar {

DocumentKind customerInvoice();
DocumentKind cashSale();
DocumentKind deliveryNote();
DocumentKind proforma();
DocumentKind customerOrder();
DocumentKind storno();
DocumentKind supplierInvoice();
DocumentKind importInvoice();
DocumentKind receiptNote();
DocumentKind inputVoucher();
DocumentKind supplierOrder();
DocumentKind consumptionVoucher();
DocumentKind transfer();

/// All 13 kinds.
const std::vector<DocumentKind>& documentKinds();

/// Null for a kind that is none of these.
const DocumentKind* findDocumentKind(KindId id);
/// The kind. Throws StoreError when it is not described.
const DocumentKind& documentKind(KindId id);
/// The kind with that prefix, case insensitive. Throws StoreError when there is none.
const DocumentKind& documentKind(const QString& prefix);

}  // namespace velmar
