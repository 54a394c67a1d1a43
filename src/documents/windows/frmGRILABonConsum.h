// The window of consumption vouchers, whose list of articles shows their cost.
#pragma once

#include "documents/windows/frmGrila.h"

namespace velmar {

class frmGRILABonConsum : public frmGrila {
  Q_OBJECT
 public:
  explicit frmGRILABonConsum(QWidget* parent = nullptr);
};

}  // namespace velmar
