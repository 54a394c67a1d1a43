// Draft tables of the commercial documents: a header keyed by the document's number, lines keyed by number
// and line.
#include "store/Schema.h"

namespace velmar {

namespace {

constexpr int kNumberWidth = 20;
constexpr int kArticleWidth = 20;
constexpr int kNameWidth = 35;
constexpr int kUnitWidth = 5;
constexpr int kRemarkWidth = 45;
constexpr int kImportRemarkWidth = 60;

// A header with the columns of all kinds: number, warehouse, observations and the flag VALIDAT.
Table header(const QString& name, const QString& number, const QString& date, const QString& remark = "OBS",
             int remarkWidth = kRemarkWidth) {
  return Table(name)
      .text(number, kNumberWidth)
      .integers("Magazie")
      .text(remark, remarkWidth)
      .dates(date)
      .flags("VALIDAT")
      .key(number)
      .index("Magazie " + date, "VALIDAT = 0");
}

// Lines with the columns of all kinds.
Table lines(const QString& name, const QString& number) {
  return Table(name)
      .text(number, kNumberWidth)
      .integers("NRLINIE")
      .text("CODART", kArticleWidth)
      .text("DENUMIRE", kNameWidth)
      .text("UM", kUnitWidth)
      .reals("CANT")
      .key(number + " NRLINIE");
}

// BATVA and BATVA1 contain the code of a VAT rate on invoices and cash sales, and a percent, which may have
// decimals, on notes, orders, proformas and vouchers.
std::vector<Table> salesTables() {
  return {
      header("G_FACCLI", "NUMFAC", "DATAFAC")
          .numbered("NUMFAC")
          .text("SERIE", 5)
          .integers("CODCLI MODREG BATVA1")
          .dates("DATASCAD")
          .text("CODDeviza", 3)
          .reals("Curs")
          .text("JURNAL", 3)
          .flags("NoteContabile STORNAT LISTAT CONTAT")
          .reals(
              "PRRB COMREP TRANSFT TRANSTTI TVATRANS TOTTVATRAN TOTFT VALTVA1 VALTVA2 VALTVA3 VALTVA4 "
              "VALTVA5 "
              "TOTTVA1 TOTTVA2 TOTTVA3 TOTTVA4 TOTTVA5 TOTTVA TOTACCIZE TOTTTI ADAOS INCASAT TOTSOLD TOTGR "
              "TOTPAC ACC_PR_1 ACC_PR_2 ACC_PR_3 ACC_PR_4 ACC_PR_5")
          .integers("CODREP EXEMPLAR TIPRB BATVA2 BATVA3 BATVA4 BATVA5")
          .texts("REF SURSA NUMCOM CONLIV MODTRA EXIM", 50),
      lines("G_LFACCL", "NUMFAC")
          .reals("PRETFT PRETTTI VALOAREFT VALOARETVA VALOARETTI PRETVALUTA")
          .integers("CODTVA")
          .reals("VALTVA")
          .text("CODDEV", 3)
          .reals("CURS COST CANTAVIZ")
          .text("NUMAE", kNumberWidth + 2)
          .reals("DiscountArticol DiscountClient ValoareFTCuDiscount")
          .text("PALET", 20)
          .reals("PRIXUTTCV PRRB MONTHTV MONTTTCV VALACCIZE LPAMP GREUT TOTPAC PAMP ADAOS CANT_ECU "
                 "ACCIZE_ECU ECU "
                 "PR_ACCIZE PXACHAT")
          .texts("MODCAL ECU_UM PROV EXIM", 20)
          .index("NUMAE", "NUMAE IS NOT NULL"),
      header("G_BONCASA", "NUMFAC", "DATAFAC")
          .numbered("NUMFAC")
          .integers("CODCLI BATVA1 MODREG")
          .dates("DATASCAD")
          .text("SERIE", 5)
          .text("CODDeviza", 3)
          .reals("Curs")
          .flags("NoteContabile LISTAT")
          .integers("TIPARIRE"),
      lines("G_LBONCASA", "NUMFAC")
          .reals("PRETFT PRETVALUTA VALOAREFT VALOARETVA VALOARETTI ValoareFTCuDiscount CANTAVIZ")
          .text("NUMAE", kNumberWidth + 2)
          .reals("COST DiscountArticol DiscountClient"),
      header("G_AECLI", "NUMAE", "DATAAE", "OBSERV")
          .numbered("NUMAE")
          .integers("CODCLI")
          .reals("BATVA1")
          .text("SERIE", 5)
          .text("CODDeviza", 3)
          .reals("Curs")
          .flags("FACTURAT")
          .index("Magazie DATAAE", "FACTURAT = 0"),  // the notes that an invoice can take over
      lines("G_LAECLI", "NUMAE")
          .reals("PRETFT VALOAREFT VALOARETVA VALOARETTI CANTRAMAS PRIXUV VALOARECOST COST DiscountArticol "
                 "DiscountClient ValoareFTCuDiscount")
          .text("REFERINTA", kNumberWidth + 2)
          .dates("DATASOLD"),
      header("G_PROFOR", "NUMPF", "DATAPF")
          .integers("CODCLI")
          .reals("BATVA")
          .text("CODDeviza", 3)
          .reals("Curs"),
      lines("G_LPROFO", "NUMPF")
          .reals("PRETFT PRETTTI VALOAREFT VALOARETVA VALOARETTI PRIXUV")
          .integers("CODTVA")
          .text("CODDEV", 3)
          .reals("CURS DiscountArticol DiscountClient ValoareFTCuDiscount")
          .text("PALET", 20),
      header("G_COMCLI", "NUMCOM", "DATACOM")
          .integers("CODCLI")
          .reals("BATVA1")
          .dates("DATALIV")
          .text("REF", 20)
          .text("CODDEV", 3)
          .reals("CURS")
          .index("CODCLI"),
      lines("G_LCOMCL", "NUMCOM")
          .reals("PRETFT VALOAREFT VALOARETVA VALOARETTI PRIXUV")
          .text("REFERINTA", kNumberWidth + 2)
          .reals("CANTLIV CANTRLIV")
          .index("CODART"),
      Table("G_FACTURI_COMENZI_CLIENTI")
          .texts("ID_Factura ID_Comanda", kNumberWidth)
          .key("ID_Factura ID_Comanda")
          .index("ID_Comanda"),
  };
}

std::vector<Table> purchaseTables() {
  return {
      header("G_COMFUR", "NUMCOM", "DATACOM")
          .integers("CODFUR")
          .reals("BATVA1")
          .dates("DATALIV")
          .text("REF", 20)
          .text("CODDEV", 3)
          .reals("CURS")
          .flags("SOLDAT")
          .index("Magazie DATACOM", "SOLDAT = 0"),  // the orders that a receipt note can take over
      lines("G_LCOMFU", "NUMCOM")
          .text("DENUMIRE2", kNameWidth)
          .text("CODPRODFUR", 20)
          .reals("PRETFT VALOAREFT VALOARETTI VALOARETVA CANTLIV CANTRLIV")
          .text("REFERINTA", kNumberWidth + 2)
          .dates("DATASOLD"),
      header("G_FACFUR", "NUMFAC", "DATAFAC")
          .integers("CODFUR BATVA1")
          .dates("DATASCAD")
          .text("JURNAL", 3)
          .flags("NoteContabile TVAINC"),
      lines("G_LFACFU", "NUMFAC")
          .reals("PRETFT VALOAREFT VALOARETVA VALOARETTI PRETVA")
          .text("PALET", 20)
          .text("NUMCOM", kNumberWidth + 2),
      header("G_FACIMP", "NUMFAC", "DATAFAC", "OBS", kImportRemarkWidth)
          .integers("CODFUR BATVA")
          .dates("DATASCAD")
          .text("JURNAL", 3)
          .text("CODVALUTA", 3)
          .reals("CURSVALUTA COTATRANSP")
          .text("NUMFACTR", kNumberWidth)
          .integers("CODFURTR")
          .text("NUMEFURTR", 40)
          .reals("TRANSTTI"),
      lines("G_LFACIM", "NUMFAC")
          .reals("PRETVAL VALOAREVAL PRET VALOARE VALCHTR VALCUTRANS PVAMA VALVAMA VALOAREFT VALTVA COST "
                 "COSTVAL PRETVA")
          .text("PALET", 20),
      header("G_NRFURN", "NUMNR", "DATANR")
          .integers("CODFUR")
          .reals("BATVA")
          .flags("STOCINITIAL NoteContabile"),
      lines("G_LNRFUR", "NUMNR")
          .reals("PRETFT VALOAREFT QTECOM PRETFTV")
          .text("NUMCOM", kNumberWidth + 2)
          .index("NUMCOM", "NUMCOM IS NOT NULL"),
      Table("G_LNRFUR_REC")
          .text("NUMNR", kNumberWidth)
          .integers("NRLINIE")
          .text("CODART", kArticleWidth)
          .reals("CANT")
          .key("NUMNR NRLINIE"),
      header("G_BONINT", "NUMNR", "DATANR").integers("CODFUR").reals("BATVA"),
      lines("G_LBONINT", "NUMNR").reals("QTECOM PRETFT VALOAREFT PRETVA"),
  };
}

std::vector<Table> internalTables() {
  return {
      header("G_BONCON", "NUMAE", "DATAAE", "OBSERV").integers("CODCLI").reals("BATVA1"),
      lines("G_LBONCON", "NUMAE").reals("PRETFT VALOAREFT VALOARETVA VALOARETTI CANTRAMAS"),
      header("G_TRANSFER", "NUMAE", "DATAAE", "OBSERV").integers("DESTMAGAZIE"),
      lines("G_LTRANSFER", "NUMAE").reals("PRETFT VALOAREFT VALOARETTI VALOARETVA PRETVA").text("PALET", 20),
  };
}

}  // namespace

std::vector<Table> documentTables() {
  std::vector<Table> tables = salesTables();
  for (const auto& part : {purchaseTables(), internalTables()})
    tables.insert(tables.end(), part.begin(), part.end());
  return tables;
}

}  // namespace velmar
