// Taking validated documents back. Random histories, validated and taken back in reverse, leave every table
// as it was, except costs and prices of articles, and the stock of articles that have none. Each draft,
// validated once more, writes the same again.
#include "documents/Undo.h"

#include <gtest/gtest.h>
#include <QSet>

#include "documents/LineSource.h"
#include "documents/Validation.h"
#include "stock/Corrections.h"
#include "store/Schema.h"
#include "store/Server.h"
#include "Trade.h"
#include "util/Errors.h"
#include "util/Messages.h"

namespace velmar {
namespace {

constexpr int kHistories = 3;
constexpr int kDocuments = 30;

// Answers every question with yes.
class Willing : public MessageSink {
 public:
  Willing() : previous_(setMessageSink(this)) {}
  ~Willing() override { setMessageSink(previous_); }
  int show(const Message& message) override { return message.buttons & kYesNo ? kResultYes : kResultOk; }

 private:
  MessageSink* previous_;
};

// All tables as text, without the time of day; of the articles only code and stock.
QStringList everything() {
  QStringList rows;
  for (const Table& table : companyTables()) {
    const bool isArticles = table.name() == "G_ARTMAG";
    const Recordset found =
        isArticles ? OpenRs("SELECT CODART, ROUND_EVEN(STOC, 3) AS STOC FROM G_ARTMAG WHERE FARASTOC = 0")
                   : OpenRs("SELECT * FROM " +
                            (table.name().contains(' ') ? '"' + table.name() + '"' : table.name()));
    for (const Row& row : found) {
      QStringList cells{table.name()};
      // A balance of nothing says what no balance says.
      if (table.name() == "G_STOCMAG" && row.value("CANT").toDouble() == 0) continue;
      for (const QString& column : found.columns())
        if (column != "TIMP" && column != "DATA") cells.append(row.value(column).toString());
      rows.append(cells.join(u'|'));
    }
  }
  rows.sort();
  return rows;
}

// The rows that only one of the two has.
QString difference(const QStringList& now, const QStringList& before) {
  const QSet<QString> here(now.begin(), now.end());
  const QSet<QString> there(before.begin(), before.end());
  QStringList rows;
  for (const QString& row : here - there) rows.append("+ " + row);
  for (const QString& row : there - here) rows.append("- " + row);
  return rows.join(u'\n');
}

// The draft; later documents did not have it.
void remove(const LedgerKey& key) {
  DocumentEditor editor(key.prefix());
  if (!editor.kind().hasDraft) return;
  editor.open(key.number);
  editor.remove();
}

class History {
 public:
  History(Trade& trade, int number) : trade_(trade), state_(static_cast<quint64>(number) * 7919 + 1) {
    for (int i = 0; i < 3; ++i) {
      articles_.append(QStringLiteral("H%1-%2").arg(number).arg(i));
      trade.article(articles_.last(), "40", i != 1, i != 2);
    }
    next_ = number * 100;
    day_ = clock::today().addDays(-60);
  }

