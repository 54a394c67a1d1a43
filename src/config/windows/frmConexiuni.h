// Who works in the open company at this moment.
#pragma once

#include <QWidget>

class QLabel;
class QListWidget;

namespace velmar {

class frmConexiuni : public QWidget {
  Q_OBJECT
 public:
  explicit frmConexiuni(QWidget* parent = nullptr);

 private:
  void showConnections();

  QListWidget* lstUsers_;
  QLabel* lblUsers_;
};

}  // namespace velmar
