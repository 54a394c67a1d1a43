// The supplier invoice: goods are received at the invoice's price and get their sale prices; a negative line
// is a return to the supplier.
#include "config/Lookups.h"
#include "config/Session.h"
#include "documents/KindRules.h"
#include "documents/kinds/PurchaseWording.h"
#include "stock/Availability.h"
#include "store/Records.h"
#include "util/Errors.h"
#include "util/Messages.h"
#include "util/NumberText.h"

namespace velmar {

using namespace wording;

namespace {

constexpr int kTypedVatDecimals = 0;  // of the line's total after VAT was typed

const QString kStockTooSmall = QStringLiteral(
    "Cantitatea din Stoc este mai mica decat cea de pe factura! Stornarea nu se poate efectua !");
const QString kReceiptTooSmall = QStringLiteral("Din documentul %1 au mai ramas numai %2 din articolul %3 !");
const QString kNameTheInvoice =
    QStringLiteral("Va rog introduceti in campul Observatii, numarul facturii de stornat.");
const QString kVatWithoutRate =
    QStringLiteral("Liniile au TVA, dar cota TVA a facturii este 0 ! Validarea nu se poate efectua !");

// Quantities of the negative lines, by article.
QHash<QString, Decimal> returnedQuantities(const Document& document) {
  QHash<QString, Decimal> returned;
  for (const Row& line : document.lines)
    if (line.decimal("CANT").isNegative()) returned[line.text("CODART")] += line.decimal("CANT").abs();
  return returned;
}

// Returned goods are in the warehouse, and the receipt that they came with still has them.
std::optional<Fault> returnFault(const Document& document) {
  const QHash<QString, Decimal> returned = returnedQuantities(document);
  if (returned.isEmpty()) return std::nullopt;
  const QString receipt = document.header.text("OBS").trimmed();
  const Quantities stock = warehouseStock(returned.keys(), document.warehouse());
  QHash<QString, Decimal> rests;  // by code in upper case
  // With the weighted average lots do not determine the cost, and one return may cover several invoices.
  if (TIPCOST() == kFifo)
    for (const Lot& lot : lotsOfReceipt(receipt, returned.keys())) rests[lot.article.toUpper()] += lot.rest;
  for (const Row& line : document.lines) {
    if (!line.decimal("CANT").isNegative()) continue;
    const QString article = line.text("CODART");
    if (stock.of(article) < returned.value(article)) return Fault{.text = kStockTooSmall};
    if (receipt.isEmpty()) return Fault{.text = kNameTheInvoice, .field = "OBS"};
    const auto rest = rests.constFind(article.toUpper());
    if (rest != rests.constEnd() && *rest < returned.value(article))
      return Fault{.text = kReceiptTooSmall.arg(receipt, editNumber(*rest), article)};
  }
  return std::nullopt;
}

class SupplierInvoiceRules : public KindRules {
 public:
  void completeLine(Row& line, const Row& article, TypedHeader& header, Notices& /*notices*/) const override {
    line.set("UM", article.text("UM"));
    for (const char* column : {"CANT", "PRETFT", "VALOAREFT", "VALOARETVA", "VALOARETTI"})
      if (line.isNull(column)) line.set(column, Decimal(0));
    line.set("PRETVA", article.decimal("PRETVFT"));
    calculate(line, header);
  }

  void recalculate(Row& line, const QString& changed, const TypedHeader& header,
                   Notices& /*notices*/) const override {
    if (changed == QStringLiteral("VALOARETVA"))
      line.set("VALOARETTI",
               Round(line.decimal("VALOAREFT") + line.decimal("VALOARETVA"), kTypedVatDecimals));
    else if (changed == QStringLiteral("CANT") || changed == QStringLiteral("PRETFT"))
      calculate(line, header);
  }

  void applyRate(Row& line, const TypedHeader& header) const override { calculate(line, header); }

  CellObjection objection(const Row& line, const QString& field, const Decimal& number,
                          const TypedHeader& header) const override {
    if (field != QStringLiteral("CANT") || !number.isNegative()) return {};
    const QString article = line.text("CODART");
    if (warehouseStock({article}, session().gMagazie).of(article) < number.abs()) return {kStockTooSmall};
    // The number is valid, but another field must be entered first.
    return header.text("OBS").isEmpty() ? CellObjection{kNameTheInvoice, true} : CellObjection{};
  }

