// The proforma invoice.
#include "documents/kinds/SaleRules.h"
#include "documents/kinds/SaleWording.h"
#include "documents/LineChecks.h"

namespace velmar {

using namespace wording;

namespace {

class ProformaRules : public SaleRules {
 public:
  ProformaRules() : SaleRules({.currencyPrice = "PRIXUV"}) {}

  bool movesStock(const Document& /*document*/) const override { return false; }

 protected:
  std::vector<NoteRule> notes(const Document& /*document*/, const PlanInputs& /*inputs*/,
                              const NoteTerms& /*terms*/) const override {
    return {};
  }
};

ListingKind listingForm() {
  ListingKind paper{KindId::Proforma, "frmLstFCP", "Listare Proforma", "ProformaFull"};
  paper.offersCurrency = true;
  paper.choosesTarget = true;
  paper.headerSql =
      "SELECT NUMPF, CODCLI, BATVA, OBS, DATAPF, CODDeviza AS CODDEVIZA, Curs AS CURS FROM G_PROFOR "
      "WHERE NUMPF = ?";
  paper.linesSql =
      "SELECT NUMPF, NRLINIE, CODART, DENUMIRE, CANT, ValoareFTCuDiscount AS PRETFT, VALOAREFT, VALOARETTI, "
      "VALOARETVA, UM FROM G_LPROFO WHERE NUMPF = ? ORDER BY NRLINIE";
  paper.partner = printedCustomer({"JUDET", "REGCOM", "CT"});
  return paper;
}

}  // namespace

DocumentKind proforma() {
  DocumentKind kind = kindOf(KindId::Proforma, "proforma invoice", "frmGrilaPRO");
  static const ProformaRules rules;
  kind.rules = &rules;
  kind.paper = listingForm();
  kind.headerTable = "G_PROFOR";
  kind.lineTable = "G_LPROFO";
  kind.isSale = true;
  kind.numberColumn = "NUMPF";
  kind.dateColumn = "DATAPF";
  kind.partnerColumn = "CODCLI";
  kind.remarkColumn = "OBS";
  kind.existsKind = "PROFORMA";
  kind.texts.numberTaken = numberTakenText("Factura");
  kind.headerChecks = {numberEmpty(kind, "facturii"), customerEmpty(kind), percentNotPositive("BATVA"),
                       numberTaken(kind)};
  kind.validationChecks = {nothingSelected(kind, "Va rugam selectati o factura !"),
                           currencyWithoutRate("Curs"), noLines("Factura Proforma")};
  kind.lineChecks = {distinctArticles(), completeLines()};
  kind.printChecks = {nothingSelected(kind, "Va rugam selectati o proforma"),
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
                                          customerRemark(kind)};
  describeSaleColumns(kind, LineEntry::PositiveNumber, "");
  kind.lineColumns.append(price("PRIXUV", "Pret unitar valuta", LineEntry::PositiveNumber));
  kind.texts.title = "Facturi Proforma";
  kind.texts.draftsCaption = "Lista facturi proforma";
  setTips(kind.texts, "Creare factura proforma noua", "Stergere factura proforma selectata",
          "Tiparire factura proforma");
  kind.texts.validateTip = kRecordTip;
  setQuestions(kind.texts, "factura proforma", "Va rugam selectati o factura !");
  kind.texts.validated = "Factura Proforma a fost salvata cu succes in Documente !";
  return kind;
}

}  // namespace velmar