  /// Validates one more document, if it is not refused.
  void add() {
    day_ = day_.addDays(1);
    number_ = QString::number(++next_);
    switch (below(18)) {
      case 0:
      case 1:
        return run("FF", trade_.purchase(number_, day_), receipts());
      case 2:
        return run("BI",
                   {{"NUMNR", number_},
                    {"CODFUR", QString::number(trade_.supplier)},
                    {"DATANR", Trade::iso(day_)},
                    {"BATVA", "19"}},
                   receipts());
      case 3:
        return run("BC", with(trade_.consumption(number_), "DATAAE"), issues());
      case 4:
        return run("FC", with(trade_.sale(number_), "DATAFAC"), issues());
      case 6:
        return run("AE", with(trade_.consumption(number_), "DATAAE"), issues());
      case 7:
        return from("FC", with(trade_.sale(number_), "DATAFAC"), KindId::DeliveryNote,
                    "SELECT NUMAE AS N FROM G_AECLI WHERE VALIDAT <> 0 AND FACTURAT = 0 ORDER BY NUMAE");
      case 8:
        return run("CC", with({{"NUMCOM", number_}, {"CODCLI", QString::number(trade_.customer)}}, "DATACOM"),
                   {Trade::out(articles_[0], amount(2))});
      case 9:
        return from("FC", with(trade_.sale(number_), "DATAFAC"), KindId::CustomerOrder,
                    "SELECT NUMCOM AS N FROM G_COMCLI WHERE VALIDAT <> 0 ORDER BY NUMCOM");
      case 10:
        return run("CF", supplied("NUMCOM", "DATACOM"),
                   {{articles_[0], {{"CANT", amount(9)}, {"PRETFT", "7"}}}});
      case 11:
        return from("NR", supplied("NUMNR", "DATANR"), KindId::SupplierOrder,
                    "SELECT NUMCOM AS N FROM G_COMFUR WHERE VALIDAT <> 0 AND SOLDAT = 0 ORDER BY NUMCOM");
      case 12:
        return run("BT", with({{"NUMAE", number_}, {"DESTMAGAZIE", "2"}}, "DATAAE"),
                   {Trade::out(articles_[0], "1")});
      case 13:
        return turned();
      case 15:
        return run("PR", with({{"NUMPF", number_}, {"CODCLI", QString::number(trade_.customer)}}, "DATAPF"),
                   {Trade::out(articles_[0], amount(3))});
      case 16:
        return run("FI", trade_.import(number_, day_),
                   {{articles_[below(3)], {{"CANT", amount(9)}, {"PRETVAL", amount(5)}, {"PVAMA", "4"}}}});
      case 17:
        return from("NR", supplied("NUMNR", "DATANR"), KindId::DeliveryNote,
                    "SELECT NUMAE AS N FROM G_AECLI WHERE VALIDAT <> 0 AND FACTURAT = 0 ORDER BY NUMAE");
      case 5:
        return run("BS", with({{"BATVA1", "2"}}, "DATAFAC"), issues());
      default:
        return returned();
    }
  }

  /// Takes all documents back, the last first, and compares with what was there before each.
  void takeAllBack() {
    for (auto document = documents_.rbegin(); document != documents_.rend(); ++document) {
      takeBackWholly(document->key);
      DocumentEditor draft(document->key.prefix());
      if (draft.kind().hasDraft) {
        draft.open(document->key.number);
        database().executeEach("UPDATE G_ARTMAG SET COST = ? WHERE CODART = ?", document->costs);
        ASSERT_TRUE(Trade::validate(draft)) << document->key.text().toStdString();
        ASSERT_EQ(difference(everything(), document->after), "") << document->key.text().toStdString();
        takeBackWholly(document->key);
      }
      ASSERT_EQ(difference(everything(), document->before), "") << document->key.text().toStdString();
      remove(document->key);
    }
  }
  int size() const { return static_cast<int>(documents_.size()); }

 private:
  struct Validated {
    LedgerKey key;
    QStringList before, after;
    std::vector<Values> costs;  ///< of the articles before it: they stay when it is taken back
  };

  static std::vector<Values> costs() {
    std::vector<Values> all;
    for (const Row& row : OpenRs("SELECT COST, CODART FROM G_ARTMAG"))
      all.push_back({Value::raw(row.value("COST")), row.text("CODART")});
    return all;
  }

  static void takeBackWholly(const LedgerKey& key) {
    takeBack(key);
    if (key.side == LedgerSide::Issue) takeBack({key.kind, key.number, LedgerSide::Receipt});
  }

  int below(int limit) {
    state_ = state_ * 6364136223846793005ULL + 1442695040888963407ULL;
    return static_cast<int>((state_ >> 33) % static_cast<unsigned>(limit));
  }
  QString amount(int most) { return (Decimal(1 + below(most * 8)) / 8).toString(); }
  TypedTexts with(TypedTexts header, const QString& dateColumn) const {
    header.insert(dateColumn, Trade::iso(day_));
    return header;
  }
  std::vector<TypedLine> receipts() {
    std::vector<TypedLine> lines;
    for (int i = below(2); i < 3; ++i)
      lines.push_back(Trade::bought(articles_[i], amount(20), amount(30), "60"));
    return lines;
  }
  std::vector<TypedLine> issues() {
    std::vector<TypedLine> lines;
    for (int i = below(2); i < 3; ++i) lines.push_back(Trade::out(articles_[i], amount(5)));
    return lines;
  }

