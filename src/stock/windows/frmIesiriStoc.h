// Computes the issued quantity of the articles over a period.
#pragma once

#include <QWidget>

namespace velmar {

class DateBox;

class frmIesiriStoc : public QWidget {
  Q_OBJECT
 public:
  explicit frmIesiriStoc(QWidget* parent = nullptr);

 private:
  void calculate();

  DateBox* DTPickerdela_;
  DateBox* DTPickerla_;
};

}  // namespace velmar
