// The supplier order.
#include "documents/kinds/OrderRules.h"
#include "documents/kinds/PurchaseWording.h"
#include "documents/LineChecks.h"

namespace velmar {

using namespace wording;

namespace {

class SupplierOrderRules : public OrderRules {
 public:
  void completeLine(Row& line, const Row& article, TypedHeader& /*header*/,
                    Notices& /*notices*/) const override {
    line.set("UM", article.text("UM"));
    line.set("CODPRODFUR", article.text("CODPRODFUR"));
    line.set("DENUMIRE2", article.text("DENALTALIMBA").left(kNameWidth));
    if (line.isNull("CANT")) line.set("CANT", Decimal(0));
    line.set("PRETFT", Round(article.decimal("COST"), 2));
    calculate(line);
  }

  void recalculate(Row& line, const QString& /*changed*/, const TypedHeader& /*header*/,
                   Notices& /*notices*/) const override {
    calculate(line);
  }

  // A currency without a rate on the day has the rate 0.
  void follow(const QString& changed, TypedHeader& header) const override {
    if (changed == QStringLiteral("CODDEV") && header.isForeign() && header.text("CURS").isEmpty())
      header.set("CURS", QStringLiteral("0"));
  }

  QStringList totalColumns() const override { return {"VALOAREFT"}; }

 protected:
  LedgerLine ledgerLine(const Row& line, const PlanInputs& inputs) const override {
    const Decimal price = line.decimal("PRETFT");
    return {.article = line.text("CODART"),
            .quantity = line.decimal("CANT"),
            .price = price,
            .priceWithVat = price,
            .unitCost = price,
            .cost = line.decimal("VALOAREFT"),
            .vatPercent = inputs.vatPercent};
  }

  // All is still to come.
  QStringList openColumns() const override { return {"CANTRLIV"}; }
  Decimal openAtFirst(const Row& line) const override { return line.decimal("CANT"); }

 private:
  void calculate(Row& line) const {
    line.set("VALOAREFT", Round(line.decimal("CANT") * line.decimal("PRETFT"), 2));
    openLine(line);
  }
};

ListingKind listingForm() {
  ListingKind paper{KindId::SupplierOrder, "frmLstCF", "Comenzi Furnizori", "ComenziFurFull"};
  paper.offersCurrency = paper.storesLei = true;
  paper.headerSql =
      "SELECT NUMCOM, CODFUR, BATVA1, OBS, DATACOM, DATALIV, CODDEV AS CODDEVIZA, CURS, CURS AS CURSANT "
      "FROM G_COMFUR WHERE NUMCOM = ?";
  paper.linesSql = printedLines("G_LCOMFU", "NUMCOM");
  paper.partner = kPrintedPartner;
  return paper;
}

}  // namespace

DocumentKind supplierOrder() {
  DocumentKind kind = kindOf(KindId::SupplierOrder, "supplier order", "frmGrilaCOMF");
  static const SupplierOrderRules rules;
  kind.rules = &rules;
  kind.paper = listingForm();
  kind.listsUnknownPartner = true;
  kind.headerTable = "G_COMFUR";
  kind.lineTable = "G_LCOMFU";
  kind.numberColumn = "NUMCOM";
  kind.dateColumn = "DATACOM";
  kind.partnerColumn = "CODFUR";
  kind.remarkColumn = "OBS";
  kind.existsKind = "COMANDAFURNIZOR";
  kind.partnersAreSuppliers = true;
  kind.texts.numberTaken = numberTakenText("Comanda");
  kind.oldestFirst = true;
  kind.headerChecks = {numberEmpty(kind, "comenzii"), supplierEmpty(kind), percentNotPositive("BATVA1"),
                       numberTaken(kind)};
  // It can be validated without a rate: its amounts in currency are then 0.
  kind.validationChecks = {nothingSelected(kind, "Va rugam selectati o comanda !"),
                           noLines("Comanda furnizor")};
  kind.lineChecks = {distinctArticles(), completeLines()};
  kind.printChecks = {nothingSelected(kind, "Va rugam selectati o comanda"), printUnsaved(kind)};
  HeaderField percent = purchaseVatPercent("BATVA1");
  percent.caption = "Cota &TVA ";
  kind.headerFields = {{HeaderFieldType::Number, "NUMCOM", "txtFields(0)", "&Nr. Cmd.", "Numar comanda"},
                       {HeaderFieldType::Date, "DATACOM", "dtpDataFactura", "&Data comanda", ""},
                       {HeaderFieldType::DeliveryDate, "DATALIV", "dtpDataLivrare", "Data &livrarii", ""},
                       supplier("Selectati furnizor in lista de furnizori"),
                       percent};
  kind.headerFields += currencyFields("CODDEV", "CURS");
  kind.headerFields.last().mayBeZero = true;
  kind.headerFields.append(supplierRemark("Maxim 35 caractere", 35));
  kind.lineColumns = leadingColumns(kind);
  kind.lineColumns +=
      QList<LineColumn>{{"CANT", "Cantitate", LineEntry::PositiveNumber, 3, 3, 12},
                        {"PRETFT", "Pret unitar", LineEntry::PositiveNumber, 2, 2, 12},
                        {"VALOAREFT", "Valoare", LineEntry::Locked, 2, kAsTyped, 14},
                        {"CODPRODFUR", "Cod produs furnizor", LineEntry::Locked, -1, kAsTyped, 16},
                        {"DENUMIRE2", "Denumire 2", LineEntry::Locked, -1, kAsTyped, 30}};
  kind.texts.title = "Comenzi Furnizor";
  kind.texts.draftsCaption = "Lista comenzi furnizor";
  setTips(kind.texts, "Creare comanda furnizor noua", "Stergere comanda selectata", "Tiparire comanda");
  kind.texts.validateTip = kRecordTip;
  setQuestions(kind.texts, "comanda", "Va rugam selectati o comanda !");
  kind.texts.validated = "Comanda a fost salvata cu succes in Documente !";
  kind.texts.validatedTitle = "Salvare";
  kind.texts.rateMissing = "Va rog specificati un curs pentru deviza %1";
  kind.texts.unknownArticle = kUnknownArticle;
  return kind;
}

}  // namespace velmar
