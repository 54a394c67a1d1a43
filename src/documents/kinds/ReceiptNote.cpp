// The goods receipt note.
#include "documents/kinds/PurchaseWording.h"

namespace velmar {

using namespace wording;

DocumentKind receiptNote() {
  DocumentKind kind = kindOf(KindId::ReceiptNote, "goods receipt note", "frmGrilaNIR");
  kind.headerTable = "G_NRFURN";
  kind.lineTable = "G_LNRFUR";
  kind.numberColumn = "NUMNR";
  kind.dateColumn = "DATANR";
  kind.partnerColumn = "CODFUR";
  kind.remarkColumn = "OBS";
  kind.tipie = "I";
  kind.sourceColumn = "NUMCOM";
  kind.existsKind = "NIR";
  kind.partnersAreSuppliers = true;
  kind.lineCheck.salePrice = "PRETFTV";
  kind.texts.numberTaken = numberTakenText("N.I.R.");
  kind.headerChecks = {numberEmpty(kind, "N.I.R."), supplierEmpty(kind), percentNotPositive("BATVA"),
                       numberTaken(kind)};
  kind.validationChecks = {nothingSelected(kind, "Va rugam selectati un N.I.R. !"), noLines("N.I.R.-ul"),
                           beforeFiscalYear(kind)};
  kind.printChecks = {nothingSelected(kind, "Nu este selectat nici-un NIR"),
                      printWithoutPartner(kind, "Nu este selectat nici-un furnizor"), printUnsaved(kind)};
  kind.headerFields = {
      {HeaderFieldType::Number, "NUMNR", "txtFields(0)", "&Numar", "Introduceti maxim 20 caractere"},
      {HeaderFieldType::Date, "DATANR", "dtpDataDoc", "&Data N.I.R.", ""},
      supplier("Selectati furnizor in lista de furnizori"),
      vatPercent("BATVA", "19"),
      {HeaderFieldType::Flag, "STOCINITIAL", "chkStocInitial", "&Stoc initial",
       "Executati clik daca este NIR de preluare stocuri initiale"},
      {HeaderFieldType::Flag, "NoteContabile", "chkNoteContabile", "Note Contabile ",
       "Bifati daca N.I.R.-ul genereaza note contabile"},
      {HeaderFieldType::Flag, "", "chkReturMf", "&Retur marfa", "Executati clik daca este NIR de retur"},
      supplierRemark("Maxim 35 caractere", 35)};
  kind.lineColumns = leadingColumns(kind);
  kind.lineColumns += QList<LineColumn>{
      {"CANT", "Cantitate", LineEntry::PositiveNumber, 3, 3, 12},
      {"QTECOM", "Cant. comandata", LineEntry::PositiveNumber, 3, kAsTyped, 12},
      {"PRETFT", "Pret unitar", LineEntry::PositiveNumber, 2, 2, 12},
      {"VALOAREFT", "Valoare", LineEntry::Locked, 2, kAsTyped, 14},
      {"PRETFTV", "Pret vanzare", LineEntry::PositiveNumber, 2, 2, 12},
      {"VALOAREFTV", "Valoare vanzare", LineEntry::Locked, 2, kAsTyped, 14, true, {"CANT", "PRETFTV"}},
      {"NUMCOM", "Document sursa", LineEntry::Locked, -1, kAsTyped, 14, false}};
  kind.texts.title = "N.I.R.";
  kind.texts.draftsCaption = "Lista NIR";
  setTips(kind.texts, "Creare NIR nou", "Stergere NIR selectat", "Tiparire NIR");
  kind.texts.validateTip =
      "Verificare informatii, salvare in tabela Documente modificare stocuri si generare formule contabile";
  setQuestions(kind.texts, "N.I.R.", "Va rugam selectati un N.I.R. !");
  kind.texts.saveFirst = "Va rugam salvati mai intai NIR-ul !";
  kind.texts.confirmDeletion = "Sunteti sigur ca doriti sa stergeti N.I.R.  %1 ?";
  kind.texts.validated = "NIR a fost salvat cu succes in Articole si Documente !";
  kind.texts.unknownArticle = kUnknownArticle;
  return kind;
}

}  // namespace velmar
