// Random but reproducible sequences of receipts, issues, returns, deletions and failures through the real
// services: after each step all data is consistent. VELMAR_SEQUENCES is the number of sequences per method;
// the number of a sequence reproduces it.
#include <gtest/gtest.h>

#include "documents/Undo.h"
#include "Trade.h"
#include "util/Errors.h"

namespace velmar {
namespace {

constexpr int kSequences = 60;
constexpr int kSteps = 12;
constexpr int kPerCompany = 10;

class Sequence {
 public:
  Sequence(Trade& trade, int number)
      : trade_(trade), state_(static_cast<quint64>(number) * 2654435761ULL + 1) {
    for (int i = 0; i < 4; ++i) articles_.append(QStringLiteral("%1-%2").arg(number).arg(i));
    trade.article(articles_[0], "12.5");
    trade.article(articles_[1], "99.99");
    trade.article(articles_[2], "7", false);
    trade.article(articles_[3], "30", true, false);
    first_ = number * 1000;
  }

  /// Executes one step; returns its description.
  QString step() {
    const QString number = QString::number(++first_);
    try {
      switch (below(14)) {
        case 0:
        case 1:
        case 2:
          return "FF" + number + run("FF", trade_.purchase(number, day()), receipts());
        case 3:
          return "BI" + number + run("BI", voucher(number), receipts());
        case 4:
          return "BC" + number + run("BC", trade_.consumption(number), issues());
        case 5:
        case 6:
          return "FC" + number + run("FC", trade_.sale(number), issues());
        case 9:
          return "BS" + number + run("BS", {{"BATVA1", "2"}}, counterSale());
        case 10:
        case 11:
          return takenBack();
        case 12:
          return "FI" + number + run("FI", trade_.import(number, day(), "1.5"), imports());
        case 13:
          return "PR" + number +
                 run("PR", {{"NUMPF", number}, {"CODCLI", QString::number(trade_.customer)}}, issues());
        case 7:
          return "retur" + number + returned(number);
        default:
          return "esec" + number + failing(number);
      }
    } catch (const Error& refused) {
      return number + " refuzat: " + refused.text();
    }
  }

 private:
  int below(int limit) {
    state_ = state_ * 6364136223846793005ULL + 1442695040888963407ULL;
    return static_cast<int>((state_ >> 33) % static_cast<unsigned>(limit));
  }
  QString amount(int most) {  // up to `most`, with up to 3 decimals
    static const int kParts[] = {1, 1, 2, 8, 1000};
    const int parts = kParts[below(5)];
    return (Decimal(1 + below(most * parts)) / parts).toString();
  }
  QDate day() { return clock::today().addDays(-below(40)); }

  TypedTexts voucher(const QString& number) {
    return {{"NUMNR", number},
            {"CODFUR", QString::number(trade_.supplier)},
            {"DATANR", Trade::iso(day())},
            {"BATVA", "19"}};
  }
  QStringList some() {
    QStringList chosen;
    for (int i = 0; i < 1 + below(3); ++i) chosen.append(articles_[below(4)]);
    chosen.removeDuplicates();
    return chosen;
  }
  std::vector<TypedLine> receipts() {
    std::vector<TypedLine> lines;
    for (const QString& code : some()) lines.push_back(Trade::bought(code, amount(20), amount(50), "60"));
    return lines;
  }
  // The transport of the header is that of the lines.
  std::vector<TypedLine> imports() {
    std::vector<TypedLine> lines;
    for (const QString& code : some())
      lines.push_back({code,
                       {{"CANT", amount(20)},
                        {"PRETVAL", amount(9)},
                        {"VALCHTR", lines.empty() ? "1.5" : "0"},
                        {"PVAMA", below(2) == 0 ? "0" : "4.5"}}});
    return lines;
  }
  // Often more than is in stock, which is refused.
  std::vector<TypedLine> issues() {
    std::vector<TypedLine> lines;
    for (const QString& code : some()) lines.push_back(Trade::out(code, amount(12)));
    return lines;
  }

  // An article may be scanned twice.
  std::vector<TypedLine> counterSale() {
    std::vector<TypedLine> lines = issues();
    lines.push_back(Trade::out(lines.front().code, amount(3)));
    return lines;
  }

  QString run(const QString& kind, const TypedTexts& header, const std::vector<TypedLine>& lines) {
    DocumentEditor editor(kind);
    Trade::draft(editor, header, lines);
    return Trade::validate(editor) ? QString() : QStringLiteral(" oprit");
  }

