// The list of VAT rates.
#pragma once

#include "store/windows/ListForm.h"

namespace velmar {

class frmCoteTVA : public ListForm {
  Q_OBJECT
 public:
  explicit frmCoteTVA(QWidget* parent = nullptr);

 protected:
  void showRecord(const Row* record) override;

 private:
  QWidget* cardFrame();
  Row newRate();
  void saveCategory();
  void remove();
};

}  // namespace velmar
