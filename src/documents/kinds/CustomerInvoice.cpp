// The customer invoice: a sale on account, in lei or in currency, with possible returns.
#include "config/Lookups.h"
#include "documents/kinds/InvoiceSources.h"
#include "documents/kinds/PaletSource.h"
#include "documents/kinds/SaleRules.h"
#include "documents/kinds/SaleWording.h"
#include "stock/Ledger.h"

namespace velmar {

using namespace wording;

namespace {

class CustomerInvoiceRules : public SaleRules {
 public:
  CustomerInvoiceRules() : SaleRules({.currencyPrice = "PRETVALUTA", .cost = "COST"}) {}

  void follow(const QString& changed, TypedHeader& header) const override {
    if (changed == QStringLiteral("CODCLI"))
      header.set("OBS", ValoareSql("SELECT CodTert FROM kt_ter WHERE COD = ?", {header.partner()}));
  }

  bool movesStock(const Document& document) const override { return !comesFromNotes(document); }

 protected:
  // A return has the cost and price of the document that it refers to, if that contains the article.
  bool takeReturned(Row& line, const TypedHeader& header) const override {
    const QString document = header.text("OBS");
    if (!line.decimal("CANT").isNegative() || document.isEmpty()) return false;
    const Recordset found =
        OpenRs("SELECT COST, PRETFT FROM G_LDOCUM WHERE DOCID = ? AND ARTID = ? ORDER BY LINIE LIMIT 1",
               {document, line.text("CODART")});
    line.set("COST",
             found.isEmpty() ? Decimal(0) : line.decimal("CANT").abs() * found.first().decimal("COST"));
    line.set("PRETFT", found.isEmpty() ? Decimal(0) : found.first().decimal("PRETFT"));
    return true;
  }

  // Goods of a delivery note keep the cost at which they left.
  std::optional<Decimal> sourcedCost(const Row& line) const override {
    const auto source = LedgerKey::of(line.text("NUMAE"));
    if (TIPCOST() != kFifo || !source || source->kind != KindId::DeliveryNote) return std::nullopt;
    const Recordset found = OpenRs(
        "SELECT SUM(VALCOST) AS VALCOST, SUM(CANT) AS CANT FROM G_LDOCUM WHERE DOCID = ? AND ARTID = ?",
        {source->text(), line.text("CODART")});
    const Decimal delivered = found.first().decimal("CANT");
    if (delivered.isZero()) return Decimal(0);
    return Round(line.decimal("CANT") * found.first().decimal("VALCOST") / delivered, kCostDecimals);
  }

