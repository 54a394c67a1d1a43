#include "documents/KindTexts.h"

namespace velmar {

void describe(DocumentKind& kind) {
  if (kind.prefix == QStringLiteral("BI")) describeInputVoucher(kind);
}

void describeInputVoucher(DocumentKind& kind) {
  kind.headerChecks = {
      {HeaderCheck::NumberEmpty, "Va rugam completati numarul N.I.R. ! Salvarea nu se poate efectua !",
       "NUMNR"},
      {HeaderCheck::PartnerEmpty, "Va rugam completati codul furnizorului ! Salvarea nu se poate efectua !",
       "CODFUR"},
      {HeaderCheck::PercentNotPositive,
       "Va rugam introduceti o valoare numerica pozitiva pentru Cota TVA ! Salvarea nu se poate efectua !",
       "BATVA"},
      {HeaderCheck::NumberTaken,
       "Bonul de intrare cu acest numar exista deja ! Salvarea nu se poate efectua !", "NUMNR"}};
  kind.validationChecks = {
      {ValidationCheck::NumberEmpty, "Va rugam selectati un bon de intrare !", "NUMNR"},
      {ValidationCheck::BeforeFiscalYear,
       "Data documentului trebuie sa fie cuprinsa in exercitiul financiar!", "DATANR"},
      {ValidationCheck::NoLines,
       "Bonul de intrare nu contine nici un articol ! Nu se poate efectua validarea !", "CODART"}};
  kind.headerFields = {
      {HeaderFieldType::Number, "NUMNR", "txtFields(0)", "&Numar", "Introduceti maxim 20 caractere"},
      {HeaderFieldType::Date, "DATANR", "dtpDataDoc", "&Data Bon", ""},
      {HeaderFieldType::Partner, "CODFUR", "txtFields(1)", "&Furnizor",
       "Selectati furnizor in lista de furnizori"},
      {HeaderFieldType::Percent, "BATVA", "txtFields(2)", "Cota &TVA", "Selectati cota TVA in lista"},
      {HeaderFieldType::Remark, "OBS", "txtFields(3)", "&Observatii", "Introduceti maxim 45 caractere"}};
  kind.lineColumns = {{"NUMNR", "Numar", LineEntry::Locked, -1, -1, 10, false},
                      {"NRLINIE", "Nr.", LineEntry::Locked, -1, -1, 5},
                      {"CODART", "Cod articol", LineEntry::Code, -1, -1, 16},
                      {"DENUMIRE", "Denumire articol", LineEntry::Name, -1, -1, 36},
                      {"UM", "UM", LineEntry::Locked, -1, -1, 6},
                      {"CANT", "Cantitate", LineEntry::PositiveNumber, 3, 3, 12},
                      {"QTECOM", "Cantitate comandata", LineEntry::PositiveNumber, 3, 3, 12},
                      {"PRETFT", "Pret unitar", LineEntry::PositiveNumber, 2, 2, 12},
                      {"VALOAREFT", "Valoare", LineEntry::Locked, 2, -1, 14},
                      {"PRETVA", "Pret vanzare", LineEntry::OptionalPositive, 2, -1, 12}};
  kind.texts = {
      "Bon de intrare",
      "Lista Bonuri Intrare",
      "Creare BI nou",
      "Salvare informatii de antet si activare linii de detaliu BI",
      "Verificare informatii, salvare in tabela de Documente, modificare stoc, generare formule contabile",
      "Stergere Bi selectat",
      "Tiparire BI",
      "Va rugam salvati mai intai bonul de intrare !",
      "Sunteti sigur ca doriti sa validati bonul de intrare %1 ?",
      "Bonul de intrare a fost salvat cu succes in Articole si Documente !",
      "Va rugam selectati un N.I.R. !",
      "Sunteti sigur ca doriti sa stergeti N.I.R.  %1 ?"};
}

}  // namespace velmar
