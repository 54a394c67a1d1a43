#include "stock/windows/frmIesiriStoc.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QPushButton>

#include "config/Session.h"
#include "stock/Corrections.h"
#include "util/Errors.h"
#include "util/Messages.h"
#include "util/windows/Controls.h"
#include "util/windows/DateBox.h"
#include "util/windows/Entry.h"
#include "util/windows/Forms.h"

namespace velmar {

namespace {

const QString kForm = QStringLiteral("frmIesiriStoc");

}  // namespace

frmIesiriStoc::frmIesiriStoc(QWidget* parent)
    : QWidget(parent),
      DTPickerdela_(named(new DateBox, "DTPickerdela", "Prima zi a perioadei")),
      DTPickerla_(named(new DateBox, "DTPickerla", "Ultima zi a perioadei")) {
  setObjectName(kForm);
  setWindowTitle("Iesiri din stoc");
  auto* period = new QGroupBox("&Perioada");
  auto* rows = new QFormLayout(period);
  rows->addRow("De la", DTPickerdela_);
  rows->addRow("Pana la", DTPickerla_);
  auto* cmdVisualizare = makeButton("cmdVisualizare", "Calcula",
                                    "Calculeaza cantitatile iesite ale articolelor in perioada", "validate");
  connect(cmdVisualizare, &QPushButton::clicked, this,
          [this] { guarded(kForm, "cmdVisualizare_Click", [this] { calculate(); }); });
  auto* cmdAnulare = makeButton("cmdAnulare", "Iesirea", {}, "exit");
  setUpExitButton(cmdAnulare, this);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(cmdVisualizare);
  buttons->addWidget(cmdAnulare);
  auto* all = new QVBoxLayout(this);
  all->addWidget(period);
  all->addLayout(buttons);
  giveMnemonics(this);
  setUpKeys(this, cmdVisualizare, cmdAnulare);
  DTPickerdela_->setDate(session().DataIN);
  DTPickerla_->setDate(session().DataSN);
  if (session().DataIN > session().DataSN)
    Mesaj("Data de inceput trebuie sa fie mai mica sau egala decat data de sfarsit");
}

void frmIesiriStoc::calculate() {
  if (!entriesAccepted(this)) return;
  DTPickerdela_->takeTyped();
  DTPickerla_->takeTyped();
  const int articles = setIssuedQuantities(DTPickerdela_->date(), DTPickerla_->date());
  Mesaj(QStringLiteral("In perioada specificata au iesit %1 articole").arg(articles));
}

}  // namespace velmar
