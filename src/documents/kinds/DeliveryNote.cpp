// The delivery note.
#include "config/Session.h"
#include "documents/kinds/SaleRules.h"
#include "documents/kinds/SaleWording.h"
#include "documents/LineChecks.h"

namespace velmar {

using namespace wording;

namespace {

Decimal costOf(const Row& line, const ArticleFacts& /*article*/) { return line.decimal("VALOARECOST"); }

class DeliveryNoteRules : public SaleRules {
 public:
  DeliveryNoteRules()
      : SaleRules({.currencyPrice = "PRIXUV",
                   .cost = "VALOARECOST",
                   .openQuantity = "CANTRAMAS",
                   .costsAtValidation = true}) {}

  // A changed percentage recalculates the lines without their discounts.
  void applyRate(Row& line, const TypedHeader& header) const override {
    const Decimal product = line.decimal("PRETFT") * line.decimal("CANT");
    const Decimal value = Round(product, session().NrZec);
    const Decimal vat = Round(product * header.vatPercent() / 100, session().NrZec);
    line.set("VALOAREFT", value);
    line.set("VALOARETVA", vat);
    line.set("VALOARETTI", value + vat);
  }

  bool isStale(const Row& line) const override {
    const Decimal undiscounted = Round(line.decimal("PRETFT") * line.decimal("CANT"), session().NrZec);
    return line.decimal("VALOAREFT") != undiscounted && SaleRules::isStale(line);
  }

 protected:
  // The cost waits on an account of its own until the goods are invoiced.
  std::vector<NoteRule> notes(const Document& /*document*/, const PlanInputs& /*inputs*/,
                              const NoteTerms& /*terms*/) const override {
    return {delivered("CONTSTOCMARFA", TotalledLines::Goods, "CONTAVIZEXP_M"),
            delivered("CONTSTOCPROD", TotalledLines::Products, "CONTAVIZEXP_P")};
  }

 private:
  static NoteRule delivered(const QString& stock, TotalledLines lines, const QString& waiting) {
    return {.totals = {.accounts = {stock}, .amount = costOf, .lines = lines},
            .journalParameter = "JURAVIZ",
            .perGroup = {{Side::Credit, {Account::From::Totals, stock}}},
            .after = {{Side::Debit, {Account::From::Parameter, waiting}, AmountOf::Value}}};
  }
};

ListingKind listingForm() {
  ListingKind paper{KindId::DeliveryNote, "frmLstAE", "Listare Aviz Expeditie", "AEFull", "AE"};
  paper.offersCurrency = true;
  paper.missingPartner = "Client inexistent ";
  paper.boxes = delegateBoxes();
  paper.headerSql =
      "SELECT A.NUMAE, A.CODCLI, A.BATVA1, A.OBSERV, A.DATAAE, A.CODDeviza AS CODDEVIZA, A.Curs AS CURS, "
      "A.Curs AS CURSANT "
      "FROM G_AECLI AS A WHERE A.NUMAE = ?";
  paper.linesSql =
      "SELECT F.NUMAE, F.NRLINIE, F.CODART, F.DENUMIRE, F.CANT, F.ValoareFTCuDiscount AS PRETFT, "
      "F.VALOAREFT, F.VALOARETTI, F.VALOARETVA, F.UM, F.PRIXUV, F.PRETFT AS PRETUNITAR, A.PALET, "
      "A.DENALTALIMBA FROM G_LAECLI AS F INNER JOIN G_ARTMAG AS A ON F.CODART = A.CODART "
      "WHERE F.NUMAE = ? ORDER BY F.NRLINIE";
  paper.partner = printedCustomer({"JUDET", "REGCOM", "CT"});
  return paper;
}

}  // namespace

DocumentKind deliveryNote() {
  DocumentKind kind = kindOf(KindId::DeliveryNote, "delivery note", "frmGrilaAE");
  static const DeliveryNoteRules rules;
  kind.rules = &rules;
  kind.paper = listingForm();
  kind.posted = {postedDebit("D.TOTALCOST")};
  kind.posted.front().when =
      "NOT EXISTS (SELECT C.DOCID FROM G_LDOCUM C INNER JOIN G_ARTMAG A ON A.CODART = C.ARTID WHERE C.DOCID "
      "= "
      "D.ID AND COALESCE(A.PROVENIENTA, '') NOT IN ('M', 'P'))";
  kind.headerTable = "G_AECLI";
  kind.lineTable = "G_LAECLI";
  kind.isSale = true;
  kind.numberColumn = "NUMAE";
  kind.dateColumn = "DATAAE";
  kind.partnerColumn = "CODCLI";
  kind.remarkColumn = "OBSERV";
  kind.tipie = "E";
  kind.existsKind = "AVIZ";
  kind.numbering = Numbering::NoteRange;
  kind.texts.numberTaken = numberTakenText("Avizul");
  kind.headerChecks = {numberEmpty(kind, "avizului"), customerEmpty(kind), percentNotPositive("BATVA1"),
                       numberTaken(kind)};
  kind.validationChecks = {nothingSelected(kind, "Va rugam selectati un aviz !"), currencyWithoutRate("Curs"),
                           noLines("Avizul")};
  kind.lineChecks = {distinctArticles(), completeLines(),
                     stockSuffices(Stocked::OnlyHeld, "Articolul: %1 are disponibil numai %2")};
  kind.printChecks = {nothingSelected(kind, "Va rugam selectati un aviz de expeditie!"),
                      printWithoutPartner(kind, "Va rugam selectati un client"), printUnsaved(kind)};
  kind.headerFields = {{HeaderFieldType::Number, "NUMAE", "txtFields(0)", "&Numar aviz", kNumberTip},
                       {HeaderFieldType::Date, "DATAAE", "dtpDataFactura", "&Data aviz", ""},
                       customer(kind),
                       vatPercent("BATVA1", "19")};
  kind.headerFields += currencyFields("CODDeviza", "Curs");
  kind.headerFields += QList<HeaderField>{
      costCentre(),
      {HeaderFieldType::Flag, "", "chkCalculValuta", "Pret articol din pret de vanzare in valuta", ""},
      customerRemark(kind)};
  describeSaleColumns(kind, LineEntry::PositiveNumber, "PRIXUV");
  kind.lineColumns += QList<LineColumn>{{"CANTRAMAS", "Cantitate ramasa", LineEntry::Locked, 3, kAsTyped, 12},
                                        value("VALOARECOST", "Valoare cost")};
  kind.texts.title = "Avize de expeditie";
  kind.texts.draftsCaption = "Lista avize";
  setTips(kind.texts, "Creare aviz de expeditie nou", "Stergere aviz selectat", "Tiparire aviz");
  setQuestions(kind.texts, "avizul", "Va rugam selectati un aviz !");
  kind.texts.validated = "Avizul de Expeditie a fost salvat cu succes in Articole si Documente !";
  return kind;
}

}  // namespace velmar
