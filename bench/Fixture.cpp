#include "Fixture.h"

#include <malloc.h>
#include <algorithm>
#include <cstdio>
#include <cstring>
#include <map>
#include <memory>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include "Bare.h"
#include "config/Session.h"
#include "DraftFill.h"
#include "store/CompanyCopy.h"
#include "store/Database.h"
#include "store/DatabaseFiles.h"
#include "store/PostgresEngine.h"
#include "TestServer.h"
#include "TradeFill.h"
#include "util/Clock.h"
#include "util/Errors.h"
#include "util/FileNames.h"

namespace velmar::bench {

namespace {

const QDate kToday(2026, 3, 15);
constexpr int kCatalogue = 10'000;
constexpr int kNameColumn = 44;
constexpr int kCellColumn = 14;

// Many article names that begin with a few words, as in real catalogues.
constexpr const char* kFillArticles =
    "WITH RECURSIVE n (i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < ?), "
    "kind (k, word) AS (VALUES (0, 'Scaun'), (1, 'Masa'), (2, 'Surub M8'), (3, 'Cablu electric'), "
    "(4, 'Vopsea lavabila'), (5, 'Teava PVC'), (6, 'Baterie'), (7, 'Robinet'), (8, 'Piulita'), "
    "(9, 'Adeziv faianta'), (10, 'Lampa'), (11, 'Usa interior'), (12, 'Zugraveala')) "
    "INSERT INTO G_ARTMAG (CODART, ID, CODPRODFUR, DENART, DenAltaLimba, CODMAGAZIE, FAMART, PROVENIENTA, "
    "UM, "
    "CODFURNIZO, COTATVA, COST, PRETVFT, PRETVTTI, ADAOS, STOC, PALET) "
    "SELECT printf('A%06d', i), i, printf('F-%d-%d', i % 97, i), word || ' model ' || (i * 7919 % 100000), "
    "'', "
    "1, 1 + i % 4, 'P', 'Buc', 1 + i % 100, 19, 10, 15, 18, 50, 100, ' ' FROM n JOIN kind ON k = i % 13";

constexpr const char* kFillMasters =
    "UPDATE kt_info SET TCOST = 'MP'; "
    "INSERT INTO G_FAMART (COD, DENUMIRE, CONTSTOCMARFA, CONTSTOCPROD, CONTCHELT, CONTVEN) VALUES "
    "(1, 'Mobila', '371', '345', '607', '707'), (2, 'Feronerie', '371', '345', '607', '707'), "
    "(3, 'Semifabricate', '371', '341', '607', '707'), (4, 'Ambalaje', '371', '345', '607', '707'); "
    "INSERT INTO G_MULTIMAGAZIE (COD, DENUMIRE) VALUES (2, 'Magazia 2'), (3, 'Magazia 3') "
    "ON CONFLICT (COD) DO NOTHING; "
    "WITH RECURSIVE n (i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 100) "
    "INSERT INTO kt_ter (COD, NUME, TIP) SELECT i, 'Partener ' || i, 'M' FROM n";

// The prices are multiples of 0.25, so that their products have exactly two decimals with any arithmetic.
constexpr const char* kFillDraftLines =
    "WITH RECURSIVE d (r) AS (SELECT 0 UNION ALL SELECT r + 1 FROM d WHERE r < ?2), "
    "n (j) AS (SELECT 1 UNION ALL SELECT j + 1 FROM n WHERE j < ?1), "
    "v (num, j, art, cant, pret) AS (SELECT ?1 * 1000 + r, j, (r * 613 + ?1 + j * 37) % 10000 + 1, 1 + j % "
    "9, "
    "8 + (r + j) % 20 * 0.25 FROM d, n) "
    "INSERT INTO G_LBONINT (NUMNR, NRLINIE, CODART, DENUMIRE, UM, CANT, QTECOM, PRETFT, VALOAREFT, PRETVA) "
    "SELECT num, j, CODART, DENART, 'Buc', cant, 0, pret, cant * pret, pret * 1.5 FROM v "
    "JOIN G_ARTMAG ON ID = art";

constexpr const char* kFillDraftHeaders =
    "WITH RECURSIVE d (r) AS (SELECT 0 UNION ALL SELECT r + 1 FROM d WHERE r < ?2) "
    "INSERT INTO G_BONINT (NUMNR, Magazie, OBS, DATANR, CODFUR, BATVA) "
    "SELECT ?1 * 1000 + r, 1 + r % 3, 'productie', '2026-03-15', 1 + r % 100, 19 FROM d";

// 50,000 documents of 20 lines over two years, ordered by date; each article occurs in each warehouse. There
// are nearly a million different amounts.
constexpr const char* kFillLedger =
    "WITH RECURSIVE n (i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 50000), "
    "kind (k, tip, tipie) AS (VALUES (0, 'FC', 'E'), (1, 'NR', 'I'), (2, 'BI', 'I')) "
    "INSERT INTO G_DOCUME (ID, TIP, TIPIE, CODTERT, DATADOC, DATAINTROD, TIMP, UTILIZATOR, CODMAG, TOTALFT, "
    "TOTALTVA, TOTALCOST, CODDEV, CURS, TOTALDEV, OBS) "
    "SELECT tip || (1000000 + i), tip, tipie, 1 + i % 100, date('2024-03-15', (i * 730 / 50000) || ' days'), "
    "date('2024-03-15', (i * 730 / 50000) || ' days'), '10:00:00', 'admin', 1 + i % 3, 1000, 190, 800, "
    "'LEI', 0, "
    "0, 'document' FROM n JOIN kind ON k = i % 3; "
    "WITH RECURSIVE n (i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 50000), "
    "kind (k, tip) AS (VALUES (0, 'FC'), (1, 'NR'), (2, 'BI')), "
    "l (j) AS (SELECT 1 UNION ALL SELECT j + 1 FROM l WHERE j < 20) "
    "INSERT INTO G_LDOCUM (DOCID, LINIE, DATA, CODMAG, ARTID, CANT, PRETFT, PRETTTI, PRETDEV, VALTVA, COST, "
    "COSTDEV, VALCOST, VALCOSTDEV, CODTVA, CANTRAMASA, PRETVA) "
    "SELECT tip || (1000000 + i), j, date('2024-03-15', (i * 730 / 50000) || ' days') || ' 10:00:00.000', "
    "1 + i % 3, printf('A%06d', (i * 20 + j) * 2654435761 / 128 % 10000 + 1), 5, 10, 12, 0, 1.9, 8, 0, "
    "(i * 20 + j) * 7919 % 999983 / 100.0, 0, 19, "
    "CASE WHEN k > 0 AND (i + j) % 5 = 0 THEN 2 ELSE 0 END, 15 FROM n JOIN kind ON k = i % 3 JOIN l";

constexpr const char* kFillNotes =
    "WITH RECURSIVE n (i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 50000), "
    "l (j, cont) AS (VALUES (1, '4111'), (2, '707'), (3, '4111'), (4, '4427'), (5, '607'), (6, '371'), "
    "(7, '345'), (8, '711'), (9, '371'), (10, '401')) "
    "INSERT INTO kt_linii (NDI, NRLINIE, JURNAL, DATAINR, CONT, EXPL, DEBIT, CREDIT, DOC, MARCA, COD, PROV, "
    "UTILIZATOR, TIMP, DocExplicatie, TERT, TIPDOC) "
    "SELECT i, j, 'JV' || i % 3, date('2024-03-15', (i * 730 / 50000) || ' days'), cont, 'document', "
    "j % 2 * (i * 7919 + (j + 1) / 2 * 104729) % 999983 / 100.0, "
    "(1 - j % 2) * (i * 7919 + (j + 1) / 2 * 104729) % 999983 / 100.0, 1000000 + i, 1000000 + i, 'LEI', 'G', "
    "'admin', "
    "date('2024-03-15', (i * 730 / 50000) || ' days') || ' 10:00:00.000', 'document', "
    "CASE WHEN cont IN ('4111', '401') THEN 1 + i % 100 END, 'FC' FROM n JOIN l";

constexpr int kGrownCatalogue = 100'000;

// Each partner has its own postings.
constexpr const char* kGrowPartners =
    "WITH RECURSIVE n (i) AS (SELECT 101 UNION ALL SELECT i + 1 FROM n WHERE i < 50000), "
    "kind (k, tip) AS (VALUES (0, 'C'), (1, 'C'), (2, 'F'), (3, 'M')) "
    "INSERT INTO kt_ter (COD, NUME, TIP, ORAS) SELECT i, 'Partener ' || (i * 7919 % 100000), tip, 'Oras ' || "
    "i % 300 FROM n JOIN kind ON k = i % 4; "
    "UPDATE kt_linii SET TERT = 1 + NDI % 50000 WHERE TERT IS NOT NULL";

QString madeFolder(Store store) {
  static std::vector<std::unique_ptr<QTemporaryDir>> folders;
  folders.push_back(std::make_unique<QTemporaryDir>());
  const QString path = folders.back()->path();
  if (store == Store::Server) nameTestServer(path);
  clock::setToday(kToday);
  bringTemplateUpToDate(path);
  return path;
}

QString folder(Store store) {
  static QHash<Store, QString> paths;
  if (!paths.contains(store)) paths.insert(store, madeFolder(store));
  return paths[store];
}

// Filling needs no journal: after a failure the file is discarded.
template <typename Fill>
QString filled(const QString& name, Fill&& fill) {
  makeCompanyFile(folder(Store::Files), name);
  QString path = pathInFolder(folder(Store::Files), name);
  BareConnection connection(path);
  connection.run("PRAGMA journal_mode=OFF; PRAGMA synchronous=OFF; PRAGMA cache_size=-400000; BEGIN");
  fill(connection);
  // With the statistics that a company has once it was closed.
  connection.run(
      "COMMIT; PRAGMA analysis_limit=1000; ANALYZE; PRAGMA synchronous=FULL; PRAGMA journal_mode=WAL");
  return path;
}

void fillMasters(BareConnection& connection, int articles) {
  connection.run(kFillMasters);
  connection.prepare(kFillArticles).bind(1, articles).run();
}

void fillVouchers(BareConnection& connection) {
  for (const int lines : {kSmallDocument, kLargeDocument}) {
    connection.prepare(kFillDraftHeaders).bind(1, lines).bind(2, kDrafts - 1).run();
    connection.prepare(kFillDraftLines).bind(1, lines).bind(2, kDrafts - 1).run();
  }
}

const QString& emptyLedger() {
  static const QString path = filled(QStringLiteral("gol.mdb"), [](BareConnection& connection) {
    fillMasters(connection, kCatalogue);
    fillVouchers(connection);
  });
  return path;
}

const QString& millionLines() {
  static const QString path = filled(QStringLiteral("milion.mdb"), [](BareConnection& connection) {
    progress(QStringLiteral("Se umple registrul cu 1.000.000 de linii"));
    fillMasters(connection, kCatalogue);
    connection.run(kFillLedger);
    connection.run(kFillNotes);
    fillVouchers(connection);
  });
  return path;
}

const QString& grown() {
  static const QString path = filled(QStringLiteral("crescut.mdb"), [](BareConnection& connection) {
    progress(QStringLiteral("Se umple un catalog de 100.000 articole si 50.000 terti"));
    fillMasters(connection, kGrownCatalogue);
    connection.run(kFillLedger);
    connection.run(kFillNotes);
    connection.run(kGrowPartners);
  });
  return path;
}

const QString& trade() {
  static const QString path = filled(QStringLiteral("comert.mdb"), [](BareConnection& connection) {
    fillMasters(connection, kCatalogue);
    fillTrade(connection, kSmallTrade);
    fillDrafts(connection);
  });
  return path;
}

const QString& grownTrade() {
  static const QString path = filled(QStringLiteral("comertmare.mdb"), [](BareConnection& connection) {
    progress(QStringLiteral("Se umple comertul cu 1.000.000 de linii"));
    fillMasters(connection, kCatalogue);
    fillTrade(connection, kLargeTrade);
    fillDrafts(connection);
    fillOldDocuments(connection);
    connection.run(kFillNotes);
  });
  return path;
}

const QString& file(CompanySize size) {
  switch (size) {
    case CompanySize::EmptyLedger:
      return emptyLedger();
    case CompanySize::Grown:
      return grown();
    case CompanySize::Trade:
      return trade();
    case CompanySize::GrownTrade:
      return grownTrade();
    case CompanySize::MillionLines:
      break;
  }
  return millionLines();
}

// The same rows on the server, copied with the program's own function.
QString onServer(const QString& path) {
  QString target = pathInFolder(folder(Store::Server), QFileInfo(path).fileName());
  progress(QStringLiteral("Se copiaza %1 pe server").arg(QFileInfo(path).fileName()));
  copyDatabase(path, target);
  return target;
}

QString original(Store store, CompanySize size) {
  if (store == Store::Files) return file(size);
  static QHash<CompanySize, QString> copies;
  if (!copies.contains(size)) copies.insert(size, onServer(file(size)));
  return copies[size];
}

void printHeading(const QString& title, const QStringList& columns) {
  std::printf("\n");
  printRow(title, columns);
  std::printf("%s\n", qPrintable(QString(kNameColumn + kCellColumn * columns.size(), u'-')));
}

struct Ratio {
  QString name;
  QHash<Store, QString> values;
};
QList<Ratio> ratios;
bool quick = false;

}  // namespace

QString nameOf(Store store) {
  return store == Store::Files ? QStringLiteral("SQLite") : QStringLiteral("PostgreSQL");
}

bool isQuick() { return quick; }

void setQuick() { quick = true; }

bool hasServer() { return !qEnvironmentVariableIsEmpty("VELMAR_TEST_SERVER"); }

QString draftNumber(int lines, int draft) { return QString::number(lines * 1000 + draft); }

QString copyOfCompany(Store store, CompanySize size, const QString& fileName) {
  const QString from = original(store, size);
  QString path = pathInFolder(folder(store), fileName);
  if (const auto server = serverOf(folder(store)))
    postgres::copyDatabase(*server, databaseOnServer(*server, from), databaseOnServer(*server, path));
  else if (!QFile::copy(from, path))
    throw StoreError(0, QStringLiteral("Nu s-a copiat %1").arg(from));
  return path;
}

void removeCompany(const QString& path) {
  removeDatabaseFile(QFileInfo(path).path(), QFileInfo(path).fileName());
}

QString companyWithArticles(Store store, int count) {
  static std::map<std::pair<Store, int>, QString> made;
  const auto known = made.find({store, count});
  if (known != made.end()) return known->second;
  const bool isFile = store == Store::Files;
  QString path = filled(QStringLiteral("articole-%1-%2.mdb").arg(isFile ? "fisier" : "server").arg(count),
                        [count](BareConnection& connection) { fillMasters(connection, count); });
  if (!isFile) {
    const QString copy = onServer(path);
    removeCompany(path);
    path = copy;
  }
  return made.emplace(std::pair(store, count), path).first->second;
}

OpenCompany::OpenCompany(const QString& path) {
  clock::setToday(kToday);
  setOpenDatabase(Database::open(path));
  session() = Session();
  session().gUtilizator = QStringLiteral("admin");
  session().gMagazie = 1;
  InitParaSoc();
  IncarcaSerii();
}

OpenCompany::~OpenCompany() {
  session() = Session();
  setOpenDatabase(nullptr);
}

double memoryOf(const std::function<void()>& work) {
  const auto kibibytes = [](const char* line) {
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly)) return 0.0;
    const QByteArray text = status.readAll();
    return text.mid(text.indexOf(line) + static_cast<qsizetype>(std::strlen(line)))
        .trimmed()
        .split(' ')[0]
        .toDouble();
  };
  malloc_trim(0);
  QFile peak(QStringLiteral("/proc/self/clear_refs"));  // "5" resets the peak
  if (peak.open(QIODevice::WriteOnly)) peak.write("5");
  peak.close();
  const double before = kibibytes("VmRSS:");
  work();
  constexpr double kKibibytes = 1024;
  return (kibibytes("VmHWM:") - before) / kKibibytes;
}

