// The window of goods receipt notes, which also serves opening stock and returns of delivered goods.
#pragma once

#include "documents/windows/frmGrila.h"

namespace velmar {

class frmGrilaNIR : public frmGrila {
  Q_OBJECT
 public:
  explicit frmGrilaNIR(QWidget* parent = nullptr);

  /// Enter in the remark of a return adds the goods of the delivery note with that number.
  bool eventFilter(QObject* watched, QEvent* event) override;

 protected:
  void documentShown() override;
  void totalsShown() override;
  void fieldChosen(const QString& key) override;

 private:
  void importLot(bool ofSurpluses);
  bool isReturn();
  void enableReturn();
};

}  // namespace velmar
