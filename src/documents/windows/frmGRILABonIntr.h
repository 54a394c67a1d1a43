// The window of input vouchers, whose list of articles shows their cost.
#pragma once

#include "documents/windows/frmGrila.h"

namespace velmar {

class frmGRILABonIntr : public frmGrila {
  Q_OBJECT
 public:
  explicit frmGRILABonIntr(QWidget* parent = nullptr);
};

}  // namespace velmar
