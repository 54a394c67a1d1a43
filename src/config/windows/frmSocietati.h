// The list of companies, where a company is created or deleted with its file.
#pragma once

#include <QWidget>

#include "store/CompanyList.h"

class QGroupBox;
class QLineEdit;

namespace velmar {

class TDBGrid;

class frmSocietati : public QWidget {
  Q_OBJECT
 public:
  explicit frmSocietati(QWidget* parent = nullptr);

 protected:
  /// Writes the list; the window stays when that fails.
  void closeEvent(QCloseEvent* event) override;

 private:
  QGroupBox* companyFrame();
  QLayout* buttonBlock();
  void load();
  void refresh();
  void add();
  void remove();

  QList<Company> stored_;     // as the list stood when the window opened
  QList<Company> companies_;  // with the changes made since
  TDBGrid* grid_;
  QLineEdit* txtCod_;
  QLineEdit* txtDenumire_;
};

}  // namespace velmar
