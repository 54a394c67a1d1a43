#include "documents/Listing.h"

#include <QDir>

#include "config/Currencies.h"
#include "config/Session.h"
#include "documents/kinds/Kinds.h"
#include "documents/OtherTrade.h"
#include "reports/Variables.h"
#include "util/AmountText.h"
#include "util/Errors.h"

namespace velmar {

namespace {

const QString kLei = QStringLiteral("ROL");
const QString kCurrencyColumn = QStringLiteral("CODDEVIZA");
const QDate kDenomination(2005, 7, 1);
constexpr int kOldLei = 10000;  // in one new leu

// The columns of lines that the conversion to new lei divides.
const QStringList kMoney = {"PRETFT",     "PRETFTV",    "PRETTTI",     "VALOAREFT",
                            "VALOARETTI", "VALOARETVA", "VALTVA",      "PRETVA",
                            "COST",       "VALCOST",    "VALOARECOST", "PRETUNITAR",
                            "PRET",       "VALOARE",    "VALCHTR",     "VALOAREFTCUDISCOUNT"};

bool isLei(const QString& currency) {
  return currency.isEmpty() || currency.compare(kLei, Qt::CaseInsensitive) == 0 ||
         currency.compare(QStringLiteral("LEI"), Qt::CaseInsensitive) == 0;
}

QVariant inOldLei(const QVariant& cell) {
  return cell.isNull() ? cell : QVariant((Decimal::fromDouble(cell.toDouble()) * kOldLei).toDouble());
}

// What the form says of its documents itself, or their kind.
struct HeaderFacts {
  QString dateColumn, partnerColumn, unsaved;
  bool isPurchase = false;
};

HeaderFacts factsOf(const ListingKind& form) {
  if (!form.dateColumn.isEmpty()) return {form.dateColumn, form.partnerColumn, form.unsaved};
  const DocumentKind& kind = documentKind(form.kind);
  return {kind.dateColumn, kind.partnerColumn, kind.texts.unsaved, kind.partnersAreSuppliers};
}

// The header row for printing: the date has the type date, currency and rate are not empty.
Recordset readHeader(const ListingKind& kind, const QString& number) {
  const HeaderFacts facts = factsOf(kind);
  Recordset header = OpenRs(kind.headerSql, {number});
  if (header.isEmpty()) throw RuleError(facts.unsaved);
  header.transform(facts.dateColumn, asDate);
  for (const QString& column : header.columns()) {
    if (column.compare(kCurrencyColumn, Qt::CaseInsensitive) == 0)
      header.transform(column, [](const QVariant& cell) {
        const QString code = cell.toString().trimmed();
        return QVariant(isLei(code) ? kLei : code);
      });
    if (column.compare(QStringLiteral("CURS"), Qt::CaseInsensitive) == 0)
      header.transform(column, [](const QVariant& cell) { return Nz(cell, 0.0); });
  }
  return header;
}

// The rate for printing amounts in foreign currency in lei; 0: they are printed as stored.
Decimal leiRate(const ListedDocument& document, const ListingOptions& options) {
  if (options.foreign || document.currency == kLei) return 0;
  return document.header.first().decimal("CURS");
}

// The sum of the printed amounts of the lines.
Decimal printedTotal(const ListedDocument& document, const Decimal& rate) {
  if (rate.isZero()) return document.total;
  Decimal total;
  for (const Row& line : document.lines)
    for (const char* amount : {"VALOAREFT", "VALOARETVA"}) total += Round(line.decimal(amount) * rate, 2);
  return total;
}

// The currency in which amounts are printed, and what they are multiplied by for that; 0: they are printed as
// stored.
void addCurrency(Variables& variables, const ListingKind& kind, const ListedDocument& document,
                 const ListingOptions& options) {
  Decimal factor = leiRate(document, options);
  QString currency = factor.isZero() ? document.currency : kLei;
  if (kind.storesLei) {
    const Decimal rate = document.header.first().decimal("CURS");
    const bool inCurrency = options.foreign && !rate.isZero() && document.currency != kLei;
    factor = inCurrency ? 1 / rate : Decimal(0);
    if (!inCurrency) currency = kLei;
  }
  variables.add("MonedaTiparita", currency);
  variables.add("CursLei", factor.toDouble());
}

void addSum(Variables& variables, const ListingKind& kind, const ListedDocument& document,
            const ListingOptions& options) {
  const Decimal rate = leiRate(document, options);
  const Decimal total = printedTotal(document, rate);
  QString currency = rate.isZero() ? document.currency : kLei;
  if (!kind.wordsCurrency.isEmpty()) currency = kind.wordsCurrency;
  variables.add("SumaDePlataLitere", SumaText(total, currency));
  variables.add("SumaDePlataCifre", total.toDouble());
  variables.add("ParamCHI", options.receipt);
  variables.addColumns(session().gDataEnv.open("Get_Paramsoc"), {"SERIEFC"});
}

}  // namespace

const ListingKind& listingKind(const QString& prefix) {
  const DocumentKind& kind = documentKind(prefix);
  if (!kind.paper) throw StoreError(0, QStringLiteral("Documentele %1 nu pot fi tiparite inca").arg(prefix));
  return *kind.paper;
}

namespace {

// Whether the document, or the invoice that the storno cancelled, is in the tables of the 13 kinds.
bool hasOwnDocument(const LedgerKey& key) {
  const DocumentKind& kind = documentKind(key.kind);
  QString number = key.number;
  if (!kind.hasDraft) {
    const Recordset ledger = OpenRs("SELECT OBS FROM G_DOCUME WHERE ID = ?", {key.text()});
    number = ledger.isEmpty() ? QString() : ledger.first().text("OBS").trimmed();
  }
  return !OpenRs(QStringLiteral("SELECT %1 FROM %2 WHERE %1 = ?").arg(kind.numberColumn, kind.headerTable),
                 {number})
              .isEmpty();
}

// The document in the tables of the other trade. Stornos and consumption vouchers are looked for there first
// while the trade is on, invoices by their mark in the ledger; the others after those of the 13 kinds.
std::optional<Printout> printoutOfTrade(const LedgerKey& key, bool isAudio) {
  const bool isInvoice = key.kind == KindId::CustomerInvoice;
  const bool isOther = key.kind == KindId::Storno || key.kind == KindId::ConsumptionVoucher;
  if (!otherTrade() || (!isInvoice && !isOther)) return std::nullopt;
  if (isInvoice && !isAudio) return std::nullopt;
  if (isOther && !session().ModAudio && hasOwnDocument(key)) return std::nullopt;
  return otherTrade()->printoutOf(key.prefix(), key.number);
}

}  // namespace

Printout reprintOf(const QString& key) {
  const auto document = LedgerKey::of(key);
  const Recordset found = OpenRs("SELECT OBS, DATADOC, CODDEV, IsAudio FROM G_DOCUME WHERE ID = ?", {key});
  if (!document || found.isEmpty()) throw RuleError(QStringLiteral("Documentul %1 nu mai exista").arg(key));
  const Row& ledger = found.first();
  if (auto printout = printoutOfTrade(*document, ledger.flag("IsAudio"))) return *printout;
  const DocumentKind& kind = documentKind(document->kind);
  Printout printout{kind.reprint ? &*kind.reprint : &listingKind(kind.prefix), document->number,
                    !isLei(ledger.text("CODDEV").trimmed())};
  printout.oldMoney = ledger.date("DATADOC") < kDenomination && ROL();
  if (!kind.hasDraft) {
    printout.number = ledger.text("OBS").trimmed();
    printout.own = stornoVariables(printout.number, document->number, ledger.date("DATADOC"));
  }
  return printout;
}

QHash<QString, QVariant> stornoVariables(const QString& invoice, const QString& storno, const QDate& date) {
  return {{"NumarFactura", invoice}, {"NumarStorno", storno}, {"DataStorno", date}};
}

ListedDocument readListed(const Printout& printout) {
  const ListingKind& kind = *printout.form;
  ListedDocument document;
  document.header = readHeader(kind, printout.number);
  document.lines = OpenRs(kind.linesSql, {printout.number});
  if (printout.oldMoney) {
    for (const QString& column : document.lines.columns())
      if (kMoney.contains(column, Qt::CaseInsensitive)) document.lines.transform(column, inOldLei);
    for (const QString& column : document.header.columns())
      if (column.startsWith(QStringLiteral("CURS"), Qt::CaseInsensitive))
        document.header.transform(column, inOldLei);
  }
  const Row& header = document.header.first();
  if (!kind.partner.isEmpty())
    document.partner = session().gDataEnv.open("Get_Tert", {header.integer(factsOf(kind).partnerColumn)});
  if (header.has(kCurrencyColumn)) document.currency = header.text(kCurrencyColumn);
  if (kind.printsSum)
    for (const Row& line : document.lines) document.total += line.decimal("VALOARETTI");
  return document;
}

QStringList missingPartnerTexts(const ListingKind& kind) {
  const QString noun = factsOf(kind).isPurchase ? "Furnizor" : "Client";
  return {kind.missingPartner.isEmpty() ? noun + " inexistent in baza de date" : kind.missingPartner,
          "Trebuie introdus in baza de date"};
}

ReportData listingData(const ListingKind& kind, const ListedDocument& document,
                       const ListingOptions& options) {
  ReportData data;
  data.variables = document.header;
  data.hasVariables = true;
  data.fields = std::make_shared<RecordsetRows>(document.lines);
  data.fieldNames = document.lines.columns();

  Variables variables(data);
  variables.addCompany();
  for (const ListingBox& box : kind.boxes) variables.add(box.variable, options.boxes.value(box.variable));
  for (auto own = options.own.begin(); own != options.own.end(); ++own) variables.add(own.key(), own.value());
  if (kind.offersCurrency || kind.printsSum) {
    variables.add("bDeviza", options.foreign);
    addCurrency(variables, kind, document, options);
  }
  if (kind.printsSum) addSum(variables, kind, document, options);
  variables.addColumns(document.partner, kind.partner);
  return data;
}

QString listingFile(const ListingKind& kind, const ListingOptions& options) {
  const QString& project = options.preprinted ? kind.preprinted : kind.project;
  return QDir(session().gCaleAplicatie).filePath(QStringLiteral("lst/%1.lst").arg(project));
}

}  // namespace velmar
