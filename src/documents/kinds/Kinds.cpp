#include "documents/kinds/Kinds.h"

#include <algorithm>

#include "config/Session.h"
#include "util/Errors.h"

namespace velmar {

namespace {

template <typename Matches>
const DocumentKind& found(const QString& name, Matches matches) {
  const auto& kinds = documentKinds();
  const auto kind = std::find_if(kinds.begin(), kinds.end(), matches);
  if (kind == kinds.end()) throw StoreError(0, QStringLiteral("Lipseste felul de document %1").arg(name));
  return *kind;
}

}  // namespace

const std::vector<DocumentKind>& documentKinds() {
  static const std::vector<DocumentKind> kinds{
      customerInvoice(), cashSale(),           deliveryNote(),  proforma(),    customerOrder(),
      storno(),          supplierInvoice(),    importInvoice(), receiptNote(), inputVoucher(),
      supplierOrder(),   consumptionVoucher(), transfer()};
  return kinds;
}

const DocumentKind* findDocumentKind(KindId id) {
  const auto& kinds = documentKinds();
  const auto kind =
      std::find_if(kinds.begin(), kinds.end(), [id](const DocumentKind& each) { return each.id == id; });
  return kind == kinds.end() ? nullptr : &*kind;
}

const DocumentKind& documentKind(KindId id) {
  return found(ledgerKind(id).prefix, [id](const DocumentKind& kind) { return kind.id == id; });
}

const DocumentKind& documentKind(const QString& prefix) {
  return found(prefix, [&prefix](const DocumentKind& kind) {
    return kind.prefix.compare(prefix, Qt::CaseInsensitive) == 0;
  });
}

const QStringList& paymentWords() {
  static const QStringList words{"NUMERAR", "CEC", "OP", "ALTELE"};
  return words;
}

int decimalsOf(int decimals) { return decimals == kSessionDecimals ? session().NrZec : decimals; }

}  // namespace velmar
