#include "catalogue/windows/frmArticole.h"

#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QVBoxLayout>

#include "catalogue/ArticleExport.h"
#include "catalogue/Articles.h"
#include "catalogue/windows/ArticleCard.h"
#include "catalogue/windows/frmStocMagazii.h"
#include "config/Session.h"
#include "config/windows/frmParamSoc.h"
#include "store/Filter.h"
#include "store/windows/extTDBGrid.h"
#include "store/windows/WhereBuilder.h"
#include "util/Errors.h"
#include "util/Messages.h"
#include "util/NumberText.h"
#include "util/windows/Controls.h"
#include "util/windows/Forms.h"
#include "util/windows/WindowHost.h"
#include "util/windows/WorkProgress.h"

namespace velmar {

namespace {

struct SearchBy {
  const char* text;
  const char* column;
};

const SearchBy kSearches[] = {{"Denumire 1", "DENART"}, {"Denumire 2", "DenAltaLimba"}, {"COD", "CODART"}};

QList<GridColumn> columns() {
  const bool hearing = session().ModAudio;
  return {{"FAMILIE", "Familie", CellFormat::Text, 20},
          {"CODART", "Cod", CellFormat::Text, 22},
          {"DENART", "Denumire 1", CellFormat::Text, 46},
          {"DenAltaLimba", "Cod International", CellFormat::Text, 18},
          {"UM", "UM", CellFormat::Text, 5},
          {"STOC", "Stoc", CellFormat::Number, 11, 3},
          {"COST", "Cost LEI", CellFormat::Number, 11},
          {"FURNIZOR", "Furnizor", CellFormat::Text, 26},
          {"PRETVFT", "Pret Vanzare FT", CellFormat::Number, 11},
          {"PRETVTTI", "Pret Vanzare TTI", CellFormat::Number, 11},
          {"PRETDEVIZAVANZ", "Pret vanzare valuta", CellFormat::Number, 11},
          {"CODDEVIZAVANZ", "Cod valuta", CellFormat::Text, 5},
          {"COSTDEV", "Cost Valuta", CellFormat::Number, 11},
          {"CODDEVIZA", "Cod Valuta", CellFormat::Text, 5},
          {"ADAOS", "Adaos", CellFormat::Number, 9},
          {"ADAOSDEV", "Adaos Valuta", CellFormat::Number, 9},
          {"PRETVFTDEV", "Pret Vanzare FT VAL", CellFormat::Number, 11},
          {"CONTC", "Cont Cumparare", CellFormat::Text, 10},
          {"CONTV", "Cont Vanzare", CellFormat::Text, 10},
          {"CONTCHELT", "Cont Cheltuiala", CellFormat::Text, 10},
          {"COTATVA", "Cota TVA", CellFormat::Number, 7},
          {"GREUTATE", "Greutate", CellFormat::Number, 9, 3},
          {"CODPRODFUR", "Cod produs furnizor", CellFormat::Text, 16},
          {"PROVENIENTA", "Provenienta", CellFormat::Text, 5},
          {"TipAparat", "Tip Aparat", CellFormat::Text, 16, 2, hearing},
          {"TipBaterie", "Tip Baterie", CellFormat::Text, 16, 2, hearing},
          {"TipEmitator", "Model", CellFormat::Text, 16, 2, hearing},
          {"PretVanzare", "Pret Vanzare", CellFormat::Number, 11, 2, hearing},
          {"CompensareCAS", "Compensare CAS", CellFormat::Number, 11, 2, hearing},
          {"DiferentaPacient", "Diferenta Pacient", CellFormat::Number, 11, 2, hearing},
          {"FARASTOC", "Fara stoc", CellFormat::Flag, 6},
          {"PRETVFTRON", "PRET Vanzare FT (RON)", CellFormat::Number, 11},
          {"FAMART", "FAMART", CellFormat::Integer, 7},
          {"PALET", "PALET", CellFormat::Text, 10},
          {"CANTE", "Cant. Iesite", CellFormat::Number, 11, 3}};
}

QList<FilterField> filterOffer() {
  QHash<QString, QString> captions = {{"FAMART", "FAMILIE ARTICOLE"},
                                      {"CODFURNIZO", "FURNIZOR"},
                                      {"CODMAGAZIE", "MAGAZIE"},
                                      {"CODPRODFUR", "COD PRODUS FURNIZOR"},
                                      {"DENART", "DENUMIRE"},
                                      {"DenAltaLimba", "COD INTERNATIONAL"},
                                      {"CODART", "COD"},
                                      {"CODDEVIZA", "COD VALUTA"},
                                      {"PRETDEVIZAVANZ", "PRET VANZARE VALUTA"},
                                      {"PRETVFT", "PRET VANZARE FT"},
                                      {"PRETVTTI", "PRET VANZARE TTI"},
                                      {"CODDEVIZAVANZ", "VALUTA VANZARE"},
                                      {"TipAparat", "TIP APARAT"},
                                      {"TipBaterie", "TIP BATERIE"},
                                      {"TipEmitator", "MODEL"},
                                      {"PretVanzare", "PRET VANZARE"},
                                      {"CompensareCAS", "COMPENSARE CAS"}};
  QStringList without = {"CONTC",     "CONTCHELT", "CONTV",  "COST",     "COSTDEV",  "COTATVA",  "CURSACCIZA",
                         "FIXPV",     "FIXPVDEV",  "ADAOS",  "ADAOSDEV", "CALCULFT", "GREUTATE", "PACHET",
                         "STOCMAXIM", "STOCMINIM", "TARIF1", "TARIF2",   "TARIF3"};
  if (!session().ModAudio)
    without += {"TipAparat", "TipBaterie", "TipEmitator", "PretVanzare", "CompensareCAS"};
  QList<FilterField> fields = filterFields(companyTable("G_ARTMAG"), captions, without);
  offerChoices(fields, "FAMART", "SELECT COD, DENUMIRE FROM G_FAMART ORDER BY DENUMIRE NULLS FIRST, COD");
  offerChoices(fields, "CODFURNIZO",
               "SELECT COD, NUME FROM kt_ter WHERE TIP IN ('M', 'F') ORDER BY NUME NULLS FIRST, COD");
  offerChoices(fields, "CODMAGAZIE",
               "SELECT COD, DENUMIRE FROM G_MULTIMAGAZIE ORDER BY DENUMIRE NULLS FIRST, COD");
  offerYesNo(fields, "FARASTOC");
  return fields;
}

}  // namespace

frmArticole::frmArticole(QWidget* parent)
    : CatalogueForm("frmArticole", "Articole", parent),
      details_(new ArticleCard(card())),
      cboCautare_(named(new QComboBox, "cboCautare", "Dupa ce se cauta")),
      grouping_(new extTDBGrid("extTDBGrid1")) {
  setCatalogue(columns(), kArticleList, "CODART", "CODART", {}, {"G_ARTMAG"});
  list()->setEmptyText("Nu exista articole. Treceti pe \"Articol Detalii\" si apasati Adaugare.");
  setPrinting({.name = "Articole",
               .header = "Lista articole",
               .footer = "Editat de Tarvon V1.0      \\tPagina: \\p",
               .orientation = QPageLayout::Landscape,
               .htmlCopy = QDir(session().gCaleAplicatie).filePath("Articole.htm")});
  QWidget* search = searchRow();
  grouping_->setTDBGrid(list());
  layOut({.listTitle = "Lista Articole",
          .searchRow = search,
          .filter = filterOffer(),
          .nameColumn = "DENART",
          .aboveList = grouping_,
          .countCaption = "Nr Articole:",
          .countName = "LabelNRINREG",
          .cardTitle = "Articol Detalii",
          .cardPage = details_,
          .commands = commands()});
  details_->watchPrices();
  setStoring([this] { isNew() ? add() : save(); });
}

QWidget* frmArticole::searchRow() {
  for (const SearchBy& by : kSearches) cboCautare_->addItem(by.text, by.column);
  auto* row = new QWidget;
  auto* inside = new QHBoxLayout(row);
  inside->setContentsMargins(0, 0, 0, 0);
  QLineEdit* box = searchField({}, [this] { search(); });
  box->setToolTip("Primele litere din Denumire 1, Denumire 2 sau COD, cum se alege in lista, apoi Enter");
  auto* label = new QLabel("Cautare dupa");
  label->setBuddy(cboCautare_);
  inside->addWidget(label);
  inside->addWidget(cboCautare_);
  inside->addWidget(box);
  inside->addStretch();
  const auto onList = [this, inside](const QString& name, const QString& caption, const QString& toolTip,
                                     const QString& picture, std::function<void()> action) {
    auto* button = command(name, caption, toolTip, picture, std::move(action));
    inside->addWidget(button);
    return button;
  };
  onList("cmdSortAsc", "A-Z", "Ordonare crescatoare", {},
         [this] { grouping_->sortAs(extTDBGrid::kAscending); });
  onList("cmdSortDesc", "Z-A", "Ordonare descrescatoare", {},
         [this] { grouping_->sortAs(extTDBGrid::kDescending); });
  onList("cmdComanda", "Comanda", "Genereaza Comanda Furnizor cu liniile selectate.", "new",
         [this] { order(); });
  onList("CommandButton1", "XML", "Exporta nomenclatorul in fisierul articole.xml", {},
         [this] { exportXml(); });
  onList("cmdSaveXML", "HTML", "Exporta nomenclator in fisier ", {}, [this] { exportHtml(); });
  return row;
}

QList<QPushButton*> frmArticole::commands() {
  auto* cmdAdauga = command("cmdAdauga", "Adaugare", "Creare articol nou", "new", [this] { add(); });
  auto* cmdSterge =
      command("cmdSterge", "Stergere", "Sterge articolul curent", "delete", [this] { remove(); });
  cmdStocPeMag_ =
      command("cmdStocPeMag", "Stoc pe magazii", "Afisare stoc articol pe magazii", "stock", [this] {
        if (const Row* article = list()->currentRecord())
          frmStocMagazii(article->text("CODART"), article->text("DENART"), this).exec();
      });
  setKeys(cmdAdauga, cmdSterge);
  QList<QPushButton*> all = navigation();
  all += {cmdAdauga,
          command("cmdSalvareArticol", "Salvare", "Salvare modificari", "save", [this] { save(); }),
          cmdSterge,
          command("cmdCauta", "Cautare", "Cautare dupa conditiile stabilite mai sus", "search",
                  [this] { askedSearch(); }),
          printCommand("cmdListare", "Listare", "Listare pe ecran sau pe imprimanta linii selectate"),
          cmdStocPeMag_,
          exitCommand()};
  return all;
}

void frmArticole::showRecord(const Row* record) {
  CatalogueForm::showRecord(record);
  shown_ = record ? *record : Row();
  details_->recordShown(record);
  cmdStocPeMag_->setEnabled(record);
}

void frmArticole::startNew() {
  details_->recordShown(nullptr);
  CatalogueForm::startNew();
}

void frmArticole::focusField(const QString& column) {
  if (column == QStringLiteral("TCOST")) {
    windowHost()->showOne("frmParamSoc", [] { return new frmParamSoc; });
    return;
  }
  CatalogueForm::focusField(column);
  if (QWidget* entry = details_->entryOf(column)) entry->setFocus();
}

void frmArticole::add() {
  if (!isNew()) {
    if (leaveCard()) startNew();
    return;
  }
  const Row article = details_->article();
  addArticle(article);
  cauta();
  if (list()->selectRecord("CODART", article.text("CODART"))) return;
  // The filter excludes the new article.
  filter()->clear();
  cauta();
  list()->selectRecord("CODART", article.text("CODART"));
}

void frmArticole::save() {
  if (!isNew()) details_->recalculate();
  try {
    saveArticle(isNew() ? newArticle() : details_->article(), shown_);
  } catch (const ChangedMeanwhile& conflict) {
    showConflict(conflict, shown_);
    throw;
  }
  cauta();
}

void frmArticole::remove() {
  const Row* current = list()->currentRecord();
  if (!current) return;
  const QString code = current->text("CODART");
  const QString question = QStringLiteral("Sunteti sigur ca doriti sa stergeti articolul : %1 si Stoc = %2 ?")
                               .arg(current->text("DENART"), editNumber(current->decimal("STOC")));
  requireRemovableArticle(code);
  if (!confirmed(question)) return;
  removeArticle(code);
  cauta();
  showRecord(nullptr);
}

void frmArticole::search() {
  const QString column = cboCautare_->currentData().toString();
  const QString text = searchText();
  if (text.isEmpty()) {
    showFound({}, "DENART");
  } else if (!showFound(beginsWith(column, text), column)) {
    Mesaj(QStringLiteral("Nu exista inregistrari care sa inceapa cu %1 !").arg(text));
  }
}

void frmArticole::order() {
  QStringList codes;
  for (const int place : list()->selectedPlaces()) codes.append(list()->rows().row(place).text("CODART"));
  if (codes.isEmpty()) return;
  const qint64 number = orderFromArticles(codes);
  Mesaj(QStringLiteral("Comanda Furnizor cu numarul %1 a fost generata in grila Comenzi Furnizor.")
            .arg(number));
}

void frmArticole::exportXml() {
  const QString path = QDir(session().gCaleAplicatie).filePath("articole.xml");
  {
    const Hourglass wait;
    WorkProgress progress(QStringLiteral("Export articole"), this);
    exportCatalogue(path, [&progress](int done, int of) { progress.show(done, of); });
  }
  say(QStringLiteral("Nomenclator scris in %1").arg(QDir::toNativeSeparators(path)));
}

void frmArticole::exportHtml() {
  const QString folder = makeOrderForm(session().gCaleAplicatie);
  Mesaj(QStringLiteral("Fisierul HTM a fost creat cu succes in directorul: ") + folder);
}

// Other windows may have added suppliers and families meanwhile.
void frmArticole::showEvent(QShowEvent* event) {
  CatalogueForm::showEvent(event);
  auto* frame = qobject_cast<QMdiSubWindow*>(parentWidget());
  if (!frame || listening_) return;
  listening_ = true;
  connect(frame, &QMdiSubWindow::aboutToActivate, this, [this] {
    guarded(objectName(), "Form_Activate", [this] {
      const bool isUntouched = isNew() && !card().isChanged();
      details_->resetUnit();
      if (isUntouched) card().clear();
      details_->refreshLists();
    });
  });
}

}  // namespace velmar
