#include "hearing/windows/frmRapComisioane.h"

#include <QBoxLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QShortcut>

#include "hearing/Commissions.h"
#include "store/windows/TDBGrid.h"
#include "store/windows/TDBGridListare.h"
#include "store/windows/WhereBuilder.h"
#include "util/Clock.h"
#include "util/Errors.h"
#include "util/NumberText.h"
#include "util/windows/Controls.h"
#include "util/windows/DateBox.h"
#include "util/windows/Entry.h"
#include "util/windows/Forms.h"

namespace velmar {

namespace {

const QString kForm = QStringLiteral("frmRapComisioane");

}  // namespace

frmRapComisioane::frmRapComisioane(QWidget* parent)
    : QWidget(parent),
      optMedici_(named(new QRadioButton("Medici"), "optMedici")),
      dtLuna_(named(new DateBox, "dtLuna")),
      filter_(named(new WhereBuilder, "WhereBuilder")),
      grdDetalii_(new TDBGrid("grdDetalii")) {
  setObjectName(kForm);
  setWindowTitle("Comisioane pentru puncte de lucru");
  auto* period = new QGroupBox("Selectie Perioada");
  auto* row = new QHBoxLayout(period);
  auto* points = named(new QRadioButton("Puncte de lucru "), "optPuncteLucru");
  points->setChecked(true);
  dtLuna_->setDisplayFormat(QStringLiteral("MM/yyyy"));
  dtLuna_->setDate(clock::today());
  auto* month = new QLabel("Luna");
  month->setBuddy(dtLuna_);
  for (QWidget* each : std::initializer_list<QWidget*>{points, optMedici_, month, dtLuna_})
    row->addWidget(each);
  row->addStretch();
  filter_->setFields(commissionFilter(), "ID_PunctLucru");
  connect(filter_, &WhereBuilder::searchAsked, this,
          [this] { guarded(kForm, "WhereBuilder", [this] { search(); }); });
  grdDetalii_->setColumns({{"PunctLucru", "Punct de lucru / Medic", CellFormat::Text, 36},
                           {"CAS", "Casa de sanatate", CellFormat::Text, 36},
                           {"Valoare", "Valoare", CellFormat::Number, 14},
                           {"Comision", "Comision", CellFormat::Number, 14}});
  grdDetalii_->setSortable();
  grdDetalii_->setEmptyText(
      "Apasati Cautare. In luna aleasa nu exista facturi catre case pe puncte de lucru.");
  auto* listing = new TDBGridListare("TDBGridListare");
  listing->setTDBGrid(grdDetalii_);
  listing->setForm(this);
  connect(listing, &TDBGridListare::EndPrint, this,
          [this] { guarded(kForm, "TDBGridListare_EndPrint", [this] { showTotals(); }); });
  auto* cmdCauta = makeButton("cmdCauta", "Cautare", "Cautare functie de conditiile stabilite", "search");
  connect(cmdCauta, &QPushButton::clicked, this,
          [this] { guarded(kForm, "cmdCauta_Click", [this] { search(); }); });
  auto* cmdIesire = makeButton("cmdIesire", "Iesire", "Inchidere fereastra", "close");
  setUpExitButton(cmdIesire, this);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  for (QWidget* each : std::initializer_list<QWidget*>{cmdCauta, listing, cmdIesire})
    buttons->addWidget(each);
  auto* all = new QVBoxLayout(this);
  all->addWidget(period);
  all->addWidget(filter_);
  all->addWidget(grdDetalii_, 1);
  all->addLayout(buttons);
  setUpKeys(this, cmdCauta, cmdIesire);
  giveMnemonics(this);
  auto* again = new QShortcut(Qt::Key_F5, this);
  again->setContext(Qt::WidgetWithChildrenShortcut);
  connect(again, &QShortcut::activated, cmdCauta, &QPushButton::click);
  dtLuna_->setFocus();
}

QSize frmRapComisioane::sizeHint() const {
  return {fontMetrics().averageCharWidth() * 112, fontMetrics().height() * 30};
}

void frmRapComisioane::search() {
  if (!entriesAccepted(this)) return;
  dtLuna_->takeTyped();
  grdDetalii_->setRecordset(
      commissions(optMedici_->isChecked() ? CommissionOf::Doctors : CommissionOf::WorkPoints, dtLuna_->date(),
                  filter_->condition()));
  showTotals();
}

void frmRapComisioane::showTotals() {
  Decimal value, commission;
  for (int row = 0; row < grdDetalii_->rows().size(); ++row) {
    value += grdDetalii_->rows().row(row).decimal("Valoare");
    commission += grdDetalii_->rows().row(row).decimal("Comision");
  }
  grdDetalii_->setFooter("Valoare", formatNumber(value, 2));
  grdDetalii_->setFooter("Comision", formatNumber(commission, 2));
}

}  // namespace velmar
