// Long work on the catalogue that the user cancels in the middle.
#include <gtest/gtest.h>
#include <QDir>
#include <QTemporaryDir>

#include "catalogue/ArticleExport.h"
#include "catalogue/Partners.h"
#include "TestCompany.h"
#include "util/Errors.h"

namespace velmar {
namespace {

const QString kTo = "WITH RECURSIVE S(N) AS (SELECT 1 UNION ALL SELECT N + 1 FROM S WHERE N < %1) ";

// Cancels when that part of the work is done.
Progress stopAt(double part) {
  return [part](int done, int of) {
    EXPECT_LE(done, of);
    if (done >= part * of) throw Cancelled();
  };
}

TEST(LongWorkTest, AnExportThatIsCancelledKeepsTheOldFile) {
  const TestCompany company;
  ExecutaSql(kTo.arg(950) +
             "INSERT INTO G_ARTMAG (CODART, DENART, PRETVFT) SELECT 'C' || N, 'N' || (2000 - N), 1.5 "
             "FROM S");
  const QTemporaryDir folder;
  QFile file(folder.filePath("articole.xml"));
  EXPECT_THROW(exportCatalogue(file.fileName(), stopAt(0.5)), Cancelled);
  EXPECT_TRUE(QDir(folder.path()).isEmpty());
  exportCatalogue(file.fileName());
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  const QByteArray whole = file.readAll();
  EXPECT_EQ(whole.count("<row CODART="), 950);
  EXPECT_LT(whole.indexOf("CODART=\"C950\""), whole.indexOf("CODART=\"C1\"")) << "ordered by name";
  EXPECT_TRUE(whole.contains("PRETVFT=\"1.5\"") && !whole.contains("ROWKEY"));
  ExecutaSql("DELETE FROM G_ARTMAG WHERE CODART > 'C5'");
  EXPECT_THROW(exportCatalogue(file.fileName(), stopAt(0.5)), Cancelled);
  file.seek(0);
  EXPECT_EQ(file.readAll(), whole);
  EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files).size(), 1);
}

TEST(LongWorkTest, BalancesAreStoredAllOrNone) {
  const TestCompany company;
  ExecutaSql(kTo.arg(901) + "INSERT INTO kt_ter (COD, NUME, TIP, SOLD) SELECT N, 'P', 'C', 5 FROM S");
  for (const char* line : {"1, '4111', 100.1, 0", "2, '4111', 0, 0.25", "3, '401', 0, 7", "4, '5121', 9, 0"})
    ExecutaSql(kTo.arg(900) + "INSERT INTO kt_linii (NDI, TERT, NRLINIE, CONT, DEBIT, CREDIT) SELECT N, N, " +
               line + " FROM S");
  const auto holding = [](const Decimal& balance) {
    return OpenRs("SELECT COUNT(*) AS N FROM kt_ter WHERE SOLD = ?", {balance}).first().integer("N");
  };
  for (const double part : {0.3, 0.7}) {  // while reading, while writing
    EXPECT_THROW(storeBalances(stopAt(part)), Cancelled);
    EXPECT_EQ(holding(5), 901) << part;
  }
  storeBalances();
  EXPECT_EQ(holding(99.85_dec), 900) << "of the last account of class 4";
  EXPECT_EQ(holding(5), 1);
}

}  // namespace
}  // namespace velmar
