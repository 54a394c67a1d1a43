// The goods receipt note.
#include <algorithm>

#include "config/Session.h"
#include "documents/KindRules.h"
#include "documents/kinds/PurchaseWording.h"
#include "documents/LineChecks.h"
#include "documents/LineSource.h"
#include "store/Database.h"
#include "store/Schema.h"
#include "util/Errors.h"

namespace velmar {

using namespace wording;

namespace {

const QString kReturnTitle = QStringLiteral("Grila NIR");

Decimal costOfDelivered(const Row& line, const ArticleFacts& /*article*/) {
  return line.decimal("VALOARECOST");
}

class ReceiptNoteRules : public KindRules {
 public:
  void completeLine(Row& line, const Row& article, TypedHeader& /*header*/,
                    Notices& /*notices*/) const override {
    line.set("UM", article.text("UM"));
    for (const char* column : {"CANT", "QTECOM", "PRETFT"})
      if (line.isNull(column)) line.set(column, Decimal(0));
    line.set("PRETFTV", article.decimal("PRETVFT"));
    calculate(line);
  }

  void recalculate(Row& line, const QString& changed, const TypedHeader& /*header*/,
                   Notices& /*notices*/) const override {
    if (changed != QStringLiteral("QTECOM")) calculate(line);
  }

  QStringList totalColumns() const override { return {"VALOAREFT", "VALOAREFTV"}; }

  void readInputs(const Document& document, PlanInputs& inputs) const override {
    const bool misses = std::any_of(document.lines.begin(), document.lines.end(),
                                    [](const Row& line) { return line.decimal("CANT").isNegative(); });
    if (inputs.isFifo() && misses) inputs.lots = OpenLots::read(articlesOf(document.lines));
    if (!comesFrom(document, KindId::DeliveryNote)) return;
    const auto note = LedgerKey::of(document.lines.front().text("NUMCOM"));
    inputs.sameNumber =
        OpenRs("SELECT CODART, CANT, VALOARECOST FROM G_LAECLI WHERE NUMAE = ? ORDER BY NRLINIE",
               {note->number})
            .takeRows();
    inputs.articles = readArticles(articlesOf(document.lines) + articlesOf(inputs.sameNumber));
  }

  QString stockFailureTitle(const Row& header) const override {
    return header.flag("STOCINITIAL") ? QStringLiteral("Functia SalvareStocInitial ") : QString();
  }

  Effects effects(const Document& document, const PlanInputs& inputs) const override {
    const bool isOpening = document.header.flag("STOCINITIAL");
    const bool isLess = isShortage(document) && !isOpening;
    Effects effects;
    effects.lines = document.lines;
    LedgerDocument ledger = ledgerOf(document);
    ledger.direction = isOpening ? QStringLiteral("S") : isLess ? QStringLiteral("E") : QStringLiteral("I");
    OpenLots lots = inputs.lots;
    for (const Row& line : document.lines) {
      ledger.value += line.decimal("VALOAREFT");
      ledger.lines.push_back(ledgerLine(document, line, isLess));
      effects.stock.push_back({line.text("CODART"), line.decimal("CANT"), line.decimal("PRETFT"),
                               line.decimal("PRETFTV"),
                               isOpening ? StockRule::Opening : StockRule::ReceiptByNote});
      if (!line.decimal("CANT").isNegative() || !inputs.isFifo()) continue;
      // The lots lose the goods; cost and value are those of the note.
      Consumption missing =
          lots.costFIFO(line.text("CODART"), line.decimal("CANT").abs(), CostFollows::LotWithRemainder);
      missing.articleCost.reset();
      effects.consumed.push_back(std::move(missing));
    }
    ledger.value = ledger.cost = ledger.value.abs();
    effects.ledger = {std::move(ledger)};
    if (!isOpening && document.header.flag("NoteContabile")) effects.notes = notes(document, inputs);
    return effects;
  }

 private:
  // The first line decides.
  static bool isShortage(const Document& document) {
    return !document.lines.empty() && document.lines.front().decimal("CANT").isNegative();
  }

  static void calculate(Row& line) {
    line.set("VALOAREFT", Round(line.decimal("CANT") * line.decimal("PRETFT"), 2));
  }

  // A line against the direction of the note has a negative quantity. Goods that came in are a lot.
  static LedgerLine ledgerLine(const Document& document, const Row& line, bool isLess) {
    const Decimal came = line.decimal("CANT");
    const Decimal cost = line.decimal("PRETFT");
    std::optional<Decimal> rest;
    if (isLess) rest = Decimal(0);
    if (!came.isNegative()) rest = came;
    return {.article = line.text("CODART"),
            .quantity = isLess ? -came : came,
            .price = cost,
            .priceWithVat = cost,
            .unitCost = cost,
            .cost = line.decimal("VALOAREFT").abs(),
            .vatPercent = document.header.decimal("BATVA"),
            .rest = rest,
            .salePrice = line.decimal("PRETFTV"),
            .reference = line.text("NUMCOM")};
  }

