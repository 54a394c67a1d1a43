// The window of import invoices.
#pragma once

#include "documents/windows/frmGrila.h"

namespace velmar {

class frmGrilaFFI : public frmGrila {
  Q_OBJECT
 public:
  explicit frmGrilaFFI(QWidget* parent = nullptr);

 protected:
  void fieldChosen(const QString& key) override;

 private:
  void importLines();
};

}  // namespace velmar
