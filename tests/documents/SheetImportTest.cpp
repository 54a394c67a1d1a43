#include "documents/SheetImport.h"

#include <QTemporaryDir>

#include "TestCompany.h"
#include "util/SheetFile.h"
#include "Workstations.h"

namespace velmar {

namespace {

qint64 count(const QString& rows) { return OpenRs("SELECT COUNT(*) AS N FROM " + rows).first().integer("N"); }

// The first row is of a known article, which it renames; the others make new ones.
TEST(SheetImport, AKilledImportLeavesNothingHalfWritten) {
  constexpr int kRows = 400;
  const TestCompany company;
  const QTemporaryDir folder;
  const QString file = folder.filePath("a.xlsx");
  writeSheet(file, {{"COD"}, {"DENUMIRE"}, {"DENUMIRE2"}, {"PRET"}, {"CANTITATE"}, {"ADAOS"}}, kRows,
             [](int row, int column) -> QVariant {
               return column < 3 ? QStringLiteral("P%1").arg(row) : QStringLiteral("1");
             });
  ExecutaSql("INSERT INTO G_FAMART (COD, DENUMIRE) VALUES (77, 'Marfuri')");
  ExecutaSql("INSERT INTO G_FACFUR (NUMFAC, CODFUR, BATVA1, Magazie, VALIDAT) VALUES ('1', 1, 1, 1, 0)");
  ExecutaSql("INSERT INTO G_ARTMAG (CODART, ID, CODPRODFUR, DENART) VALUES ('X', 1, 'P0', 'Vechi')");
  LineImport choice;
  choice.number = QStringLiteral("1");
  choice.family = QStringLiteral("77");
  const auto written = [] {
    return std::array<qint64, 3>{count("G_LFACFU"), count("G_ARTMAG"),
                                 count("G_ARTMAG WHERE DENALTALIMBA = 'P0'")};
  };
  const auto reset = [] {
    ExecutaSql("DELETE FROM G_LFACFU");
    ExecutaSql("DELETE FROM G_ARTMAG WHERE CODART <> 'X'");
    ExecutaSql("UPDATE G_ARTMAG SET DENALTALIMBA = NULL");
  };
  expectAllOrNothing(
      company.path(), reset, [&] { EXPECT_TRUE(importLines(choice, file).isEmpty()); }, written);
  reset();
  EXPECT_TRUE(importLines(choice, file).isEmpty());
  EXPECT_EQ(written(), (std::array<qint64, 3>{kRows, kRows, 1}));
}

}  // namespace

}  // namespace velmar
