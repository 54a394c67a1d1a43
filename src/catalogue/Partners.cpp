#include "catalogue/Partners.h"

#include <algorithm>

#include "catalogue/Discounts.h"
#include "catalogue/DocumentUse.h"
#include "config/Checks.h"
#include "config/Numbers.h"
#include "config/Session.h"
#include "store/Records.h"
#include "util/Clock.h"

namespace velmar {

namespace {

constexpr int kPartnersAtOnce = 200;

// The partners with these codes that have an account of class 4, with the balance of the last one.
const QString kBalances = QStringLiteral(
    "SELECT A.COD, A.SOLD, (SELECT ROUND_EVEN(SUM(L.DEBIT) - SUM(L.CREDIT), 2) FROM kt_linii L WHERE "
    "L.TERT = A.COD AND L.CONT = A.ACCOUNT) AS BALANCE FROM (SELECT T.COD, T.SOLD, (SELECT MAX(C.CONT) FROM "
    "kt_linii C WHERE C.TERT = T.COD AND C.CONT >= '4' AND C.CONT < '5') AS ACCOUNT FROM kt_ter T WHERE "
    "T.COD BETWEEN ? AND ?) AS A WHERE A.ACCOUNT IS NOT NULL ORDER BY A.COD");
const QString kInDocuments =
    QStringLiteral("Tertul nu se poate sterge deoarece exista documente inregistrate !");

const Table& partners() { return companyTable("kt_ter"); }

void requireSound(const Row& partner) {
  if (partner.text("NUME").trimmed().isEmpty())
    throw RuleError(QStringLiteral("Va rugam introduceti numele societatii ! Salvarea nu se poate efectua !"),
                    "NUME");
  if (partner.text("TIP").trimmed().isEmpty())
    throw RuleError(QStringLiteral("Trebuie sa alegeti tipul de tert!"), "TIP");
  if (partner.has("CodVechi"))
    numberIn(partner, "CodVechi", QStringLiteral("Trebuie sa precizati o valoare numerica!"), "Atentie");
  if (partner.has("PROCPEN"))
    numberIn(partner, "PROCPEN", QStringLiteral("Va rog introduceti o valoare numerica"));
}

// The row to store.
Row stored(const Row& partner) {
  requireSound(partner);
  Row row = ofTable(partners(), partner);
  if (row.has("CT") && row.text("CT").isEmpty()) row.set("CT", "RO");
  return row;
}

// The columns to be written must not have changed since they were shown.
void requireUnchanged(qint64 code, const Row& changed, bool changesDiscount, const Row& shown) {
  const Row current = storedPartner(code);
  if (current.isEmpty()) throw gone();
  QStringList looked = changed.columns();
  if (changesDiscount) looked.append(QStringLiteral("Discount"));
  const QStringList conflicts = differing(looked, current, shown);
  if (!conflicts.isEmpty())
    throw ChangedMeanwhile(QStringLiteral("Tertul %1 a fost modificat intre timp de alt utilizator ! Fisa "
                                          "arata acum valorile lui; verificati si salvati din nou.")
                               .arg(current.text("NUME")),
                           current, conflicts);
}

}  // namespace

Row storedPartner(qint64 code) {
  const Row partner = record(partners(), code);
  if (partner.isEmpty()) return partner;
  Row whole = rowOf(partner.columns() + QStringList("Discount"), partner);
  if (const auto discount = partnerDiscount(code)) whole.set("Discount", *discount);
  return whole;
}

const ListQuery kPartnerList{
    QStringLiteral(
        "T.COD, T.NUME, T.TIP, T.CODFISCAL, T.AD, T.AD3, T.CP, T.ORAS, T.TARA, T.REPREZ, T.TELEFON, T.FAX, "
        "T.MOBIL, T.EMAIL, T.ADL, T.CPL, T.ORASL, T.TARAL, T.BANCA, T.CONTBANCAR, T.CodTert, T.RegCom, "
        "T.Judet, T.JUDETL, "
        "T.CodVechi, T.SerieBI, T.NrBI, T.EmisBI, T.DataEmisBI, T.PROCPEN, T.Reprezentant, T.Contract, "
        "T.ID_Angajator, T.CNP, T.CT, T.PF, T.PlatesteTVA, T.PRENUMEDELEGAT, T.DATANDELEGAT, T.UTILIZATOR, "
        "T.DATAC, A.NUME AS Angajator, "
        "(SELECT SUM(L.DEBIT - L.CREDIT) FROM kt_linii L WHERE L.TERT = T.COD) AS SOLD"),
    QStringLiteral("kt_ter T LEFT JOIN kt_ter A ON A.COD = T.ID_Angajator"), QStringLiteral("T.COD")};

Condition partnersOfKind(const QString& TipTert) {
  if (TipTert == QStringLiteral("F")) return {QStringLiteral("TIP IN ('F', 'M')"), {}};
  return {QStringLiteral("TIP <> 'F'"), {}};
}

Row newPartner(const QString& name, const QString& kind) {
  Row row = partners().emptyRow();
  row.set("NUME", name);
  row.set("TIP", kind);
  for (const Column& column : partners().columns())
    if (column.type == ColumnType::Boolean) row.set(column.name, false);
  return row;
}

qint64 addPartner(const Row& partner, const std::optional<Decimal>& discount) {
  const Row given = stored(partner);
  QStringList columns = given.columns();
  for (const char* own : {"COD", "UTILIZATOR", "DATAC"})
    if (!given.has(own)) columns.append(own);
  Row row = rowOf(columns, given);
  requireKnownCode(row, "ID_Angajator", "CodTert");
  Transaction transaction(database());
  const qint64 code = NumarUrmator("kt_ter");
  row.set("COD", code);
  row.set("UTILIZATOR", session().gUtilizator);
  row.set("DATAC", clock::today());
  insertRecord(partners(), row);
  setPartnerDiscount(code, discount);
  transaction.commit();
  return code;
}

void savePartner(const Row& partner, const std::optional<Decimal>& discount, const Row& shown) {
  const Row changed = changesOf(partners(), stored(partner), shown);
  const qint64 code = partner.integer("COD");
  const QString before = shown.has("Discount") ? shown.value("Discount").toString() : QString();
  const bool changesDiscount = partner.value("Discount").toString() != before;
  requireKnownCode(changed, "ID_Angajator", "CodTert");
  Transaction transaction(database());
  requireUnchanged(code, changed, changesDiscount, shown);
  if (changed.columns().size() > 1) updateRecord(partners(), changed);
  if (changesDiscount) setPartnerDiscount(code, discount);
  transaction.commit();
}

void removePartner(qint64 code) {
  Transaction transaction(database());
  if (Exista(QString::number(code), "TertiLinii")) throw RuleError(kInDocuments);
  if (const QString document = documentWithPartner(code); !document.isEmpty())
    throw RuleError(QStringLiteral("%1 (%2)").arg(kInDocuments, document));
  deleteRecord(partners(), code);
  setPartnerDiscount(code, {});
  transaction.commit();
}

void storeBalances(const Progress& progress) {
  std::vector<Values> changed;
  {
    const Snapshot moment(database());
    const Recordset codes = OpenRs("SELECT COD FROM kt_ter ORDER BY COD");
    for (int from = 0; from < codes.size(); from += kPartnersAtOnce) {
      report(progress, from, 2 * codes.size());
      const int last = std::min(from + kPartnersAtOnce, codes.size()) - 1;
      for (const Row& row : OpenRs(kBalances, {codes[from].integer("COD"), codes[last].integer("COD")}))
        if (row.value("SOLD") != row.value("BALANCE"))
          changed.push_back({Value::raw(row.value("BALANCE")), row.integer("COD")});
    }
  }
  const int count = static_cast<int>(changed.size());
  Transaction transaction(database());
  for (int from = 0; from < count; from += kPartnersAtOnce) {
    report(progress, count + from, 2 * count);
    const auto first = changed.begin() + from;
    database().executeEach("UPDATE kt_ter SET SOLD = ? WHERE COD = ?",
                           {first, first + std::min(kPartnersAtOnce, count - from)});
  }
  transaction.commit();
}

}  // namespace velmar
