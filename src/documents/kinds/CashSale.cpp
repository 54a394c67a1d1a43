// The cash sale: goods are issued for payment in cash or by card, and a fiscal register prints the receipt.
#include "catalogue/Articles.h"
#include "config/Lookups.h"
#include "config/Session.h"
#include "documents/kinds/SaleRules.h"
#include "documents/kinds/SaleWording.h"
#include "fiscal/CommandFile.h"
#include "util/Errors.h"
#include "util/Messages.h"
#include "util/NumberText.h"

namespace velmar {

using namespace wording;

namespace {

const QString kCardRemark = QStringLiteral("Incasare card");
const QString kDefaultJournal = QStringLiteral("RC");
const QString kDefaultAccount = QStringLiteral("5311");
const QString kCardAccount = QStringLiteral("5125");
const QString kCash = QStringLiteral("NUMERAR");
const QString kCard = QStringLiteral("ALTELE");

QString flag(bool is) { return is ? QStringLiteral("-1") : QStringLiteral("0"); }

class CashSaleRules : public SaleRules {
 public:
  CashSaleRules() : SaleRules({.currencyPrice = "PRETVALUTA", .cost = "COST", .costsOneUnit = true}) {}

  void begin(TypedHeader& header, bool isNew) const override {
    const Session& s = session();
    if (header.text("CheckCasaMarcat").isEmpty())
      header.set("CheckCasaMarcat", flag(!s.CasaMarcat.trimmed().isEmpty()));
    if (header.text("TextNrCaractere").isEmpty())
      header.set("TextNrCaractere", QString::number(nameWidth(s.CasaMarcat_Nr)));
    header.set("CheckCard", flag(!isNew && header.text("OBS").startsWith(kCardRemark)));
    if (!isNew) return;
    header.set("CODCLI", ValoareSql("SELECT COD FROM kt_ter WHERE NUME = 'CASA' ORDER BY COD LIMIT 1"));
    header.set("MODREG", kCash);
  }

  void follow(const QString& changed, TypedHeader& header) const override {
    if (changed != QStringLiteral("CheckCard")) return;
    const bool isCard = header.isTicked(changed);
    header.set("OBS", isCard ? kCardRemark : QString());
    header.set("MODREG", isCard ? kCard : kCash);
  }

  // A price in the article's own currency determines the one in lei.
  void recalculate(Row& line, const QString& changed, const TypedHeader& header,
                   Notices& notices) const override {
    if (changed != QStringLiteral("PRETVALUTA"))
      return SaleRules::recalculate(line, changed, header, notices);
    const auto article = articleByCode(line.text("CODART"));
    const Decimal rate = article ? Curs(article->text("CODDEVIZAVANZ").trimmed(), header.date()) : Decimal(0);
    if (rate.isZero()) {
      notices.tell(QStringLiteral("Nu este introdus cursul pe ziua : %1"), formatDate(header.date()));
      return;
    }
    line.set("PRETFT", line.decimal("PRETVALUTA") * rate);
    SaleRules::recalculate(line, QStringLiteral("PRETFT"), header, notices);
  }

  void readInputs(const Document& document, PlanInputs& inputs) const override {
    const Recordset journal = OpenRs(
        "SELECT J.COD AS COD, J.CONT AS CONT FROM G_MULTIMAGAZIE M INNER JOIN kt_jur J ON M.JURNAL = J.COD "
        "WHERE M.COD = ? LIMIT 1",
        {document.warehouse()});
    const QString account = journal.isEmpty() ? QString() : journal.first().text("CONT").trimmed();
    inputs.cashJournal = journal.isEmpty() ? kDefaultJournal : journal.first().text("COD");
    inputs.cashAccount = account.isEmpty() ? kDefaultAccount : account;
    inputs.sameNumber =
        OpenRs("SELECT CODART, CANT, COST FROM G_LFACCL WHERE NUMFAC = ? ORDER BY NRLINIE", {document.number})
            .takeRows();
    if (!inputs.sameNumber.empty())
      inputs.articles = readArticles(articlesOf(document.lines) + articlesOf(inputs.sameNumber));
  }