  // Part of the remainder of a receipt is returned to the supplier.
  QString returned(const QString& number) {
    const Recordset lots = OpenRs(
        "SELECT DOCID, ARTID, PRETFT, CANTRAMASA FROM G_LDOCUM WHERE CANTRAMASA > 1 AND CANT > 0 "
        "AND ARTID LIKE ? AND SUBSTR(DOCID, 1, 2) = 'FF' ORDER BY DOCID, LINIE",
        {articles_[0].left(articles_[0].size() - 1) + "%"});
    if (lots.isEmpty()) return " nimic";
    const Row& lot = lots[below(lots.size())];
    return run("FF", trade_.purchase(number, clock::today(), lot.text("DOCID")),
               {Trade::bought(lot.text("ARTID"), "-1", lot.decimal("PRETFT").toString(), "60")});
  }

  // Any of its documents; drafts of some are validated once more.
  QString takenBack() {
    const Recordset documents =
        OpenRs("SELECT DISTINCT DOCID FROM G_LDOCUM WHERE ARTID LIKE ? ORDER BY DOCID",
               {articles_[0].left(articles_[0].size() - 1) + "%"});
    if (documents.isEmpty()) return "nimic de sters";
    const LedgerKey key = *LedgerKey::of(documents[below(documents.size())].text("DOCID"));
    takeBack(key);
    if (below(2) == 0) return "sters " + key.text();
    DocumentEditor editor(key.prefix());
    editor.open(key.number);
    return "reluat " + key.text() + (Trade::validate(editor) ? "" : " oprit");
  }

  // The posting of an issue fails because an account is missing, after everything else was written.
  QString failing(const QString& number) {
    DocumentEditor editor(below(2) == 0 ? "FC" : "BC");
    const bool isSale = editor.kind().prefix == "FC";
    Trade::draft(editor, isSale ? trade_.sale(number) : trade_.consumption(number), issues());
    const bool goes = editor.checkLines();
    ExecutaSql("UPDATE G_FAMART SET CONTCHELT = NULL, CONTVEN = NULL");
    QString outcome = " a trecut";
    try {
      if (goes) editor.validate(editor.headerTexts());
    } catch (const Error&) {
      outcome = " anulat";
    }
    ExecutaSql("UPDATE G_FAMART SET CONTCHELT = '607', CONTVEN = '707'");
    return outcome;
  }

  Trade& trade_;
  quint64 state_;
  QStringList articles_;
  int first_ = 0;
};

// The value of the lots less that of their remainders equals the cost of the issues and returns to suppliers.
void expectValueKept() {
  const Row value =
      OpenRs(
          "SELECT SUM(CASE WHEN D.TIPIE = 'I' THEN L.CANT * L.PRETFT ELSE -L.VALCOST END) AS LEDGER, "
          "SUM(CASE WHEN D.TIPIE = 'I' AND L.CANTRAMASA > 0 THEN L.CANTRAMASA * L.PRETFT ELSE 0 END) "
          "AS LOTS FROM G_LDOCUM L INNER JOIN G_DOCUME D ON D.ID = L.DOCID "
          "INNER JOIN G_ARTMAG A ON A.CODART = L.ARTID WHERE A.FARASTOC = 0")
          .first();
  EXPECT_EQ(Round(value.decimal("LEDGER") - value.decimal("LOTS"), 1), Decimal(0));
}

void runSequences(const QString& method) {
  const int wanted = qEnvironmentVariableIntValue("VELMAR_SEQUENCES");
  const int sequences = wanted > 0 ? wanted : kSequences;
  int validated = 0;
  for (int from = 0; from < sequences; from += kPerCompany) {
    Trade trade(method);
    for (int number = from; number < from + kPerCompany; ++number) {
      Sequence sequence(trade, number);
      QStringList steps;
      for (int step = 0; step < kSteps; ++step) {
        steps.append(sequence.step());
        const QString text = disagreementText();
        ASSERT_EQ(text, "") << "sequence " << number << ": " << steps.join(", ").toStdString();
      }
      if (method == "FIFO") expectValueKept();
    }
    validated += static_cast<int>(OpenRs("SELECT COUNT(*) AS N FROM G_DOCUME").first().integer("N"));
  }
  EXPECT_GT(validated, sequences * 3);  // most steps succeed
}

TEST(SequencesTest, EverythingIsConsistentUnderFifo) { runSequences("FIFO"); }
TEST(SequencesTest, EverythingIsConsistentUnderTheAverage) { runSequences("MP"); }

}  // namespace
}  // namespace velmar
