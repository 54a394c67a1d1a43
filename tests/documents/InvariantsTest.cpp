// Damage to a company's data that the checker must report.
#include "documents/Invariants.h"

#include <gtest/gtest.h>

#include "documents/Undo.h"
#include "Trade.h"

namespace velmar {
namespace {

TEST(InvariantsTest, EveryDamageIsReportedWithItsPlace) {
  const Trade trade("FIFO");
  trade.article("A", "20");
  const QString day = Trade::iso(clock::today().addDays(-9));
  trade.validated("FF", trade.purchase("1", clock::today().addDays(-9)),
                  {Trade::bought("A", "10", "5", "20")});
  trade.validated(
      "BI", {{"NUMNR", "2"}, {"CODFUR", QString::number(trade.supplier)}, {"DATANR", day}, {"BATVA", "19"}},
      {Trade::bought("A", "3", "6", "20")});
  trade.validated("BC", trade.consumption("3"), {Trade::out("A", "2")});
  trade.validated("FC", trade.sale("4"), {Trade::out("A", "1")});
  trade.validated("BS", {{"BATVA1", "2"}}, {Trade::out("A", "1")});
  trade.validated("AE", trade.consumption("6"), {Trade::out("A", "1")});
  ExecutaSql("INSERT INTO G_MULTIMAGAZIE (COD, DENUMIRE, CONT) VALUES (2, 'Depozit', '381')");
  ExecutaSql("INSERT INTO G_MULTIMAGAZIE (COD, DENUMIRE, CONT) VALUES (1, 'Magazin', '371')");
  ExecutaSql("UPDATE kt_par SET CONTAVIZEXP_M = '357', CONTAVIZEXP_P = '354', JURAVIZ = 'AV'");
  trade.validated("BT", {{"NUMAE", "7"}, {"DESTMAGAZIE", "2"}}, {Trade::out("A", "1")});
  trade.validated("FC", trade.sale("8"), {Trade::out("A", "1")});
  ASSERT_TRUE(Trade::turnRound("8", "9"));
  // 3 at 10 euro: 135 lei, transport 13.5, customs 5.94, VAT 29.34.
  trade.validated("FI", trade.import("10", clock::today(), "3"),
                  {{"A", {{"CANT", "3"}, {"PRETVAL", "10"}, {"VALCHTR", "3"}, {"PVAMA", "4"}}}});
  trade.article("P", "20", false);
  trade.validated("FF", trade.purchase("11"), {Trade::bought("P", "2", "5", "20")});
  trade.validated("AE", trade.consumption("12"), {Trade::out("P", "1")});
  Trade::sourced("NR", {{"NUMNR", "13"}, {"CODFUR", QString::number(trade.supplier)}}, KindId::DeliveryNote,
                 "12");
  ASSERT_EQ(disagreementText(), "");

  // Notes from before their kind was stored are those of the next stamp.
  ExecutaSql("UPDATE kt_linii SET FELDOC = NULL WHERE FELDOC NOT IN ('FF', 'FI', 'NR', 'BS')");
  EXPECT_EQ(disagreementText(), "");

  const std::pair<const char*, const char*> damages[] = {
      {"DELETE FROM kt_linii WHERE FELDOC = 'FI' AND NDI IN (SELECT NDI FROM kt_linii WHERE DEBIT = 13.5)",
       "decat documentul: FI10"},
      {"UPDATE kt_linii SET DEBIT = 149 WHERE FELDOC = 'FI' AND CONT = '4426'", "echilibrata sau"},
      {"DELETE FROM kt_linii WHERE FELDOC = 'NR' AND CONT IN ('345', '354')", "decat documentul: NR13"},
      {"DELETE FROM kt_linii WHERE FELDOC = 'BS' AND CONT IN ('607', '371')", "decat documentul: BS1"},
      {"DELETE FROM kt_linii WHERE DOC = '7'", "decat documentul: BT7E"},
      {"UPDATE G_LDOCUM SET CANTRAMASA = NULL WHERE DOCID = 'AE6'", "lipseste din documente: AE6 A"},
      {"UPDATE kt_linii SET DEBIT = DEBIT * 2, CREDIT = CREDIT * 2 WHERE DOC = '2'", "decat documentul: BI2"},
      {"UPDATE kt_linii SET DEBIT = DEBIT * 2, CREDIT = CREDIT * 2 WHERE DOC = '3'", "decat documentul: BC3"},
      {"DELETE FROM kt_linii WHERE DOC = '9' AND CONT = '4427'", "decat documentul: FS9"},
      {"UPDATE G_LDOCUM SET CANT = 2 WHERE DOCID = 'BT7I'", "transferului nu se potrivesc: BT7E"},
      {"DELETE FROM kt_linii WHERE DOC = '4' AND CONT IN ('607', '371')", "decat documentul: FC4"},
      {"DELETE FROM kt_linii WHERE FELDOC = 'FF'", "decat documentul: FF1"},
      {"UPDATE G_I_E SET ID_I = 'FF9' WHERE TIP_E = 'FC'", "care nu exista: FC4 FF9 A"},
      {"UPDATE G_LDOCUM SET CANTRAMASA = -1 WHERE DOCID = 'BI2'", "decat a intrat: BI2 A"},
      {"UPDATE G_LDOCUM SET CANTRAMASA = 0.5 WHERE DOCID = 'AE6'", "intre document si ciorna: AE6 A"},
      {"INSERT INTO G_LAECLI (NUMAE, NRLINIE, CODART, CANT, CANTRAMAS) VALUES ('5', 1, 'A', 2, 3)",
       "peste cantitatea liniei: G_LAECLI 5 A"},
      {"INSERT INTO G_LCOMFU (NUMCOM, NRLINIE, CODART, CANT, CANTRLIV) VALUES ('5', 1, 'A', 2, -1)",
       "peste cantitatea liniei: G_LCOMFU 5 A"},
      {"UPDATE G_BONCON SET VALIDAT = 0", "fara document validat: BC3"},
      {"UPDATE G_BONINT SET NUMNR = '22'", "fara inregistrare in documente: BI22"},
      {"DELETE FROM G_DOCUME WHERE ID = 'BC3'", "care nu exista: BC3 FF1 A"}};
  for (const auto& [sql, report] : damages) {
    EXPECT_FALSE(disagreementText().contains(QLatin1String(report))) << report;
    ExecutaSql(sql);
    EXPECT_TRUE(disagreementText().contains(QLatin1String(report))) << sql << "\n"
                                                                    << disagreementText().toStdString();
  }
}

// What a document does not keep may change after its validation.
TEST(InvariantsTest, SumsThatCannotBeDerivedAreNotReported) {
  const Trade trade("MP");
  for (const char* code : {"A", "B"}) trade.article(code, "20");
  trade.validated("FF", trade.purchase("1"),
                  {Trade::bought("A", "9", "5", "20"), Trade::bought("B", "9", "5", "20")});
  trade.validated("FI", trade.import("2", clock::today()),
                  {{"A", {{"CANT", "1"}, {"PRETVAL", "2"}, {"PVAMA", "4"}}}});
  ExecutaSql("UPDATE G_ARTMAG SET COST = 5");
  // What goes out costs as much as what comes back: no note of the cost.
  trade.validated("FC", trade.sale("3"), {Trade::out("A", "2"), Trade::out("B", "-2")});
  trade.validated("BS", {{"BATVA1", "2"}}, {Trade::out("A", "1")});
  DocumentEditor voucher("BC");
  Trade::draft(voucher, trade.consumption("4"), {Trade::out("A", "1")});
  ExecutaSql("UPDATE G_ARTMAG SET COST = 0");
  ASSERT_TRUE(Trade::validate(voucher));
  EXPECT_EQ(disagreementText(), "");
  ExecutaSql("UPDATE G_ARTMAG SET COST = 7, PRETVFT = 9, PRETVTTI = 11");
  ExecutaSql("UPDATE G_FAMART SET CONTSTOCMARFA = '301', CONTCHELT = '601', CONTVEN = '702'");
  ExecutaSql("UPDATE kt_par SET CONTFURNIZORI = '404', CONTCLIENTI = '461', CONTVAMA = '447'");
  EXPECT_EQ(disagreementText(), "");
}

// Goods that are missing and goods that were found on one note: its first line decides its direction, each
// line its stock and its lots.
TEST(InvariantsTest, AReceiptNoteOfBothSignsKeepsStockAndLots) {
  for (const char* method : {"FIFO", "MP"}) {
    const Trade trade(method);
    for (const char* code : {"A", "B"}) trade.article(code, "20");
    trade.validated("FF", trade.purchase("1"),
                    {Trade::bought("A", "10", "5", "20"), Trade::bought("B", "10", "4", "20")});
    ExecutaSql("UPDATE kt_par SET CONTNIR = '408', JURNIR = 'NR'");
    int number = 0;
    for (const char* missing : {"A", "B"}) {
      const QString text = QString::number(++number);
      DocumentEditor editor("NR");
      Trade::draft(editor, {{"NUMNR", text}, {"CODFUR", QString::number(trade.supplier)}},
                   {{"A", {{"CANT", "2"}, {"PRETFT", "5"}}}, {"B", {{"CANT", "3"}, {"PRETFT", "4"}}}});
      ExecutaSql("UPDATE G_LNRFUR SET CANT = -CANT, VALOAREFT = -VALOAREFT WHERE NUMNR = ? AND CODART = ?",
                 {text, missing});
      editor.open(text);
      ASSERT_TRUE(Trade::validate(editor));
      EXPECT_EQ(Trade::figure("A", "STOC"), number == 1 ? 8 : 12);
      EXPECT_EQ(Trade::figure("B", "STOC"), number == 1 ? 13 : 7);
      EXPECT_EQ(disagreementText(), "") << method;
      takeBack({KindId::ReceiptNote, text});
      EXPECT_EQ(disagreementText(), "") << method;
    }
  }
}

}  // namespace
}  // namespace velmar
