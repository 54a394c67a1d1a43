#include "hearing/windows/frmFacturaAudio.h"

#include <QBoxLayout>
#include <QButtonGroup>
#include <QGroupBox>
#include <QKeyEvent>
#include <QPushButton>
#include <QRadioButton>

#include "hearing/windows/frmGrilaFacturaAudio.h"
#include "util/Errors.h"
#include "util/windows/Controls.h"
#include "util/windows/Entry.h"
#include "util/windows/Forms.h"
#include "util/windows/WindowHost.h"

namespace velmar {

namespace {

struct Option {
  const char* name;
  const char* caption;
  BilledBy by;
};
constexpr Option kOptions[] = {{"optCas", "Comanda: C A S", BilledBy::Insurer},
                               {"optPunctLucru", "Comanda: Punct de lucru", BilledBy::WorkPoint},
                               {"OptPacient", "Comanda: Pacient", BilledBy::Patient},
                               {"optBonReparatie", "Bon de reparatie ", BilledBy::Voucher}};

}  // namespace

frmFacturaAudio::frmFacturaAudio(QWidget* parent)
    : QWidget(parent), options_(new QButtonGroup(this)), cmdOk_(makeButton("cmdOk", "&OK", {}, "validate")) {
  setObjectName("frmFacturaAudio");
  setWindowTitle("Factura Audio");
  auto* frame = new QGroupBox("Factura pe baza de");
  auto* inside = new QVBoxLayout(frame);
  for (const Option& each : kOptions) {
    auto* option = named(new QRadioButton(each.caption), each.name);
    options_->addButton(option, static_cast<int>(each.by));
    inside->addWidget(option);
  }
  options_->button(static_cast<int>(BilledBy::Insurer))->setChecked(true);
  connect(cmdOk_, &QPushButton::clicked, this,
          [this] { guarded("frmFacturaAudio", "cmdOk_Click", [this] { open(); }); });
  auto* leave = makeButton("cmdAnulare", "&Anulare", {}, "close");
  connect(leave, &QPushButton::clicked, this, [this] { closeForm(this); });
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(cmdOk_);
  buttons->addWidget(leave);
  auto* all = new QVBoxLayout(this);
  all->addWidget(frame);
  all->addStretch();
  all->addLayout(buttons);
  setUpKeys(this, cmdOk_, leave);
  giveMnemonics(this);
  options_->checkedButton()->setFocus();
}

// Enter goes on from the options too; a focused button has taken it before.
void frmFacturaAudio::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return cmdOk_->click();
  QWidget::keyPressEvent(event);
}

void frmFacturaAudio::open() {
  const auto by = static_cast<BilledBy>(options_->checkedId());
  windowHost()->showOne(QStringLiteral("frmGrilaFacturaAudio %1").arg(options_->checkedId()),
                        [by] { return new frmGrilaFacturaAudio(by); });
  closeForm(this);
}

}  // namespace velmar
