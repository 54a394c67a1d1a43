// The choice of the source of customer invoices, before their window opens.
#pragma once

#include <QDialog>

namespace velmar {

class frmGrilaFC2 : public QDialog {
  Q_OBJECT
 public:
  explicit frmGrilaFC2(QWidget* parent = nullptr);

 private:
  void choose(int source);
};

}  // namespace velmar
