#include "documents/kinds/InvoiceSources.h"

#include "catalogue/ArticleFigures.h"
#include "catalogue/Discounts.h"
#include "config/Checks.h"
#include "config/Lookups.h"
#include "config/Session.h"
#include "documents/KindRules.h"
#include "documents/kinds/PaletSource.h"
#include "documents/kinds/SaleRules.h"
#include "stock/Ledger.h"
#include "stock/Lots.h"
#include "store/Database.h"
#include "store/Records.h"
#include "util/Errors.h"
#include "util/Messages.h"
#include "util/NumberText.h"

namespace velmar {

namespace {

QString currencyOf(const Row& header, const QString& column) {
  const QString currency = header.text(column).trimmed();
  return currency == QStringLiteral("LEI") ? QString() : currency;
}

Row noteHeader(const QString& number) {
  const Recordset found = OpenRs("SELECT CODCLI, CODDeviza FROM G_AECLI WHERE NUMAE = ?", {number});
  return found.isEmpty() ? rowOf("CODCLI CODDeviza") : found.first();
}

QString typedCurrency(const TypedHeader& header) {
  return header.isForeign() ? header.text("CODDeviza") : QString();
}

// The discounts of the customer, a whole number, and of the articles' bands, as stored.
void setDiscounts(std::vector<Row>& lines, const TypedHeader& header) {
  const Decimal ofCustomer(DiscountTert(header.partner()));
  const std::vector<Row> bands = rowsOfKeys(
      "SELECT CODArticol, CantMin, CantMax, Discount FROM \"Articole - Discounturi\" "
      "WHERE CODArticol IN (%1) ORDER BY CODArticol, CantMin, ID_Discount",
      articlesOf(lines));
  for (Row& line : lines) {
    const Decimal quantity = line.decimal("CANT");
    Decimal ofArticle(0);
    for (const Row& band : bands) {
      if (band.text("CODArticol").compare(line.text("CODART"), Qt::CaseInsensitive) != 0) continue;
      if (quantity < band.decimal("CantMin") || quantity > band.decimal("CantMax")) continue;
      ofArticle = band.decimal("Discount");
      break;
    }
    line.set("DiscountClient", ofCustomer);
    line.set("DiscountArticol", ofArticle);
    line.set("ValoareFTCuDiscount",
             discountedLine(line.decimal("PRETFT"), ofArticle, ofCustomer, quantity, session().NrZec)
                 .ValoareFTCuDiscount);
  }
}

// The costs of issues: by lots under FIFO, otherwise at the articles' costs.
void setCosts(std::vector<Row>& lines) {
  const QStringList codes = articlesOf(lines);
  const bool isFifo = TIPCOST() == kFifo;
  OpenLots lots = isFifo ? OpenLots::read(codes) : OpenLots();
  const ArticleTable articles = readArticles(codes);
  for (Row& line : lines) {
    const QString code = line.text("CODART");
    const Decimal quantity = line.decimal("CANT");
    const Decimal cost =
        isFifo ? Round(lots.costFIFO(code, quantity, CostFollows::LotWithRemainder).value, kCostDecimals)
               : quantity * articles.of(code).figures.COST;
    line.set("COST", cost);
  }
}

void calculate(std::vector<Row>& lines, const Document& document, const TypedHeader& header) {
  for (Row& line : lines) document.kind->rules->applyRate(line, header);
}

class NoteSource : public LineSource {
 public:
  NoteSource()
      : LineSource(KindId::DeliveryNote, {"TDBGrid3", "fraAvize", "Lista avize nefacturate", "NUMAE",
                                          "DATAAE", "Client", "Nu exista avize de facturat."}) {}

  bool isShown(const Document& /*document*/) const override { return session().gModFactura == kFromNotes; }

  Recordset offer(const Document& /*document*/) const override {
    return OpenRs(
        "SELECT A.NUMAE AS NUMAE, A.DATAAE AS DATAAE, T.NUME AS NUME FROM G_AECLI A INNER JOIN kt_ter T "
        "ON A.CODCLI = T.COD WHERE A.FACTURAT = 0 AND A.VALIDAT <> 0 AND A.Magazie = ? "
        "ORDER BY A.DATAAE NULLS FIRST, A.NUMAE",
        {session().gMagazie});
  }

