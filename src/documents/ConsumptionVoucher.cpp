// The consumption voucher: goods are issued at cost for the company's own use.
#include "config/Session.h"
#include "documents/IssueChecks.h"
#include "documents/KindRules.h"

namespace velmar {

namespace {

constexpr int kTotalDecimals = 4;
constexpr int kUnitCostDecimals = 2;

const NoteRule kNote{"G_LBONCONFIFO",
                     "JURBONCONS",
                     {},
                     {{Side::Debit, AccountSource::Totals, "CONTCHELT", AmountOf::Group, kCostCentre},
                      {Side::Credit, AccountSource::Totals, "CONTSTOCMARFA"}},
                     {}};

class ConsumptionVoucherRules : public KindRules {
 public:
  void completeLine(Row& line, const Row& article, TypedHeader& header) const override {
    line.set("UM", article.text("UM"));
    for (const char* column : {"CANT", "VALOAREFT", "VALOARETVA", "VALOARETTI"})
      if (line.isNull(column)) line.set(column, Decimal(0));
    if (TIPCOST() != kFifo && line.decimal("PRETFT").isZero()) line.set("PRETFT", article.decimal("COST"));
    recalculate(line, QStringLiteral("CANT"), header);
  }

  void recalculate(Row& line, const QString& changed, const TypedHeader& /*header*/) const override {
    if (changed == QStringLiteral("VALOARETVA"))
      line.set("VALOARETTI", line.decimal("VALOAREFT") + line.decimal("VALOARETVA"));
    if (changed != QStringLiteral("CANT") && changed != QStringLiteral("PRETFT")) return;
    line.set("CANTRAMAS", line.decimal("CANT"));
    if (changed == QStringLiteral("CANT") && TIPCOST() == kFifo) {
      OpenLots lots({line.text("CODART")});
      cost(line, lots);
    } else {
      line.set("VALOAREFT", Round(line.decimal("CANT") * line.decimal("PRETFT"), session().NrZec));
    }
  }

  void requireStock(const Document& document) const override {
    requireAvailable(document, Stocked::All, QStringLiteral("Articolul: %1 are disponibil numai %2"));
  }

  QStringList totalColumns() const override { return {"VALOAREFT", "VALOARETVA", "VALOARETTI"}; }

  Plan plan(Document& document) const override {
    Plan plan;
    const QString method = TIPCOST();
    if (method == kFifo) takeLots(document, plan);
    LedgerDocument ledger = ledgerOf(document);
    ledger.lineColumns = QStringList{"ARTID", "CANT",    "PRETFT",  "PRETTTI",    "PRETDEV", "VALTVA",
                                     "COST",  "COSTDEV", "VALCOST", "VALCOSTDEV", "CODTVA",  "CODCC"};
    const QString costCentre = document.typed.value(QStringLiteral("DataCombo2")).trimmed();
    const Value written = costCentre.isEmpty() ? Value() : Value(costCentre);
    const Decimal zero;
    Decimal total;
    for (const Row& line : document.lines) {
      const Decimal unit = line.decimal("PRETFT");
      const Decimal value = line.decimal("VALOAREFT");
      total += Round(value, kTotalDecimals);
      ledger.lines.push_back({line.text("CODART"), line.decimal("CANT"), unit, zero, zero, zero, unit, zero,
                              value, zero, zero, written});
      plan.stock.push_back({line.text("CODART"), line.decimal("CANT"), {}, {}, StockRule::Issue});
    }
    addTotalsInLei(ledger, total, zero, total);
    plan.ledger.push_back(std::move(ledger));
    plan.posting.notes = {kNote};
    if (method == QStringLiteral("MP")) plan.posting.notes.front().totals = "G_LBONCON";
    plan.posting.costCentre = costCentre;
    return plan;
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

  static void takeLots(Document& document, Plan& plan) {
    OpenLots lots(articlesOf(document.lines));
    for (Row& line : document.lines) {
      Consumption consumption = cost(line, lots);
      if (!consumption.takes.empty()) plan.lots.push_back(std::move(consumption));
    }
    plan.costedLines = document.lines;
    plan.costColumns = QStringList{"VALOAREFT", "PRETFT"};
  }
};

}  // namespace

std::unique_ptr<KindRules> makeConsumptionVoucherRules() {
  return std::make_unique<ConsumptionVoucherRules>();
}

}  // namespace velmar
