// The dialog that saves the open company to a file.
#pragma once

#include <QDialog>

class QLineEdit;

namespace velmar {

class frmSalvare : public QDialog {
  Q_OBJECT
 public:
  explicit frmSalvare(QWidget* parent = nullptr);

 private:
  void load();
  void choose();
  void save();

  QLineEdit* txtCale_;
};

}  // namespace velmar
