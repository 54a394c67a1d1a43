// The supplied layouts, with the data of their documents and journals.
#include "documents/Listing.h"
#include "reports/Formula.h"
#include "reports/StockReports.h"
#include "reports/windows/ReportJob.h"
#include "shell/ApplicationFolder.h"
#include "TestCompany.h"

namespace velmar {
namespace {

void addTo(QSet<QString>& names, const ReportValues& values) {
  for (const clsFieldVarDescription& value : values) names.insert(value.name.toUpper());
}

// The formulas of a layout, each once.
QStringList formulasOf(const layout::Layout& all) {
  QStringList formulas;
  for (const layout::Object& object : all.objects) {
    formulas.append(object.condition);
    if (const auto* text = std::get_if<layout::Text>(&object.content)) formulas.append(text->formula);
  }
  formulas.append(all.table()->extendsIf);
  for (const layout::Sum& sum : all.table()->sums) formulas.append(sum.formula);
  for (const layout::TableRow& row : all.table()->rows) {
    formulas.append(row.condition);
    for (const layout::Cell& cell : row.cells) formulas.append(cell.formula);
  }
  formulas.removeDuplicates();
  return formulas;
}

class Layouts : public ::testing::Test {
 protected:
  Layouts() {
    prepareApplicationFolder(folder_.path());
    ExecutaSql("UPDATE kt_info SET DENUMIRE = 'ATELIERUL'");
    ExecutaSql("INSERT INTO kt_ter (COD, TIP, NUME, CODFISCAL) VALUES (5, 'C', 'ALFA', 'RO5')");
    ExecutaSql("INSERT INTO kt_cote (COD, CONT, PROCENT) VALUES (77, '4427', 21)");
    ExecutaSql("INSERT INTO G_FACCLI (NUMFAC, CODCLI, BATVA1, DATAFAC) VALUES ('1', 5, 77, '2026-03-15')");
    ExecutaSql("INSERT INTO G_BONCASA (NUMFAC, CODCLI, BATVA1, DATAFAC) VALUES ('1', 5, 77, '2026-03-15')");
    ExecutaSql("INSERT INTO G_BONCON (NUMAE, CODCLI, BATVA1, DATAAE) VALUES ('1', 5, 19, '2026-03-15')");
    ExecutaSql("INSERT INTO G_BONINT (NUMNR, CODFUR, BATVA, DATANR) VALUES ('1', 5, 19, '2026-03-15')");
    ExecutaSql("INSERT INTO G_FACFUR (NUMFAC, CODFUR, BATVA1, DATAFAC) VALUES ('1', 5, 77, '2026-03-15')");
    ExecutaSql("INSERT INTO G_AECLI (NUMAE, CODCLI, BATVA1, DATAAE) VALUES ('1', 5, 19, '2026-03-15')");
    ExecutaSql("INSERT INTO G_PROFOR (NUMPF, CODCLI, BATVA, DATAPF) VALUES ('1', 5, 19, '2026-03-15')");
    ExecutaSql("INSERT INTO G_COMCLI (NUMCOM, CODCLI, BATVA1, DATACOM) VALUES ('1', 5, 19, '2026-03-15')");
    ExecutaSql("INSERT INTO G_COMFUR (NUMCOM, CODFUR, BATVA1, DATACOM) VALUES ('1', 5, 19, '2026-03-15')");
    ExecutaSql("INSERT INTO G_FACIMP (NUMFAC, CODFUR, BATVA, DATAFAC) VALUES ('1', 5, 77, '2026-03-15')");
    ExecutaSql("INSERT INTO G_NRFURN (NUMNR, CODFUR, BATVA, DATANR) VALUES ('1', 5, 19, '2026-03-15')");
    ExecutaSql("INSERT INTO G_TRANSFER (NUMAE, DATAAE, DESTMAGAZIE) VALUES ('1', '2026-03-15', 1)");
    ExecutaSql(
        "INSERT INTO G_DOCUME (ID, TIP, CODTERT, DATADOC, TOTALFT, TOTALTVA) VALUES "
        "('FC1', 'FC', 5, '2026-03-15', 100, 21), ('FF1', 'FF', 5, '2026-03-15', 10, 2.1)");
  }

