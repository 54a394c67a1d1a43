// The customer order.
#include "config/Lookups.h"
#include "config/Session.h"
#include "documents/kinds/OrderRules.h"
#include "documents/kinds/SaleWording.h"
#include "documents/LineChecks.h"
#include "util/NumberText.h"

namespace velmar {

using namespace wording;

namespace {

class CustomerOrderRules : public OrderRules {
 public:
  void completeLine(Row& line, const Row& article, TypedHeader& header, Notices& notices) const override {
    line.set("UM", article.text("UM"));
    if (line.isNull("CANT")) line.set("CANT", Decimal(0));
    line.set("PRETFT", article.decimal("PRETVFT"));
    line.set("PRIXUV", Decimal(0));
    if (header.isForeign()) priceFromCurrency(line, article, header, notices);
    calculate(line, header);
  }

  void recalculate(Row& line, const QString& changed, const TypedHeader& header,
                   Notices& /*notices*/) const override {
    if (changed == QStringLiteral("CANT") || changed == QStringLiteral("PRETFT")) calculate(line, header);
    if (changed == QStringLiteral("VALOARETVA"))
      line.set("VALOARETTI", line.decimal("VALOAREFT") + line.decimal("VALOARETVA"));
  }

  void applyRate(Row& line, const TypedHeader& header) const override { calculate(line, header); }

  QStringList totalColumns() const override { return {"VALOAREFT", "VALOARETVA", "VALOARETTI"}; }

 protected:
  LedgerLine ledgerLine(const Row& line, const PlanInputs& inputs) const override {
    const Decimal price = line.decimal("PRETFT");
    return {.article = line.text("CODART"),
            .quantity = line.decimal("CANT"),
            .price = price,
            .priceWithVat = Round(price * (1 + inputs.vatPercent / 100), inputs.decimals),
            .vat = line.decimal("VALOARETVA"),
            .vatPercent = inputs.vatPercent,
            .rest = line.decimal("CANT")};
  }

  // Nothing is delivered and nothing is on its way.
  QStringList openColumns() const override { return {"CANTLIV", "CANTRLIV"}; }
  Decimal openAtFirst(const Row& /*line*/) const override { return {}; }

 private:
  static void priceFromCurrency(Row& line, const Row& article, const TypedHeader& header, Notices& notices) {
    const Decimal price = article.decimal("PRETDEVIZAVANZ");
    const Decimal rate = Curs(article.text("CODDEVIZAVANZ").trimmed(), header.date());
    if (rate.isZero())
      notices.tell(QStringLiteral("Nu exista curs valutar pentru data de : %1"), formatDate(header.date()));
    else if (price * rate < article.decimal("PRETVFT"))
      notices.tell(QStringLiteral("Pretul de vanzare stabilit in valuta este mai mic decat pretul in lei !"));
    line.set("PRIXUV", price);
    line.set("PRETFT", Round(price * rate, session().NrZec));
  }

  void calculate(Row& line, const TypedHeader& header) const {
    const int decimals = session().NrZec;
    const Decimal value = Round(line.decimal("PRETFT") * line.decimal("CANT"), decimals);
    const Decimal vat = Round(value * header.vatPercent() / 100, decimals);
    line.set("VALOAREFT", value);
    line.set("VALOARETVA", vat);
    line.set("VALOARETTI", value + vat);
    openLine(line);
  }
};

ListingKind listingForm() {
  ListingKind paper{KindId::CustomerOrder, "frmLstCC", "Comenzi Clienti", "ComenziCLIFull"};
  paper.offersCurrency = paper.storesLei = true;
  paper.headerSql =
      "SELECT NUMCOM, CODCLI, BATVA1, OBS, DATACOM, DATALIV, CODDEV AS CODDEVIZA, CURS, CURS AS CURSANT "
      "FROM G_COMCLI WHERE NUMCOM = ?";
  paper.linesSql = printedLines("G_LCOMCL", "NUMCOM");
  paper.partner = printedCustomer({"JUDET", "REGCOM", "CT"});
  return paper;
}

}  // namespace

DocumentKind customerOrder() {
  DocumentKind kind = kindOf(KindId::CustomerOrder, "customer order", "frmGrilaCOMC");
  static const CustomerOrderRules rules;
  kind.rules = &rules;
  kind.paper = listingForm();
  kind.headerTable = "G_COMCLI";
  kind.lineTable = "G_LCOMCL";
  kind.isSale = true;
  kind.numberColumn = "NUMCOM";
  kind.dateColumn = "DATACOM";
  kind.partnerColumn = "CODCLI";
  kind.remarkColumn = "OBS";
  kind.existsKind = "COMANDACLIENT";
  kind.texts.numberTaken = numberTakenText("Comanda");
  kind.headerChecks = {numberEmpty(kind, "comenzii"), customerEmpty(kind), percentNotPositive("BATVA1"),
                       numberTaken(kind)};
  kind.validationChecks = {nothingSelected(kind, "Va rugam selectati o comanda !"),
                           currencyWithoutRate("CURS"), noLines("Comanda")};
  kind.lineChecks = {distinctArticles(), completeLines()};
  kind.printChecks = {nothingSelected(kind, "Va rugam selectati o comanda"), printUnsaved(kind)};
  kind.headerFields = {{HeaderFieldType::Number, "NUMCOM", "txtFields(0)", "&Numar comanda", kNumberTip},
                       {HeaderFieldType::Date, "DATACOM", "dtpDataDocument", "&Data comanda", ""},
                       {HeaderFieldType::DeliveryDate, "DATALIV", "dtpDataLivrare", "Data &livrarii", ""},
                       customer(kind),
                       vatPercent("BATVA1", "19")};
  kind.headerFields += currencyFields("CODDEV", "CURS");
  kind.headerFields.append({HeaderFieldType::Remark, "OBS", "txtFields(3)", "&Observatii",
                            "Introduceti maxim 35 caractere", "", "", 35});
  kind.lineColumns = leadingColumns(kind);
  kind.lineColumns +=
      QList<LineColumn>{{"CANT", "Cantitate", LineEntry::PositiveNumber, 3, 3, 12},
                        price("PRETFT", "Pret unitar", LineEntry::PositiveNumber, kSessionDecimals),
                        value("VALOAREFT", "Valoare"),
                        {"VALOARETVA", "Valoare TVA", LineEntry::PositiveNumber, kSessionDecimals, 2, 14},
                        value("VALOARETTI", "Valoare Totala"),
                        price("PRIXUV", "Pret unitar valuta", LineEntry::PositiveNumber)};
  kind.texts.title = "Comenzi Client";
  kind.texts.draftsCaption = "Lista comenzi client";
  setTips(kind.texts, "Creare comanda client noua", "Stergere comanda selectata", "Tiparire comanda");
  kind.texts.validateTip = kRecordTip;
  setQuestions(kind.texts, "comanda", "Va rugam selectati o comanda !");
  kind.texts.validated = "Comanda a fost salvata cu succes in Documente !";
  kind.texts.validatedTitle = "Salvare";
  return kind;
}

}  // namespace velmar
