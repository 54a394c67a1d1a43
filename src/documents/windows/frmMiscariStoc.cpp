#include "documents/windows/frmMiscariStoc.h"

#include <QDir>

#include "config/Session.h"
#include "documents/LedgerLists.h"
#include "util/NumberText.h"

namespace velmar {

namespace {

const QList<GridColumn> kColumns = {{"TIP", "Tip ", CellFormat::Text, 4},
                                    {"DOCID", "Document", CellFormat::Text, 12},
                                    {"LINIE", "Nr. crt.", CellFormat::Integer, 6},
                                    {"DATADOC", "Data", CellFormat::Date, 11},
                                    {"CODARTICOL", "Articol", CellFormat::Text, 12},
                                    {"DENART", "Denumire articol", CellFormat::Text, 35},
                                    {"CANT", "Cantitate", CellFormat::Number, 10, 3},
                                    {"TIPIE", "Tip IE", CellFormat::Text, 5},
                                    {"DENUMIRE", "Magazie", CellFormat::Text, 16},
                                    {"NUME", "Tert", CellFormat::Text, 25},
                                    {"PRETFT", "Pret FT", CellFormat::Number, 10},
                                    {"PRETTTI", "Pret TTI", CellFormat::Number, 10},
                                    {"PRETDEV", "Pret devize", CellFormat::Number, 10},
                                    {"VALOAREFT", "Valoare FT", CellFormat::Number, 12},
                                    {"VALTVA", "Valoare TVA", CellFormat::Number, 10},
                                    {"VALOARETTI", "Valoare TTI", CellFormat::Number, 12},
                                    {"CODTVA", "TVA %", CellFormat::Number, 6},
                                    {"COST", "Cost", CellFormat::Number, 10},
                                    {"VALCOST", "Valoare cost", CellFormat::Number, 12},
                                    {"COSTDEV", "Cost valuta", CellFormat::Number, 10},
                                    {"VALCOSTDEV", "Valoare cost valuta", CellFormat::Number, 12},
                                    {"CANTRAMASA", "Cantitate ramasa", CellFormat::Number, 10, 3},
                                    {"PRETVA", "Pret Vanzare", CellFormat::Number, 10},
                                    {"REFERINTA", "Referinta", CellFormat::Text, 12},
                                    {"DATASOLD", "Data Referinta", CellFormat::Date, 11},
                                    {"PALET", "PALET", CellFormat::Text, 10},
                                    {"SERIE", "Seria", CellFormat::Text, 6},
                                    {"CODP", "Cod produs furnizor", CellFormat::Text, 14},
                                    {"DENUMIRE2", "Denumire 2", CellFormat::Text, 20},
                                    {"FAMILIE", "Cod familie", CellFormat::Integer, 8},
                                    {"CODTERT", "Cod tert", CellFormat::Integer, 8},
                                    {"DATA", "Data validarii", CellFormat::Date, 11},
                                    {"UTILIZATOR", "Utilizator", CellFormat::Text, 10}};

// An entry or opening stock counts, an exit is subtracted, what moves no stock does not count.
int direction(const Row& movement) {
  const QString direction = movement.text("TIPIE").trimmed().toUpper();
  if (direction == QLatin1String("I") || direction == QLatin1String("S")) return 1;
  return direction == QLatin1String("E") ? -1 : 0;
}

}  // namespace

frmMiscariStoc::frmMiscariStoc(QWidget* parent) : BrowserForm("frmMiscariStoc", "Miscari de stoc", parent) {
  setListed({.grid = "grdChild",
             .columns = kColumns,
             .query = movementList(),
             .order = "LINIE, DOCID",
             .tables = {"G_DOCUME", "G_LDOCUM"},
             .emptyText = "Nu exista miscari pentru conditia cautarii."});
  setTotals({{"VALCOSTDEV", {"VALCOSTDEV"}},
             {"VALCOST", {"VALCOST"}},
             {"VALTVA", {"VALTVA"}},
             {"VALOAREFT", {"VALOAREFT"}},
             {"VALOARETTI", {"VALOARETTI"}},
             {"CANT", {"CANT", direction}, -1}},
            {.name = "Miscari_Doc",
             .header = "R A P O R T",
             .footer = "Editat de Tarvon V1.0      \\tPagina: \\p",
             .boldHeader = true,
             .orientation = QPageLayout::Landscape,
             .repeatFooters = true,
             .htmlCopy = QDir(session().gCaleAplicatie).filePath("Miscari_Doc.htm")});
  QList<QPushButton*> commands = {searchCommand("Cautare functie de conditiile stabilite mai sus")};
  commands += sortCommands("Sortare crescatoare", "Sortare descrescatoare");
  commands += {printCommand("CmdListare", "Listare", "Listare pe ecran sau pe imprimanta linii selectate"),
               exitCommand()};
  layOutBrowser(movementFilter(), "CODARTICOL", list(), commands);
}

BackgroundRead::Work frmMiscariStoc::totalsRead() const {
  return [this, shown = condition()](Database& connection, const std::atomic<bool>&) {
    return [this, grid = list(), totals = movementTotals(connection, shown)] {
      showCount(totals.count);
      grid->setFooter("VALTVA", formatNumber(totals.vat, 2));
      grid->setFooter("VALOAREFT", formatNumber(totals.value, 2));
      grid->setFooter("VALOARETTI", formatNumber(totals.valueWithVat, 2));
      grid->setFooter("VALCOST", formatNumber(totals.cost, 2));
    };
  };
}

}  // namespace velmar