  static NoteRule received(const QString& stock, TotalledLines lines) {
    return {.totals = {.accounts = {stock}, .amount = lineValue, .lines = lines},
            .journalParameter = "JURNIR",
            .perGroup = {{Side::Debit, {Account::From::Totals, stock}}}};
  }

  static std::vector<NoteRule> notes(const Document& document, const PlanInputs& inputs) {
    NoteRule goods = received("CONTSTOCMARFA", TotalledLines::All);
    if (!comesFrom(document, KindId::DeliveryNote)) {
      goods.perGroup.push_back(
          {Side::Credit, {Account::From::Parameter, "CONTNIR"}, AmountOf::Group, kPartner});
      goods.terms.partner = document.header.integer("CODFUR");
      return {goods};
    }
    goods.after = {{Side::Credit, {Account::From::Parameter, "CONTAVIZEXP_M"}, AmountOf::Value}};
    NoteRule products = received("CONTSTOCPROD", TotalledLines::Products);
    products.totals.amount = costOfDelivered;
    products.after = {{Side::Credit, {Account::From::Parameter, "CONTAVIZEXP_P"}, AmountOf::Value}};
    products.lines = &inputs.sameNumber;
    return {goods, products};
  }
};

// A line from a source: quantity, unit cost and sale price; `key` of the source.
Row sourcedLine(const Document& document, const Row& from, const Decimal& cost, const Decimal& salePrice,
                const LedgerKey& key) {
  Row line = companyTable(document.kind->lineTable).emptyRow();
  for (const char* column : {"CODART", "DENUMIRE", "UM"}) line.set(column, Value::raw(from.value(column)));
  const Decimal quantity = from.decimal("QUANTITY");
  line.set("CANT", quantity);
  line.set("QTECOM", quantity);
  line.set("PRETFT", cost);
  line.set("PRETFTV", salePrice);
  line.set("VALOAREFT", Round(quantity * cost, 2));
  line.set("NUMCOM", key.text());
  return line;
}

class SupplierOrderSource : public LineSource {
 public:
  SupplierOrderSource()
      : LineSource(KindId::SupplierOrder, {"TDBGrid4", "fraComenzi", "Lista comenzi", "NUMCOM", "DATACOM",
                                           "Furnizor", "Nu exista comenzi de receptionat."}) {}

  bool isShown(const Document& document) const override {
    return document.lines.empty() || comesFrom(document, KindId::SupplierOrder);
  }

  Recordset offer(const Document& /*document*/) const override {
    return OpenRs(
        "SELECT A.NUMCOM AS NUMCOM, A.DATACOM AS DATACOM, B.NUME AS NUME FROM G_COMFUR A INNER JOIN kt_ter B "
        "ON A.CODFUR = B.COD WHERE A.SOLDAT = 0 AND A.VALIDAT <> 0 AND A.Magazie = ? "
        "ORDER BY A.DATACOM NULLS FIRST, A.NUMCOM",
        {session().gMagazie});
  }

  Checks checks(const QString& number) const override {
    Checks checks = addedToStored("Va rugam selectati un NIR pentru adaugarea comenzii !",
                                  "Va rugam salvati mai intai NIR-ul !");
    checks.push_back(sureToAdd("comanda", number));
    checks.push_back(
        askedAgain("Comanda cu numarul %1 a fost deja adaugata la NIR-ul %2 ! Readaugati aceasta comanda ?",
                   "Comanda cu numarul %1 a fost deja adaugata la un NIR ! Readaugati aceasta comanda ?",
                   number, "nir", "cfnir"));
    return checks;
  }

  AddedLines lines(const Document& document, TypedHeader& /*header*/, const QString& number) const override {
    AddedLines added;
    for (const Row& from : OpenRs("SELECT L.CODART AS CODART, L.DENUMIRE AS DENUMIRE, L.UM AS UM, "
                                  "L.CANTRLIV AS QUANTITY, L.PRETFT AS PRETFT, A.PRETVFT AS PRETVFT "
                                  "FROM G_LCOMFU L LEFT JOIN G_ARTMAG A ON A.CODART = L.CODART "
                                  "WHERE L.NUMCOM = ? AND L.CANTRLIV > 0 ORDER BY L.NRLINIE",
                                  {number})
                               .takeRows())
      added.lines.push_back(sourcedLine(document, from, from.decimal("PRETFT"), from.decimal("PRETVFT"),
                                        {KindId::SupplierOrder, number}));
    return added;
  }
};

// Goods of a delivery note that are neither invoiced nor returned come back at the cost at which they left.
class ReturnSource : public LineSource {
 public:
  ReturnSource() : LineSource(KindId::DeliveryNote) {}

