// The table of document kinds compared with the company's tables, and the numbers that a kind proposes.
#include <gtest/gtest.h>
#include <algorithm>

#include "config/Checks.h"
#include "documents/Document.h"
#include "documents/kinds/Kinds.h"
#include "documents/Numbering.h"
#include "store/Schema.h"
#include "TestCompany.h"

namespace velmar {
namespace {

std::string of(const DocumentKind& kind, const QString& what) {
  return (kind.prefix + QStringLiteral(": ") + what).toStdString();
}

bool hasHeaderField(const DocumentKind& kind, const QString& key) {
  return std::any_of(kind.headerFields.begin(), kind.headerFields.end(),
                     [&key](const HeaderField& field) { return field.key() == key; });
}

bool hasLineColumn(const DocumentKind& kind, const QString& field) {
  return std::any_of(kind.lineColumns.begin(), kind.lineColumns.end(),
                     [&field](const LineColumn& column) { return column.field == field; });
}

// Header texts are looked up by the exact spelling of the column, so case matters here.
void expectColumn(const DocumentKind& kind, const QString& table, const QString& name) {
  const Column* column = companyTable(table).column(name);
  ASSERT_TRUE(column) << of(kind, table + "." + name);
  EXPECT_EQ(column->name, name) << of(kind, table);
}

// Makes each check once on a new document without lines or texts: it finds the columns that it asks for.
void expectChecks(const DocumentKind& kind, const Checks& checks) {
  const Document document{&kind, {}, companyTable(kind.headerTable).emptyRow(), {}, {}, true};
  for (const Check& check : checks) {
    EXPECT_TRUE(hasHeaderField(kind, check.field) || hasLineColumn(kind, check.field))
        << of(kind, check.field + " has no control: " + check.text);
    const auto fault = check.fault(document);
    EXPECT_TRUE(!fault || !(check.text + fault->text).isEmpty()) << of(kind, check.field);
  }
}

TEST(KindTableTest, ColumnsAreInTheirTablesAndControlsOnce) {
  ASSERT_EQ(documentKinds().size(), 13U);
  for (const DocumentKind& kind : documentKinds()) {
    for (const QString& name : {kind.numberColumn, kind.dateColumn, kind.partnerColumn, kind.remarkColumn})
      if (!name.isEmpty()) {
        expectColumn(kind, kind.headerTable, name);
        EXPECT_TRUE(hasHeaderField(kind, name)) << of(kind, name);
      }
    expectColumn(kind, kind.lineTable, kind.numberColumn);
    for (const HeaderField& field : kind.headerFields)
      if (!field.column.isEmpty()) expectColumn(kind, kind.headerTable, field.column);
    for (const LineColumn& column : kind.lineColumns)
      for (const QString& name : column.product.isEmpty() ? QStringList{column.field} : column.product)
        expectColumn(kind, kind.lineTable, name);
    for (const QString& name : {kind.lineCheck.price, kind.lineCheck.salePrice})
      if (!name.isEmpty()) expectColumn(kind, kind.lineTable, name);
    QStringList once;
    for (const HeaderField& field : kind.headerFields)
      once += field.list.isEmpty() ? QStringList{field.control} : QStringList{field.control, field.list};
    for (const LineColumn& column : kind.lineColumns) once.append("line " + column.field);
    EXPECT_EQ(once.removeDuplicates(), 0) << of(kind, "controls and columns");
  }
}

TEST(KindTableTest, ChecksReferToExistingControlsAndColumns) {
  const TestCompany company;
  const MessageRecorder messages;
  for (const DocumentKind& kind : documentKinds()) {
    expectChecks(kind, kind.headerChecks);
    expectChecks(kind, kind.validationChecks);
    expectChecks(kind, kind.printChecks);
    if (!kind.existsKind.isEmpty()) Exista(QStringLiteral("1"), kind.existsKind);
  }
  EXPECT_TRUE(messages.isEmpty()) << "unknown kind of Exista";
}

TEST(KindTableTest, QuestionsNameTheDocumentAndNoTextIsEmpty) {
  for (const DocumentKind& kind : documentKinds()) {
    const KindTexts& texts = kind.texts;
    const bool isStorno = kind.prefix == "FS";    // has no draft: cannot be created, saved or deleted
    const bool isCashSale = kind.prefix == "BS";  // is validated without a question
    for (const QString& text : {texts.title, texts.draftsCaption, texts.validateTip, texts.printTip,
                                texts.validated, texts.unknownArticle})
      EXPECT_FALSE(text.isEmpty()) << of(kind, texts.title);
    for (const QString& text : {texts.newTip, texts.saveTip, texts.deleteTip, texts.saveFirst,
                                texts.nothingToDelete, texts.confirmDeletion})
      EXPECT_EQ(text.isEmpty(), isStorno) << of(kind, text);
    EXPECT_EQ(texts.confirmDeletion.count("%1"), isStorno ? 0 : 1) << of(kind, texts.confirmDeletion);
    EXPECT_EQ(texts.confirmValidation.count("%1"), isCashSale ? 0 : 1) << of(kind, texts.confirmValidation);
    EXPECT_EQ(texts.unknownArticle.count("%1"), 1) << of(kind, texts.unknownArticle);
    EXPECT_FALSE(kind.validationChecks.empty()) << of(kind, "checks");
    EXPECT_FALSE(kind.printChecks.empty()) << of(kind, "print checks");
  }
}

class NumberingTest : public ::testing::Test {
 protected:
  NumberingTest() { range("100", "160"); }

