// The identity of a validated document: its kind, its number and, for a transfer, its side.
#pragma once

#include <optional>
#include <QString>
#include <vector>

namespace velmar {

/// All kinds of documents that the ledger contains.
enum class KindId {
  CustomerInvoice,
  CashSale,
  DeliveryNote,
  Proforma,
  CustomerOrder,
  SupplierOrder,
  SupplierInvoice,
  ImportInvoice,
  ReceiptNote,
  InputVoucher,
  ConsumptionVoucher,
  Transfer,
  Storno,
  // Of the hearing-device trade (IsAudio). Their prefixes are those of other kinds.
  DeviceInvoice,
  DeviceStorno,
  RepairVoucher
};

/// What the ledger knows about a kind.
struct LedgerKind {
  KindId id;
  QString prefix;           ///< two characters: TIP, and the beginning of the key
  bool isAudio = false;     ///< of the hearing-device trade
  bool receives = false;    ///< its lines with a positive quantity create lots
  bool takesBack = false;   ///< its lines with a negative quantity that have a remainder create lots: goods
                            ///< returned by a customer, or found while others are missing
  bool lotsAtCost = false;  ///< its lots are valued at their cost; others at their price
  bool takesLots = false;   ///< under FIFO its issues take from lots
  bool hasSides = false;    ///< it has two ledger documents
};

const std::vector<LedgerKind>& ledgerKinds();
const LedgerKind& ledgerKind(KindId id);
/// The kind with that prefix, case insensitive; null when there is none.
const LedgerKind* findLedgerKind(const QString& prefix, bool isAudio = false);

enum class LedgerSide { None, Issue, Receipt };

struct LedgerKey {
  KindId kind = KindId::CustomerInvoice;
  QString number;
  LedgerSide side = LedgerSide::None;

  /// G_DOCUME.ID: prefix, number, and "E" or "I" for a side.
  QString text() const;
  QString prefix() const { return ledgerKind(kind).prefix; }
  /// The key of that text; empty when the text is not that of any kind.
  static std::optional<LedgerKey> of(const QString& text, bool isAudio = false);
};

/// SQL: the key of a document without sides, as an expression on a column with its number.
QString keyExpression(KindId kind, const QString& numberColumn);
/// SQL: the number in a key.
QString numberExpression(const QString& keyColumn, bool hasSide = false);
/// SQL: the prefixes of the kinds with that fact, as a list for IN.
QString prefixesOf(bool LedgerKind::*fact);

}  // namespace velmar
