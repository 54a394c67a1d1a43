// Asks for the password of a database server, which is kept only in memory.
#pragma once

#include <optional>
#include <QDialog>

class QLineEdit;

namespace velmar {

struct Server;

class frmParola : public QDialog {
  Q_OBJECT
 public:
  explicit frmParola(const Server& server, QWidget* parent = nullptr);
  QString password() const;

 private:
  QLineEdit* txtParola_;
};

/// Asks for the password; `refused`: shows that the last one was refused. Empty when the user cancels.
std::optional<QString> askServerPassword(const Server& server, bool refused);

}  // namespace velmar