 protected:
  // Cash is posted to the account of the warehouse's journal, card payments to the bank.
  std::vector<NoteRule> notes(const Document& document, const PlanInputs& inputs,
                              const NoteTerms& terms) const override {
    const bool isCard = document.typed().isTicked("CheckCard");
    NoteRule sale = saleNote(terms, {Account::From::Given, isCard ? kCardAccount : inputs.cashAccount},
                             inputs.vatAccount);
    sale.journal = inputs.cashJournal;
    // The only totals of products are those of invoices: they read the invoice with the same number.
    NoteRule products = costOfProducts(terms, signedCost);
    products.lines = &inputs.sameNumber;
    return {sale, costOfGoods(terms, inputs.isFifo() ? costOf : costOfUnits, TotalledLines::Goods, false),
            products};
  }

 private:
  static Decimal costOf(const Row& line, const ArticleFacts& /*article*/) { return line.decimal("COST"); }
  static Decimal costOfUnits(const Row& line, const ArticleFacts& /*article*/) {
    return line.decimal("COST") * line.decimal("CANT");
  }
};

// Products of the invoice with the same number may be posted as well.
PostedSum postedCost() {
  return {
      PostedSum::Rows::Others,
      PostedSum::Is::AtLeast,
      {"(SELECT SUM(C.VALCOST) FROM G_LDOCUM C INNER JOIN G_ARTMAG A ON A.CODART = C.ARTID WHERE C.DOCID = "
       "D.ID AND A.PROVENIENTA = 'M')"},
      "NOT EXISTS (SELECT P.NUMFAC FROM G_LFACCL P WHERE P.NUMFAC = H.NUMFAC AND P.CANT < 0)"};
}

Check cashPartnerExists() {
  return refusedWhen("Va rugam creati un client denumit CASA, in tabela TERTI ", "CODCLI",
                     [](const Document&) {
                       return OpenRs("SELECT COD FROM kt_ter WHERE NUME = 'CASA' LIMIT 1", {}).isEmpty();
                     });
}

// Once the sale is validated its receipt can no longer be printed.
Check receiptPrinted() {
  Check check =
      refusedWhen("Bonul nu a fost tiparit pe casa de marcat.Dupa validare nu mai poate fi tiparit.", {},
                  [](const Document& document) {
                    return document.typed().isTicked("CheckCasaMarcat") && !document.header.flag("LISTAT");
                  });
  check.at = CheckedAt::UnderLock;
  return check;
}

ListingKind listingForm() {
  ListingKind paper{KindId::CashSale, "frmLstRC", "Bon de Casa", "BonCasa"};
  paper.headerSql =
      "SELECT F.NUMFAC, F.CODCLI, C.PROCENT AS BATVA1, F.OBS, F.DATAFAC, F.CODDEVIZA, F.CURS, F.LISTAT "
      "FROM G_BONCASA AS F INNER JOIN kt_cote AS C ON F.BATVA1 = C.COD WHERE F.NUMFAC = ?";
  paper.linesSql =
      "SELECT NUMFAC, NRLINIE, CODART, DENUMIRE, CANT, ValoareFTCuDiscount AS PRETFT, VALOAREFT, VALOARETTI, "
      "VALOARETVA, UM FROM G_LBONCASA WHERE NUMFAC = ? ORDER BY NRLINIE";
  paper.partner = printedCustomer({"JUDET", "REGCOM"});
  return paper;
}

}  // namespace

DocumentKind cashSale() {
  DocumentKind kind = kindOf(KindId::CashSale, "cash sale", "frmGrilaCS");
  kind.headerTable = "G_BONCASA";
  kind.lineTable = "G_LBONCASA";
  kind.isSale = true;
  kind.numberColumn = "NUMFAC";
  kind.dateColumn = "DATAFAC";
  kind.partnerColumn = "CODCLI";
  kind.remarkColumn = "OBS";
  kind.tipie = "E";
  kind.numbering = Numbering::Continuous;
  kind.texts.numberTaken = numberTakenText("Bonul");
  static const CashSaleRules rules;
  kind.rules = &rules;
  kind.posted = {postedGross(), postedCost()};
  kind.paper = listingForm();
  const QString selectSale = "Va rugam selectati un bon !";
  kind.openingChecks = {cashPartnerExists()};
  kind.headerChecks = {cashPartnerExists(), numberEmpty(kind, "bonului"), customerEmpty(kind),
                       rateNotChosen("BATVA1"), numberTaken(kind)};
  kind.validationChecks = {nothingSelected(kind, selectSale), beforeFiscalYear(kind),
                           currencyWithoutRate("Curs"),
                           withoutLines("Bonul nu contine nici un articol ! Validare nereusita !")};
  // Articles may be scanned in any order, also repeatedly.
  kind.lineChecks = {completeLines(), stockSuffices(Stocked::OnlyHeld, kAvailable), receiptPrinted()};
  kind.receipt = {
      "LISTAT",
      "TIPARIRE",
      {"DATAFAC", "BATVA1"},
      "Bonul a fost tiparit pe casa de marcat. Nu mai poate fi tiparit inca odata.",
      "Bonul a fost tiparit pe casa de marcat si nu poate fi sters",
      "Bonul a fost tiparit pe casa de marcat si nu mai poate fi modificat",
      "Bonul a fost trimis la casa de marcat si nu se stie daca a iesit. Apasati Tiparire pentru a "
      "spune."};
  kind.printChecks = {nothingSelected(kind, selectSale),
                      refusedWhen(kind.receipt.printedText, "NUMFAC", &Document::isPrinted),
                      beforeFiscalYear(kind), withoutLines("Bonul nu contine nici un articol ! "),
                      printWithoutPartner(kind, "Va rog selectati un client!")};
  kind.headerFields = {{HeaderFieldType::Number, "NUMFAC", "txtFields(0)", "&Numar bon", kNumberTip},
                       {HeaderFieldType::Date, "DATAFAC", "dtpDataFactura", "&Data bon", ""},
                       customer(kind),
                       vatRate("BATVA1"),
                       {HeaderFieldType::PaymentMode, "MODREG", "cboModPlata", "&Mod de plata",
                        kChoosePayment, "", "NUMERAR"}};
  kind.headerFields += currencyFields("CODDeviza", "Curs");
  kind.headerFields += QList<HeaderField>{
      costCentre(),
      {HeaderFieldType::Flag, "", "CheckCasaMarcat", " Casa de marcat",
       "Bifati daca aveti conexiune cu casa de marcat", "", "", 0, true},
      {HeaderFieldType::Flag, "", "CheckCard", " Card", "Bifati daca plata se face cu cardul"},
      {HeaderFieldType::Amount, "", "TextNrCaractere", " Caractere",
       "Numarul de caractere al denumirii pe bonul fiscal", "", "", 0, true},
      postsNotes("Bifati daca bonul genereaza note contabile"),
      customerRemark(kind)};
  describeSaleColumns(kind, LineEntry::PositiveNumber, "PRETVALUTA");
  kind.lineColumns +=
      QList<LineColumn>{{"CANTAVIZ", "Cantitate conform document", LineEntry::Locked, 3, kAsTyped, 14, false},
                        {"NUMAE", "Numar document", LineEntry::Locked, -1, kAsTyped, 14, false},
                        value("COST", "Valoare COST")};
  kind.texts.title = "Bonuri de Casa";
  kind.texts.draftsCaption = "Lista bonuri de casa";
  setTips(kind.texts, "Creare bon de casa nou", "Stergere bon de casa selectat", "Tiparire bon de casa");
  setQuestions(kind.texts, "bonul", selectSale);
  kind.texts.confirmValidation.clear();
  kind.texts.validated = "Bonul a fost salvat cu succes in Articole si Documente !";
  kind.texts.unknownArticle = "Articolul cu codul %1 nu exista ";
  kind.texts.ledgerFailure = kind.texts.stockFailure = "EROARE: %1 - %2 LINIA %3";
  kind.texts.ledgerFailureTitle = kind.texts.stockFailureTitle = kind.texts.postingFailureTitle = "";
  kind.texts.postingFailure =
      "Eroare %1 - %2 in procedura SalvareDateContabile din Form frmGrilaCS Linia: %3";
  return kind;
}

}  // namespace velmar