  TypedTexts supplied(const QString& numberColumn, const QString& dateColumn) const {
    return with({{numberColumn, number_}, {"CODFUR", QString::number(trade_.supplier)}}, dateColumn);
  }

  // From the first of those that are open, in parts.
  void from(const QString& prefix, const TypedTexts& header, KindId source, const QString& open) {
    const Recordset found = OpenRs(open);
    if (found.isEmpty()) return;
    DocumentEditor editor(prefix);
    try {
      Trade::draft(editor, header, {});
      for (const LineSource* offered : editor.kind().sources)
        if (offered->kind() == source)
          editor.addLines(*offered, found.first().text("N"), editor.headerTexts());
      if (!editor.lines().empty() && below(2) == 0) editor.setNumber(0, "CANT", "0.5");
      validated(editor);
    } catch (const RuleError&) {
      if (!editor.isNew()) editor.remove();
    }
  }

  // The last invoice that is not turned round yet.
  void turned() {
    const Recordset found =
        OpenRs("SELECT NUMFAC FROM G_FACCLI WHERE VALIDAT <> 0 AND STORNAT = 0 ORDER BY NUMFAC");
    if (found.isEmpty()) return;
    DocumentEditor editor("FS");
    editor.open(found.first().text("NUMFAC"));
    TypedTexts header = editor.headerTexts();
    header.insert("NUMFAC", number_);
    header.insert("DATAFAC", Trade::iso(day_));
    editor.headerTyped(header);
    try {
      validated(editor);
    } catch (const RuleError&) {  // what the customer had returned is gone
    }
  }

  // To the supplier, from a purchase; or by a customer.
  void returned() {
    const Recordset lots = OpenRs(
        "SELECT DOCID, PRETFT FROM G_LDOCUM WHERE CANTRAMASA > 1 AND CANT > 0 AND ARTID = ? "
        "AND SUBSTR(DOCID, 1, 2) = 'FF' ORDER BY DOCID",
        {articles_[0]});
    if (!lots.isEmpty() && below(2) == 0)
      return run("FF", trade_.purchase(number_, day_, lots.first().text("DOCID")),
                 {Trade::bought(articles_[0], "-1", lots.first().decimal("PRETFT").toString(), "60")});
    run("FC", with(trade_.sale(number_), "DATAFAC"), {Trade::out(articles_[0], "-2")});
  }

  void run(const QString& prefix, const TypedTexts& header, const std::vector<TypedLine>& lines) {
    DocumentEditor editor(prefix);
    try {
      Trade::draft(editor, header, lines);
      validated(editor);
    } catch (const RuleError&) {  // not enough stock
      if (!editor.isNew()) editor.remove();
    }
  }

  void validated(DocumentEditor& editor) {
    const DocumentKind& kind = editor.kind();
    LedgerKey key{kind.id, editor.headerTexts().value(kind.numberColumn)};
    if (ledgerKind(kind.id).hasSides) key.side = LedgerSide::Issue;
    const QStringList before = everything();
    const std::vector<Values> paid = costs();
    if (Trade::validate(editor)) documents_.push_back({key, before, everything(), paid});
  }

