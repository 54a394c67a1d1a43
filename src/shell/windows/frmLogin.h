// The login dialog: the databases folder, the company, the user.
#pragma once

#include <QDialog>

#include "shell/Login.h"

class QLabel;
class QLineEdit;

namespace velmar {

class TDBGrid;

class frmLogin : public QDialog {
  Q_OBJECT
 public:
  explicit frmLogin(Login::VersionCheck verificaVersiune = {}, QWidget* parent = nullptr);

  /// Whether a user has logged in.
  bool LoginSucceeded() const { return loginSucceeded_; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QWidget* serverFrame();
  QWidget* userFrame();
  QLayout* buttonRow();
  void load();
  void showCompanies();
  void search();
  void offerVerification(const QString& folder);
  void enter();
  void focusFieldAtFault(const QString& field);

  Login login_;
  QLabel* label1_;
  QLabel* hint_;
  QLabel* societati_;
  TDBGrid* grid_;
  QLineEdit* txtUserName_;
  QLineEdit* txtPassword_;
  bool forceUpdate_ = false;
  bool loginSucceeded_ = false;
};

}  // namespace velmar