  Checks checks(const QString& number) const override {
    Check empty = refusedWhen("Introduceti numai cifre in campul Observatii ! ", "OBS",
                              [number](const Document&) { return number.isEmpty(); });
    empty.title = kReturnTitle;
    Checks checks{empty};
    for (Check& check :
         addedToStored("Va rugam salvati mai intai NIR-ul !", "Va rugam salvati mai intai NIR-ul !"))
      checks.push_back(check);
    checks.push_back(refusedWhen(
        "Exista facturi client nevalidate, pe baza de Aviz. Returul nu se poate efectua.", {},
        [](const Document&) {
          return !OpenRs(
                      "SELECT F.NUMFAC AS NUMFAC FROM G_FACCLI F INNER JOIN G_LFACCL L ON L.NUMFAC = "
                      "F.NUMFAC "
                      "WHERE F.VALIDAT = 0 AND EXISTS (SELECT 1 FROM G_LAECLI A WHERE A.CODART = L.CODART) "
                      "LIMIT 1",
                      {})
                      .isEmpty();
        }));
    return checks;
  }

  AddedLines lines(const Document& document, TypedHeader& /*header*/, const QString& number) const override {
    AddedLines added;
    for (const Row& from :
         OpenRs("SELECT B.CODART AS CODART, B.DENUMIRE AS DENUMIRE, B.UM AS UM, "
                "B.CANTRAMAS AS QUANTITY, B.VALOARECOST AS VALOARECOST, B.CANT AS CANT "
                "FROM G_AECLI A INNER JOIN G_LAECLI B ON B.NUMAE = A.NUMAE WHERE A.NUMAE = ? "
                "AND A.VALIDAT <> 0 AND B.CANTRAMAS > 0 ORDER BY B.NRLINIE",
                {number})
             .takeRows()) {
      const Decimal delivered = from.decimal("CANT");
      const Decimal cost = delivered.isZero() ? Decimal(0) : from.decimal("VALOARECOST") / delivered;
      added.lines.push_back(sourcedLine(document, from, cost, cost, {KindId::DeliveryNote, number}));
    }
    if (added.lines.empty())
      throw RuleError(QStringLiteral("Avizul %1 nu s-a gasit in Documente ! ").arg(number), "OBS", 0,
                      kReturnTitle);
    return added;
  }

