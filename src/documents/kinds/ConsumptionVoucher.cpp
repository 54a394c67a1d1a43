// The consumption voucher: goods are issued at cost for the company's own use.
#include "config/Session.h"
#include "documents/KindRules.h"
#include "documents/kinds/SaleWording.h"

namespace velmar {

using namespace wording;

namespace {

constexpr int kTotalDecimals = 4;
constexpr int kUnitCostDecimals = 2;

class ConsumptionVoucherRules : public KindRules {
 public:
  void completeLine(Row& line, const Row& article, TypedHeader& /*header*/,
                    Notices& /*notices*/) const override {
    line.set("UM", article.text("UM"));
    for (const char* column : {"CANT", "VALOAREFT", "VALOARETVA", "VALOARETTI"})
      if (line.isNull(column)) line.set(column, Decimal(0));
    if (TIPCOST() != kFifo && line.decimal("PRETFT").isZero()) line.set("PRETFT", article.decimal("COST"));
    calculate(line);
  }

  void recalculate(Row& line, const QString& changed, const TypedHeader& /*header*/,
                   Notices& /*notices*/) const override {
    if (changed == QStringLiteral("VALOARETVA"))
      line.set("VALOARETTI", line.decimal("VALOAREFT") + line.decimal("VALOARETVA"));
    else if (changed == QStringLiteral("CANT"))
      calculate(line);
    else if (changed == QStringLiteral("PRETFT"))
      value(line);
  }

  QStringList totalColumns() const override { return {"VALOAREFT", "VALOARETVA", "VALOARETTI"}; }

  Effects effects(const Document& document, const PlanInputs& inputs) const override {
    Effects effects;
    effects.lines = document.lines;
    if (inputs.isFifo()) takeLots(inputs.lots, effects);
    LedgerDocument ledger = ledgerOf(document);
    const QString costCentre = document.typed().costCentre();
    for (const Row& line : effects.lines) {
      const Decimal unit = line.decimal("PRETFT");
      const Decimal value = line.decimal("VALOAREFT");
      ledger.value += Round(value, kTotalDecimals);
      ledger.lines.push_back({.article = line.text("CODART"),
                              .quantity = line.decimal("CANT"),
                              .price = unit,
                              .unitCost = unit,
                              .cost = value,
                              .costCentre = costCentre});
      effects.stock.push_back({line.text("CODART"), line.decimal("CANT"), {}, {}, StockRule::Issue});
    }
    ledger.cost = ledger.value;
    effects.ledger = {std::move(ledger)};
    const bool isAverage = inputs.costMethod == QStringLiteral("MP");
    NoteRule note{
        .totals = {{"CONTCHELT", "CONTSTOCMARFA"}, isAverage ? atCost : lineValue},
        .journalParameter = "JURBONCONS",
        .perGroup = {{Side::Debit, {Account::From::Totals, "CONTCHELT"}, AmountOf::Group, kCostCentre},
                     {Side::Credit, {Account::From::Totals, "CONTSTOCMARFA"}}}};
    note.terms.costCentre = costCentre;
    effects.notes = {std::move(note)};
    return effects;
  }

 private:
  // The line's value from its lots; without lots the line is unchanged.
  static Consumption cost(Row& line, OpenLots& lots) {
    const Decimal quantity = line.decimal("CANT");
    const QString article = line.text("CODART");
    if (!lots.has(article)) return {};
    Consumption consumption = lots.costFIFO(article, quantity, CostFollows::LastLot);
    line.set("VALOAREFT", consumption.value);
    line.set("PRETFT",
             quantity.isZero() ? Decimal(0) : Round(consumption.value / quantity, kUnitCostDecimals));
    return consumption;
  }

  static void calculate(Row& line) {
    if (TIPCOST() != kFifo) return value(line);
    line.set("CANTRAMAS", line.decimal("CANT"));
    OpenLots lots = OpenLots::read({line.text("CODART")});
    cost(line, lots);
  }

  static void value(Row& line) {
    line.set("CANTRAMAS", line.decimal("CANT"));
    line.set("VALOAREFT", Round(line.decimal("CANT") * line.decimal("PRETFT"), session().NrZec));
  }

  static void takeLots(OpenLots lots, Effects& effects) {
    for (Row& line : effects.lines) {
      Consumption consumption = cost(line, lots);
      if (!consumption.takes.empty()) effects.consumed.push_back(std::move(consumption));
    }
    effects.changedLines = effects.lines;
    effects.changedColumns = QStringList{"VALOAREFT", "PRETFT"};
  }

