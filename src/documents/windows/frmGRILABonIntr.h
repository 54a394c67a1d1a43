// The input voucher's window.
#pragma once

#include "documents/windows/frmGrila.h"

namespace velmar {

class frmGRILABonIntr : public frmGrila {
  Q_OBJECT
 public:
  explicit frmGRILABonIntr(QWidget* parent = nullptr);

 protected:
  QString whyNotPrintable() const override;
};

}  // namespace velmar
