#include "documents/Document.h"

#include "documents/DocumentKind.h"

namespace velmar {

LedgerDocument ledgerOf(const Document& document) {
  const DocumentKind& kind = *document.kind;
  LedgerDocument ledger;
  ledger.key = kind.prefix + document.number;
  ledger.tip = kind.prefix;
  ledger.tipie = kind.tipie;
  ledger.warehouse = document.header.integer("Magazie");
  ledger.add({{"CODTERT", document.header.integer(kind.partnerColumn)},
              {"DATADOC", document.header.date(kind.dateColumn)},
              {"OBS", document.header.text(kind.remarkColumn)}});
  return ledger;
}

void addTotalsInLei(LedgerDocument& ledger, const Decimal& value, const Decimal& vat, const Decimal& cost) {
  ledger.add({{"TOTALTVA", vat},
              {"TOTALFT", value},
              {"TOTALCOST", cost},
              {"CODDEV", "LEI"},
              {"CURS", Decimal(0)},
              {"TOTALDEV", Decimal(0)}});
}

}  // namespace velmar
