// The cash sale's window: the common one, worked with a bar-code reader, which prints on the fiscal register.
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
  QLabel* lblDePlata_;  ///< the sum to pay, to be read from across the counter
};

}  // namespace velmar
