// The import invoice.
#include "config/Lookups.h"
#include "documents/KindRules.h"
#include "documents/kinds/PurchaseWording.h"
#include "documents/LineChecks.h"

namespace velmar {

using namespace wording;

namespace {

constexpr int kMoney = 2;

// The steps in which the landed cost of a line is computed.
enum class LandedFrom { Price, Transport, Customs, UnitCost };

// The landed cost of a line, from a step on: value in currency and in lei, transport (`percent` of the
// value), customs, VAT, cost of one unit.
void land(Row& line, const TypedHeader& header, const Decimal& percent, LandedFrom from) {
  const Decimal rate = header.rate();
  const Decimal quantity = line.decimal("CANT");
  const auto ofHundred = [](const Decimal& amount, const Decimal& part) {
    return Round(amount * part / 100, kMoney);
  };
  if (from == LandedFrom::Price) {
    const Decimal value = quantity * line.decimal("PRETVAL");
    line.set("VALOAREVAL", Round(value, kMoney));
    line.set("PRET", line.decimal("PRETVAL") * rate);
    line.set("VALOARE", Round(quantity * line.decimal("PRET"), kMoney));
    line.set("VALCHTR", ofHundred(value, percent));
  }
  if (from <= LandedFrom::Transport)
    line.set("VALCUTRANS", Round(line.decimal("VALOARE") + line.decimal("VALCHTR") * rate, kMoney));
  if (from <= LandedFrom::Customs) {
    line.set("VALVAMA", ofHundred(line.decimal("VALCUTRANS"), line.decimal("PVAMA")));
    line.set("VALOAREFT", line.decimal("VALVAMA") + line.decimal("VALCUTRANS"));
  }
  if (from <= LandedFrom::Customs || line.decimal("VALTVA").isZero())
    line.set("VALTVA", ofHundred(line.decimal("VALOAREFT"), header.vatPercent()));
  const Decimal cost = quantity.isZero() ? Decimal(0) : line.decimal("VALOAREFT") / quantity;
  line.set("COST", cost);
  line.set("COSTVAL", rate > 0 ? cost / rate : Decimal(0));
}

Decimal valueInLei(const Row& line, const ArticleFacts& /*article*/) { return line.decimal("VALOARE"); }
Decimal valueInCurrency(const Row& line, const ArticleFacts& /*article*/) {
  return line.decimal("VALOAREVAL");
}
Decimal transport(const Row& line, const ArticleFacts& /*article*/) { return line.decimal("VALCHTR"); }
Decimal customs(const Row& line, const ArticleFacts& /*article*/) { return line.decimal("VALVAMA"); }
Decimal customsVat(const Row& line, const ArticleFacts& /*article*/) { return line.decimal("VALTVA"); }

Decimal sum(const std::vector<Row>& lines, const QString& column) {
  Decimal total;
  for (const Row& line : lines) total += line.decimal(column);
  return total;
}

class ImportInvoiceRules : public KindRules {
 public:
  void completeLine(Row& line, const Row& article, TypedHeader& header, Notices& /*notices*/) const override {
    line.set("UM", article.text("UM"));
    for (const char* column : {"CANT", "PRETVAL", "PVAMA"})
      if (line.isNull(column)) line.set(column, Decimal(0));
    line.set("PRETVA", article.decimal("PRETVFT"));
    land(line, header, distributed(header), LandedFrom::Price);
  }

  void recalculate(Row& line, const QString& changed, const TypedHeader& header,
                   Notices& /*notices*/) const override {
    const LandedFrom from = changed == QStringLiteral("CANT") || changed == QStringLiteral("PRETVAL")
                                ? LandedFrom::Price
                            : changed == QStringLiteral("VALCHTR") ? LandedFrom::Transport
                            : changed == QStringLiteral("PVAMA")   ? LandedFrom::Customs
                                                                   : LandedFrom::UnitCost;
    land(line, header, distributed(header), from);
  }

  bool linesFollowHeader() const override { return true; }

