#include "hearing/Orders.h"
#include "hearing/Links.h"

#include "config/Checks.h"
#include "hearing/Completeness.h"
#include "store/Database.h"
#include "store/Records.h"
#include "util/Clock.h"
#include "util/Errors.h"

namespace velmar {

namespace {

const Table& orders() { return companyTable("G_COMANDA_AUDIO"); }

const QString kPartners = QStringLiteral(
    "SELECT COD, NUME FROM kt_ter WHERE TIP = 'C' OR TIP = 'M' ORDER BY NUME NULLS FIRST, COD");

// What stays as it is while the order is on an invoice.
const QStringList kBilled = {"ID_Pacient",    "ID_Doctor",   "ID_CAS",       "ID_PunctLucru",
                             "ID_Dispozitiv", "PretLivrare", "PretReferinta"};

void requireComplete(const Row& order) {
  Completeness(order)
      .require("Nr", ": Nr Comanda")
      .require("ID_Pacient", ": Pacient")
      .require("ID_Doctor", ": Doctor")
      .require("ID_CAS", ": CAS")
      .require("GradHipoacuzie", ": Grad Hipoacuzie")
      .require("ID_Dispozitiv", ": Dispozitiv")
      .require("NrDecizie", ": Nr. Decizie")
      .require("NrCarnetAsigurat", ": Nr. Carnet Asigurat")
      .require("NrCertificatGarantie", ": Nr. Certificat Garantie")
      .check();
}

Row stored(const Row& order) {
  requireComplete(order);
  Row row = ofTable(orders(), order);
  for (const char* column : {"Nr", "GradHipoacuzie"}) row.set(column, row.text(column).trimmed().toUpper());
  for (const char* column : {"PretLivrare", "PretReferinta"})
    row.set(column, storedMoney(numberIn(row, column, QStringLiteral("Va rog introduceti o valoare numerica"))
                                    .value_or(Decimal(0))));
  return row;
}

void requireKnownCodes(const Row& changed) {
  for (const char* column : {"ID_Pacient", "ID_Doctor", "ID_CAS", "ID_PunctLucru"})
    if (changed.has(column)) requireKnownCode(changed, column, "CodTert");
  if (changed.has("ID_Dispozitiv") && !ArticolExista(changed.text("ID_Dispozitiv")))
    throw RuleError(QStringLiteral("Articolul %1 nu mai exista !").arg(changed.text("ID_Dispozitiv")),
                    "ID_Dispozitiv");
}

void requireFree(const Row& order, qint64 own) {
  if (!OpenRs("SELECT ID_Comanda FROM G_COMANDA_AUDIO WHERE Nr = ? AND Data = ? AND ID_Comanda <> ?",
              {order.text("Nr"), order.date("Data"), own})
           .isEmpty())
    throw RuleError(QStringLiteral("Comanda mai exista"), "Nr");
}

// The columns to be written must not have changed since they were shown.
void requireUnchanged(const Row& changed, const Row& current, const Row& shown) {
  const QStringList conflicts = differing(changed.columns(), current, shown);
  if (!conflicts.isEmpty())
    throw ChangedMeanwhile(QStringLiteral("Comanda %1 a fost modificata intre timp de alt utilizator ! Fisa "
                                          "arata acum valorile lui; verificati si salvati din nou.")
                               .arg(current.text("Nr")),
                           current, conflicts);
}

void requireNotBilled(const Row& changed, qint64 order) {
  for (const QString& column : kBilled) {
    if (!changed.has(column)) continue;
    if (const QString invoice = invoiceWithOrder(order); !invoice.isEmpty())
      throw RuleError(QStringLiteral("Comanda este pe factura %1. Dispozitivul, preturile si partile nu se "
                                     "mai pot modifica !")
                          .arg(invoice),
                      column);
    return;
  }
}

std::vector<AudiogramPoint> points(int first, int count, const std::function<int(int)>& next) {
  std::vector<AudiogramPoint> all;
  for (int at = first; count > 0; at = next(at), --count) all.push_back({at, QStringLiteral("C%1").arg(at)});
  return all;
}

// The key of what an order of the list must name, and its name.
struct Joined {
  const char* key;
  const char* name;
};
constexpr Joined kJoined[] = {{"A.CODART", "dispozitivul"},
                              {"T.COD", "casa de asigurari"},
                              {"P.COD", "pacientul"},
                              {"D.COD", "doctorul"}};

QString missingExpression() {
  QString names = QStringLiteral("''");
  for (const Joined& each : kJoined)
    names += QStringLiteral(" || CASE WHEN %1 IS NULL THEN '%2 ' ELSE '' END")
                 .arg(QLatin1String(each.key), QLatin1String(each.name));
  return QStringLiteral("TRIM(%1)").arg(names);
}

// The orders with what they name.
const QString kJoins = QStringLiteral(
    "G_COMANDA_AUDIO C %1 JOIN G_ARTMAG A ON A.CODART = C.ID_Dispozitiv %1 JOIN kt_ter T ON T.COD = "
    "C.ID_CAS %1 JOIN kt_ter P ON P.COD = C.ID_Pacient %1 JOIN kt_ter D ON D.COD = C.ID_Doctor LEFT JOIN "
    "kt_ter W ON W.COD = C.ID_PunctLucru");

QStringList joinedKeys() {
  QStringList keys;
  for (const Joined& each : kJoined) keys.append(QLatin1String(each.key));
  return keys;
}

}  // namespace

const ListQuery kAudioOrders = joinedList(
    QStringLiteral(
        "C.ID_Comanda, C.IsImport, C.Data, C.Nr, C.ID_Pacient, P.NUME AS Pacient, C.ID_CAS, T.NUME AS CAS, "
        "C.ID_Doctor, D.NUME AS Doctor, C.ID_PunctLucru, W.NUME AS PunctLucru, C.ID_Dispozitiv, A.DENART AS "
        "Articol, C.GradHipoacuzie, C.UrecheaDreapta, CASE WHEN C.UrecheaDreapta <> 0 THEN 'Dreapta' ELSE "
        "'Stanga' END AS Ureche, C.PretLivrare, C.PretReferinta, C.PretLivrare - C.PretReferinta AS "
        "Diferenta, C.SerieDispozitiv, C.TipOliva, C.NrCarnetAsigurat, C.NrCertificatGarantie, "
        "C.DataCertificatGarantie, C.NrDecizie, C.DataDecizie, C.Fisier, C.DataImport"),
    kJoins, joinedKeys(), QStringLiteral("C.ID_Comanda"));

const ListQuery kHiddenAudioOrders{
    QStringLiteral("C.ID_Comanda, C.Nr, C.Data, C.ID_Dispozitiv, %1 AS Lipseste").arg(missingExpression()),
    kJoins.arg(QStringLiteral("LEFT")) +
        QStringLiteral(" WHERE %1 IS NULL").arg(joinedKeys().join(QStringLiteral(" IS NULL OR "))),
    QStringLiteral("C.ID_Comanda")};

bool isHiddenOrder(qint64 order) {
  return countOf(database(), kHiddenAudioOrders, {QStringLiteral("ID_Comanda = ?"), {order}}) > 0;
}

QList<FilterField> audioOrderFilter() {
  QList<FilterField> fields = filterFields(orders(),
                                           {{"Fisier", "FISIER IMPORT"},
                                            {"IsImport", "ESTE IMPORT"},
                                            {"ID_CAS", "CAS"},
                                            {"ID_Pacient", "PACIENT"},
                                            {"ID_Doctor", "DOCTOR"},
                                            {"ID_PunctLucru", "PUNCT DE LUCRU"},
                                            {"ID_Dispozitiv", "DISPOZITIV"},
                                            {"UrecheaDreapta", "URECHEA"},
                                            {"PretLivrare", "PRET LIVRARE"},
                                            {"PretReferinta", "PRET REFERINTA"},
                                            {"DataCertificatGarantie", "DATA CERTIFICAT GARANTIE"},
                                            {"GradHipoacuzie", "GRAD HIPOACUZIE"},
                                            {"NrCarnetAsigurat", "NR CARNET ASIGURAT"},
                                            {"NrCertificatGarantie", "NR CERTIFICAT GARANTIE"},
                                            {"NrDecizie", "NR DECIZIE"},
                                            {"SerieDispozitiv", "SERIE DISPOZITIV"},
                                            {"TipOliva", "TIP OLIVA"}},
                                           {"ID_Comanda"});
  const QString persons =
      QStringLiteral("SELECT COD, NUME FROM kt_ter WHERE TIP = '%1' ORDER BY NUME NULLS FIRST, COD");
  offerChoices(fields, "ID_CAS", kPartners);
  offerChoices(fields, "ID_PunctLucru", kPartners);
  offerChoices(fields, "ID_Pacient", persons.arg(QStringLiteral("P")));
  offerChoices(fields, "ID_Doctor", persons.arg(QStringLiteral("D")));
  offerChoices(fields, "ID_Dispozitiv",
               "SELECT CODART, DENART FROM G_ARTMAG ORDER BY DENART NULLS FIRST, CODART");
  offerFlag(fields, "IsImport", "Da", "Nu");
  offerFlag(fields, "UrecheaDreapta", "Dreapta", "Stanga");
  return fields;
}

Row storedOrder(qint64 order) { return record(orders(), order); }

Row newOrder() {
  Row row = orders().emptyRow();
  for (const char* date : {"Data", "DataDecizie", "DataCertificatGarantie"}) row.set(date, clock::today());
  for (const char* price : {"PretLivrare", "PretReferinta"}) row.set(price, Decimal(0));
  row.set("UrecheaDreapta", false);
  row.set("IsImport", false);
  return row;
}

qint64 addOrder(const Row& order) {
  Row row = stored(order);
  requireKnownCodes(row);
  Transaction transaction(database());
  requireFree(row, 0);
  const qint64 key = insertNumbered(orders(), row);
  insertAudiogram(Audiogram::Speech, key, {}, {});
  insertAudiogram(Audiogram::Tone, key, {}, {});
  transaction.commit();
  return key;
}

void saveOrder(const Row& order, const Row& shown) {
  const qint64 key = shown.integer("ID_Comanda");
  const Row given = stored(order);
  QStringList columns = given.columns();
  if (!given.has("ID_Comanda")) columns.append(QStringLiteral("ID_Comanda"));
  Row written = changesOf(orders(), rowOf(columns, given), shown);
  written.set("ID_Comanda", key);
  requireKnownCodes(written);
  Transaction transaction(database());
  const Row current = storedOrder(key);
  if (current.isEmpty()) throw gone();
  requireUnchanged(written, current, shown);
  requireNotBilled(written, key);
  requireFree(given, key);
  if (written.columns().size() > 1) updateRecord(orders(), written);
  transaction.commit();
}

void removeOrder(qint64 order) {
  Transaction transaction(database());
  if (const QString invoice = invoiceWithOrder(order, MarkedLinks::Count); !invoice.isEmpty())
    throw RuleError(QStringLiteral("Comanda este pe factura %1. Nu poate fi stearsa !").arg(invoice));
  if (!deleteRecord(orders(), order)) throw gone();
  for (const Audiogram kind : {Audiogram::Speech, Audiogram::Tone})
    database().execute(QStringLiteral("DELETE FROM %1 WHERE ID_Comanda = ?").arg(audiogramTable(kind)),
                       {order});
  transaction.commit();
}

DevicePrices devicePrices(const QString& device) {
  const Recordset found =
      OpenRs("SELECT PretVanzare, CompensareCAS FROM G_ARTMAG WHERE CODART = ?", {device});
  if (found.isEmpty()) return {};
  return {found.first().decimal("PretVanzare"), found.first().decimal("CompensareCAS")};
}

QString audiogramTable(Audiogram kind) {
  return kind == Audiogram::Tone ? QStringLiteral("G_AudiogramaTonala")
                                 : QStringLiteral("G_AudiogramaVocala");
}

const std::vector<AudiogramPoint>& audiogramPoints(Audiogram kind) {
  static const auto tone = points(125, 7, [](int at) { return 2 * at; });
  static const auto speech = points(0, 21, [](int at) { return at + 5; });
  return kind == Audiogram::Tone ? tone : speech;
}

Recordset audiogram(Audiogram kind, qint64 order) {
  return OpenRs(QStringLiteral("SELECT * FROM %1 WHERE ID_Comanda = ? ORDER BY UrecheaDreapta DESC")
                    .arg(audiogramTable(kind)),
                {order});
}

void storeAudiogramPoint(Audiogram kind, qint64 order, bool isRight, const QString& column,
                         const std::optional<Decimal>& value) {
  if (ExecutaSql(QStringLiteral("UPDATE %1 SET %2 = ? WHERE ID_Comanda = ? AND UrecheaDreapta = ?")
                     .arg(audiogramTable(kind), column),
                 {value ? Value(*value) : Value(), order, isRight}) == 0)
    throw gone();
}

void insertAudiogram(Audiogram kind, qint64 order, const std::vector<std::optional<Decimal>>& left,
                     const std::vector<std::optional<Decimal>>& right) {
  QStringList columns{"ID_Comanda", "UrecheaDreapta", "Urechea"};
  for (const AudiogramPoint& point : audiogramPoints(kind)) columns.append(point.column);
  const auto row = [&](bool isRight, const std::vector<std::optional<Decimal>>& values) {
    Values cells{order, isRight, isRight ? "Dreapta" : "Stanga"};
    for (const auto& value : values) cells.push_back(value ? Value(*value) : Value());
    cells.resize(static_cast<size_t>(columns.size()));
    return cells;
  };
  database().insertRows(audiogramTable(kind), columns, {row(false, left), row(true, right)});
}

}  // namespace velmar
