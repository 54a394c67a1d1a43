#include "shell/SampleEInvoices.h"

#include <QTemporaryDir>

#include "config/Parameters.h"
#include "einvoice/EInvoices.h"
#include "einvoice/Places.h"
#include "einvoice/PurchaseFiles.h"
#include "store/Database.h"
#include "util/Clock.h"
#include "util/Errors.h"

namespace velmar {

namespace {

constexpr int kMonths = 7;
constexpr int kLastDays = 4;  // not sent yet
constexpr int kFirstIndex = 4'001'000;
constexpr int kSuppliers = 2;
constexpr int kArticles = 3;  // on an invoice of a supplier
const Decimal kVatPercent(19);

// Invoices to the cash customer, who has no address, stay without a file.
void send(QStringList documents, const QTemporaryDir& folder) {
  for (const QString& faulty : writeEInvoices(documents, folder.path()).faulty) documents.removeAll(faulty);
  for (qsizetype i = 0; i < documents.size(); ++i) {
    markSent(documents[i], QString::number(kFirstIndex + i));
    const bool isRefused = i == documents.size() / 2;
    readAnswer(QStringLiteral(
                   "<header xmlns=\"mfp:anaf:dgti:efactura:stareMesajFactura:v1\" stare=\"%1\">%2</header>")
                   .arg(isRefused ? "nok" : "ok",
                        isRefused ? "<Error errorMessage=\"E: [BR-RO-110] judetul cumparatorului\"/>" : "")
                   .toUtf8(),
               documents[i]);
  }
}

EParty party(const QString& name, const QString& code, const QString& street, const QString& town,
             const QString& postCode, const QString& county) {
  EParty party;
  party.name = name;
  party.vatId = code;
  party.legalId = code.mid(2);
  party.street = street;
  party.county = countyCode(county);
  party.town = party.county == kBucharest ? bucharestSector({town}, postCode) : town;
  party.country = QStringLiteral("RO");
  return party;
}

// What the supplier would send for some of its articles.
EInvoice invoiceOf(const Row& supplier, int number) {
  const Row own = storedIdentity();
  EInvoice invoice;
  invoice.number = QStringLiteral("EF%1").arg(7100 + number);
  invoice.date = clock::today().addDays(-2 - number);
  invoice.due = invoice.date.addMonths(1);
  invoice.currency = QStringLiteral("RON");
  invoice.seller = party(supplier.text("NUME"), supplier.text("CODFISCAL"), supplier.text("AD"),
                         supplier.text("ORAS"), supplier.text("CP"), supplier.text("Judet"));
  invoice.buyer = party(own.text("DENUMIRE"), own.text("CODFISCAL"), own.text("STRADA1"), own.text("ORAS1"),
                        own.text("CODPOSTAL1"), own.text("JUDET1"));
  invoice.category = {QStringLiteral("S"), kVatPercent, {}, {}};
  for (const Row& article :
       OpenRs("SELECT CODPRODFUR, DENART, COST FROM G_ARTMAG WHERE CODFURNIZO = ? AND PROVENIENTA = 'M' "
              "AND COST > 0 ORDER BY CODART LIMIT ?",
              {supplier.integer("COD"), kArticles})) {
    ELine line;
    line.name = article.text("DENART");
    line.code = article.text("CODPRODFUR");
    line.quantity = Decimal(10 + number);
    line.price = line.grossPrice = Round(article.decimal("COST"), 2);
    line.unit = QStringLiteral("H87");
    line.value = line.price * line.quantity;
    invoice.base += line.value;
    invoice.lines.push_back(std::move(line));
  }
  invoice.vat = Round(invoice.base * kVatPercent / 100, 2);
  return invoice;
}

void receive(const QTemporaryDir& folder) {
  QStringList paths;
  for (const Row& supplier :
       OpenRs("SELECT * FROM kt_ter T WHERE TIP IN ('F', 'M') AND EXISTS (SELECT 1 FROM G_ARTMAG A "
              "WHERE A.CODFURNIZO = T.COD AND A.PROVENIENTA = 'M' AND A.COST > 0) ORDER BY COD LIMIT ?",
              {kSuppliers})) {
    const EInvoice invoice = invoiceOf(supplier, static_cast<int>(paths.size()));
    QFile file(folder.filePath(invoice.number + QStringLiteral(".xml")));
    if (!file.open(QIODevice::WriteOnly) || file.write(eInvoiceXml(invoice)) < 0 || !file.flush())
      throw notWritten(file);
    paths.append(file.fileName());
  }
  readPurchases(paths);
  PurchaseSource source;
  for (const Row& row : lastPurchases()) takeOver(storedPurchase(row.integer("ID"), source), source);
}

}  // namespace

void addSampleEInvoices() {
  const QTemporaryDir folder;
  const QDate today = clock::today();
  QStringList documents;
  for (const Row& row : eInvoices(today.addMonths(-kMonths), today.addDays(-kLastDays), today))
    documents.append(row.text("ID"));
  send(documents, folder);
  receive(folder);
}

}  // namespace velmar
