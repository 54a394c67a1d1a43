#include "documents/Listing.h"

#include "TestCompany.h"
#include "util/Errors.h"

namespace velmar {
namespace {

class Listing : public ::testing::Test {
 protected:
  Listing() {
    session().gCaleAplicatie = "/velmar";
    ExecutaSql("UPDATE kt_info SET DENUMIRE = 'ATELIERUL', CODFISCAL = 'RO777'");
    ExecutaSql("UPDATE kt_par SET SERIEFC = 'ATL'");
    ExecutaSql("INSERT INTO kt_ter (COD, TIP, NUME, CODFISCAL) VALUES (5, 'C', 'ALFA', 'RO5')");
    ExecutaSql("INSERT INTO kt_cote (COD, CONT, PROCENT) VALUES (77, '4427', 21)");
    ExecutaSql("INSERT INTO G_FACCLI (NUMFAC, CODCLI, BATVA1, DATAFAC) VALUES ('8', 5, 77, '2026-03-15')");
    for (const char* code : {"A", "B"}) ExecutaSql("INSERT INTO G_ARTMAG (CODART) VALUES (?)", {code});
    ExecutaSql(
        "INSERT INTO G_LFACCL (NUMFAC, NRLINIE, CODART, PRETFT, ValoareFTCuDiscount, VALOARETTI) VALUES "
        "('8', 2, 'B', 10, 9, 0.2), ('8', 1, 'A', 10, 8, 1000.1), ('9', 1, 'A', 1, 1, 7)");
  }

  ReportData data(const ListingOptions& options = {}) {
    const ListingKind& kind = listingKind("FC");
    return listingData(kind, readListed({&kind, "8"}), options);
  }

  static const clsFieldVarDescription* find(const ReportData& data, const QString& name) {
    for (const clsFieldVarDescription& variable : data.extraVariables)
      if (variable.name == name) return &variable;
    return nullptr;
  }