  Checks checks(const QString& number) const override {
    Checks checks = addedToStored("Va rugam selectati o factura pentru adaugarea avizului !",
                                  "Va rugam salvati mai intai factura !");
    Check fromOrder =
        refusedWhen("Nu se poate adauga avizul la o factura provenita din comanda client!", {},
                    [](const Document& document) { return comesFrom(document, KindId::CustomerOrder); });
    fromOrder.title = QStringLiteral("Atentie!");
    checks.push_back(fromOrder);
    checks.push_back(refusedWhen("Avizul este al altui client sau in alta deviza !", {},
                                 [number](const Document& document) {
                                   const Row note = noteHeader(number);
                                   return !document.lines.empty() &&
                                          (note.integer("CODCLI") != document.typed().partner() ||
                                           currencyOf(note, "CODDeviza") != typedCurrency(document.typed()));
                                 }));
    checks.push_back(sureToAdd("avizul", number));
    checks.push_back(askedAgain(
        QStringLiteral("Avizul cu numarul %1 a fost deja adaugat la factura %2! Readaugati acest aviz ?"),
        QStringLiteral("Avizul cu numarul %1 a fost deja adaugat la o factura ! Readaugati acest aviz ?"),
        number, "AVIZFACTURA", "aefactura"));
    return checks;
  }

  AddedLines lines(const Document& document, TypedHeader& header, const QString& number) const override {
    if (document.lines.empty()) takeOver(noteHeader(number), header);
    const bool isFifo = TIPCOST() == kFifo;
    AddedLines added;
    const std::vector<Row> open =
        OpenRs(
            "SELECT CODART, DENUMIRE, UM, CANT, CANTRAMAS, PRETFT, PRIXUV, VALOARECOST, DiscountClient, "
            "DiscountArticol, ValoareFTCuDiscount FROM G_LAECLI WHERE NUMAE = ? AND CANTRAMAS > 0 "
            "ORDER BY NRLINIE",
            {number})
            .takeRows();
    const ArticleTable articles = isFifo ? ArticleTable() : readArticles(articlesOf(open));
    for (const Row& from : open) {
      Row line = companyTable(document.kind->lineTable).emptyRow();
      for (const char* column :
           {"CODART", "DENUMIRE", "UM", "PRETFT", "DiscountClient", "DiscountArticol", "ValoareFTCuDiscount"})
        line.set(column, Value::raw(from.value(column)));
      const Decimal quantity = from.decimal("CANTRAMAS");
      line.set("CANT", quantity);
      line.set("CANTAVIZ", quantity);
      line.set("PRETVALUTA", from.decimal("PRIXUV"));
      line.set("NUMAE", LedgerKey{KindId::DeliveryNote, number}.text());
      const Decimal delivered = from.decimal("CANT");
      line.set("COST", isFifo ? Round(from.decimal("VALOARECOST") * quantity /
                                          (delivered.isZero() ? Decimal(1) : delivered),
                                      kCostDecimals)
                              : quantity * articles.of(from.text("CODART")).figures.COST);
      added.lines.push_back(std::move(line));
    }
    calculate(added.lines, document, header);
    return added;
  }

  bool allowsTypedLines() const override { return false; }

 private:
  // An invoice without lines becomes one for the note's customer in the note's currency.
  static void takeOver(const Row& note, TypedHeader& header) {
    if (note.isNull("CODCLI")) return;
    header.set("CODCLI", note.text("CODCLI"));
    const QString currency = currencyOf(note, "CODDeviza");
    if (currency == typedCurrency(header)) return;
    const Decimal rate = currency.isEmpty() ? Decimal(0) : Curs(currency, header.date());
    header.set("chkDeviza", currency.isEmpty() ? QString() : QStringLiteral("-1"));
    header.set("CODDeviza", currency);
    header.set("Curs", rate.isZero() ? QString() : editNumber(rate, kRateDecimals));
  }
};

class OrderSource : public LineSource {
 public:
  OrderSource()
      : LineSource(KindId::CustomerOrder, {"TDBGrid4", "fraComenzi", "Lista comenzi nefacturate", "NUMCOM",
                                           "DATACOM", "Client", "Nu exista comenzi de facturat."}) {}

  bool isShown(const Document& /*document*/) const override { return session().gModFactura != kFromNotes; }

  bool isEnabled(const Document& document) const override {
    return comesFrom(document, KindId::DeliveryNote) || session().gModFactura == kFromOrders;
  }