  // Compares with the last purchase price, if there is one; only higher prices are marked.
  std::vector<LineMark> marks(const std::vector<Row>& lines, const TypedHeader& header) const override {
    QHash<QString, Decimal> last;
    for (const Row& row :
         rowsOfKeys("SELECT CODART, COST FROM G_ARTMAG WHERE CODART IN (%1)", articlesOf(lines)))
      last.insert(row.text("CODART").toUpper(), row.decimal("COST"));
    const Decimal margin = header.number("TextMarja");
    std::vector<LineMark> marks;
    for (const Row& line : lines) {
      const Decimal cost = last.value(line.text("CODART").toUpper());
      const bool isDearer = line.decimal("PRETFT") - cost > cost * margin / 100;
      marks.push_back(cost.isZero() ? LineMark::First : isDearer ? LineMark::Dearer : LineMark::None);
    }
    return marks;
  }

  QStringList totalColumns() const override { return {"VALOAREFT", "VALOARETVA", "VALOARETTI"}; }

  void readInputs(const Document& document, PlanInputs& inputs) const override {
    const auto returned = returnedQuantities(document);
    if (!returned.isEmpty()) inputs.receipt = lotsOfReceipt(document.header.text("OBS"), returned.keys());
    readSaleRates(document, inputs);
  }

  Effects effects(const Document& document, const PlanInputs& inputs) const override {
    requireCostMethod(inputs);
    Effects effects;
    effects.lines = document.lines;
    effects.returned = CautaFF(inputs.receipt, returnedQuantities(document));
    LedgerDocument ledger = ledgerOf(document);
    // The key as the ledger has it: it may be typed in another case.
    if (!effects.returned.empty()) ledger.remark = effects.returned.front().document;
    for (const Row& line : document.lines) {
      const QString article = line.text("CODART");
      const Decimal quantity = line.decimal("CANT");
      const Decimal price = line.decimal("PRETFT");
      const Decimal vat = line.decimal("VALOARETVA");
      ledger.value += line.decimal("VALOAREFT");
      ledger.vat += vat;
      ledger.lines.push_back({.article = article,
                              .quantity = quantity,
                              .price = price,
                              .priceWithVat = price + vat / quantity,
                              .vat = vat,
                              .unitCost = price,
                              .cost = quantity * price,
                              .vatPercent = inputs.vatPercent,
                              .rest = quantity,
                              .salePrice = optionalDecimal(line, "PRETVA"),
                              .palet = line.text("PALET")});
      effects.stock.push_back({article, quantity, price, line.decimal("PRETVA"), StockRule::ReceiptByPrice});
    }
    ledger.cost = ledger.value;
    ledger.dueDate = document.header.date("DATASCAD");
    if (document.header.flag("NoteContabile")) {
      if (inputs.vatPercent.isZero() && !ledger.vat.isZero()) throw RuleError(kVatWithoutRate, "CODART");
      effects.notes = {note(document, inputs)};
    }
    effects.ledger = {std::move(ledger)};
    return effects;
  }

 private:
  static void calculate(Row& line, const TypedHeader& header) {
    const int decimals = session().NrZec;
    const Decimal value = Round(line.decimal("PRETFT") * line.decimal("CANT"), decimals);
    const Decimal vat = Round(value * header.vatPercent() / 100, decimals);
    line.set("VALOAREFT", value);
    line.set("VALOARETVA", vat);
    line.set("VALOARETTI", value + vat);
  }

