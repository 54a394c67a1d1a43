// The tab "Exercitiu": the fiscal years N and N+1 and the entry period.
#pragma once

#include "config/windows/ParameterPage.h"

class QLabel;

namespace velmar {

class DateBox;

class FiscalYearPage : public ParameterPage {
  Q_OBJECT
 public:
  explicit FiscalYearPage(QWidget* parent = nullptr);

 protected:
  void showStored() override;
  void storeShown() override;

 private:
  void warn(const QString& column);
  void showWarning();

  QList<DateBox*> dates_;
  QString changed_;     // the date with a pending warning
  bool quiet_ = false;  // no warnings: the program changes the dates, not the user
};

}  // namespace velmar
