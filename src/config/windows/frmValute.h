// The currencies and their daily rates.
#pragma once

#include "store/windows/ListForm.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QRadioButton;

namespace velmar {

class frmValute : public ListForm {
  Q_OBJECT
 public:
  explicit frmValute(QWidget* parent = nullptr);

 protected:
  void showRecord(const Row* record) override;

 private:
  QWidget* currencyFrame();
  QWidget* rateFrame();
  QLayout* rateList();
  void add();
  void showRates();
  void findRate();
  void readBankRates();

  QLabel* lblValuta_ = nullptr;
  QComboBox* cboNumarCursuri_ = nullptr;
  TDBGrid* grdCursValuta_ = nullptr;
  QRadioButton* optValuta_ = nullptr;
  QRadioButton* optCurs_ = nullptr;
  QCheckBox* optZiua_ = nullptr;
};

}  // namespace velmar
