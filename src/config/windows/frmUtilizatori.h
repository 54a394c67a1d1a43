// The users of the company and their rights.
#pragma once

#include "store/windows/ListForm.h"

class QLineEdit;

namespace velmar {

class frmUtilizatori : public ListForm {
  Q_OBJECT
 public:
  explicit frmUtilizatori(QWidget* parent = nullptr);

 private:
  QWidget* cardFrame();
  QWidget* options();
  void remove();

  QLineEdit* txtParola_ = nullptr;
};

}  // namespace velmar
