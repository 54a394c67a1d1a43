// The supplier invoice's window: the common one, with lines coloured by how their prices compare with the
// last purchase.
#pragma once

#include "documents/windows/frmGrila.h"

namespace velmar {

class frmGrilaFF : public frmGrila {
  Q_OBJECT
 public:
  explicit frmGrilaFF(QWidget* parent = nullptr);

 protected:
  void headerTouched() override;
  void ruleTold(const RuleError& rule) override;

 private:
  void addLegend();

  QString margin_;  ///< by which the lines are coloured
};

}  // namespace velmar
