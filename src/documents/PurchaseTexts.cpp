// Supplier invoice, import invoice, goods receipt note, input voucher and supplier order.
#include "documents/KindTexts.h"
#include "documents/KindWording.h"

namespace velmar {

using namespace wording;

namespace {

const QString kUnknownArticle = QStringLiteral("Articolul cu codul %1 nu exista ");
const QString kSelectInvoice = QStringLiteral("Va rugam selectati o factura !");

HeaderField supplier(const QString& toolTip) {
  return {HeaderFieldType::Partner, "CODFUR", "txtFields(1)", "&Furnizor", toolTip, "DataCombo1"};
}

HeaderField vatRate(const QString& column, const QString& control) {
  HeaderField field{HeaderFieldType::VatRate,       column,  control, "Cota &TVA",
                    "Selectati cota TVA din lista", "cboTVA"};
  field.keeps = true;
  return field;
}

HeaderField remark(const QString& toolTip, int longest) {
  return {HeaderFieldType::Remark, "OBS", "txtFields(3)", "&Observatii", toolTip, "", "", longest};
}

LineColumn palet() { return {"PALET", "Palet", LineEntry::Locked, -1, kAsTyped, 12}; }

// Common texts of supplier and import invoices.
void setInvoiceTexts(KindTexts& texts, const QString& title, const QString& newTip, const QString& printTip) {
  texts.title = title;
  texts.draftsCaption = "Lista facturi";
  setTips(texts, newTip, "Stergere factura selectata", printTip);
  setQuestions(texts, "factura", kSelectInvoice);
  texts.validated = "Factura a fost salvata cu succes in Articole si Documente !";
}

std::vector<Checked<PrintCheck>> invoicePrintChecks(const DocumentKind& kind) {
  return {printWithoutNumber(kind, "Nu exista factura selectata!"),
          printWithoutPartner(kind, "Nu exista furnizor selectat!"), printUnsaved(kind)};
}

Checked<HeaderCheck> notNumeric(const QString& column, const QString& caption) {
  return {HeaderCheck::NotNumeric,
          QStringLiteral("Va rugam introduceti o valoare numerica pentru %1 ! Salvarea nu se poate efectua !")
              .arg(caption),
          column};
}

Checked<HeaderCheck> notPositive(const QString& column, const QString& caption) {
  return {HeaderCheck::NotPositive,
          QStringLiteral(
              "Va rugam introduceti o valoare numerica pozitiva pentru %1 ! Salvarea nu se poate efectua !")
              .arg(caption),
          column};
}

void describeImportChecks(DocumentKind& kind) {
  kind.headerChecks = {
      numberEmpty(kind, "facturii"),
      supplierEmpty(kind),
      {HeaderCheck::PartnerEmpty,
       "Va rugam completati codul furnizorului de servicii transport ! Salvarea nu se poate efectua !",
       "CODFURTR"},
      {HeaderCheck::FieldEmpty, "Va rugam completati codul valutei ! Salvarea nu se poate efectua !",
       "CODVALUTA"},
      notNumeric("CURSVALUTA", "Curs valutar"),
      notPositive("CURSVALUTA", "Curs valutar"),
      notNumeric("BATVA", "Cota TVA"),
      notPositive("BATVA", "Cota TVA"),
      notNumeric("COTATRANSP", "Procent transport"),
      notPositive("COTATRANSP", "Procent transport"),
      {HeaderCheck::FieldEmpty, "Va rugam completati cursul devizei ! Salvarea nu se poate efectua !",
       "CURSVALUTA"},
      journalEmpty(),
      numberTaken(kind, "Factura"),
      {HeaderCheck::OtherNumberTaken,
       "Factura transport cu acest numar exista deja ! Salvarea nu se poate efectua !", "NUMFACTR",
       "FACIMPORTTR"}};
  const QString carrierMissing = "Numar factura transport lipsa sau furnizor transport neselectat.";
  kind.validationChecks = {
      nothingSelected(kind, kSelectInvoice),
      noLines("Factura"),
      {ValidationCheck::TotalDiffers,
       "Valoare cheltuieli de transport in valuta nu corespunde cu valoare transport din antet ! Nu se poate "
       "efectua validarea !",
       "Text1", "VALCHTR"},
      {ValidationCheck::TotalDiffersGiven,
       "Valoarea totala in valuta nu corespunde cu valoare factura din antet ! ", "Text4", "VALOAREVAL"},
      {ValidationCheck::EmptyWithTotal, carrierMissing, "NUMFACTR", "VALCHTR"},
      {ValidationCheck::EmptyWithTotal, carrierMissing, "NUMEFURTR", "VALCHTR"},
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

void describeSupplierInvoice(DocumentKind& kind) {
  kind.headerChecks = {
      numberEmpty(kind, "facturii"),
      supplierEmpty(kind),
      {HeaderCheck::FieldEmpty, "Va rugam completati codul TVA ! Salvarea nu se poate efectua !", "BATVA1"},
      journalEmpty(),
      numberTaken(kind, "Factura")};
  kind.validationChecks = {nothingSelected(kind, kSelectInvoice), noLines("Factura"), dueBeforeDate(),
                           beforeFiscalYear(kind), journalNotChosen()};
  kind.printChecks = invoicePrintChecks(kind);
  kind.headerFields = {
      {HeaderFieldType::Number, "NUMFAC", "txtFields(0)", "&Numar factura", "Numar factura furnizor"},
      {HeaderFieldType::Date, "DATAFAC", "dtpDataFactura", "&Data factura", ""},
      {HeaderFieldType::DueDate, "DATASCAD", "DScadenta", "Data &scadenta", ""},
      supplier("Selectati furnizor din lista de furnizori"),
      vatRate("BATVA1", "txtFields(2)"),
      companyJournal(),
      postsNotes("Bifati daca factura genereaza note contabile"),
      {HeaderFieldType::Flag, "", "CheckTVAINC", "TVA la incasare", ""},
      {HeaderFieldType::Amount, "", "TextMarja", " Marja",
       "Marja procentuala pentru care diferenta intre pretul vechi si pretul nou de achizitie este "
       "acceptabila",
       "", "10", 0, true},
      remark("Maxim 35 de caractere", 35)};
  kind.draftColumns = QStringList{"JURNAL"};
  kind.lineColumns = leadingColumns(kind);
  kind.lineColumns += QList<LineColumn>{
      {"CANT", "Cantitate", LineEntry::Number, 3, 3, 12},
      price("PRETFT", "Pret unitar", LineEntry::Number, kSessionDecimals),
      value("VALOAREFT", "Valoare"),
      {"VALOARETVA", "Valoare TVA", LineEntry::Number, kSessionDecimals, 2, 14},
      value("VALOARETTI", "Valoare Totala"),
      {"PRETVA", "Pret vanzare", LineEntry::OptionalPositive, kSessionDecimals, kAsTyped, 12},
      palet()};
  setInvoiceTexts(kind.texts, "Facturi furnizor", "Creare factura furnizor noua", "Tiparire NIR");
  kind.texts.ledgerFailureTitle = kind.texts.stockFailureTitle = kind.texts.postingFailureTitle =
      "Salvare Documente/Stoc";
}

void describeImportInvoice(DocumentKind& kind) {
  describeImportChecks(kind);
  kind.printChecks = invoicePrintChecks(kind);
  describeImportFields(kind);
  describeImportColumns(kind);
  setInvoiceTexts(kind.texts, "Facturi import", "Creare factura import noua", "Tiparire factura");
}

void describeReceiptNote(DocumentKind& kind) {
  kind.headerChecks = {numberEmpty(kind, "N.I.R."), supplierEmpty(kind), percentNotPositive("BATVA"),
                       numberTaken(kind, "N.I.R.")};
  kind.validationChecks = {nothingSelected(kind, "Va rugam selectati un N.I.R. !"), noLines("N.I.R.-ul"),
                           beforeFiscalYear(kind)};
  kind.printChecks = {printWithoutNumber(kind, "Nu este selectat nici-un NIR"),
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
      remark("Maxim 35 caractere", 35)};
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
}

void describeInputVoucher(DocumentKind& kind) {
  kind.headerChecks = {numberEmpty(kind, "N.I.R."), supplierEmpty(kind),
                       percentNotPositive("BATVA", HeaderCheck::PercentNotPositive),
                       numberTaken(kind, "Bonul de intrare")};
  kind.validationChecks = {nothingSelected(kind, "Va rugam selectati un bon de intrare !"),
                           beforeFiscalYear(kind), noLines("Bonul de intrare")};
  kind.printChecks = {printWithoutNumber(kind, "Nu este selectat nici un Bon intrare"),
                      printWithoutPartner(kind, "Nu este selectat nici un furnizor"), printUnsaved(kind)};
  kind.headerFields = {
      {HeaderFieldType::Number, "NUMNR", "txtFields(0)", "&Numar", "Introduceti maxim 20 caractere"},
      {HeaderFieldType::Date, "DATANR", "dtpDataDoc", "&Data Bon", ""},
      supplier("Selectati furnizor in lista de furnizori"),
      vatPercent("BATVA"),
      {HeaderFieldType::Remark, "OBS", "txtFields(3)", "&Observatii", "Introduceti maxim 45 caractere"}};
  kind.lineColumns = leadingColumns(kind);
  kind.lineColumns +=
      QList<LineColumn>{{"CANT", "Cantitate", LineEntry::PositiveNumber, 3, 3, 12},
                        {"QTECOM", "Cant. comandata", LineEntry::PositiveNumber, 3, 3, 12},
                        {"PRETFT", "Pret unitar", LineEntry::PositiveNumber, 2, 2, 12},
                        {"VALOAREFT", "Valoare", LineEntry::Locked, 2, kAsTyped, 14},
                        {"PRETVA", "Pret vanzare", LineEntry::OptionalPositive, 2, kAsTyped, 12}};
  kind.texts.title = "Bon de intrare";
  kind.texts.draftsCaption = "Lista Bonuri Intrare";
  setTips(kind.texts, "Creare BI nou", "Stergere Bi selectat", "Tiparire BI");
  kind.texts.saveTip = "Salvare informatii de antet si activare linii de detaliu BI";
  kind.texts.validateTip =
      "Verificare informatii, salvare in tabela de Documente, modificare stoc, generare formule contabile";
  setQuestions(kind.texts, "bonul de intrare", "Va rugam selectati un N.I.R. !");
  kind.texts.confirmDeletion = "Sunteti sigur ca doriti sa stergeti N.I.R.  %1 ?";
  kind.texts.validated = "Bonul de intrare a fost salvat cu succes in Articole si Documente !";
}

void describeSupplierOrder(DocumentKind& kind) {
  kind.oldestFirst = true;
  kind.headerChecks = {numberEmpty(kind, "comenzii"), supplierEmpty(kind), percentNotPositive("BATVA1"),
                       numberTaken(kind, "Comanda")};
  // It can be validated without a rate: its amounts in currency are then 0.
  kind.validationChecks = {nothingSelected(kind, "Va rugam selectati o comanda !"),
                           noLines("Comanda furnizor")};
  kind.printChecks = {printWithoutNumber(kind, "Va rugam selectati o comanda"), printUnsaved(kind)};
  HeaderField percent = vatPercent("BATVA1", "19");
  percent.caption = "Cota &TVA ";
  kind.headerFields = {{HeaderFieldType::Number, "NUMCOM", "txtFields(0)", "&Nr. Cmd.", "Numar comanda"},
                       {HeaderFieldType::Date, "DATACOM", "dtpDataFactura", "&Data comanda", ""},
                       supplier("Selectati furnizor in lista de furnizori"),
                       percent};
  kind.headerFields += currencyFields("CODDEV", "CURS");
  kind.headerFields.append(remark("Maxim 35 caractere", 35));
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
}

}  // namespace velmar
