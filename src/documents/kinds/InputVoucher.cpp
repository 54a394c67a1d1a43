// The input voucher: the company's own products are received into stock, without a supplier invoice.
#include "documents/KindRules.h"
#include "documents/kinds/PurchaseWording.h"

namespace velmar {

using namespace wording;

namespace {

class InputVoucherRules : public KindRules {
 public:
  void completeLine(Row& line, const Row& article, TypedHeader& /*header*/,
                    Notices& /*notices*/) const override {
    line.set("UM", article.text("UM"));
    if (line.isNull("CANT")) line.set("CANT", Decimal(0));
    line.set("PRETFT", Round(article.decimal("COST"), 2));
    line.set("PRETVA", article.decimal("PRETVFT"));
    calculate(line);
  }

  void recalculate(Row& line, const QString& changed, const TypedHeader& /*header*/,
                   Notices& /*notices*/) const override {
    if (changed == QStringLiteral("CANT") || changed == QStringLiteral("PRETFT")) calculate(line);
  }

  QStringList totalColumns() const override { return {"VALOAREFT"}; }

  Effects effects(const Document& document, const PlanInputs& /*inputs*/) const override {
    Effects effects;
    effects.lines = document.lines;
    LedgerDocument ledger = ledgerOf(document);
    const Decimal vat = document.header.decimal("BATVA");
    for (const Row& line : document.lines) {
      const QString article = line.text("CODART");
      const Decimal quantity = line.decimal("CANT");
      const Decimal cost = line.decimal("PRETFT");
      const Decimal value = line.decimal("VALOAREFT");
      ledger.value += value;
      ledger.lines.push_back({.article = article,
                              .quantity = quantity,
                              .price = cost,
                              .priceWithVat = cost,
                              .unitCost = cost,
                              .cost = value,
                              .vatPercent = vat,
                              .rest = quantity,
                              .salePrice = optionalDecimal(line, "PRETVA")});
      effects.stock.push_back({article, quantity, cost, line.decimal("PRETVA"), StockRule::ReceiptByMargin});
    }
    ledger.cost = ledger.value;
    effects.ledger = {std::move(ledger)};
    effects.notes = {{.totals = {{"CONTSTOCPROD"}, lineValue},
                      .journalParameter = "JURBONINTR",
                      .perGroup = {{Side::Debit, {Account::From::Totals, "CONTSTOCPROD"}},
                                   {Side::Credit, {Account::From::Parameter, "CONTINTRPROD"}}}}};
    return effects;
  }

 private:
  static void calculate(Row& line) {
    line.set("VALOAREFT", Round(line.decimal("CANT") * line.decimal("PRETFT"), 2));
  }
};

ListingKind listingForm() {
  ListingKind paper{KindId::InputVoucher, "frmLstBonIntr", "Bon de intrare", "BonIntrare"};
  paper.headerSql = "SELECT F.NUMNR, F.CODFUR, F.BATVA, F.OBS, F.DATANR FROM G_BONINT AS F WHERE F.NUMNR = ?";
  paper.linesSql = printedLines("G_LBONINT", "NUMNR");
  paper.partner = kPrintedPartner;
  return paper;
}

}  // namespace

DocumentKind inputVoucher() {
  DocumentKind kind = kindOf(KindId::InputVoucher, "input voucher", "frmGRILABonIntr");
  kind.headerTable = "G_BONINT";
  kind.lineTable = "G_LBONINT";
  kind.numberColumn = "NUMNR";
  kind.dateColumn = "DATANR";
  kind.partnerColumn = "CODFUR";
  kind.remarkColumn = "OBS";
  kind.tipie = "I";
  kind.existsKind = "BONINT";
  kind.partnersAreSuppliers = true;
  kind.lineCheck.salePrice = "PRETVA";
  kind.texts.numberTaken = numberTakenText("Bonul de intrare");
  static const InputVoucherRules rules;
  kind.rules = &rules;
  kind.posted = {postedDebit("D.TOTALFT")};
  kind.paper = listingForm();
  kind.headerChecks = {numberEmpty(kind, "N.I.R."), supplierEmpty(kind), percentNotPositiveOrEmpty("BATVA"),
                       numberTaken(kind)};
  kind.validationChecks = {nothingSelected(kind, "Va rugam selectati un bon de intrare !"),
                           beforeFiscalYear(kind), noLines("Bonul de intrare")};
  kind.lineChecks = {distinctArticles(), salePricesNotBelowCost(), completeLines()};
  kind.articleList = "TR";
  kind.printChecks = {nothingSelected(kind, "Nu este selectat nici un Bon intrare"),
                      printWithoutPartner(kind, "Nu este selectat nici un furnizor"), printUnsaved(kind)};
  kind.headerFields = {
      {HeaderFieldType::Number, "NUMNR", "txtFields(0)", "&Numar", "Introduceti maxim 20 caractere"},
      {HeaderFieldType::Date, "DATANR", "dtpDataDoc", "&Data Bon", ""},
      supplier("Selectati furnizor in lista de furnizori"),
      vatPercent("BATVA"),
      {HeaderFieldType::Remark, "OBS", "txtFields(3)", "&Observatii", "Introduceti maxim 45 caractere"}};
  kind.lineColumns = leadingColumns(kind);
  kind.lineColumns +=
      QList<LineColumn>{{"CANT", "Cantitate", LineEntry::PositiveNumber, 3, 3, 12},
                        {"QTECOM", "Cant. comandata", LineEntry::PositiveNumber, 3, 3, 12},
                        {"PRETFT", "Pret unitar", LineEntry::PositiveNumber, 2, 2, 12},
                        {"VALOAREFT", "Valoare", LineEntry::Locked, 2, kAsTyped, 14},
                        {"PRETVA", "Pret vanzare", LineEntry::OptionalPositive, 2, kAsTyped, 12}};
  kind.texts.title = "Bon de intrare";
  kind.texts.draftsCaption = "Lista Bonuri Intrare";
  setTips(kind.texts, "Creare BI nou", "Stergere Bi selectat", "Tiparire BI");
  kind.texts.saveTip = "Salvare informatii de antet si activare linii de detaliu BI";
  kind.texts.validateTip =
      "Verificare informatii, salvare in tabela de Documente, modificare stoc, generare formule contabile";
  setQuestions(kind.texts, "bonul de intrare", "Va rugam selectati un N.I.R. !");
  kind.texts.confirmDeletion = "Sunteti sigur ca doriti sa stergeti N.I.R.  %1 ?";
  kind.texts.validated = "Bonul de intrare a fost salvat cu succes in Articole si Documente !";
  return kind;
}

}  // namespace velmar
