// The list of warehouses.
#pragma once

#include "store/windows/ListForm.h"

namespace velmar {

class frmMagazii : public ListForm {
  Q_OBJECT
 public:
  explicit frmMagazii(QWidget* parent = nullptr);

 private:
  QWidget* cardFrame();
  void add();
  void save();
  void remove();
};

}  // namespace velmar
