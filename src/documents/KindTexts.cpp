#include "documents/KindTexts.h"

namespace velmar {

namespace {

struct Description {
  const char* prefix;
  void (*describe)(DocumentKind& kind);
};

constexpr Description kDescriptions[] = {
    {"FC", describeCustomerInvoice}, {"BS", describeCashSale},           {"AE", describeDeliveryNote},
    {"PR", describeProforma},        {"CC", describeCustomerOrder},      {"CF", describeSupplierOrder},
    {"FF", describeSupplierInvoice}, {"FI", describeImportInvoice},      {"NR", describeReceiptNote},
    {"BI", describeInputVoucher},    {"BC", describeConsumptionVoucher}, {"BT", describeTransfer},
    {"FS", describeStorno},
};

}  // namespace

void describe(DocumentKind& kind) {
  for (const Description& description : kDescriptions)
    if (kind.prefix == QLatin1String(description.prefix)) description.describe(kind);
}

}  // namespace velmar
