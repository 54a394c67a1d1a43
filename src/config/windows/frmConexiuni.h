// The users who currently work in the open company.
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