  void applyRate(Row& line, const TypedHeader& header) const override {
    land(line, header, header.number("COTATRANSP"), LandedFrom::Price);
  }

  void follow(const QString& changed, TypedHeader& header) const override {
    if (changed == QStringLiteral("CODFURTR"))
      header.set("NUMEFURTR",
                 ValoareSql("SELECT NUME FROM kt_ter WHERE COD = ?", {header.text("CODFURTR").toLongLong()}));
  }

  QStringList totalColumns() const override {
    return {"VALOAREVAL", "VALOARE", "VALCHTR", "VALCUTRANS", "VALVAMA", "VALOAREFT", "VALTVA"};
  }

  void readInputs(const Document& document, PlanInputs& inputs) const override {
    readSaleRates(document, inputs);
  }

  Effects effects(const Document& document, const PlanInputs& inputs) const override {
    requireCostMethod(inputs);
    const TypedHeader typed = document.typed();
    Effects effects;
    effects.lines = document.lines;
    LedgerDocument ledger = ledgerOf(document);
    ledger.value = ledger.cost = sum(document.lines, "VALOAREFT");
    ledger.vat = sum(document.lines, "VALTVA");
    ledger.valueInCurrency = sum(document.lines, "VALOAREVAL");
    ledger.currency = document.header.text("CODVALUTA");
    ledger.rate = typed.rate();
    ledger.dueDate = document.header.date("DATASCAD");
    ledger.carrierInvoice = document.header.text("NUMFACTR");
    ledger.carrier = document.header.integer("CODFURTR");
    ledger.transport = sum(document.lines, "VALCHTR");
    for (const Row& line : document.lines) {
      ledger.lines.push_back(ledgerLine(line, inputs.vatPercent));
      effects.stock.push_back({line.text("CODART"),
                               line.decimal("CANT"),
                               line.decimal("COST"),
                               line.decimal("PRETVA"),
                               StockRule::ReceiptByImport,
                               {},
                               line.decimal("COSTVAL")});
    }
    effects.notes = notes(document, inputs, ledger);
    effects.ledger = {std::move(ledger)};
    return effects;
  }

 private:
  // The percentage by which the program spreads the transport; 0: the user spreads it.
  static Decimal distributed(const TypedHeader& header) {
    return header.isTicked("ckCotaTr") ? header.number("COTATRANSP") : Decimal(0);
  }

  static LedgerLine ledgerLine(const Row& line, const Decimal& vatPercent) {
    const Decimal cost = line.decimal("COST");
    const Decimal quantity = line.decimal("CANT");
    return {.article = line.text("CODART"),
            .quantity = quantity,
            .price = cost,
            .priceWithVat = cost * (1 + vatPercent / 100),
            .priceInCurrency = line.decimal("PRETVAL"),
            .vat = line.decimal("VALTVA"),
            .unitCost = cost,
            .unitCostInCurrency = line.decimal("COSTVAL"),
            .cost = quantity * cost,
            .costInCurrency = quantity * line.decimal("COSTVAL"),
            .vatPercent = vatPercent,
            .rest = quantity,
            .salePrice = optionalDecimal(line, "PRETVA"),
            .palet = line.text("PALET")};
  }