  static ReportData listed(const QString& prefix) {
    const ListingKind& kind = listingKind(prefix);
    ListingOptions options;
    if (prefix == "FS")
      options.own = {{"NumarFactura", "1"}, {"NumarStorno", "2"}, {"DataStorno", QDate(2026, 3, 16)}};
    return listingData(kind, readListed({&kind, "1"}), options);
  }

  QString path(const QString& project) const {
    return folder_.filePath(QStringLiteral("lst/%1.lst").arg(project));
  }

  // The formulas of a layout must compile, and use only names of the data that it gets.
  void expectSound(const QString& project, const ReportData& data) const {
    const layout::Layout all = layout::load(path(project));
    QSet<QString> known{"NPAGINA", "NPAGINI", "NLINIE"};
    addTo(known, definedVariables(data));
    addTo(known, definedFields(data));
    for (const layout::Sum& sum : all.table()->sums) known.insert(sum.name.toUpper());
    for (const QString& formula : formulasOf(all)) {
      EXPECT_FALSE(layout::faultOf(formula)) << qUtf8Printable(project + ": " + formula);
      for (const QString& name : layout::namesIn(formula))
        EXPECT_TRUE(known.contains(name.toUpper())) << qUtf8Printable(project + ": " + name);
    }
  }

  TestCompany company_;
  QTemporaryDir folder_;
};

TEST_F(Layouts, UseOnlyNamesOfTheirData) {
  expectSound("FacturiCLIFull", listed("FC"));
  expectSound("FacturiCLI", listed("FC"));
  expectSound("BonCasa", listed("BS"));
  expectSound("BonConsumFull", listed("BC"));
  expectSound("BonIntrare", listed("BI"));
  expectSound("NIR_FF", listed("FF"));
  for (const auto& [project, prefix] : {std::pair{"AEFull", "AE"},
                                        {"AE", "AE"},
                                        {"ProformaFull", "PR"},
                                        {"ComenziCLIFull", "CC"},
                                        {"ComenziFurFull", "CF"},
                                        {"NIR", "NR"},
                                        {"FacturiImportFull", "FI"},
                                        {"BonTransfer", "BT"},
                                        {"FacturiCLIFull_STORNO", "FS"},
                                        {"FacturiCLI_STORNO", "FS"}})
    expectSound(project, listed(prefix));
  ReportChoice year;
  year.dates = {{"DTPickerdela", QDate(2026, 1, 1)}, {"DTPickerla", QDate(2026, 12, 31)}};
  expectSound("Jvtva", reportData(stockReport("frmRapJVTVA"), year));
  expectSound("Jctva", reportData(stockReport("frmRapJCTVA"), year));
}

TEST_F(Layouts, ACashSaleEndsWithItsTotal) {
  ExecutaSql(
      "INSERT INTO G_LBONCASA (NUMFAC, NRLINIE, CODART, DENUMIRE, UM, CANT, PRETFT, ValoareFTCuDiscount, "
      "VALOAREFT, VALOARETVA, VALOARETTI) VALUES ('1', 1, 'A', 'Cana', 'Buc', 3, 10, 9, 27, 5.67, 32.67), "
      "('1', 2, 'B', 'Farfurie', 'Buc', 1, 1000, 1000, 1000, 210, 1210)");
  const ReportJob job(path("BonCasa"), layout::load(path("BonCasa")), listed("BS"));
  EXPECT_EQ(job.pageCount(), 1);
  const QString text = job.pageText(0).simplified();
  for (const char* part : {"BON DE CASA", "Nr. 1 din 15.03.2026", "Client: ALFA, C.I.F. RO5", "Cota TVA 21%",
                           "1 Cana Buc 3,000 9,00 32,67", "Valoare fara TVA 1.027,00", "TVA 215,67",
                           "TOTAL DE PLATA (lei) 1.242,67"})
    EXPECT_TRUE(text.contains(part)) << part << " in " << qUtf8Printable(text);
  session().NrZec = 4;
  EXPECT_TRUE(job.pageText(0).contains("3,000 9,0000 32,67"));
}

}  // namespace
}  // namespace velmar
