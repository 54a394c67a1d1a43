// The list of journals.
#pragma once

#include "store/windows/ListForm.h"

namespace velmar {

class frmJurnale : public ListForm {
  Q_OBJECT
 public:
  explicit frmJurnale(QWidget* parent = nullptr);

 private:
  QWidget* cardFrame();
  void change();
};

}  // namespace velmar
