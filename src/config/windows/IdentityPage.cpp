#include "config/windows/IdentityPage.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QRadioButton>

#include "config/AccountPlan.h"
#include "config/Parameters.h"
#include "store/Records.h"
#include "util/Errors.h"
#include "util/windows/Controls.h"
#include "util/windows/Entry.h"

namespace velmar {

namespace {

constexpr int kNameWidth = 35;  // characters
constexpr int kCapitalWidth = 20;
constexpr int kCodeWidth = 4;
constexpr int kFirstOfficeBox = 9;
constexpr int kFirstWorkPointBox = 19;

QString textName(int number) { return QStringLiteral("Text1(%1)").arg(number); }

QRadioButton* makeOption(const QString& name, const QString& caption, QBoxLayout* layout) {
  auto* option = named(new QRadioButton(caption), name);
  layout->addWidget(option);
  return option;
}

}  // namespace

IdentityPage::IdentityPage(QWidget* parent) : ParameterPage(parent) {
  auto* chkModAudio = card().add(
      "MODAUDIO",
      named(new QCheckBox("Mod aparate auditive"), "chkModAudio",
            "Arata comenzile pentru aparate auditive; meniul se schimba la urmatoarea autentificare"));
  QWidget* identity = identityFrame();
  auto* options = new QVBoxLayout;
  options->addWidget(planFrame_ = planFrame());
  options->addWidget(methodFrame());
  options->addWidget(chkModAudio);
  options->addStretch();
  auto* top = new QHBoxLayout;
  top->addWidget(identity, 1);
  top->addLayout(options);
  auto* addresses = new QHBoxLayout;
  addresses->addWidget(addressFrame("Adresa Sediu Social", 1), 1);
  addresses->addWidget(addressFrame("Adresa Punct de Lucru", 2), 1);
  auto* all = new QVBoxLayout(this);
  all->addLayout(top);
  all->addLayout(addresses);
  all->addStretch();
}

QWidget* IdentityPage::identityFrame() {
  const QString info = QStringLiteral("kt_info");
  auto* frame = new QGroupBox("Date de identificare");
  auto* grid = new QGridLayout(frame);
  QLineEdit* name = card().add("DENUMIRE", makeTextBox(textName(0), kNameWidth));
  fitCapitals(name);
  moveOnWithEnter(name);
  addField(grid, 0, 0, "Denumire", name, 3);
  addField(grid, 1, 0, "Tip", addTextBox(textName(1), info, "TIP"));
  addField(grid, 1, 2, "Nr.Reg.Comert", addTextBox(textName(2), info, "NREGCOM"));
  addField(grid, 2, 0, "Cod fiscal", addTextBox(textName(3), info, "CODFISCAL"));
  addField(grid, 2, 2, "Capital social",
           addNumberBox(textName(5), "CAPSOC", kCapitalWidth, identityNumberMessage("CAPSOC")));
  addField(grid, 3, 0, "Fp",
           addNumberBox(textName(6), "FP", kCodeWidth, identityNumberMessage("FP"), "Forma de proprietate"));
  addField(grid, 3, 2, "Cod CAEN",
           addNumberBox(textName(7), "RAMURA", kCodeWidth, identityNumberMessage("RAMURA")));
  QLineEdit* payer = addTextBox(textName(8), info, "PLATITVA", "D (de la DA) sau N (de la NU)");
  KeyFilter::install(payer, KeyFilter::UpperCase);
  checkWhenLeft(payer, [payer] { return vatPayerObjection(payer->text()); });
  addField(grid, 3, 4, "Platitor TVA", payer);
  addField(grid, 4, 0, "Banca", addTextBox("txtBanca", info, "banca"), 3);
  addField(grid, 5, 0, "Cont", addTextBox("txtContBancar", info, "contbancar"), 3);
  QLineEdit* sector =
      addTextBox("txtSector", info, "SECTOR1", "Pentru Bucuresti: 1 la 6, pe facturile electronice");
  checkWhenLeft(sector, [sector] { return sectorObjection(sector->text()); });
  addField(grid, 6, 0, "Sector", sector);
  addField(grid, 6, 2, "Termen e-Factura",
           addNumberBox("txtTermen", "TERMENEFACT", kCodeWidth, identityNumberMessage("TERMENEFACT"),
                        "Zile lucratoare de la emitere pana la trimiterea facturii electronice"));
  auto* onCollection =
      card().add("TVAINCASARE", named(new QCheckBox("TVA la incasare"), "chkTVAIncasare",
                                      "Facturile electronice spun ca TVA se datoreaza la incasare"));
  grid->addWidget(onCollection, 6, 4, 1, 2);
  grid->setColumnStretch(6, 1);
  return frame;
}

QWidget* IdentityPage::addressFrame(const QString& title, int place) {
  struct AddressField {
    const char* caption;
    const char* column;
    int row, position, span;
  };
  static const AddressField kFields[] = {{"Strada", "STRADA", 0, 0, 5},
                                         {"Nr.", "NR", 1, 0, 1},
                                         {"Bl.", "BLOC", 1, 2, 1},
                                         {"Ap.", "AP", 1, 4, 1},
                                         {"Oras", "ORAS", 2, 0, 5},
                                         {"Judet", "JUDET", 3, 0, 1},
                                         {"Cod postal", "CODPOSTAL", 3, 2, 3},
                                         {"Telefon", "TELEFON", 4, 0, 2},
                                         {"Fax", "FAX", 4, 3, 2},
                                         {"E-mail", "EMAIL", 5, 0, 5}};
  auto* frame = new QGroupBox(title);
  auto* grid = new QGridLayout(frame);
  int number = place == 1 ? kFirstOfficeBox : kFirstWorkPointBox;
  for (const AddressField& field : kFields) {
    QLineEdit* box = addTextBox(textName(number++), "kt_info", field.column + QString::number(place));
    addField(grid, field.row, field.position, field.caption, box, field.span);
  }
  grid->setColumnStretch(6, 1);
  return frame;
}

QGroupBox* IdentityPage::planFrame() {
  auto* frame = new QGroupBox("Plan de Conturi ");
  auto* layout = new QVBoxLayout(frame);
  plans_ = {makeOption("optGeneral", "General", layout), makeOption("optBugetar", "Bugetar ", layout),
            makeOption("optObstesc", "Obstesc ", layout)};
  for (int plan = 0; plan < plans_.size(); ++plan)
    connect(plans_[plan], &QRadioButton::clicked, this, [this, plan] { emit planChosen(plan); });
  return frame;
}

QGroupBox* IdentityPage::methodFrame() {
  auto* frame = new QGroupBox("Metoda evaluare stoc");
  auto* layout = new QVBoxLayout(frame);
  Option1_ = makeOption("Option1", "FIFO", layout);
  Option2_ = makeOption("Option2", "CMP", layout);
  Text2_ = card().add("TCOST", named(new QLineEdit(frame), "Text2"));
  Text2_->hide();
  const auto choose = [this](const QString& method) {
    Text2_->setText(method);
    emit edited();
  };
  connect(Option1_, &QRadioButton::clicked, this, [choose] { choose("FIFO"); });
  connect(Option2_, &QRadioButton::clicked, this, [choose] { choose("MP"); });
  return frame;
}

void IdentityPage::showPlan() {
  const auto plan = storedIdentity().integer("PlanC");
  plans_[plan >= 0 && plan < plans_.size() ? plan : 0]->setChecked(true);
  planFrame_->setEnabled(accountPlanMayChange());
}

// The method is chosen once: a stored method is read-only.
void IdentityPage::showMethod(const QString& method) {
  Text2_->setText(method);
  const bool isFifo = method == QStringLiteral("FIFO");
  const bool isAverage = method == QStringLiteral("MP");
  if (isFifo) Option1_->setChecked(true);
  if (isAverage) Option2_->setChecked(true);
  for (QRadioButton* option : {Option1_, Option2_}) option->setEnabled(!isFifo && !isAverage);
}

void IdentityPage::showStored() {
  const Row info = storedIdentity();
  Row shown = rowOf(info.columns() + QStringList("MODAUDIO"), info);
  shown.set("MODAUDIO", storedParameters().flag("MODAUDIO"));
  shown.set("TERMENEFACT", eInvoiceTerm(info));
  card().show(shown);
  showMethod(info.text("TCOST"));
  showPlan();
}

void IdentityPage::storeShown() {
  const Row typed = card().typed();
  QStringList columns = typed.columns();
  for (const char* apart : {"TCOST", "MODAUDIO"}) columns.removeAll(QLatin1String(apart));
  try {
    saveIdentity(rowOf(columns, typed), typed.text("TCOST"), typed.flag("MODAUDIO"));
  } catch (const RuleError& rule) {
    if (rule.field() == QStringLiteral("TCOST")) showMethod(storedIdentity().text("TCOST"));
    throw;
  }
}

}  // namespace velmar
