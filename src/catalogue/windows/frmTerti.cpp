#include "catalogue/windows/frmTerti.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

#include "catalogue/Discounts.h"
#include "catalogue/Partners.h"
#include "config/Lists.h"
#include "config/Session.h"
#include "config/windows/ComboFill.h"
#include "store/Filter.h"
#include "store/Records.h"
#include "store/windows/WhereBuilder.h"
#include "util/Messages.h"
#include "util/windows/Controls.h"
#include "util/windows/DateBox.h"
#include "util/windows/Entry.h"
#include "util/windows/Forms.h"
#include "util/windows/SearchCombo.h"
#include "util/windows/WorkProgress.h"

namespace velmar {

namespace {

constexpr int kShownEmployer = 24;  // characters
constexpr int kCodeCharacters = 12;
const QString kNotANumber = QStringLiteral("Va rog introduceti o valoare numerica");

struct CardField {
  const char* caption;
  const char* column;
};

// Indexed by the number of the box txtFields.
const CardField kFields[] = {{"Cod", "COD"},        {"Nume", "NUME"},
                             {"Tip", "TIP"},        {"Cod fiscal", "CODFISCAL"},
                             {"Adresa ", "AD"},     {"Cod postal", "CP"},
                             {"Oras", "ORAS"},      {"Tara", "TARA"},
                             {"Contact", "REPREZ"}, {"Telefon", "TELEFON"},
                             {"Fax", "FAX"},        {"E-mail", "EMAIL"},
                             {"Adresa ", "ADL"},    {"Cod postal", "CPL"},
                             {"Oras", "ORASL"},     {"Tara", "TARAL"},
                             {"Banca", "BANCA"},    {"Cont bancar", "CONTBANCAR"}};
enum FieldIndex {
  kCode = 0,
  kName,
  kKind,
  kFiscalCode,
  kBilling,
  kContact = 8,
  kEmail = 11,
  kDelivery,
  kBank = 16
};

const QList<GridColumn> kColumns = {{"COD", "Cod", CellFormat::Integer, 7},
                                    {"NUME", "Denumire", CellFormat::Text, 52},
                                    {"TIP", "Tip", CellFormat::Text, 4},
                                    {"CodTert", "Cod Tert", CellFormat::Text, 12},
                                    {"CodVechi", "Cod Tert Auxialiar", CellFormat::Integer, 10},
                                    {"CT", "CT", CellFormat::Text, 4},
                                    {"CODFISCAL", "Cod fiscal", CellFormat::Text, 14},
                                    {"RegCom", "Reg. Comert", CellFormat::Text, 16},
                                    {"AD", "Adresa facturare", CellFormat::Text, 30},
                                    {"CP", "CP facturare", CellFormat::Text, 10},
                                    {"ORAS", "Oras facturare", CellFormat::Text, 18},
                                    {"Judet", "Judet", CellFormat::Text, 14},
                                    {"TARA", "Tara facturare", CellFormat::Text, 14},
                                    {"REPREZ", "Persoana de contact", CellFormat::Text, 20},
                                    {"CNP", "CNP", CellFormat::Text, 14},
                                    {"TELEFON", "Telefon", CellFormat::Text, 14},
                                    {"FAX", "Fax", CellFormat::Text, 14},
                                    {"EMAIL", "E-mail", CellFormat::Text, 24},
                                    {"ADL", "Adresa livrare", CellFormat::Text, 30},
                                    {"CPL", "CP livrare", CellFormat::Text, 10},
                                    {"ORASL", "Oras livrare", CellFormat::Text, 18},
                                    {"TARAL", "Tara livrare", CellFormat::Text, 14},
                                    {"BANCA", "Banca", CellFormat::Text, 24},
                                    {"CONTBANCAR", "Cont bancar", CellFormat::Text, 26},
                                    {"SOLD", "Sold", CellFormat::Number, 14},
                                    {"PROCPEN", "Comision", CellFormat::Number, 8},
                                    {"Contract", "Contract", CellFormat::Text, 20},
                                    {"Angajator", "Angajator", CellFormat::Text, 30},
                                    {"Reprezentant", "Reprezentant", CellFormat::Flag, 6},
                                    {"ID_Angajator", "CODAngajator", CellFormat::Integer, 8}};

QList<FilterField> filterOffer() {
  QList<FilterField> fields = filterFields(companyTable("kt_ter"),
                                           {{"CodVechi", "CODTERTAUX"},
                                            {"AD", "Adresa Facturare"},
                                            {"CP", "CP Facturare"},
                                            {"ADL", "Adresa Livrare"},
                                            {"RegCom", "Reg. Comert"},
                                            {"CPL", "CP LIVRARE"},
                                            {"ORASL", "ORAS LIVRARE"},
                                            {"TARAL", "TARA LIVRARE"},
                                            {"ORAS", "ORAS FACTURARE"},
                                            {"TARA", "TARA FACTURARE"},
                                            {"ID_Angajator", "ANGAJATOR"}},
                                           {"AD3", "CreditAC", "TotalDAT", "Utilizabil", "Reprez",
                                            "OBSERVATII", "Familie", "SOLD", "NumeDelegat", "ACTIDENT"});
  offerYesNo(fields, "Reprezentant");
  offerYesNo(fields, "PlatesteTVA");
  offerYesNo(fields, "PF");
  offerChoices(fields, "ID_Angajator", "SELECT COD, NUME FROM kt_ter ORDER BY NUME NULLS FIRST, COD");
  return fields;
}

}  // namespace

frmTerti::frmTerti(const QString& TipTert, QWidget* parent)
    : CatalogueForm("frmTerti", "Terti", parent), tipTert_(TipTert) {
  setCatalogue(kColumns, kPartnerList, "COD", "NUME", partnersOfKind(TipTert), {"KT_TER"});
  list()->setEmptyText("Nu exista terti. Treceti pe \"Fisa Tert\", completati numele si apasati Adaugare.");
  setPrinting({.name = "Terti",
               .header = "R A P O R T",
               .footer = "Editat de Ostrel       \\tPagina: \\p",
               .orientation = QPageLayout::Landscape,
               .htmlCopy = QDir(session().gCaleAplicatie).filePath("Terti.htm")});
  QWidget* search = searchRow();
  QWidget* page = cardPage();
  layOut({.listTitle = "Lista Terti",
          .searchRow = search,
          .filter = filterOffer(),
          .nameColumn = "NUME",
          .countCaption = "Nr. Terti:",
          .countName = "lblRecCount",
          .cardTitle = "Fisa Tert",
          .cardPage = page,
          .commands = commands()});
  setStoring([this] { card().text("COD").isEmpty() ? add() : save(); });
}

QWidget* frmTerti::searchRow() {
  auto* row = new QWidget;
  auto* inside = new QHBoxLayout(row);
  inside->setContentsMargins(0, 0, 0, 0);
  QLineEdit* box = searchField(KeyFilter::UpperCase, [this] { search(); });
  box->setToolTip("Primele litere din Denumire, apoi Enter");
  auto* label = new QLabel("Cautare dupa nume");
  label->setBuddy(box);
  inside->addWidget(label);
  inside->addWidget(box);
  inside->addStretch();
  return row;
}

QList<QPushButton*> frmTerti::commands() {
  auto* cmdAdauga = command("cmdAdauga", "Adaugare", "Creare client/furnizor nou", "new", [this] { add(); });
  auto* cmdModifica = command("cmdModifica", "Salvare", "Salvare modificari", "save", [this] { save(); });
  auto* cmdSterge = command("cmdSterge", "Stergere", "Stergere tert curent", "delete", [this] { remove(); });
  auto* cmdCauta = command("cmdCauta", "Cautare", "Cautare functie de conditiile stabilite", "search",
                           [this] { askedSearch(); });
  auto* cmdListare = printCommand("cmdListare", "Listare", "Tiparire linii selectate");
  auto* cmdSolduri = command("cmdSolduri", "Solduri",
                             "Calcul solduri terti luand in calcul  toate documentele din baza de date", {},
                             [this] { balances(); });
  cardCommands_ = {cmdAdauga, cmdModifica};
  listCommands_ = {cmdCauta, cmdListare, cmdSolduri};
  setKeys(cmdAdauga, cmdSterge);
  QList<QPushButton*> all = navigation();
  all += {cmdAdauga, cmdModifica, cmdSterge, cmdCauta, cmdListare, cmdSolduri, exitCommand()};
  return all;
}

QLineEdit* frmTerti::fieldBox(int index) {
  const CardField& field = kFields[index];
  const QString name = QStringLiteral("txtFields(%1)").arg(index);
  const int width = companyTable("kt_ter").column(field.column)->width;
  const auto keys = index == kEmail ? KeyFilter::Options() : KeyFilter::UpperCase;
  QLineEdit* box = card().add(field.column, makeTextBox(name, width, {}, keys));
  fitCapitals(box);
  return box;
}

void frmTerti::addField(QFormLayout* rows, int index) {
  rows->addRow(kFields[index].caption, fieldBox(index));
}

QComboBox* frmTerti::kindList() {
  const std::pair<const char*, QString> customer{"C", "C - Client"}, doctor{"D", "D - Doctor"},
      person{"P", session().ModAudio ? "P - Pacient" : "P - Persoana fizica"}, both{"M", "M - Mixt"};
  QList<std::pair<const char*, QString>> kinds = {customer, person, both};
  if (session().ModAudio) kinds = {customer, doctor, person, both};
  if (tipTert_ == QStringLiteral("F")) kinds = {{"F", "F - Furnizor"}, both};
  auto* list = card().add("TIP", named(new QComboBox, "cboTip"));
  for (const auto& [letter, text] : kinds) list->addItem(text, letter);
  card().setDefault("TIP", kinds.first().first);
  return list;
}

// The letter of the chosen kind, always hidden.
void frmTerti::kindLetter(QWidget* parent) {
  auto* letter = named(new QLineEdit(parent), QStringLiteral("txtFields(%1)").arg(kKind));
  letter->hide();
  auto* list = static_cast<QComboBox*>(card().control("TIP"));
  const auto follow = [letter, list] { letter->setText(list->currentData().toString()); };
  connect(&card(), &Card::edited, letter, follow);
  follow();
}

// On its own line, since a name of full length needs the width.
QWidget* frmTerti::headLine() {
  auto* head = new QWidget;
  auto* line = new QHBoxLayout(head);
  const auto labelled = [line](int index, QWidget* control, int stretch) {
    auto* label = new QLabel(kFields[index].caption);
    label->setBuddy(control);
    line->addWidget(label);
    line->addWidget(control, stretch);
  };
  QLineEdit* code = fieldBox(kCode);
  lockBox(code);
  code->setFixedWidth(fontMetrics().averageCharWidth() * kCodeCharacters);
  labelled(kCode, code, 0);
  labelled(kName, fieldBox(kName), 1);
  labelled(kKind, kindList(), 0);
  kindLetter(head);
  line->addStretch();
  return head;
}

QWidget* frmTerti::identityFrame() {
  auto* frame = new QGroupBox("Date de identificare");
  auto* rows = new QFormLayout(frame);
  addField(rows, kFiscalCode);
  const auto upperWhenLeft = [](QLineEdit* box) {
    connect(box, &QLineEdit::editingFinished, box, [box] { box->setText(box->text().toUpper()); });
    fitCapitals(box);
    return box;
  };
  rows->addRow("Reg. Comert", card().add("RegCom", upperWhenLeft(makeTextBox("txtRegComert", 20))));
  rows->addRow("Cod tara membra UE", card().add("CT", upperWhenLeft(makeTextBox("TextCT", 2))));
  QLineEdit* own = card().add("CodTert", makeTextBox("txtCodTert", 20, "Codul propriu al tertului"));
  fitCapitals(own);
  rows->addRow("Cod", own);
  auto* old = card().add("CodVechi", named(new NumberBox(-1), "txtCodTertAuxiliar"));
  requireNumberWhenLeft(old, "Trebuie sa precizati o valoare numerica!", 0, "Atentie");
  rows->addRow("Cod Auxiliar", old);
  return frame;
}

QWidget* frmTerti::addressFrame(const QString& title, int firstField) {
  auto* frame = new QGroupBox(title);
  auto* rows = new QFormLayout(frame);
  for (int index = firstField; index < firstField + 4; ++index) addField(rows, index);
  const bool isBilling = firstField == kBilling;
  rows->addRow("Judet", card().add(isBilling ? "Judet" : "JUDETL",
                                   makeTextBox(isBilling ? "txtJudet" : "txtJudetL", 20)));
  return frame;
}

QWidget* frmTerti::contactFrame() {
  auto* frame = new QGroupBox("Contact si banca");
  auto* rows = new QFormLayout(frame);
  for (int index = kContact; index <= kEmail; ++index) addField(rows, index);
  for (int index = kBank; index <= kBank + 1; ++index) addField(rows, index);
  return frame;
}

QWidget* frmTerti::tradeFrame() {
  auto* frame = new QGroupBox("Conditii");
  auto* rows = new QFormLayout(frame);
  const auto percent = [this, rows](const QString& caption, const QString& column, const QString& name) {
    auto* box = card().add(column, named(new NumberBox(-1), name));
    requireNumberWhenLeft(box, kNotANumber);
    auto* row = new QHBoxLayout;
    row->addWidget(box);
    row->addWidget(new QLabel(" %"));
    rows->addRow(caption, row);
    static_cast<QLabel*>(rows->labelForField(row))->setBuddy(box);
  };
  percent("Discount", "Discount", "txtDiscount");
  percent(" Comision", "PROCPEN", "TxtComision");
  rows->addRow(QString(),
               card().add("Reprezentant", named(new QCheckBox("Reprezentant"), "chkReprezentant")));
  rows->addRow("Contract", card().add("Contract", makeTextBox("txtContract", 50)));
  return frame;
}

QWidget* frmTerti::personFrame() {
  auto* frame = new QGroupBox("Persoana fizica");
  auto* rows = new QFormLayout(frame);
  rows->addRow("C.N.P.", card().add("CNP", makeTextBox("txtCNP", 13)));
  rows->addRow("Serie BI", card().add("SerieBI", makeTextBox("txtSerieBI", 2)));
  rows->addRow("Nr. BI", card().add("NrBI", makeTextBox("txtNrBI", 6)));
  rows->addRow("BI Emis de", card().add("EmisBI", makeTextBox("txtEmisBI", 50)));
  auto* issued = card().add("DataEmisBI", named(new DateBox, "dtDataEmis"));
  issued->setDisplayFormat(QStringLiteral("dd/MM/yyyy"));
  rows->addRow("Data Emitere BI", issued);
  cboIDAngajator_ = card().add("ID_Angajator", new SearchCombo("cboIDAngajator", {}, kShownEmployer));
  rows->addRow("Angajator", cboIDAngajator_);
  return frame;
}

QWidget* frmTerti::cardPage() {
  auto* page = new QWidget;
  auto* all = new QVBoxLayout(page);
  all->addWidget(headLine());
  auto* columns = new QHBoxLayout;
  all->addLayout(columns);
  const auto column = [columns](const QList<QWidget*>& frames) {
    auto* stack = new QVBoxLayout;
    for (QWidget* frame : frames) stack->addWidget(frame);
    stack->addStretch();
    columns->addLayout(stack, 1);
  };
  column({identityFrame(), tradeFrame()});
  column({addressFrame("Adresa de facturare", kBilling), addressFrame("Adresa de livrare", kDelivery)});
  column({contactFrame(), personFrame()});
  return page;
}

void frmTerti::tabChanged() {
  for (QPushButton* button : cardCommands_) button->setEnabled(onCard());
  for (QPushButton* button : listCommands_) button->setEnabled(!onCard());
  if (!onCard()) return;
  const bool untouched = !card().isChanged();
  const QVariant employer = cboIDAngajator_->choice();
  LegaCombo(*cboIDAngajator_, {"SELECT COD, NUME FROM kt_ter ORDER BY NUME NULLS FIRST, COD", "NUME", "COD"});
  cboIDAngajator_->showData(employer);
  if (untouched && !isNew()) showRecord(list()->currentRecord());
}

void frmTerti::showRecord(const Row* current) {
  shown_ = Row();
  addedFor_ = nullptr;  // whoever looks at another partner adds none for a document
  if (!current) return ListForm::showRecord(nullptr);
  const qint64 code = current->integer("COD");
  const Row shown = storedPartner(code);
  if (shown.isEmpty()) return ListForm::showRecord(nullptr);
  shown_ = shown;
  ListForm::showRecord(&shown);
}

void frmTerti::startNew() {
  CatalogueForm::startNew();
  card().control("NUME")->setFocus();
}

std::optional<Decimal> frmTerti::typedDiscount() const {
  return numberIn(card().typed(), "Discount", kNotANumber);
}

void frmTerti::add() {
  if (!card().text("COD").isEmpty()) {
    if (leaveCard()) startNew();
    return;
  }
  const QString code = QString::number(addPartner(card().typed(), typedDiscount()));
  const auto taken = std::exchange(addedFor_, nullptr);
  filter()->clear();
  cauta();
  list()->selectRecord("COD", code);
  startNew();
  if (taken) taken(code);
}

void frmTerti::addFor(std::function<void(const QString& code)> taken) {
  if (!leaveCard()) return;
  startNew();
  addedFor_ = std::move(taken);
}

void frmTerti::save() {
  if (card().text("COD").isEmpty()) return;
  try {
    savePartner(card().typed(), typedDiscount(), shown_);
  } catch (const ChangedMeanwhile& conflict) {
    showConflict(conflict, shown_);
    throw;
  }
  refresh();
}

void frmTerti::remove() {
  const Row* current = list()->currentRecord();
  if (!current || (isNew() && onCard())) return;
  const qint64 code = current->integer("COD");
  if (!confirmed(
          QStringLiteral("Sunteti sigur ca doriti sa stergeti societatea : %1 ?").arg(current->text("NUME"))))
    return;
  removePartner(code);
  refresh();
  bringList();
}

void frmTerti::search() {
  const QString text = searchText();
  if (!showFound(beginsWith("NUME", text), "NUME"))
    Mesaj(QStringLiteral("Nu exista terti ale caror nume sa inceapa cu %1 !").arg(text));
}

void frmTerti::balances() {
  if (!leaveCard()) return;
  const Hourglass wait;
  {
    WorkProgress progress(QStringLiteral("Calcul solduri"), this);
    storeBalances([&progress](int done, int of) { progress.show(done, of); });
  }
  refresh();
}

QWidget* makeCustomers(QWidget* parent) { return new frmTerti("C", parent); }
QWidget* makeSuppliers(QWidget* parent) { return new frmTerti("F", parent); }

}  // namespace velmar
