#include "reports/VatJournals.h"

#include "config/Session.h"
#include "reports/Variables.h"
#include "store/Database.h"
#include "util/Errors.h"
#include "util/NumberText.h"

namespace velmar {

namespace {

// %1: the statement of the documents, whose order the numbers follow. The first value is the starting number.
const QString kNumbered = QStringLiteral(
    "SELECT ROW_NUMBER() OVER (ORDER BY D.DataFactura, D.NumarFactura) - 1 + ? AS NRC, D.*, "
    "COALESCE(D.TOTALFT, 0) AS BAZA, COALESCE(D.TOTALTVA, 0) AS TVA, "
    "ROUND_EVEN(COALESCE(D.TOTALFT, 0) + COALESCE(D.TOTALTVA, 0), 6) AS TOTAL FROM (%1) AS D");

const QString kInsertPurchases = QStringLiteral(
    "INSERT INTO kt_jct (NRC, DATA, NDP, NUME, CODF, TOTAL, NEIMP, BAZA1, TVA1, IMP, TVAIMP) "
    "SELECT N.NRC, N.DataFactura, N.NumarFactura, N.NumeTert, N.CodFiscal, N.TOTAL, "
    "CASE WHEN N.TVA <> 0 THEN 0 ELSE N.TOTAL END, N.BAZA, N.TVA, 0, 0 FROM (%1) AS N");

const QString kInsertSales = QStringLiteral(
    "INSERT INTO kt_jvt (UTILIZATOR, NRC, DATA, NDP, NUME, CODF, TOTAL, BAZA1, TVA1, SCUTIT, SCUTIT_CD, "
    "SCUTIT_FD, EXPORT) "
    "SELECT ?, N.NRC, N.DataFactura, N.NumarFactura, N.NumeTert, N.CodFiscal, N.TOTAL, N.BAZA, N.TVA, "
    "0, 0, 0, 0 FROM (%1) AS N");

Values boundsOf(const VatPeriod& period) { return {period.from.addDays(1), period.to}; }

}  // namespace

const VatJournal& purchaseJournal() {
  static const VatJournal journal{
      "frmRapJCTVA", "Jurnal de cumparare cu TVA", "Get_Doc_CTVA", "kt_jct", "Jctva", kInsertPurchases, false,
      true};
  return journal;
}

const VatJournal& salesJournal() {
  static const VatJournal journal{
      "frmRapJVTVA", "Jurnal de vanzare cu TVA", "Get_Doc_VTVA", "kt_jvt", "Jvtva", kInsertSales, true,
      false};
  return journal;
}

Recordset documentsOf(const VatJournal& journal, const VatPeriod& period) {
  Recordset rows = session().gDataEnv.open(journal.command, boundsOf(period));
  rows.transform("DataFactura", asDate);
  return rows;
}

int computeJournal(const VatJournal& journal, const VatPeriod& period, int firstNumber, const QString& user) {
  Transaction transaction(database());
  ExecutaSql(QStringLiteral("DELETE FROM %1 WHERE UTILIZATOR = ? OR UTILIZATOR IS NULL").arg(journal.table),
             {user});
  Values values;
  if (journal.keepsUser) values.emplace_back(user);
  values.emplace_back(firstNumber);
  for (const Value& bound : boundsOf(period)) values.push_back(bound);
  const int rows =
      ExecutaSql(journal.insert.arg(kNumbered.arg(session().gDataEnv.statement(journal.command))), values);
  if (rows == 0) {
    transaction.rollback();
    throw RuleError(QStringLiteral("Nu exista inregistrari in perioada %1 - %2")
                        .arg(formatDate(period.from), formatDate(period.to)));
  }
  transaction.commit();
  return rows;
}

ReportData journalReport(const VatJournal& journal, const VatPeriod& period, int firstNumber) {
  const Recordset rows = documentsOf(journal, period);
  if (rows.isEmpty()) throw RuleError(QStringLiteral("Nu exista inregistrari"));
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
