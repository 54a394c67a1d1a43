// The list of article families.
#pragma once

#include "store/windows/ListForm.h"

namespace velmar {

class frmFamArticole : public ListForm {
  Q_OBJECT
 public:
  explicit frmFamArticole(QWidget* parent = nullptr);

 protected:
  void focusField(const QString& column) override;

 private:
  QWidget* cardFrame();
  void add();
  void save();
};

}  // namespace velmar