  // The ranges may be entered while other workstations are open, so they are read from the company.
  static void range(const QString& start, const QString& end) {
    ExecutaSql("UPDATE kt_par SET FCSTART = ?, FCEND = ?, AESTART = ?, AEEND = ?", {start, end, start, end});
  }

  static void draft(const QString& prefix, const QString& number) {
    const DocumentKind& kind = documentKind(prefix);
    ExecutaSql("INSERT INTO " + kind.headerTable + " (" + kind.numberColumn + ", Magazie) VALUES (?, 1)",
               {number});
  }

  static void ledger(const QString& key) {
    ExecutaSql("INSERT INTO G_DOCUME (ID, TIP) VALUES (?, ?)", {key, key.left(2)});
  }

  static void expectNumber(const QString& prefix, const QString& number, const QString& warning = {}) {
    const ProposedNumber proposed = proposeNumber(documentKind(prefix));
    EXPECT_EQ(proposed.number, number);
    EXPECT_EQ(proposed.locked, !number.isEmpty());
    EXPECT_EQ(proposed.warning, warning);
  }

  TestCompany company_;
};

TEST_F(NumberingTest, InvoicesUseTheirRangeToItsEnd) {
  expectNumber("FC", "100");
  draft("FC", "7");  // from before the range
  expectNumber("FC", "100");
  draft("FC", "109");
  expectNumber("FC", "110");  // 110 to 160 are 51
  draft("FC", "110");
  expectNumber("FC", "111", "Atentie! Mai sunt 50 facturi pana la epuizarea plajei de valori.");
  draft("FC", "159");
  expectNumber("FC", "160", "Atentie! Mai sunt 1 facturi pana la epuizarea plajei de valori.");
  draft("FC", "160");
  expectNumber("FC", "",
               "Atentie! S-a depasit plaja de valori pentru facturi. Inlocuiti setul de tipizate, apoi "
               "introduceti noua plaja de valori.");
}

TEST_F(NumberingTest, InvoicesAndStornosShareTheNumbersOfTheLedger) {
  draft("FC", "104");
  draft("FC", "A999");  // letters do not count
  expectNumber("FC", "105");
  ledger("FC106");  // its draft is gone
  expectNumber("FC", "107");
  ledger("FS108");
  ledger("FCX500");
  ledger("BS140");
  expectNumber("FC", "109");
  expectNumber("FS", "109");
}

TEST_F(NumberingTest, DeliveryNotesHaveTheirOwnRangeAndNoLedger) {
  expectNumber("AE", "100");
  draft("AE", "110");
  ledger("AE150");
  draft("FC", "155");
  expectNumber("AE", "111", "Atentie! Mai sunt 50 avize de expeditie pana la epuizarea plajei de valori.");
  draft("AE", "160");
  expectNumber("AE", "",
               "Atentie! S-a depasit plaja de valori pentru avize de expeditie. Inlocuiti setul de tipizate, "
               "apoi introduceti noua plaja de valori.");
}

TEST_F(NumberingTest, CashSalesAreNumberedWithoutARange) {
  expectNumber("BS", "1");
  draft("BS", "5");
  draft("BS", "B77");
  expectNumber("BS", "6");
  ledger("BS200");
  ledger("FC300");
  expectNumber("BS", "201");
}

TEST_F(NumberingTest, WithoutARangeTheUserTypesTheNumber) {
  range("", "");
  draft("FC", "109");
  expectNumber("FC", "");
  expectNumber("AE", "");
  expectNumber("NR", "");
}

}  // namespace
}  // namespace velmar