  Recordset offer(const Document& document) const override {
    return OpenRs(
        "SELECT C.NUMCOM AS NUMCOM, C.DATACOM AS DATACOM, T.NUME AS NUME FROM G_COMCLI C INNER JOIN kt_ter T "
        "ON C.CODCLI = T.COD WHERE C.Magazie = ? AND C.NUMCOM IN (SELECT O.NUMCOM FROM G_COMCLI O "
        "WHERE O.CODCLI = ? AND O.VALIDAT <> 0 AND EXISTS (SELECT 1 FROM G_LCOMCL L WHERE L.NUMCOM = "
        "O.NUMCOM AND L.CANT - COALESCE(L.CANTLIV, 0) <> 0) "
        "UNION SELECT ID_Comanda FROM G_FACTURI_COMENZI_CLIENTI WHERE ID_Factura = ?) "
        "ORDER BY C.DATACOM NULLS FIRST, C.NUMCOM",
        {session().gMagazie, document.typed().partner(), document.number});
  }

  Checks checks(const QString& number) const override {
    Checks checks = addedToStored("Va rugam selectati o factura pentru adaugarea comenzii !",
                                  "Va rugam salvati mai intai factura !");
    checks.push_back(
        refusedWhen("Nu se poate adauga comanda la o factura provenita din aviz de expeditie!", {},
                    [](const Document& document) { return comesFrom(document, KindId::DeliveryNote); }));
    checks.push_back(sureToAdd("comanda", number));
    return checks;
  }

  AddedLines lines(const Document& document, TypedHeader& header, const QString& number) const override {
    AddedLines added{.lines = {}, .replaces = true};
    const Decimal rate = header.rate();
    for (const Row& from :
         OpenRs("SELECT CODART, DENUMIRE, UM, PRIXUV, SUM(CANT - COALESCE(CANTLIV, 0)) AS Cantitate, "
                "SUM((CANT - COALESCE(CANTLIV, 0)) * PRETFT) AS Valoare FROM G_LCOMCL WHERE NUMCOM = ? "
                "GROUP BY CODART, DENUMIRE, UM, PRIXUV ORDER BY MIN(NRLINIE)",
                {number})
             .takeRows()) {
      const Decimal quantity = Round(from.decimal("Cantitate"), 3);
      if (quantity <= 0) continue;
      Row line = companyTable(document.kind->lineTable).emptyRow();
      for (const char* column : {"CODART", "DENUMIRE", "UM"})
        line.set(column, Value::raw(from.value(column)));
      const Decimal value = from.decimal("Valoare");
      line.set("CANT", quantity);
      line.set("CANTAVIZ", quantity);
      line.set("PRETVALUTA", from.decimal("PRIXUV"));
      line.set("PRETFT", (header.isForeign() && !rate.isZero() ? value / rate : value) / quantity);
      line.set("NUMAE", LedgerKey{KindId::CustomerOrder, number}.text());
      added.lines.push_back(std::move(line));
    }
    setDiscounts(added.lines, header);
    setCosts(added.lines);
    calculate(added.lines, document, header);
    return added;
  }

  void added(const Document& document, const QString& number) const override {
    emptied(document.number);
    ExecutaSql("INSERT INTO G_FACTURI_COMENZI_CLIENTI (ID_Factura, ID_Comanda) VALUES (?, ?)",
               {document.number, number});
  }

  void emptied(const QString& document) const override {
    ExecutaSql("DELETE FROM G_FACTURI_COMENZI_CLIENTI WHERE ID_Factura = ?", {document});
  }
};

class InvoicePalet : public PaletSource {
 public:
  // That goods of the palet have left is checked with the header.
  Checks checks(const QString& /*palet*/) const override { return {}; }

 protected:
  void complete(Row& line, const Row& entry, const TypedHeader& header) const override {
    const Decimal inCurrency = entry.decimal("PRETVFTDEV");
    line.set("PRETFT", header.isForeign() ? inCurrency : entry.decimal("PRETVFT"));
    line.set("PRETVALUTA", inCurrency);
    line.set("COST", entry.decimal("COST") * entry.decimal("CANT"));
  }

  void completeAll(std::vector<Row>& lines, const Document& document,
                   const TypedHeader& header) const override {
    setDiscounts(lines, header);
    calculate(lines, document, header);
  }
};

}  // namespace

std::vector<const LineSource*> invoiceSources() {
  static const NoteSource notes;
  static const OrderSource orders;
  static const InvoicePalet palet;
  return {&notes, &orders, &palet};
}

bool comesFromNotes(const Document& document) { return comesFrom(document, KindId::DeliveryNote); }

Quantities orderedBy(const Document& document) {
  Quantities ordered;
  if (document.number.isEmpty()) return ordered;
  for (const SourceLine& line : readSources(ordersOf(document.number))) ordered.add(line.article, line.open);
  return ordered;
}

}  // namespace velmar
