// Spreadsheets of suppliers: 10,000 rows into the lines of an invoice, of new articles and of known ones,
// compared with bare statements that write the same rows: an insert for each line and each new article, an
// update of each known article.
#include <QTemporaryDir>

#include "Bare.h"
#include "Benches.h"
#include "documents/SheetImport.h"
#include "store/Database.h"
#include "util/SheetFile.h"

namespace velmar::bench {

namespace {

constexpr double kAim = 4;
constexpr int kRows = 10'000;
constexpr int kRoundsOfImport = 5;
const QString kNumber = QStringLiteral("77");

QString codeOf(int row) { return QStringLiteral("NOU%1").arg(row, 6, 10, QLatin1Char('0')); }

void writeFile(const QString& path) {
  using Kind = SheetColumn::Kind;
  const QList<SheetColumn> columns = {{"COD"},
                                      {"DENUMIRE"},
                                      {"DENUMIRE2"},
                                      {"PRET", Kind::Number},
                                      {"CANTITATE", Kind::Number},
                                      {"ADAOS", Kind::Number}};
  writeSheet(path, columns, kRows, [](int row, int column) -> QVariant {
    switch (column) {
      case 0:
        return codeOf(row);
      case 1:
        return QStringLiteral("Articolul cu numarul %1").arg(row);
      case 2:
        return QStringLiteral("Article number %1").arg(row);
      case 3:
        return 10.5 + row;
      default:
        return column == 4 ? QVariant(3) : QVariant(0.25);
    }
  });
}

void removeImported(bool withArticles) {
  ExecutaSql("DELETE FROM G_LFACFU WHERE NUMFAC = ?", {kNumber});
  if (withArticles)
    ExecutaSql("DELETE FROM G_ARTMAG WHERE CODPRODFUR LIKE 'NOU%'");
  else
    ExecutaSql("UPDATE G_ARTMAG SET DENALTALIMBA = NULL WHERE CODPRODFUR LIKE 'NOU%'");
}

void writeDirectly(BareConnection& connection, bool withArticles) {
  BareStatement article = connection.prepare(
      "INSERT INTO G_ARTMAG (ID, CODMAGAZIE, CODART, CODPRODFUR, DENART, PROVENIENTA, UM, FAMART, COSTDEV, "
      "PRETDEVIZAVANZ, CODFURNIZO, COTATVA, DENALTALIMBA) VALUES (?, 1, ?, ?, ?, 'M', 'BUC', 1, ?, ?, 1, 19, "
      "?)");
  BareStatement rename = connection.prepare("UPDATE G_ARTMAG SET DENALTALIMBA = ? WHERE CODART = ?");
  BareStatement line = connection.prepare(
      "INSERT INTO G_LFACFU (NUMFAC, NRLINIE, CODART, DENUMIRE, UM, CANT, PRETVA, VALOAREFT, PRETFT, "
      "VALOARETVA, VALOARETTI) VALUES ('77', ?, ?, ?, 'Buc', ?, ?, ?, ?, ?, ?)");
  connection.beginWrite();
  for (int row = 0; row < kRows; ++row) {
    const std::string code = codeOf(row).toStdString();
    const std::string name = "Articolul cu numarul " + std::to_string(row);
    const std::string otherName = "Article number " + std::to_string(row);
    const double price = 10.5 + row, value = price * 3, vat = value * 0.19;
    if (withArticles)
      article.bind(1, 1'000'000 + row)
          .bind(2, code)
          .bind(3, code)
          .bind(4, name)
          .bind(5, price)
          .bind(6, price * 1.25)
          .bind(7, otherName)
          .run();
    else
      rename.bind(1, otherName).bind(2, code).run();
    line.bind(1, row + 1)
        .bind(2, code)
        .bind(3, name)
        .bind(4, 3)
        .bind(5, price * 1.25)
        .bind(6, value)
        .bind(7, price)
        .bind(8, vat)
        .bind(9, value + vat)
        .run();
  }
  connection.run("COMMIT");
}

}  // namespace

bool measureSheetImport(Store store) {
  printHeading(store, QStringLiteral("sheetimport: 10.000 de randuri dintr-un fisier .xlsx"),
               {"Velmar", "direct", "raport", "tinta"});
  const QString path = copyOfCompany(store, CompanySize::EmptyLedger, QStringLiteral("SheetImport.mdb"));
  const QTemporaryDir folder;
  const QString file = folder.filePath(QStringLiteral("preturi.xlsx"));
  writeFile(file);
  bool held = true;
  {
    const OpenCompany company(path);
    ExecutaSql("DELETE FROM G_FAMART WHERE COD = 1");
    ExecutaSql("INSERT INTO G_FAMART (COD, DENUMIRE) VALUES (1, 'Marfuri')");
    ExecutaSql(
        "INSERT INTO G_FACFUR (NUMFAC, DATAFAC, CODFUR, BATVA1, Magazie, VALIDAT) VALUES (?, '2026-03-01', "
        "1, "
        "1, 1, 0)",
        {kNumber});
    LineImport choice;
    choice.number = kNumber;
    choice.family = QStringLiteral("1");
    choice.codeIsSuppliers = true;
    BareConnection connection(path);
    for (const bool areNew : {true, false}) {
      Times own, direct;
      for (int round = 0; round < kRoundsOfImport; ++round) {
        removeImported(areNew);
        direct.add(timed([&] { writeDirectly(connection, areNew); }));
        removeImported(areNew);
        own.add(timed([&] { held = importLines(choice, file).isEmpty() && held; }));
        held = OpenRs("SELECT 1 AS FOUND FROM G_LFACFU WHERE NUMFAC = ?", {kNumber}).size() == kRows && held;
      }
      const QString name = areNew ? QStringLiteral("articole noi") : QStringLiteral("articole cunoscute");
      const double value = own.median() / direct.median();
      printRow(name, {milliseconds(own.median()), milliseconds(direct.median()), ratio(value, kAim),
                      QStringLiteral("<= %1").arg(kAim)});
      noteRatio(QStringLiteral("sheetimport: ") + name, store, value, kAim);
    }
  }
  removeCompany(path);
  return held;
}

}  // namespace velmar::bench
