// The storno of a customer invoice: has no draft, shows the lines of the invoice and has its own number and
// date.
#include "documents/kinds/SaleWording.h"

namespace velmar {

using namespace wording;

namespace {

// The storno has a number of its own; the number of the document on screen is the invoice's.
Check numberOfOrigin() {
  Check check =
      refusedWhen("Factura de stornare trebuie sa fie diferita", "NUMFAC", [](const Document& document) {
        const QString number = document.typed().text("NUMFAC");
        return !number.isEmpty() && number == document.number;
      });
  check.title = "Atentie!";
  return check;
}

}  // namespace

DocumentKind storno() {
  DocumentKind kind = kindOf(KindId::Storno, "storno of a customer invoice", "frmGRILAStornare");
  kind.headerTable = "G_FACCLI";
  kind.lineTable = "G_LFACCL";
  kind.numberColumn = "NUMFAC";
  kind.dateColumn = "DATAFAC";
  kind.partnerColumn = "CODCLI";
  kind.remarkColumn = "OBS";
  kind.tipie = "I";
  kind.existsKind = "FACTURACLIENT";
  kind.hasDraft = false;
  kind.numbering = Numbering::InvoiceRange;
  kind.validationChecks = {outsidePeriod(kind), numberOfOrigin(),
                           nothingSelected(kind, "Va rugam introduceti numarul documentului !"),
                           noLines("Factura")};
  kind.printChecks = {nothingSelected(kind, "Introduceti numarul facturii !"),
                      printWithoutPartner(kind, "Nu exista client selectat!")};
  kind.headerFields = {
      {HeaderFieldType::Number, "NUMFAC", "txtFields(0)", "&Numar factura de stornare", kNumberTip},
      {HeaderFieldType::Date, "DATAFAC", "dtpDataFactura", "&Data factura", ""},
      customer(kind),
      vatRate("BATVA1")};
  kind.headerFields += currencyFields("CODDeviza", "Curs");
  kind.headerFields.append(customerRemark(kind));
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
  return kind;
}

}  // namespace velmar
