#include "shell/Denomination.h"

#include <algorithm>

#include "config/Currencies.h"
#include "shell/Maintenance.h"
#include "store/Database.h"
#include "util/Clock.h"
#include "util/Messages.h"

namespace velmar {

namespace {

const QDate kDenomination(2005, 7, 1);

/// What is converted of a table. The lines of documents depend on the date of their header.
struct Converted {
  const char* table;
  const char* columns;
  const char* date = "";     ///< column that must be before the denomination; "": all rows
  const char* headers = "";  ///< table of `date`; "": the table itself
  const char* key = "";      ///< common column, or "lines = headers"
};

constexpr Converted kConverted[] = {
    {"G_ARTMAG", "COST PRETVFT PRETVTTI"},
    {"G_DOCUME", "TOTALTVA TOTALFT TOTALCOST CURS", "DATADOC"},
    {"G_LDOCUM", "PRETFT PRETTTI VALRAB VALTVA COST VALCOST", "DATADOC", "G_DOCUME", "DOCID = ID"},
    {"G_LFACFU", "PRETFT VALOAREFT VALOARETTI VALOARETVA PRETVA", "DATAFAC", "G_FACFUR", "NUMFAC"},
    {"G_LNRFUR", "PRETFT VALOAREFT PRETFTV"},
    {"G_FACIMP", "CURSVALUTA"},
    {"G_LFACIM", "PRET VALOARE VALCHTR VALOAREFT VALTVA COST PRETVA", "DATAFAC", "G_FACIMP", "NUMFAC"},
    {"G_LBONINT", "PRETFT VALOAREFT PRETVA", "DATANR", "G_BONINT", "NUMNR"},
    {"G_COMFUR", "CURS"},
    {"G_LCOMFU", "PRETFT VALOAREFT VALOARETTI VALOARETVA", "DATACOM", "G_COMFUR", "NUMCOM"},
    {"G_FACCLI", "CURS"},
    {"G_LFACCL", "PRETFT VALOAREFT COST VALOARETTI VALOARETVA VALOAREFTCUDISCOUNT", "DATAFAC", "G_FACCLI",
     "NUMFAC"},
    {"G_LPROFO", "PRETFT VALOAREFT VALOARETTI VALOARETVA VALOAREFTCUDISCOUNT", "DATAPF", "G_PROFOR", "NUMPF"},
    {"G_AECLI", "CURS"},
    {"G_LAECLI", "PRETFT VALOAREFT VALOARECOST VALOARETTI VALOARETVA VALOAREFTCUDISCOUNT", "DATAAE",
     "G_AECLI", "NUMAE"},
    {"G_BONCASA", "CURS"},
    {"G_LBONCASA", "PRETFT VALOAREFT COST VALOARETTI VALOARETVA VALOAREFTCUDISCOUNT", "DATAFAC", "G_BONCASA",
     "NUMFAC"},
    {"G_LBONCON", "PRETFT VALOAREFT", "DATAAE", "G_BONCON", "NUMAE"},
    {"G_LTRANSFER", "PRETFT VALOAREFT VALOARETTI VALOARETVA PRETVA", "DATAAE", "G_TRANSFER", "NUMAE"},
    {"G_COMCLI", "CURS"},
    {"G_LCOMCL", "PRETFT VALOAREFT VALOARETTI VALOARETVA", "DATACOM", "G_COMCLI", "NUMCOM"}};

/// Converted whatever their date; this is the date of their documents.
constexpr Converted kReceiptLines{"G_LNRFUR", "", "DATANR", "G_NRFURN", "NUMNR"};

// The columns of lines and of headers that join them.
std::pair<QString, QString> keysOf(const Converted& converted) {
  const QString key = QString::fromLatin1(converted.key);
  return {key.section(QStringLiteral(" = "), 0, 0), key.section(QStringLiteral(" = "), -1)};
}

// Whether documents before the denomination have lines in this table. The headers lead to the lines: an index
// has the key of the lines.
bool hasOldDrafts(const Converted& lines) {
  if (*lines.headers == '\0') return false;
  const auto [ofLine, ofHeader] = keysOf(lines);
  return !OpenRs(QStringLiteral("SELECT H.%1 FROM %2 AS H WHERE H.%3 < ? AND EXISTS (SELECT 1 FROM %4 AS L "
                                "WHERE L.%5 = H.%1) LIMIT 1")
                     .arg(ofHeader, QString::fromLatin1(lines.headers), QString::fromLatin1(lines.date),
                          QString::fromLatin1(lines.table), ofLine),
                 {kDenomination})
              .isEmpty();
}

QString statementOf(const Converted& converted) {
  QStringList sets;
  for (const QString& column : QString::fromLatin1(converted.columns).split(u' '))
    sets.append(QStringLiteral("%1 = ROUND_EVEN(%1, 0) / 10000.0").arg(column));
  const QString date = QString::fromLatin1(converted.date);
  QString where;
  if (*converted.headers != '\0') {
    const auto [ofLine, ofHeader] = keysOf(converted);
    where = QStringLiteral(" WHERE %1 IN (SELECT %2 FROM %3 WHERE %4 < ?)")
                .arg(ofLine, ofHeader, QString::fromLatin1(converted.headers), date);
  } else if (!date.isEmpty()) {
    where = QStringLiteral(" WHERE %1 < ?").arg(date);
  }
  return QStringLiteral("UPDATE %1 SET %2%3")
      .arg(QString::fromLatin1(converted.table), sets.join(QStringLiteral(", ")), where);
}

}  // namespace

bool hasOldLei() {
  if (ROL()) return false;
  if (!OpenRs("SELECT ID FROM G_DOCUME WHERE DATADOC < ? LIMIT 1", {kDenomination}).isEmpty()) return true;
  return hasOldDrafts(kReceiptLines) ||
         std::any_of(std::begin(kConverted), std::end(kConverted), hasOldDrafts);
}

void convertToNewLei(const Progress& progress) {
  Transaction transaction(database());
  if (ROL()) return;
  int done = 0;
  for (const Converted& converted : kConverted) {
    report(progress, done++, static_cast<int>(std::size(kConverted)));
    const bool isDated = *converted.date != '\0';
    ExecutaSql(statementOf(converted), isDated ? Values{kDenomination} : Values{});
  }
  ExecutaSql("DELETE FROM kt_val WHERE COD = 'ROL'");
  ExecutaSql("INSERT INTO kt_val (COD, TITLU) VALUES ('ROL', 'LEI VECHI')");
  transaction.commit();
}

void Denominare(const Progress& progress) {
  if (ROL()) {
    Mesaj(" Convertirea bazei de date a fost deja facuta.");
    return;
  }
  if (clock::today() < kDenomination &&
      Mesaj(" Convertirea bazei de date trebuie facuta incepand cu 01.07.2005", kYesNo + kQuestion,
            "Confirmati, va rog.") != kResultYes)
    return;
  if (Mesaj(" Documentele cu data inregistrarii pana la 30.06.2005 vor fi convertite ireversibil in LEI NOI.",
            kYesNo + kQuestion, "Confirmati, va rog denominarea") != kResultYes)
    return;
  SalveazaAutomat();
  convertToNewLei(progress);
  Mesaj("Baza de date a fost convertita in LEI NOI");
}

}  // namespace velmar
