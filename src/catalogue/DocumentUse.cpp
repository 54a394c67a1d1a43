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
  const char* article = "CODART";
};

// There are no drafts of stornos.
const DraftTables kDraftTables[] = {
    {"FC", "G_FACCLI", "G_LFACCL", "NUMFAC", "CODCLI"},
    {"BS", "G_BONCASA", "G_LBONCASA", "NUMFAC", "CODCLI"},
    {"AE", "G_AECLI", "G_LAECLI", "NUMAE", "CODCLI"},
    {"PR", "G_PROFOR", "G_LPROFO", "NUMPF", "CODCLI"},
    {"CC", "G_COMCLI", "G_LCOMCL", "NUMCOM", "CODCLI"},
    {"CF", "G_COMFUR", "G_LCOMFU", "NUMCOM", "CODFUR"},
    {"FF", "G_FACFUR", "G_LFACFU", "NUMFAC", "CODFUR"},
    {"FI", "G_FACIMP", "G_LFACIM", "NUMFAC", "CODFUR"},
    {"FI", "G_FACIMP", "", "NUMFAC", "CODFURTR"},
    {"NR", "G_NRFURN", "G_LNRFUR", "NUMNR", "CODFUR"},
    {"BI", "G_BONINT", "G_LBONINT", "NUMNR", "CODFUR"},
    {"BC", "G_BONCON", "G_LBONCON", "NUMAE", "CODCLI"},
    {"BT", "G_TRANSFER", "G_LTRANSFER", "NUMAE", ""},
    // Of the hearing-device trade: orders, then invoices and repair vouchers, whose lines have no number.
    {"Comanda ", "G_COMANDA_AUDIO", "G_COMANDA_AUDIO", "Nr", "ID_Pacient", "ID_Dispozitiv"},
    {"Comanda ", "G_COMANDA_AUDIO", "", "Nr", "ID_Doctor"},
    {"Comanda ", "G_COMANDA_AUDIO", "", "Nr", "ID_CAS"},
    {"Comanda ", "G_COMANDA_AUDIO", "", "Nr", "ID_PunctLucru"},
    {"FC", "G_FacturiClientiAudio", "", "Nr", "ID_Client"},
    {"FC", "G_FacturiClientiAudio", "", "Nr", "ID_PunctLucru"},
    {"Bon ", "G_BonReparatii", "G_BonReparatii", "Nr", "ID_Client", "ID_Aparat"},
    {"FC", "",
     "G_FacturaClientiAudio_Detalii L INNER JOIN G_FacturiClientiAudio F ON F.ID_Factura = L.ID_Factura",
     "F.Nr", "", "L.ID_Articol"},
    {"Bon ", "",
     "G_BonReparatii_Detalii L INNER JOIN G_BonReparatii R ON R.ID_BonReparatie = L.ID_BonReparatie", "R.Nr",
     "", "L.ID_Articol"},
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
    if (QString id = firstDocument(kind, kind.lines, kind.article, article); !id.isEmpty()) return id;
  return {};
}

QString documentWithPartner(qint64 partner) {
  for (const DraftTables& kind : kDraftTables) {
    if (QString id = firstDocument(kind, kind.header, kind.partner, partner); !id.isEmpty()) return id;
  }
  return {};
}

}  // namespace velmar