  static Decimal atCost(const Row& line, const ArticleFacts& article) {
    return line.decimal("CANT") * article.figures.COST;
  }
};

ListingKind listingForm() {
  ListingKind paper{KindId::ConsumptionVoucher, "frmLstBonConsum", "Bon de consum", "BonConsumFull"};
  paper.headerSql =
      "SELECT A.NUMAE, A.CODCLI, A.BATVA1, A.OBSERV, A.DATAAE FROM G_BONCON AS A WHERE A.NUMAE = ?";
  paper.linesSql = printedLines("G_LBONCON", "NUMAE");
  paper.partner = printedCustomer({});
  return paper;
}

}  // namespace

DocumentKind consumptionVoucher() {
  DocumentKind kind = kindOf(KindId::ConsumptionVoucher, "consumption voucher", "frmGRILABonConsum");
  kind.headerTable = "G_BONCON";
  kind.lineTable = "G_LBONCON";
  kind.numberColumn = "NUMAE";
  kind.dateColumn = "DATAAE";
  kind.partnerColumn = "CODCLI";
  kind.remarkColumn = "OBSERV";
  kind.tipie = "E";
  kind.existsKind = "BONCONS";
  kind.texts.numberTaken = numberTakenText("Avizul");
  static const ConsumptionVoucherRules rules;
  kind.rules = &rules;
  // Otherwise it is what the goods cost at that time.
  const QString isFifo = "(SELECT I.TCOST FROM kt_info I) = 'FIFO'";
  kind.posted = {postedDebit("D.TOTALFT"), {PostedSum::Rows::Others, PostedSum::Is::Present, {"D.TOTALFT"}}};
  kind.posted.front().when = isFifo;
  kind.paper = listingForm();
  kind.headerChecks = {numberEmpty(kind, "avizului"), customerEmpty(kind), percentNotPositive("BATVA1"),
                       numberTaken(kind)};
  kind.validationChecks = {nothingSelected(kind, "Va rugam selectati un bon de consum !"),
                           noLines("Bonul de consum"), beforeFiscalYear(kind)};
  kind.lineChecks = {distinctArticles(), completeLines(),
                     stockSuffices(Stocked::All, "Articolul: %1 are disponibil numai %2")};
  kind.articleList = "TR";
  kind.printChecks = {nothingSelected(kind, "Va rugam selectati un bon de consum !"),
                      printWithoutPartner(kind, "Va rugam selectati un client"), printUnsaved(kind)};
  kind.headerFields = {
      {HeaderFieldType::Number, "NUMAE", "txtFields(0)", "&Numar BC", "Introduceti maxim 20 caractere"},
      {HeaderFieldType::Date, "DATAAE", "dtpDataFactura", "&Data BC", ""},
      {HeaderFieldType::Partner, "CODCLI", "txtFields(1)", "&Client",
       "Selectati client, din lista de clienti", "DataCombo1"},
      vatPercent("BATVA1"),
      {HeaderFieldType::CostCentre, "", "DataCombo2", "Centru de cost", "Selectati centru de costa in lista",
       "", "", 0, true},
      {HeaderFieldType::Remark, "OBSERV", "txtFields(3)", "&Observatii", "Introduceti maxim 45 caractere"}};
  kind.lineColumns = leadingColumns(kind);
  kind.lineColumns +=
      QList<LineColumn>{{"CANT", "Cantitate", LineEntry::PositiveNumber, 3, 3, 12},
                        {"CANTRAMAS", "Cantitate ramasa", LineEntry::Locked, 3, kAsTyped, 12},
                        price("PRETFT", "Pret unitar", LineEntry::PositiveNumber),
                        value("VALOAREFT", "Valoare"),
                        {"VALOARETVA", "Valoare TVA", LineEntry::Number, kSessionDecimals, 2, 14},
                        value("VALOARETTI", "Valoare Totala")};
  kind.texts.title = "Bon de consum";
  kind.texts.draftsCaption = "Lista bonuri de consum";
  setTips(kind.texts, "Initializare campuri, pentru creare BC nou", "Stergere BC selectat", "Tiparire BC");
  kind.texts.validateTip =
      "Verificare informatii, salvare in tabela Documente, modificare stoc, generare formule contabile";
  setQuestions(kind.texts, "bonul de consum", "Va rugam selectati un aviz !");
  kind.texts.confirmDeletion = "Sunteti sigur ca doriti sa stergeti avizul %1 ?";
  kind.texts.validated = "Bonul de consum a fost salvat cu succes in Articole si Documente !";
  kind.texts.ledgerFailure = kind.texts.stockFailure = kind.texts.postingFailure =
      "%1 - %2 in procedura SalvareDocumente din Form frmGRILABonConsum Linia: %3";
  return kind;
}

}  // namespace velmar
