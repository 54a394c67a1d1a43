#include "reports/VatJournals.h"

#include "TestCompany.h"
#include "util/Errors.h"

namespace velmar {
namespace {

const VatPeriod kMarch{QDate(2026, 3, 1), QDate(2026, 3, 31)};

void partner(int code, const QString& type, const QString& name, const QString& fiscalCode) {
  ExecutaSql("INSERT INTO kt_ter (COD, TIP, NUME, CODFISCAL) VALUES (?, ?, ?, ?)",
             {code, type, name, fiscalCode});
}

void document(const QString& id, int partner, int day, const Decimal& base, const Decimal& vat,
              int month = 3) {
  ExecutaSql("INSERT INTO G_DOCUME (ID, TIP, CODTERT, DATADOC, TOTALFT, TOTALTVA) VALUES (?, ?, ?, ?, ?, ?)",
             {id, id.left(2), partner, QDate(2026, month, day), base, vat});
}

// Each row as a text of some columns.
QStringList rowsOf(const QString& sql) {
  QStringList lines;
  for (const Row& row : OpenRs(sql)) {
    QStringList cells;
    for (const QString& column : row.columns())
      cells.append(row.value(column).isNull() ? "-" : row.text(column));
    lines.append(cells.join(u' '));
  }
  return lines;
}

// What is printed.
ReportData journalReport(const VatJournal& journal, const VatPeriod& period, int firstNumber,
                         const Progress& progress = {}) {
  ReportChoice choice;
  choice.dates = {{"DTPickerdela", period.from}, {"DTPickerla", period.to}};
  if (period.subtractsStornos) choice.ticked.insert("chkStorno");
  choice.numbers["txtNRC"] = firstNumber;
  return reportData(stockReport(journal.window), choice, progress);
}

class VatJournals : public ::testing::Test {
 protected:
  VatJournals() {
    partner(1, "C", "ALFA", "RO11");
    partner(2, "M", "BETA", "RO22");
    partner(3, "F", "GAMA", "RO33");
    partner(4, "P", "DELTA", "RO44");
    document("FC1", 1, 1, 10, 1.9_dec);  // the first day itself is excluded
    document("FC3", 1, 31, 100.1_dec, 19.02_dec);
    document("FS2", 1, 5, -40, -7.6_dec);
    document("BS7", 4, 4, 8.4_dec, 1.6_dec);
    document("FC9", 1, 1, 10, 1.9_dec, 4);
    document("AE5", 1, 6, 10, 1.9_dec);
    document("FF12345678901234567890", 3, 10, 200, 38);
    document("FI8", 2, 2, 50, 0);
    document("FF6", 1, 10, 0.1_dec, 0.2_dec);
    document("BI4", 3, 6, 10, 1.9_dec);
  }

