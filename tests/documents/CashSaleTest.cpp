// The receipt of a cash sale between register and company: two workstations and crashes.
#include <stdexcept>

#include "../fiscal/RegisterPlace.h"
#include "documents/DocumentEditor.h"
#include "store/Database.h"
#include "util/Errors.h"

namespace velmar {
namespace {

/// Runs a function while the register prints.
class Meanwhile : public WaitingUser {
 public:
  explicit Meanwhile(std::function<void()> work) : work_(std::move(work)) {}
  void wait(OutsideProgram& program) override {
    work_();
    WaitingUser::wait(program);
  }

 private:
  std::function<void()> work_;
};

class CashSaleTest : public RegisterPlace {
 protected:
  CashSaleTest() {
    ExecutaSql("INSERT INTO kt_ter (COD, NUME, TIP) VALUES (7, 'CASA', 'C')");
    ExecutaSql("INSERT INTO G_FAMART (COD, DENUMIRE, CONTVEN) VALUES (1, 'Servicii', '704')");
    ExecutaSql(
        "INSERT INTO G_ARTMAG (CODART, DENART, FAMART, PRETVFT, PROVENIENTA, FARASTOC) "
        "VALUES ('S1', 'Transport', 1, 10, 'M', -1)");
    session().CasaMarcat = "A";
    session().CasaMarcat_Nr = 12;
    put(app("Tx.txt"));
    putProgram(app("start.bat"), "echo x >> receipts; sleep 0.1; exit 0\n");
    start(editor_);
    editor_.setNumber(editor_.setArticle(0, "S1"), "CANT", "2");
  }

  static void start(DocumentEditor& editor) {
    editor.newDocument();
    QHash<QString, QString> header = editor.headerTexts();
    header.insert("BATVA1", "2");
    editor.save(header);
  }

  static ReceiptOutcome print(DocumentEditor& editor) { return editor.printReceipt(editor.headerTexts()); }
  qsizetype receipts() const { return contentOf(app("receipts")).count('x'); }

  DocumentEditor editor_{"BS"};
};

TEST_F(CashSaleTest, NothingChangesWhileTheRegisterPrints) {
  const QString number = editor_.number();
  DocumentEditor other("BS");
  other.open(number);
  const Meanwhile otherUser([&] {
    EXPECT_THROW(other.setNumber(0, "CANT", "3"), RuleError);
    EXPECT_THROW(other.deleteLine(0), RuleError);
    EXPECT_THROW(other.setArticle(1, "S1"), RuleError);
    EXPECT_THROW(other.remove(), RuleError);
    QHash<QString, QString> another = other.headerTexts();
    another.insert("DATAFAC", "2026-03-14");
    EXPECT_THROW(other.save(another), RuleError);
    messages_.answer(kResultCancel);
    EXPECT_EQ(print(other), ReceiptOutcome::NotPrinted);  // the question is shown, nothing is sent
    EXPECT_TRUE(other.isFrozen());
    EXPECT_FALSE(other.isPrinted());
  });
  EXPECT_EQ(print(editor_), ReceiptOutcome::Printed);
  EXPECT_EQ(receipts(), 1);
  EXPECT_TRUE(editor_.isPrinted());
  EXPECT_THROW(print(other), RuleError);
  EXPECT_THROW(other.validate([&] {
    QHash<QString, QString> another = other.headerTexts();
    another.insert("DATAFAC", "2026-03-14");
    return another;
  }()),
               RuleError);
  editor_.validate(editor_.headerTexts());
  EXPECT_EQ(OpenRs("SELECT DATADOC FROM G_DOCUME WHERE ID = ?", {"BS" + number}).first().date("DATADOC"),
            QDate(2026, 3, 15));
}

TEST_F(CashSaleTest, LinesNotShownToTheCashierAreNotPrinted) {
  DocumentEditor other("BS");
  other.open(editor_.number());
  other.setNumber(0, "CANT", "5");
  EXPECT_THROW(print(editor_), RuleError);
  EXPECT_EQ(receipts(), 0);
  EXPECT_TRUE(editor_.followStored(editor_.headerTexts()));
  EXPECT_EQ(print(editor_), ReceiptOutcome::Printed);
}

TEST_F(CashSaleTest, AfterACrashTheUserIsAskedBeforeASecondReceipt) {
  {
    const Meanwhile crash([] { throw std::runtime_error("killed"); });
    EXPECT_THROW(print(editor_), std::runtime_error);
  }
  DocumentEditor next("BS");
  next.open(editor_.number());
  EXPECT_TRUE(next.isFrozen());
  EXPECT_FALSE(next.isOpen(0, "CANT"));
  messages_.answer(kResultYes);
  EXPECT_EQ(print(next), ReceiptOutcome::Printed);
  EXPECT_LE(receipts(), 1);
  next.validate(next.headerTexts());
  EXPECT_EQ(OpenRs("SELECT TIPARIRE FROM G_BONCASA").first().integer("TIPARIRE"), 0);
}

// Only one of two users who both report that nothing was printed takes over the open attempt.
TEST_F(CashSaleTest, OneOfTwoTakesOverAnAttempt) {
  ExecutaSql("UPDATE G_BONCASA SET TIPARIRE = 1");
  const Drafts drafts = editor_.drafts();
  EXPECT_EQ(drafts.beginReceipt(editor_.number(), 1), 2);
  EXPECT_THROW(drafts.beginReceipt(editor_.number(), 1), RuleError);
  drafts.endReceipt(editor_.number(), 1, false);  // of an outdated attempt
  EXPECT_THROW(drafts.beginReceipt(editor_.number(), 0), RuleError);
  drafts.endReceipt(editor_.number(), 2, false);
  EXPECT_EQ(drafts.beginReceipt(editor_.number(), 0), 1);
}

TEST_F(CashSaleTest, MissingStockIsReportedBeforeTheReceipt) {
  ExecutaSql(
      "INSERT INTO G_ARTMAG (CODART, DENART, FAMART, PRETVFT, PROVENIENTA, FARASTOC) "
      "VALUES ('A2', 'Marfa', 1, 10, 'M', 0)");
  editor_.setNumber(editor_.setArticle(1, "A2"), "CANT", "5");
  messages_.answer(kResultNo);
  EXPECT_EQ(print(editor_), ReceiptOutcome::NotPrinted);
  EXPECT_EQ(messages_.take(),
            QStringList("Articolul: A2 are disponibil in stoc numai 0. Tipariti bonul totusi ?"));
  EXPECT_FALSE(editor_.isFrozen());
  EXPECT_EQ(receipts(), 0);
  editor_.setNumber(1, "CANT", "4");  // it can still be changed
  messages_.answer(kResultYes);
  EXPECT_EQ(print(editor_), ReceiptOutcome::Printed);
  EXPECT_EQ(receipts(), 1);
}

TEST_F(CashSaleTest, ANumberIsReservedByItsRow) {
  DocumentEditor first("BS");
  DocumentEditor second("BS");
  first.newDocument();
  second.newDocument();
  EXPECT_EQ(first.number(), second.number());
  for (DocumentEditor* editor : {&first, &second}) {
    QHash<QString, QString> header = editor->headerTexts();
    header.insert("BATVA1", "2");
    editor->save(header);
  }
  EXPECT_EQ(second.number().toInt(), first.number().toInt() + 1);
}

}  // namespace
}  // namespace velmar
