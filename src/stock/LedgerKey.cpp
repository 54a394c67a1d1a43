#include "stock/LedgerKey.h"

#include <algorithm>
#include <QStringList>

#include "util/Errors.h"

namespace velmar {

namespace {

constexpr int kPrefixLength = 2;
const QString kIssueSide = QStringLiteral("E");
const QString kReceiptSide = QStringLiteral("I");

}  // namespace

const std::vector<LedgerKind>& ledgerKinds() {
  static const std::vector<LedgerKind> kinds{
      {.id = KindId::CustomerInvoice, .prefix = "FC", .takesBack = true, .takesLots = true},
      {.id = KindId::CashSale, .prefix = "BS", .takesLots = true},
      {.id = KindId::DeliveryNote, .prefix = "AE", .takesLots = true},
      {.id = KindId::Proforma, .prefix = "PR"},
      {.id = KindId::CustomerOrder, .prefix = "CC"},
      {.id = KindId::SupplierOrder, .prefix = "CF"},
      {.id = KindId::SupplierInvoice, .prefix = "FF", .receives = true},
      {.id = KindId::ImportInvoice, .prefix = "FI", .receives = true},
      {.id = KindId::ReceiptNote, .prefix = "NR", .receives = true, .takesBack = true},
      {.id = KindId::InputVoucher, .prefix = "BI", .receives = true},
      {.id = KindId::ConsumptionVoucher, .prefix = "BC", .takesLots = true},
      {.id = KindId::Transfer, .prefix = "BT", .hasSides = true},
      {.id = KindId::Storno, .prefix = "FS", .receives = true, .lotsAtCost = true},
      {.id = KindId::DeviceInvoice, .prefix = "FC", .isAudio = true, .takesLots = true},
      {.id = KindId::DeviceStorno, .prefix = "FS", .isAudio = true},
      {.id = KindId::RepairVoucher, .prefix = "BC", .isAudio = true, .takesLots = true},
  };
  return kinds;
}

const LedgerKind& ledgerKind(KindId id) {
  for (const LedgerKind& kind : ledgerKinds())
    if (kind.id == id) return kind;
  throw StoreError(0, QStringLiteral("Lipseste un fel de document"));
}

const LedgerKind* findLedgerKind(const QString& prefix, bool isAudio) {
  const auto& kinds = ledgerKinds();
  const auto found = std::find_if(kinds.begin(), kinds.end(), [&](const LedgerKind& kind) {
    return kind.isAudio == isAudio && kind.prefix.compare(prefix, Qt::CaseInsensitive) == 0;
  });
  return found == kinds.end() ? nullptr : &*found;
}

QString LedgerKey::text() const {
  const QString whole = prefix() + number;
  switch (side) {
    case LedgerSide::Issue:
      return whole + kIssueSide;
    case LedgerSide::Receipt:
      return whole + kReceiptSide;
    case LedgerSide::None:
      break;
  }
  return whole;
}

std::optional<LedgerKey> LedgerKey::of(const QString& text, bool isAudio) {
  const QString key = text.trimmed();
  const LedgerKind* kind = findLedgerKind(key.left(kPrefixLength), isAudio);
  if (!kind || key.size() <= kPrefixLength) return std::nullopt;
  LedgerKey result{kind->id, key.mid(kPrefixLength)};
  if (!kind->hasSides) return result;
  if (result.number.endsWith(kIssueSide, Qt::CaseInsensitive)) result.side = LedgerSide::Issue;
  if (result.number.endsWith(kReceiptSide, Qt::CaseInsensitive)) result.side = LedgerSide::Receipt;
  if (result.side != LedgerSide::None) result.number.chop(1);
  return result;
}

QString keyExpression(KindId kind, const QString& numberColumn) {
  return QStringLiteral("'%1' || %2").arg(ledgerKind(kind).prefix, numberColumn);
}

QString numberExpression(const QString& keyColumn, bool hasSide) {
  const QString from = QString::number(kPrefixLength + 1);
  return hasSide ? QStringLiteral("SUBSTR(%1, %2, LENGTH(%1) - %2)").arg(keyColumn, from)
                 : QStringLiteral("SUBSTR(%1, %2)").arg(keyColumn, from);
}

QString prefixesOf(bool LedgerKind::*fact) {
  QStringList prefixes;
  for (const LedgerKind& kind : ledgerKinds())
    if (kind.*fact) prefixes.append(QStringLiteral("'%1'").arg(kind.prefix));
  prefixes.removeDuplicates();
  return prefixes.join(QStringLiteral(", "));
}

}  // namespace velmar
