#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <QDir>
#include <QTemporaryDir>
#include <random>

#include "config/UnitCodes.h"
#include "Desk.h"
#include "documents/OtherTrade.h"
#include "hearing/Shop.h"
#include "util/Clock.h"
#include "util/XmlText.h"
#include "util/Zipped.h"

namespace velmar {

namespace {

class Paper {
 public:
  explicit Paper(const QString& document) {
    EInvoiceSource source;
    source.read({document});
    const MadeInvoice made = source.make(document);
    for (const EFault& fault : made.faults) faults.append(fault.rule + ' ' + fault.field);
    bytes = eInvoiceXml(made.invoice);
    xml = std::make_unique<XmlText>(bytes, XmlText::Names::Local);
  }
  QString at(const QString& path) const {
    const auto found = xml->find(path);
    return found ? xml->text(*found) : QStringLiteral("-");
  }
  QStringList faults;
  QByteArray bytes;
  std::unique_ptr<XmlText> xml;
};

// The list of the rule has 2,162 codes, 406 of them of packages.
TEST(EInvoice, UnitCodesAreThoseOfTheRule) {
  const QString characters = QStringLiteral("0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ");
  int codes = 0, packages = 0;
  for (const QChar first : characters)
    for (const QChar second : characters) {
      codes += isUnitCode(QString(first) + second);
      for (const QChar third : characters)
        if (isUnitCode(QString(first) + second + third)) ++(first == u'X' ? packages : codes);
    }
  EXPECT_EQ(packages, 406);
  EXPECT_EQ(codes, 2162 - 406);
  for (const char* code :
       {"10", "1I", "A10", "A24", "A26", "B1", "E51", "GV", "NM3", "X1", "X44", "XO9", "ZZ"})
    EXPECT_TRUE(isUnitCode(code)) << code;
  for (const char* code : {"", "12", "A25", "A46", "BX", "NPR", "PA", "XAK", "XPM", "e51", "-", "A10-A24"})
    EXPECT_FALSE(isUnitCode(code)) << code;
}

TEST(EInvoice, SaysWhatTheDocumentSays) {
  const Desk desk;
  desk.receive("1", "A1", "100");
  desk.receive("2", "5941234567899", "100");
  desk.receive("3", "A2", "100");
  desk.invoice("7", {{"DATASCAD", Trade::iso(clock::today().addDays(10))}, {"MODREG", "3"}},
               {sold("A1", "3", "33.33"), sold("5941234567899", "2", "10")});
  const Paper paper("FC7");
  EXPECT_EQ(paper.faults, QStringList());
  EXPECT_EQ(paper.at("Invoice/ID"), "VLM7");
  EXPECT_EQ(paper.at("Invoice/DueDate"), Trade::iso(clock::today().addDays(10)));
  EXPECT_EQ(paper.at("Invoice/LegalMonetaryTotal/TaxExclusiveAmount"), "119.99");
  EXPECT_EQ(paper.at("Invoice/TaxTotal/TaxAmount"), paper.at("Invoice/TaxTotal/TaxSubtotal/TaxAmount"));
  EXPECT_EQ(paper.at("Invoice/PaymentMeans/PaymentMeansCode"), "30");
  EXPECT_EQ(paper.at("Invoice/PaymentMeans/PayeeFinancialAccount/ID"), "RO49AAAA1B31007593840000");
  EXPECT_EQ(paper.at("Invoice/AccountingSupplierParty/Party/PartyName/Name"), "SOCIETATE & FIII SRL");
  EXPECT_EQ(paper.at("Invoice/AccountingSupplierParty/Party/PartyTaxScheme/CompanyID"), "RO1590082");
  EXPECT_EQ(paper.at("Invoice/AccountingCustomerParty/Party/PostalAddress/CountrySubentity"), "RO-CJ");
  EXPECT_EQ(paper.at("Invoice/AccountingCustomerParty/Party/PartyTaxScheme/CompanyID"), "RO13548146");
  EXPECT_EQ(paper.at("//StandardItemIdentification/ID"), "5941234567899");

  // A storno: a credit note with the signs of what is given back, its own series, and the invoice it turns.
  const Paper turned(desk.storno("7", "8"));
  EXPECT_EQ(turned.faults, QStringList());
  EXPECT_EQ(turned.xml->root(), "CreditNote");
  EXPECT_EQ(turned.at("CreditNote/ID"), "VLM8");
  EXPECT_EQ(turned.at("//InvoiceDocumentReference/ID"), "VLM7");
  EXPECT_EQ(turned.at("CreditNote/LegalMonetaryTotal/TaxExclusiveAmount"), "119.99");
  EXPECT_EQ(turned.at("CreditNote/PaymentMeans/PaymentDueDate"), Trade::iso(clock::today()));
}

// A return larger than the sale is a credit note; amounts of several decimals are rounded cumulatively.
TEST(EInvoice, RoundsCumulativelyAndTurnsReturns) {
  const Desk desk("4");
  desk.receive("1", "A1", "1000");
  desk.receive("2", "A2", "1000");
  desk.invoice("1", {}, {sold("A1", "1", "10.3333"), sold("A2", "1", "10.3333")});
  const Paper paper("FC1");
  EXPECT_EQ(paper.faults, QStringList());
  // 10.3333 is 10.33; 20.6666 is 20.67, so the second line is 10.34. VAT is 3.9267, gross 24.5933.
  const auto lines = paper.xml->find("Invoice/InvoiceLine");
  EXPECT_EQ(paper.xml->text(*lines, "LineExtensionAmount"), "10.33");
  EXPECT_EQ(paper.at("Invoice/LegalMonetaryTotal/LineExtensionAmount"), "20.67");
  EXPECT_EQ(
      paper.at("Invoice/LegalMonetaryTotal/PayableAmount"),
      Round(OpenRs("SELECT TOTALFT + TOTALTVA AS T FROM G_DOCUME WHERE ID = 'FC1'").first().decimal("T"), 2)
          .toString());
  desk.invoice("2", {{"OBS", "FC1"}}, {sold("A1", "-1", "10.3333")});
  const Paper back("FC2");
  EXPECT_EQ(back.xml->root(), "CreditNote");
  EXPECT_EQ(back.at("//InvoiceDocumentReference/ID"), "VLM1");
  EXPECT_EQ(back.at("CreditNote/CreditNoteLine/CreditedQuantity"), "1");
  EXPECT_EQ(back.at("CreditNote/LegalMonetaryTotal/TaxExclusiveAmount"), "10.33");
}

// An invoice of hearing devices has its lines in tables of its own; its storno too.
TEST(EInvoice, OfHearingDevices) {
  const Shop shop("FIFO");
  Desk::identity(kIdentity);
  ExecutaSql("UPDATE kt_par SET SERIEFC = 'VLM', FCSTART = '1', FCEND = '999'");
  InitParaSoc();
  IncarcaSerii();
  Desk::buyer(shop.insurer, "CODFISCAL = '11307939', AD = 'Str. Casei 1', ORAS = 'Oradea', Judet = 'BIHOR'");
  shop.buy("1", "AP1", "5", "400");
  const qint64 order = addOrder(shop.order("c1", "AP1", "2101.50", "900"));
  shop.validateDraft(shop.invoice("101", shop.insurer, BilledBy::Insurer, {order}));
  const Paper paper("FC101");
  EXPECT_EQ(paper.faults, QStringList());
  EXPECT_EQ(paper.at("Invoice/ID"), "VLM101");
  EXPECT_EQ(paper.at("Invoice/LegalMonetaryTotal/PayableAmount"), "1071.00");
  EXPECT_EQ(paper.at("//InvoiceLine/LineExtensionAmount"), "900.00");
  otherTrade()->cancelInvoice({KindId::DeviceInvoice, "101"}, "102", clock::today());
  const Paper storno("FS102");
  EXPECT_EQ(storno.faults, QStringList());
  EXPECT_EQ(storno.at("CreditNote/ID"), "VLM102");
  EXPECT_EQ(storno.at("CreditNote/LegalMonetaryTotal/PayableAmount"), "1071.00");
  EXPECT_EQ(storno.at("//InvoiceDocumentReference/ID"), "VLM101");
}

// Answers in archives: our own file accepts, errors refuse, by the index; all else changes nothing.
TEST(EInvoice, AnswersInArchives) {
  const Desk desk;
  desk.receive("1", "A1", "100");
  desk.invoice("1", {}, {sold("A1", "1", "10")});
  desk.invoice("2", {}, {sold("A1", "2", "10")});
  const QTemporaryDir folder;
  // The second file cannot be written: the first has its record, and the next attempt writes both.
  const QString blocked = eInvoiceFileName("VLM2", clock::today());
  ASSERT_TRUE(QDir(folder.path()).mkdir(blocked));
  EXPECT_THROW(writeEInvoices({"FC1", "FC2"}, folder.path()), StoreError);
  EXPECT_EQ(OpenRs("SELECT DOCID FROM G_EFACTURA").size(), 1);
  ASSERT_TRUE(QDir(folder.path()).rmdir(blocked));
  EXPECT_EQ(writeEInvoices({"FC1", "FC2"}, folder.path()).written, 2);
  EXPECT_EQ(OpenRs("SELECT DOCID FROM G_EFACTURA").size(), 2);
  QFile file(folder.filePath(eInvoiceFileName("VLM1", clock::today())));
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  const QByteArray own = file.readAll();
  markSent("FC1", "501");
  markSent("FC2", "502");
  EXPECT_THROW(markSent("FC2", "501"), RuleError);
  const auto state = [](const char* id) {
    return OpenRs("SELECT STARE FROM G_EFACTURA WHERE DOCID = ? AND ACTUAL <> 0", {id}).first().text("STARE");
  };
  const QByteArray errors =
      "<header xmlns='mfp:anaf:dgti:efactura:mesajEroriFactuta:v1'><Error errorMessage='E: BR-CO-09 "
      "cod'/></header>";
  const std::pair<std::vector<std::pair<const char*, QByteArray>>, QString> unchanged[] = {
      {{{"502.xml", own}}, "another invoice's file"},
      {{{"777.xml", errors}}, "an unknown index"},
      {{{"501.xml", "<a xmlns='x'/>"}, {"semnatura_501.xml", "<s/>"}}, "another file"}};
  for (const auto& [files, what] : unchanged) {
    EXPECT_EQ(readAnswer(zipped(files), "FC1").document, "") << what.toStdString();
    EXPECT_EQ(state("FC1") + state("FC2"), "trimisatrimisa") << what.toStdString();
  }
  EXPECT_THROW(readAnswer(zipped({{"semnatura_501.xml", "<s/>"}}), "FC1"), RuleError);
  EXPECT_EQ(readAnswer(zipped({{"semnatura_501.xml", "<s/>"}, {"501.xml", own}}), "FC2").document, "FC1");
  EXPECT_EQ(readAnswer(zipped({{"502.xml", errors}}), "FC1").document, "FC2");
  EXPECT_EQ(state("FC1") + state("FC2"), "acceptatarespinsa");
  EXPECT_THROW(remakeEInvoice("FC1"), RuleError);
  remakeEInvoice("FC2");
  EXPECT_EQ(state("FC2"), "fisier scris");
}

// Invoices of every kind; the lines add up to the base, and base and VAT to what is payable. With the folder
// VELMAR_KEEP_INVOICES their files are left there, to be held against the official rules.
TEST(EInvoice, OfEveryKindAddsUp) {
  const QString folder = qEnvironmentVariable("VELMAR_KEEP_INVOICES");
  const unsigned most = folder.isEmpty() ? 40 : 200;  // lines
  int written = 0;
  for (const char* decimals : {"0", "2", "4"}) {
    const Desk desk(decimals);
    std::mt19937 random(static_cast<unsigned>(QString(decimals).toInt() + 1));
    const auto below = [&random](unsigned n) { return static_cast<unsigned>(random() % n); };
    for (const char* code : {"A1", "A2", "5941234567899"}) desk.receive(code, code, "1000000");
    QStringList codes{"A1", "A2", "5941234567899"};
    for (unsigned i = 0; i < most; ++i) {
      codes.append(QStringLiteral("S%1").arg(i));
      desk.article(codes.last(), "10", true, false);
    }
    const qint64 person = Desk::newBuyer(
        "POP <ION> & \"FIII\"",
        "TIP = 'P', PF = -1, AD = 'Str. Mica 3', ORAS = 'Bucuresti', CP = '031234', CNP = '1700101054771'");
    const qint64 member = Desk::newBuyer("HELLAS AE",
                                         "CT = 'EL', CODFISCAL = 'EL094259216', AD = 'Odos 1', ORAS = "
                                         "'Athina', ADL = 'Odos 2', ORASL = 'Athina', JUDETL = 'Attiki'");
    const qint64 abroad =
        Desk::newBuyer("ZURICH AG", "CT = 'CH', CODFISCAL = 'CHE-123.456', AD = 'Weg 1', ORAS = 'Zurich'");
    const qint64 small = Desk::newBuyer(
        "MIC SRL", "CODFISCAL = '14399840', AD = 'Str. X 1', ORAS = 'Sector 3', Judet = 'B', PlatesteTVA = 0",
        Decimal(12));
    const std::vector<std::tuple<qint64, const char*>> buyers = {
        {desk.customer, "S"}, {person, "S"}, {small, "S"}, {desk.customer, "AE"}, {member, "K"},
        {abroad, "G"},        {person, "E"}, {small, "Z"}, {member, "S"}};
    QStringList documents;
    const int count = folder.isEmpty() ? 12 : 150;
    for (int i = 1; i <= count; ++i) {
      const auto& [buyer, category] = buyers[below(static_cast<unsigned>(buyers.size()))];
      TypedTexts header{{"CODCLI", QString::number(buyer)}, {"MODREG", QString::number(1 + below(4))}};
      if (QString(category) != "S") header.insert("BATVA1", QString::number(desk.rates[category]));
      if (below(5) == 0) header.insert("OBS", "FC1");
      if (below(4) == 0) {
        header.insert("chkDeviza", "-1");
        header.insert("CODDeviza", "EUR");
        header.insert("Curs", "4,9731");
      }
      std::vector<TypedLine> lines;
      QStringList left = codes;
      for (unsigned n = 1 + below(below(4) == 0 ? most : 4); n > 0 && !left.isEmpty(); --n) {
        const QString code = left.takeAt(below(static_cast<unsigned>(left.size())));
        lines.push_back(sold(
            code,
            QString::number(below(6) == 0 ? -1 - static_cast<int>(below(5)) : 1 + static_cast<int>(below(9))),
            QStringLiteral("%1.%2").arg(1 + below(200)).arg(below(10000), 4, 10, QChar('0'))));
      }
      try {
        documents.append(desk.invoice(QString::number(i), header, lines));
        if (below(5) == 0) documents.append(desk.storno(QString::number(i), QString::number(5000 + i)));
      } catch (const RuleError&) {  // goods of a return that no receipt has
      }
    }
    for (const QString& document : documents) {
      const bool isWithoutVat = OpenRs("SELECT TOTALTVA FROM G_DOCUME WHERE ID = ?", {document})
                                    .first()
                                    .decimal("TOTALTVA")
                                    .isZero();
      Desk::identity(isWithoutVat && below(2) == 0 ? "PLATITVA = 'N'"
                                                   : "PLATITVA = 'D', TVAINCASARE = -1 - TVAINCASARE");
      const Paper paper(document);
      if (QString(decimals) == "0" && paper.faults == QStringList("BR-CO-17 ")) continue;
      ASSERT_EQ(paper.faults, QStringList()) << document.toStdString();
      const QString root = paper.xml->root();
      Decimal base;
      for (const int element : paper.xml->children(0))
        if (paper.xml->name(element).endsWith("Line"))
          base += *Decimal::parse(paper.xml->text(element, "LineExtensionAmount"));
      EXPECT_EQ(base, *Decimal::parse(paper.at(root + "/LegalMonetaryTotal/TaxExclusiveAmount")));
      if (folder.isEmpty()) continue;
      QFile file(QDir(folder).filePath(QStringLiteral("%1_%2.xml").arg(decimals, document)));
      ASSERT_TRUE(file.open(QIODevice::WriteOnly));
      file.write(paper.bytes);
      ++written;
    }
  }
  EXPECT_EQ(written > 0, !folder.isEmpty());
}

}  // namespace

}  // namespace velmar
