// The stock of an article in a warehouse must cost the same whatever its history: 10 movements or 100,000.
#include "Benches.h"
#include "stock/Availability.h"
#include "store/Database.h"

namespace velmar::bench {

namespace {

constexpr double kGrowthAim = 1.2;
constexpr int kFew = 10;
constexpr int kMany = 100'000;
constexpr int kLinesOfDocument = 100;
constexpr int kBlocks = 50;
constexpr int kQuestions = 200;
const QString kYoung = QStringLiteral("A000001");
const QString kOld = QStringLiteral("A000002");

// Receipts of 2 and issues of 1, alternately, in documents of up to 100 lines.
void move(const QString& article, int movements) {
  for (int done = 0, document = 0; done < movements; ++document) {
    const bool isReceipt = document % 2 == 0;
    const QString key = QStringLiteral("%1%2-%3").arg(isReceipt ? "BI" : "FC", article).arg(document);
    ExecutaSql("INSERT INTO G_DOCUME (ID, TIP, TIPIE, DATADOC, CODMAG) VALUES (?, ?, ?, ?, 1)",
               {key, key.left(2), isReceipt ? "I" : "E", QDate(2026, 3, 1)});
    std::vector<Values> lines;
    const int count = std::min({kLinesOfDocument, movements - done, movements / 2});
    for (int line = 1; line <= count; ++line)
      lines.push_back({key, line, article, 1, isReceipt ? 2 : 1, isReceipt ? 1 : 0});
    database().insertRows("G_LDOCUM", {"DOCID", "LINIE", "ARTID", "CODMAG", "CANT", "CANTRAMASA"}, lines);
    done += count;
  }
}

}  // namespace

bool measureStock(Store store) {
  const OpenCompany company(copyOfCompany(store, CompanySize::EmptyLedger, QStringLiteral("stoc.mdb")));
  {
    progress(QStringLiteral("Se scriu %1 de miscari ale unui articol").arg(kMany));
    Transaction transaction(database());
    move(kYoung, kFew);
    move(kOld, kMany);
    transaction.commit();
  }
  bool held = true;
  const auto asked = [&held](const QString& article, int movements) {
    return timed([&] {
      for (int i = 0; i < kQuestions; ++i)
        held = held && warehouseStock({article}, 1).of(article) == Decimal(movements / 2);
    });
  };
  asked(kYoung, kFew);
  asked(kOld, kMany);
  Times few, many;
  for (int block = 0; block < kBlocks; ++block) {
    few.add(asked(kYoung, kFew) / kQuestions);
    many.add(asked(kOld, kMany) / kQuestions);
  }
  const double growth = many.median() / few.median();
  printHeading(store, QStringLiteral("stock: stocul unui articol din magazie"),
               {QStringLiteral("10 miscari"), QStringLiteral("100.000"), QStringLiteral("raport"),
                QStringLiteral("tinta")});
  printRow(QStringLiteral("un articol"), {QString::number(few.median(), 'f', 4) + QStringLiteral(" ms"),
                                          QString::number(many.median(), 'f', 4) + QStringLiteral(" ms"),
                                          ratio(growth, kGrowthAim), QStringLiteral("<= 1.2")});
  printRow(QStringLiteral("stocul asteptat"),
           {held ? QStringLiteral("in regula") : QStringLiteral("GRESIT")});
  return held;
}

}  // namespace velmar::bench
