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

// One grouping of a document's lines: what is summed, for which articles, grouped by which columns.
struct Totals {
  const char* key;
  const char* lineTable;
  const char* numberColumn;
  const char* groups;  ///< account columns and further grouping columns
  const char* total;   ///< what is summed
  const char* vat = nullptr;
  const char* articles = nullptr;  ///< condition
};

constexpr auto kGoods = "G_ARTMAG.PROVENIENTA = 'M' AND G_ARTMAG.FARASTOC = 0";
constexpr auto kAllGoods = "G_ARTMAG.PROVENIENTA = 'M'";
constexpr auto kProducts = "G_ARTMAG.PROVENIENTA = 'P' AND G_ARTMAG.FARASTOC = 0";
// The cost of returned goods is posted with the opposite sign.
constexpr auto kSignedCost = "CASE WHEN L.CANT < 0 THEN -ABS(L.COST) ELSE L.COST END";
constexpr auto kExpenseAndGoods = "CONTCHELT CONTSTOCMARFA";

constexpr Totals kTotals[] = {
    {"G_LBONINT", "G_LBONINT", "NUMNR", "CONTSTOCPROD", "L.VALOAREFT"},
    {"G_LFACFU", "G_LFACFU", "NUMFAC", "CONTSTOCMARFA", "L.VALOAREFT", "L.VALOARETVA"},
    {"G_LBONCON", "G_LBONCON", "NUMAE", kExpenseAndGoods, "L.CANT * G_ARTMAG.COST"},
    {"G_LBONCONFIFO", "G_LBONCON", "NUMAE", kExpenseAndGoods, "L.VALOAREFT"},
    {"G_LFACCL_VEN", "G_LFACCL", "NUMFAC", "CONTVEN", "L.VALOAREFT", "L.VALOARETVA"},
    {"G_LFACCL_M_COST", "G_LFACCL", "NUMFAC", kExpenseAndGoods, kSignedCost, nullptr, kGoods},
    // Grouped by quantity too: one pair of rows for each quantity.
    {"G_LFACCL_M_COSTFIFO", "G_LFACCL", "NUMFAC", "CONTCHELT CONTSTOCMARFA L.CANT", kSignedCost, nullptr,
     kGoods},
    {"G_LFACCL_P_COST", "G_LFACCL", "NUMFAC", "CONTSTOCPROD", kSignedCost, nullptr, kProducts},
    {"G_LFACCL_P_COSTFIFO", "G_LFACCL", "NUMFAC", "CONTSTOCPROD", kSignedCost, nullptr, kProducts},
    {"G_LBONCASA_VEN", "G_LBONCASA", "NUMFAC", "CONTVEN", "L.VALOAREFT", "L.VALOARETVA"},
    {"G_LBONCASA_M_COST", "G_LBONCASA", "NUMFAC", kExpenseAndGoods, "L.COST * L.CANT", nullptr, kAllGoods},
    {"G_LBONCASA_M_COSTFIFO", "G_LBONCASA", "NUMFAC", kExpenseAndGoods, "L.COST", nullptr, kAllGoods},
};

const Totals& totalsOf(const QString& key) {
  for (const Totals& totals : kTotals)
    if (key == QLatin1String(totals.key)) return totals;
  throw StoreError(0, QStringLiteral("Lipseste totalul %1").arg(key));
}

// Removes the errors of binary addition, which are far smaller than a ban (0.01 lei).
QString summed(const char* expression, const char* name) {
  return QStringLiteral("ROUND_EVEN(SUM(%1), 10) AS %2").arg(QLatin1String(expression), QLatin1String(name));
}

QString statementOf(const Totals& totals) {
  QStringList groups, selected;
  for (const QString& group : QString::fromLatin1(totals.groups).split(u' ')) {
    const bool isAccount = !group.contains(u'.');
    groups.append(isAccount ? QStringLiteral("G_FAMART.") + group : group);
    if (isAccount) selected.append(QStringLiteral("G_FAMART.%1 AS %1").arg(group));
  }
  selected.append(summed(totals.total, "TOTAL"));
  if (totals.vat) selected.append(summed(totals.vat, "TVA"));
  QStringList order;
  for (const QString& group : std::as_const(groups)) order.append(group + QStringLiteral(" NULLS FIRST"));
  const QString articles =
      totals.articles ? QStringLiteral(" AND ") + QLatin1String(totals.articles) : QString();
  return QStringLiteral(
             "SELECT %1 FROM %2 L INNER JOIN G_ARTMAG ON G_ARTMAG.CODART = L.CODART "
             "INNER JOIN G_FAMART ON G_FAMART.COD = G_ARTMAG.FAMART WHERE L.%3 = ?%4 GROUP BY %5 ORDER BY %6")
      .arg(selected.join(QStringLiteral(", ")), QLatin1String(totals.lineTable),
           QLatin1String(totals.numberColumn), articles, groups.join(QStringLiteral(", ")),
           order.join(QStringLiteral(", ")));
}

