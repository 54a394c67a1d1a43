// Electronic invoices: 1,000 invoices of 20 lines to files, compared with reading the same rows and writing
// as many bytes with the toolkit's XML writer; 1,000 files into drafts, compared with the bare inserts of the
// same drafts.
#include <QDir>
#include <QTemporaryDir>
#include <QXmlStreamWriter>

#include "Bare.h"
#include "Benches.h"
#include "einvoice/EInvoices.h"
#include "einvoice/PurchaseFiles.h"
#include "Fixture.h"
#include "store/Database.h"
#include "store/Records.h"

namespace velmar::bench {

namespace {

constexpr double kAim = 2;
constexpr int kInvoices = 1000;
constexpr int kLines = 20;
constexpr int kPartner = 300'001;
const QStringList kColumns = {"Velmar", "direct", "raport", "tinta"};

QString numberOf(int invoice) { return QString::number(700'000 + invoice); }

// Validated invoices as the ledger and the drafts have them: lines of 10 lei, VAT 19.
void fill() {
  ExecutaSql(
      "UPDATE kt_info SET DENUMIRE = 'SOCIETATE SRL', CODFISCAL = 'RO1590082', PLATITVA = 'D', STRADA1 = "
      "'Lunga', "
      "ORAS1 = 'Oradea', JUDET1 = 'BH'");
  ExecutaSql("UPDATE kt_par SET JURFACFUR = 'JC'");
  ExecutaSql("DELETE FROM kt_cote WHERE COD > 2");
  database().insertRows("kt_ter", {"COD", "NUME", "TIP", "CODFISCAL", "AD", "ORAS", "Judet"},
                        {{kPartner, "CLIENT SRL", "M", "RO13548146", "Str. Noua 2", "Cluj", "CJ"}});
  QStringList codes;
  for (const Row& row : OpenRs("SELECT CODART FROM G_ARTMAG ORDER BY CODART LIMIT 400"))
    codes.append(row.text("CODART"));
  ExecutaSql("UPDATE G_ARTMAG SET UM = 'Buc', CODFURNIZO = ?, CODPRODFUR = CODART", {kPartner});
  std::vector<Values> ledger, headers, lines;
  const QDate day(2026, 3, 15);
  for (int i = 0; i < kInvoices; ++i) {
    ledger.push_back({"FC" + numberOf(i), "FC", "E", kPartner, day, Decimal(kLines * 10),
                      Decimal(kLines * 19) / 10, "LEI", false});
    headers.push_back({numberOf(i), kPartner, day, 2, 1, true});
    for (int line = 0; line < kLines; ++line)
      lines.push_back({numberOf(i), line + 1, codes[(i + line) % codes.size()],
                       QStringLiteral("Articolul %1").arg(line), "Buc", Decimal(2), Decimal(5), Decimal(5),
                       Decimal(10), Decimal(19) / 10});
  }
  database().insertRows(
      "G_DOCUME", {"ID", "TIP", "TIPIE", "CODTERT", "DATADOC", "TOTALFT", "TOTALTVA", "CODDEV", "IsAudio"},
      ledger);
  database().insertRows("G_FACCLI", {"NUMFAC", "CODCLI", "DATAFAC", "BATVA1", "MODREG", "VALIDAT"}, headers);
  database().insertRows("G_LFACCL",
                        {"NUMFAC", "NRLINIE", "CODART", "DENUMIRE", "UM", "CANT", "PRETFT",
                         "ValoareFTCuDiscount", "VALOAREFT", "VALOARETVA"},
                        lines);
}

// The same rows, one statement for each invoice and table, and a file of the same size.
void writeDirectly(BareConnection& connection, const QString& folder, qint64 size) {
  BareStatement header = connection.prepare(
      "SELECT D.*, H.*, T.* FROM G_DOCUME D, G_FACCLI H, kt_ter T WHERE D.ID = ? AND H.NUMFAC = ? AND T.COD "
      "= H.CODCLI");
  BareStatement lines = connection.prepare(
      "SELECT L.*, A.DenAltaLimba FROM G_LFACCL L LEFT JOIN G_ARTMAG A ON A.CODART = L.CODART WHERE L.NUMFAC "
      "= ? ORDER BY L.NRLINIE");
  for (int i = 0; i < kInvoices; ++i) {
    const std::string number = numberOf(i).toStdString();
    const std::string key = ("FC" + numberOf(i)).toStdString();
    header.bind(1, key).bind(2, number).run();
    lines.bind(1, number).run();
    QByteArray bytes;
    bytes.reserve(size);
    QXmlStreamWriter writer(&bytes);
    writer.setAutoFormatting(true);
    writer.writeStartDocument();
    writer.writeStartElement("Invoice");
    while (bytes.size() < size) {
      writer.writeStartElement("cac", "Line");
      writer.writeTextElement("cbc", "LineExtensionAmount", "10.00");
      writer.writeEndElement();
    }
    writer.writeEndDocument();
    QFile file(QDir(folder).filePath(QStringLiteral("d%1.xml").arg(i)));
    if (file.open(QIODevice::WriteOnly)) file.write(bytes);
  }
}

void insertDirectly(BareConnection& connection) {
  BareStatement header = connection.prepare(
      "INSERT INTO G_FACFUR (NUMFAC, CODFUR, BATVA1, DATAFAC, DATASCAD, Magazie, JURNAL, VALIDAT, "
      "NoteContabile) VALUES (?, 300001, 1, '2026-03-15', '2026-03-15', 1, 'JC', 0, -1)");
  BareStatement line = connection.prepare(
      "INSERT INTO G_LFACFU (NUMFAC, NRLINIE, CODART, DENUMIRE, UM, CANT, PRETFT, VALOAREFT, VALOARETVA, "
      "VALOARETTI, PRETVA) VALUES (?, ?, ?, 'Articolul', 'Buc', 2, 5, 10, 1.9, 11.9, 10)");
  for (int i = 0; i < kInvoices; ++i) {
    const std::string number = ("D" + numberOf(i)).toStdString();
    connection.beginWrite();
    header.bind(1, number).run();
    for (int each = 0; each < kLines; ++each) {
      const std::string code = QStringLiteral("A%1").arg(each).toStdString();
      line.bind(1, number).bind(2, each + 1).bind(3, code).run();
    }
    connection.run("COMMIT");
  }
}

void contest(const QString& name, Store store, double own, double direct) {
  printRow(name, {milliseconds(own), milliseconds(direct), ratio(own / direct, kAim),
                  QStringLiteral("<= %1").arg(kAim)});
  noteRatio(QStringLiteral("einvoice: ") + name, store, own / direct, kAim);
}

}  // namespace

bool measureEInvoices(Store store) {
  printHeading(store, QStringLiteral("einvoice: 1.000 de facturi a 20 de linii"), kColumns);
  const QString path = copyOfCompany(store, CompanySize::EmptyLedger, QStringLiteral("Einvoice.mdb"));
  const QTemporaryDir folder;
  {
    const OpenCompany company(path);
    fill();
    QStringList documents;
    for (int i = 0; i < kInvoices; ++i) documents.append("FC" + numberOf(i));
    WrittenInvoices written;
    const double own = timed([&] { written = writeEInvoices(documents, folder.path()); });
    if (written.written != kInvoices) return false;
    const QFileInfoList files = QDir(folder.path()).entryInfoList(QDir::Files);
    BareConnection connection(path);
    const double direct = timed([&] { writeDirectly(connection, folder.path(), files.first().size()); });
    contest(QStringLiteral("in fisiere"), store, own, direct);

    // The company becomes the buyer of what it sold.
    ExecutaSql("UPDATE kt_ter SET CODFISCAL = 'RO1590082' WHERE COD = ?", {kPartner});
    ExecutaSql("UPDATE kt_info SET CODFISCAL = 'RO13548146'");
    QStringList paths;
    for (const QFileInfo& file : files) paths.append(file.filePath());
    int taken = 0;
    const double read = timed([&] { readPurchases(paths); });
    const double took = timed([&] {
      PurchaseSource source;
      for (const Row& row : lastPurchases())
        taken += static_cast<int>(takeOver(storedPurchase(row.integer("ID"), source), source).size());
    });
    if (taken != kInvoices) return false;
    const double inserted = timed([&] { insertDirectly(connection); });
    printRow(QStringLiteral("citire"), {milliseconds(read)});
    contest(QStringLiteral("in ciorne"), store, took, inserted);
    contest(QStringLiteral("citire si ciorne"), store, read + took, inserted);
  }
  removeCompany(path);
  return true;
}

}  // namespace velmar::bench
