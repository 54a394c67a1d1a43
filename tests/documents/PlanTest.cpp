// The plan of a validation, made and read without a database.
#include "documents/Plan.h"

#include <gtest/gtest.h>

#include "documents/kinds/Kinds.h"
#include "store/Schema.h"

namespace velmar {
namespace {

TEST(PlanTest, AnInvoiceUnderFifoIsPlannedWithoutADatabase) {
  const DocumentKind& kind = documentKind(KindId::CustomerInvoice);
  Row header = companyTable(kind.headerTable).emptyRow();
  header.set("CODCLI", 7);
  header.set("DATAFAC", QDate(2026, 5, 4));
  header.set("Magazie", 1);
  header.set("NoteContabile", true);
  Row line = companyTable(kind.lineTable).emptyRow();
  line.set("CODART", "A");
  line.set("CANT", 3);
  line.set("ValoareFTCuDiscount", 20);
  line.set("VALOAREFT", 60);
  line.set("VALOARETVA", 114_dec / 10);
  line.set("NUMAE", "CC5");
  PlanInputs inputs;
  inputs.costMethod = "FIFO";
  inputs.series = "00";
  inputs.vatPercent = 19;
  inputs.vatAccount = "4427";
  inputs.parameters = companyTable("kt_par").emptyRow();
  for (const auto& [column, value] :
       {std::pair{"CONTCLIENTI", "411"}, {"JURFACCLI", "V"}, {"JURBONCONS", "C"}, {"CONTAVIZEXP_M", "357"}})
    inputs.parameters.set(column, value);
  ArticleFacts article{
      "A", {}, "M", true, {{"CONTVEN", "707"}, {"CONTCHELT", "607"}, {"CONTSTOCMARFA", "371"}}};
  article.figures.STOC = 9;
  inputs.articles.add(article);
  inputs.lots = OpenLots({{"A", "FF1", 1, 4, 2, 10, 10}, {"A", "FF2", 3, 5, 5, 12, 12}});
  inputs.sources = {{{KindId::CustomerOrder, "5"}, 1, "A", 0, 8, 8, {}, {}}};

  const Plan plan = planOf({&kind, "12", header, {line}}, inputs);
  ASSERT_EQ(plan.ledger.size(), 1U);
  EXPECT_EQ(plan.ledger[0].key.text(), "FC12");
  EXPECT_EQ(plan.ledger[0].cost, Decimal(32));  // 2 x 10 + 1 x 12
  EXPECT_EQ(plan.ledger[0].lines[0].priceWithVat, 238_dec / 10);
  ASSERT_EQ(plan.rests.size(), 2U);
  EXPECT_EQ(plan.rests[0].rest, Decimal(0));
  EXPECT_EQ(plan.rests[1].rest, Decimal(4));
  EXPECT_EQ(plan.draft.lines[0].decimal("COST"), Decimal(32));
  EXPECT_EQ(plan.articles[0].STOC, Decimal(6));
  EXPECT_EQ(plan.articles[1].COST, Decimal(12));  // of the lot that still has goods
  EXPECT_EQ(plan.sources[0].open, Decimal(5));
  QStringList rows;
  for (const Note& note : plan.notes)
    for (const NoteRow& row : note.rows)
      rows.append(note.journal + " " + row.account + " " + row.debit.toString() + " " +
                  row.credit.toString());
  EXPECT_EQ(rows, QStringList({"V 707 0 60", "V 4427 0 11.4", "V 411 71.4 0", "C 607 32 0", "C 371 0 32"}));
  EXPECT_EQ(plan.notes.back().stamp, "FC");

  // Goods of a delivery note have left with it: no stock, no lots, and the cost of the note.
  line.set("NUMAE", "AE6");
  line.set("COST", 33);
  inputs.sources = {{{KindId::DeliveryNote, "6"}, 1, "A", 0, 8, 3, {}, {}}};
  const Plan fromNote = planOf({&kind, "13", header, {line}}, inputs);
  EXPECT_EQ(fromNote.ledger[0].direction, "");
  EXPECT_EQ(fromNote.ledger[0].lines[0].reference, "AE6");
  EXPECT_TRUE(fromNote.rests.empty() && fromNote.articles.empty());
  EXPECT_EQ(fromNote.sources[0].open, Decimal(0));
  EXPECT_EQ(fromNote.notes[1].rows[1].account, "357");
  EXPECT_EQ(fromNote.notes[1].rows[1].credit, Decimal(33));
}

}  // namespace
}  // namespace velmar
