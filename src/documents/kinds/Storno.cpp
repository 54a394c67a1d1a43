// The storno of a customer invoice: has no draft, shows the lines of the invoice and has its own number and
// date.
#include "documents/KindRules.h"
#include "documents/kinds/SaleWording.h"
#include "documents/Numbering.h"
#include "stock/Ledger.h"
#include "store/Database.h"
#include "util/Errors.h"

namespace velmar {

using namespace wording;

namespace {

QString invoiceKey(const QString& number) { return LedgerKey{KindId::CustomerInvoice, number}.text(); }

class StornoRules : public KindRules {
 public:
  // The lines are those of the invoice.
  void completeLine(Row& /*line*/, const Row& /*article*/, TypedHeader& /*header*/,
                    Notices& /*notices*/) const override {}
  void recalculate(Row& /*line*/, const QString& /*changed*/, const TypedHeader& /*header*/,
                   Notices& /*notices*/) const override {}
  QStringList totalColumns() const override { return {"VALOAREFT", "VALOARETVA", "VALOARETTI"}; }

  void readInputs(const Document& document, PlanInputs& inputs) const override {
    const QString key = invoiceKey(document.origin);
    const Recordset ledger = OpenRs("SELECT * FROM G_DOCUME WHERE ID = ?", {key});
    if (ledger.isEmpty())
      throw RuleError(QStringLiteral("Factura %1 nu este in documente !").arg(document.origin));
    inputs.originDocument = ledger.first();
    inputs.originLines = OpenRs("SELECT * FROM G_LDOCUM WHERE DOCID = ? ORDER BY LINIE", {key}).takeRows();
    inputs.originNotes = readNotes(notesOf(ledgerKind(KindId::CustomerInvoice).prefix, document.origin,
                                           inputs.originDocument.date("DATADOC")));
    if (inputs.isFifo()) inputs.receipt = lotsOfReceipt(key, articlesOf(document.lines));
  }

  Effects effects(const Document& document, const PlanInputs& inputs) const override {
    Effects effects;
    effects.lines = document.lines;
    LedgerDocument ledger = ledgerOf(document);
    const Row& invoice = inputs.originDocument;
    if (inputs.series != kNoSeries) ledger.series = inputs.series;
    ledger.value = invoice.decimal("TOTALFT");
    ledger.vat = invoice.decimal("TOTALTVA");
    ledger.cost = invoice.decimal("TOTALCOST");
    ledger.currency = invoice.text("CODDEV");
    ledger.rate = optionalDecimal(invoice, "CURS");
    ledger.valueInCurrency = invoice.decimal("TOTALDEV");
    QHash<QString, Decimal> cameBack;
    for (const Row& line : inputs.originLines) {
      ledger.lines.push_back(ledgerLine(line, invoice, inputs.vatPercent));
      const Decimal quantity = line.decimal("CANT");
      if (quantity.isNegative()) cameBack[line.text("ARTID").toUpper()] += quantity.abs();
      effects.stock.push_back(
          {line.text("ARTID"), quantity, line.decimal("COST"), {}, StockRule::Storno, inputs.vatPercent});
    }
    effects.ledger = {std::move(ledger)};
    if (inputs.isFifo() && !cameBack.isEmpty()) effects.returned = takenAgain(inputs.receipt, cameBack);
    for (const Note& note : inputs.originNotes)
      effects.composed.push_back(turned(note, document, inputs.parameters.flag("StornareNegru")));
    return effects;
  }

 private:
  // The goods come back as a new lot at the cost at which they left.
  static LedgerLine ledgerLine(const Row& line, const Row& invoice, const Decimal& vatPercent) {
    const Decimal rate = invoice.decimal("CURS");
    const auto inCurrency = [&rate](const Decimal& lei) { return rate.isZero() ? Decimal(0) : lei / rate; };
    LedgerLine copy;
    copy.article = line.text("ARTID");
    copy.quantity = line.decimal("CANT");
    copy.price = line.decimal("PRETFT");
    copy.priceWithVat = line.decimal("PRETTTI");
    copy.vat = line.decimal("VALTVA");
    copy.unitCost = line.decimal("COST");
    copy.cost = line.decimal("VALCOST");
    copy.priceInCurrency = inCurrency(copy.price);
    copy.unitCostInCurrency = inCurrency(copy.unitCost);
    copy.costInCurrency = inCurrency(copy.cost);
    copy.vatPercent = vatPercent;
    if (!copy.quantity.isNegative()) copy.rest = copy.quantity;
    return copy;
  }

  // Goods that the customer had returned leave again, from the lots that their lines made.
  static std::vector<LotTake> takenAgain(const std::vector<Lot>& lots, QHash<QString, Decimal> cameBack) {
    const QHash<QString, Decimal> wanted = cameBack;
    for (const Lot& lot : lots) cameBack[lot.article.toUpper()] -= lot.rest;
    for (auto left = cameBack.begin(); left != cameBack.end(); ++left)
      if (left.value() > 0)
        throw RuleError(
            QStringLiteral("Marfa returnata cu aceasta factura a fost iesita din stoc: articolul %1 ! "
                           "Stornarea nu se poate efectua !")
                .arg(left.key()));
    return CautaFF(lots, wanted);
  }

