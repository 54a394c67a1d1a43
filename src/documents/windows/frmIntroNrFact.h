// Asks for the number of an invoice.
#pragma once

#include <QDialog>

class QLineEdit;

namespace velmar {

class frmIntroNrFact : public QDialog {
  Q_OBJECT
 public:
  explicit frmIntroNrFact(QWidget* parent = nullptr);

  /// The number after exec(); empty when the user cancelled.
  const QString& number() const { return number_; }

 private:
  void take();

  QLineEdit* txtNrFactura_;
  QString number_;
};

}  // namespace velmar
