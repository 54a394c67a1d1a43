// Upgrades a company with an older or damaged structure to that of the template, in one transaction.
#include "store/clsCompareBD.h"

#include <QSet>

#include "store/Engine.h"
#include "store/Schema.h"
#include "TestCompany.h"
#include "util/Errors.h"
#include "util/FileNames.h"

namespace velmar {
namespace {

const QString kOtherTemplate = QStringLiteral("Tarvon99.mdb");

void change(const QStringList& statements, Database& on = database()) {
  Transaction transaction(on);
  for (const QString& sql : statements) on.engine().run(sql);
  transaction.commit();
}

// The engines' names of the described types.
QString typed(const QString& name, ColumnType type) {
  return name + u' ' + database().engine().declaredType(Column{name, type, 0, false});
}

void compare(const QString& templateName = kTemplateName) {
  clsCompareBD(TestCompany::path(), pathInFolder(TestCompany::folder(), templateName)).Compara();
}

// The complete structure, one line per element.
QSet<QString> structureOf(Database& of) {
  QSet<QString> lines;
  for (const QString& name : of.engine().tables()) {
    const TableShape table = of.engine().tableShape(name);
    for (const ColumnShape& column : table.columns)
      lines.insert(name + ": " + column.declaration().toLower());
    lines.insert(name + " key " + table.key.join(',').toLower() + table.suffix);
    for (const StoredStatement& index : of.engine().indexesOf(name))
      lines.insert(name + " index " + index.statement.toLower().remove('"'));
  }
  for (const StoredStatement& view : of.engine().views()) lines.insert("view " + view.name);
  for (const StoredStatement& trigger : of.engine().triggers()) lines.insert(trigger.statement);
  return lines;
}

QStringList missing() {
  const auto model = Database::open(pathInFolder(TestCompany::folder(), kTemplateName));
  return QStringList((structureOf(*model) - structureOf(database())).values());
}

class CompareTest : public testing::Test {
 protected:
  ~CompareTest() override { removeDatabaseFile(TestCompany::folder(), kOtherTemplate); }

  // A template with its own changes.
  static void makeTemplate(const QStringList& statements) {
    makeCompanyFile(TestCompany::folder(), kOtherTemplate);
    change(statements, *Database::open(pathInFolder(TestCompany::folder(), kOtherTemplate)));
  }

