#include "catalogue/DocumentUse.h"

#include "store/Database.h"

namespace velmar {

namespace {

struct DraftTables {
  const char* prefix;
  const char* header;
  const char* lines;  ///< empty in a further row of a kind
  const char* number;
  const char* partner;  ///< empty if the header has none
};

// There are no drafts of stornos.
const DraftTables kDraftTables[] = {
    {"FC", "G_FACCLI", "G_LFACCL", "NUMFAC", "CODCLI"}, {"BS", "G_BONCASA", "G_LBONCASA", "NUMFAC", "CODCLI"},
    {"AE", "G_AECLI", "G_LAECLI", "NUMAE", "CODCLI"},   {"PR", "G_PROFOR", "G_LPROFO", "NUMPF", "CODCLI"},
    {"CC", "G_COMCLI", "G_LCOMCL", "NUMCOM", "CODCLI"}, {"CF", "G_COMFUR", "G_LCOMFU", "NUMCOM", "CODFUR"},
    {"FF", "G_FACFUR", "G_LFACFU", "NUMFAC", "CODFUR"}, {"FI", "G_FACIMP", "G_LFACIM", "NUMFAC", "CODFUR"},
    {"FI", "G_FACIMP", "", "NUMFAC", "CODFURTR"},       {"NR", "G_NRFURN", "G_LNRFUR", "NUMNR", "CODFUR"},
    {"BI", "G_BONINT", "G_LBONINT", "NUMNR", "CODFUR"}, {"BC", "G_BONCON", "G_LBONCON", "NUMAE", "CODCLI"},
    {"BT", "G_TRANSFER", "G_LTRANSFER", "NUMAE", ""},
};

QString firstDocument(const DraftTables& kind, const QString& table, const QString& column,
                      const Value& value) {
  if (table.isEmpty() || column.isEmpty()) return {};
  const Recordset found = OpenRs(QStringLiteral("SELECT %1 AS NR FROM %2 WHERE %3 = ? ORDER BY %1 LIMIT 1")
                                     .arg(kind.number, table, column),
                                 {value});
  return found.isEmpty() ? QString() : QLatin1String(kind.prefix) + found.first().text("NR");
}

}  // namespace

QString documentWithArticle(const QString& article) {
  for (const DraftTables& kind : kDraftTables)
    if (QString id = firstDocument(kind, kind.lines, QStringLiteral("CODART"), article); !id.isEmpty())
      return id;
  return {};
}

QString documentWithPartner(qint64 partner) {
  for (const DraftTables& kind : kDraftTables) {
    if (QString id = firstDocument(kind, kind.header, kind.partner, partner); !id.isEmpty()) return id;
  }
  return {};
}

}  // namespace velmar
