// The chart of accounts and its turnovers.
#pragma once

#include "store/windows/ListForm.h"

namespace velmar {

class frmPC : public ListForm {
  Q_OBJECT
 public:
  explicit frmPC(QWidget* parent = nullptr);

 private:
  QWidget* accountFrame();
  QWidget* turnoverFrame();
};

}  // namespace velmar
