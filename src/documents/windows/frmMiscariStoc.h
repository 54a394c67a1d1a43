// The list of all stock movements: the lines of the ledger, with totals of all rows and of the selected rows.
#pragma once

#include "store/windows/BrowserForm.h"

namespace velmar {

class frmMiscariStoc : public BrowserForm {
  Q_OBJECT
 public:
  explicit frmMiscariStoc(QWidget* parent = nullptr);

 protected:
  BackgroundRead::Work totalsRead() const override;
};

}  // namespace velmar
