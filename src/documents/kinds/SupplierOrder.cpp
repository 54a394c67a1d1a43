// The supplier order.
#include "documents/kinds/PurchaseWording.h"

namespace velmar {

using namespace wording;

DocumentKind supplierOrder() {
  DocumentKind kind = kindOf(KindId::SupplierOrder, "supplier order", "frmGrilaCOMF");
  kind.headerTable = "G_COMFUR";
  kind.lineTable = "G_LCOMFU";
  kind.numberColumn = "NUMCOM";
  kind.dateColumn = "DATACOM";
  kind.partnerColumn = "CODFUR";
  kind.remarkColumn = "OBS";
  kind.existsKind = "COMANDAFURNIZOR";
  kind.partnersAreSuppliers = true;
  kind.texts.numberTaken = numberTakenText("Comanda");
  kind.oldestFirst = true;
  kind.headerChecks = {numberEmpty(kind, "comenzii"), supplierEmpty(kind), percentNotPositive("BATVA1"),
                       numberTaken(kind)};
  // It can be validated without a rate: its amounts in currency are then 0.
  kind.validationChecks = {nothingSelected(kind, "Va rugam selectati o comanda !"),
                           noLines("Comanda furnizor")};
  kind.printChecks = {nothingSelected(kind, "Va rugam selectati o comanda"), printUnsaved(kind)};
  HeaderField percent = vatPercent("BATVA1", "19");
  percent.caption = "Cota &TVA ";
  kind.headerFields = {{HeaderFieldType::Number, "NUMCOM", "txtFields(0)", "&Nr. Cmd.", "Numar comanda"},
                       {HeaderFieldType::Date, "DATACOM", "dtpDataFactura", "&Data comanda", ""},
                       supplier("Selectati furnizor in lista de furnizori"),
                       percent};
  kind.headerFields += currencyFields("CODDEV", "CURS");
  kind.headerFields.append(supplierRemark("Maxim 35 caractere", 35));
  kind.lineColumns = leadingColumns(kind);
  kind.lineColumns +=
      QList<LineColumn>{{"CANT", "Cantitate", LineEntry::PositiveNumber, 3, 3, 12},
                        {"PRETFT", "Pret unitar", LineEntry::PositiveNumber, 2, 2, 12},
                        {"VALOAREFT", "Valoare", LineEntry::Locked, 2, kAsTyped, 14},
                        {"CODPRODFUR", "Cod produs furnizor", LineEntry::Locked, -1, kAsTyped, 16},
                        {"DENUMIRE2", "Denumire 2", LineEntry::Locked, -1, kAsTyped, 30}};
  kind.texts.title = "Comenzi Furnizor";
  kind.texts.draftsCaption = "Lista comenzi furnizor";
  setTips(kind.texts, "Creare comanda furnizor noua", "Stergere comanda selectata", "Tiparire comanda");
  kind.texts.validateTip = kRecordTip;
  setQuestions(kind.texts, "comanda", "Va rugam selectati o comanda !");
  kind.texts.validated = "Comanda a fost salvata cu succes in Documente !";
  kind.texts.validatedTitle = "Salvare";
  kind.texts.rateMissing = "Va rog specificati un curs pentru deviza %1";
  kind.texts.unknownArticle = kUnknownArticle;
  return kind;
}

}  // namespace velmar
