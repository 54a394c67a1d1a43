// Invoices, vouchers and stornos of hearing devices from draft to ledger and back, with amounts worked out by
// hand.
#include <gtest/gtest.h>
#include <QRegularExpression>

#include "documents/OtherTrade.h"
#include "documents/Undo.h"
#include "hearing/Cancellation.h"
#include "Shop.h"

namespace velmar {
namespace {

class HearingTest : public ::testing::TestWithParam<const char*> {};

LedgerKey invoiceKey(const QString& number) { return {KindId::DeviceInvoice, number}; }
LedgerKey stornoKey(const QString& number) { return {KindId::DeviceStorno, number}; }

void expectRefused(const std::function<void()>& work, const QString& text) {
  try {
    work();
    FAIL() << "not refused: " << qUtf8Printable(text);
  } catch (const RuleError& error) {
    EXPECT_TRUE(error.text().contains(text)) << qUtf8Printable(error.text());
  }
}

// A device of 2101.50: the insurer pays 900 and VAT of 171, the work point 1201.50 and VAT of 228.28 (228.285
// rounds to the even ban).
TEST_P(HearingTest, OneDeviceIsBilledTwice) {
  Shop shop(GetParam());
  shop.buy("1", "AP1", "5", "400");
  const qint64 order = addOrder(shop.order("c1", "AP1", "2101.50", "900"));
  EXPECT_EQ(storedOrder(order).text("Nr"), "C1");
  EXPECT_EQ(audiogram(Audiogram::Tone, order).size() + audiogram(Audiogram::Speech, order).size(), 4);
  EXPECT_EQ(audiogram(Audiogram::Tone, order).first().text("Urechea"), "Stanga");

  const qint64 insured = shop.invoice("101", shop.insurer, BilledBy::Insurer, {order});
  const qint64 rest = shop.invoice("102", shop.workPoint, BilledBy::WorkPoint, {order});
  EXPECT_EQ(storedInvoice(insured).decimal("Total"), 1071);
  EXPECT_EQ(storedInvoice(rest).decimal("TVA"), *Decimal::parse(u"228.28"));
  EXPECT_EQ(billableOrders(storedInvoice(insured), BilledBy::Insurer).first().text("Inchisa"), "Da");
  shop.validateDraft(insured);
  shop.validateDraft(rest);
  EXPECT_EQ(Shop::ledger("FC101"), QStringList({"AP1 1 900 171 1071 400"}));
  EXPECT_EQ(Shop::ledger("FC102"), QStringList({"AP1 1 1201.5 228.28 1429.78 400"}));
  // Each invoice issues what its lines say.
  EXPECT_EQ(Trade::figure("AP1", "STOC"), 3);
  EXPECT_EQ(Trade::note("102").mid(0, 3).join(' ').remove(QRegularExpression("^\\d+ |(?<= )\\d+ (?=[DC])")),
            "D 411 1429.78 C 707 1201.5 C 4427 228.28");
  const Row row = OpenRs("SELECT * FROM kt_linii WHERE DOC = '102' AND CONT = '607'").first();
  EXPECT_EQ(row.decimal("DEBIT"), 400);
  EXPECT_EQ(row.integer("TERT"), shop.workPoint);
  EXPECT_EQ(row.text("JURNAL"), "OD");
  EXPECT_EQ(row.date("DATASCAD"), QDate(2026, 4, 15));
  EXPECT_EQ(OpenRs("SELECT DISTINCT NDI FROM kt_linii WHERE DOC = '102'").size(), 1);
  EXPECT_EQ(disagreementText(), QString());

  expectRefused([&] { removeOrder(order); }, "Comanda este pe factura 101");
  Row dearer = storedOrder(order);
  dearer.set("PretLivrare", Decimal(3000));
  expectRefused([&] { saveOrder(dearer, storedOrder(order)); }, "Comanda este pe factura 101");
  expectRefused([&] { addOrder(shop.order("C1", "AP1", "1", "1")); }, "Comanda mai exista");
}

// 2101.50 - 900 twice is 2403: one line of the device, with VAT 456.57; a typed line and a direct sale.
TEST_P(HearingTest, OrdersOfOneDeviceMergeAndTypedLinesStay) {
  Shop shop(GetParam());
  shop.buy("1", "AP1", "1", "400");
  const qint64 first = addOrder(shop.order("1", "AP1", "2101.50", "900", true));
  const qint64 second = addOrder(shop.order("2", "AP1", "2101.50", "900", true));
  const qint64 free = addOrder(shop.order("3", "AP1", "900", "900", true));
  const qint64 draft = shop.invoice("7", shop.patient, BilledBy::Patient, {first, second});
  EXPECT_EQ(billableOrders(storedInvoice(draft), BilledBy::Patient).size(), 2)
      << "nothing is due for " << free;
  Row typed = lineWithArticle(emptyInvoiceLine(), "piesa");
  computeLine(typed, 19);
  addInvoiceLine(draft, typed);
  ASSERT_EQ(invoiceLines(draft).size(), 2U);
  EXPECT_EQ(invoiceLines(draft)[0].decimal("PretUnitar"), 2403);
  EXPECT_EQ(invoiceLines(draft)[0].decimal("Cant"), 1);
  EXPECT_EQ(storedInvoice(draft).decimal("TVA"), *Decimal::parse(u"466.07"));  // 456.57 + 9.50
  // A lower rate changes the typed line only.
  Row lower = storedInvoice(draft);
  lower.set("CotaTVA", Decimal(9));
  saveInvoice(lower, BilledBy::Patient, storedInvoice(draft));
  EXPECT_EQ(storedInvoice(draft).decimal("TVA"), *Decimal::parse(u"461.07"));
  expectRefused(
      [&] {
        Row other = storedInvoice(draft);
        other.set("ID_Client", shop.workPoint);
        saveInvoice(other, BilledBy::Patient, storedInvoice(draft));
      },
      "Clientul si punctul de lucru nu se mai pot modifica");
  expectRefused([&] { shop.validateDraft(draft); }, "Articolul: PIESA are disponibil in stoc 0");
  EXPECT_EQ(disagreementText(), QString());
  detachOrder(draft, first);
  detachOrder(draft, second);
  EXPECT_EQ(invoiceLines(draft).size(), 1U);
  removeInvoice(draft);
  removeOrder(first);
  EXPECT_EQ(disagreementText(), QString());
}

// An order that has no line on its invoice would count as billed while nobody pays for it.
TEST_P(HearingTest, NoOrderIsBilledForNothing) {
  Shop shop(GetParam());
  shop.buy("1", "AP1", "2", "400");
  const qint64 good = addOrder(shop.order("1", "AP1", "2101.50", "900"));
  const qint64 lost = addOrder(shop.order("2", "AP2", "100", "50"));
  ExecutaSql("UPDATE G_COMANDA_AUDIO SET ID_Dispozitiv = 'LIPSA' WHERE ID_Comanda = ?", {lost});
  const qint64 draft = shop.invoice("7", shop.insurer, BilledBy::Insurer, {good});
  const QString noDevice = QStringLiteral("Comanda 2 are un dispozitiv care nu exista (LIPSA)");
  expectRefused([&] { attachOrder(draft, lost); }, noDevice);
  const qint64 line = invoiceLines(draft).front().integer("ID_Detaliu");
  expectRefused([&] { removeInvoiceLine(draft, line); },
                "Linia este din comanda 1. Pentru a o sterge scoateti comanda de pe factura");
  // Drafts made before these checks.
  const QStringList before = Shop::books();
  const char* const link =
      "INSERT INTO G_AsocieriComenziFacturiAudio (ID_Factura, ID_ComandaAudio, ID_Client, Stornat) VALUES "
      "(?, ?, ?, 0)";
  ExecutaSql(link, {draft, lost, shop.insurer});
  expectRefused([&] { shop.validateDraft(draft); }, noDevice);
  detachOrder(draft, lost);
  EXPECT_EQ(Shop::books(), before);
  ExecutaSql("DELETE FROM G_FacturaClientiAudio_Detalii WHERE ID_Factura = ?", {draft});
  expectRefused([&] { shop.validateDraft(draft); }, "Comanda 1 nu are linie pe factura");
}

// A repair that the patient pays leaves stock once: by the voucher, then by the invoice.
TEST_P(HearingTest, ABilledVoucherLeavesStockOnce) {
  Shop shop(GetParam());
  shop.buy("1", "PIESA", "2", "10", QDate(2026, 3, 12));
  shop.buy("2", "PIESA", "3", "20", QDate(2026, 3, 13));
  const qint64 guarantee = shop.voucher("1", false, {{"PIESA", "1"}}, QDate(2026, 3, 14));
  EXPECT_EQ(Shop::ledger("BC1").size(), 1);
  EXPECT_EQ(OpenRs("SELECT * FROM kt_linii WHERE DOC = '1' AND FELDOC = 'BC'").size(), 2);
  const qint64 paid = shop.voucher("2", true, {{"PIESA", "2.5"}});
  EXPECT_TRUE(OpenRs("SELECT * FROM kt_linii WHERE DOC = '2' AND FELDOC = 'BC'").isEmpty());
  const QStringList before = Shop::books();
  const qint64 draft = shop.invoice("9", shop.patient, BilledBy::Voucher, {});
  EXPECT_EQ(billableVouchers(storedInvoice(draft)).size(), 1);
  expectRefused([&] { attachVoucher(draft, guarantee); }, "in garantie");
  attachVoucher(draft, paid);
  EXPECT_EQ(storedInvoice(draft).decimal("Total"), *Decimal::parse(u"148.75"));  // 125 + 23.75
  shop.validateDraft(draft);
  EXPECT_EQ(Trade::figure("PIESA", "STOC"), *Decimal::parse(u"1.5"));
  EXPECT_TRUE(OpenRs("SELECT TIPIE FROM G_DOCUME WHERE ID = 'BC2'").first().isNull("TIPIE"));
  EXPECT_EQ(disagreementText(), QString());
  expectRefused([&] { checkRemoval({KindId::RepairVoucher, "2"}); }, "Bonul este pe factura 9");
  EXPECT_TRUE(takeBack(invoiceKey("9")));
  EXPECT_EQ(OpenRs("SELECT TIPIE FROM G_DOCUME WHERE ID = 'BC2'").first().text("TIPIE"), "E");
  EXPECT_EQ(disagreementText(), QString());
  removeInvoice(draft);
  EXPECT_EQ(Shop::books(), before);
  takeBack({KindId::RepairVoucher, "2"});
  removeVoucher(paid);
  EXPECT_EQ(disagreementText(), QString());
}

// The invoice bills something else for a part of its voucher, and another voucher takes the part: the first
// voucher cannot have it back. What links name is not deleted, and articles without stock never move.
TEST_P(HearingTest, WhatIsGoneIsNotIssuedAgain) {
  Shop shop(GetParam());
  shop.buy("1", "PIESA", "2", "10");
  shop.article("SERV", "50");
  ExecutaSql("UPDATE G_ARTMAG SET FARASTOC = ? WHERE CODART = 'SERV'", {true});
  const qint64 paid = shop.voucher("7", true, {{"PIESA", "2"}, {"SERV", "1"}});
  const qint64 draft = shop.invoice("9", shop.patient, BilledBy::Voucher, {});
  attachVoucher(draft, paid);
  for (const Row& line : invoiceLines(draft)) {
    expectRefused([&] { removeInvoiceLine(draft, line.integer("ID_Detaliu")); },
                  "scoateti bonul de pe factura in lista \"Bonuri de reparatii\"");
    if (line.text("ID_Articol") == "PIESA") saveInvoiceLine(draft, lineWithArticle(line, "SERV"), line);
  }
  shop.validateDraft(draft);
  const qint64 other = shop.voucher("8", false, {{"PIESA", "2"}});
  const QStringList before = Shop::books();
  const QString missing = QStringLiteral("Articolul: PIESA are disponibil in stoc 0");
  expectRefused([&] { cancelHearingInvoice(invoiceKey("9"), "10", clock::today()); }, missing);
  expectRefused([&] { takeBack(invoiceKey("9")); }, missing);
  EXPECT_EQ(Shop::books(), before);
  takeBack({KindId::RepairVoucher, "8"});
  removeVoucher(other);
  cancelHearingInvoice(invoiceKey("9"), "10", clock::today());
  EXPECT_EQ(Trade::figure("SERV", "STOC"), 0);
  takeBack({KindId::RepairVoucher, "7"});
  expectRefused([&] { removeVoucher(paid); }, "Bonul este pe factura 9");
  EXPECT_EQ(disagreementText(), QString());
}

TEST_P(HearingTest, AStornoAndItsDeletionLeaveTheBooksAsTheyWere) {
  Shop shop(GetParam());
  shop.buy("1", "AP1", "1", "400");
  shop.buy("2", "AP1", "3", "500");
  shop.buy("3", "PIESA", "3", "20");
  const qint64 order = addOrder(shop.order("1", "AP1", "2101.50", "900"));
  const qint64 paid = shop.voucher("5", true, {{"PIESA", "1"}});
  const qint64 draft = shop.invoice("20", shop.insurer, BilledBy::Insurer, {order});
  shop.validateDraft(draft);
  // A price that the user typed does not depend on the order's.
  shop.buy("4", "AP2", "1", "300");
  const qint64 typed =
      shop.invoice("22", shop.insurer, BilledBy::Insurer, {addOrder(shop.order("2", "AP2", "1500", "900"))});
  Row line = invoiceLines(typed).front();
  line.set("PretUnitar", Decimal(1000));
  computeLine(line, 19);
  saveInvoiceLine(typed, line, invoiceLines(typed).front());
  shop.validateDraft(typed);
  cancelHearingInvoice(invoiceKey("22"), "23", clock::today());
  takeBack(stornoKey("23"));
  const qint64 repair = shop.invoice("21", shop.patient, BilledBy::Voucher, {});
  attachVoucher(repair, paid);
  shop.validateDraft(repair);
  const QStringList before = Shop::books();

  const QDate day(2026, 3, 16);
  expectRefused([&] { cancelHearingInvoice(invoiceKey("20"), "21", day); },
                "Factura cu acest numar exista deja");
  expectRefused([&] { cancelHearingInvoice(invoiceKey("20"), "30", day.addDays(-9)); }, "intervalul");
  for (const bool inBlack : {false, true}) {
    ExecutaSql("UPDATE kt_par SET StornareNegru = ?", {inBlack});
    cancelHearingInvoice(invoiceKey("20"), "30", day);
    cancelHearingInvoice(invoiceKey("21"), "31", day);
    EXPECT_EQ(Trade::figure("AP1", "STOC"), 4);
    EXPECT_EQ(Trade::figure("PIESA", "STOC"), 2) << "the voucher has its part again";
    EXPECT_EQ(OpenRs("SELECT DISTINCT NDI FROM kt_linii WHERE DOC = '30'").size(), 2);
    EXPECT_EQ(OpenRs("SELECT SUM(DEBIT) AS D, SUM(CREDIT) AS C FROM kt_linii WHERE DOC IN ('20', '30') AND "
                     "CONT = '411'")
                  .first()
                  .decimal(inBlack ? "C" : "D"),
              inBlack ? 1071 : 0);
    EXPECT_TRUE(linksOf(invoiceKey("20")).empty());
    EXPECT_EQ(disagreementText(), QString());
    expectRefused([&] { cancelHearingInvoice(invoiceKey("20"), "32", day); },
                  "deja stornata cu documentul FS30");
    expectRefused([&] { removeOrder(order); }, "Comanda este pe factura 20");
    expectRefused([&] { checkRemoval(invoiceKey("20")); }, "stornata cu documentul FS30");
    // The order is free: another invoice takes it, and the storno cannot be deleted then.
    const qint64 other = shop.invoice("40", shop.insurer, BilledBy::Insurer, {order});
    expectRefused([&] { takeBack(stornoKey("30")); }, "este acum pe factura 40");
    removeInvoice(other);
    // The order may be corrected now, but the invoice no longer fits it.
    const Row shown = OpenRs("SELECT * FROM G_COMANDA_AUDIO WHERE ID_Comanda = ?", {order}).first();
    Row corrected = shown;
    corrected.set("ID_Dispozitiv", QStringLiteral("PIESA"));
    saveOrder(corrected, shown);
    expectRefused([&] { takeBack(stornoKey("30")); }, "alt client sau alt dispozitiv");
    saveOrder(shown, corrected);
    Row cheaper = shown;
    cheaper.set("PretReferinta", Decimal(100));
    saveOrder(cheaper, shown);
    expectRefused([&] { takeBack(stornoKey("30")); },
                  "Comanda 1 are acum alt pret. Stornarea nu poate fi stearsa !");
    saveOrder(shown, cheaper);
    takeBack(stornoKey("31"));
    takeBack(stornoKey("30"));
    EXPECT_EQ(Shop::books(), before);
    EXPECT_EQ(disagreementText(), QString());
  }
  cancelHearingInvoice(invoiceKey("20"), "30", day);
  Trade::validate(*[&] {
    static std::unique_ptr<DocumentEditor> editor;
    editor = std::make_unique<DocumentEditor>("FC");
    Trade::draft(*editor, shop.sale("50"), {Trade::out("AP1", "4")});
    return editor.get();
  }());
  expectRefused([&] { takeBack(stornoKey("30")); }, "Articolul: AP1 are disponibil in stoc 0");
  EXPECT_EQ(disagreementText(), QString());
}

TEST_P(HearingTest, HeadersAreCompleteAndNumbersFree) {
  Shop shop(GetParam());
  expectRefused(
      [] { addOrder(newOrder()); },
      "Va rog completati: \r\n\t: Nr Comanda\r\n\t: Pacient\r\n\t: Doctor\r\n\t: CAS\r\n\t: Grad Hipoacuzie");
  expectRefused([] { addInvoice(newInvoice(), BilledBy::Insurer); },
                "Va rog completati: \r\n\t: Nr Comanda\r\n\t: Client\r\n\t: Punct de lucru");
  expectRefused([] { addVoucher(newVoucher()); }, "Va rog completati: \r\n\t: Client\r\n\t: Aparat");
  const qint64 draft = shop.invoice("5", shop.patient, BilledBy::Patient, {});
  expectRefused([&] { shop.invoice("5", shop.patient, BilledBy::Patient, {}); },
                "Factura cu acest numar exista");
  expectRefused([&] { shop.validateDraft(draft); }, "Va rog introduceti articole pe detalii factura");
  Row line = emptyInvoiceLine();
  line.set("ID_Articol", "AP1");
  line.set("Cant", Decimal(-1));
  addInvoiceLine(draft, line);
  expectRefused([&] { shop.validateDraft(draft); }, "Va rog introduceti cantitatea");
  // Someone else has changed the draft since it was shown.
  const std::vector<Row> shown = invoiceLines(draft);
  removeInvoiceLine(draft, shown.front().integer("ID_Detaliu"));
  expectRefused([&] { validateInvoice(storedInvoice(draft), shown); }, "modificat intre timp");
  const Row header = storedInvoice(draft);
  ExecutaSql("INSERT INTO G_DOCUME (ID, TIP) VALUES ('FC5', 'FC')");
  ExecutaSql("UPDATE G_FacturiClientiAudio SET Validat = -1");
  expectRefused([&] { saveInvoice(header, BilledBy::Patient, header); },
                "a fost validat sau sters intre timp de alt utilizator");
  expectRefused(
      [] { removePartner(OpenRs("SELECT COD FROM kt_ter WHERE NUME = 'POP ION'").first().integer("COD")); },
      "documente inregistrate");
}

// Data that something else than the program has changed.
TEST_P(HearingTest, TheCheckFindsWhatIsBroken) {
  for (const char* damage :
       {"UPDATE G_FacturiClientiAudio SET Validat = 0 WHERE Nr = '101'", "DELETE FROM G_BonReparatii",
        "UPDATE G_FacturaClientiAudio_Detalii SET TVA = TVA + 0.01",
        "UPDATE G_BonReparatii_Detalii SET Valoare = 1", "UPDATE G_DOCUME SET TIPIE = 'E' WHERE ID = 'BC1'",
        "UPDATE G_AsocieriComenziFacturiAudio SET Stornat = -1", "DELETE FROM G_COMANDA_AUDIO",
        "UPDATE kt_linii SET DEBIT = DEBIT + 1 WHERE DOC = '102'",
        "UPDATE G_LDOCUM SET CANT = 2 WHERE DOCID = 'FC101'", "DELETE FROM G_DOCUME WHERE ID = 'FC102'",
        "INSERT INTO G_AsocieriBonuriFacturiAudio (ID_Factura, ID_BonReparatie, Stornat) SELECT "
        "F.ID_Factura, "
        "R.ID_BonReparatie, 0 FROM G_FacturiClientiAudio F, G_BonReparatii R WHERE F.Nr = '101'"}) {
    Shop shop(GetParam());
    shop.buy("1", "AP1", "5", "400");
    shop.buy("2", "PIESA", "5", "20");
    const qint64 order = addOrder(shop.order("1", "AP1", "2101.50", "900"));
    shop.validateDraft(shop.invoice("101", shop.insurer, BilledBy::Insurer, {order}));
    const qint64 voucher = shop.voucher("1", true, {{"PIESA", "1"}});
    const qint64 repair = shop.invoice("102", shop.patient, BilledBy::Voucher, {});
    attachVoucher(repair, voucher);
    shop.validateDraft(repair);
    ASSERT_EQ(disagreementText(), "");
    ExecutaSql(damage);
    EXPECT_NE(disagreementText(), "") << damage;
  }
}

INSTANTIATE_TEST_SUITE_P(Methods, HearingTest, ::testing::Values("FIFO", "MP"));

}  // namespace
}  // namespace velmar
