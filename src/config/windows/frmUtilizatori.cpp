#include "config/windows/frmUtilizatori.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>

#include "config/Session.h"
#include "config/Users.h"
#include "util/Errors.h"
#include "util/windows/Controls.h"

namespace velmar {

namespace {

const ListQuery kUsers{"NUME, PAROLA, TIP", "UTILIZATORI", "NUME"};
const QStringList kTypes = {"0 (Toate)", "1 (Culegeri + raportari)", "2 (Raportari)"};
constexpr int kTextLength = 10;

}  // namespace

frmUtilizatori::frmUtilizatori(QWidget* parent) : ListForm("frmUtilizatori", "Utilizatori", parent) {
  setAddOnly();
  auto* grid = new EntryGrid("grdDataGrid", EntryGrid::Refused::Reverted, "frmUtilizatori");
  GridColumn name{"NUME", "Nume", CellFormat::Text, 24};
  GridColumn password{"PAROLA", "Parola", CellFormat::Text, 24};
  GridColumn type{"TIP", "Tip", CellFormat::Integer, 6};
  password.secret = true;
  name.editable = password.editable = type.editable = true;
  grid->setColumns({name, password, type});
  grid->setEmptyText("Nu exista utilizatori. Completati numele si parola, apoi apasati Adaugare.");
  grid->setStore([](const Row& row, const QString& field, const QString& text) {
    changeUser(row.text("NUME"), field, text);
  });
  setList(grid, "NUME", [] { return std::make_unique<ListRows>(kUsers, Condition(), "NUME"); },
          {"UTILIZATORI"});
  QWidget* frame = cardFrame();
  auto* cmdAdauga = command("cmdAdauga", "Adaugare", "Creare utilizator nou", "new", [this] {
    const Row user = card().typed();
    addUser(user);
    // The type is kept for the next user.
    card().setDefault("TIP", user.integer("TIP"));
    showAdded(user.text("NUME"));
  });
  auto* cmdSterge =
      command("cmdSterge", "Stergere", "Stergere utilizator selectat", "delete", [this] { remove(); });
  setKeys(cmdAdauga, cmdSterge);
  layOut(searchRow({"NUME"}), frame, {cmdAdauga, cmdSterge, exitCommand()});
  startNew();
}

QWidget* frmUtilizatori::cardFrame() {
  auto* frame = new QGroupBox("Utilizator");
  auto* rows = new QFormLayout(frame);
  rows->setFieldGrowthPolicy(QFormLayout::FieldsStayAtSizeHint);
  rows->addRow("Nume", card().add("NUME", makeTextBox("txtNume", kTextLength, "Maxim 10 caractere",
                                                      KeyFilter::NoQuote)));
  txtParola_ = makeTextBox("txtParola", kTextLength, "Maxim 10 caractere");
  txtParola_->setEchoMode(QLineEdit::Password);
  rows->addRow("Parola", card().add("PAROLA", txtParola_));
  auto* cboTip = named(new QComboBox, "cboTip",
                       "Selectati tipul de utilizator functie de care se va asigura accesul in aplicatie");
  for (int type = 0; type < kTypes.size(); ++type) cboTip->addItem(kTypes[type], type);
  rows->addRow("Tip", card().add("TIP", cboTip));
  card().setDefault("TIP", 0);
  auto* all = new QWidget;
  auto* beside = new QHBoxLayout(all);
  beside->setContentsMargins({});
  beside->addWidget(frame, 1);
  beside->addWidget(options());
  return all;
}

QWidget* frmUtilizatori::options() {
  auto* frame = new QGroupBox("Optiuni");
  auto* rows = new QVBoxLayout(frame);
  auto* chkArataParole =
      named(new QCheckBox("Arata parolele"), "chkArataParole", "Arata parolele in lista si in caseta");
  connect(chkArataParole, &QCheckBox::toggled, this, [this](bool shown) {
    list()->showSecrets(shown);
    txtParola_->setEchoMode(shown ? QLineEdit::Normal : QLineEdit::Password);
  });
  auto* chkDrepturiBare =
      named(new QCheckBox("Drepturile se aplica si barelor"), "chkDrepturiBare",
            "Un buton de pe bare nu se poate apasa cand comanda lui din meniu nu este permisa");
  chkDrepturiBare->setChecked(session().DrepturiBare);
  connect(chkDrepturiBare, &QCheckBox::toggled, this, [chkDrepturiBare](bool applied) {
    const bool isStored =
        guarded("frmUtilizatori", "chkDrepturiBare_Click", [applied] { applyRightsToToolBars(applied); });
    if (isStored) return;
    const QSignalBlocker blocker(chkDrepturiBare);
    chkDrepturiBare->setChecked(!applied);
  });
  rows->addWidget(chkArataParole);
  rows->addWidget(chkDrepturiBare);
  rows->addStretch();
  return frame;
}

void frmUtilizatori::remove() {
  if (const Row* current = list()->currentRecord()) requireRemovableUser(current->text("NUME"));
  removeCurrent("Sunteti sigur ca doriti sa stergeti utilizatorul : %1 ?", removeUser);
}

}  // namespace velmar