  static std::vector<NoteRule> notes(const Document& document, const PlanInputs& inputs,
                                     const LedgerDocument& ledger) {
    NoteTerms terms;
    terms.partner = ledger.partner;
    terms.dueDate = ledger.dueDate;
    terms.inCurrencyForm = true;
    terms.currency = ledger.currency;
    terms.rate = ledger.rate.value_or(Decimal(0));
    terms.costCentre = document.typed().costCentre();
    terms.vatPercent = inputs.vatPercent;
    terms.vatOnCollection = document.typed().isTicked("CheckTVAINC");
    const Account supplier{Account::From::Parameter, "CONTFURNIZORI"};
    const Account stock{Account::From::Totals, "CONTSTOCMARFA"};
    NoteRule goods{
        .totals = {.accounts = {stock.name}, .amount = valueInLei, .inCurrency = valueInCurrency},
        .journal = document.header.text("JURNAL"),
        .journalParameter = "JURFACIMP",
        .before = {{Side::Credit, supplier, AmountOf::Value, kPartner | kVatPercent | kCostCentre}},
        .perGroup = {{Side::Debit, stock, AmountOf::Group, kNoVatLink | kCostCentre}},
        .decimals = kMoney,
        .terms = terms};
    std::vector<NoteRule> rules{goods};
    if (*ledger.transport * terms.rate > 0) {
      NoteRule carried = goods;
      carried.totals = {.accounts = {stock.name}, .amount = transport};
      carried.before = {{Side::Credit, supplier, AmountOf::Value, kPartner | kCostCentre}};
      carried.perGroup = {{Side::Debit, stock, AmountOf::Group, kCostCentre}};
      carried.inDocumentCurrency = true;
      carried.terms.partner = *ledger.carrier;
      rules.push_back(carried);
    }
    if (ledger.vat > 0) {
      NoteRule atCustoms = goods;
      const QString office = inputs.parameters.text("CONTVAMA");
      if (office.startsWith(QStringLiteral("4427"))) atCustoms.journal = QStringLiteral("OD");
      atCustoms.totals = {.accounts = {stock.name}, .amount = customs, .vat = customsVat};
      atCustoms.before = {
          {Side::Credit, {Account::From::Parameter, "CONTVAMA"}, AmountOf::Gross, kCostCentre}};
      atCustoms.perGroup = {{Side::Debit, stock, AmountOf::Group, kVatLink | kCostCentre}};
      atCustoms.after = {
          {Side::Debit, {Account::From::Given, inputs.vatAccount}, AmountOf::Vat, kVatLink | kCostCentre}};
      atCustoms.skipsZero = true;
      atCustoms.terms.currency.clear();
      atCustoms.terms.rate = Decimal(0);
      rules.push_back(atCustoms);
    }
    return rules;
  }
};

// Goods and transport are owed to partners; customs are posted with their VAT or not at all.
std::vector<PostedSum> postedSums() {
  const QString lines = " FROM G_LFACIM L WHERE L.NUMFAC = H.NUMFAC)";
  const QString owed =
      "(SELECT SUM(L.VALOARE) + CASE WHEN SUM(L.VALCHTR) * D.CURS > 0 THEN SUM(L.VALCHTR) * D.CURS ELSE 0 "
      "END" +
      lines;
  const QString atCustoms = "(SELECT CASE WHEN SUM(L.VALTVA) > 0 THEN SUM(L.VALVAMA%1) ELSE 0 END" + lines;
  PostedSum debit = postedDebit("(" + owed + " + " + atCustoms.arg(" + L.VALTVA") + ")");
  debit.amounts.append("(" + owed + " + " + atCustoms.arg("") + ")");  // the VAT code has no percent
  return {{PostedSum::Rows::OfPartner, PostedSum::Is::Equal, {owed}}, debit};
}

ListingKind listingForm() {
  ListingKind paper{KindId::ImportInvoice, "frmLstFacturiImport", "Listare Facturi Import",
                    "FacturiImportFull"};
  paper.headerSql =
      "SELECT F.NUMFAC, F.CODFUR, C.PROCENT AS BATVA1, F.OBS, F.DATAFAC, F.DATASCAD, F.CODVALUTA, "
      "F.CURSVALUTA, "
      "F.COTATRANSP, F.NUMFACTR, F.NUMEFURTR, F.TRANSTTI FROM G_FACIMP AS F INNER JOIN kt_cote AS C "
      "ON F.BATVA = C.COD WHERE F.NUMFAC = ?";
  paper.linesSql = printedLines("G_LFACIM", "NUMFAC");
  paper.partner = kPrintedPartner;
  return paper;
}

Check numberMissing(const QString& column, const QString& caption) {
  return notNumeric(
      column,
      QStringLiteral("Va rugam introduceti o valoare numerica pentru %1 ! Salvarea nu se poate efectua !")
          .arg(caption));
}

Check numberNegative(const QString& column, const QString& caption) {
  return notPositive(
      column,
      QStringLiteral(
          "Va rugam introduceti o valoare numerica pozitiva pentru %1 ! Salvarea nu se poate efectua !")
          .arg(caption));
}

void describeImportChecks(DocumentKind& kind) {
  // An empty rate has a message of its own.
  const auto hasRate = [](const Document& document) {
    return !document.typed().text("CURSVALUTA").isEmpty();
  };
  kind.headerChecks = {
      numberEmpty(kind, "facturii"),
      supplierEmpty(kind),
      partnerEmpty("CODFURTR", "furnizorului de servicii transport"),
      fieldEmpty("CODVALUTA", "Va rugam completati codul valutei ! Salvarea nu se poate efectua !"),
      onlyFor(hasRate, numberMissing("CURSVALUTA", "Curs valutar")),
      onlyFor(hasRate, numberNegative("CURSVALUTA", "Curs valutar")),
      numberMissing("BATVA", "Cota TVA"),
      numberNegative("BATVA", "Cota TVA"),
      numberMissing("COTATRANSP", "Procent transport"),
      numberNegative("COTATRANSP", "Procent transport"),
      fieldEmpty("CURSVALUTA", "Va rugam completati cursul devizei ! Salvarea nu se poate efectua !"),
      journalEmpty(),
      numberTaken(kind),
      otherNumberTaken("NUMFACTR", "FACIMPORTTR",
                       "Factura transport cu acest numar exista deja ! Salvarea nu se poate efectua !")};
  const QString carrierMissing = "Numar factura transport lipsa sau furnizor transport neselectat.";
  kind.validationChecks = {
      nothingSelected(kind, kSelectInvoice),
      noLines("Factura"),
      totalDiffers("TRANSTTI", "VALCHTR", false,
                   "Valoare cheltuieli de transport in valuta nu corespunde cu valoare transport din antet ! "
                   "Nu se poate efectua validarea !"),
      totalDiffers("Text4", "VALOAREVAL", true,
                   "Valoarea totala in valuta nu corespunde cu valoare factura din antet ! "),
      emptyWithTotal("NUMFACTR", "VALCHTR", carrierMissing),
      emptyWithTotal("NUMEFURTR", "VALCHTR", carrierMissing),
      beforeFiscalYear(kind),
      dueBeforeDate(),
      currencyWithoutRate("CURSVALUTA"),
      journalNotChosen()};
}

void describeImportFields(DocumentKind& kind) {
  HeaderField rate{HeaderFieldType::Rate, "CURSVALUTA", "txtFields(3)", "&Curs valutar", "Curs valutar"};
  rate.mayBeZero = true;
  kind.headerFields = {
      {HeaderFieldType::Number, "NUMFAC", "txtFields(0)", "&Numar factura", "Numar factura de import"},
      {HeaderFieldType::Date, "DATAFAC", "dtpDataFactura", "&Data factura", ""},
      {HeaderFieldType::DueDate, "DATASCAD", "DScadenta", "Data &scadenta", ""},
      supplier("Selectati furnizor ( import) din lista de furnizori"),
      {HeaderFieldType::Currency, "CODVALUTA", "txtFields(2)", "Cod &valuta",
       "Selectati codul valutei din lista", "cboCodDevizaDenumire"},
      rate,
      vatRate("BATVA", "txtFields(4)"),
      {HeaderFieldType::Percent, "COTATRANSP", "txtFields(5)", "&Procent transport",
       "Cota procentuala de transport distribuita automat de program pe articole", "", "0"},
      {HeaderFieldType::Flag, "", "ckCotaTr", "Repartizare procentuala",
       "Executati clik daca doriti repartizarea procentuala a cheltuielilor de transport"},
      {HeaderFieldType::Amount, "TRANSTTI", "Text1", "Valoare transport",
       "Valoare totala pentru transport ce va fi distribuita de utilizator pe detalii", "", "0"},
      {HeaderFieldType::Text, "NUMFACTR", "Text3", "Factura transport", "Numar factura de transport"},
      {HeaderFieldType::Partner, "CODFURTR", "LBCODFURTR", "Transportator",
       "Selectati furnizorul de servicii de transport", "DataCombo3"},
      {HeaderFieldType::Text, "NUMEFURTR", "Text2", "Nume transportator",
       "Selectati furnizorul de servicii de transport"},
      {HeaderFieldType::Amount, "", "Text4", "Valoare factura", "Valoare factura in valuta", "", "0"},
      {HeaderFieldType::CostCentre, "", "DataCombo2", "Centru de cost", "Selectati centru de cost din lista"},
      companyJournal(),
      {HeaderFieldType::Flag, "", "CheckTVAINC", "TVA la incasare", ""},
      {HeaderFieldType::Remark, "OBS", "txtFields(6)", "&Observatii", "Maxim 60 caractere"}};
}

void describeImportColumns(DocumentKind& kind) {
  kind.lineColumns = leadingColumns(kind);
  kind.lineColumns.insert(4, {"CANT", "Cantitate", LineEntry::Number, 3, 3, 12});
  kind.lineColumns += QList<LineColumn>{price("PRETVAL", "Pret unitar valuta", LineEntry::Number),
                                        value("VALOAREVAL", "Valoare valuta"),
                                        price("PRET", "Pret unitar", LineEntry::Locked),
                                        value("VALOARE", "Valoare"),
                                        {"VALCHTR", "Transport valuta", LineEntry::Number, 3, 3, 12},
                                        value("VALCUTRANS", "Valoare cu transport"),
                                        {"PVAMA", "% Vama", LineEntry::Number, 2, 2, 8},
                                        value("VALVAMA", "Valoare vama"),
                                        value("VALOAREFT", "Valoare totala"),
                                        {"VALTVA", "Valoare TVA", LineEntry::Number, 2, 2, 14},
                                        value("COST", "Cost unitar"),
                                        value("COSTVAL", "Cost unitar valuta"),
                                        {"PRETVA", "Pret vanzare", LineEntry::OptionalPositive, 2, 2, 12},
                                        palet()};
}

}  // namespace

DocumentKind importInvoice() {
  DocumentKind kind = kindOf(KindId::ImportInvoice, "import invoice", "frmGrilaFFI");
  static const ImportInvoiceRules rules;
  kind.rules = &rules;
  kind.paper = kind.reprint = listingForm();
  kind.reprint->form = "frmLstNIR_FF";
  kind.reprint->caption = "Listare NIR pentru Factura ";
  kind.reprint->project = "NIR_FFI";
  kind.headerTable = "G_FACIMP";
  kind.lineTable = "G_LFACIM";
  kind.numberColumn = "NUMFAC";
  kind.dateColumn = "DATAFAC";
  kind.partnerColumn = "CODFUR";
  kind.remarkColumn = "OBS";
  kind.tipie = "I";
  kind.existsKind = "FACTURAIMPORT";
  kind.partnersAreSuppliers = true;
  kind.posted = postedSums();
  kind.lineCheck.price = "PRET";
  kind.lineCheck.salePrice = "PRETVA";
  kind.texts.numberTaken = numberTakenText("Factura");
  describeImportChecks(kind);
  kind.lineChecks = {distinctArticles(), completeLines(), salePricesNotBelowCost()};
  kind.texts.stockFailureTitle = kind.texts.postingFailureTitle = "Salvare StocArticole";
  kind.printChecks = invoicePrintChecks(kind);
  describeImportFields(kind);
  describeImportColumns(kind);
  setInvoiceTexts(kind.texts, "Facturi import", "Creare factura import noua", "Tiparire factura");
  return kind;
}

}  // namespace velmar
