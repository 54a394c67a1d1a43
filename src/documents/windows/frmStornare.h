// Asks for number and date of a storno.
#pragma once

#include <QDate>
#include <QDialog>

class QLineEdit;

namespace velmar {

class DateBox;

class frmStornare : public QDialog {
  Q_OBJECT
 public:
  /// `DataFactura` is the date of the invoice; the storno is not dated before it.
  explicit frmStornare(const QDate& DataFactura, QWidget* parent = nullptr);

  // After exec().
  bool OkPressed() const { return OkPressed_; }
  const QString& Nr() const { return Nr_; }
  const QDate& Data() const { return Data_; }

 private:
  void take();

  QDate DataFactura_;
  QLineEdit* txtNr_;
  DateBox* dtData_;
  QString Nr_;
  QDate Data_;
  bool OkPressed_ = false;
};

}  // namespace velmar