  static Note turned(Note note, const Document& document, bool inBlack) {
    note.kind = document.kind->prefix;
    note.stamp.clear();
    note.date = document.date();
    note.dueDate = document.date().addMonths(1);
    note.number = document.number;
    note.remark = document.header.text(document.kind->remarkColumn);
    fillNulls(note);
    turnRound(note, inBlack);
    return note;
  }
};

// Invoices and stornos share their numbers.
Check numberInUse() {
  return {.fault = [](const Document& document) -> std::optional<Fault> {
            const QString number = document.typed().text("NUMFAC");
            const QString text = QStringLiteral("Mai exista factura: ");
            for (const KindId kind : {KindId::CustomerInvoice, KindId::Storno}) {
              const QString key = LedgerKey{kind, number}.text();
              if (!OpenRs("SELECT ID FROM G_DOCUME WHERE ID = ?", {key}).isEmpty())
                return Fault{.text = text + key};
            }
            if (OpenRs("SELECT NUMFAC FROM G_FACCLI WHERE NUMFAC = ?", {number}).isEmpty())
              return std::nullopt;
            return Fault{.text = text + invoiceKey(number)};
          },
          .at = CheckedAt::UnderLock};
}

ListingKind listingForm() {
  ListingKind paper{KindId::Storno, "frmLstStorno", "Factura client stornata", "FacturiCLIFull_STORNO",
                    "FacturiCLI_STORNO"};
  paper.printsSum = true;
  paper.boxes = delegateBoxes();
  paper.headerSql =
      "SELECT F.NUMFAC, F.CODCLI, C.PROCENT AS BATVA1, F.OBS, F.DATAFAC, F.CODDeviza AS CODDEVIZA, F.Curs AS "
      "CURS "
      "FROM G_FACCLI AS F INNER JOIN kt_cote AS C ON F.BATVA1 = C.COD WHERE F.NUMFAC = ?";
  paper.linesSql =
      "SELECT F.NUMFAC, F.NRLINIE, F.CODART, F.DENUMIRE, F.CANT, F.ValoareFTCuDiscount AS PRETFT, "
      "F.VALOAREFT, F.VALOARETTI, F.VALOARETVA, F.UM, A.PALET, A.DENALTALIMBA "
      "FROM G_LFACCL AS F INNER JOIN G_ARTMAG AS A ON F.CODART = A.CODART WHERE F.NUMFAC = ? "
      "ORDER BY F.NRLINIE";
  paper.partner = printedCustomer({"JUDET", "REGCOM", "CT"});
  return paper;
}

// The storno has a number of its own; the number of the document on screen is the invoice's.
Check numberOfOrigin() {
  Check check =
      refusedWhen("Factura de stornare trebuie sa fie diferita", "NUMFAC", [](const Document& document) {
        const QString number = document.typed().text("NUMFAC");
        return !number.isEmpty() && number == document.number;
      });
  check.title = "Atentie!";
  return check;
}

}  // namespace

DocumentKind storno() {
  DocumentKind kind = kindOf(KindId::Storno, "storno of a customer invoice", "frmGRILAStornare");
  static const StornoRules rules;
  kind.rules = &rules;
  kind.paper = listingForm();
  kind.headerTable = "G_FACCLI";
  kind.lineTable = "G_LFACCL";
  kind.numberColumn = "NUMFAC";
  kind.dateColumn = "DATAFAC";
  kind.partnerColumn = "CODCLI";
  kind.remarkColumn = "OBS";
  kind.tipie = "I";
  kind.existsKind = "FACTURACLIENT";
  kind.hasDraft = false;
  kind.numbering = Numbering::InvoiceRange;
  kind.validationChecks = {outsidePeriod(kind), numberOfOrigin(),
                           nothingSelected(kind, "Va rugam introduceti numarul documentului !"),
                           noLines("Factura")};
  kind.lineChecks = {numberInUse()};
  kind.printChecks = {nothingSelected(kind, "Introduceti numarul facturii !"),
                      printWithoutPartner(kind, "Nu exista client selectat!")};
  kind.headerFields = {
      {HeaderFieldType::Number, "NUMFAC", "txtFields(0)", "&Numar factura de stornare", kNumberTip},
      {HeaderFieldType::Date, "DATAFAC", "dtpDataFactura", "&Data factura", ""},
      customer(kind),
      vatRate("BATVA1")};
  kind.headerFields += currencyFields("CODDeviza", "Curs");
  kind.headerFields.append(customerRemark(kind));
  kind.lineColumns = leadingColumns(kind);
  for (LineColumn& column : kind.lineColumns) column.entry = LineEntry::Locked;
  kind.lineColumns += QList<LineColumn>{{"CANT", "Cantitate", LineEntry::Locked, 3, kAsTyped, 12},
                                        {"PRETFT",
                                         "Pret unitar",
                                         LineEntry::Locked,
                                         kSessionDecimals,
                                         kAsTyped,
                                         12,
                                         true,
                                         {"ValoareFTCuDiscount"}},
                                        value("VALOAREFT", "Valoare"),
                                        value("VALOARETVA", "Valoare TVA"),
                                        value("VALOARETTI", "Valoare Totala"),
                                        {"PALET", "Palet", LineEntry::Locked, -1, kAsTyped, 12}};
  kind.texts.title = "Stornare";
  kind.texts.draftsCaption = "Lista facturi";
  kind.texts.validateTip =
      "Verificare informatii, salvare in tabela Documente, modificare stoc si generare formule contabile";
  kind.texts.printTip = "Tiparire factura";
  kind.texts.confirmValidation = "Sunteti sigur ca doriti sa stornati factura %1 cu factura %2 ?";
  kind.texts.validated = "Factura a fost salvata cu succes in Articole si Documente !";
  return kind;
}

}  // namespace velmar
