// The input voucher's window: the common one, with the list of articles that shows their cost.
#pragma once

#include "documents/windows/frmGrila.h"

namespace velmar {

class frmGRILABonIntr : public frmGrila {
  Q_OBJECT
 public:
  explicit frmGRILABonIntr(QWidget* parent = nullptr);
};

}  // namespace velmar
