// The list of units of measure with their codes.
#pragma once

#include "store/windows/ListForm.h"

namespace velmar {

class frmUM : public ListForm {
  Q_OBJECT
 public:
  explicit frmUM(QWidget* parent = nullptr);
};

}  // namespace velmar
