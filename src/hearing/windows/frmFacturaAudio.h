// Asks what an invoice of hearing devices is made from, and opens its window.
#pragma once

#include <QWidget>

class QButtonGroup;
class QPushButton;

namespace velmar {

class frmFacturaAudio : public QWidget {
  Q_OBJECT
 public:
  explicit frmFacturaAudio(QWidget* parent = nullptr);

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void open();

  QButtonGroup* options_;  ///< the identifiers are those of BilledBy
  QPushButton* cmdOk_;
};

}  // namespace velmar
