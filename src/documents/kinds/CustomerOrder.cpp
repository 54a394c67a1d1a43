// The customer order.
#include "documents/kinds/SaleWording.h"

namespace velmar {

using namespace wording;

DocumentKind customerOrder() {
  DocumentKind kind = kindOf(KindId::CustomerOrder, "customer order", "frmGrilaCOMC");
  kind.headerTable = "G_COMCLI";
  kind.lineTable = "G_LCOMCL";
  kind.numberColumn = "NUMCOM";
  kind.dateColumn = "DATACOM";
  kind.partnerColumn = "CODCLI";
  kind.remarkColumn = "OBS";
  kind.existsKind = "COMANDACLIENT";
  kind.texts.numberTaken = numberTakenText("Comanda");
  kind.headerChecks = {numberEmpty(kind, "comenzii"), customerEmpty(kind), percentNotPositive("BATVA1"),
                       numberTaken(kind)};
  kind.validationChecks = {nothingSelected(kind, "Va rugam selectati o comanda !"),
                           currencyWithoutRate("CURS"), noLines("Comanda")};
  kind.printChecks = {nothingSelected(kind, "Va rugam selectati o comanda"), printUnsaved(kind)};
  kind.headerFields = {{HeaderFieldType::Number, "NUMCOM", "txtFields(0)", "&Numar comanda", kNumberTip},
                       {HeaderFieldType::Date, "DATACOM", "dtpDataDocument", "&Data comanda", ""},
                       customer(kind),
                       vatPercent("BATVA1", "19")};
  kind.headerFields += currencyFields("CODDEV", "CURS");
  kind.headerFields.append({HeaderFieldType::Remark, "OBS", "txtFields(3)", "&Observatii",
                            "Introduceti maxim 35 caractere", "", "", 35});
  kind.lineColumns = leadingColumns(kind);
  kind.lineColumns +=
      QList<LineColumn>{{"CANT", "Cantitate", LineEntry::PositiveNumber, 3, 3, 12},
                        price("PRETFT", "Pret unitar", LineEntry::PositiveNumber, kSessionDecimals),
                        value("VALOAREFT", "Valoare"),
                        {"VALOARETVA", "Valoare TVA", LineEntry::PositiveNumber, kSessionDecimals, 2, 14},
                        value("VALOARETTI", "Valoare Totala"),
                        price("PRIXUV", "Pret unitar valuta", LineEntry::PositiveNumber)};
  kind.texts.title = "Comenzi Client";
  kind.texts.draftsCaption = "Lista comenzi client";
  setTips(kind.texts, "Creare comanda client noua", "Stergere comanda selectata", "Tiparire comanda");
  kind.texts.validateTip = kRecordTip;
  setQuestions(kind.texts, "comanda", "Va rugam selectati o comanda !");
  kind.texts.validated = "Comanda a fost salvata cu succes in Documente !";
  kind.texts.validatedTitle = "Salvare";
  return kind;
}

}  // namespace velmar
