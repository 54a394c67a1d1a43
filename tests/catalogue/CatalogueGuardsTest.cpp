// Consistency of catalogue and documents: concurrent changes of records, codes that do not exist, records
// that a draft refers to.
#include <gtest/gtest.h>

#include "../documents/Trade.h"
#include "store/Records.h"
#include "util/Errors.h"

namespace velmar {
namespace {

// The text and field of the refusal, "" if there is none.
QString refusal(const std::function<void()>& work) {
  try {
    work();
  } catch (const RuleError& error) {
    return error.field() + ": " + error.text();
  }
  return {};
}

TEST(CatalogueGuardsTest, TheSecondSaveIsRefusedAndShowsTheNewPrice) {
  const Trade trade("MP");
  trade.article("A", "10");
  Row shown = *articleByCode("A");
  Row mine = shown;
  mine.set("PRETVFT", Decimal(12));
  mine.set("PRETVTTI", 1428_dec / 100);
  mine.set("DENART", "Nume nou");
  ExecutaSql("UPDATE G_ARTMAG SET PRETVFT = 15, PRETVTTI = 17.85 WHERE CODART = 'A'");
  try {
    saveArticle(mine, shown);
    ADD_FAILURE() << "overwrote another user's price";
  } catch (const ChangedMeanwhile& conflict) {
    EXPECT_TRUE(conflict.text().contains("Pret de vanzare fara TVA: 15"));
    for (const QString& column : conflict.columns()) {
      shown.set(column, Value::raw(conflict.stored().value(column)));
      mine.set(column, Value::raw(conflict.stored().value(column)));
    }
  }
  EXPECT_EQ(articleByCode("A")->text("DENART"), "Articolul A") << "the values of both users are not mixed";
  mine.set("PRETVFT", Decimal(12));
  saveArticle(mine, shown);
  EXPECT_EQ(Trade::figure("A", "PRETVFT"), Decimal(12));
  EXPECT_EQ(articleByCode("A")->text("DENART"), "Nume nou");
}

TEST(CatalogueGuardsTest, UnknownCodesAreRefusedAndUsedRecordsCannotBeDeleted) {
  const Trade trade("MP");
  trade.article("A", "10");
  const Row shown = *articleByCode("A");
  for (const auto& [column, text] : {std::pair{"FAMART", "Familia cu codul 999 nu exista !"},
                                     std::pair{"CODFURNIZO", "Tertul cu codul 999 nu exista !"}}) {
    Row other = shown;
    other.set(column, 999);
    EXPECT_EQ(refusal([&] { saveArticle(other, shown); }), QStringLiteral("%1: %2").arg(column, text));
  }
  DocumentEditor editor("FC");
  Trade::draft(editor, trade.sale("12"), {Trade::out("A", "1")});
  EXPECT_TRUE(refusal([] { removeArticle("A"); }).endsWith("Operatia nu se poate efectua (FC12)"));
  EXPECT_TRUE(refusal([&] { removePartner(trade.customer); }).endsWith(" (FC12)"));
  // A journal that does not exist is neither saved nor validated; one that is already stored is accepted.
  TypedTexts header = editor.headerTexts();
  header.insert("JURNAL", "XX");
  const QString unknown = "JURNAL: Jurnalul cu codul XX nu exista !";
  EXPECT_EQ(refusal([&] { editor.save(header); }), unknown);
  EXPECT_EQ(refusal([&] { editor.checkValidation(header); }), unknown);
  ExecutaSql("UPDATE G_FACCLI SET JURNAL = 'XX'");
  editor.open("12");
  EXPECT_EQ(refusal([&] { editor.save(editor.headerTexts()); }), "");
}

}  // namespace
}  // namespace velmar
