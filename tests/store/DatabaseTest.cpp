// Transactions, the write lock between workstations, and invalid files.
#include "store/Database.h"

#include <QFile>
#include <QRegularExpression>

#include "reports/Layout.h"
#include "store/BackgroundRead.h"
#include "store/Schema.h"
#include "TestCompany.h"
#include "util/Errors.h"

namespace velmar {
namespace {

qint64 currencies() { return OpenRs("SELECT COUNT(*) AS N FROM kt_val").first().integer("N"); }

void addCurrency(const QString& code) {
  ExecutaSql("INSERT INTO kt_val (COD, TITLU) VALUES (?, ?)", {code, "proba"});
}

QString errorOf(const std::function<void()>& work) {
  try {
    work();
  } catch (const Error& error) {
    return error.text();
  }
  return {};
}

TEST(DatabaseTest, TransactionsAreAtomicAndNest) {
  const TestCompany company;
  const qint64 before = currencies();
  {
    Transaction outer(database());
    addCurrency("AAA");
    {
      Transaction inner(database());
      addCurrency("BBB");
    }
    {
      Transaction failing(database());
      EXPECT_THROW(addCurrency("aaa"), StoreError);  // the key is case insensitive
    }
    addCurrency("CCC");
    outer.commit();
  }
  EXPECT_EQ(currencies(), before + 2);
  {
    Transaction forgotten(database());
    ExecutaSql("DELETE FROM kt_val");
  }
  EXPECT_EQ(currencies(), before + 2);
  EXPECT_FALSE(database().inTransaction());
}

// The errors of engines, files and the XML reader, as shown to the user.
TEST(DatabaseTest, ReasonsAreInRomanian) {
  const TestCompany company;
  const QRegularExpression english(
      R"(\b(the|not|no|such|does|exists?|near|error|failed|tag|expected|file|directory|denied|constraint|of|at|is)\b)",
      QRegularExpression::CaseInsensitiveOption);
  addCurrency("AAA");
  QStringList texts;
  for (const char* sql : {"SELECT X FROM tabela_lipsa", "SELECT coloana_lipsa FROM kt_val", "SELEC X",
                          "SELECT functie_lipsa(1)", "INSERT INTO kt_val (COD) VALUES ('aaa')",
                          "INSERT INTO kt_val (COD) VALUES (NULL)", "DROP TABLE lipsa"})
    texts.append(errorOf([sql] { ExecutaSql(sql); }));
  for (const char* xml :
       {"", "x", "<report>", "<report></raport>", "<report><page width='1' width='2'/></report>",
        "<report>&lipsa;</report>", "<report/>x", "<report a=1/>", "<report>\xff</report>"})
    texts.append(errorOf([xml] { layout::read(xml); }));
  texts.append(errorOf([] { layout::load("/lipsa/x.lst"); }));
  texts.append(errorOf([] { layout::save("/lipsa/x.lst", {}); }));
  for (const QString& text : texts)
    EXPECT_TRUE(!text.isEmpty() && !text.contains(english)) << qUtf8Printable(text);
}

TEST(DatabaseTest, TextComparesCaseInsensitivelyAndBoundValuesAreNeverExecuted) {
  const TestCompany company;
  const QString odd = QStringLiteral("O'B\"%_!--;");
  ExecutaSql("INSERT INTO kt_oper (COD, DENUMIRE) VALUES (?, ?)", {"X1", odd});
  EXPECT_EQ(
      OpenRs("SELECT DENUMIRE FROM kt_oper WHERE DENUMIRE = ?", {odd.toLower()}).first().text("denumire"),
      odd);
  EXPECT_EQ(OpenRs("SELECT COD FROM kt_oper WHERE DENUMIRE LIKE ? ESCAPE '!'", {"o'b\"!%!_!!%"}).size(), 1);
  EXPECT_THROW(OpenRs("SELECT LIPSA FROM kt_oper"), StoreError);
  EXPECT_THROW(OpenRs("SELECT COD FROM kt_oper").first().text("LIPSA"), StoreError);
}

TEST(DatabaseTest, RoundingInStatementsIsTheProgramsOwn) {
  const TestCompany company;
  quint64 state = 7;
  std::vector<Values> rows;
  for (int i = 0; i < 100000; ++i) {
    state = state * 6364136223846793005ULL + 1442695040888963407ULL;
    rows.push_back({"r", Value::raw(static_cast<double>(static_cast<qint64>(state >> 20)) / 1e9 - 8000)});
  }
  database().insertRows("tmpArt", {"ARTID", "STOC"}, rows);
  int different = 0;
  for (const Row& row :
       OpenRs("SELECT STOC, ROUND_EVEN(STOC, 2) AS R2, ROUND_EVEN(STOC, 0) AS R0 FROM tmpArt"))
    different += Round(row.decimal("STOC"), 2) != row.decimal("R2") ||
                 Round(row.decimal("STOC"), 0) != row.decimal("R0");
  EXPECT_EQ(different, 0);
  EXPECT_EQ(OpenRs("SELECT ROUND_EVEN(2.675, 2) AS A").first().decimal("A"), 268_dec / 100);
  EXPECT_EQ(OpenRs("SELECT ROUND_EVEN(0.125, 2) AS A").first().decimal("A"), 12_dec / 100);
}

TEST(DatabaseTest, AUserWhoWaitsForTheLockIsAskedAndMayCancel) {
  const TestCompany company;
  MessageRecorder messages;
  const auto other = Database::open(company.path());
  Transaction held(*other);
  other->execute("UPDATE kt_info SET DENUMIRE = 'x'");
  EXPECT_TRUE(OpenRs("SELECT DENUMIRE FROM kt_info").first().isNull("DENUMIRE"));  // readers never wait
  messages.answer(kResultCancel);
  EXPECT_THROW(addCurrency("AAA"), Cancelled);
  EXPECT_EQ(messages.take().size(), 1);
  EXPECT_FALSE(database().inTransaction());
  held.rollback();
  addCurrency("AAA");
}

// The work has a connection of its own with one state of the company; a statement without end can be stopped.
TEST(DatabaseTest, ReadsInAThreadSeeOneStateAndCanBeStopped) {
  const TestCompany company;
  const qint64 before = currencies();
  const Database* own = &database();
  std::atomic<bool> isRead = false, isAdded = false;
  qint64 seen[2] = {};
  readInThread(
      [&] {
        seen[0] = currencies();
        isRead = true;
        while (!isAdded) QThread::msleep(1);
        seen[1] = currencies();
        EXPECT_NE(&database(), own);
      },
      [&] {
        if (!isRead || isAdded) return;
        addCurrency("AAA");
        isAdded = true;
      });
  EXPECT_EQ(seen[0], before);
  EXPECT_EQ(seen[1], before);
  EXPECT_EQ(currencies(), before + 1);
  EXPECT_THROW(readInThread([] { throw RuleError("gol"); }, [] {}), RuleError);
  int waited = 0;
  EXPECT_THROW(readInThread(
                   [] {
                     OpenRs(
                         "WITH RECURSIVE N(A) AS (SELECT 1 UNION ALL SELECT A + 1 FROM N WHERE A < "
                         "4000000000) SELECT COUNT(*) AS N FROM N");
                   },
                   [&waited] {
                     if (++waited == 3) throw Cancelled();
                   }),
               Cancelled);
  EXPECT_EQ(waited, 3);
  EXPECT_EQ(&database(), own);
}

TEST(DatabaseInFileTest, AFullDiskUndoesTheWholeTransaction) {
  const TestCompany company;
  const qint64 before = currencies();
  const qint64 pages = OpenRs("PRAGMA page_count").first().at(0).toLongLong();
  OpenRs(QStringLiteral("PRAGMA max_page_count = %1").arg(pages + 2));
  const QString text = errorOf([] {
    Transaction transaction(database());
    addCurrency("AAA");
    for (int i = 0; i < 5000; ++i)
      ExecutaSql("INSERT INTO G_MISCARESTOC (DENUMIRE, STOC, CODART) VALUES ('umplutura', 1, 'un articol')");
    transaction.commit();
  });
  EXPECT_TRUE(text.startsWith("Discul este plin")) << text.toStdString();
  EXPECT_FALSE(database().inTransaction());
  EXPECT_EQ(currencies(), before);
  OpenRs(QStringLiteral("PRAGMA max_page_count = %1").arg(pages + 1000));
  addCurrency("AAA");
  EXPECT_EQ(currencies(), before + 1);
}

TEST(DatabaseInFileTest, FilesThatAreNotACompanyAreReportedWithTheReason) {
  const TestCompany company;
  const QTemporaryDir dir;
  const auto openText = [](const QString& path) { return errorOf([&path] { Database::open(path); }); };
  EXPECT_TRUE(openText(dir.filePath("lipsa.mdb")).startsWith("Lipseste baza de date"));
  EXPECT_FALSE(QFile::exists(dir.filePath("lipsa.mdb")));

  const auto write = [&dir](const QString& name, const QByteArray& content) {
    QFile file(dir.filePath(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
    return dir.filePath(name);
  };
  EXPECT_TRUE(openText(write("gol.mdb", {})).contains("nu este o baza de date Velmar"));
  EXPECT_TRUE(openText(write("text.mdb", "abc")).contains("nu este o baza de date Velmar"));

  QFile whole(company.path());
  ASSERT_TRUE(whole.open(QIODevice::ReadOnly));
  const QByteArray bytes = whole.readAll();
  QByteArray foreign = bytes;
  foreign.replace(68, 4, QByteArray(4, '\x01'));  // application_id
  EXPECT_TRUE(openText(write("strain.mdb", foreign)).contains("nu este o baza de date Velmar"));
  QByteArray newer = bytes;
  newer.replace(60, 4, QByteArray("\x00\x00\x00\x63", 4));  // user_version 99
  EXPECT_TRUE(openText(write("nou.mdb", newer)).contains("versiune mai noua"));
  const QString cut = openText(write("taiat.mdb", bytes.left(3000)));
  EXPECT_TRUE(cut.contains("deteriorat")) << cut.toStdString();
}

}  // namespace
}  // namespace velmar
