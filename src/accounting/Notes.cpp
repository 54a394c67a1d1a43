#include "accounting/Notes.h"

#include "config/Session.h"
#include "store/Database.h"
#include "util/Clock.h"
#include "util/Errors.h"

namespace velmar {

namespace {

const QString kNational = QStringLiteral("LEI");
const QString kOurs = QStringLiteral("G");
const QString kAccountMissing =
    QStringLiteral("Nu au fost stabilite toate conturile necesare la configurarea societatii !");

struct TotalsStatement {
  QString key;
  QString lineTable;
  QString numberColumn;
  QString sql;
};

// Values of the lines have at most two decimals, so rounding the sum takes away only what binary addition
// left.
const TotalsStatement kTotals[] = {
    {"G_LBONINT", "G_LBONINT", "NUMNR",
     "SELECT G_FAMART.CONTSTOCPROD AS CONTSTOCPROD, ROUND_EVEN(SUM(G_LBONINT.VALOAREFT), 2) AS Total "
     "FROM G_LBONINT INNER JOIN G_ARTMAG ON G_ARTMAG.CODART = G_LBONINT.CODART "
     "INNER JOIN G_FAMART ON G_FAMART.COD = G_ARTMAG.FAMART WHERE G_LBONINT.NUMNR = ? "
     "GROUP BY G_FAMART.CONTSTOCPROD ORDER BY CONTSTOCPROD NULLS FIRST"},
};

const TotalsStatement& totalsStatement(const QString& key) {
  for (const TotalsStatement& statement : kTotals)
    if (statement.key == key) return statement;
  throw StoreError(0, QStringLiteral("Lipseste totalul %1").arg(key));
}

// An article that is gone, or without a family, would fall out of the totals and leave the note short.
void requireFamilies(const TotalsStatement& totals, const QString& number) {
  const Recordset without = database().query(
      QStringLiteral(
          "SELECT L.CODART AS CODART, A.CODART AS KNOWN FROM %1 L "
          "LEFT JOIN G_ARTMAG A ON A.CODART = L.CODART "
          "LEFT JOIN G_FAMART F ON F.COD = A.FAMART WHERE L.%2 = ? AND F.COD IS NULL ORDER BY L.NRLINIE")
          .arg(totals.lineTable, totals.numberColumn),
      {number});
  if (without.isEmpty()) return;
  const Row& line = without.first();
  throw RuleError(
      (line.isNull("KNOWN")
           ? QStringLiteral("Articolul cu codul %1 nu exista ! Validarea nu se poate efectua !")
           : QStringLiteral("Articolul cu codul %1 nu are familie ! Validarea nu se poate efectua !"))
          .arg(line.text("CODART")));
}

void requireBalance(const Note& note) {
  Decimal debit;
  Decimal credit;
  for (const NoteRow& row : note.rows) {
    if (row.account.trimmed().isEmpty()) throw RuleError(kAccountMissing);
    debit += row.debit;
    credit += row.credit;
  }
  if (debit != credit)
    throw StoreError(0, QStringLiteral("DEBIT <> CREDIT, validarea nu se poate efectua !"));
}

// The note's rows of the steps, with their journal.
Note composed(const std::vector<PostingStep>& steps, Note note) {
  for (const PostingStep& step : steps) {
    note.journal = requiredParameter(step.journalParameter);
    const QString credit = requiredParameter(step.creditParameter);
    requireFamilies(totalsStatement(step.totals), note.number);
    for (const Row& total : TotaluriConturi(step.totals, note.number)) {
      note.rows.push_back({total.text(step.debitColumn), total.decimal("Total"), 0});
      note.rows.push_back({credit, 0, total.decimal("Total")});
    }
  }
  requireBalance(note);
  return note;
}

}  // namespace

qint64 writeNote(const Note& note) {
  if (note.rows.empty()) return 0;
  requireBalance(note);
  const qint64 ndi = database().query("SELECT MAX(NDI) AS NDI FROM kt_linii").first().integer("NDI") + 1;
  const QDateTime now = clock::now();
  std::vector<Values> rows;
  rows.reserve(note.rows.size());
  int line = 0;
  for (const NoteRow& row : note.rows)
    rows.push_back({ndi, ++line, note.journal, note.date, row.account, note.remark, row.debit, row.credit,
                    note.number, note.number, kNational, kOurs, session().gUtilizator, now, note.remark});
  database().insertRows("kt_linii",
                        {"NDI", "NRLINIE", "JURNAL", "DATAINR", "CONT", "EXPL", "DEBIT", "CREDIT", "DOC",
                         "MARCA", "COD", "PROV", "UTILIZATOR", "TIMP", "DocExplicatie"},
                        rows);
  database().execute("UPDATE kt_linii SET TIPDOC = ? WHERE NDI = ?", {note.kind, ndi});
  return ndi;
}

Recordset TotaluriConturi(const QString& key, const QString& number) {
  return OpenRs(totalsStatement(key).sql, {number});
}

qint64 SalvareDateContabile(const std::vector<PostingStep>& steps, const Note& note) {
  return writeNote(composed(steps, note));
}

void requirePostable(const std::vector<PostingStep>& steps, const QString& number) {
  Note note;
  note.number = number;
  composed(steps, note);
}

}  // namespace velmar
