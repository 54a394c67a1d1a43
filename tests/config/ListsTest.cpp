#include "config/Lists.h"

#include "config/Checks.h"
#include "config/Lookups.h"
#include "store/NamedCommands.h"
#include "TestCompany.h"
#include "util/Errors.h"

using namespace velmar;

namespace {

class Lists : public testing::Test {
 protected:
  QStringList codes(const ArticleList& list, const QString& typed, int limit = 20) {
    QStringList found;
    for (const Row& row : findArticles(list, typed, limit)) found.append(row.text("CODART"));
    return found;
  }

  void addArticles() {
    ExecutaSql(
        "INSERT INTO G_ARTMAG (CODART, DENART, CODPRODFUR, UM, PROVENIENTA, FARASTOC, COST, PRETVFT) VALUES "
        "('100', 'Surub M8', 'S-8', 'Buc', 'M', 0, 1.5, 2.25), "
        "('200', 'Piulita pentru surub', 'P-8', 'Buc', 'P', 0, 0.1, 0.2), "
        "('surx', 'Adeziv 50% tare', NULL, 'Kg', 'M', -1, 3, 4), "
        "('300', 'Montaj', 'SURUB-9', 'Ora', 'P', -1, 0, 80), "
        "('400', NULL, NULL, 'Buc', 'M', 0, 0, 0)");
  }

