#include "documents/SaleRules.h"

#include "catalogue/Articles.h"
#include "catalogue/Discounts.h"
#include "config/Lookups.h"
#include "config/Session.h"
#include "documents/IssueChecks.h"
#include "documents/LineChecks.h"
#include "util/Errors.h"
#include "util/Messages.h"
#include "util/NumberText.h"

namespace velmar {

/// The currency and rate of a document.
struct SaleRules::Terms {
  QString currency;  ///< empty: lei
  Decimal rate;
  Decimal vatPercent;
  QString costCentre;
  bool isFifo = false;

  /// An amount of the document in lei.
  Decimal inLei(const Decimal& amount) const { return currency.isEmpty() ? amount : amount * rate; }
};

namespace {

constexpr int kQuantityDecimals = 3;
constexpr int kCurrencyAmountDecimals = 4;
constexpr int kPercentDecimals = 2;
constexpr int kWhole = 100;  // percent
const QString kNoSeries = QStringLiteral("00");

void priceInCurrency(Row& line, const Row& article, TypedHeader& header) {
  const QString currency = article.text("CODDEVIZAVANZ").trimmed();
  if (currency.isEmpty()) {
    Mesaj(QStringLiteral("Nu exista pret in valuta "));
    return;
  }
  const Decimal price = article.decimal("PRETDEVIZAVANZ");
  const Decimal rate = Curs(currency, header.date());
  if (rate.isZero())
    Mesaj(QStringLiteral("Nu exista curs valutar pentru data de : ") + formatDate(header.date()));
  else if (price * rate < article.decimal("PRETVFT"))
    Mesaj(QStringLiteral("Pretul de vanzare stabilit in valuta este mai mic decat pretul in lei !"));
  line.set("PRETVALUTA", price);
  line.set("PRETFT", header.isForeign() ? price : price * rate);
  if (header.isForeign() && !rate.isZero()) header.set("Curs", editNumber(rate, kRateDecimals));
}

void discount(Row& line) {
  line.set("ValoareFTCuDiscount",
           discountedLine(line.decimal("PRETFT"), line.decimal("DiscountArticol"),
                          line.decimal("DiscountClient"), line.decimal("CANT"), session().NrZec)
               .ValoareFTCuDiscount);
}

void CALC(Row& line, const TypedHeader& header) {
  const int decimals = session().NrZec;
  const Decimal product = line.decimal("ValoareFTCuDiscount") * line.decimal("CANT");
  const Decimal value = Round(product, decimals);
  const Decimal vat = Round(product * header.vatPercent() / 100, decimals);
  line.set("VALOAREFT", value);
  line.set("VALOARETVA", vat);
  line.set("VALOARETTI", value + vat);
}

}  // namespace

void SaleRules::completeLine(Row& line, const Row& article, TypedHeader& header) const {
  line.set("UM", article.text("UM"));
  for (const char* column : {"CANT", "VALOAREFT", "VALOARETVA", "VALOARETTI", "COST"})
    if (line.isNull(column)) line.set(column, Decimal(0));
  for (const char* column : {"DiscountArticol", "DiscountClient", "PRETVALUTA"}) line.set(column, Decimal(0));
  line.set("PRETFT", article.decimal("PRETVFT"));
  if (header.isTicked("chkCalculValuta")) priceInCurrency(line, article, header);
  line.set("ValoareFTCuDiscount", line.decimal("PRETFT"));
  if (!line.decimal("CANT").isZero()) recalculate(line, QStringLiteral("CANT"), header);
}

void SaleRules::recalculate(Row& line, const QString& changed, const TypedHeader& header) const {
  if (changed == QStringLiteral("VALOARETVA")) {
    line.set("VALOARETTI", line.decimal("VALOAREFT") + line.decimal("VALOARETVA"));
    return;
  }
  if (changed == QStringLiteral("CANT")) {
    takeQuantity(line, header);
  } else if (changed == QStringLiteral("PRETFT")) {
    discount(line);
  } else if (changed != QStringLiteral("ValoareFTCuDiscount")) {
    return;
  }
  CALC(line, header);
}

void SaleRules::applyRate(Row& line, const TypedHeader& header) const { CALC(line, header); }

// Entering a quantity sets the discounts of a line that has none yet.
CellObjection SaleRules::objection(const Row& line, const QString& field, const Decimal& number,
                                   const TypedHeader& header) const {
  if (field != QStringLiteral("CANT")) return {};
  Row discounted = line;
  discounted.set("CANT", Round(number, kQuantityDecimals));
  takeDiscounts(discounted, header);
  const Decimal percent = discounted.decimal("DiscountArticol") + discounted.decimal("DiscountClient");
  return percent > kWhole ? CellObjection{discountsTooHighText(line.text("CODART"))} : CellObjection{};
}

bool SaleRules::isStale(const Row& line) const {
  const Decimal value = line.decimal("VALOAREFT");
  return value.isNegative() ||
         value != Round(line.decimal("CANT") * line.decimal("ValoareFTCuDiscount"), session().NrZec);
}

void SaleRules::requireStock(const Document& document) const {
  requireAvailable(document, Stocked::OnlyHeld,
                   QStringLiteral("Articolul: %1 are disponibil in stoc numai %2"));
}

Plan SaleRules::plan(Document& document) const {
  const TypedHeader typed(*document.kind, document.typed);
  const QString currency = typed.isForeign() ? document.header.text("CODDeviza") : QString();
  if (typed.isForeign() && currency.isEmpty())
    throw RuleError(QStringLiteral("Va rugam selectati codul valutei din lista !"), "CODDeviza");
  Plan plan;
  const Terms terms{currency, typed.rate(), ProcentTVA(document.header.integer("BATVA1")),
                    typed.text("DataCombo2"), TIPCOST() == kFifo};
  if (terms.isFifo) takeLots(document, plan);
  plan.ledger.push_back(ledgerWithLines(document, terms, plan.stock));
  if (document.header.flag("NoteContabile")) post(document, terms, plan.posting);
  return plan;
}

// Sets the line's cost and discounts for its quantity.
void SaleRules::takeQuantity(Row& line, const TypedHeader& header) const {
  const QString article = line.text("CODART");
  const Decimal quantity = line.decimal("CANT");
  const bool isReturn = takeReturned(line, header);
  if (!isReturn && TIPCOST() == kFifo && !quantity.isNegative()) {
    OpenLots lots({article});
    line.set("COST", Round(lots.costFIFO(article, quantity, CostFollows::LotWithRemainder).value,
                           kCurrencyAmountDecimals));
  } else if (!isReturn) {
    line.set("COST", costsOneUnit() ? CostArticol(article) : quantity * CostArticol(article));
  }
  if (takeDiscounts(line, header) || isReturn) discount(line);
}

// Sets the discounts of article and customer on a line that has none; returns whether it did.
bool SaleRules::takeDiscounts(Row& line, const TypedHeader& header) {
  if (!line.decimal("DiscountArticol").isZero() || !line.decimal("DiscountClient").isZero()) return false;
  line.set("DiscountArticol", Decimal(DiscountArticol(line.text("CODART"), line.decimal("CANT"))));
  line.set("DiscountClient", Decimal(DiscountTert(header.partner())));
  return true;
}

// Issues cost what their lots cost; returns, and quantities without a lot, keep their own cost.
void SaleRules::takeLots(Document& document, Plan& plan) const {
  OpenLots lots(articlesOf(document.lines));
  for (Row& line : document.lines) {
    const Decimal quantity = line.decimal("CANT");
    if (quantity <= 0 || !lots.has(line.text("CODART"))) continue;
    Consumption consumption = lots.costFIFO(line.text("CODART"), quantity, CostFollows::LotWithRemainder);
    line.set("COST", Round(consumption.value, kCurrencyAmountDecimals));
    plan.lots.push_back(std::move(consumption));
    plan.costedLines.push_back(line);
  }
  plan.costColumns = QStringList{"COST"};
}

// The cost of the whole line, negative for returned goods.
Decimal SaleRules::signedCost(const Row& line, const Terms& terms) const {
  const Decimal quantity = line.decimal("CANT");
  const Decimal cost = line.decimal("COST");
  const Decimal size = (costsOneUnit() && !terms.isFifo ? cost * quantity : cost).abs();
  return quantity.isNegative() ? -size : size;
}

Values SaleRules::ledgerLine(const Row& line, const Terms& terms) const {
  const Decimal quantity = line.decimal("CANT");
  const Decimal price = line.decimal("ValoareFTCuDiscount");
  const Decimal lei = terms.inLei(price);
  const Decimal cost = signedCost(line, terms).abs();
  const Decimal unit = (cost / quantity).abs();
  const bool hasRate = !terms.currency.isEmpty() && !terms.rate.isZero();
  const Decimal unitInCurrency = hasRate ? (unit / terms.rate).abs() : Decimal(0);
  const QString palet = line.has("PALET") ? line.text("PALET") : QString();
  return {line.text("CODART"),
          quantity,
          lei,
          Round(lei * (1 + terms.vatPercent / 100), session().NrZec),
          terms.currency.isEmpty() ? Decimal(0) : price,
          terms.inLei(line.decimal("VALOARETVA")),
          unit,
          unitInCurrency,
          cost,
          (quantity * unitInCurrency).abs(),
          terms.vatPercent,
          terms.costCentre.isEmpty() ? Value() : Value(terms.costCentre),
          Round(line.decimal("DiscountArticol") + line.decimal("DiscountClient"), kPercentDecimals),
          Round(lei, kPercentDecimals),
          palet.isEmpty() ? Value() : Value(palet),
          quantity.isNegative() ? Value(quantity.abs()) : Value()};  // returned goods are a lot
}

LedgerDocument SaleRules::ledgerWithLines(const Document& document, const Terms& terms,
                                          std::vector<StockChange>& stock) const {
  LedgerDocument ledger = ledgerOf(document);
  ledger.lineColumns =
      QStringList{"ARTID",   "CANT",       "PRETFT", "PRETTTI", "PRETDEV", "VALTVA", "COST",  "COSTDEV",
                  "VALCOST", "VALCOSTDEV", "CODTVA", "CODCC",   "PROCRAB", "VALRAB", "PALET", "CANTRAMASA"};
  Decimal value, vat, cost;
  for (const Row& line : document.lines) {
    value += line.decimal("VALOAREFT");
    vat += line.decimal("VALOARETVA");
    cost += signedCost(line, terms);
    ledger.lines.push_back(ledgerLine(line, terms));
    stock.push_back({line.text("CODART"), line.decimal("CANT"), {}, {}, StockRule::Issue});
  }
  const bool isForeign = !terms.currency.isEmpty();
  const QString series = session().gSerieFC;
  ledger.add({{"TOTALTVA", terms.inLei(vat)},
              {"TOTALFT", terms.inLei(value)},
              {"TOTALCOST", cost},
              {"CODDEV", isForeign ? terms.currency : QStringLiteral("LEI")},
              {"CURS", isForeign ? Value(terms.rate) : Value()},
              {"TOTALDEV", isForeign ? value : Decimal(0)},
              {"DATASCAD", document.header.date("DATASCAD")},
              {"MODREG", document.header.integer("MODREG")},
              {"SERIE", series == kNoSeries ? Value() : Value(series)}});
  return ledger;
}

void SaleRules::post(const Document& document, const Terms& terms, Posting& posting) const {
  posting.notes = notes(terms.isFifo);
  posting.dueDate = document.header.date("DATASCAD");
  posting.inCurrencyForm = true;
  posting.currency = terms.currency;
  posting.rate = terms.rate;
  posting.partner = document.header.integer("CODCLI");
  posting.costCentre = terms.costCentre;
  posting.vatPercent = terms.vatPercent;
  posting.vatAccount = ContTVA(document.header.integer("BATVA1"));
  complete(posting, document);
}

NoteRule SaleRules::saleNote(const char* totals, const char* journalParameter, AccountSource source,
                             const char* account) {
  return {.totals = totals,
          .journalParameter = journalParameter,
          .before = {},
          .perGroup = {{Side::Credit, AccountSource::Totals, "CONTVEN", AmountOf::Group,
                        kVatLink | kVatPercent | kCostCentre}},
          .after = {{Side::Credit, AccountSource::VatRate, "", AmountOf::Vat, kVatLink | kCostCentre, true},
                    {Side::Debit, source, account, AmountOf::Gross, kPartner | kCostCentre}},
          .journalOfDocument = true,
          .inDocumentCurrency = true};
}

NoteRule SaleRules::costOfGoods(const char* totals) {
  return {.totals = totals,
          .journalParameter = "JURBONCONS",
          .before = {},
          .perGroup = {{Side::Debit, AccountSource::Totals, "CONTCHELT", AmountOf::Group, kCostCentre},
                       {Side::Credit, AccountSource::Totals, "CONTSTOCMARFA", AmountOf::Group, kCostCentre}},
          .after = {},
          .skipsZero = true};
}

NoteRule SaleRules::costOfProducts(const char* totals) {
  return {.totals = totals,
          .journalParameter = "JURBONCONS",
          .before = {},
          .perGroup = {{Side::Credit, AccountSource::Totals, "CONTSTOCPROD", AmountOf::Group, kCostCentre},
                       {Side::Debit, AccountSource::Parameter, "CONTINTRPROD", AmountOf::Group, kCostCentre}},
          .after = {},
          .skipsZero = true};
}

}  // namespace velmar
