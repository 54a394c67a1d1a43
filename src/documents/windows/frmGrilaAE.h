// The window of delivery notes.
#pragma once

#include "documents/windows/frmGrila.h"

namespace velmar {

class frmGrilaAE : public frmGrila {
  Q_OBJECT
 public:
  explicit frmGrilaAE(QWidget* parent = nullptr);

 protected:
  void fieldChosen(const QString& key) override;
};

}  // namespace velmar
