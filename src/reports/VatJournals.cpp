#include "reports/VatJournals.h"

#include <numeric>

#include "config/Session.h"
#include "reports/Variables.h"
#include "store/Database.h"
#include "store/NamedCommands.h"
#include "util/Errors.h"

namespace velmar {

namespace {

constexpr int kDocumentsAtOnce = 1000;

// %1: the query of the documents; %2: the order in which they are numbered; %3: the sign of a document. The
// first value is the starting number.
const QString kNumbered = QStringLiteral(
    "SELECT ROW_NUMBER() OVER (ORDER BY %2) - 1 + ? AS NRC, D.*, "
    "%3 * COALESCE(D.TOTALFT, 0) AS BAZA, %3 * COALESCE(D.TOTALTVA, 0) AS TVA, "
    "%3 * ROUND_EVEN(COALESCE(D.TOTALFT, 0) + COALESCE(D.TOTALTVA, 0), 6) AS TOTAL FROM (%1) AS D");

const QString kInsertPurchases = QStringLiteral(
    "INSERT INTO kt_jct (NRC, DATA, NDP, NUME, CODF, TOTAL, NEIMP, BAZA1, TVA1, IMP, TVAIMP) "
    "SELECT N.NRC, N.DataFactura, N.NumarFactura, N.NumeTert, N.CodFiscal, N.TOTAL, "
    "CASE WHEN N.TVA <> 0 THEN 0 ELSE N.TOTAL END, N.BAZA, N.TVA, 0, 0 FROM (%1) AS N");

const QString kInsertSales = QStringLiteral(
    "INSERT INTO kt_jvt (UTILIZATOR, NRC, DATA, NDP, NUME, CODF, TOTAL, BAZA1, TVA1, SCUTIT, SCUTIT_CD, "
    "SCUTIT_FD, EXPORT) "
    "SELECT ?, N.NRC, N.DataFactura, N.NumarFactura, N.NumeTert, N.CodFiscal, N.TOTAL, N.BAZA, N.TVA, "
    "0, 0, 0, 0 FROM (%1) AS N");

const QString kStorno = QStringLiteral("FS");

QString signOf(const VatPeriod& period) {
  return period.subtractsStornos ? QStringLiteral("(CASE WHEN D.TIP = '%1' THEN -1 ELSE 1 END)").arg(kStorno)
                                 : QStringLiteral("1");
}

void requireNumbers(int firstNumber, int rows) {
  const int most = kLargestRowNumber - rows + 1;
  if (firstNumber <= most) return;
  const QString advice = most > 0 ? QStringLiteral("Numarul de inceput poate fi cel mult %1 !").arg(most)
                                  : QStringLiteral("Alegeti o perioada mai scurta !");
  throw RuleError(QStringLiteral("Perioada are %1 documente, iar numerele curente nu pot depasi %2. %3")
                      .arg(rows)
                      .arg(kLargestRowNumber)
                      .arg(advice),
                  "NRC");
}

Values boundsOf(const VatPeriod& period) {
  return {period.from.addDays(period.takesFirstDay ? 0 : 1), period.to};
}

// Whole days of the period whose documents are read or written by one statement.
struct Part {
  Values bounds;
  int documents = 0;
};

std::vector<Part> partsOf(const VatJournal& journal, const VatPeriod& period) {
  const QString sql = QStringLiteral(
      "SELECT D.DataFactura, COUNT(*) AS N FROM (%1) AS D GROUP BY D.DataFactura ORDER BY D.DataFactura");
  std::vector<Part> parts;
  for (const Row& day : OpenRs(sql.arg(session().gDataEnv.statement(journal.command)), boundsOf(period))) {
    const Value date = Value::raw(day.value("DataFactura"));
    if (parts.empty() || parts.back().documents >= kDocumentsAtOnce) parts.push_back({{date, date}, 0});
    parts.back().bounds[1] = date;
    parts.back().documents += static_cast<int>(day.integer("N"));
  }
  return parts;
}

int documentsIn(const std::vector<Part>& parts) {
  return std::accumulate(parts.begin(), parts.end(), 0,
                         [](int sum, const Part& part) { return sum + part.documents; });
}

// The rows to print, in the order of their numbers. The ledger has documents in a currency unrounded in lei:
// amounts are rounded as they are printed, so that the totals are the sums of the printed amounts.
QString printedRows(const VatJournal& journal, const VatPeriod& period) {
  return QStringLiteral(
             "SELECT D.NumarFactura, D.TIP, D.CODTERT, D.NumeTert, D.CodFiscal, D.DataFactura, "
             "%3 * ROUND_EVEN(D.TOTALFT, 2) AS TOTALFT, %3 * ROUND_EVEN(D.TOTALTVA, 2) AS TOTALTVA "
             "FROM (%1) AS D ORDER BY %2")
      .arg(session().gDataEnv.statement(journal.command), documentOrder("D.DataFactura", "D.NumarFactura"),
           signOf(period));
}

Recordset documentsIn(const VatJournal& journal, const VatPeriod& period, const std::vector<Part>& parts,
                      const Progress& progress) {
  const QString sql = printedRows(journal, period);
  const int of = documentsIn(parts);
  Recordset all;
  for (const Part& part : parts) {
    report(progress, all.size(), of);
    Recordset rows = OpenRs(sql, part.bounds);
    if (all.isEmpty()) all = Recordset(std::make_shared<Columns>(rows.columns()));
    for (const Row& row : rows) {
      std::vector<QVariant> cells;
      for (int i = 0; i < row.columns().size(); ++i) cells.push_back(row.at(i));
      all.append(std::move(cells));
    }
  }
  if (!all.isEmpty()) all.transform("DataFactura", asDate);
  return all;
}

}  // namespace

const VatJournal& purchaseJournal() {
  static const VatJournal journal{"frmRapJCTVA",  "Jurnal de cumparare cu TVA",
                                  "Get_Doc_CTVA", "kt_jct",
                                  "Jctva",        kInsertPurchases,
                                  false,          true,
                                  false};
  return journal;
}

const VatJournal& salesJournal() {
  static const VatJournal journal{
      "frmRapJVTVA", "Jurnal de vanzare cu TVA", "Get_Doc_VTVA", "kt_jvt", "Jvtva", kInsertSales, true, false,
      true};
  return journal;
}

Recordset documentsOf(const VatJournal& journal, const VatPeriod& period, const Progress& progress) {
  return documentsIn(journal, period, partsOf(journal, period), progress);
}

int stornosOf(const VatJournal& journal, const VatPeriod& period) {
  Values values = boundsOf(period);
  values.emplace_back(kStorno);
  const QString sql = QStringLiteral("SELECT COUNT(*) AS N FROM (%1) AS D WHERE D.TIP = ?");
  return static_cast<int>(
      OpenRs(sql.arg(session().gDataEnv.statement(journal.command)), values).first().integer("N"));
}

int computeJournal(const VatJournal& journal, const VatPeriod& period, int firstNumber, const QString& user,
                   const Progress& progress) {
  Transaction transaction(database());
  const std::vector<Part> parts = partsOf(journal, period);
  if (parts.empty()) {
    const QString format = QStringLiteral("dd/MM/yyyy");  // as in the boxes of the period
    throw RuleError(QStringLiteral("Nu exista inregistrari in perioada %1 - %2")
                        .arg(period.from.toString(format), period.to.toString(format)));
  }
  const int of = documentsIn(parts);
  requireNumbers(firstNumber, of);
  ExecutaSql(QStringLiteral("DELETE FROM %1 WHERE UTILIZATOR = ? OR UTILIZATOR IS NULL").arg(journal.table),
             {user});
  const QString sql =
      journal.insert.arg(kNumbered.arg(session().gDataEnv.statement(journal.command),
                                       documentOrder("D.DataFactura", "D.NumarFactura"), signOf(period)));
  int rows = 0;
  for (const Part& part : parts) {
    report(progress, rows, of);
    Values values;
    if (journal.keepsUser) values.emplace_back(user);
    values.emplace_back(firstNumber + rows);
    values.insert(values.end(), part.bounds.begin(), part.bounds.end());
    rows += ExecutaSql(sql, values);
  }
  transaction.commit();
  return rows;
}

ReportData journalReport(const VatJournal& journal, const VatPeriod& period, int firstNumber,
                         const Progress& progress) {
  const std::vector<Part> parts = partsOf(journal, period);
  if (parts.empty()) throw RuleError(QStringLiteral("Nu exista inregistrari"));
  requireNumbers(firstNumber, documentsIn(parts));
  const Recordset rows = documentsIn(journal, period, parts, progress);
  ReportData data;
  data.fieldNames = rows.columns();
  data.fields = std::make_shared<RecordsetRows>(rows);
  Variables variables(data);
  variables.add("ParamDataDela", period.from);
  variables.add("ParamDataPanala", period.to);
  variables.add("NrCrt", firstNumber);
  variables.addCompany();
  return data;
}

}  // namespace velmar