  static NoteRule note(const Document& document, const PlanInputs& inputs) {
    NoteRule note{
        .totals = {{"CONTSTOCMARFA"}, lineValue, lineVat},
        .journal = document.header.text("JURNAL"),
        .journalParameter = "JURFACFUR",
        .before = {{Side::Credit, {Account::From::Parameter, "CONTFURNIZORI"}, AmountOf::Gross, kPartner}},
        .perGroup = {{Side::Debit,
                      {Account::From::Totals, "CONTSTOCMARFA"},
                      AmountOf::Group,
                      kVatLinkIfTaxed | kVatPercent}},
        .after = {{Side::Debit, {Account::From::Given, inputs.vatAccount}, AmountOf::Vat, kVatLink, true}}};
    note.terms.dueDate = document.header.date("DATASCAD");
    note.terms.partner = document.header.integer("CODFUR");
    note.terms.vatPercent = inputs.vatPercent;
    note.terms.vatOnCollection = document.header.flag("TVAINC");
    return note;
  }
};

// For a supplier invoice the receipt note of its goods is printed.
ListingKind listingForm() {
  ListingKind paper{KindId::SupplierInvoice, "frmLstNIR_FF", "Listare NIR pentru Factura ", "NIR_FF"};
  paper.headerSql =
      "SELECT F.NUMFAC, F.CODFUR, C.PROCENT AS BATVA1, F.OBS, F.DATAFAC "
      "FROM G_FACFUR AS F INNER JOIN kt_cote AS C ON F.BATVA1 = C.COD WHERE F.NUMFAC = ?";
  paper.linesSql = printedLines("G_LFACFU", "NUMFAC");
  paper.partner = kPrintedPartner;
  return paper;
}

}  // namespace

DocumentKind supplierInvoice() {
  DocumentKind kind = kindOf(KindId::SupplierInvoice, "supplier invoice", "frmGrilaFF");
  kind.headerTable = "G_FACFUR";
  kind.lineTable = "G_LFACFU";
  kind.numberColumn = "NUMFAC";
  kind.dateColumn = "DATAFAC";
  kind.partnerColumn = "CODFUR";
  kind.remarkColumn = "OBS";
  kind.tipie = "I";
  kind.existsKind = "FACTURAFURNIZOR";
  kind.partnersAreSuppliers = true;
  kind.lineCheck.salePrice = "PRETVA";
  kind.texts.numberTaken = numberTakenText("Factura");
  static const SupplierInvoiceRules rules;
  kind.rules = &rules;
  kind.posted = {postedGross()};
  kind.paper = listingForm();
  kind.headerChecks = {numberEmpty(kind, "facturii"), supplierEmpty(kind),
                       fieldEmpty("BATVA1", "Va rugam completati codul TVA ! Salvarea nu se poate efectua !"),
                       journalEmpty(), numberTaken(kind)};
  kind.validationChecks = {nothingSelected(kind, kSelectInvoice), noLines("Factura"), dueBeforeDate(),
                           beforeFiscalYear(kind), journalNotChosen()};
  kind.lineChecks = {distinctArticles(),
                     salePricesNotBelowCost(),
                     completeLines(),
                     {.text = {}, .field = "CODART", .fault = returnFault, .at = CheckedAt::UnderLock}};
  kind.printChecks = invoicePrintChecks(kind);
  kind.headerFields = {
      {HeaderFieldType::Number, "NUMFAC", "txtFields(0)", "&Numar factura", "Numar factura furnizor"},
      {HeaderFieldType::Date, "DATAFAC", "dtpDataFactura", "&Data factura", ""},
      {HeaderFieldType::DueDate, "DATASCAD", "DScadenta", "Data &scadenta", ""},
      supplier("Selectati furnizor din lista de furnizori"),
      vatRate("BATVA1", "txtFields(2)"),
      companyJournal(),
      postsNotes("Bifati daca factura genereaza note contabile"),
      {HeaderFieldType::Flag, "TVAINC", "CheckTVAINC", "TVA la incasare", ""},
      {HeaderFieldType::Amount, "", "TextMarja", " Marja",
       "Marja procentuala pentru care diferenta intre pretul vechi si pretul nou de achizitie este "
       "acceptabila",
       "", "10", 0, true},
      supplierRemark("Maxim 35 de caractere", 35)};
  kind.draftColumns = QStringList{"JURNAL"};
  kind.lineColumns = leadingColumns(kind);
  kind.lineColumns += QList<LineColumn>{
      {"CANT", "Cantitate", LineEntry::Number, 3, 3, 12},
      price("PRETFT", "Pret unitar", LineEntry::Number, kSessionDecimals),
      value("VALOAREFT", "Valoare"),
      {"VALOARETVA", "Valoare TVA", LineEntry::Number, kSessionDecimals, 2, 14},
      value("VALOARETTI", "Valoare Totala"),
      {"PRETVA", "Pret vanzare", LineEntry::OptionalPositive, kSessionDecimals, kAsTyped, 12},
      palet()};
  setInvoiceTexts(kind.texts, "Facturi furnizor", "Creare factura furnizor noua", "Tiparire NIR");
  kind.texts.ledgerFailureTitle = kind.texts.stockFailureTitle = kind.texts.postingFailureTitle =
      "Salvare Documente/Stoc";
  return kind;
}

}  // namespace velmar
