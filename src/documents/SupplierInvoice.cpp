// The supplier invoice: goods are received at the invoice's price and get their sale prices; a negative line
// is a return to the supplier.
#include "config/Lookups.h"
#include "config/Session.h"
#include "documents/IssueChecks.h"
#include "documents/KindRules.h"
#include "stock/Availability.h"
#include "store/Records.h"
#include "util/Errors.h"
#include "util/Messages.h"
#include "util/NumberText.h"

namespace velmar {

namespace {

constexpr int kTypedVatDecimals = 0;  // of the line's total after VAT was typed

const QString kStockTooSmall = QStringLiteral(
    "Cantitatea din Stoc este mai mica decat cea de pe factura! Stornarea nu se poate efectua !");
const QString kReceiptTooSmall = QStringLiteral("Din documentul %1 au mai ramas numai %2 din articolul %3 !");
const QString kNameTheInvoice =
    QStringLiteral("Va rog introduceti in campul Observatii, numarul facturii de stornat.");
const QString kVatWithoutRate =
    QStringLiteral("Liniile au TVA, dar cota TVA a facturii este 0 ! Validarea nu se poate efectua !");
const QString kNoMethod = QStringLiteral("VA ROG SA ALEGETI METODA DE EVALUARE A STOCURILOR!");

const NoteRule kNote{
    .totals = "G_LFACFU",
    .journalParameter = "JURFACFUR",
    .before = {{Side::Credit, AccountSource::Parameter, "CONTFURNIZORI", AmountOf::Gross, kPartner}},
    .perGroup = {{Side::Debit, AccountSource::Totals, "CONTSTOCMARFA", AmountOf::Group,
                  kVatLinkIfTaxed | kVatPercent}},
    .after = {{Side::Debit, AccountSource::VatRate, "", AmountOf::Vat, kVatLink, true}},
    .journalOfDocument = true};

class SupplierInvoiceRules : public KindRules {
 public:
  void completeLine(Row& line, const Row& article, TypedHeader& header) const override {
    line.set("UM", article.text("UM"));
    for (const char* column : {"CANT", "PRETFT", "VALOAREFT", "VALOARETVA", "VALOARETTI"})
      if (line.isNull(column)) line.set(column, Decimal(0));
    line.set("PRETVA", article.decimal("PRETVFT"));
    recalculate(line, QStringLiteral("PRETFT"), header);
  }

  void recalculate(Row& line, const QString& changed, const TypedHeader& header) const override {
    const int decimals = session().NrZec;
    if (changed == QStringLiteral("VALOARETVA")) {
      line.set("VALOARETTI",
               Round(line.decimal("VALOAREFT") + line.decimal("VALOARETVA"), kTypedVatDecimals));
    } else if (changed == QStringLiteral("CANT") || changed == QStringLiteral("PRETFT")) {
      const Decimal value = Round(line.decimal("PRETFT") * line.decimal("CANT"), decimals);
      const Decimal vat = Round(value * header.vatPercent() / 100, decimals);
      line.set("VALOAREFT", value);
      line.set("VALOARETVA", vat);
      line.set("VALOARETTI", value + vat);
    }
  }

  void applyRate(Row& line, const TypedHeader& header) const override {
    recalculate(line, QStringLiteral("PRETFT"), header);
  }

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

  void requireStock(const Document& document) const override {
    const QHash<QString, Decimal> returned = returnedQuantities(document);
    if (returned.isEmpty()) return;
    const QString receipt = document.header.text("OBS").trimmed();
    const Quantities stock = warehouseStock(returned.keys(), document.header.integer("Magazie"));
    // With the weighted average lots do not determine the cost, and one return may cover several invoices.
    const auto rests =
        TIPCOST() == kFifo ? receiptRests(receipt, returned.keys()) : QHash<QString, Decimal>();
    for (const Row& line : document.lines) {
      if (!line.decimal("CANT").isNegative()) continue;
      const QString article = line.text("CODART");
      if (stock.of(article) < returned.value(article)) throw RuleError(kStockTooSmall, "CODART");
      if (receipt.isEmpty()) throw RuleError(kNameTheInvoice, "OBS");
      const auto rest = rests.find(article.toUpper());
      if (rest != rests.end() && *rest < returned.value(article))
        throw RuleError(kReceiptTooSmall.arg(receipt, editNumber(*rest), article), "CODART");
    }
  }

  QStringList totalColumns() const override { return {"VALOAREFT", "VALOARETVA", "VALOARETTI"}; }

  Plan plan(Document& document) const override {
    if (TIPCOST().isEmpty()) throw RuleError(kNoMethod, "TCOST");
    const qint64 rateCode = document.header.integer("BATVA1");
    const Decimal percent = ProcentTVA(rateCode);
    LedgerDocument ledger = ledgerOf(document);
    ledger.lineColumns =
        QStringList{"ARTID",   "CANT",    "PRETFT",     "PRETTTI", "PRETDEV",    "VALTVA", "COST",
                    "COSTDEV", "VALCOST", "VALCOSTDEV", "CODTVA",  "CANTRAMASA", "PRETVA", "PALET"};
    Plan plan;
    const Decimal zero;
    Decimal value, vat;
    for (const Row& line : document.lines) {
      const QString article = line.text("CODART");
      const Decimal quantity = line.decimal("CANT");
      const Decimal price = line.decimal("PRETFT");
      const Decimal lineVat = line.decimal("VALOARETVA");
      value += line.decimal("VALOAREFT");
      vat += lineVat;
      ledger.lines.push_back({article, quantity, price, price + lineVat / quantity, zero, lineVat, price,
                              zero, quantity * price, zero, percent, quantity,
                              Value::raw(line.value("PRETVA")), Value::raw(line.value("PALET"))});
      plan.stock.push_back({article, quantity, price, line.decimal("PRETVA"), StockRule::ReceiptByPrice});
    }
    plan.returned = {document.header.text("OBS"), returnedQuantities(document)};
    addTotalsInLei(ledger, value, vat, value);
    ledger.add({{"DATASCAD", document.header.date("DATASCAD")}});
    plan.ledger.push_back(std::move(ledger));
    if (document.header.flag("NoteContabile")) {
      if (percent.isZero() && !vat.isZero()) throw RuleError(kVatWithoutRate, "CODART");
      post(document, percent, ContTVA(rateCode), plan.posting);
    }
    return plan;
  }

 private:
  // Quantities of the negative lines, by article.
  static QHash<QString, Decimal> returnedQuantities(const Document& document) {
    QHash<QString, Decimal> returned;
    for (const Row& line : document.lines)
      if (line.decimal("CANT").isNegative()) returned[line.text("CODART")] += line.decimal("CANT").abs();
    return returned;
  }

  static void post(const Document& document, const Decimal& percent, const QString& vatAccount,
                   Posting& posting) {
    posting.notes = {kNote};
    posting.journal = document.header.text("JURNAL");
    posting.dueDate = document.header.date("DATASCAD");
    posting.partner = document.header.integer("CODFUR");
    posting.vatPercent = percent;
    posting.vatAccount = vatAccount;
    posting.vatOnCollection = TypedHeader(*document.kind, document.typed).isTicked("CheckTVAINC");
  }
};

}  // namespace

std::unique_ptr<KindRules> makeSupplierInvoiceRules() { return std::make_unique<SupplierInvoiceRules>(); }

}  // namespace velmar
