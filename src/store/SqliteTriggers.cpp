// The triggers of a company file. They use only functions that are part of SQLite, so that other programs can
// write to the ledger too.
#include "store/SqliteEngine.h"

namespace velmar::sqlite {

namespace {

// Adds lines to the stock, or takes them out if the sign is "-". `line` and `kind` name a line and the TIPIE
// of its document; `source` is FROM and WHERE.
QString booked(const QString& sign, const QString& line, const QString& kind, const QString& source) {
  return QStringLiteral(
             "INSERT INTO G_STOCMAG (ARTID, CODMAG, CANT) SELECT %2.ARTID, %2.CODMAG, "
             "ROUND(%1 CASE %3 WHEN 'E' THEN -%2.CANT ELSE %2.CANT END, 6) %4 AND %3 IN ('I', 'S', 'E') "
             "AND %2.ARTID IS NOT NULL AND %2.CODMAG IS NOT NULL AND %2.CANT IS NOT NULL "
             "ON CONFLICT (ARTID, CODMAG) DO UPDATE SET CANT = ROUND(CANT + excluded.CANT, 6); ")
      .arg(sign, line, kind, source);
}

QString line(const QString& sign, const QString& row) {
  return booked(sign, row, QStringLiteral("D.TIPIE"),
                QStringLiteral("FROM G_DOCUME D WHERE D.ID = %1.DOCID").arg(row));
}

QString document(const QString& sign, const QString& row) {
  return booked(sign, QStringLiteral("L"), row + QStringLiteral(".TIPIE"),
                QStringLiteral("FROM G_LDOCUM L WHERE L.DOCID = %1.ID").arg(row));
}

StoredStatement trigger(const QString& name, const QString& event, const QString& actions) {
  return {name, QStringLiteral("CREATE TRIGGER %1 AFTER %2 BEGIN %3END").arg(name, event, actions)};
}

}  // namespace

std::vector<StoredStatement> FileEngine::companyTriggers() const {
  const QString in = QStringLiteral("+"), out = QStringLiteral("-");
  const QString before = QStringLiteral("OLD"), after = QStringLiteral("NEW");
  return {trigger("stocmag_line_insert", "INSERT ON G_LDOCUM", line(in, after)),
          trigger("stocmag_line_delete", "DELETE ON G_LDOCUM", line(out, before)),
          trigger("stocmag_line_update", "UPDATE OF DOCID, ARTID, CODMAG, CANT ON G_LDOCUM",
                  line(out, before) + line(in, after)),
          trigger("stocmag_document_insert", "INSERT ON G_DOCUME", document(in, after)),
          trigger("stocmag_document_delete", "DELETE ON G_DOCUME", document(out, before)),
          trigger("stocmag_document_update", "UPDATE OF ID, TIPIE ON G_DOCUME",
                  document(out, before) + document(in, after))};
}

}  // namespace velmar::sqlite
