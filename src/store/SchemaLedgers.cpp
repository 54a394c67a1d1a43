// Ledgers of validated documents, and the work tables of reports and corrections.
#include "store/Schema.h"

namespace velmar {

namespace {

constexpr int kKeyWidth = 23;  // kind, number, side of a transfer

Table ledgerDocuments() {
  return Table("G_DOCUME")
      .text("ID", kKeyWidth)
      .text("TIP", 2)
      .text("TIPIE", 1)
      .integers("CODTERT")
      .dates("DATADOC DATASCAD DATAINTROD")
      .times("TIMP")
      .text("UTILIZATOR", 10)
      .integers("CODMAG")
      .reals("TOTALFT TOTALTVA TOTALCOST")
      .text("CODDEV", 3)
      .reals("CURS TOTALDEV")
      .integers("MODREG")
      .text("SERIE", 5)
      .text("OBS", 60)  // the longest remark of a document
      .text("REF", 20)
      .flags("VALIDAT STORNAT LISTAT")
      .reals("PROCRABAT VALRABAT")
      .text("IMP", 10)
      .text("NUMFACTR", 20)
      .integers("FURTR")
      .reals("TRANSTTI")
      .flags("IsAudio")
      .text("NUMAR", 20)
      .key("ID")
      .index("TIP DATADOC")
      .numbered("ID", 2, "TIP")
      .index("DATADOC")
      .index("CODTERT DATADOC");
}

Table ledgerLines() {
  return Table("G_LDOCUM")
      .text("DOCID", kKeyWidth)
      .integers("LINIE")
      .text("ARTID", 20)
      .reals("CANT PRETFT PRETTTI PRETDEV PRETVA VALTVA COST COSTDEV VALCOST VALCOSTDEV CODTVA")
      .moments("DATA")
      .integers("CODMAG Magazie")
      .text("CODCC", 10)
      .reals("CANTRAMASA")
      .text("REFERINTA", 22)
      .dates("DATASOLD")
      .reals("PROCRAB VALRAB")
      .text("PALET", 20)
      .key("DOCID LINIE")
      // Covering index for the movements of an article.
      .index("ARTID CODMAG DOCID CANT CANTRAMASA")
      // The open lots of an article: few, even if its history is long.
      .index("ARTID", "CANTRAMASA > 0")
      .index("REFERINTA", "REFERINTA IS NOT NULL")
      // The first movements of the list of all.
      .index("LINIE DOCID");
}

Table noteLines() {
  return Table("kt_linii")
      .integers("NDI NRLINIE")
      .text("JURNAL", 3)
      .dates("DATAINR")
      .text("CONT", 16)
      .text("EXPL", 255)
      .reals("DEBIT CREDIT DEVDEBIT DEVCREDIT")
      .text("COD", 3)
      .reals("CURS")
      .texts("DOC MARCA", 20)
      .text("DocExplicatie", 255)
      .integers("TERT")
      .dates("DATASCAD")
      .integers("TVA_LINREF")
      .reals("COTATVA")
      .text("PROV", 1)
      .text("CODBUG", 20)
      .texts("CODCC CODOPER", 10)
      .reals("CANTIT")
      .texts("LITM CodIE CodSucursala ID_Formula CODTREZO", 20)
      .text("UTILIZATOR", 10)
      .moments("TIMP")
      .text("TIPDOC", 2)
      .integers("TVAINC")
      .text("FELDOC", 2)
      .key("NDI NRLINIE")
      // Covering indexes for turnovers and balances.
      .index("CONT DATAINR DEBIT CREDIT")
      .index("TERT CONT DEBIT CREDIT", "TERT IS NOT NULL")
      .index("DOC PROV")
      .index("JURNAL");
}

Table vatJournal(const QString& name) {
  return Table(name)
      .text("UTILIZATOR", 10)
      .integers("NRC")
      .dates("DATA")
      .texts("NDP NUMARFACTURA", kKeyWidth)
      .dates("DATAFACTURA")
      .texts("NUMETERT NUME", 40)
      .texts("CODF CODFISCAL", 14)
      .reals("TOTAL TOTALFT TOTALTVA BAZA1 TVA1")
      .index("UTILIZATOR NRC");
}

}  // namespace

std::vector<Table> ledgerTables() {
  return {
      ledgerDocuments(),
      ledgerLines(),
      // Stock by article and warehouse: the sum of the lines, kept by triggers (StockBalance.h).
      Table("G_STOCMAG").text("ARTID", 20).integers("CODMAG").zeroReals("CANT").key("ARTID CODMAG"),
      Table("G_I_E")
          .text("ID_E", 21)
          .text("TIP_E", 2)  // its kind: a voucher and an invoice may share a number
          .text("ID_I", kKeyWidth)
          .text("CODART", 20)
          .reals("CANT")
          .index("ID_E CODART")
          .index("ID_I CODART"),
      noteLines(),
      vatJournal("kt_jct").reals("IMP TVAIMP NEIMP"),
      vatJournal("kt_jvt").reals("EXPORT SCUTIT SCUTIT_CD SCUTIT_FD"),
      // The files of electronic invoices that were written, the last one of each invoice marked.
      Table("G_EFACTURA")
          .autoNumber("ID")
          .text("DOCID", kKeyWidth)
          .text("NUMAR", 30)
          .text("CONTINUT", 0)
          .text("SHA256", 64)
          .moments("MOMENT")
          .text("UTILIZATOR", 10)
          .text("STARE", 20)
          .text("INDEX_INCARCARE", 30)
          .text("MESAJ", 0)  // of the state's system
          .flags("ACTUAL")
          .index("DOCID STARE", "ACTUAL <> 0")
          .index("INDEX_INCARCARE", "INDEX_INCARCARE IS NOT NULL")
          .index("SHA256"),
      // Electronic invoices of suppliers that were read, and what became of them.
      Table("G_EFACTURAPRIM")
          .autoNumber("ID")
          .text("SHA256", 64)
          .text("FISIER", 255)
          .text("CONTINUT", 0)
          .text("CODFISCAL", 30)
          .text("FURNIZOR", 255)
          .text("NUMAR", 200)
          .dates("DATA")
          .reals("TOTAL")
          .text("STARE", 20)
          .text("LIPSESTE", 255)
          .text("DOCUMENTE", 0)  // numbers of the drafts
          .moments("MOMENT")
          .text("UTILIZATOR", 10)
          .index("SHA256")
          .index("MOMENT")
          .index("CODFISCAL NUMAR"),
      // The article that was chosen last for a supplier's code or name.
      Table("G_EFACTURAART").integers("CODFURN").text("CHEIE", 100).text("CODART", 20).key("CODFURN CHEIE"),
      Table("G_DESCAR")
          .integers("NRCRT POZITIE")
          .text("TIP", 2)
          .text("NRCOMANDA", 22)
          .integers("CODCLIENT")
          .text("NUMECLIENT", 40)
          .dates("DATACOMAND")
          .text("CODARTICOL", 20)
          .text("DENMARFA", 35)
          .reals("PRETVANZAR COSTUNITAR CANTITATE"),
      Table("G_MISCARESTOC").text("DENUMIRE", 20).reals("STOC").text("CODART", 20),
      Table("G_STOC")
          .text("CODART2", 20)
          .text("DENUMIRE2", 35)
          .reals("STOCART COSTART")
          .integers("FAM")
          .index("FAM CODART2"),
      Table("tmpArt").text("ARTID", 20).reals("STOC"),
      Table("tmpAE").text("ARTID", 20).reals("SumOfCANT").text("REFERINTA", 22),
      Table("tmp_CMP").text("ARTID", 20).reals("Valoare Cantitate"),
      Table("tmp_SoldConturi").text("CONT", 16).reals("SumOfDEBIT SumOfCREDIT"),
  };
}

}  // namespace velmar
