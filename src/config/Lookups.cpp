#include "config/Lookups.h"

#include "config/Session.h"

namespace velmar {

namespace {

Decimal firstDecimal(const QString& sql, const QString& column, const Values& values) {
  const Recordset found = OpenRs(sql, values);
  return found.isEmpty() ? Decimal() : found.first().decimal(column);
}

Decimal emptiedSum(Recordset& recordset, const QString& column) {
  Decimal sum;
  for (const Row& row : recordset) sum += row.decimal(column);
  CloseRs(recordset);
  return sum;
}

QString ofArticle(const char* column, const QString& code, bool bySupplierCode) {
  return ValoareSql(QStringLiteral("SELECT %1 FROM G_ARTMAG WHERE %2 = ? ORDER BY CODART LIMIT 1")
                        .arg(QLatin1String(column),
                             bySupplierCode ? QStringLiteral("CODPRODFUR") : QStringLiteral("CODART")),
                    {code});
}

}  // namespace

QString cellText(const QVariant& cell) {
  return cell.typeId() == QMetaType::Double ? Decimal::fromDouble(cell.toDouble()).toString()
                                            : cell.toString();
}

QString ValoareSql(const QString& sql, const Values& values) {
  const Recordset found = OpenRs(sql, values);
  return found.isEmpty() ? QString() : cellText(found.first().at(0));
}

Decimal ProcentTVA(qint64 code) {
  return firstDecimal("SELECT PROCENT FROM kt_cote WHERE COD = ?", "PROCENT", {code});
}

QString ContTVA(qint64 code) { return ValoareSql("SELECT CONT FROM kt_cote WHERE COD = ?", {code}); }

VatRate vatRate(qint64 code) {
  const Recordset found = OpenRs("SELECT PROCENT, CONT FROM kt_cote WHERE COD = ?", {code});
  return found.isEmpty() ? VatRate{} : VatRate{found.first().decimal("PROCENT"), found.first().text("CONT")};
}

Decimal Curs(const QString& currency, const QDate& date) {
  return firstDecimal("SELECT CURS FROM kt_val2 WHERE COD = ? AND DATA = ? ORDER BY ID DESC LIMIT 1", "CURS",
                      {currency, date});
}

QVariant NzGol(const QVariant& value, const QVariant& defaultValue) {
  return value.isNull() || value.toString().isEmpty() ? defaultValue : value;
}

bool InPerioadaCulegere(const QDate& date) {
  return date.isValid() && session().DataIC <= date && date <= session().DataSC;
}

Decimal SumaValoareFT(Recordset& recordset) { return emptiedSum(recordset, "VALOAREFT"); }

Decimal SumaValoareTVA(Recordset& recordset) { return emptiedSum(recordset, "VALOARETVA"); }

QString UMArticol(const QString& code) {
  const Recordset found = OpenRs("SELECT UM FROM G_ARTMAG WHERE CODART = ?", {code});
  return found.isEmpty() ? QStringLiteral("Buc") : found.first().text("UM");
}

QString DenumireArticol(const QString& code, bool bySupplierCode) {
  return ofArticle("DENART", code, bySupplierCode);
}

QString CodArticolFurnizor(const QString& code, bool bySupplierCode) {
  return ofArticle("CODART", code, bySupplierCode);
}

Decimal CostArticol(const QString& code) {
  return firstDecimal("SELECT COST FROM G_ARTMAG WHERE CODART = ?", "COST", {code});
}

}  // namespace velmar
