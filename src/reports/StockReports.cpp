#include "reports/StockReports.h"

#include <algorithm>

#include "config/Session.h"
#include "reports/ReportStatements.h"
#include "reports/VatJournals.h"
#include "util/Errors.h"

namespace velmar {

const QString kTakesFirstDay = QStringLiteral("chkPrimaZi");
const QString kComparesYears = QStringLiteral("chkComparatie");

namespace {

using Kind = ReportControl::Kind;
using Shown = ReportColumn::Kind;

ReportFrame period(const QString& from, const QString& to) {
  return {"&Perioada", {{Kind::Date, from, "De la "}, {Kind::Date, to, "Pana la"}}};
}

ReportFrame upTo(const QString& to, const QString& caption = "Pana la") {
  return {"&Perioada", {{Kind::Date, to, caption}}};
}

ReportControl warehouse(const QString& missing = "Va rugam precizati magazia") {
  return {Kind::Choice, "cboMag", {}, "Optmag", missing};
}

ReportControl family(const QString& missing = "Va rugam precizati familia") {
  return {Kind::Choice, "cboFamilie", {}, "optFamilie", missing};
}

// Of sales and issues.
std::vector<ReportFrame> salesFrames() {
  return {
      period("DTPickerdela", "DTPickerla"),
      {"&Selectie", {{Kind::Option, "Optmag", "&Magazie"}, warehouse()}},
      {"&Grupare", {{Kind::Option, "optClienti", "&Clienti"}, {Kind::Option, "optMP", "&Modalitati plata"}}},
      {{}, {{Kind::Check, "ChkDetaliu", "Detaliu"}}}};
}

void addSalesVariables(const ReportChoice& choice, Variables& variables) {
  variables.add("ParamData1", choice.dates["DTPickerdela"]);
  variables.add("ParamData2", choice.dates["DTPickerla"]);
  variables.add("ParamTipSort", salesGrouping(choice));
  variables.add("ParamMagazie", choice.has("Optmag") ? choice.texts["cboMag"] : QString());
  variables.add("ParamDetaliu", choice.has("ChkDetaliu"));
}

StockReport salesReport(const QString& window, const QString& caption, const QString& project) {
  StockReport report{window, caption, project, salesFrames(), "DTPickerdela", "DTPickerla"};
  report.start = StockReport::Start::Year;
  report.canPrint = true;
  report.checksDates = true;
  report.variables = addSalesVariables;
  return report;
}

// Turnover of customers or suppliers.
StockReport turnoverReport(const QString& window, const QString& caption, const QString& project,
                           const QString& list, const QString& partner) {
  const QString from = list + "Dela", to = list + "La";
  StockReport report{window,
                     caption,
                     project,
                     {{"&Parteneri", {{Kind::Choice, from, "De la"}, {Kind::Choice, to, "Pana la"}}},
                      period("DTPickerdela", "DTPickerla"),
                      {"&Sortare",
                       {{Kind::Option, "optSortCADescr", "Cifra afaceri descrescatoare"},
                        {Kind::Option, "optSortNume", "Nume"}},
                       "optSortCADescr"}},
                     "DTPickerdela",
                     "DTPickerla"};
  report.start = StockReport::Start::Year;
  report.losesFirstDay = true;
  report.checksDates = true;
  report.columns = {{"CODTERT", "Cod", Shown::Whole, 8},
                    {"NUME", "Nume", Shown::Text, 35},
                    {"CifraAfaceri", "Cifra de afaceri", Shown::Amount, 16, true},
                    {"Cost", "Cost", Shown::Amount, 14, true}};
  report.links = {{}, {}, {}, "NUME"};
  report.comparison = {[](const Row& row, const ReportChoice&, bool) { return row.text("CODTERT"); },
                       "CifraAfaceri",
                       true,
                       {"CODTERT", "NUME"}};
  report.variables = [from, to, partner](const ReportChoice& choice, Variables& variables) {
    variables.add("Param" + partner + "dela", choice.texts[from]);
    variables.add("Param" + partner + "la", choice.texts[to]);
    variables.add("ParamData1", choice.dates["DTPickerdela"]);
    variables.add("ParamData2", choice.dates["DTPickerla"]);
    variables.add("ParamTipSort", choice.has("optSortNume") ? "NU" : "CA");
  };
  return report;
}

ReportFrame openOrAll(const QString& open) {
  return {"&Selectie",
          {{Kind::Option, "optNelivrate", open}, {Kind::Option, "optToate", "Toate"}},
          "optNelivrate"};
}

ReportFrame byArticleOr(const QString& option, const QString& caption) {
  return {"&Grupare", {{Kind::Option, "optArticole", "Articole"}, {Kind::Option, option, caption}}, option};
}

std::function<void(const ReportChoice&, Variables&)> orderVariables(const QString& partnerCode) {
  return [partnerCode](const ReportChoice& choice, Variables& variables) {
    variables.add("ParamDataPanala", choice.dates["DTPickerPanala"]);
    variables.add("ParamGrupare", choice.has("optArticole") ? QStringLiteral("A") : partnerCode);
    variables.add("ParamToate", choice.has("optToate"));
    if (choice.dates.contains("DTPickerDeLa")) variables.add("ParamDatadela", choice.dates["DTPickerDeLa"]);
  };
}

StockReport orderReport(const QString& window, const QString& caption, const QString& project,
                        const QString& partnerOption, const QString& partnerCaption,
                        const QString& partnerCode) {
  StockReport report{
      window,  caption,
      project, {upTo("DTPickerPanala"), openOrAll("Nelivrate"), byArticleOr(partnerOption, partnerCaption)},
      {},      "DTPickerPanala"};
  const QString partner = partnerCode == "C" ? "NumeClient" : "NumeFurnizor";
  report.columns = {{"NumarComanda", "Comanda", Shown::Text, 12},
                    {"DataComanda", "Data", Shown::Date},
                    {partner, partnerCode == "C" ? "Client" : "Furnizor", Shown::Text, 25},
                    {"CodArticol", "Cod articol", Shown::Text, 14},
                    {"Articol", "Articol", Shown::Text, 30},
                    {"CantitateComandata", "Comandat", Shown::Quantity, 12, true},
                    {"CantitateLivrata", "Livrat", Shown::Quantity, 12, true},
                    {"CantitateNelivrata", "Ramas", Shown::Quantity, 12, true},
                    {"ValoareFT", "Pret", Shown::Price, 10},
                    {"ValoareRamasa", "Valoare ramasa", Shown::Amount, 14, true},
                    {"DataLivrare", "Data livrarii", Shown::Date}};
  report.links = {"NumarComanda", partnerCode == "C" ? "CC" : "CF", "CodArticol", partner};
  report.rows = [partnerCode, partner](const ReportChoice& choice) {
    return orderRows(choice, partnerCode == "C" ? "Cl" : "Fr", partner);
  };
  report.variables = orderVariables(partnerCode);
  return report;
}

StockReport deliveryNotes() {
  StockReport report{"frmRapAE",
                     "Avize de Expeditie",
                     "RapAE",
                     {period("DTPickerDeLa", "DTPickerPanala"), openOrAll("NeFacturate"),
                      byArticleOr("optClienti", "Clienti")},
                     "DTPickerDeLa",
                     "DTPickerPanala"};
  report.start = StockReport::Start::YearToToday;
  report.rows = deliveryNoteRows;
  report.columns = {{"ID", "Document", Shown::Text, 12},
                    {"DATADOC", "Data", Shown::Date},
                    {"NUME", "Client", Shown::Text, 25},
                    {"ARTID", "Cod articol", Shown::Text, 14},
                    {"DENART", "Articol", Shown::Text, 30},
                    {"CANT", "Livrat", Shown::Quantity, 12, true},
                    {"CANTRAMASA", "Ramas", Shown::Quantity, 12, true},
                    {"PRETFT", "Pret", Shown::Price, 10},
                    {"ValoareRamasa", "Valoare ramasa", Shown::Amount, 14, true},
                    {"REFERINTA", "Preluat de", Shown::Text, 12}};
  report.links = {"ID", {}, "ARTID", "NUME"};
  report.variables = orderVariables("C");
  return report;
}

StockReport stockTracking() {
  StockReport report{"frmRapUrmStoc",
                     "Raport Urmarire Stocuri",
                     "UrmStocuri",
                     {upTo("DTPickerPanala"),
                      {"&Grupare",
                       {{Kind::Option, "optCodArt", "Cod Articol "},
                        {Kind::Option, "optGrupFurnizor", "Furnizor"},
                        {Kind::Option, "optGrupFamilie", "Familie"},
                        {Kind::Option, "optGrupArticol", "Articol"},
                        {Kind::Option, "optGrupMag", "Magazie"}},
                       "optCodArt"},
                      {"&Selectie",
                       {{Kind::Option, "optToateArt", "Toate articolele"},
                        {Kind::Option, "optFamilie", "Familie"},
                        family("Selectati va rog o familie"),
                        {Kind::Option, "optFurnizor", "Furnizor"},
                        {Kind::Choice, "cboFurnizori", {}, "optFurnizor", "Selectati va rog un furnizor"},
                        {Kind::Option, "Optmag", "Magazie"},
                        warehouse("Selectati va rog o magazie")},
                       "optToateArt"}},
                     {},
                     "DTPickerPanala"};
  report.rows = stockTrackingRows;
  report.columns = {{"CODArticol", "Cod", Shown::Text, 14},
                    {"DenProdus", "Denumire", Shown::Text, 30},
                    {"Familie", "Familie", Shown::Text, 16},
                    {"Furnizor", "Furnizor", Shown::Text, 20},
                    {"Magazie", "Magazie", Shown::Text, 12},
                    {"StocInitial", "Stoc initial", Shown::Quantity, 12, true},
                    {"Intrari", "Intrari", Shown::Quantity, 12, true},
                    {"Iesiri", "Iesiri", Shown::Quantity, 12, true},
                    {"STOC", "Stoc", Shown::Quantity, 12, true},
                    {"COST", "Valoare", Shown::Amount, 14, true}};
  report.links = {{}, {}, "CODArticol", {}};
  report.variables = [](const ReportChoice& choice, Variables& variables) {
    variables.add("ParamFurnizor", choice.has("optFurnizor") ? choice.texts["cboFurnizori"] : QString());
    variables.add("ParamFamilie", choice.has("optFamilie") ? choice.texts["cboFamilie"] : QString());
    variables.add("ParamGrupare", choice.has("optGrupArticol")    ? "ART"
                                  : choice.has("optGrupFamilie")  ? "FAM"
                                  : choice.has("optGrupFurnizor") ? "FUR"
                                                                  : "MAG");
    variables.add("ParamMag", choice.has("optGrupMag"));
    variables.add("ParamDataPanala", choice.dates["DTPickerPanala"]);
  };
  return report;
}

StockReport inventoryList() {
  StockReport report{"frmRapJStoc",
                     "Lista de inventariere",
                     "JurnalStocuri",
                     {{"&Selectie",
                       {{Kind::Option, "optToate", "Toate"},
                        {Kind::Option, "optFamilie", "Familie"},
                        family(),
                        {Kind::Option, "Optmag", "Magazie"},
                        warehouse()},
                       "optToate"},
                      {{}, {{Kind::Check, "ckbStocReal", "&Coloana \"Stoc real\""}}}}};
  report.rows = inventoryRows;
  report.columns = {{"CODART", "Cod", Shown::Text, 14},
                    {"DENART", "Denumire", Shown::Text, 30},
                    {"UM", "UM", Shown::Text, 5},
                    {"DenFam", "Familie", Shown::Text, 16},
                    {"STOC", "Stoc", Shown::Quantity, 12, true},
                    {"Costul", "Valoare la cost", Shown::Amount, 14, true},
                    {"Valoare", "Valoare", Shown::Amount, 14, true}};
  report.links = {{}, {}, "CODART", {}};
  report.variables = [](const ReportChoice& choice, Variables& variables) {
    variables.add("ParamFamilie", choice.has("optFamilie") ? choice.texts["cboFamilie"] : QString());
    variables.add("ParamStocReal", choice.has("ckbStocReal"));
    variables.add("ParamMagazie", choice.has("Optmag") ? choice.texts["cboMag"] : QString());
  };
  return report;
}

StockReport availableStock() {
  const QString article = "Va rog selectati articolul";
  StockReport report{"frmRapDisponibil",
                     "Stoc disponibil",
                     "Disponibil",
                     {upTo("dtDataPanaLa", "Data pana la: "),
                      {"&Selectie",
                       {{Kind::Option, "optToate", "Toate"},
                        {Kind::Option, "optFamilie", "Familie"},
                        family(),
                        {Kind::Option, "Optmag", "Magazie"},
                        warehouse(),
                        {Kind::Option, "optArticol", "Articol"},
                        {Kind::Article, "cboArticol", {}, "optArticol", article},
                        {Kind::Option, "OptCod", "Cod articol"},
                        {Kind::Article, "cboCodArticol", {}, "OptCod", article}},
                       "optToate"},
                      {{},
                       {{Kind::Check, "CheckContine", " Denumirea contine", {}, {}, {"optToate", "Optmag"}},
                        {Kind::Text, "TextLIKE", {}, "CheckContine"},
                        {Kind::Check, "CheckGrMagazie", " Grupare pe magazii"}}}},
                     {},
                     "dtDataPanaLa"};
  report.rows = availableRows;
  report.columns = {{"CODART", "Cod", Shown::Text, 14},
                    {"DENART", "Denumire", Shown::Text, 30},
                    {"Magazie", "Magazie", Shown::Whole, 8},
                    {"StocInitial", "Stoc initial", Shown::Quantity, 12, true},
                    {"Intrari", "Intrari", Shown::Quantity, 12, true},
                    {"Iesiri", "Iesiri", Shown::Quantity, 12, true},
                    {"Rezervat", "Rezervat", Shown::Quantity, 12, true},
                    {"STOC", "Disponibil", Shown::Quantity, 12, true},
                    {"PRETVFT", "Pret", Shown::Price, 10},
                    {"COST", "Valoare la cost", Shown::Amount, 14, true},
                    {"Valoare", "Valoare", Shown::Amount, 14, true}};
  report.links = {{}, {}, "CODART", {}};
  report.variables = [](const ReportChoice& choice, Variables& variables) {
    variables.add("ParamFamilie", choice.has("optFamilie") ? choice.texts["cboFamilie"] : QString());
    variables.add("ParamMagazie", choice.has("Optmag") ? choice.texts["cboMag"] : QString());
    variables.add("ParamGrMagazie", choice.has("CheckGrMagazie"));
    variables.add("ParamDataPanala", choice.dates["dtDataPanaLa"]);
  };
  return report;
}

StockReport costOfSales() {
  StockReport report{"frmRapDescarcare", "Costul vanzarilor ",
                     "Descarcare",       {period("DTPickerdela", "DTPickerPanala")},
                     "DTPickerdela",     "DTPickerPanala"};
  report.start = StockReport::Start::Year;
  report.losesFirstDay = true;
  report.checksDates = true;
  report.rowsInParts = costOfSalesRows;
  report.columns = {{"NRCRT", "Nr.", Shown::Whole, 6},
                    {"POZITIE", "Pozitie", Shown::Whole, 7},
                    {"NRCOMANDA", "Document", Shown::Text, 12},
                    {"DATACOMAND", "Data", Shown::Date},
                    {"NUMECLIENT", "Client", Shown::Text, 25},
                    {"CODARTICOL", "Cod articol", Shown::Text, 14},
                    {"DENMARFA", "Articol", Shown::Text, 30},
                    {"CANTITATE", "Cantitate", Shown::Quantity, 12, false, "CantitateCuSemn"},
                    {"PRETVANZAR", "Pret", Shown::Price, 10},
                    {"COSTUNITAR", "Cost", Shown::Price, 10},
                    {"ValoareVanzare", "Valoare vanzare", Shown::Amount, 14, true},
                    {"ValoareCost", "Valoare cost", Shown::Amount, 14, true},
                    {"Marja", "Marja", Shown::Amount, 12, true}};
  report.links = {"NRCOMANDA", {}, "CODARTICOL", "NUMECLIENT"};
  report.variables = [](const ReportChoice& choice, Variables& variables) {
    variables.add("ParamDataPanala", choice.dates["DTPickerPanala"]);
    variables.add("ParamDatadela", choice.dates["DTPickerdela"]);
  };
  return report;
}

StockReport labels() {
  StockReport report{"frmArticoleEtichete",
                     "Etichete articole cu coduri de bare",
                     "ArticoleEtichete",
                     {{"&Articole",
                       {{Kind::Option, "optToateArt", "&Toate"},
                        {Kind::Option, "optFamilie", "&Familie"},
                        family(),
                        {Kind::Option, "optArticol", "&Articol"},
                        {Kind::Article, "cboArticol", {}, "optArticol", "Va rugam precizati articolul"}},
                       "optToateArt",
                       "fraSelArt"},
                      {{},
                       {{Kind::Number, "TextNr", " Numar etichete"},
                        {Kind::Number, "TextPrima", "Primul loc liber pe coala"}}}}};
  report.isLabels = true;
  report.rows = labelRows;
  report.variables = [](const ReportChoice&, Variables&) {};
  return report;
}

std::vector<StockReport> allReports() {
  StockReport sales = salesReport("frmRapVanzari", "Vanzari", "RapVanzari");
  sales.losesFirstDay = true;
  sales.previewsOnly = true;
  sales.rows = salesRows;
  sales.comparison = {[](const Row& row, const ReportChoice& choice, bool isYearBefore) {
                        const QString grouping = salesGrouping(choice);
                        if (grouping == "CL") return row.text("CODTERT");
                        if (grouping == "MP") return row.text("MODREG");
                        if (!isYearBefore) return row.date("DATADOC").toString(Qt::ISODate);
                        // 29 February is compared with 28 February: the day must not leave the period.
                        return std::clamp(row.date("DATADOC").addYears(1), firstDay(choice, "DTPickerdela"),
                                          choice.dates["DTPickerla"])
                            .toString(Qt::ISODate);
                      },
                      "TOTALDOC"};
  sales.columns = {{"DATADOC", "Data", Shown::Date},
                   {"ID", "Document", Shown::Text, 12},
                   {"NUME", "Client", Shown::Text, 30},
                   {"DATASCAD", "Scadenta", Shown::Date},
                   {"PLATA", "Plata", Shown::Text, 10},
                   {"TOTALFT", "Valoare", Shown::Amount, 14, true},
                   {"TOTALTVA", "TVA", Shown::Amount, 12, true},
                   {"TOTALDOC", "Total", Shown::Amount, 14, true}};
  sales.links = {"ID", {}, {}, "NUME"};
  StockReport issues = salesReport("frmRapIesiri", "Iesiri din stoc", "RapIesiri");
  issues.rows = issueRows;
  issues.columns = {{"DATADOC", "Data", Shown::Date},
                    {"ID", "Document", Shown::Text, 12},
                    {"NUME", "Client", Shown::Text, 25},
                    {"ARTID", "Cod articol", Shown::Text, 14},
                    {"DENART", "Articol", Shown::Text, 30},
                    {"UM", "UM", Shown::Text, 5},
                    {"CANT", "Cantitate", Shown::Quantity, 12, true},
                    {"PRETFT", "Pret", Shown::Price, 10},
                    {"VALOAREFT", "Valoare", Shown::Amount, 14, true},
                    {"VALTVA", "TVA", Shown::Amount, 12, true}};
  issues.links = {"ID", {}, "ARTID", "NUME"};
  StockReport customers =
      turnoverReport("frmRapStaCl", "Statistici Clienti", "StaCl", "cboClienti", "Client");
  customers.rows = customerTurnoverRows;
  customers.columns.push_back({"Discountul", "Discount", Shown::Amount, 14, true});
  StockReport suppliers =
      turnoverReport("frmRapStaFr", "Statistici Furnizori", "StaFr", "cboFurnizori", "Furnizor");
  suppliers.rows = supplierTurnoverRows;
  const StockReport sold = orderReport("frmRapComNelivCl", "Comenzi Nelivrate Clienti", "ComNelivCl",
                                       "optClienti", "Clienti", "C");
  const StockReport bought = orderReport("frmRapComNelivFr", "Comenzi Nelivrate Furnizori", "ComNelivFr",
                                         "optFurnizori", "Furnizori", "F");
  return {sales,
          issues,
          customers,
          suppliers,
          deliveryNotes(),
          sold,
          bought,
          stockTracking(),
          inventoryList(),
          labels(),
          availableStock(),
          costOfSales(),
          reportOf(purchaseJournal()),
          reportOf(salesJournal())};
}

}  // namespace

const std::vector<StockReport>& stockReports() {
  static const std::vector<StockReport> all = allReports();
  return all;
}

const StockReport& stockReport(const QString& window) {
  const auto& all = stockReports();
  const auto found = std::find_if(all.begin(), all.end(),
                                  [&window](const StockReport& report) { return report.window == window; });
  if (found == all.end()) throw StoreError(0, QStringLiteral("Raport necunoscut: %1").arg(window));
  return *found;
}

}  // namespace velmar
