// "Import din fisier EXCEL": a supplier's spreadsheet becomes the lines of an invoice.
#pragma once

#include <QDate>

#include "documents/SheetImport.h"
#include "documents/windows/SheetDialog.h"

class QCheckBox;
class QComboBox;

namespace velmar {

class DateBox;
class NumberBox;

/// What the windows of invoices say without an invoice, and with one that has lines.
inline const QString kNoInvoice = QStringLiteral("Va rog selectati o factura");
inline const QString kHasLines =
    QStringLiteral("Va rugam stergeti liniile de detalii inaintea importului, sau creati o factura noua");

/// Stays open after an import: each press of cmdOK adds the lines of the file.
class frmImportXLS : public SheetDialog {
  Q_OBJECT
 public:
  /// `invoice`: kind, number, supplier, and the currency and rate of an import invoice.
  frmImportXLS(const LineImport& invoice, const QDate& date, QWidget* parent);

 private:
  void import() override;
  QWidget* controlOf(const QString& field) override;
  void enableCurrency();
  void currencyChosen();

  LineImport invoice_;
  DateBox* DataDoc_;
  QCheckBox* chkDeviza_;
  QComboBox* cboIDDeviza_;
  NumberBox* txtCurs_;
  QComboBox* cboFamilie_;
  QLineEdit* TextPalet_;
  QCheckBox* CheckCPF_;
  QCheckBox* CheckFam_;
};

}  // namespace velmar
