#include "documents/windows/frmImportXLS.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLineEdit>

#include "config/Lists.h"
#include "config/Lookups.h"
#include "config/windows/ComboFill.h"
#include "util/Errors.h"
#include "util/Messages.h"
#include "util/NumberText.h"
#include "util/windows/Controls.h"
#include "util/windows/DateBox.h"
#include "util/windows/Forms.h"
#include "util/windows/WorkProgress.h"

namespace velmar {

frmImportXLS::frmImportXLS(const LineImport& invoice, const QDate& date, QWidget* parent)
    : SheetDialog("frmImportXLS", "Import din fisier EXCEL", parent),
      invoice_(invoice),
      DataDoc_(named(new DateBox, "DataDoc", "Data documentului")),
      chkDeviza_(named(new QCheckBox("Deviza"), "chkDeviza", "Bifati daca pretul este in valuta")),
      cboIDDeviza_(named(new QComboBox, "cboIDDeviza", "Valuta")),
      txtCurs_(named(new NumberBox(-1), "txtCurs", "Cursul valutei")),
      cboFamilie_(named(new QComboBox, "cboFamilie", "Familia articolelor noi")),
      TextPalet_(makeTextBox("TextPalet", 20)),
      CheckCPF_(
          named(new QCheckBox(" Cod Articol = Cod Produs Furnizor"), "CheckCPF",
                "Bifati daca doriti generarea unui cod articol identic cu codul articolului furnizorului")),
      CheckFam_(named(new QCheckBox(" Preluare familie din fisier"), "CheckFam",
                      "Importa CODI(COD ARTICOL),COD(COD PRODUS FURNIZOR),FAM,CANTITATE,DENUMIRE,PRET")) {
  rows()->addRow("Data", DataDoc_);
  rows()->addRow(chkDeviza_);
  rows()->addRow("Valuta", cboIDDeviza_);
  rows()->addRow(" Curs", txtCurs_);
  rows()->addRow(" Familie", cboFamilie_);
  rows()->addRow(" Palet", TextPalet_);
  rows()->addRow(CheckCPF_);
  rows()->addRow(CheckFam_);
  finish();
  guarded(objectName(), "Form_Load", [this] {
    cboIDDeviza_->addItems(currencyCodes());
    IncarcaCombo(*cboFamilie_);
  });
  DataDoc_->setDate(date);
  chkDeviza_->setChecked(invoice_.isForeign);
  cboIDDeviza_->setCurrentIndex(cboIDDeviza_->findText(invoice_.currency.left(3)));
  txtCurs_->setNumber(invoice_.rate);
  requireNumberWhenLeft(txtCurs_);
  enableCurrency();
  connect(chkDeviza_, &QCheckBox::toggled, this, &frmImportXLS::enableCurrency);
  connect(cboIDDeviza_, &QComboBox::activated, this, &frmImportXLS::currencyChosen);
  connect(CheckCPF_, &QCheckBox::toggled, this, [this](bool isOn) {
    if (isOn) CheckFam_->setChecked(false);
  });
  connect(CheckFam_, &QCheckBox::toggled, this, [this](bool isOn) {
    if (isOn) CheckCPF_->setChecked(false);
  });
}

void frmImportXLS::enableCurrency() {
  cboIDDeviza_->setEnabled(chkDeviza_->isChecked());
  txtCurs_->setEnabled(chkDeviza_->isChecked());
}

void frmImportXLS::currencyChosen() {
  guarded(objectName(), "cboIDDeviza_Click", [this] {
    DataDoc_->takeTyped();
    const Decimal rate = Curs(cboIDDeviza_->currentText(), DataDoc_->date());
    if (rate.isZero())
      Mesaj(QStringLiteral("Nu exista curs valutar pentru data de : %1").arg(formatDate(DataDoc_->date())));
    else
      txtCurs_->setNumber(rate);
  });
}

QWidget* frmImportXLS::controlOf(const QString& field) {
  if (field == "CURS") return txtCurs_;
  return field == "FAMILIE" ? cboFamilie_ : nullptr;
}

void frmImportXLS::import() {
  LineImport choice = invoice_;
  choice.isForeign = chkDeviza_->isChecked();
  choice.currency = choice.isForeign ? cboIDDeviza_->currentText() : QString();
  choice.rate = choice.isForeign ? txtCurs_->number() : std::nullopt;
  choice.family =
      cboFamilie_->currentText() == kNoRecords ? QString() : cboFamilie_->currentData().toString();
  choice.pallet = TextPalet_->text().trimmed();
  choice.codeIsSuppliers = CheckCPF_->isChecked();
  choice.familyFromFile = CheckFam_->isChecked();
  QStringList leftOut;
  {
    const Hourglass wait;
    WorkProgress progress(windowTitle(), this);
    leftOut = importLines(choice, path(), [&progress](int done, int of) { progress.show(done, of); });
  }
  if (!leftOut.isEmpty()) Mesaj(leftOutText(leftOut));
  Mesaj("Importul s-a realizat cu succes");
}

}  // namespace velmar
