// Tables of setup and master data.
#include "store/Schema.h"

namespace velmar {

namespace {

Table companyInfo() {
  return Table("kt_info")
      .text("DENUMIRE", 50)
      .integers("VERSIUNE PlanC")
      .text("TCOST", 4)
      .integers("NrZec")
      .text("TIP", 4)
      .text("NREGCOM", 30)
      .text("CODFISCAL", 14)
      .reals("CAPSOC FP RAMURA")
      .text("PLATITVA", 1)
      .text("banca", 35)
      .text("contbancar", 30)
      .texts("STRADA1 STRADA2", 30)
      .texts("NR1 BLOC1 AP1 NR2 BLOC2 AP2", 4)
      .texts("ORAS1 ORAS2", 35)
      .texts("JUDET1 JUDET2", 2)
      .texts("CODPOSTAL1 CODPOSTAL2", 10)
      .texts("TELEFON1 FAX1 TELEFON2 FAX2", 15)
      .texts("EMAIL1 EMAIL2", 30)
      .text("SECTOR1", 10)
      .flags("TVAINCASARE")
      .integers("TERMENEFACT");
}

Table companyParameters() {
  return Table("kt_par")
      .autoNumber("ID")
      .texts(
          "CONTFurnizori CONTClienti Debitori Creditori Banca Casa PROFIT VENEXPORT VENSCCUDED VENSCFARADED "
          "CDIFCONV VDIFCONV TVACumparare TVAVanzare FurnizoriImobilizari CONTVAMA CONTNIR CONTINTRPROD "
          "CONTAVIZEXP_M CONTAVIZEXP_P",
          16)
      .integers("Capital Chelt IMO STOC VENIT")
      .texts("JURFACFUR JURFACIMP JURFACCLI JURFACSTORNO JURBONINTR JURBONCONS JURAVIZ JURNIR", 3)
      .dates("DATAIN DATASN DATAIN1 DATASN1 DATAIC DATASC")
      .texts("SERIEFC SERIEAE", 5)
      .texts("FCSTART FCEND AESTART AEEND", 12)
      .integers("StornareNegru")
      .text("CASAMARCAT", 1)
      .integers("CASAMARCAT_Nr")
      .flags("MODAUDIO DREPTURIBARE");
}

Table chartOfAccounts(const QString& name) {
  return Table(name)
      .text("CONT", 16)
      .text("TITLU", 40)
      .reals("DEBITN CREDITN DEBITN_1 CREDITN_1 SOLDN")
      .text("CODBUG", 20)
      .text("CREARE", 20)
      .flags("NeUtilizabil")
      .key("CONT");
}

Table partners() {
  return Table("kt_ter")
      .integers("COD")
      .text("NUME", 40)
      .text("TIP", 1)
      .text("CODFISCAL", 14)
      .texts("AD ADL", 50)
      .texts("CP CPL", 10)
      .texts("ORAS TARA ORASL TARAL", 35)
      .text("REPREZ", 20)
      .texts("TELEFON FAX MOBIL", 15)
      .text("EMAIL", 30)
      .text("BANCA", 35)
      .text("CONTBANCAR", 30)
      .text("CodTert", 20)
      .integers("CodVechi")
      .text("CT", 2)
      .texts("RegCom Judet JUDETL", 20)
      .text("CNP", 13)
      .flags("PF")
      .text("SerieBI", 2)
      .text("NrBI", 6)
      .text("EmisBI", 50)
      .dates("DataEmisBI")
      .text("ACTIDENT", 20)
      .reals("PROCPEN")
      .flags("Reprezentant PlatesteTVA")
      .integers("ID_Angajator")
      .text("Contract", 50)
      .text("Observatii", 255)
      .texts("NumeDelegat PRENUMEDELEGAT", 40)
      .dates("DATANDELEGAT")
      .text("UTILIZATOR", 10)
      .dates("DATAC")
      .reals("SOLD CreditAC TotalDAT")
      .flags("Utilizabil")
      .text("AD3", 50)
      .text("Familie", 20)
      .key("COD")
      .index("NUME COD")
      .index("TIP NUME")
      .index("CNP", "CNP IS NOT NULL");
}

Table articles() {
  return Table("G_ARTMAG")
      .text("CODART", 20)
      .integers("ID")
      .text("CODPRODFUR", 20)
      .texts("DENART DenAltaLimba", 35)
      .integers("CODMAGAZIE FAMART")
      .text("PROVENIENTA", 1)
      .text("UM", 5)
      .integers("CODFURNIZO")
      .reals("COTATVA")
      .zeroReals("COST COSTDEV")
      .text("CODDEVIZA", 3)
      .zeroReals("PRETVFT PRETVTTI PRETVFTDEV PRETDEVIZAVANZ")
      .text("CODDEVIZAVANZ", 3)
      .zeroReals("ADAOS ADAOSDEV STOC CANTE")
      .flags("FARASTOC")
      .text("PALET", 20)
      .texts("CONTC CONTCHELT CONTV", 16)
      .reals("CALCULFT FIXPV FIXPVDEV CURSACCIZA GREUTATE PACHET STOCMAXIM STOCMINIM TARIF1 TARIF2 TARIF3")
      .texts("TipAparat TipBaterie TipEmitator", 50)
      .reals("PretVanzare CompensareCAS")
      .key("CODART")
      // Covering index for the type-ahead search.
      .index("DENART CODART CODPRODFUR")
      .index("CODPRODFUR")
      .index("FAMART");
}

std::vector<Table> discounts() {
  return {Table("Terti - Discounturi").integers("CODTert").reals("Discount").key("CODTert"),
          Table("Articole - Discounturi")
              .autoNumber("ID_Discount")
              .text("CODArticol", 20)
              .integers("CantMin CantMax")
              .reals("Discount")
              .index("CODArticol"),
          Table("Familii Articole - Discounturi")
              .autoNumber("ID_Discount")
              .integers("CODFamilie CantMin CantMax")
              .reals("Discount")
              .index("CODFamilie")};
}

}  // namespace

std::vector<Table> masterTables() {
  std::vector<Table> tables = {
      Table("UTILIZATORI").texts("NUME PAROLA", 10).integers("TIP").key("NUME"), companyInfo(),
      companyParameters(), chartOfAccounts("kt_pc"), chartOfAccounts("kt_pc_2003"),
      chartOfAccounts("PLANBUG"), chartOfAccounts("PLANORG"),
      Table("kt_cote")
          .integers("COD")
          .text("CONT", 16)
          .reals("PROCENT")
          .text("CATEGORIE", 2)
          .text("CODSCUTIRE", 30)
          .text("TEXTSCUTIRE", 100)
          .key("COD"),
      Table("G_UM").text("UM", 5).text("COD", 3).key("UM"),
      Table("kt_val").text("COD", 3).text("TITLU", 30).key("COD"),
      // A day may have several rates: the last one entered is valid.
      Table("kt_val2")
          .text("COD", 3)
          .dates("DATA")
          .reals("CURS")
          .autoNumber("ID")
          .index("COD DATA")
          .index("DATA"),
      Table("kt_jur")
          .text("COD", 3)
          .text("TITLU", 40)
          .text("TIP", 1)
          .text("CONT", 16)
          .texts("BANCA ORAS", 35)
          .text("ADRESA", 50)
          .text("CONTBN", 30)
          .text("CODOPER", 10)
          .text("SerieChitante", 10)
          .integers("NrInceput NrSfarsit FEL")
          .key("COD"),
      Table("kt_oper").text("COD", 10).text("DENUMIRE", 40).text("TIP", 1).text("CONT", 16).key("COD"),
      Table("kt_cc").text("COD", 10).text("TITLU", 40).text("UTILIZABIL", 1).key("COD"), partners(),
      Table("G_FAMART")
          .integers("COD")
          .text("DENUMIRE", 35)
          .texts("CONTSTOCMARFA CONTSTOCPROD CONTCHELT CONTVEN", 16)
          .key("COD"),
      Table("G_MULTIMAGAZIE")
          .integers("COD")
          .text("DENUMIRE", 20)
          .text("JURNAL", 3)
          .text("CONT", 16)
          .key("COD"),
      articles()};
  for (const Table& table : discounts()) tables.push_back(table);
  return tables;
}

}  // namespace velmar
