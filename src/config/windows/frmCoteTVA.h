// The list of VAT rates.
#pragma once

#include "store/windows/ListForm.h"

namespace velmar {

class frmCoteTVA : public ListForm {
  Q_OBJECT
 public:
  explicit frmCoteTVA(QWidget* parent = nullptr);

 private:
  QWidget* cardFrame();
  void remove();
};

}  // namespace velmar