// The columns of every note, then those that some of the notes use.
QStringList columnsOf(const std::vector<Note>& notes) {
  QStringList columns{"NDI",        "NRLINIE", "JURNAL",        "DATAINR", "CONT", "EXPL",
                      "DEBIT",      "CREDIT",  "DOC",           "MARCA",   "COD",  "PROV",
                      "UTILIZATOR", "TIMP",    "DocExplicatie", "TIPDOC",  "TERT", "TVA_LINREF",
                      "COTATVA",    "CODBUG",  "DATASCAD"};
  if (notes.front().inCurrencyForm) columns.append({"CURS", "DEVDEBIT", "DEVCREDIT"});
  if (!notes.front().vatOnCollection.data().isNull()) columns.append("TVAINC");
  return columns;
}

Values valuesOf(const Note& note, const NoteRow& row, qint64 ndi, int line, const QDateTime& now) {
  Values values{ndi,
                line,
                note.journal,
                note.date,
                row.account,
                note.remark,
                row.debit,
                row.credit,
                note.number,
                note.number,
                note.currency.isEmpty() ? kNational : note.currency,
                kOurs,
                session().gUtilizator,
                now,
                note.remark,
                note.kind.isEmpty() ? Value() : Value(note.kind),
                row.partner,
                row.vatLink,
                row.vatPercent,
                row.costCentre,
                note.dueDate.isValid() ? Value(note.dueDate) : Value()};
  if (note.inCurrencyForm)
    for (const Decimal& amount : {note.rate, row.foreignDebit, row.foreignCredit}) values.push_back(amount);
  if (!note.vatOnCollection.data().isNull()) values.push_back(note.vatOnCollection);
  return values;
}

}  // namespace

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

qint64 writeNotes(const std::vector<Note>& notes) {
  std::vector<Note> written;
  for (const Note& note : notes) {
    requireBalance(note);
    if (!note.rows.empty()) written.push_back(note);
  }
  if (written.empty()) return 0;
  const qint64 first = database().query("SELECT MAX(NDI) AS NDI FROM kt_linii").first().integer("NDI") + 1;
  const QDateTime now = clock::now();
  std::vector<Values> rows;
  qint64 ndi = first;
  for (const Note& note : written) {
    int line = 0;
    for (const NoteRow& row : note.rows) rows.push_back(valuesOf(note, row, ndi, ++line, now));
    ++ndi;
  }
  database().insertRows("kt_linii", columnsOf(written), rows);
  return first;
}

Recordset TotaluriConturi(const QString& key, const QString& number) {
  return OpenRs(statementOf(totalsOf(key)), {number});
}

void requireFamilies(const QString& key, const QString& number) {
  const Totals& totals = totalsOf(key);
  const Recordset without = database().query(
      QStringLiteral(
          "SELECT L.CODART AS CODART, A.CODART AS KNOWN FROM %1 L "
          "LEFT JOIN G_ARTMAG A ON A.CODART = L.CODART "
          "LEFT JOIN G_FAMART F ON F.COD = A.FAMART WHERE L.%2 = ? AND F.COD IS NULL ORDER BY L.NRLINIE")
          .arg(QLatin1String(totals.lineTable), QLatin1String(totals.numberColumn)),
      {number});
  if (without.isEmpty()) return;
  const Row& line = without.first();
  throw RuleError(
      (line.isNull("KNOWN")
           ? QStringLiteral("Articolul cu codul %1 nu exista ! Validarea nu se poate efectua !")
           : QStringLiteral("Articolul cu codul %1 nu are familie ! Validarea nu se poate efectua !"))
          .arg(line.text("CODART")));
}

}  // namespace velmar
