// The list of companies; creates and deletes companies with their files.
#pragma once

#include <QWidget>

class QGroupBox;
class QLineEdit;

class QPushButton;

namespace velmar {

class TDBGrid;

class frmSocietati : public QWidget {
  Q_OBJECT
 public:
  explicit frmSocietati(QWidget* parent = nullptr);

 private:
  QGroupBox* companyFrame();
  QLayout* buttonBlock();
  void refresh();
  void add();
  void remove();
  void finishInterrupted();

  TDBGrid* grid_;
  QLineEdit* txtCod_;
  QLineEdit* txtDenumire_;
  QPushButton* cmdNelistate_ = nullptr;
};

}  // namespace velmar
