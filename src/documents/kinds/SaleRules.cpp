#include "documents/kinds/SaleRules.h"

#include "catalogue/Articles.h"
#include "catalogue/Discounts.h"
#include "config/Lookups.h"
#include "config/Session.h"
#include "documents/LineChecks.h"
#include "documents/Numbering.h"
#include "util/Errors.h"
#include "util/NumberText.h"

namespace velmar {

namespace {

constexpr int kQuantityDecimals = 3;
constexpr int kPercentDecimals = 2;
constexpr int kWhole = 100;  // percent

void priceInCurrency(Row& line, const QString& column, const Row& article, TypedHeader& header,
                     Notices& notices) {
  const QString currency = article.text("CODDEVIZAVANZ").trimmed();
  if (currency.isEmpty()) {
    notices.tell(QStringLiteral("Nu exista pret in valuta "));
    return;
  }
  const Decimal price = article.decimal("PRETDEVIZAVANZ");
  const Decimal rate = Curs(currency, header.date());
  if (rate.isZero())
    notices.tell(QStringLiteral("Nu exista curs valutar pentru data de : %1"), formatDate(header.date()));
  else if (price * rate < article.decimal("PRETVFT"))
    notices.tell(QStringLiteral("Pretul de vanzare stabilit in valuta este mai mic decat pretul in lei !"));
  line.set(column, price);
  line.set("PRETFT", header.isForeign() ? price : price * rate);
  const HeaderField* shown = header.kind().field(HeaderFieldType::Rate);
  if (shown && header.isForeign() && !rate.isZero())
    header.set(shown->key(), editNumber(rate, kRateDecimals));
}

void discount(Row& line) {
  line.set("ValoareFTCuDiscount",
           discountedLine(line.decimal("PRETFT"), line.decimal("DiscountArticol"),
                          line.decimal("DiscountClient"), line.decimal("CANT"), session().NrZec)
               .ValoareFTCuDiscount);
}

bool postsNotes(const Document& document) {
  const QString column = QStringLiteral("NoteContabile");
  return !document.header.has(column) || document.header.flag(column);
}

// The stored text of the header's field of that type; "" when the kind has none.
QString storedText(const Document& document, HeaderFieldType type) {
  const HeaderField* field = document.kind->field(type);
  return field && !field->column.isEmpty() ? document.header.text(field->column) : QString();
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

void SaleRules::completeLine(Row& line, const Row& article, TypedHeader& header, Notices& notices) const {
  line.set("UM", article.text("UM"));
  QStringList numbers{"CANT", "VALOAREFT", "VALOARETVA", "VALOARETTI"};
  if (!columns_.cost.isEmpty()) numbers.append(columns_.cost);
  for (const QString& column : numbers)
    if (line.isNull(column)) line.set(column, Decimal(0));
  for (const char* column : {"DiscountArticol", "DiscountClient"}) line.set(column, Decimal(0));
  if (!columns_.currencyPrice.isEmpty()) line.set(columns_.currencyPrice, Decimal(0));
  line.set("PRETFT", article.decimal("PRETVFT"));
  if (header.isTicked("chkCalculValuta"))
    priceInCurrency(line, columns_.currencyPrice, article, header, notices);
  line.set("ValoareFTCuDiscount", line.decimal("PRETFT"));
  if (!line.decimal("CANT").isZero()) recalculate(line, QStringLiteral("CANT"), header, notices);
}

void SaleRules::recalculate(Row& line, const QString& changed, const TypedHeader& header,
                            Notices& /*notices*/) const {
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

QStringList SaleRules::totalColumns() const {
  QStringList columns{"VALOAREFT", "VALOARETVA", "VALOARETTI"};
  if (!columns_.cost.isEmpty()) columns.append(columns_.cost);
  return columns;
}

Effects SaleRules::effects(const Document& document, const PlanInputs& inputs) const {
  const TypedHeader typed = document.typed();
  const Terms terms{typed.isForeign() ? storedText(document, HeaderFieldType::Currency) : QString(),
                    typed.rate(), inputs.vatPercent, inputs.vatAccount, typed.costCentre()};
  if (typed.isForeign() && !terms.isForeign())
    throw RuleError(QStringLiteral("Va rugam selectati codul valutei din lista !"),
                    document.kind->field(HeaderFieldType::Currency)->key());
  Effects effects;
  effects.lines = document.lines;
  const bool moves = movesStock(document);
  if (inputs.isFifo() && moves) takeLots(effects, inputs.lots);
  if (!inputs.isFifo() && columns_.costsAtValidation) takeCosts(effects, inputs.articles);
  effects.ledger = {ledgerWith(document, effects.lines, terms, inputs)};
  if (!moves) effects.ledger.front().direction.clear();
  for (const Row& line : effects.lines)
    if (moves) effects.stock.push_back({line.text("CODART"), line.decimal("CANT"), {}, {}, StockRule::Issue});
  if (!postsNotes(document)) return effects;
  NoteTerms noteTerms;
  noteTerms.partner = document.header.integer(document.kind->partnerColumn);
  noteTerms.dueDate = effects.ledger.front().dueDate;
  noteTerms.inCurrencyForm = true;
  noteTerms.currency = terms.currency;
  noteTerms.rate = terms.rate;
  noteTerms.costCentre = terms.costCentre;
  noteTerms.vatPercent = terms.vatPercent;
  effects.notes = notes(document, inputs, noteTerms);
  return effects;
}

// Sets the line's cost and discounts for its quantity.
void SaleRules::takeQuantity(Row& line, const TypedHeader& header) const {
  const QString article = line.text("CODART");
  const Decimal quantity = line.decimal("CANT");
  if (!columns_.openQuantity.isEmpty()) line.set(columns_.openQuantity, quantity);
  const bool isReturn = takeReturned(line, header);
  if (!isReturn && !columns_.cost.isEmpty()) {
    if (const auto sourced = sourcedCost(line)) {
      line.set(columns_.cost, *sourced);
    } else if (TIPCOST() == kFifo && !quantity.isNegative()) {
      OpenLots lots = OpenLots::read({article});
      line.set(columns_.cost,
               Round(lots.costFIFO(article, quantity, CostFollows::LotWithRemainder).value, kCostDecimals));
    } else {
      line.set(columns_.cost, columns_.costsOneUnit ? CostArticol(article) : quantity * CostArticol(article));
    }
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
void SaleRules::takeLots(Effects& effects, OpenLots lots) const {
  for (Row& line : effects.lines) {
    const Decimal quantity = line.decimal("CANT");
    if (quantity <= 0 || !lots.has(line.text("CODART"))) continue;
    Consumption consumption = lots.costFIFO(line.text("CODART"), quantity, CostFollows::LotWithRemainder);
    line.set(columns_.cost, Round(consumption.value, kCostDecimals));
    effects.changedLines.push_back(line);
    effects.consumed.push_back(std::move(consumption));
  }
  effects.changedColumns = QStringList{columns_.cost};
}

// The lines cost what their articles cost now.
void SaleRules::takeCosts(Effects& effects, const ArticleTable& articles) const {
  for (Row& line : effects.lines)
    line.set(columns_.cost, line.decimal("CANT") * articles.of(line.text("CODART")).figures.COST);
  effects.changedLines = effects.lines;
  effects.changedColumns = QStringList{columns_.cost};
}

// The cost of the whole line, negative for returned goods.
Decimal SaleRules::lineCost(const Row& line, bool isFifo) const {
  if (columns_.cost.isEmpty()) return {};
  const Decimal quantity = line.decimal("CANT");
  const Decimal cost = line.decimal(columns_.cost);
  const Decimal size = (columns_.costsOneUnit && !isFifo ? cost * quantity : cost).abs();
  return quantity.isNegative() ? -size : size;
}

LedgerLine SaleRules::ledgerLine(const Row& line, const Terms& terms, const PlanInputs& inputs) const {
  const Decimal quantity = line.decimal("CANT");
  const Decimal price = line.decimal("ValoareFTCuDiscount");
  LedgerLine ledger;
  ledger.article = line.text("CODART");
  ledger.quantity = quantity;
  ledger.price = terms.inLei(price);
  ledger.priceWithVat = Round(ledger.price * (1 + terms.vatPercent / 100), inputs.decimals);
  if (terms.isForeign()) ledger.priceInCurrency = price;
  ledger.vat = terms.inLei(line.decimal("VALOARETVA"));
  ledger.cost = lineCost(line, inputs.isFifo()).abs();
  ledger.unitCost = (ledger.cost / quantity).abs();
  if (terms.isForeign() && !terms.rate.isZero())
    ledger.unitCostInCurrency = (ledger.unitCost / terms.rate).abs();
  ledger.costInCurrency = (quantity * ledger.unitCostInCurrency).abs();
  ledger.vatPercent = terms.vatPercent;
  ledger.costCentre = terms.costCentre;
  ledger.discountPercent =
      Round(line.decimal("DiscountArticol") + line.decimal("DiscountClient"), kPercentDecimals);
  ledger.discountedPrice = Round(ledger.price, kPercentDecimals);
  if (line.has("PALET")) ledger.palet = line.text("PALET");
  if (quantity.isNegative()) ledger.rest = quantity.abs();  // returned goods are a lot
  if (!columns_.openQuantity.isEmpty()) ledger.rest = quantity;
  return ledger;
}

LedgerDocument SaleRules::ledgerWith(const Document& document, const std::vector<Row>& lines,
                                     const Terms& terms, const PlanInputs& inputs) const {
  LedgerDocument ledger = ledgerOf(document);
  Decimal value;
  for (const Row& line : lines) {
    value += line.decimal("VALOAREFT");
    ledger.vat += line.decimal("VALOARETVA");
    ledger.cost += lineCost(line, inputs.isFifo());
    ledger.lines.push_back(ledgerLine(line, terms, inputs));
    if (!document.kind->sourceColumn.isEmpty())
      ledger.lines.back().reference = line.text(document.kind->sourceColumn);
  }
  ledger.value = terms.inLei(value);
  ledger.vat = terms.inLei(ledger.vat);
  ledger.rate.reset();
  if (terms.isForeign()) {
    ledger.currency = terms.currency;
    ledger.rate = terms.rate;
    ledger.valueInCurrency = value;
  }
  if (const HeaderField* due = document.kind->field(HeaderFieldType::DueDate))
    ledger.dueDate = document.header.date(due->column);
  if (const HeaderField* payment = document.kind->field(HeaderFieldType::PaymentMode))
    ledger.paymentMode = document.header.integer(payment->column);
  if (document.header.has("SERIE") && inputs.series != kNoSeries) ledger.series = inputs.series;
  return ledger;
}

Decimal SaleRules::signedCost(const Row& line, const ArticleFacts& /*article*/) {
  const Decimal cost = line.decimal("COST");
  return line.decimal("CANT").isNegative() ? -cost.abs() : cost;
}

NoteRule SaleRules::saleNote(const NoteTerms& terms, const Account& account, const QString& vatAccount) {
  return {
      .totals = {{"CONTVEN"}, lineValue, lineVat},
      .perGroup = {{Side::Credit,
                    {Account::From::Totals, "CONTVEN"},
                    AmountOf::Group,
                    kVatLink | kVatPercent | kCostCentre}},
      .after =
          {{Side::Credit, {Account::From::Given, vatAccount}, AmountOf::Vat, kVatLink | kCostCentre, true},
           {Side::Debit, account, AmountOf::Gross, kPartner | kCostCentre}},
      .inDocumentCurrency = true,
      .terms = terms};
}

NoteRule SaleRules::costOfGoods(const NoteTerms& terms, LineAmount cost, TotalledLines lines,
                                bool byQuantity) {
  return {
      .totals = {.accounts = {"CONTCHELT", "CONTSTOCMARFA"},
                 .amount = cost,
                 .lines = lines,
                 .byQuantity = byQuantity},
      .journalParameter = "JURBONCONS",
      .perGroup = {{Side::Debit, {Account::From::Totals, "CONTCHELT"}, AmountOf::Group, kCostCentre},
                   {Side::Credit, {Account::From::Totals, "CONTSTOCMARFA"}, AmountOf::Group, kCostCentre}},
      .skipsZero = true,
      .terms = terms};
}

NoteRule SaleRules::costOfProducts(const NoteTerms& terms, LineAmount cost) {
  return {
      .totals = {.accounts = {"CONTSTOCPROD"}, .amount = cost, .lines = TotalledLines::HeldProducts},
      .journalParameter = "JURBONCONS",
      .perGroup = {{Side::Credit, {Account::From::Totals, "CONTSTOCPROD"}, AmountOf::Group, kCostCentre},
                   {Side::Debit, {Account::From::Parameter, "CONTINTRPROD"}, AmountOf::Group, kCostCentre}},
      .skipsZero = true,
      .terms = terms};
}

}  // namespace velmar