  std::vector<NoteRule> notes(const Document& document, const PlanInputs& inputs,
                              const NoteTerms& terms) const override {
    NoteRule sale = saleNote(terms, {Account::From::Parameter, "CONTCLIENTI"}, inputs.vatAccount);
    sale.journal = document.header.text("JURNAL");
    sale.journalParameter = "JURFACCLI";
    // Under FIFO goods with different quantities make entries of their own.
    NoteRule goods = costOfGoods(terms, signedCost, TotalledLines::HeldGoods, inputs.isFifo());
    if (inputs.isFifo() && comesFromNotes(document))
      goods.perGroup.back().account = {Account::From::Parameter, "CONTAVIZEXP_M"};
    return {sale, goods, costOfProducts(terms, signedCost)};
  }
};

ListingKind listingForm() {
  ListingKind paper{KindId::CustomerInvoice, "frmLstFC", "Facturi Clienti", "FacturiCLIFull", "FacturiCLI"};
  paper.offersReceipt = paper.offersCurrency = paper.printsSum = paper.choosesTarget = true;
  paper.boxes = delegateBoxes();
  paper.headerSql =
      "SELECT F.NUMFAC, F.CODCLI, C.PROCENT AS BATVA1, F.OBS, F.DATAFAC, F.CODDEVIZA, F.CURS "
      "FROM G_FACCLI AS F INNER JOIN kt_cote AS C ON F.BATVA1 = C.COD WHERE F.NUMFAC = ?";
  paper.linesSql =
      "SELECT F.NUMFAC, F.NRLINIE, F.CODART, F.DENUMIRE, F.CANT, F.ValoareFTCuDiscount AS PRETFT, "
      "F.VALOAREFT, F.VALOARETTI, F.VALOARETVA, F.UM, A.PALET, A.DENALTALIMBA "
      "FROM G_LFACCL AS F INNER JOIN G_ARTMAG AS A ON F.CODART = A.CODART WHERE F.NUMFAC = ? "
      "ORDER BY F.NRLINIE";
  paper.partner = printedCustomer({"JUDET", "REGCOM", "CT"});
  return paper;
}

Check paletSold() {
  return refusedWhen("Pentru acest palet a fost deja emisa factura de vanzare. ", "TextPalet",
                     [](const Document& document) {
                       const QString palet = typedPalet(document.typed());
                       return !palet.isEmpty() && hasLeft(palet);
                     });
}

void describeInvoiceFields(DocumentKind& kind) {
  kind.headerFields = {
      {HeaderFieldType::Number, "NUMFAC", "txtFields(0)", "&Numar factura", kNumberTip},
      {HeaderFieldType::Date, "DATAFAC", "dtpDataFactura", "&Data factura", ""},
      {HeaderFieldType::DueDate, "DATASCAD", "DTPicker1", "Data &scadenta", ""},
      customer(kind),
      vatRate("BATVA1"),
      {HeaderFieldType::PaymentMode, "MODREG", "cboModPlata", "&Mod de plata", kChoosePayment, "", "OP"},
      companyJournal()};
  kind.headerFields += currencyFields("CODDeviza", "Curs");
  kind.headerFields += QList<HeaderField>{
      costCentre(),
      postsNotes("Bifati daca factura genereaza note contabile"),
      {HeaderFieldType::Flag, "", "chkCalculValuta", "Pret articol din pret de vanzare in valuta", "", "", "",
       0, true},
      {HeaderFieldType::Text, "", "TextPalet", "Palet", "Paletul ale carui articole se preiau pe factura"},
      customerRemark(kind)};
}

void describeInvoiceColumns(DocumentKind& kind) {
  describeSaleColumns(kind, LineEntry::Number, "PRETVALUTA");
  kind.lineColumns[1].caption = "nr. linie";
  kind.lineColumns[3].caption = "Denumire";
  kind.lineColumns +=
      QList<LineColumn>{{"CANTAVIZ", "Cantitate conform document", LineEntry::Locked, 3, kAsTyped, 14},
                        {"NUMAE", "Numar document", LineEntry::Locked, -1, kAsTyped, 14},
                        value("COST", "Valoare COST")};
}

}  // namespace

DocumentKind customerInvoice() {
  DocumentKind kind = kindOf(KindId::CustomerInvoice, "customer invoice", "frmGrilaFC");
  kind.headerTable = "G_FACCLI";
  kind.lineTable = "G_LFACCL";
  kind.isSale = true;
  kind.numberColumn = "NUMFAC";
  kind.dateColumn = "DATAFAC";
  kind.partnerColumn = "CODCLI";
  kind.remarkColumn = "OBS";
  kind.tipie = "E";
  kind.sourceColumn = "NUMAE";
  kind.sources = invoiceSources();
  kind.existsKind = "FACTURACLIENT";
  kind.numbering = Numbering::InvoiceRange;
  kind.texts.numberTaken = numberTakenText("Factura");
  kind.texts.unsaved = "Va rugam apasati butonul Detaliu pentru salvarea informatiilor din antet";
  static const CustomerInvoiceRules rules;
  kind.rules = &rules;
  kind.posted = {postedGross(),
                 {PostedSum::Rows::Others, PostedSum::Is::AtMost, {"D.TOTALCOST"}},
                 {PostedSum::Rows::Others,
                  PostedSum::Is::Present,
                  {"(SELECT SUM(CASE WHEN C.CANT < 0 THEN -ABS(C.VALCOST) ELSE C.VALCOST END) FROM G_LDOCUM "
                   "C INNER JOIN G_ARTMAG A ON A.CODART = C.ARTID "
                   "WHERE C.DOCID = D.ID AND A.FARASTOC = 0 AND A.PROVENIENTA = 'M')"}}};
  kind.paper = listingForm();
  kind.headerChecks = {paletSold(),    numberEmpty(kind, "facturii"), customerEmpty(kind),
                       journalEmpty(), rateNotChosen("BATVA1"),       numberTaken(kind)};
  kind.validationChecks = {
      nothingSelected(kind, "Va rugam selectati o factura !"),
      dueBeforeDate(),
      beforeFiscalYear(kind),
      currencyWithoutRate("Curs"),
      journalNotChosen(),
      withoutLines("Factura nu contine nici un articol ! Nu se poate efectua introducerea in stoc !")};
  const auto movesStock = [](const Document& document) { return !comesFromNotes(document); };
  kind.lineChecks = {onlyFor(movesStock, distinctArticles()), withinNotes(), completeLines(),
                     onlyFor(movesStock, stockSuffices(Stocked::OnlyHeld, kAvailable, orderedBy))};
  kind.printChecks = {nothingSelected(kind, "Nu exista factura selectata!"),
                      printWithoutPartner(kind, "Nu exista client selectat!"), printUnsaved(kind)};
  describeInvoiceFields(kind);
  describeInvoiceColumns(kind);
  kind.draftColumns = QStringList{"DATASCAD", "JURNAL"};
  kind.texts.title = "Facturi client";
  kind.texts.draftsCaption = "Lista facturi";
  setTips(kind.texts, "Creare factura client noua", "Stergere factura selectata", "Tiparire factura");
  setQuestions(kind.texts, "factura", "Va rugam selectati o factura !");
  kind.texts.validated = "Factura a fost salvata cu succes in Articole si Documente !";
  kind.texts.validatedFromNotes = "Factura a fost salvata cu succes in Documente !";
  kind.texts.ledgerFailure = kind.texts.stockFailure = "EROARE: %1 - %2 LINIA %3";
  kind.texts.ledgerFailureTitle = kind.texts.stockFailureTitle = kind.texts.postingFailureTitle = "";
  kind.texts.postingFailure =
      "Eroare %1 - %2 in procedura SalvareDateContabile_1 din Form frmGrilaFC Linia: %3";
  return kind;
}

}  // namespace velmar
