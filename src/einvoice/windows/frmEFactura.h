// The electronic invoices of a period: check, files, sending, answers.
#pragma once

#include <QWidget>

#include "einvoice/EInvoices.h"

class QLineEdit;
class QPushButton;

namespace velmar {

class DateBox;
class StatusText;
class TDBGrid;

class frmEFactura : public QWidget {
  Q_OBJECT
 public:
  explicit frmEFactura(QWidget* parent = nullptr);

  QSize sizeHint() const override;

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  QLayout* periodRow();
  QLayout* sendingRow();
  void read();
  void showCurrent();
  /// The ledger keys of the selected rows. Throws RuleError without any.
  QStringList selected() const;
  QString current() const;
  void showFaults(const std::vector<EFault>& faults);

  void check();
  void mend();
  void write();
  void remake();
  void markAsSent();
  void readAnswers();

  DateBox* DTPickerdela_;
  DateBox* DTPickerla_;
  TDBGrid* TDBGrid1_;
  TDBGrid* TDBGrid2_;
  QLineEdit* txtIndex_;
  StatusText* lblStare_;
  std::vector<EFault> faults_;  ///< as TDBGrid2 shows them
};

}  // namespace velmar
