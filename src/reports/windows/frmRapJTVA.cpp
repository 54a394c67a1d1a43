#include "reports/windows/frmRapJTVA.h"

#include <QCheckBox>
#include <QDir>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

#include "config/Session.h"
#include "reports/windows/ListingCommands.h"
#include "util/Clock.h"
#include "util/Errors.h"
#include "util/Messages.h"
#include "util/Settings.h"
#include "util/windows/Controls.h"
#include "util/windows/DateBox.h"
#include "util/windows/Entry.h"
#include "util/windows/Forms.h"
#include "util/windows/WorkProgress.h"

namespace velmar {

namespace {

constexpr int kNumberWidth = 10;  // characters
const QString kNumberField = QStringLiteral("NRC");
const QString kSubtractsLook = QStringLiteral("/chkStorno");

}  // namespace

frmRapJTVA::frmRapJTVA(const VatJournal& journal, QWidget* parent) : QWidget(parent), journal_(journal) {
  setObjectName(journal.window);
  setWindowTitle(journal.caption);
  lblStare_ = named(new QLabel, "lblStare");
  auto* all = new QVBoxLayout(this);
  all->addWidget(optionsFrame());
  all->addWidget(periodFrame());
  all->addWidget(lblStare_);
  all->addStretch();
  all->addLayout(commandLine());
  giveMnemonics(this);
  for (DateBox* box : {DTPickerdela_, DTPickerla_})
    connect(box, &QDateEdit::dateChanged, this,
            [this] { guarded(objectName(), "DTPicker_Change", [this] { countStornos(); }); });
  DTPickerdela_->setFocus();
}

QGroupBox* frmRapJTVA::optionsFrame() {
  auto* frame = named(new QGroupBox(QStringLiteral("&Optiuni")), "frmOptiuni");
  txtNRC_ = named(new NumberBox(0), "txtNRC", "Numarul primului rand din jurnal");
  txtNRC_->setNumber(1);
  txtNRC_->setMaximumWidth(fontMetrics().averageCharWidth() * kNumberWidth);
  requireNumberWhenLeft(txtNRC_);
  auto* rows = new QFormLayout(frame);
  rows->addRow(QStringLiteral("&Numar curent inceput:"), txtNRC_);
  if (journal_.hasStornos) addStornos(rows);
  return frame;
}

void frmRapJTVA::addStornos(QFormLayout* rows) {
  chkStorno_ = named(new QCheckBox(QStringLiteral("Stornari cu minus")), "chkStorno",
                     "Facturile de stornare se scad din jurnal in loc sa se adune");
  chkStorno_->setChecked(settings::look(journal_.window + kSubtractsLook).toBool());
  connect(chkStorno_, &QCheckBox::toggled, this,
          [this](bool subtracts) { settings::setLook(journal_.window + kSubtractsLook, subtracts); });
  lblStorno_ = named(new QLabel, "lblStorno");
  rows->addRow(chkStorno_);
  rows->addRow(lblStorno_);
}

void frmRapJTVA::countStornos() {
  if (!lblStorno_) return;
  const int stornos =
      stornosOf(journal_, {DTPickerdela_->date(), DTPickerla_->date(), false, chkPrimaZi_->isChecked()});
  lblStorno_->setText(QStringLiteral("Stornari in perioada: %1").arg(stornos));
}

// Other windows may have saved stornos meanwhile.
void frmRapJTVA::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  guarded(objectName(), "Form_Activate", [this] { countStornos(); });
}

QGroupBox* frmRapJTVA::periodFrame() {
  auto* frame = named(new QGroupBox(QStringLiteral("&Perioada")), "frmData");
  const int year = clock::today().year();
  DTPickerdela_ = dateBox("DTPickerdela", QDate(year, 1, 1));
  DTPickerdela_->setToolTip(QStringLiteral(
      "Perioada incepe dupa miezul noptii acestei zile: documentele fara ora din aceasta zi nu "
      "intra in jurnal"));
  DTPickerla_ = dateBox("DTPickerla", QDate(year, 12, 31));
  chkPrimaZi_ = named(new QCheckBox(QStringLiteral("Si prima zi")), "chkPrimaZi",
                      "Documentele din prima zi intra in jurnal");
  connect(chkPrimaZi_, &QCheckBox::toggled, this,
          [this] { guarded(objectName(), "chkPrimaZi_Click", [this] { countStornos(); }); });
  auto* rows = new QFormLayout(frame);
  rows->addRow(QStringLiteral("De la "), DTPickerdela_);
  rows->addRow(QStringLiteral("Pana la"), DTPickerla_);
  rows->addRow(chkPrimaZi_);
  return frame;
}

