// The table of the 13 kinds: identity, tables and numbering. The texts and fields of a kind are in a separate
// source.
#include "config/Session.h"
#include "documents/DocumentKind.h"
#include "documents/KindTexts.h"
#include "util/Errors.h"

namespace velmar {

namespace {

struct Facts {
  const char* prefix;
  const char* name;
  const char* window;
  const char* headerTable;
  const char* lineTable;
  const char* numberColumn;
  const char* dateColumn;
  const char* partnerColumn;
  const char* remarkColumn;
  const char* tipie;
  bool stockAndAccounts;
  Numbering numbering;
  const char* existsKind;
  const char* price;
  const char* salePrice;
};

constexpr Facts kFacts[] = {
    {"FC", "customer invoice", "frmGrilaFC", "G_FACCLI", "G_LFACCL", "NUMFAC", "DATAFAC", "CODCLI", "OBS",
     "E", true, Numbering::InvoiceRange, "FACTURACLIENT", "PRETFT", ""},
    {"BS", "cash sale", "frmGrilaCS", "G_BONCASA", "G_LBONCASA", "NUMFAC", "DATAFAC", "CODCLI", "OBS", "E",
     true, Numbering::Continuous, "", "PRETFT", ""},
    {"AE", "delivery note", "frmGrilaAE", "G_AECLI", "G_LAECLI", "NUMAE", "DATAAE", "CODCLI", "OBSERV", "E",
     true, Numbering::NoteRange, "AVIZ", "PRETFT", ""},
    {"PR", "proforma invoice", "frmGrilaPRO", "G_PROFOR", "G_LPROFO", "NUMPF", "DATAPF", "CODCLI", "OBS", "",
     false, Numbering::Typed, "PROFORMA", "PRETFT", ""},
    {"CC", "customer order", "frmGrilaCOMC", "G_COMCLI", "G_LCOMCL", "NUMCOM", "DATACOM", "CODCLI", "OBS", "",
     false, Numbering::Typed, "COMANDACLIENT", "PRETFT", ""},
    {"CF", "supplier order", "frmGrilaCOMF", "G_COMFUR", "G_LCOMFU", "NUMCOM", "DATACOM", "CODFUR", "OBS", "",
     false, Numbering::Typed, "COMANDAFURNIZOR", "PRETFT", ""},
    {"FF", "supplier invoice", "frmGrilaFF", "G_FACFUR", "G_LFACFU", "NUMFAC", "DATAFAC", "CODFUR", "OBS",
     "I", true, Numbering::Typed, "FACTURAFURNIZOR", "PRETFT", "PRETVA"},
    {"FI", "import invoice", "frmGrilaFFI", "G_FACIMP", "G_LFACIM", "NUMFAC", "DATAFAC", "CODFUR", "OBS", "I",
     true, Numbering::Typed, "FACTURAIMPORT", "PRET", "PRETVA"},
    {"NR", "goods receipt note", "frmGrilaNIR", "G_NRFURN", "G_LNRFUR", "NUMNR", "DATANR", "CODFUR", "OBS",
     "I", true, Numbering::Typed, "NIR", "PRETFT", "PRETFTV"},
    {"BI", "input voucher", "frmGRILABonIntr", "G_BONINT", "G_LBONINT", "NUMNR", "DATANR", "CODFUR", "OBS",
     "I", true, Numbering::Typed, "BONINT", "PRETFT", "PRETVA"},
    {"BC", "consumption voucher", "frmGRILABonConsum", "G_BONCON", "G_LBONCON", "NUMAE", "DATAAE", "CODCLI",
     "OBSERV", "E", true, Numbering::Typed, "BONCONS", "PRETFT", ""},
    {"BT", "transfer between warehouses", "frmGRILADocTransfer", "G_TRANSFER", "G_LTRANSFER", "NUMAE",
     "DATAAE", "", "OBSERV", "E", true, Numbering::Typed, "", "PRETFT", ""},
    {"FS", "storno of a customer invoice", "frmGRILAStornare", "G_FACCLI", "G_LFACCL", "NUMFAC", "DATAFAC",
     "CODCLI", "OBS", "I", true, Numbering::InvoiceRange, "FACTURACLIENT", "PRETFT", ""},
};

DocumentKind kindOf(const Facts& facts) {
  DocumentKind kind;
  kind.prefix = facts.prefix;
  kind.name = facts.name;
  kind.window = facts.window;
  kind.headerTable = facts.headerTable;
  kind.lineTable = facts.lineTable;
  kind.numberColumn = facts.numberColumn;
  kind.dateColumn = facts.dateColumn;
  kind.partnerColumn = facts.partnerColumn;
  kind.remarkColumn = facts.remarkColumn;
  kind.tipie = facts.tipie;
  kind.movesStock = kind.posts = facts.stockAndAccounts;
  kind.numbering = facts.numbering;
  kind.existsKind = facts.existsKind;
  kind.partnersAreSuppliers = kind.partnerColumn == QStringLiteral("CODFUR");
  kind.lineCheck.price = facts.price;
  kind.lineCheck.salePrice = facts.salePrice;
  return kind;
}

}  // namespace

const QStringList& paymentWords() {
  static const QStringList words{"NUMERAR", "CEC", "OP", "ALTELE"};
  return words;
}

int decimalsOf(int decimals) { return decimals == kSessionDecimals ? session().NrZec : decimals; }

const std::vector<DocumentKind>& documentKinds() {
  static const std::vector<DocumentKind> kinds = [] {
    std::vector<DocumentKind> all;
    for (const Facts& facts : kFacts) {
      DocumentKind kind = kindOf(facts);
      describe(kind);
      all.push_back(std::move(kind));
    }
    return all;
  }();
  return kinds;
}

const DocumentKind& documentKind(const QString& prefix) {
  for (const DocumentKind& kind : documentKinds())
    if (kind.prefix.compare(prefix, Qt::CaseInsensitive) == 0) return kind;
  throw StoreError(0, QStringLiteral("Lipseste felul de document %1").arg(prefix));
}

}  // namespace velmar