  TestCompany company_;
  MessageRecorder messages_;
};

TEST_F(Lists, CombosJoinTheirFields) {
  EXPECT_EQ(comboItems("cboMag"), QStringList("0-Nu exista inregistrari !"));
  ExecutaSql("INSERT INTO G_MULTIMAGAZIE (COD, DENUMIRE) VALUES (1, 'Zona'), (2, 'Central'), (3, NULL)");
  EXPECT_EQ(comboItems("cboMag"), (QStringList{"3-", "2-Central", "1-Zona"}));

  ExecutaSql(
      "INSERT INTO kt_cote (COD, CONT, PROCENT) VALUES (20, 'TVA deductibila', 9.5), (21, 'FARA TVA', 0)");
  EXPECT_EQ(comboItems("cboTVACump"), (QStringList{"20-TVA deductibila_9.5", "21-FARA TVA_0"}));
  EXPECT_EQ(comboItems("cboTVAVanz"), QStringList("FARA TVA-0"));
  EXPECT_EQ(comboItems("cboTVA2Cumparare"), (QStringList{"9.5", "0"}));

  ExecutaSql(
      "INSERT INTO kt_ter (COD, NUME, TIP) VALUES (1, 'Beta', 'f'), (2, 'Alfa', 'M'), (3, 'Gama', 'C')");
  EXPECT_EQ(comboItems("cboFurnizoriLa"), (QStringList{"2-Alfa", "1-Beta"}));
  EXPECT_EQ(comboItems("cboClienti"), (QStringList{"2-Alfa", "3-Gama"}));
  EXPECT_EQ(OpenRs(kCustomerList.sql).first().text(kCustomerList.listField), "Alfa");
  EXPECT_TRUE(messages_.isEmpty());
}

QStringList words(const char* text) { return QString(text).split(' '); }

TEST_F(Lists, EveryNamedStatementRunsAndAnUnknownNameIsReported) {
  for (const QString& name :
       words("cboMag cboCont cboContdela cboContla cboCodTVA cboCodJurnal cboCodDeviza cboCodDevizaDenumire "
             "cboDeviza cboCodOperatie cboJurnalCumparare cboJurnalVanzare cboJurnalBanca cboRegistruCasa "
             "cboFurnizori cboFurnizoriDela cboFurnizoriLa cboClienti cboClientiDela cboClientiLa "
             "cboOpFinanciare cboOperatiiPlati cboOperatiiVanzare cboOperatiiCumparare cboTVACump cboTVAVanz "
             "cboTVA1Cumparare cboTVA2Cumparare cboTVA1Vanzare cboTVA2Vanzare cboCentruCost cboFacturiImport "
             "cboFamilie cboOperatiiIncasari cboOperatiiCumpVanz"))
    EXPECT_FALSE(comboItems(name).isEmpty()) << qUtf8Printable(name);
  for (const QString& kind :
       words("Magazie MAG_IN_GLINII Data CodJurnal Cont OperTert OperTVA CodValuta CodCentruCost CODARTICOL "
             "TertiLinii FACIMPORTTR FACTURAIMPORT FACTURACLIENT NIR FACTURAFURNIZOR BONINT PROFORMA AVIZ "
             "BONCONS COMANDACLIENT COMANDAFURNIZOR UTILIZATOR ContLinii ContJurnale JurnalLinii"))
    EXPECT_FALSE(Exista("nimic", kind)) << qUtf8Printable(kind);
  DataEnvironment data;
  EXPECT_EQ(data.names().size(), 28);
  for (const QString& name : data.names()) {
    const auto parameters = static_cast<size_t>(data.statement(name).count('?'));
    EXPECT_NO_THROW(data.open(name, Values(parameters))) << qUtf8Printable(name);
    EXPECT_THROW(data.open(name, Values(parameters + 1)), StoreError) << qUtf8Printable(name);
  }
  for (const BoundList& list : {kSupplierList, kCustomerList, kFamilyList, kCostCentreList}) {
    const QStringList columns = OpenRs(list.sql).columns();
    EXPECT_TRUE(columns.contains(list.listField) && columns.contains(list.boundColumn))
        << qUtf8Printable(list.sql);
  }
  EXPECT_TRUE(messages_.isEmpty());
  EXPECT_TRUE(comboItems("cboNimic").isEmpty());
  EXPECT_FALSE(Exista("401", "cont"));
  EXPECT_FALSE(Exista2("1", "2", "NIR"));
  ASSERT_EQ(messages_.all().size(), 3U);
  EXPECT_EQ(messages_.all()[1].buttons, kCritical);
  EXPECT_EQ(messages_.take(),
            (QStringList{"EROARE ! EROARE ! EROARE !   .....   ", " EROARE ! EROARE ! EROARE ! - Exista cont",
                         "EROARE ! EROARE ! EROARE ! Exista2"}));
  EXPECT_THROW(data.open("get_info"), StoreError);
}

TEST_F(Lists, ArticleListsContainTheirKinds) {
  addArticles();
  EXPECT_EQ(codes(articleList("M"), ""), (QStringList{"400", "surx", "100"}));
  EXPECT_EQ(codes(articleList("P"), ""), QStringList("200"));
  EXPECT_EQ(codes(articleList("MP"), ""), (QStringList{"400", "200", "100"}));
  EXPECT_EQ(codes(articleList("D"), "").size(), 5);

  const auto only = [](const ArticleList& list) { return findArticles(list, "100", 5).first(); };
  EXPECT_EQ(only(articleList("")).text("DenArt"), "Surub M8 (100)");
  EXPECT_EQ(only(articleList("D")).text("DenArt"), "Surub M8");
  EXPECT_TRUE(only(articleList("D")).isNull("VALOARE"));
  EXPECT_EQ(cellText(only(articleListWithCostOrPrice("TR")).value("VALOARE")), "1.5");
  EXPECT_EQ(cellText(only(articleListWithCostOrPrice("M")).value("VALOARE")), "2.25");
  EXPECT_TRUE(codes(articleListWithCostOrPrice("TR"), "Montaj").isEmpty());
  EXPECT_EQ(codes(articleListWithCostOrPrice("X"), "Montaj"), QStringList("300"));
}

TEST_F(Lists, TypeAheadShowsPrefixMatchesFirst) {
  addArticles();
  // "Adeziv" begins with it by code, "Surub" by name; the others contain it in the supplier's code and the
  // name.
  EXPECT_EQ(codes(articleList(""), "SUR"), (QStringList{"surx", "100", "300", "200"}));
  EXPECT_EQ(codes(articleList(""), "sur", 3), (QStringList{"surx", "100", "300"}));
  EXPECT_EQ(codes(articleList(""), "sur", 1), QStringList("surx"));
  EXPECT_EQ(codes(articleList("P"), "sur"), QStringList("200"));
  EXPECT_EQ(codes(articleList(""), "4"), QStringList("400"));
  EXPECT_EQ(codes(articleList(""), "0%"), QStringList("surx"));
  EXPECT_TRUE(codes(articleList(""), "%").size() == 1 && codes(articleList(""), "_").isEmpty());
  EXPECT_TRUE(codes(articleList(""), "!").isEmpty() && codes(articleList(""), "' OR 1=1").isEmpty());
}

}  // namespace
