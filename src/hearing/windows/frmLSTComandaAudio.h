// Prints the order of a hearing device, front or back.
#pragma once

#include <QDialog>

class QRadioButton;

namespace velmar {

struct PreparedReport;

class frmLSTComandaAudio : public QDialog {
  Q_OBJECT
 public:
  frmLSTComandaAudio(qint64 order, QWidget* parent);

 private:
  PreparedReport prepare() const;

  qint64 order_;
  QRadioButton* OptionVerso_;
};

}  // namespace velmar
