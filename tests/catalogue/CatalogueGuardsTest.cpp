// Consistency of catalogue and documents: concurrent changes of records, codes that do not exist, records
// that a draft refers to.
#include <gtest/gtest.h>

#include "../documents/Trade.h"
#include "config/Users.h"
#include "store/Records.h"
#include "util/Errors.h"
#include "util/PlainText.h"

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

TEST(CatalogueGuardsTest, NamesWithHiddenCharactersAreRefused) {
  const Trade trade("MP");
  trade.article("A", "10");
  const auto of = [](const QString& column, const QString& character) {
    return QStringLiteral(
               "%1: Textul contine un caracter de control (%2), care nu se vede ! Scrieti-l din nou fara el.")
        .arg(column, character);
  };
  const Row shown = *articleByCode("A");
  Row named = shown;
  named.set("DENART", QStringLiteral("Scaun \u202e015"));
  EXPECT_EQ(refusal([&] { saveArticle(named, shown); }), of("DENART", "U+202E"));
  EXPECT_EQ(refusal([] { addPartner(newPartner("ALFA\r\nSRL", "C")); }), of("NUME", "U+000D"));
  EXPECT_EQ(refusal([] { addFamily(newFamily(QStringLiteral("M\u2067"), "371", "607", "707", "345")); }),
            of("DENUMIRE", "U+2067"));
  Row user = rowOf("NUME PAROLA TIP");
  for (const char* column : {"NUME", "PAROLA"}) user.set(column, "ana");
  user.set("TIP", "1");
  addUser(user);
  EXPECT_EQ(refusal([] { changeUser("ana", "NUME", QStringLiteral("an\u200ea")); }), of("NUME", "U+200E"));
  DocumentEditor editor("FC");
  TypedTexts header = trade.sale("12");
  header.insert("OBS", QStringLiteral("Ion\u0007Pop"));
  EXPECT_EQ(refusal([&] { Trade::draft(editor, header, {}); }), of("OBS", "U+0007"));
  // What is already stored does not block the rest of its record, and is shown.
  const QString stored = QStringLiteral("S\r\n\u202e");
  ExecutaSql("UPDATE G_ARTMAG SET DENART = ? WHERE CODART = 'A'", {stored});
  const Row old = *articleByCode("A");
  Row priced = old;
  priced.set("UM", "KG");
  saveArticle(priced, old);
  EXPECT_EQ(articleByCode("A")->text("DENART"), stored);
  EXPECT_EQ(visibleText(stored), "S[U+000D][U+000A][U+202E]");
}

}  // namespace
}  // namespace velmar
