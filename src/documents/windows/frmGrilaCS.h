// The window of cash sales, for use with a bar-code reader; prints on the fiscal register.
#pragma once

#include "documents/windows/frmGrila.h"

class QLabel;

namespace velmar {

class frmGrilaCS : public frmGrila {
  Q_OBJECT
 public:
  explicit frmGrilaCS(QWidget* parent = nullptr);

 protected:
  void startDocument() override;
  void print() override;
  void documentShown() override;
  void totalsShown() override;

 private:
  QLabel* lblDePlata_;  ///< the sum to pay, in large digits for the customer
};

}  // namespace velmar
