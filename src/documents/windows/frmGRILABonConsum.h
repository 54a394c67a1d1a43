// The consumption voucher's window: the common one, with the list of articles that shows their cost.
#pragma once

#include "documents/windows/frmGrila.h"

namespace velmar {

class frmGRILABonConsum : public frmGrila {
  Q_OBJECT
 public:
  explicit frmGRILABonConsum(QWidget* parent = nullptr);
};

}  // namespace velmar
