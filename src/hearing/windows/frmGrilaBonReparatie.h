// Repair vouchers: the device that came in, the parts that were used, and the list.
#pragma once

#include "hearing/RepairVouchers.h"
#include "hearing/windows/HearingForm.h"
#include "store/windows/DataBinding.h"

class QCheckBox;
class QGroupBox;
class QRadioButton;

namespace velmar {

class DateBox;
class DetailGrid;

class frmGrilaBonReparatie : public HearingForm {
  Q_OBJECT
 public:
  explicit frmGrilaBonReparatie(QWidget* parent = nullptr);

 protected:
  void showRecord(const Row* record) override;
  void startNew() override;
  bool isShownGone() const override;
  void closeEvent(QCloseEvent* event) override;

 private:
  QWidget* cardPage();
  QWidget* headerFrame();
  QWidget* kindFrame();
  QList<QPushButton*> commands();
  void showVoucher(const Row& voucher);
  void showLines();
  void clientChosen();
  void deviceChosen();
  /// Shows serial and type of the patient's order of the device; returns whether there is one.
  bool takeOrderOf(const QString& device);
  void fillDevices();
  void requireOpen() const;
  void save();
  void validate();
  void remove();
  void print();
  void takeCell(size_t line, const QString& field, const QString& text);

  DataBinding binding_;
  QGroupBox* frmAntet_ = nullptr;
  SearchCombo* cboClient_ = nullptr;
  SearchCombo* cboArticolAntet_ = nullptr;
  QCheckBox* chkDataTerminare_ = nullptr;
  DateBox* dtDataTerminare_ = nullptr;
  QLineEdit* txtTipAparat_ = nullptr;
  QLineEdit* txtSerie_ = nullptr;
  QLabel* lblStatus_ = nullptr;
  DetailGrid* grdDetalii_ = nullptr;
  Recordset devices_;  ///< that the patient ordered
  QList<QPushButton*> listCommands_;
};

}  // namespace velmar