  bool isOpen(const QString& field) const override {
    return LineSource::isOpen(field) && field != QStringLiteral("PRETFT");
  }
};

// A second note on the same lot is asked about.
Check remarkUsed() {
  return {.text = "Exista NIR numarul %1 - %2",
          .field = "OBS",
          .fault = [](const Document& document) -> std::optional<Fault> {
            const QString remark = document.typed().text("OBS");
            if (remark.isEmpty()) return std::nullopt;
            const Recordset found = OpenRs(
                "SELECT ID, OBS FROM G_DOCUME WHERE TIP = 'NR' AND SUBSTR(OBS, 1, ?) = ? ORDER BY ID LIMIT 1",
                {static_cast<qint64>(remark.size()), remark});
            if (found.isEmpty()) return std::nullopt;
            return Fault{{found.first().text("ID"), found.first().text("OBS")}};
          },
          .outcome = Outcome::Ask,
          .title = QStringLiteral("Continuati ?")};
}

// The products of a returned delivery note are posted at what they cost; a shortage is posted with its sign.
PostedSum postedValue() {
  PostedSum value = postedDebit(
      "(D.TOTALFT + COALESCE((SELECT SUM(B.VALOARECOST) FROM G_LAECLI B INNER JOIN G_ARTMAG A ON A.CODART = "
      "B.CODART WHERE A.PROVENIENTA = 'P' AND B.NUMAE = (SELECT SUBSTR(MIN(C.REFERINTA), 3) FROM G_LDOCUM C "
      "WHERE C.DOCID = D.ID AND C.REFERINTA >= 'AE' AND C.REFERINTA < 'AF')), 0))");
  value.amounts.append("-D.TOTALFT");
  value.when = "COALESCE(D.TIPIE, '') <> 'S'";  // opening stock is not posted
  return value;
}

ListingKind listingForm() {
  ListingKind paper{KindId::ReceiptNote, "frmLstNIR", "Listare NIR", "NIR"};
  paper.headerSql = "SELECT F.NUMNR, F.CODFUR, F.BATVA, F.OBS, F.DATANR FROM G_NRFURN AS F WHERE F.NUMNR = ?";
  paper.linesSql = printedLines("G_LNRFUR", "NUMNR");
  paper.partner = kPrintedPartner;
  return paper;
}

}  // namespace

DocumentKind receiptNote() {
  DocumentKind kind = kindOf(KindId::ReceiptNote, "goods receipt note", "frmGrilaNIR");
  static const ReceiptNoteRules rules;
  static const SupplierOrderSource orders;
  static const ReturnSource returns;
  kind.rules = &rules;
  kind.sources = {&orders, &returns};
  kind.paper = listingForm();
  kind.posted = {postedValue()};
  kind.headerTable = "G_NRFURN";
  kind.lineTable = "G_LNRFUR";
  kind.numberColumn = "NUMNR";
  kind.dateColumn = "DATANR";
  kind.partnerColumn = "CODFUR";
  kind.remarkColumn = "OBS";
  kind.tipie = "I";
  kind.sourceColumn = "NUMCOM";
  kind.existsKind = "NIR";
  kind.partnersAreSuppliers = true;
  kind.lineCheck.salePrice = "PRETFTV";
  kind.texts.numberTaken = numberTakenText("N.I.R.");
  kind.headerChecks = {numberEmpty(kind, "N.I.R."), supplierEmpty(kind), percentNotPositive("BATVA"),
                       numberTaken(kind)};
  kind.validationChecks = {nothingSelected(kind, "Va rugam selectati un N.I.R. !"), noLines("N.I.R.-ul"),
                           beforeFiscalYear(kind), remarkUsed()};
  kind.lineChecks = {distinctArticles(), withinNotes(), completeLines(), salePricesNotBelowCost()};
  kind.printChecks = {nothingSelected(kind, "Nu este selectat nici-un NIR"),
                      printWithoutPartner(kind, "Nu este selectat nici-un furnizor"), printUnsaved(kind)};
  kind.headerFields = {
      {HeaderFieldType::Number, "NUMNR", "txtFields(0)", "&Numar", "Introduceti maxim 20 caractere"},
      {HeaderFieldType::Date, "DATANR", "dtpDataDoc", "&Data N.I.R.", ""},
      supplier("Selectati furnizor in lista de furnizori"),
      purchaseVatPercent("BATVA"),
      {HeaderFieldType::Flag, "STOCINITIAL", "chkStocInitial", "&Stoc initial",
       "Executati clik daca este NIR de preluare stocuri initiale"},
      {HeaderFieldType::Flag, "NoteContabile", "chkNoteContabile", "Note Contabile ",
       "Bifati daca N.I.R.-ul genereaza note contabile", "", "-1"},
      {HeaderFieldType::Flag, "", "chkReturMf", "&Retur marfa", "Executati clik daca este NIR de retur"},
      supplierRemark("Maxim 35 caractere", 35)};
  kind.lineColumns = leadingColumns(kind);
  kind.lineColumns += QList<LineColumn>{
      {"CANT", "Cantitate", LineEntry::PositiveNumber, 3, 3, 12},
      {"QTECOM", "Cant. comandata", LineEntry::PositiveNumber, 3, kAsTyped, 12},
      {"PRETFT", "Pret unitar", LineEntry::PositiveNumber, 2, 2, 12},
      {"VALOAREFT", "Valoare", LineEntry::Locked, 2, kAsTyped, 14},
      {"PRETFTV", "Pret vanzare", LineEntry::PositiveNumber, 2, 2, 12},
      {"VALOAREFTV", "Valoare vanzare", LineEntry::Locked, 2, kAsTyped, 14, true, {"CANT", "PRETFTV"}},
      {"NUMCOM", "Document sursa", LineEntry::Locked, -1, kAsTyped, 14, false}};
  kind.texts.title = "N.I.R.";
  kind.texts.draftsCaption = "Lista NIR";
  setTips(kind.texts, "Creare NIR nou", "Stergere NIR selectat", "Tiparire NIR");
  kind.texts.validateTip =
      "Verificare informatii, salvare in tabela Documente modificare stocuri si generare formule contabile";
  setQuestions(kind.texts, "N.I.R.", "Va rugam selectati un N.I.R. !");
  kind.texts.saveFirst = "Va rugam salvati mai intai NIR-ul !";
  kind.texts.confirmDeletion = "Sunteti sigur ca doriti sa stergeti N.I.R.  %1 ?";
  kind.texts.validated = "NIR a fost salvat cu succes in Articole si Documente !";
  kind.texts.unknownArticle = kUnknownArticle;
  return kind;
}

}  // namespace velmar
