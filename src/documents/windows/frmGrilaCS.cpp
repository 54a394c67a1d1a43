#include "documents/windows/frmGrilaCS.h"

#include <QCheckBox>
#include <QLabel>

#include "config/Session.h"
#include "documents/windows/HeaderForm.h"
#include "documents/windows/LineGrid.h"
#include "util/Messages.h"
#include "util/NumberText.h"
#include "util/windows/Controls.h"

namespace velmar {

namespace {

constexpr double kLarge = 2;  // times the usual size

}  // namespace

frmGrilaCS::frmGrilaCS(QWidget* parent) : frmGrila(QStringLiteral("BS"), parent) {
  bySupplierCode()->hide();  // articles are scanned only by their own code
  lines()->setLastColumn("CANT");
  lblDePlata_ = named(new QLabel, "lblDePlata", "Suma de plata");
  QFont large = font();
  large.setPointSizeF(large.pointSizeF() * kLarge);
  large.setBold(true);
  lblDePlata_->setFont(large);
  addBesideCheck(new QLabel("De plata"));
  addBesideCheck(lblDePlata_);
  totalsShown();
  documentShown();
  for (const QString& text : editor().openingNotices()) Mesaj(text);
}

// A new sale is stored before its first line is entered.
void frmGrilaCS::startDocument() {
  newDocument();
  save();
}

void frmGrilaCS::print() {
  const ReceiptOutcome outcome = editor().printReceipt(header()->typed());
  if (outcome == ReceiptOutcome::OnPaper) {
    printStored();
    return newDocument();
  }
  showDocument();
  drafts()->setEnabled(outcome != ReceiptOutcome::Printed);
  if (outcome == ReceiptOutcome::Printed) findChild<QWidget*>("cmdValidare")->setFocus();
}

void frmGrilaCS::totalsShown() { lblDePlata_->setText(formatNumber(editor().total("VALOARETTI"), 2)); }

// After the receipt has been sent the sale cannot be changed.
void frmGrilaCS::documentShown() {
  const bool isFrozen = editor().isFrozen();
  for (const QString& field : editor().kind().receipt.frozen) header()->setFieldEnabled(field, !isFrozen);
  header()->setFieldEnabled("CheckCasaMarcat", !session().CasaMarcat.trimmed().isEmpty());
  drafts()->setEnabled(true);
  if (editor().isPrinted())
    header()->showState("Bon tiparit pe casa de marcat, nevalidat");
  else if (isFrozen)
    header()->showState("Bon trimis la casa de marcat: nu se stie daca a iesit");
}

}  // namespace velmar