  TestCompany company_;
};

QVariant cell(const QString& sql) { return OpenRs(sql).first().at(0); }

TEST_F(CompareTest, ANewCompanyHasTheStructureAndKeepsItExactly) {
  const QSet<QString> before = structureOf(database());
  EXPECT_EQ(missing(), QStringList());
  EXPECT_GT(before.size(), 300);
  compare();
  EXPECT_EQ(structureOf(database()), before);
}

TEST_F(CompareTest, MissingStructureIsRestoredAndAdditionalStructureKept) {
  change({"DROP VIEW qryTertiLinii", "ALTER TABLE kt_info DROP COLUMN EMAIL2", "DROP TABLE G_I_E",
          "CREATE TABLE ale_mele (COD INTEGER, NOTA TEXT)", "ALTER TABLE kt_val ADD COLUMN NOTA TEXT",
          "CREATE VIEW q_mea AS SELECT COD, NOTA FROM kt_val"});
  database().engine().dropTrigger(database().engine().triggers().at(0).name);
  const QString lost = database().engine().indexesOf("kt_linii").at(0).name;
  change({"DROP INDEX " + lost});
  ExecutaSql("INSERT INTO ale_mele (COD, NOTA) VALUES (1, 'de mana')");
  ExecutaSql("UPDATE kt_val SET NOTA = 'dolar' WHERE COD = 'USD'");
  ExecutaSql("INSERT INTO kt_val (COD, TITLU, NOTA) VALUES ('QQQ', 'proba', 'a mea')");
  EXPECT_GE(missing().size(), 6);

  compare();
  EXPECT_EQ(missing(), QStringList());
  EXPECT_EQ(cell("SELECT NOTA FROM ale_mele"), "de mana");
  EXPECT_EQ(cell("SELECT NOTA FROM q_mea WHERE COD = 'qqq'"), "a mea");
  EXPECT_TRUE(OpenRs("SELECT EMAIL2 FROM kt_info").first().isNull("EMAIL2"));
  EXPECT_EQ(cell("SELECT COUNT(*) AS N FROM G_I_E").toInt(), 0);

  const QSet<QString> after = structureOf(database());
  compare();
  EXPECT_EQ(structureOf(database()), after) << "a second run finds nothing to do";
}

// Texts become numbers and numbers texts; a width that only the company has is replaced.
TEST_F(CompareTest, ColumnsOfAnotherTypeAreConverted) {
  change({"ALTER TABLE kt_info DROP COLUMN CAPSOC", "ALTER TABLE kt_info DROP COLUMN TELEFON1",
          "ALTER TABLE kt_info DROP COLUMN FAX1", "ALTER TABLE kt_info DROP COLUMN NrZec",
          "ALTER TABLE kt_info ADD COLUMN " + typed("CAPSOC", ColumnType::Text),
          "ALTER TABLE kt_info ADD COLUMN " + typed("TELEFON1", ColumnType::Real),
          "ALTER TABLE kt_info ADD COLUMN FAX1 VARCHAR(5)",
          "ALTER TABLE kt_info ADD COLUMN " + typed("NrZec", ColumnType::Text)});
  ExecutaSql("UPDATE kt_info SET CAPSOC = '1250.75', TELEFON1 = 19, FAX1 = 'abcde', NrZec = ''");
  EXPECT_EQ(missing().size(), 4);

  compare();
  EXPECT_EQ(missing(), QStringList());
  const Row info = OpenRs("SELECT * FROM kt_info").first();
  EXPECT_EQ(info.decimal("CAPSOC"), *Decimal::parse(u"1250.75"));
  EXPECT_EQ(info.text("TELEFON1"), "19");
  EXPECT_EQ(info.text("FAX1"), "abcde");
  EXPECT_TRUE(info.isNull("NrZec"));
  ExecutaSql("UPDATE kt_info SET FAX1 = '0257 000 111'");
}

TEST_F(CompareTest, WiderTextsReachTheCompanyAndNarrowerOnesDoNot) {
  change(
      {"ALTER TABLE kt_val ADD COLUMN INGUST VARCHAR(5)", "ALTER TABLE kt_val ADD COLUMN LARG VARCHAR(40)"});
  ExecutaSql("UPDATE kt_val SET INGUST = 'abcde', LARG = 'un text lung de tot' WHERE COD = 'USD'");
  makeTemplate({"ALTER TABLE kt_val ADD COLUMN INGUST VARCHAR(30)",
                "ALTER TABLE kt_val ADD COLUMN LARG VARCHAR(8)",
                "ALTER TABLE kt_val ADD COLUMN NOU VARCHAR(12)"});
  compare(kOtherTemplate);
  const TableShape table = database().engine().tableShape("kt_val");
  EXPECT_EQ(table.column("INGUST")->width, 30);
  EXPECT_EQ(table.column("LARG")->width, 40);
  EXPECT_EQ(table.column("NOU")->width, 12);
  const Row row = OpenRs("SELECT INGUST, LARG, NOU FROM kt_val WHERE COD = 'USD'").first();
  EXPECT_EQ(row.text("INGUST"), "abcde");
  EXPECT_EQ(row.text("LARG"), "un text lung de tot");
  EXPECT_TRUE(row.isNull("NOU"));
  EXPECT_EQ(table.key.size(), 1);
}

TEST_F(CompareTest, RequiredMarksAreTheTemplatesAndTheirDefaultFillsWhatWasNull) {
  change({"ALTER TABLE kt_par DROP COLUMN MODAUDIO", "ALTER TABLE kt_par ADD COLUMN MODAUDIO INTEGER",
          "ALTER TABLE kt_val ADD COLUMN OBLIGAT INTEGER NOT NULL DEFAULT 7"});
  makeTemplate({"ALTER TABLE kt_val ADD COLUMN OBLIGAT INTEGER"});
  compare(kOtherTemplate);
  EXPECT_EQ(missing(), QStringList());
  EXPECT_EQ(cell("SELECT MODAUDIO FROM kt_par").toInt(), 0);
  EXPECT_FALSE(OpenRs("SELECT MODAUDIO FROM kt_par").first().isNull("MODAUDIO"));
  EXPECT_EQ(cell("SELECT OBLIGAT FROM kt_val WHERE COD = 'USD'").toInt(), 7);
  ExecutaSql("UPDATE kt_val SET OBLIGAT = NULL");
}

TEST_F(CompareTest, KeysAreRestoredAndKeptWithANewType) {
  // The currencies without their key, the parameters without their number, the chart of accounts with a key
  // of another type.
  change({"CREATE TABLE copie AS SELECT * FROM kt_val", "DROP TABLE kt_val",
          "ALTER TABLE copie RENAME TO kt_val",
          "CREATE TABLE copie AS SELECT DATAIN, DATASN, TVAVanzare FROM kt_par", "DROP TABLE kt_par",
          "ALTER TABLE copie RENAME TO kt_par", "DROP TABLE kt_pc_2003",
          "CREATE TABLE kt_pc_2003 (CONT " +
              QString(database().engine().declaredType({"CONT", ColumnType::Real, 0, false})) +
              " NOT NULL, TITLU TEXT, PRIMARY KEY (CONT))",
          "INSERT INTO kt_pc_2003 (CONT, TITLU) VALUES (121, 'Profit si pierdere')"});
  const int currencies = cell("SELECT COUNT(*) AS N FROM kt_val").toInt();
  compare();
  EXPECT_EQ(missing(), QStringList());
  EXPECT_EQ(cell("SELECT COUNT(*) AS N FROM kt_val").toInt(), currencies);
  EXPECT_THROW(ExecutaSql("INSERT INTO kt_val (COD, TITLU) VALUES ('usd', 'dublu')"), StoreError);
  EXPECT_EQ(cell("SELECT ID FROM kt_par").toInt(), 1);
  EXPECT_EQ(OpenRs("SELECT DATAIN FROM kt_par").first().date("DATAIN"), QDate(2026, 1, 1));
  ExecutaSql("INSERT INTO kt_par (DATAIN) VALUES (NULL)");
  EXPECT_EQ(cell("SELECT MAX(ID) AS N FROM kt_par").toInt(), 2);
  EXPECT_EQ(cell("SELECT CONT FROM kt_pc_2003"), "121");
  EXPECT_THROW(ExecutaSql("INSERT INTO kt_pc_2003 (CONT) VALUES ('121')"), StoreError);
}

// Rows without a number get the next ones, and numbering continues after them.
TEST_F(CompareTest, AColumnThatLostItsNumberingIsNumberedOn) {
  change({"CREATE TABLE copie AS SELECT * FROM kt_par", "DROP TABLE kt_par",
          "ALTER TABLE copie RENAME TO kt_par", "UPDATE kt_par SET ID = 8",
          "INSERT INTO kt_par (TVAVanzare) VALUES ('4427')"});
  compare();
  EXPECT_EQ(missing(), QStringList());
  ExecutaSql("INSERT INTO kt_par (TVAVanzare) VALUES ('4428')");
  EXPECT_EQ(cell("SELECT ID FROM kt_par WHERE TVAVanzare = '4428'").toInt(), 10);
}

// Rules added manually are kept when a table is rebuilt.
TEST_F(CompareTest, ManuallyAddedRulesAreKept) {
  change({"DROP TABLE kt_cc",
          "CREATE TABLE kt_cc (COD " + typed("", ColumnType::Text) +
              " NOT NULL CHECK (COD <> ')'), TITLU INTEGER, UTILIZABIL VARCHAR(1) /* CHECK (0) */, NR "
              "INTEGER UNIQUE, "
              "CONSTRAINT pozitiv CHECK ((NR > 0) OR NR IS NULL), PRIMARY KEY (COD))",
          "CREATE UNIQUE INDEX ix_al_meu ON kt_cc (TITLU)"});
  ExecutaSql("INSERT INTO kt_cc (COD, TITLU, NR) VALUES ('A', 1, 5)");
  compare();
  EXPECT_EQ(missing(), QStringList());
  EXPECT_EQ(cell("SELECT TITLU FROM kt_cc"), "1");
  for (const char* values : {"(')', 2, 6)", "('B', 1, 7)", "('C', 3, 5)", "('D', 4, -1)"})
    EXPECT_THROW(ExecutaSql(QStringLiteral("INSERT INTO kt_cc (COD, TITLU, NR) VALUES ") + values),
                 StoreError)
        << values;
  ExecutaSql("INSERT INTO kt_cc (COD, TITLU, NR) VALUES ('E', 5, 8)");
}

TEST_F(CompareTest, ATableWithAComputedColumnIsNotRebuiltInFile) {
  change({"DROP TABLE kt_cc",
          "CREATE TABLE kt_cc (COD TEXT NOT NULL PRIMARY KEY, TITLU INTEGER, UTILIZABIL TEXT, DUBLU INTEGER "
          "GENERATED "
          "ALWAYS AS (TITLU * 2) STORED)"});
  ExecutaSql("INSERT INTO kt_cc (COD, TITLU) VALUES ('A', 4)");
  EXPECT_THROW(compare(), StoreError);
  EXPECT_EQ(cell("SELECT DUBLU FROM kt_cc").toInt(), 8);
}

// Another user loses at most the current transaction, and not the next one.
TEST_F(CompareTest, AnotherUserContinuesAfterTheUpgrade) {
  change({"ALTER TABLE kt_info DROP COLUMN EMAIL2"});
  const auto otherUser = Database::open(TestCompany::path());
  const auto emails = [&otherUser] {
    Transaction transaction(*otherUser);
    return otherUser->query("SELECT * FROM kt_info").first().has("EMAIL2");
  };
  EXPECT_FALSE(emails());
  compare();
  try {
    EXPECT_TRUE(emails());
  } catch (const StoreError&) {
    EXPECT_TRUE(emails());
  }
}

TEST_F(CompareTest, AFailureMidwayChangesNothing) {
  // There are changes before and after the value that cannot be converted.
  change({"DROP VIEW qryTertiLinii", "ALTER TABLE kt_info DROP COLUMN EMAIL2", "DROP TABLE G_I_E",
          "ALTER TABLE kt_info DROP COLUMN CAPSOC",
          "ALTER TABLE kt_info ADD COLUMN " + typed("CAPSOC", ColumnType::Text),
          "ALTER TABLE kt_par DROP COLUMN DATASC",
          "ALTER TABLE kt_par ADD COLUMN " + typed("DATASC", ColumnType::Text)});
  const auto fails = [] {
    const QSet<QString> before = structureOf(database());
    EXPECT_THROW(compare(), StoreError);
    EXPECT_EQ(structureOf(database()), before);
  };
  ExecutaSql("UPDATE kt_info SET CAPSOC = 'multi bani'");
  fails();
  EXPECT_EQ(cell("SELECT CAPSOC FROM kt_info"), "multi bani");
  ExecutaSql("UPDATE kt_info SET CAPSOC = '200'");
  ExecutaSql("UPDATE kt_par SET DATASC = 'maine'");
  fails();
  ExecutaSql("UPDATE kt_par SET DATASC = '2026-12-31'");

  // Two rows with the same key.
  change({"CREATE TABLE copie AS SELECT * FROM kt_val", "DROP TABLE kt_val",
          "ALTER TABLE copie RENAME TO kt_val"});
  ExecutaSql("INSERT INTO kt_val (COD, TITLU) VALUES ('usd', 'dublu')");
  fails();
  ExecutaSql("DELETE FROM kt_val WHERE TITLU = 'dublu'");
  compare();
  EXPECT_EQ(missing(), QStringList());
  EXPECT_EQ(cell("SELECT CAPSOC FROM kt_info").toInt(), 200);
  EXPECT_EQ(OpenRs("SELECT DATASC FROM kt_par").first().date("DATASC"), QDate(2026, 12, 31));
}

}  // namespace
}  // namespace velmar
