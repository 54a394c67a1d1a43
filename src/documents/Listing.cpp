#include "documents/Listing.h"

#include <QDir>

#include "config/Session.h"
#include "documents/DocumentKind.h"
#include "documents/KindWording.h"
#include "reports/Variables.h"
#include "util/AmountText.h"
#include "util/Errors.h"

namespace velmar {

namespace {

const QString kLei = QStringLiteral("ROL");
const QString kCurrencyColumn = QStringLiteral("CODDEVIZA");
const QStringList kPartner{"NUME", "CODFISCAL", "AD", "CONTBANCAR", "BANCA"};
const QStringList kCustomer = kPartner + QStringList{"NUMEDELEGAT", "ACTIDENT"};

const QList<ListingBox> kDelegate{{"txtNume", "txtNume", "Numele delegatului"},
                                  {"txtBI", "txtBI", "Act de identitate"},
                                  {"txtAE", "txtAE", "Aviz de expeditie nr."},
                                  {"txtAuto", "txtAuto", "Autovehicul de transport nr."},
                                  {kDispatchDate, kDispatchDate, "Data expedierii"},
                                  {"txtLivratDe", "txtLivratDe", "Livrat de"},
                                  {"txtBI1", "txtBI1", "B.I."},
                                  {"txtCNP", "txtCNP", "CNP"},
                                  {"txtObs", "TxtObs", " Observatii"}};

QString linesOf(const QString& table, const QString& number) {
  return QStringLiteral("SELECT * FROM %1 WHERE %2 = ? ORDER BY NRLINIE").arg(table, number);
}

ListingKind customerInvoice() {
  ListingKind kind{"FC", "frmLstFC", "Facturi Clienti", "FacturiCLIFull", "FacturiCLI"};
  kind.offersReceipt = kind.offersCurrency = kind.printsSum = kind.choosesTarget = true;
  kind.boxes = kDelegate;
  kind.headerSql =
      "SELECT F.NUMFAC, F.CODCLI, C.PROCENT AS BATVA1, F.OBS, F.DATAFAC, F.CODDEVIZA, F.CURS "
      "FROM G_FACCLI AS F INNER JOIN kt_cote AS C ON F.BATVA1 = C.COD WHERE F.NUMFAC = ?";
  kind.linesSql =
      "SELECT F.NUMFAC, F.NRLINIE, F.CODART, F.DENUMIRE, F.CANT, F.ValoareFTCuDiscount AS PRETFT, "
      "F.VALOAREFT, F.VALOARETTI, F.VALOARETVA, F.UM, A.PALET, A.DENALTALIMBA "
      "FROM G_LFACCL AS F INNER JOIN G_ARTMAG AS A ON F.CODART = A.CODART WHERE F.NUMFAC = ? "
      "ORDER BY F.NRLINIE";
  kind.partner = kCustomer + QStringList{"JUDET", "REGCOM", "CT"};
  return kind;
}

ListingKind cashSale() {
  ListingKind kind{"BS", "frmLstRC", "Bon de Casa", "BonCasa"};
  kind.headerSql =
      "SELECT F.NUMFAC, F.CODCLI, C.PROCENT AS BATVA1, F.OBS, F.DATAFAC, F.CODDEVIZA, F.CURS, F.LISTAT "
      "FROM G_BONCASA AS F INNER JOIN kt_cote AS C ON F.BATVA1 = C.COD WHERE F.NUMFAC = ?";
  kind.linesSql =
      "SELECT NUMFAC, NRLINIE, CODART, DENUMIRE, CANT, ValoareFTCuDiscount AS PRETFT, VALOAREFT, VALOARETTI, "
      "VALOARETVA, UM FROM G_LBONCASA WHERE NUMFAC = ? ORDER BY NRLINIE";
  kind.partner = kCustomer + QStringList{"JUDET", "REGCOM"};
  return kind;
}

ListingKind consumptionVoucher() {
  ListingKind kind{"BC", "frmLstBonConsum", "Bon de consum", "BonConsumFull"};
  kind.headerSql =
      "SELECT A.NUMAE, A.CODCLI, A.BATVA1, A.OBSERV, A.DATAAE FROM G_BONCON AS A WHERE A.NUMAE = ?";
  kind.linesSql = linesOf("G_LBONCON", "NUMAE");
  kind.partner = kCustomer;
  return kind;
}

ListingKind inputVoucher() {
  ListingKind kind{"BI", "frmLstBonIntr", "Bon de intrare", "BonIntrare"};
  kind.headerSql = "SELECT F.NUMNR, F.CODFUR, F.BATVA, F.OBS, F.DATANR FROM G_BONINT AS F WHERE F.NUMNR = ?";
  kind.linesSql = linesOf("G_LBONINT", "NUMNR");
  kind.partner = kPartner;
  return kind;
}

// For a supplier invoice the receipt note of its goods is printed.
ListingKind supplierInvoice() {
  ListingKind kind{"FF", "frmLstNIR_FF", "Listare NIR pentru Factura ", "NIR_FF"};
  kind.headerSql =
      "SELECT F.NUMFAC, F.CODFUR, C.PROCENT AS BATVA1, F.OBS, F.DATAFAC "
      "FROM G_FACFUR AS F INNER JOIN kt_cote AS C ON F.BATVA1 = C.COD WHERE F.NUMFAC = ?";
  kind.linesSql = linesOf("G_LFACFU", "NUMFAC");
  kind.partner = kPartner;
  return kind;
}

const std::vector<ListingKind>& listingKinds() {
  static const std::vector<ListingKind> kinds{customerInvoice(), cashSale(), consumptionVoucher(),
                                              inputVoucher(), supplierInvoice()};
  return kinds;
}

QString unsavedText(const DocumentKind& kind) {
  for (const auto& check : kind.printChecks)
    if (check.check == PrintCheck::NotSaved) return check.text;
  return wording::kPressSave;
}

// The header row for printing: the date has the type date, currency and rate are not empty.
Recordset readHeader(const ListingKind& kind, const QString& number) {
  const DocumentKind& document = documentKind(kind.prefix);
  Recordset header = OpenRs(kind.headerSql, {number});
  if (header.isEmpty()) throw RuleError(unsavedText(document), document.numberColumn);
  header.transform(document.dateColumn, asDate);
  for (const QString& column : header.columns()) {
    if (column.compare(kCurrencyColumn, Qt::CaseInsensitive) == 0)
      header.transform(column, [](const QVariant& cell) {
        const QString code = cell.toString().trimmed();
        return QVariant(code.isEmpty() ? kLei : code);
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

void addSum(Variables& variables, const ListedDocument& document, const ListingOptions& options) {
  const Decimal rate = leiRate(document, options);
  const Decimal total = printedTotal(document, rate);
  QString currency = rate.isZero() ? document.currency : kLei;
  variables.add("MonedaTiparita", currency);
  variables.add("CursLei", rate.toDouble());
  variables.add("SumaDePlataLitere", SumaText(total, currency));
  variables.add("SumaDePlataCifre", total.toDouble());
  variables.add("ParamCHI", options.receipt);
  variables.addColumns(session().gDataEnv.open("Get_Paramsoc"), {"SERIEFC"});
}

}  // namespace

const ListingKind& listingKind(const QString& prefix) {
  for (const ListingKind& kind : listingKinds())
    if (kind.prefix.compare(prefix, Qt::CaseInsensitive) == 0) return kind;
  throw StoreError(0, QStringLiteral("Documentele %1 nu pot fi tiparite inca").arg(prefix));
}

ListedDocument readListed(const ListingKind& kind, const QString& number) {
  ListedDocument document;
  document.header = readHeader(kind, number);
  document.lines = OpenRs(kind.linesSql, {number});
  const Row& header = document.header.first();
  document.partner =
      session().gDataEnv.open("Get_Tert", {header.integer(documentKind(kind.prefix).partnerColumn)});
  if (header.has(kCurrencyColumn)) document.currency = header.text(kCurrencyColumn);
  if (kind.printsSum)
    for (const Row& line : document.lines) document.total += line.decimal("VALOARETTI");
  return document;
}

QStringList missingPartnerTexts(const ListingKind& kind) {
  const QString noun = documentKind(kind.prefix).partnersAreSuppliers ? "Furnizor" : "Client";
  return {noun + " inexistent in baza de date", "Trebuie introdus in baza de date"};
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
  if (kind.offersCurrency) variables.add("bDeviza", options.foreign);
  if (kind.printsSum) addSum(variables, document, options);
  variables.addColumns(document.partner, kind.partner);
  return data;
}

QString listingFile(const ListingKind& kind, const ListingOptions& options) {
  const QString& project = options.preprinted ? kind.preprinted : kind.project;
  return QDir(session().gCaleAplicatie).filePath(QStringLiteral("lst/%1.lst").arg(project));
}

}  // namespace velmar
