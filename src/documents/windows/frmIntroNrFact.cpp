#include "documents/windows/frmIntroNrFact.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QPushButton>

#include "store/Schema.h"
#include "util/Messages.h"
#include "util/windows/Controls.h"
#include "util/windows/Entry.h"

namespace velmar {

frmIntroNrFact::frmIntroNrFact(QWidget* parent)
    : QDialog(parent),
      txtNrFactura_(makeTextBox("txtNrFactura", companyTable("G_FACCLI").column("NUMFAC")->width,
                                "Numarul facturii noi")) {
  setObjectName("frmIntroNrFact");
  setWindowTitle("Introduceti numar factura");
  auto* ok = makeButton("cmdOk", "&OK", {}, "validate");
  ok->setDefault(true);
  connect(ok, &QPushButton::clicked, this, &frmIntroNrFact::take);
  auto* leave = makeButton("cmdCancel", "&Anulare", {}, "close");
  connect(leave, &QPushButton::clicked, this, &QDialog::reject);
  auto* rows = new QFormLayout(this);
  rows->addRow("&Numar factura", txtNrFactura_);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(ok);
  buttons->addWidget(leave);
  rows->addRow(buttons);
  giveMnemonics(this);
}

void frmIntroNrFact::take() {
  number_ = txtNrFactura_->text().trimmed();
  if (!number_.isEmpty()) return accept();
  Mesaj("Va rog introduceti numarul facturii");
  txtNrFactura_->setFocus();
}

}  // namespace velmar
