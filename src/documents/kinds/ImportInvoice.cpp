// The import invoice.
#include "documents/kinds/PurchaseWording.h"

namespace velmar {

using namespace wording;

namespace {

Check numberMissing(const QString& column, const QString& caption) {
  return notNumeric(
      column,
      QStringLiteral("Va rugam introduceti o valoare numerica pentru %1 ! Salvarea nu se poate efectua !")
          .arg(caption));
}

Check numberNegative(const QString& column, const QString& caption) {
  return notPositive(
      column,
      QStringLiteral(
          "Va rugam introduceti o valoare numerica pozitiva pentru %1 ! Salvarea nu se poate efectua !")
          .arg(caption));
}

void describeImportChecks(DocumentKind& kind) {
  kind.headerChecks = {
      numberEmpty(kind, "facturii"),
      supplierEmpty(kind),
      partnerEmpty("CODFURTR", "furnizorului de servicii transport"),
      fieldEmpty("CODVALUTA", "Va rugam completati codul valutei ! Salvarea nu se poate efectua !"),
      numberMissing("CURSVALUTA", "Curs valutar"),
      numberNegative("CURSVALUTA", "Curs valutar"),
      numberMissing("BATVA", "Cota TVA"),
      numberNegative("BATVA", "Cota TVA"),
      numberMissing("COTATRANSP", "Procent transport"),
      numberNegative("COTATRANSP", "Procent transport"),
      fieldEmpty("CURSVALUTA", "Va rugam completati cursul devizei ! Salvarea nu se poate efectua !"),
      journalEmpty(),
      numberTaken(kind),
      otherNumberTaken("NUMFACTR", "FACIMPORTTR",
                       "Factura transport cu acest numar exista deja ! Salvarea nu se poate efectua !")};
  const QString carrierMissing = "Numar factura transport lipsa sau furnizor transport neselectat.";
  kind.validationChecks = {
      nothingSelected(kind, kSelectInvoice),
      noLines("Factura"),
      totalDiffers("Text1", "VALCHTR", false,
                   "Valoare cheltuieli de transport in valuta nu corespunde cu valoare transport din antet ! "
                   "Nu se poate efectua validarea !"),
      totalDiffers("Text4", "VALOAREVAL", true,
                   "Valoarea totala in valuta nu corespunde cu valoare factura din antet ! "),
      emptyWithTotal("NUMFACTR", "VALCHTR", carrierMissing),
      emptyWithTotal("NUMEFURTR", "VALCHTR", carrierMissing),
      beforeFiscalYear(kind),
      dueBeforeDate(),
      currencyWithoutRate("CURSVALUTA"),
      journalNotChosen()};
}

void describeImportFields(DocumentKind& kind) {
  kind.headerFields = {
      {HeaderFieldType::Number, "NUMFAC", "txtFields(0)", "&Numar factura", "Numar factura de import"},
      {HeaderFieldType::Date, "DATAFAC", "dtpDataFactura", "&Data factura", ""},
      {HeaderFieldType::DueDate, "DATASCAD", "DScadenta", "Data &scadenta", ""},
      supplier("Selectati furnizor ( import) din lista de furnizori"),
      {HeaderFieldType::Currency, "CODVALUTA", "txtFields(2)", "Cod &valuta",
       "Selectati codul valutei din lista", "cboCodDevizaDenumire"},
      {HeaderFieldType::Rate, "CURSVALUTA", "txtFields(3)", "&Curs valutar", "Curs valutar"},
      vatRate("BATVA", "txtFields(4)"),
      {HeaderFieldType::Percent, "COTATRANSP", "txtFields(5)", "&Procent transport",
       "Cota procentuala de transport distribuita automat de program pe articole", "", "0"},
      {HeaderFieldType::Flag, "", "ckCotaTr", "Repartizare procentuala",
       "Executati clik daca doriti repartizarea procentuala a cheltuielilor de transport"},
      {HeaderFieldType::Amount, "", "Text1", "Valoare transport",
       "Valoare totala pentru transport ce va fi distribuita de utilizator pe detalii", "", "0"},
      {HeaderFieldType::Text, "NUMFACTR", "Text3", "Factura transport", "Numar factura de transport"},
      {HeaderFieldType::Partner, "CODFURTR", "LBCODFURTR", "Transportator",
       "Selectati furnizorul de servicii de transport", "DataCombo3"},
      {HeaderFieldType::Text, "NUMEFURTR", "Text2", "Nume transportator",
       "Selectati furnizorul de servicii de transport"},
      {HeaderFieldType::Amount, "", "Text4", "Valoare factura", "Valoare factura in valuta", "", "0"},
      {HeaderFieldType::CostCentre, "", "DataCombo2", "Centru de cost", "Selectati centru de cost din lista"},
      companyJournal(),
      {HeaderFieldType::Flag, "", "CheckTVAINC", "TVA la incasare", ""},
      {HeaderFieldType::Remark, "OBS", "txtFields(6)", "&Observatii", "Maxim 60 caractere"}};
}

void describeImportColumns(DocumentKind& kind) {
  kind.lineColumns = leadingColumns(kind);
  kind.lineColumns.insert(4, {"CANT", "Cantitate", LineEntry::Number, 3, 3, 12});
  kind.lineColumns += QList<LineColumn>{price("PRETVAL", "Pret unitar valuta", LineEntry::Number),
                                        value("VALOAREVAL", "Valoare valuta"),
                                        price("PRET", "Pret unitar", LineEntry::Locked),
                                        value("VALOARE", "Valoare"),
                                        {"VALCHTR", "Transport valuta", LineEntry::Number, 3, 3, 12},
                                        value("VALCUTRANS", "Valoare cu transport"),
                                        {"PVAMA", "% Vama", LineEntry::Number, 2, 2, 8},
                                        value("VALVAMA", "Valoare vama"),
                                        value("VALOAREFT", "Valoare totala"),
                                        {"VALTVA", "Valoare TVA", LineEntry::Number, 2, 2, 14},
                                        value("COST", "Cost unitar"),
                                        value("COSTVAL", "Cost unitar valuta"),
                                        {"PRETVA", "Pret vanzare", LineEntry::OptionalPositive, 2, 2, 12},
                                        palet()};
}

}  // namespace

DocumentKind importInvoice() {
  DocumentKind kind = kindOf(KindId::ImportInvoice, "import invoice", "frmGrilaFFI");
  kind.headerTable = "G_FACIMP";
  kind.lineTable = "G_LFACIM";
  kind.numberColumn = "NUMFAC";
  kind.dateColumn = "DATAFAC";
  kind.partnerColumn = "CODFUR";
  kind.remarkColumn = "OBS";
  kind.tipie = "I";
  kind.existsKind = "FACTURAIMPORT";
  kind.partnersAreSuppliers = true;
  kind.lineCheck.price = "PRET";
  kind.lineCheck.salePrice = "PRETVA";
  kind.texts.numberTaken = numberTakenText("Factura");
  describeImportChecks(kind);
  kind.printChecks = invoicePrintChecks(kind);
  describeImportFields(kind);
  describeImportColumns(kind);
  setInvoiceTexts(kind.texts, "Facturi import", "Creare factura import noua", "Tiparire factura");
  return kind;
}

}  // namespace velmar