double Times::median() const {
  QList<double> sorted = values_;
  std::sort(sorted.begin(), sorted.end());
  const qsizetype half = sorted.size() / 2;
  return sorted.size() % 2 ? sorted[half] : (sorted[half - 1] + sorted[half]) / 2;
}

double Times::worst() const { return *std::max_element(values_.begin(), values_.end()); }

void printHeading(Store store, const QString& title, const QStringList& columns) {
  printHeading(QStringLiteral("%1, %2").arg(nameOf(store), title), columns);
}

void printRow(const QString& name, const QStringList& cells) {
  QString line = name.leftJustified(kNameColumn);
  for (const QString& cell : cells) line += cell.rightJustified(kCellColumn);
  std::printf("%s\n", qUtf8Printable(line));
  std::fflush(stdout);
}

QString milliseconds(double value) { return QString::number(value, 'f', 2) + QStringLiteral(" ms"); }

QString ratio(double value, double aim) {
  return QString::number(value, 'f', 2) + (value > aim ? QStringLiteral(" !") : QString());
}

void noteRatio(const QString& name, Store store, double value, double aim) {
  auto found =
      std::find_if(ratios.begin(), ratios.end(), [&name](const Ratio& each) { return each.name == name; });
  if (found == ratios.end()) found = ratios.insert(ratios.end(), {name, {}});
  found->values.insert(store, ratio(value, aim));
}

void compare(Store store, const QString& bench, const QString& name, double aim, int rounds,
             const std::function<void()>& ours, const std::function<void()>& bare) {
  Times own, direct;
  for (int round = 0; round < rounds; ++round) {
    direct.add(timed(bare));
    own.add(timed(ours));
  }
  const double times = own.median() / direct.median();
  noteRatio(bench + QStringLiteral(": ") + name, store, times, aim);
  printRow(name, {milliseconds(own.median()), milliseconds(direct.median()), ratio(times, aim),
                  QStringLiteral("<= %1").arg(aim)});
}

void printRatios() {
  if (ratios.isEmpty()) return;
  printHeading(QStringLiteral("raport Velmar / instructiuni directe"),
               {nameOf(Store::Files), nameOf(Store::Server)});
  for (const Ratio& each : ratios)
    printRow(each.name, {each.values.value(Store::Files), each.values.value(Store::Server)});
}

void progress(const QString& text) { std::fprintf(stderr, "%s...\n", qUtf8Printable(text)); }

}  // namespace velmar::bench