DateBox* frmRapJTVA::dateBox(const QString& name, const QDate& date) {
  auto* box = named(new DateBox, name);
  box->setDisplayFormat(QStringLiteral("dd/MM/yyyy"));
  box->setDate(date);
  return box;
}

QLayout* frmRapJTVA::commandLine() {
  QHBoxLayout* line =
      listingCommands(this, QStringLiteral("Iesire"),
                      {[this] { run(&frmRapJTVA::list); }, [this] { run(&frmRapJTVA::design); }});
  const auto add = [this, line](int place, const QString& name, const QString& caption,
                                const QString& toolTip, void (frmRapJTVA::*action)()) {
    QPushButton* button = makeButton(name, caption, toolTip);
    connect(button, &QPushButton::clicked, this, [this, name, action] {
      guarded(objectName(), name + QStringLiteral("_Click"), [this, action] { run(action); });
    });
    line->insertWidget(place, button);
  };
  int place = 1;  // after the stretch
  add(place++, "cmdCalcul", "Calcule", "Calculul jurnalului pentru perioada aleasa", &frmRapJTVA::compute);
  if (journal_.canPrint)
    add(++place, "cmdPrint", "Tiparire", "Tiparirea jurnalului la imprimanta", &frmRapJTVA::print);
  return line;
}

void frmRapJTVA::run(void (frmRapJTVA::*command)()) {
  if (!entriesAccepted(this)) return;
  lblStare_->clear();
  countStornos();
  try {
    (this->*command)();
  } catch (const RuleError& rule) {
    Mesaj(rule.text(), rule.icon(), rule.title());
    if (rule.field() == kNumberField) txtNRC_->setFocus();
  }
}

VatPeriod frmRapJTVA::period() const {
  DTPickerdela_->takeTyped();
  DTPickerla_->takeTyped();
  return {DTPickerdela_->date(), DTPickerla_->date(), chkStorno_ && chkStorno_->isChecked(),
          chkPrimaZi_->isChecked()};
}

int frmRapJTVA::firstNumber() const {
  if (txtNRC_->typed().trimmed().isEmpty()) return 1;
  const std::optional<Decimal> number = txtNRC_->number();
  if (!number || Round(*number, 0) != *number || *number < 1 || *number > kLargestRowNumber)
    throw RuleError(QStringLiteral("Numarul curent de inceput trebuie sa fie un numar intreg intre 1 si %1")
                        .arg(kLargestRowNumber),
                    kNumberField);
  return static_cast<int>(number->toDouble());
}

void frmRapJTVA::compute() {
  const Hourglass wait;
  WorkProgress progress(windowTitle(), this);
  const int rows = computeJournal(journal_, period(), firstNumber(), session().gUtilizator,
                                  [&progress](int done, int of) { progress.show(done, of); });
  lblStare_->setText(QStringLiteral("Jurnalul a fost calculat: %1 documente").arg(rows));
}

PreparedReport frmRapJTVA::report() {
  const Hourglass wait;
  WorkProgress progress(windowTitle(), this);
  return {QDir(session().gCaleAplicatie).filePath(QStringLiteral("lst/%1.lst").arg(journal_.project)),
          journalReport(journal_, period(), firstNumber(),
                        [&progress](int done, int of) { progress.show(done, of); })};
}

void frmRapJTVA::list() { listReport(report(), true, this); }

void frmRapJTVA::print() { printReport(report(), false, this); }

void frmRapJTVA::design() { designReport(report(), this); }

}  // namespace velmar
