// The delivery note.
#include "documents/kinds/SaleWording.h"

namespace velmar {

using namespace wording;

DocumentKind deliveryNote() {
  DocumentKind kind = kindOf(KindId::DeliveryNote, "delivery note", "frmGrilaAE");
  kind.headerTable = "G_AECLI";
  kind.lineTable = "G_LAECLI";
  kind.numberColumn = "NUMAE";
  kind.dateColumn = "DATAAE";
  kind.partnerColumn = "CODCLI";
  kind.remarkColumn = "OBSERV";
  kind.tipie = "E";
  kind.existsKind = "AVIZ";
  kind.numbering = Numbering::NoteRange;
  kind.texts.numberTaken = numberTakenText("Avizul");
  kind.headerChecks = {numberEmpty(kind, "avizului"), customerEmpty(kind), rateNotChosen("BATVA1"),
                       numberTaken(kind)};
  kind.validationChecks = {nothingSelected(kind, "Va rugam selectati un aviz !"), currencyWithoutRate("Curs"),
                           noLines("Avizul")};
  kind.printChecks = {nothingSelected(kind, "Va rugam selectati un aviz de expeditie!"),
                      printWithoutPartner(kind, "Va rugam selectati un client"), printUnsaved(kind)};
  kind.headerFields = {{HeaderFieldType::Number, "NUMAE", "txtFields(0)", "&Numar aviz", kNumberTip},
                       {HeaderFieldType::Date, "DATAAE", "dtpDataFactura", "&Data aviz", ""},
                       customer(kind),
                       vatPercent("BATVA1", "19")};
  kind.headerFields += currencyFields("CODDeviza", "Curs");
  kind.headerFields += QList<HeaderField>{
      costCentre(),
      {HeaderFieldType::Flag, "", "chkCalculValuta", "Pret articol din pret de vanzare in valuta", ""},
      customerRemark(kind)};
  describeSaleColumns(kind, LineEntry::PositiveNumber, "PRIXUV");
  kind.lineColumns += QList<LineColumn>{{"CANTRAMAS", "Cantitate ramasa", LineEntry::Locked, 3, kAsTyped, 12},
                                        value("VALOARECOST", "Valoare cost")};
  kind.texts.title = "Avize de expeditie";
  kind.texts.draftsCaption = "Lista avize";
  setTips(kind.texts, "Creare aviz de expeditie nou", "Stergere aviz selectat", "Tiparire aviz");
  setQuestions(kind.texts, "avizul", "Va rugam selectati un aviz !");
  kind.texts.validated = "Avizul de Expeditie a fost salvat cu succes in Articole si Documente !";
  return kind;
}

}  // namespace velmar
