// Asks what an invoice of hearing devices is made from, and opens its window.
#pragma once

#include <QWidget>

class QButtonGroup;

namespace velmar {

class frmFacturaAudio : public QWidget {
  Q_OBJECT
 public:
  explicit frmFacturaAudio(QWidget* parent = nullptr);

 private:
  void open();

  QButtonGroup* options_;  ///< the identifiers are those of BilledBy
};

}  // namespace velmar
