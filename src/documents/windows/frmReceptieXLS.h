// "Receptie din fisier EXCEL": the count of an import lot becomes lines of a receipt note.
#pragma once

#include "documents/windows/SheetDialog.h"

namespace velmar {

class frmReceptieXLS : public SheetDialog {
  Q_OBJECT
 public:
  /// `note`: number of a draft without lines.
  frmReceptieXLS(const QString& note, bool ofSurpluses, QWidget* parent);

 private:
  void import() override;
  QWidget* controlOf(const QString& field) override;

  QString note_;
  bool ofSurpluses_;
  QLineEdit* TextLot_;
};

}  // namespace velmar
