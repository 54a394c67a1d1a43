// The stock by warehouse follows every change of the ledger, also by statements of other programs.
#include "store/StockBalance.h"

#include "documents/Invariants.h"
#include "stock/Availability.h"
#include "store/clsCompareBD.h"
#include "store/CompanyCopy.h"
#include "store/Engine.h"
#include "TestCompany.h"

namespace velmar {
namespace {

void run(const QStringList& statements) {
  for (const QString& sql : statements) ExecutaSql(sql);
}

// The stocks that are not zero, exactly as they are stored.
QString stored(Database& company = database()) {
  QStringList all;
  for (const Row& row :
       company.query("SELECT ARTID, CODMAG, CANT FROM G_STOCMAG WHERE CANT <> 0 ORDER BY ARTID, CODMAG"))
    all.append(QStringLiteral("%1/%2 %3")
                   .arg(row.text("ARTID").toUpper(), row.text("CODMAG"), row.decimal("CANT").toString()));
  return all.join(", ");
}

// Where the stock differs from the ledger. These ledgers have no articles and no drafts.
QString differing() {
  QStringList places;
  for (const Disagreement& found : disagreements())
    if (found.what == "Stocul din magazie difera de documente") places.append(found.where);
  return places.join(", ");
}

QString line(const QString& document, const QString& rows) {
  QStringList values;
  int number = 0;
  for (const QString& row : rows.split(';'))
    values.append(QStringLiteral("('%1', %2, %3)").arg(document).arg(++number).arg(row));
  return "INSERT INTO G_LDOCUM (DOCID, LINIE, ARTID, CODMAG, CANT) VALUES " + values.join(", ");
}

QString header(const QString& document, const QString& kind) {
  return QStringLiteral("INSERT INTO G_DOCUME (ID, TIP, TIPIE) VALUES ('%1', '%2', %3)")
      .arg(document, document.left(2), kind);
}

TEST(StockBalanceTest, EveryChangeOfTheLedgerChangesTheStock) {
  const TestCompany company;
  const auto expect = [](const QStringList& statements, const QString& stocks) {
    run(statements);
    EXPECT_EQ(stored(), stocks) << qPrintable(statements.join('\n'));
    EXPECT_EQ(differing(), "") << qPrintable(statements.join('\n'));
  };
  expect({header("BI1", "'I'"), line("BI1", "'Ab', 1, 10.125; 'aB', 1, 2; 'C', 2, 1; 'aB', 2, 4")},
         "AB/1 12.125, AB/2 4, C/2 1");
  expect({line("FC1", "'AB', 1, 0.1; 'AB', 1, 0.2; 'C', 2, -1")}, "AB/1 12.125, AB/2 4, C/2 1");
  expect({header("FC1", "'E'")}, "AB/1 11.825, AB/2 4, C/2 2");
  expect({header("CC1", "NULL"), line("CC1", "'C', 2, 5; NULL, 2, 5; 'C', NULL, 5; 'C', 2, NULL")},
         "AB/1 11.825, AB/2 4, C/2 2");
  expect({"UPDATE G_DOCUME SET TIPIE = 's' WHERE ID = 'CC1'"}, "AB/1 11.825, AB/2 4, C/2 7");
  expect({"UPDATE G_LDOCUM SET CANT = 1 WHERE DOCID = 'CC1'"}, "AB/1 11.825, AB/2 4, C/2 4");
  expect({"UPDATE G_LDOCUM SET ARTID = 'ab' WHERE DOCID = 'CC1' AND LINIE = 1"},
         "AB/1 11.825, AB/2 5, C/2 3");
  expect({"UPDATE G_LDOCUM SET CODMAG = 3 WHERE DOCID = 'CC1' AND LINIE = 1"},
         "AB/1 11.825, AB/2 4, AB/3 1, C/2 3");
  expect({"UPDATE G_LDOCUM SET DOCID = 'FC1', LINIE = 9 WHERE DOCID = 'CC1' AND LINIE = 1"},
         "AB/1 11.825, AB/2 4, AB/3 -1, C/2 3");
  expect({"UPDATE G_DOCUME SET TIPIE = 'I' WHERE ID = 'FC1'"}, "AB/1 12.425, AB/2 4, AB/3 1, C/2 1");
  expect({"UPDATE G_DOCUME SET ID = 'FC2' WHERE ID = 'FC1'"}, "AB/1 12.125, AB/2 4, C/2 2");
  expect({"UPDATE G_DOCUME SET ID = 'fc1' WHERE ID = 'FC2'"}, "AB/1 12.425, AB/2 4, AB/3 1, C/2 1");
  // The header first, then the lines; and the other way round.
  expect({"DELETE FROM G_DOCUME WHERE ID = 'FC1'"}, "AB/1 12.125, AB/2 4, C/2 2");
  expect({"DELETE FROM G_LDOCUM WHERE DOCID = 'FC1'"}, "AB/1 12.125, AB/2 4, C/2 2");
  expect({"DELETE FROM G_LDOCUM WHERE DOCID = 'BI1' AND LINIE > 1"}, "AB/1 10.125, C/2 1");
  expect({"DELETE FROM G_DOCUME WHERE ID IN ('BI1', 'CC1')", "DELETE FROM G_LDOCUM"}, "");

  // Fractions do not add up to a residue, and a rolled back document leaves nothing.
  expect({header("BI2", "'I'"), line("BI2", QStringList(10, "'A', 1, 0.1").join(';'))}, "A/1 1");
  expect({header("FC3", "'E'"), line("FC3", QStringList(5, "'A', 1, 0.2").join(';'))}, "");
  {
    Transaction transaction(database());
    run({header("BI3", "'I'"), line("BI3", "'A', 1, 5")});
    EXPECT_EQ(warehouseStock({"a", "x"}, 1).of("A"), Decimal(5));
  }
  expect({}, "");
}

TEST(StockBalanceTest, AStockChangedByHandIsReported) {
  const TestCompany company;
  run({header("BI1", "'I'"), line("BI1", "'A', 1, 5; 'B', 2, 5"),
       "UPDATE G_STOCMAG SET CANT = 5.001 WHERE ARTID = 'A'", "DELETE FROM G_STOCMAG WHERE ARTID = 'B'",
       "INSERT INTO G_STOCMAG (ARTID, CODMAG, CANT) VALUES ('C', 3, 1)"});
  EXPECT_EQ(differing(), "A 1, B 2, C 3");
}

TEST(StockBalanceTest, AnOlderCompanyAndACopyGetTheStockOfTheirLedger) {
  const TestCompany company;
  const auto upgrade = [] {
    clsCompareBD(TestCompany::path(), pathInFolder(TestCompany::folder(), kTemplateName)).Compara();
  };
  for (const StoredStatement& trigger : database().engine().triggers())
    database().engine().dropTrigger(trigger.name);
  run({"DROP TABLE G_STOCMAG", header("BI1", "'I'"), header("FC1", "'E'"), header("CC1", "NULL"),
       line("BI1", "'A', 1, 5; 'a', 1, 5; 'B', 2, 0.1; 'B', 2, 0.2; NULL, 1, 1"), line("FC1", "'A', 1, 3"),
       line("CC1", "'A', 1, 3")});
  upgrade();
  EXPECT_EQ(stored(), "A/1 7, B/2 0.3");
  run({"DELETE FROM G_DOCUME WHERE ID = 'FC1'"});
  EXPECT_EQ(stored(), "A/1 10, B/2 0.3");

  // A ledger whose table is rebuilt, and a stock that another program has changed.
  run({"ALTER TABLE G_DOCUME DROP COLUMN OBS", "ALTER TABLE G_DOCUME ADD COLUMN OBS INTEGER",
       "ALTER TABLE G_LDOCUM DROP COLUMN PALET", "ALTER TABLE G_LDOCUM ADD COLUMN PALET INTEGER",
       "UPDATE G_STOCMAG SET CANT = 8"});
  upgrade();
  run({header("FC1", "'E'"), line("FC2", "'B', 2, 0.1"), header("FC2", "'E'")});
  EXPECT_EQ(stored(), "A/1 7, B/2 0.2");
  EXPECT_EQ(differing(), "");

  const QTemporaryDir elsewhere;
  const QString path = pathInFolder(elsewhere.path(), "Copie.mdb");
  copyDatabase(TestCompany::path(), path);
  const auto copy = Database::open(path);
  copy->execute("DELETE FROM G_LDOCUM WHERE DOCID = 'FC2'");
  EXPECT_EQ(stored(*copy), "A/1 7, B/2 0.3");
}

}  // namespace
}  // namespace velmar