  Trade& trade_;
  quint64 state_;
  QStringList articles_;
  QString number_;
  int next_ = 0;
  QDate day_;
  std::vector<Validated> documents_;
};

class UndoTest : public ::testing::TestWithParam<const char*> {};

TEST_P(UndoTest, HistoriesTakenBackInReverseLeaveEverythingAsItWas) {
  Trade trade(GetParam());
  const Willing willing;
  ExecutaSql("INSERT INTO G_MULTIMAGAZIE (COD, DENUMIRE, CONT) VALUES (2, 'Depozit', '381')");
  ExecutaSql("INSERT INTO G_MULTIMAGAZIE (COD, DENUMIRE, CONT) VALUES (1, 'Magazin', '371')");
  ExecutaSql(
      "UPDATE kt_par SET CONTAVIZEXP_M = '357', CONTAVIZEXP_P = '354', JURAVIZ = 'AV', CONTNIR = '408', "
      "JURNIR = 'NR'");
  for (int number = 1; number <= kHistories; ++number) {
    SCOPED_TRACE(number);
    History history(trade, number);
    for (int i = 0; i < kDocuments; ++i) history.add();
    EXPECT_GT(history.size(), kDocuments / 3);
    ASSERT_EQ(disagreementText(), "");
    ASSERT_NO_FATAL_FAILURE(history.takeAllBack());
    ASSERT_EQ(disagreementText(), "");
  }
}

INSTANTIATE_TEST_SUITE_P(Methods, UndoTest, ::testing::Values("FIFO", "MP"));

TEST(UndoGuardTest, DocumentsThatOthersDependOnAreNotTakenBack) {
  const Trade trade("FIFO");
  trade.article("A", "20");
  const QDate day = clock::today().addDays(-20);
  trade.validated("FF", trade.purchase("1", day), {Trade::bought("A", "10", "5", "20")});
  auto sale = trade.sale("7");
  sale.insert("DATAFAC", Trade::iso(day.addDays(1)));
  trade.validated("FC", sale, {Trade::out("A", "4")});
  auto voucher = trade.consumption("7");
  voucher.insert("DATAAE", Trade::iso(day.addDays(2)));
  trade.validated("BC", voucher, {Trade::out("A", "1")});

  const QStringList before = everything();
  EXPECT_THROW(takeBack({KindId::SupplierInvoice, "1"}), RuleError);
  EXPECT_THROW(takeBack({KindId::CustomerInvoice, "7"}), RuleError);
  EXPECT_THROW(takeBack({KindId::CustomerInvoice, "8"}), RuleError);
  EXPECT_EQ(everything(), before);

  // Notes from before their kind was stored belong to the next stamp of their number.
  ExecutaSql("UPDATE kt_linii SET FELDOC = NULL");
  ExecutaSql("UPDATE kt_linii SET PROV = 'X' WHERE DOC = '1'");
  EXPECT_TRUE(takeBack({KindId::ConsumptionVoucher, "7"}));
  EXPECT_EQ(OpenRs("SELECT DISTINCT NDI FROM kt_linii WHERE DOC = '7'").size(), 2);  // the invoice's
  EXPECT_EQ(Trade::rest("FF1"), Decimal(6));
  EXPECT_TRUE(takeBack({KindId::CustomerInvoice, "7"}));
  EXPECT_FALSE(takeBack({KindId::SupplierInvoice, "1"}));  // the accountant's note remains
  EXPECT_EQ(OpenRs("SELECT NDI FROM kt_linii WHERE DOC = '1'").size(), 3);
  EXPECT_EQ(OpenRs("SELECT * FROM G_DOCUME").size(), 0);
  EXPECT_EQ(Trade::figure("A", "STOC"), Decimal(0));
}

// A table that refuses one kind of write while the object exists.
class Refusing {
 public:
  Refusing(const QString& table, const QString& event)
      : isServer_(serverOf(TestCompany::folder())), table_(table) {
    if (isServer_)
      ExecutaSql(
          "CREATE OR REPLACE FUNCTION refuse() RETURNS trigger LANGUAGE plpgsql AS "
          "'BEGIN RAISE EXCEPTION ''refuzat''; END'");
    ExecutaSql(QStringLiteral("CREATE TRIGGER refuse BEFORE %1 ON %2 %3")
                   .arg(event, table,
                        isServer_ ? "FOR EACH ROW EXECUTE FUNCTION refuse()"
                                  : "BEGIN SELECT RAISE(ABORT, 'refuzat'); END"));
  }
  ~Refusing() { ExecutaSql(isServer_ ? "DROP TRIGGER refuse ON " + table_ : "DROP TRIGGER refuse"); }

