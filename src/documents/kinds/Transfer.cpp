// The transfer between warehouses.
#include "documents/kinds/Wording.h"

namespace velmar {

using namespace wording;

DocumentKind transfer() {
  DocumentKind kind = kindOf(KindId::Transfer, "transfer between warehouses", "frmGRILADocTransfer");
  kind.headerTable = "G_TRANSFER";
  kind.lineTable = "G_LTRANSFER";
  kind.numberColumn = "NUMAE";
  kind.dateColumn = "DATAAE";
  kind.remarkColumn = "OBSERV";
  kind.tipie = "E";
  kind.texts.numberTaken = numberTakenText("Bonul de transfer");
  kind.oldestFirst = true;
  kind.headerChecks = {numberEmpty(kind, "avizului"), numberTaken(kind)};
  kind.validationChecks = {nothingSelected(kind, "Va rugam selectati un document !"), noLines("Documentul")};
  kind.printChecks = {nothingSelected(kind, "Va rugam selectati un document de transfer !"),
                      printUnsaved(kind)};
  kind.headerFields = {
      {HeaderFieldType::Number, "NUMAE", "txtFields(0)", "&Numar document", "Introduceti maxim 20 caractere"},
      {HeaderFieldType::Date, "DATAAE", "dtpDataFactura", "D&ata document", ""},
      {HeaderFieldType::Warehouse, "DESTMAGAZIE", "DataCombo1", "&Destinatie",
       "Selectati magazia destinatie"},
      {HeaderFieldType::Text, "", "TextPalet", " Palet", "Paletul ale carui articole se transfera", "", "0"},
      {HeaderFieldType::Remark, "OBSERV", "txtFields(1)", "&Observatii", "Maxim 35 caractere", "", "", 35}};
  kind.lineColumns = leadingColumns(kind);
  kind.lineColumns +=
      QList<LineColumn>{{"CANT", "Cantitate", LineEntry::PositiveNumber, 3, 3, 12},
                        price("PRETFT", "Pret unitar", LineEntry::PositiveNumber),
                        value("VALOAREFT", "Valoare"),
                        {"PRETVA", "Pret vanzare", LineEntry::OptionalPositive, 2, kAsTyped, 12},
                        {"PALET", "Palet", LineEntry::Locked, -1, kAsTyped, 12}};
  kind.texts.title = "Document de transfer";
  kind.texts.draftsCaption = "Lista documente de transfer";
  setTips(kind.texts, "Creare document de transfer nou", "Stergere document curent", "Tiparire document");
  kind.texts.validateTip = "Verificare informatii, modicare stoc magazii si salvare in tabela Documente ";
  setQuestions(kind.texts, "documentul de transfer", "Va rugam selectati un aviz !");
  kind.texts.confirmDeletion = "Sunteti sigur ca doriti sa stergeti Transferul %1 ?";
  kind.texts.validated = "Documentul de transfer a fost salvat cu succes Documente !";
  return kind;
}

}  // namespace velmar