  TestCompany company_;
};

TEST_F(VatJournals, DocumentsOfADayFollowTheirNumbers) {
  for (const char* id : {"FCb2", "FC108", "FC27", "BS30", "FCA1", "FC99999999999999999999"})
    document(id, 1, 20, 1, 0);
  EXPECT_EQ(computeJournal(salesJournal(), {QDate(2026, 3, 18), QDate(2026, 3, 20)}, 1, "admin"), 6);
  EXPECT_EQ(rowsOf("SELECT NDP FROM kt_jvt ORDER BY NRC"),
            QStringList({"FC27", "BS30", "FC108", "FC99999999999999999999", "FCA1", "FCb2"}));
  QStringList listed;
  for (const Row& row : journalRows(salesJournal(), {QDate(2026, 3, 18), QDate(2026, 3, 20)}, 1))
    listed.append(row.text("NumarFactura"));
  EXPECT_EQ(listed.first(2), QStringList({"FC27", "BS30"}));
}

TEST_F(VatJournals, SalesAreNumberedByDateWithTheirUser) {
  ExecutaSql("INSERT INTO kt_jvt (NRC, UTILIZATOR) VALUES (1, 'admin'), (2, NULL), (3, 'ana')");
  EXPECT_EQ(computeJournal(salesJournal(), kMarch, 100, "admin"), 3);
  EXPECT_EQ(rowsOf("SELECT NRC, NDP, NUME, CODF, TOTAL, BAZA1, TVA1, SCUTIT, SCUTIT_CD, SCUTIT_FD, EXPORT, "
                   "UTILIZATOR FROM kt_jvt ORDER BY NRC"),
            QStringList({"3 - - - - - - - - - - ana", "100 BS7 - - 10 8.4 1.6 0 0 0 0 admin",
                         "101 FS2 ALFA RO11 -47.6 -40 -7.6 0 0 0 0 admin",
                         "102 FC3 ALFA RO11 119.12 100.1 19.02 0 0 0 0 admin"}));
  EXPECT_EQ(OpenRs("SELECT DATA FROM kt_jvt WHERE NRC = 102").first().date("DATA"), QDate(2026, 3, 31));
}

TEST_F(VatJournals, PurchasesHaveNoUserAndReplaceAllOthers) {
  computeJournal(purchaseJournal(), kMarch, 1, "ana");
  EXPECT_EQ(computeJournal(purchaseJournal(), kMarch, 1, "admin"), 3);
  EXPECT_EQ(
      rowsOf("SELECT NRC, NDP, NUME, CODF, TOTAL, NEIMP, BAZA1, TVA1, IMP, TVAIMP, UTILIZATOR FROM kt_jct "
             "ORDER BY NRC"),
      QStringList({"1 FI8 BETA RO22 50 50 50 0 0 0 -", "2 FF6 - - 0.3 0 0.1 0.2 0 0 -",
                   "3 FF12345678901234567890 GAMA RO33 238 0 200 38 0 0 -"}));
}

TEST_F(VatJournals, AnEmptyPeriodChangesNothing) {
  computeJournal(salesJournal(), kMarch, 1, "admin");
  const VatPeriod may{QDate(2026, 5, 1), QDate(2026, 5, 31)};
  try {
    computeJournal(salesJournal(), may, 1, "admin");
    FAIL();
  } catch (const RuleError& rule) {
    EXPECT_EQ(rule.text(), "Nu exista inregistrari in perioada 01/05/2026 - 31/05/2026");
  }
  EXPECT_EQ(rowsOf("SELECT NRC FROM kt_jvt").size(), 3);
  EXPECT_THROW(journalReport(salesJournal(), may, 1), RuleError);
}

TEST_F(VatJournals, ALongJournalIsNumberedThroughoutAndCanBeCancelled) {
  computeJournal(salesJournal(), kMarch, 1, "admin");
  std::vector<Values> stornos;
  for (int n = 101; n <= 2500; ++n)
    stornos.push_back(
        {QStringLiteral("FS%1").arg(n), "FS", 1, QDate(2026, 6, n <= 1300 ? 20 : 10), n, 0.5_dec});
  database().insertRows("G_DOCUME", {"ID", "TIP", "CODTERT", "DATADOC", "TOTALFT", "TOTALTVA"}, stornos);
  const VatPeriod june{QDate(2026, 5, 31), QDate(2026, 6, 30), true};
  const Progress stop = [](int done, int of) {
    EXPECT_EQ(of, 2400);
    if (done > 0) throw Cancelled();
  };
  EXPECT_THROW(computeJournal(salesJournal(), june, 10, "admin", stop), Cancelled);
  EXPECT_EQ(rowsOf("SELECT NDP FROM kt_jvt ORDER BY NRC"), QStringList({"BS7", "FS2", "FC3"}));
  EXPECT_THROW(journalReport(salesJournal(), june, 10, stop), Cancelled);
  EXPECT_EQ(computeJournal(salesJournal(), june, 10, "admin"), 2400);
  EXPECT_EQ(
      rowsOf("SELECT NRC, NDP, TOTAL FROM kt_jvt WHERE NRC IN (10, 1209, 1210, 2409) ORDER BY NRC"),
      QStringList({"10 FS1301 -1301.5", "1209 FS2500 -2500.5", "1210 FS101 -101.5", "2409 FS1300 -1300.5"}));
  const ReportData data = journalReport(salesJournal(), june, 10);
  ASSERT_EQ(data.fields->size(), 2400);
  EXPECT_EQ(data.fields->row(1200).text("NumarFactura"), "FS101");
  EXPECT_EQ(data.fields->row(1200).integer("NRC"), 1210);
  EXPECT_EQ(data.fields->row(1200).decimal("TOTALTVA"), -0.5_dec);
}

TEST_F(VatJournals, TheReportReadsTheCurrentLedger) {
  const ReportData data = journalReport(salesJournal(), kMarch, 7);
  ASSERT_EQ(data.fields->size(), 3);
  EXPECT_EQ(data.fields->row(1).text("NumarFactura"), "FS2");
  EXPECT_EQ(data.fields->row(1).value("DataFactura"), QVariant(QDate(2026, 3, 5)));
  EXPECT_FALSE(data.hasVariables);
  QStringList names;
  for (const clsFieldVarDescription& variable : data.extraVariables) names.append(variable.name);
  EXPECT_EQ(names.mid(0, 4), QStringList({"ParamDataDela", "ParamDataPanala", "NrCrt", "DENUMIRE"}));
  EXPECT_EQ(data.extraVariables[2].value, 7);
  EXPECT_TRUE(rowsOf("SELECT NRC FROM kt_jvt").isEmpty());
}

}  // namespace
}  // namespace velmar
