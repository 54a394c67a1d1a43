// All fields of an electronic invoice, to be read and printed.
#pragma once

#include <QDialog>

namespace velmar {

class frmEFacturaAfisare : public QDialog {
  Q_OBJECT
 public:
  /// `id`: of the file in G_EFACTURAPRIM. Throws RuleError when its content was not stored.
  frmEFacturaAfisare(qint64 id, QWidget* parent);
};

}  // namespace velmar