 private:
  bool isServer_;
  QString table_;
};

TEST(UndoGuardTest, ARefusedWriteLeavesTheDocumentValidated) {
  const Trade trade("FIFO");
  trade.article("A", "20");
  trade.validated("FF", trade.purchase("1"), {Trade::bought("A", "10", "5", "20")});
  trade.validated("FC", trade.sale("7"), {Trade::out("A", "4")});
  const QStringList before = everything();
  const std::pair<const char*, const char*> writes[] = {
      {"G_ARTMAG", "UPDATE"}, {"G_LDOCUM", "UPDATE"}, {"G_LDOCUM", "DELETE"},  {"G_DOCUME", "DELETE"},
      {"G_I_E", "DELETE"},    {"G_FACCLI", "UPDATE"}, {"G_STOCMAG", "UPDATE"}, {"kt_linii", "DELETE"}};
  for (const auto& [table, event] : writes) {
    {
      const Refusing refusing(table, event);
      EXPECT_THROW(takeBack({KindId::CustomerInvoice, "7"}), Error) << table << " " << event;
    }
    EXPECT_EQ(difference(everything(), before), "") << table << " " << event;
  }
  ExecutaSql("UPDATE G_ARTMAG SET STOC = 9");
  ExecutaSql("UPDATE G_LDOCUM SET CANTRAMASA = 9 WHERE DOCID = 'FF1'");
  const QStringList spoilt = everything();
  {
    const Refusing refusing("G_ARTMAG", "UPDATE");
    EXPECT_THROW(correctStockAndNotes(), StoreError);
  }
  {
    const Refusing refusing("G_LDOCUM", "UPDATE");
    EXPECT_THROW(correctLots({"A"}), StoreError);
  }
  EXPECT_EQ(difference(everything(), spoilt), "");
  correctStockAndNotes();
  correctLots({"A"});
  EXPECT_EQ(difference(everything(), before), "");
}

TEST(ValidationFailureTest, AFailedStepIsReportedUnderItsTitle) {
  const Trade trade("MP");
  trade.article("A", "20");
  trade.validated("FF", trade.purchase("1"), {Trade::bought("A", "10", "5", "20")});
  ExecutaSql(
      "INSERT INTO G_MULTIMAGAZIE (COD, DENUMIRE, CONT) VALUES (1, 'Magazin', '371'), (2, 'Depozit', '381')");
  const auto failure = [](const char* kind, const TypedTexts& header, const char* table, const char* event) {
    DocumentEditor editor(kind);
    Trade::draft(editor, header, {{"A", {{"CANT", "1"}, {"PRETFT", "5"}}}});
    const Refusing refusing(table, event);
    QString reported;
    try {
      Trade::validate(editor);
    } catch (const StepError& failed) {
      reported = failed.title() + ": " + failed.text();
    }
    editor.remove();
    return reported;
  };
  TypedTexts note{{"NUMNR", "2"}, {"CODFUR", QString::number(trade.supplier)}};
  EXPECT_TRUE(failure("NR", note, "G_DOCUME", "INSERT").startsWith("Salvare in Documente: "));
  EXPECT_TRUE(failure("NR", note, "G_ARTMAG", "UPDATE").startsWith("Functia SalvareStocArticole: "));
  note.insert("STOCINITIAL", "-1");
  EXPECT_TRUE(failure("NR", note, "G_ARTMAG", "UPDATE").startsWith("Functia SalvareStocInitial : "));
  const TypedTexts transfer{{"NUMAE", "2"}, {"DESTMAGAZIE", "2"}};
  EXPECT_TRUE(failure("BT", transfer, "G_DOCUME", "INSERT")
                  .contains("SalvareDocumente din Form frmGrilaDocTransfer"));
  EXPECT_TRUE(
      failure("BT", transfer, "kt_linii", "INSERT").contains("SalvareDateContabile din Form frmGRILADocT"));
}

// With the average, goods come back at the value that they left with.
TEST(UndoGuardTest, AnIssueTakenBackRestoresTheAverageCost) {
  const Trade trade("MP");
  trade.article("A", "20");
  const QDate day = clock::today().addDays(-20);
  trade.validated("FF", trade.purchase("1", day), {Trade::bought("A", "10", "5", "20")});
  auto voucher = trade.consumption("2");
  voucher.insert("DATAAE", Trade::iso(day.addDays(1)));
  trade.validated("BC", voucher, {Trade::out("A", "4")});
  trade.validated("FF", trade.purchase("3", day), {Trade::bought("A", "6", "8", "20")});
  EXPECT_EQ(Trade::figure("A", "COST"), 65_dec / 10);  // (6 x 5 + 6 x 8) / 12
  takeBack({KindId::ConsumptionVoucher, "2"});
  EXPECT_EQ(Trade::figure("A", "STOC"), Decimal(16));
  EXPECT_EQ(Trade::figure("A", "COST"), 62_dec / 10);  // (16 x 6.5 + 20) / (16 + 4)
}

}  // namespace
}  // namespace velmar
