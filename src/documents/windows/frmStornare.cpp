#include "documents/windows/frmStornare.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>

#include "util/Clock.h"
#include "util/Messages.h"
#include "util/windows/Controls.h"
#include "util/windows/DateBox.h"
#include "util/windows/Entry.h"

namespace velmar {

frmStornare::frmStornare(const QDate& DataFactura, QWidget* parent)
    : QDialog(parent),
      DataFactura_(DataFactura),
      txtNr_(named(new QLineEdit(this), "txtNr", "Numarul facturii storno")),
      dtData_(named(new DateBox, "dtData")) {
  setObjectName("frmStornare");
  setWindowTitle("Stornare factura");
  dtData_->setDate(clock::today());
  auto* ok = makeButton("cmdOk", "&OK", {}, "validate");
  ok->setDefault(true);
  connect(ok, &QPushButton::clicked, this, &frmStornare::take);
  auto* leave = makeButton("cmdAnulare", "&Anulare", {}, "close");
  connect(leave, &QPushButton::clicked, this, &QDialog::reject);
  auto* rows = new QFormLayout(this);
  rows->addRow("&Numar factura", txtNr_);
  rows->addRow("&Data factura", dtData_);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(ok);
  buttons->addWidget(leave);
  rows->addRow(buttons);
  giveMnemonics(this);
}

void frmStornare::take() {
  if (!entriesAccepted(this)) return;
  const QString number = txtNr_->text().trimmed();
  if (number.isEmpty()) {
    Mesaj("Va rog introduceti numarul facturii storno");
    return txtNr_->setFocus();
  }
  if (dtData_->date() < DataFactura_) {
    Mesaj("Va rog introduceti data factura stornare sa fie mai mica decat data facturii: " +
          DataFactura_.toString("dd/MM/yyyy"));
    return dtData_->setFocus();
  }
  Nr_ = number;
  Data_ = dtData_->date();
  OkPressed_ = true;
  accept();
}

}  // namespace velmar