  TestCompany company_;
};

TEST_F(Listing, AnInvoicePassesItsStoredHeaderAndLines) {
  const ReportData all = data();
  ASSERT_EQ(all.variables.size(), 1);
  const Row& header = all.variables.first();
  EXPECT_EQ(header.decimal("BATVA1"), 21);  // the rate's percent
  EXPECT_EQ(header.value("DATAFAC"), QVariant(QDate(2026, 3, 15)));
  EXPECT_EQ(header.text("CODDEVIZA"), "ROL");
  EXPECT_EQ(header.value("CURS"), QVariant(0.0));
  ASSERT_EQ(all.fields->size(), 2);
  EXPECT_EQ(all.fields->row(0).text("CODART"), "A");
  EXPECT_EQ(all.fields->row(0).decimal("PRETFT"), 8);  // net of discount
}

TEST_F(Listing, VariablesHaveTheirTypes) {
  ListingOptions options;
  options.receipt = true;
  options.boxes = {{"txtNume", "Pop Ion"}, {"DataExp", QDate(2026, 3, 16)}};
  const ReportData all = data(options);
  EXPECT_EQ(find(all, "DENUMIRE")->value, "ATELIERUL");
  EXPECT_EQ(find(all, "KT_CODFISCAL")->value, "RO777");
  EXPECT_EQ(find(all, "CODFISCAL")->value, "RO5");
  EXPECT_EQ(find(all, "SECTOR1")->value, "");
  EXPECT_EQ(find(all, "SERIEFC")->value, "ATL");
  EXPECT_EQ(find(all, "txtNume")->value, "Pop Ion");
  EXPECT_EQ(find(all, "DataExp")->type, LLTip::Date);
  EXPECT_EQ(find(all, "bDeviza")->type, LLTip::Boolean);
  EXPECT_EQ(find(all, "bDeviza")->value, false);
  EXPECT_EQ(find(all, "ParamCHI")->value, true);
  EXPECT_EQ(find(all, "SumaDePlataCifre")->type, LLTip::Number);
  EXPECT_EQ(find(all, "SumaDePlataCifre")->value, 1000.3);
  EXPECT_EQ(find(all, "SumaDePlataLitere")->value, "omie lei si treizeci bani");
}

// In lei each line is rounded, ties to even: 100.1 x 4.55 = 455.455 -> 455.46, 19.01 x 4.55 = 86.4955
// -> 86.50; 10.1 x 4.55 = 45.955 -> 45.96, 1.9 x 4.55 = 8.645 -> 8.64. Together 596.56.
TEST_F(Listing, TheSumIsInTheCurrencyThatIsPrinted) {
  ExecutaSql("UPDATE G_FACCLI SET CODDeviza = 'USD', Curs = 4.55 WHERE NUMFAC = '8'");
  ExecutaSql(
      "UPDATE G_LFACCL SET VALOAREFT = 100.1, VALOARETVA = 19.01, VALOARETTI = 119.11 WHERE NRLINIE = 1");
  ExecutaSql("UPDATE G_LFACCL SET VALOAREFT = 10.1, VALOARETVA = 1.9, VALOARETTI = 12 WHERE NRLINIE = 2");
  const auto expectSum = [this](bool foreign, const QString& currency, double sum, const QString& words) {
    ListingOptions options;
    options.foreign = foreign;
    const ReportData all = data(options);
    EXPECT_EQ(find(all, "MonedaTiparita")->value, currency);
    EXPECT_EQ(find(all, "SumaDePlataCifre")->value, sum);
    EXPECT_EQ(find(all, "SumaDePlataLitere")->value, words);
  };
  expectSum(true, "USD", 131.11, "osutatreizecisiun USD si unsprezece US centi");
  expectSum(false, "ROL", 596.56, "cincisutenouazecisisase lei si cincizecisisase bani");
  ExecutaSql("UPDATE G_FACCLI SET Curs = 0 WHERE NUMFAC = '8'");
  expectSum(false, "USD", 131.11, "osutatreizecisiun USD si unsprezece US centi");
}

TEST_F(Listing, AMissingPartnerLeavesItsVariablesUndefined) {
  ExecutaSql("DELETE FROM kt_ter");
  const ReportData all = data();
  for (const char* name : {"NUME", "CODFISCAL", "AD", "CT"}) EXPECT_EQ(find(all, name), nullptr) << name;
  EXPECT_NE(find(all, "KT_CODFISCAL"), nullptr);
  EXPECT_EQ(missingPartnerTexts(listingKind("FC")),
            QStringList({"Client inexistent in baza de date", "Trebuie introdus in baza de date"}));
  EXPECT_EQ(missingPartnerTexts(listingKind("BI")).first(), "Furnizor inexistent in baza de date");
}

// A converted company prints a document from before the denomination in the lei of its time.
TEST_F(Listing, AReprintIsInTheMoneyOfItsDate) {
  ExecutaSql("INSERT INTO G_DOCUME (ID, TIP, DATADOC, CODDEV) VALUES ('FC8', 'FC', '2005-06-30', 'LEI')");
  const auto printed = [] {
    const Printout printout = reprintOf("FC8");
    const ListedDocument document = readListed(printout);
    ListingOptions options;
    options.foreign = printout.foreign;
    return listingData(*printout.form, document, options);
  };
  const ReportData old = printed();
  EXPECT_EQ(old.fields->row(0).decimal("PRETFT"), 80000);
  EXPECT_EQ(find(old, "SumaDePlataCifre")->value, 10003000.0);
  EXPECT_EQ(find(old, "MonedaTiparita")->value, "ROL");
  EXPECT_EQ(
      OpenRs("SELECT PRETFT FROM G_LFACCL WHERE NUMFAC = '8' AND NRLINIE = 1").first().decimal("PRETFT"), 10);
  ExecutaSql("UPDATE G_DOCUME SET DATADOC = '2005-07-01'");
  EXPECT_EQ(find(printed(), "SumaDePlataCifre")->value, 1000.3);
  ExecutaSql("UPDATE G_DOCUME SET DATADOC = '2005-06-30'");
  // 119 dollars at 33.000 old lei.
  ExecutaSql("UPDATE G_FACCLI SET CODDeviza = 'USD', Curs = 3.3 WHERE NUMFAC = '8'");
  ExecutaSql(
      "UPDATE G_LFACCL SET VALOAREFT = 0.01, VALOARETVA = 0.0019, VALOARETTI = 0.0119 WHERE NRLINIE = 1");
  ExecutaSql("DELETE FROM G_LFACCL WHERE NRLINIE = 2");
  for (const auto& [foreign, sum] : {std::pair(true, 119.0), std::pair(false, 3927000.0)}) {
    const Printout printout = reprintOf("FC8");
    ListingOptions options;
    options.foreign = foreign;
    EXPECT_EQ(find(listingData(*printout.form, readListed(printout), options), "SumaDePlataCifre")->value,
              sum);
  }
  ExecutaSql("INSERT INTO G_NRFURN (NUMNR, CODFUR, DATANR) VALUES ('3', 5, '2005-06-30')");
  ExecutaSql("INSERT INTO G_LNRFUR (NUMNR, NRLINIE, CODART, CANT, PRETFTV) VALUES ('3', 1, 'A', 1, 2.5)");
  ExecutaSql("INSERT INTO G_DOCUME (ID, TIP, DATADOC, CODDEV) VALUES ('NR3', 'NR', '2005-06-30', 'LEI')");
  EXPECT_EQ(readListed(reprintOf("NR3")).lines.first().decimal("PRETFTV"), 25000);
  ExecutaSql("UPDATE G_FACCLI SET CODDeviza = NULL, Curs = 0");
  ExecutaSql("UPDATE G_LFACCL SET VALOARETTI = 1000.3 WHERE NUMFAC = '8'");
  ExecutaSql("DELETE FROM kt_val WHERE COD = 'ROL'");
  EXPECT_EQ(find(printed(), "SumaDePlataCifre")->value, 1000.3);
  EXPECT_THROW(reprintOf("FC9"), RuleError);
}

}  // namespace
}  // namespace velmar
