#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <csignal>
#include <QTemporaryDir>
#include <random>

#include "Desk.h"
#include "documents/Workstations.h"
#include "einvoice/PurchaseFiles.h"
#include "util/Clock.h"

namespace velmar {

namespace {

QByteArray fileOf(const QString& document) {
  EInvoiceSource source;
  source.read({document});
  return eInvoiceXml(source.make(document).invoice);
}

QString put(const QTemporaryDir& folder, const QString& name, const QByteArray& content) {
  QFile file(folder.filePath(name));
  EXPECT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(content);
  return file.fileName();
}

QStringList states() {
  QStringList all;
  for (const Row& row : lastPurchases()) all.append(row.text("STARE"));
  return all;
}

// What this company sold is what the buyer receives: the same base and VAT, in the buyer's drafts.
TEST(Purchases, WhatWasSoldIsWhatIsTakenOver) {
  const Desk desk;
  ExecutaSql("UPDATE kt_par SET JURFACFUR = 'JC'");
  for (const char* code : {"A1", "A2"}) desk.receive(code, code, "1000");
  std::mt19937 random(7);
  const auto below = [&random](unsigned n) { return static_cast<unsigned>(random() % n); };
  QTemporaryDir folder;
  QStringList paths;
  std::vector<std::pair<Decimal, Decimal>> sold;
  for (int i = 1; i <= 30; ++i) {
    std::vector<TypedLine> lines;
    for (const char* code : {"A1", "A2", "5941234567899"})
      if (code != std::string("5941234567899") && (lines.empty() || below(2) == 0))
        lines.push_back(
            sold.size() % 7 == 3 && i > 3
                ? velmar::sold(code, "-1", "1")
                : velmar::sold(
                      code, QString::number(1 + below(9)),
                      QStringLiteral("%1.%2").arg(below(90) + 1).arg(below(100), 2, 10, QChar('0'))));
    const QString document = desk.invoice(QString::number(i), {{"OBS", "FC1"}}, lines);
    paths.append(put(folder, document + ".xml", fileOf(document)));
    const Row ledger = OpenRs("SELECT TOTALFT, TOTALTVA FROM G_DOCUME WHERE ID = ?", {document}).first();
    sold.emplace_back(Round(ledger.decimal("TOTALFT"), 2), Round(ledger.decimal("TOTALTVA"), 2));
  }
  // The company becomes its own buyer.
  Desk::buyer(desk.supplier, "CODFISCAL = 'RO1590082'");
  Desk::identity("CODFISCAL = 'RO 13548146'");
  ExecutaSql("UPDATE G_ARTMAG SET CODPRODFUR = CODART, CODFURNIZO = ?", {desk.supplier});
  readPurchases(paths);
  const Recordset read = lastPurchases();
  ASSERT_EQ(read.size(), paths.size());
  PurchaseSource source;
  for (int i = 0; i < read.size(); ++i) {
    const Purchase purchase = storedPurchase(read[i].integer("ID"), source);
    ASSERT_EQ(missingIn(purchase, source), QStringList()) << i;
    EXPECT_TRUE(differenceOf(purchase, source).isZero());
    const QString number = takeOver(purchase, source).first();
    const Row made =
        OpenRs("SELECT SUM(VALOAREFT) AS V, SUM(VALOARETVA) AS T FROM G_LFACFU WHERE NUMFAC = ?", {number})
            .first();
    EXPECT_EQ(Round(made.decimal("V"), 2), sold[static_cast<size_t>(i)].first);
    EXPECT_EQ(Round(made.decimal("T"), 2), sold[static_cast<size_t>(i)].second);
    EXPECT_THROW(takeOver(purchase, source), RuleError);
  }
  readPurchases(paths);
  EXPECT_EQ(states().count(received::kTaken), paths.size());
  // A draft that was deleted can be taken over again.
  ExecutaSql("DELETE FROM G_LFACFU WHERE NUMFAC = 'VLM1'");
  ExecutaSql("DELETE FROM G_FACFUR WHERE NUMFAC = 'VLM1'");
  readPurchases({paths.first()});
  EXPECT_EQ(states(), QStringList(received::kToTake));
  // A file of an earlier reading, compressed or not, is parsed again from what is stored.
  QFile second(paths[1]);
  ASSERT_TRUE(second.open(QIODevice::ReadOnly));
  const QByteArray content = second.readAll();
  const qint64 id = read[1].integer("ID");
  EXPECT_EQ(purchaseFile(id), content);
  EXPECT_EQ(storedPurchase(id, source).number, "VLM2");
  ExecutaSql("UPDATE G_EFACTURAPRIM SET CONTINUT = ? WHERE ID = ?",
             {QString::fromLatin1(content.toBase64()), id});
  EXPECT_EQ(purchaseFile(id), content);
}

// Files with changed, missing and repeated bytes are refused or read; nothing is half taken.
TEST(Purchases, DamagedFilesAreRefused) {
  const Desk desk;
  ExecutaSql("UPDATE kt_par SET JURFACFUR = 'JC'");
  desk.receive("1", "A1", "1000");
  desk.invoice("1", {}, {sold("A1", "3", "33.33")});
  const QByteArray whole = fileOf("FC1");
  Desk::identity("CODFISCAL = 'RO 13548146'");
  std::mt19937 random(11);
  QTemporaryDir folder;
  QStringList paths;
  const int count = qEnvironmentVariableIntValue("VELMAR_DAMAGED_FILES") + 60;
  for (int i = 0; i < count; ++i) {
    QByteArray file = whole;
    for (int n = 1 + static_cast<int>(random() % 4); n > 0 && !file.isEmpty(); --n) {
      const qsizetype at = static_cast<qsizetype>(random() % static_cast<unsigned>(file.size()));
      const qsizetype length = static_cast<qsizetype>(random() % 60);
      switch (random() % 4) {
        case 0:
          file[at] = static_cast<char>(random() % 256);
          break;
        case 1:
          file.remove(at, length);
          break;
        case 2:
          file.insert(
              at, file.mid(static_cast<qsizetype>(random() % static_cast<unsigned>(file.size())), length));
          break;
        default:
          file.truncate(at);
      }
    }
    paths.append(put(folder, QStringLiteral("%1.xml").arg(i), file));
  }
  const auto count_of = [](const char* table) {
    return OpenRs(QStringLiteral("SELECT COUNT(*) AS N FROM %1").arg(table)).first().integer("N");
  };
  const auto books = [&] {
    return count_of("G_FACFUR") + count_of("G_LFACFU") + count_of("kt_ter") + count_of("G_ARTMAG");
  };
  const qint64 before = books();
  readPurchases(paths);
  EXPECT_EQ(books(), before);
  EXPECT_FALSE(states().contains(received::kTaken));
  EXPECT_GT(states().count(received::kRefused), count / 2);
}

// Amounts by hand: a charge, an unknown rate, a currency without and with a rate, a number of another
// supplier.
TEST(Purchases, SaysWhatIsMissing) {
  const Desk desk;
  ExecutaSql("UPDATE kt_par SET JURFACFUR = 'JC'");
  desk.receive("1", "A1", "1000");
  desk.invoice("1", {{"chkDeviza", "-1"}, {"CODDeviza", "EUR"}, {"Curs", "5"}}, {sold("A1", "3", "33.33")});
  const QByteArray euro = fileOf("FC1");
  Desk::buyer(desk.supplier, "CODFISCAL = 'RO1590082'");
  Desk::identity("CODFISCAL = '13548146', TVAINCASARE = 0");
  ExecutaSql("DELETE FROM kt_val2");
  ExecutaSql("UPDATE G_ARTMAG SET CODPRODFUR = CODART, CODFURNIZO = ?", {desk.supplier});
  QTemporaryDir folder;
  const QStringList paths{put(folder, "euro.xml", euro)};
  readPurchases(paths);
  EXPECT_EQ(states(), QStringList(received::kIncomplete));
  EXPECT_THAT(lastPurchases().first().text("LIPSESTE").toStdString(), testing::HasSubstr("cursul EUR"));
  ExecutaSql("INSERT INTO kt_val2 (COD, DATA, CURS) VALUES ('EUR', ?, 4.97)", {clock::today()});
  // The number is another supplier's.
  ExecutaSql("INSERT INTO G_FACFUR (NUMFAC, CODFUR, VALIDAT) VALUES ('VLM1', ?, 0)", {desk.customer});
  readPurchases(paths);
  PurchaseSource source;
  const Purchase purchase = storedPurchase(lastPurchases().first().integer("ID"), source);
  Purchase free = purchase;
  free.invoice.lines.front().value = 0;
  EXPECT_TRUE(remarksOn(free, source).first().startsWith("Articolul A1 are pretul 0"));
  EXPECT_EQ(takeOver(purchase, source), QStringList(QStringLiteral("VLM1/F%1").arg(desk.supplier)));
  // 99.99 EUR are 496.95 lei; VAT of 19.00 EUR is 94.43.
  const Row made = OpenRs("SELECT VALOAREFT, VALOARETVA FROM G_LFACFU WHERE NUMFAC LIKE 'VLM1/F%'").first();
  EXPECT_EQ(made.decimal("VALOAREFT"), *Decimal::parse(QStringLiteral("496.95")));
  EXPECT_EQ(made.decimal("VALOARETVA"), *Decimal::parse(QStringLiteral("94.43")));
}

// Texts that differ only after what the column of the key holds are choices of their own.
TEST(Purchases, ChoicesOfLongTexts) {
  const Desk desk;
  ReceivedInvoice invoice;
  QStringList chosen;
  PurchaseSource source;
  Transaction transaction(database());
  for (const int length : {97, 98, 99, 100, 300})
    for (const bool hasCode : {false, true})
      for (const char* article : {"A1", "A2"}) {
        ReceivedLine line;
        line.name = QString(length - 2, u'p') + article;
        if (hasCode) line.code = line.name;
        source.choose(desk.supplier, line, article);
        invoice.lines.push_back(line);
        chosen.append(article);
      }
  transaction.commit();
  EXPECT_EQ(source.articlesOf(desk.supplier, invoice), chosen);
  EXPECT_EQ(PurchaseSource().articlesOf(desk.supplier, invoice), chosen);
}

// Of two workstations that take a file over one gets it; a killed one leaves all of its drafts or none.
TEST(Purchases, WorkstationsAndKills) {
  const Desk desk;
  ExecutaSql("UPDATE kt_par SET JURFACFUR = 'JC'");
  desk.receive("1", "A1", "1000");
  QTemporaryDir folder;
  QStringList paths;
  constexpr int kFiles = 24;
  for (int i = 1; i <= kFiles; ++i)
    paths.append(put(folder, QStringLiteral("%1.xml").arg(i),
                     fileOf(desk.invoice(QString::number(i), {}, {sold("A1", "3", "33.33")}))));
  Desk::buyer(desk.supplier, "CODFISCAL = 'RO1590082'");
  Desk::identity("CODFISCAL = '13548146'");
  ExecutaSql("UPDATE G_ARTMAG SET CODPRODFUR = CODART, CODFURNIZO = ?", {desk.supplier});
  readPurchases(paths);
  std::vector<qint64> ids;
  for (const Row& row : lastPurchases()) ids.push_back(row.integer("ID"));
  const auto take = [](qint64 id) {
    PurchaseSource source;
    try {
      takeOver(storedPurchase(id, source), source);
    } catch (const RuleError& error) {
      if (!error.text().contains("exista deja")) throw;
    }
  };
  allAtOnce(desk.company.path(), 2, [&](int) {
    for (size_t i = 0; i < 4; ++i) take(ids[i]);
  });
  EXPECT_EQ(OpenRs("SELECT NUMFAC FROM G_FACFUR WHERE CODFUR = ? AND VALIDAT = 0", {desk.supplier}).size(),
            4);
  std::mt19937 random(5);
  for (size_t i = 4; i < ids.size(); ++i)
    killedAfter(desk.company.path(), static_cast<int>(random() % 30000), [&] { take(ids[i]); });
  const auto taken = [](const char* where) {
    return OpenRs(
               QStringLiteral(
                   "SELECT F.ID FROM G_EFACTURAPRIM F LEFT JOIN G_FACFUR H ON H.NUMFAC = F.NUMAR LEFT JOIN "
                   "G_LFACFU L ON L.NUMFAC = H.NUMFAC WHERE ") +
               where)
        .size();
  };
  EXPECT_EQ(taken("F.STARE = 'preluata' AND (H.NUMFAC IS NULL OR L.NUMFAC IS NULL)"), 0);
  EXPECT_EQ(taken("F.STARE <> 'preluata' AND (H.NUMFAC IS NOT NULL OR L.NUMFAC IS NOT NULL)"), 0);
}

}  // namespace

}  // namespace velmar
