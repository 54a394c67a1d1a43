// The articles whose lots differ from their stock, and their correction.
#pragma once

#include <QDialog>

class QLabel;

namespace velmar {

class TDBGrid;

class frmCorectiiCosturi : public QDialog {
  Q_OBJECT
 public:
  explicit frmCorectiiCosturi(QWidget* parent = nullptr);

 private:
  void pNormalizareCosturi();
  void correct(const QStringList& articles, const QString& done);

  TDBGrid* grdArticole_;
  QLabel* lblNo_;
};

}  // namespace velmar
