// The dialog that replaces the open company by a saved copy.
#pragma once

#include <QDialog>

class QLabel;
class QLineEdit;

namespace velmar {

class frmRestaurare : public QDialog {
  Q_OBJECT
 public:
  explicit frmRestaurare(QWidget* parent = nullptr);

 private:
  QLayout* fields();
  QLayout* buttons();
  void choose();
  QString file() const;
  void restore();
  void work(const QString& file);

  QLineEdit* txtDirector_;
  QLineEdit* txtSourceSpec1_;
  QLabel* lblProgressMsg_;
};

}  // namespace velmar
