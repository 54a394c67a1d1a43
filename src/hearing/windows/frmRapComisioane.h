// The commissions of work points or doctors for a month.
#pragma once

#include <QWidget>

class QRadioButton;

namespace velmar {

class DateBox;
class TDBGrid;
class WhereBuilder;

class frmRapComisioane : public QWidget {
  Q_OBJECT
 public:
  explicit frmRapComisioane(QWidget* parent = nullptr);

  QSize sizeHint() const override;

 private:
  void search();
  void showTotals();

  QRadioButton* optMedici_;
  DateBox* dtLuna_;
  WhereBuilder* filter_;
  TDBGrid* grdDetalii_;
};

}  // namespace velmar
