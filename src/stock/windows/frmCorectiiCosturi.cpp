#include "stock/windows/frmCorectiiCosturi.h"

#include <QBoxLayout>
#include <QLabel>
#include <QPushButton>

#include "stock/Corrections.h"
#include "store/windows/TDBGrid.h"
#include "util/Errors.h"
#include "util/Messages.h"
#include "util/NumberText.h"
#include "util/windows/Controls.h"
#include "util/windows/Entry.h"
#include "util/windows/Forms.h"
#include "util/windows/WorkProgress.h"

namespace velmar {

namespace {

const QString kForm = QStringLiteral("frmCorectiiCosturi");

}  // namespace

frmCorectiiCosturi::frmCorectiiCosturi(QWidget* parent)
    : QDialog(parent), grdArticole_(new TDBGrid("grdArticole")), lblNo_(named(new QLabel, "lblNo")) {
  setObjectName(kForm);
  setWindowTitle("Corectii costuri");
  grdArticole_->setColumns({{"ARTID", "Articol", CellFormat::Text, 14},
                            {"DENART", "Denumire articol", CellFormat::Text, 38},
                            {"Cantitate", "Stoc din documente", CellFormat::Number, 16, 3},
                            {"CRamasa", "Ramas in loturi", CellFormat::Number, 16, 3}});
  grdArticole_->setEmptyText("Loturile tuturor articolelor corespund cu stocul.");
  grdArticole_->setSortable();
  auto* cmdCalcul =
      makeButton("cmdCalcul", "Corecteaza", "Corecteaza loturile articolului selectat", "validate");
  connect(cmdCalcul, &QPushButton::clicked, this, [this] {
    guarded(kForm, "cmdCalcul_Click", [this] {
      const Row* current = grdArticole_->currentRecord();
      correct(current ? QStringList{current->text("ARTID")} : QStringList(), "Corectie terminata");
    });
  });
  auto* cmdCorecteazaToate = makeButton("cmdCorecteazaToate", "Corecteaza toate",
                                        "Corecteaza loturile tuturor articolelor din lista");
  connect(cmdCorecteazaToate, &QPushButton::clicked, this, [this] {
    guarded(kForm, "cmdCorecteazaToate_Click", [this] {
      QStringList articles;
      for (int place = 0; place < grdArticole_->rows().size(); ++place)
        articles.append(grdArticole_->rows().row(place).text("ARTID"));
      correct(articles, "Corectarea s-a terminat cu succes");
    });
  });
  auto* cmdIesire = makeButton("cmdIesire", "Iesire", {}, "exit");
  setUpExitButton(cmdIesire, this);
  auto* commands = new QHBoxLayout;
  commands->addWidget(new QLabel("Nr. Inregistrari: "));
  commands->addWidget(lblNo_);
  commands->addStretch();
  for (QPushButton* each : {cmdCalcul, cmdCorecteazaToate, cmdIesire}) {
    each->setAutoDefault(true);
    commands->addWidget(each);
  }
  auto* all = new QVBoxLayout(this);
  all->addWidget(grdArticole_);
  all->addLayout(commands);
  giveMnemonics(this);
  resize(fontMetrics().averageCharWidth() * 100, fontMetrics().height() * 26);
  guarded(kForm, "Form_Load", [this] { pNormalizareCosturi(); });
}

void frmCorectiiCosturi::pNormalizareCosturi() {
  const Hourglass wait;
  grdArticole_->setRecordset(lotDifferences());
  lblNo_->setText(formatNumber(grdArticole_->rows().size(), 0));
}

void frmCorectiiCosturi::correct(const QStringList& articles, const QString& done) {
  if (articles.isEmpty()) throw RuleError("Nu exista nici un articol de corectat");
  {
    const Hourglass wait;
    WorkProgress progress(windowTitle(), this);
    correctLots(articles, [&progress](int part, int of) { progress.show(part, of); });
  }
  Mesaj(done);
  pNormalizareCosturi();
}

}  // namespace velmar
