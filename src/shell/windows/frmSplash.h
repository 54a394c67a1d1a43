// The picture shown while the program starts.
#pragma once

#include <QWidget>

namespace velmar {

class frmSplash : public QWidget {
  Q_OBJECT
 public:
  frmSplash();

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace velmar
