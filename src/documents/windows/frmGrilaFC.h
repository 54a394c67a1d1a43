// The window of customer invoices.
#pragma once

#include "documents/windows/frmGrila.h"

namespace velmar {

class frmGrilaFC : public frmGrila {
  Q_OBJECT
 public:
  explicit frmGrilaFC(QWidget* parent = nullptr);

 protected:
  void fieldChosen(const QString& key) override;
};

}  // namespace velmar
