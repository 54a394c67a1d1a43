// The program's name and version.
#pragma once

#include <QDialog>

namespace velmar {

class frmAbout : public QDialog {
  Q_OBJECT
 public:
  explicit frmAbout(QWidget* parent = nullptr);
};

}  // namespace velmar
