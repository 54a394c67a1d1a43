// The window of supplier invoices, whose lines are coloured by comparing their prices with the last purchase.
#pragma once

#include "documents/windows/frmGrila.h"

namespace velmar {

class frmGrilaFF : public frmGrila {
  Q_OBJECT
 public:
  explicit frmGrilaFF(QWidget* parent = nullptr);

 protected:
  void headerTouched() override;

 private:
  void importLines();
  void addLegend();

  QString margin_;  ///< for colouring the lines
};

}  // namespace velmar
