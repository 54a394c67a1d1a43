// Customer invoice, cash sale, delivery note, proforma, customer order and storno.
#include <QHash>

#include "documents/KindTexts.h"
#include "documents/KindWording.h"

namespace velmar {

using namespace wording;

namespace {

const QString kChooseCustomer = QStringLiteral("Selectati client din lista de clienti");
const QString kChooseRate = QStringLiteral("Selectati cota TVA din lista");
const QString kChoosePayment = QStringLiteral("Selectati o modalitate de plata");
const QString kRemarkTip = QStringLiteral("Introduceti maxim 45 caractere");
const QString kNumberTip = QStringLiteral("Introduceti maxim 20 caractere");

HeaderField customer(const DocumentKind& kind) {
  return {HeaderFieldType::Partner, kind.partnerColumn, "txtFields(1)", "&Client",
          kChooseCustomer,          "DataCombo1"};
}

HeaderField remark(const DocumentKind& kind) {
  return {HeaderFieldType::Remark, kind.remarkColumn, "txtFields(3)", "&Observatii", kRemarkTip};
}

HeaderField vatRate(const QString& column) {
  HeaderField field{HeaderFieldType::VatRate, column, "txtFields(2)", "Cota &TVA", kChooseRate, "cboTVA"};
  field.keeps = true;
  return field;
}

HeaderField costCentre() {
  return {HeaderFieldType::CostCentre, "", "DataCombo2", "Centru de cost",
          "Selectati centru de cost din lista"};
}

// Sales have more columns than other kinds: narrower ones keep the value visible on the smallest screen.
void fitOnScreen(QList<LineColumn>& columns) {
  static const QHash<QString, int> kWidths{{"CODART", 12},     {"DENUMIRE", 24},  {"CANT", 9},
                                           {"PRETFT", 10},     {"VALOAREFT", 11}, {"ValoareFTCuDiscount", 10},
                                           {"VALOARETVA", 10}, {"VALOARETTI", 11}};
  for (LineColumn& column : columns) column.width = kWidths.value(column.field, column.width);
}

// Quantity to value with VAT, with the prices and discounts of a sale. `currencyPrice` may be empty.
void describeSaleColumns(DocumentKind& kind, LineEntry entry, const QString& currencyPrice) {
  QList<LineColumn> columns = leadingColumns(kind);
  columns.append({"CANT", "Cantitate", entry, 3, 3, 12});
  if (!currencyPrice.isEmpty()) columns.append(price(currencyPrice, "Pret unitar valuta", entry));
  columns.append({price("PRETFT", "Pret unitar", entry, kSessionDecimals),
                  {"DiscountClient", "% Disc. Client", LineEntry::Locked, 2, kAsTyped, 8},
                  {"DiscountArticol", "% Disc. Art", LineEntry::Locked, 2, kAsTyped, 8},
                  price("ValoareFTCuDiscount", "Pret cu Disc.", entry),
                  value("VALOAREFT", "Valoare"),
                  {"VALOARETVA", "Valoare TVA", entry, kSessionDecimals, 2, 14},
                  value("VALOARETTI", "Valoare Totala")});
  fitOnScreen(columns);
  kind.lineColumns = columns;
  kind.lineCheck.netPrice = QStringLiteral("ValoareFTCuDiscount");
}

void describeInvoiceFields(DocumentKind& kind) {
  kind.headerFields = {
      {HeaderFieldType::Number, "NUMFAC", "txtFields(0)", "&Numar factura", kNumberTip},
      {HeaderFieldType::Date, "DATAFAC", "dtpDataFactura", "&Data factura", ""},
      {HeaderFieldType::DueDate, "DATASCAD", "DTPicker1", "Data &scadenta", ""},
      customer(kind),
      vatRate("BATVA1"),
      {HeaderFieldType::PaymentMode, "MODREG", "cboModPlata", "&Mod de plata", kChoosePayment, "", "OP"},
      companyJournal()};
  kind.headerFields += currencyFields("CODDeviza", "Curs");
  kind.headerFields += QList<HeaderField>{
      costCentre(),
      postsNotes("Bifati daca factura genereaza note contabile"),
      {HeaderFieldType::Flag, "", "chkCalculValuta", "Pret articol din pret de vanzare in valuta", "", "", "",
       0, true},
      {HeaderFieldType::Text, "", "TextPalet", "Palet", "Paletul ale carui articole se preiau pe factura"},
      remark(kind)};
}

void describeInvoiceColumns(DocumentKind& kind) {
  describeSaleColumns(kind, LineEntry::Number, "PRETVALUTA");
  kind.lineColumns[1].caption = "nr. linie";
  kind.lineColumns[3].caption = "Denumire";
  kind.lineColumns +=
      QList<LineColumn>{{"CANTAVIZ", "Cantitate conform document", LineEntry::Locked, 3, kAsTyped, 14},
                        {"NUMAE", "Numar document", LineEntry::Locked, -1, kAsTyped, 14},
                        value("COST", "Valoare COST")};
}

}  // namespace

void describeCustomerInvoice(DocumentKind& kind) {
  kind.headerChecks = {
      {HeaderCheck::PaletSold, "Pentru acest palet a fost deja emisa factura de vanzare. ", "TextPalet"},
      numberEmpty(kind, "facturii"),
      customerEmpty(kind),
      journalEmpty(),
      rateNotChosen("BATVA1"),
      numberTaken(kind, "Factura")};
  kind.validationChecks = {
      nothingSelected(kind, "Va rugam selectati o factura !"),
      dueBeforeDate(),
      beforeFiscalYear(kind),
      currencyWithoutRate("Curs"),
      journalNotChosen(),
      {ValidationCheck::NoLines,
       "Factura nu contine nici un articol ! Nu se poate efectua introducerea in stoc !", "CODART"}};
  kind.printChecks = {
      printWithoutNumber(kind, "Nu exista factura selectata!"),
      printWithoutPartner(kind, "Nu exista client selectat!"),
      printUnsaved(kind, "Va rugam apasati butonul Detaliu pentru salvarea informatiilor din antet")};
  describeInvoiceFields(kind);
  describeInvoiceColumns(kind);
  kind.draftColumns = QStringList{"DATASCAD", "JURNAL"};
  kind.texts.title = "Facturi client";
  kind.texts.draftsCaption = "Lista facturi";
  setTips(kind.texts, "Creare factura client noua", "Stergere factura selectata", "Tiparire factura");
  setQuestions(kind.texts, "factura", "Va rugam selectati o factura !");
  kind.texts.validated = "Factura a fost salvata cu succes in Articole si Documente !";
  kind.texts.validatedFromNotes = "Factura a fost salvata cu succes in Documente !";
  kind.texts.ledgerFailure = kind.texts.stockFailure = "EROARE: %1 - %2 LINIA %3";
  kind.texts.ledgerFailureTitle = kind.texts.stockFailureTitle = kind.texts.postingFailureTitle = "";
  kind.texts.postingFailure =
      "Eroare %1 - %2 in procedura SalvareDateContabile_1 din Form frmGrilaFC Linia: %3";
}

void describeCashSale(DocumentKind& kind) {
  const QString selectSale = "Va rugam selectati un bon !";
  kind.headerChecks = {
      {HeaderCheck::CashPartnerMissing, "Va rugam creati un client denumit CASA, in tabela TERTI ", "CODCLI"},
      numberEmpty(kind, "bonului"),
      customerEmpty(kind),
      rateNotChosen("BATVA1"),
      numberTaken(kind, "Bonul")};
  kind.validationChecks = {
      nothingSelected(kind, selectSale),
      beforeFiscalYear(kind),
      currencyWithoutRate("Curs"),
      {ValidationCheck::NoLines, "Bonul nu contine nici un articol ! Validare nereusita !", "CODART"}};
  kind.distinctArticles = false;  // articles may be scanned in any order, also repeatedly
  kind.receipt = {
      "LISTAT",
      "TIPARIRE",
      {"DATAFAC", "BATVA1"},
      "Bonul a fost tiparit pe casa de marcat. Nu mai poate fi tiparit inca odata.",
      "Bonul a fost tiparit pe casa de marcat si nu poate fi sters",
      "Bonul a fost tiparit pe casa de marcat si nu mai poate fi modificat",
      "Bonul a fost trimis la casa de marcat si nu se stie daca a iesit. Apasati Tiparire pentru a "
      "spune."};
  kind.printChecks = {printWithoutNumber(kind, selectSale),
                      {PrintCheck::ReceiptPrinted, kind.receipt.printedText, "NUMFAC"},
                      {PrintCheck::BeforeFiscalYear, beforeFiscalYear(kind).text, kind.dateColumn},
                      {PrintCheck::NoLines, "Bonul nu contine nici un articol ! ", "CODART"},
                      printWithoutPartner(kind, "Va rog selectati un client!")};
  kind.headerFields = {{HeaderFieldType::Number, "NUMFAC", "txtFields(0)", "&Numar bon", kNumberTip},
                       {HeaderFieldType::Date, "DATAFAC", "dtpDataFactura", "&Data bon", ""},
                       customer(kind),
                       vatRate("BATVA1"),
                       {HeaderFieldType::PaymentMode, "MODREG", "cboModPlata", "&Mod de plata",
                        kChoosePayment, "", "NUMERAR"}};
  kind.headerFields += currencyFields("CODDeviza", "Curs");
  kind.headerFields += QList<HeaderField>{
      costCentre(),
      {HeaderFieldType::Flag, "", "CheckCasaMarcat", " Casa de marcat",
       "Bifati daca aveti conexiune cu casa de marcat", "", "", 0, true},
      {HeaderFieldType::Flag, "", "CheckCard", " Card", "Bifati daca plata se face cu cardul"},
      {HeaderFieldType::Amount, "", "TextNrCaractere", " Caractere",
       "Numarul de caractere al denumirii pe bonul fiscal", "", "", 0, true},
      postsNotes("Bifati daca bonul genereaza note contabile"),
      remark(kind)};
  describeSaleColumns(kind, LineEntry::PositiveNumber, "PRETVALUTA");
  kind.lineColumns +=
      QList<LineColumn>{{"CANTAVIZ", "Cantitate conform document", LineEntry::Locked, 3, kAsTyped, 14, false},
                        {"NUMAE", "Numar document", LineEntry::Locked, -1, kAsTyped, 14, false},
                        value("COST", "Valoare COST")};
  kind.texts.title = "Bonuri de Casa";
  kind.texts.draftsCaption = "Lista bonuri de casa";
  setTips(kind.texts, "Creare bon de casa nou", "Stergere bon de casa selectat", "Tiparire bon de casa");
  setQuestions(kind.texts, "bonul", selectSale);
  kind.texts.confirmValidation.clear();
  kind.texts.validated = "Bonul a fost salvat cu succes in Articole si Documente !";
  kind.texts.unknownArticle = "Articolul cu codul %1 nu exista ";
  kind.texts.ledgerFailure = kind.texts.stockFailure = "EROARE: %1 - %2 LINIA %3";
  kind.texts.ledgerFailureTitle = kind.texts.stockFailureTitle = kind.texts.postingFailureTitle = "";
  kind.texts.postingFailure =
      "Eroare %1 - %2 in procedura SalvareDateContabile din Form frmGrilaCS Linia: %3";
}

void describeDeliveryNote(DocumentKind& kind) {
  kind.headerChecks = {numberEmpty(kind, "avizului"), customerEmpty(kind), rateNotChosen("BATVA1"),
                       numberTaken(kind, "Avizul")};
  kind.validationChecks = {nothingSelected(kind, "Va rugam selectati un aviz !"), currencyWithoutRate("Curs"),
                           noLines("Avizul")};
  kind.printChecks = {printWithoutNumber(kind, "Va rugam selectati un aviz de expeditie!"),
                      printWithoutPartner(kind, "Va rugam selectati un client"), printUnsaved(kind)};
  kind.headerFields = {{HeaderFieldType::Number, "NUMAE", "txtFields(0)", "&Numar aviz", kNumberTip},
                       {HeaderFieldType::Date, "DATAAE", "dtpDataFactura", "&Data aviz", ""},
                       customer(kind),
                       vatPercent("BATVA1", "19")};
  kind.headerFields += currencyFields("CODDeviza", "Curs");
  kind.headerFields += QList<HeaderField>{
      costCentre(),
      {HeaderFieldType::Flag, "", "chkCalculValuta", "Pret articol din pret de vanzare in valuta", ""},
      remark(kind)};
  describeSaleColumns(kind, LineEntry::PositiveNumber, "PRIXUV");
  kind.lineColumns += QList<LineColumn>{{"CANTRAMAS", "Cantitate ramasa", LineEntry::Locked, 3, kAsTyped, 12},
                                        value("VALOARECOST", "Valoare cost")};
  kind.texts.title = "Avize de expeditie";
  kind.texts.draftsCaption = "Lista avize";
  setTips(kind.texts, "Creare aviz de expeditie nou", "Stergere aviz selectat", "Tiparire aviz");
  setQuestions(kind.texts, "avizul", "Va rugam selectati un aviz !");
  kind.texts.validated = "Avizul de Expeditie a fost salvat cu succes in Articole si Documente !";
}

void describeProforma(DocumentKind& kind) {
  kind.headerChecks = {numberEmpty(kind, "facturii"), customerEmpty(kind), percentNotPositive("BATVA"),
                       numberTaken(kind, "Factura")};
  kind.validationChecks = {nothingSelected(kind, "Va rugam selectati o factura !"),
                           currencyWithoutRate("Curs"), noLines("Factura Proforma")};
  kind.printChecks = {printWithoutNumber(kind, "Va rugam selectati o proforma"),
                      printWithoutPartner(kind, "Va rugam selectati o proforma cu client"),
                      printUnsaved(kind)};
  HeaderField percent = vatPercent("BATVA", "19");
  percent.list = "cboTVA";
  kind.headerFields = {{HeaderFieldType::Number, "NUMPF", "txtFields(0)", "&Numar proforma", kNumberTip},
                       {HeaderFieldType::Date, "DATAPF", "dtpDataFactura", "&Data proforma", ""},
                       customer(kind),
                       percent};
  kind.headerFields += currencyFields("CODDeviza", "Curs");
  kind.headerFields += QList<HeaderField>{{HeaderFieldType::Flag, "", "chkCalculValuta",
                                           "Calculeaza pret articol in functie de pret vanzare valuta", ""},
                                          remark(kind)};
  describeSaleColumns(kind, LineEntry::PositiveNumber, "");
  kind.lineColumns.append(price("PRIXUV", "Pret unitar valuta", LineEntry::PositiveNumber));
  kind.texts.title = "Facturi Proforma";
  kind.texts.draftsCaption = "Lista facturi proforma";
  setTips(kind.texts, "Creare factura proforma noua", "Stergere factura proforma selectata",
          "Tiparire factura proforma");
  kind.texts.validateTip = kRecordTip;
  setQuestions(kind.texts, "factura proforma", "Va rugam selectati o factura !");
  kind.texts.validated = "Factura Proforma a fost salvata cu succes in Documente !";
}

void describeCustomerOrder(DocumentKind& kind) {
  kind.headerChecks = {numberEmpty(kind, "comenzii"), customerEmpty(kind), percentNotPositive("BATVA1"),
                       numberTaken(kind, "Comanda")};
  kind.validationChecks = {nothingSelected(kind, "Va rugam selectati o comanda !"),
                           currencyWithoutRate("CURS"), noLines("Comanda")};
  kind.printChecks = {printWithoutNumber(kind, "Va rugam selectati o comanda"), printUnsaved(kind)};
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
}

// Has no draft: shows the lines of the invoice and has its own number and date.
void describeStorno(DocumentKind& kind) {
  kind.validationChecks = {
      {ValidationCheck::OutsidePeriod, "Data document trebuie sa fie in intervalul: %1-%2", "DATAFAC"},
      {ValidationCheck::NumberOfOrigin, "Factura de stornare trebuie sa fie diferita", "NUMFAC", "",
       "Atentie!"},
      nothingSelected(kind, "Va rugam introduceti numarul documentului !"),
      noLines("Factura")};
  kind.printChecks = {printWithoutNumber(kind, "Introduceti numarul facturii !"),
                      printWithoutPartner(kind, "Nu exista client selectat!")};
  kind.headerFields = {
      {HeaderFieldType::Number, "NUMFAC", "txtFields(0)", "&Numar factura de stornare", kNumberTip},
      {HeaderFieldType::Date, "DATAFAC", "dtpDataFactura", "&Data factura", ""},
      customer(kind),
      vatRate("BATVA1")};
  kind.headerFields += currencyFields("CODDeviza", "Curs");
  kind.headerFields.append(remark(kind));
  kind.lineColumns = leadingColumns(kind);
  for (LineColumn& column : kind.lineColumns) column.entry = LineEntry::Locked;
  kind.lineColumns += QList<LineColumn>{{"CANT", "Cantitate", LineEntry::Locked, 3, kAsTyped, 12},
                                        price("ValoareFTCuDiscount", "Pret unitar", LineEntry::Locked),
                                        value("VALOAREFT", "Valoare"),
                                        value("VALOARETVA", "Valoare TVA"),
                                        value("VALOARETTI", "Valoare Totala"),
                                        {"PALET", "Palet", LineEntry::Locked, -1, kAsTyped, 12}};
  kind.texts.title = "Stornare";
  kind.texts.draftsCaption = "Lista facturi";
  kind.texts.validateTip =
      "Verificare informatii, salvare in tabela Documente, modificare stoc si generare formule contabile";
  kind.texts.printTip = "Tiparire factura";
  kind.texts.confirmValidation = "Sunteti sigur ca doriti sa stornati factura %1 cu factura %2 ?";
  kind.texts.validated = "Factura a fost salvata cu succes in Articole si Documente !";
}

}  // namespace velmar
