// Consumption voucher and transfer between warehouses.
#include "documents/KindTexts.h"
#include "documents/KindWording.h"

namespace velmar {

using namespace wording;

void describeConsumptionVoucher(DocumentKind& kind) {
  kind.headerChecks = {numberEmpty(kind, "avizului"), customerEmpty(kind), percentNotPositive("BATVA1"),
                       numberTaken(kind, "Avizul")};
  kind.validationChecks = {nothingSelected(kind, "Va rugam selectati un bon de consum !"),
                           noLines("Bonul de consum"), beforeFiscalYear(kind)};
  kind.printChecks = {printWithoutNumber(kind, "Va rugam selectati un bon de consum !"),
                      printWithoutPartner(kind, "Va rugam selectati un client"), printUnsaved(kind)};
  kind.headerFields = {
      {HeaderFieldType::Number, "NUMAE", "txtFields(0)", "&Numar BC", "Introduceti maxim 20 caractere"},
      {HeaderFieldType::Date, "DATAAE", "dtpDataFactura", "&Data BC", ""},
      {HeaderFieldType::Partner, "CODCLI", "txtFields(1)", "&Client",
       "Selectati client, din lista de clienti", "DataCombo1"},
      vatPercent("BATVA1"),
      {HeaderFieldType::CostCentre, "", "DataCombo2", "Centru de cost", "Selectati centru de costa in lista",
       "", "", 0, true},
      {HeaderFieldType::Remark, "OBSERV", "txtFields(3)", "&Observatii", "Introduceti maxim 45 caractere"}};
  kind.lineColumns = leadingColumns(kind);
  kind.lineColumns +=
      QList<LineColumn>{{"CANT", "Cantitate", LineEntry::PositiveNumber, 3, 3, 12},
                        {"CANTRAMAS", "Cantitate ramasa", LineEntry::Locked, 3, kAsTyped, 12},
                        price("PRETFT", "Pret unitar", LineEntry::PositiveNumber),
                        value("VALOAREFT", "Valoare"),
                        {"VALOARETVA", "Valoare TVA", LineEntry::Number, kSessionDecimals, 2, 14},
                        value("VALOARETTI", "Valoare Totala")};
  kind.texts.title = "Bon de consum";
  kind.texts.draftsCaption = "Lista bonuri de consum";
  setTips(kind.texts, "Initializare campuri, pentru creare BC nou", "Stergere BC selectat", "Tiparire BC");
  kind.texts.validateTip =
      "Verificare informatii, salvare in tabela Documente, modificare stoc, generare formule contabile";
  setQuestions(kind.texts, "bonul de consum", "Va rugam selectati un aviz !");
  kind.texts.confirmDeletion = "Sunteti sigur ca doriti sa stergeti avizul %1 ?";
  kind.texts.validated = "Bonul de consum a fost salvat cu succes in Articole si Documente !";
  kind.texts.ledgerFailure = kind.texts.stockFailure = kind.texts.postingFailure =
      "%1 - %2 in procedura SalvareDocumente din Form frmGRILABonConsum Linia: %3";
}

void describeTransfer(DocumentKind& kind) {
  kind.oldestFirst = true;
  kind.headerChecks = {numberEmpty(kind, "avizului"), numberTaken(kind, "Bonul de transfer")};
  kind.validationChecks = {nothingSelected(kind, "Va rugam selectati un document !"), noLines("Documentul")};
  kind.printChecks = {printWithoutNumber(kind, "Va rugam selectati un document de transfer !"),
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
}

}  // namespace velmar
