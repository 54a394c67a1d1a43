// The road from the start of the process to the main window, and its end.
#pragma once

#include <memory>
#include <QObject>

namespace velmar {

class frmMain;

class StartUp : public QObject {
  Q_OBJECT
 public:
  /// Prepares the program's folder; what fails there is told, and the start goes on.
  explicit StartUp(const QString& applicationFolder, QObject* parent = nullptr);
  ~StartUp() override;

  /// The whole road: splash, login, warehouse. Comes back when the warehouse dialog stands, or when the user
  /// left (then ended() was emitted). Runs event loops of its own.
  void run();

  /// What the login dialog does, without the dialog. Shows what goes wrong and gives false.
  bool openCompany(const QString& folder, const QString& numeBD, const QString& denumire, const QString& user,
                   const QString& password);

  /// Takes the working warehouse into the session.
  void chooseWarehouse(qint64 code, const QString& name);

  /// The last step: creates and shows the main window.
  void DeschideFereastraPrincipala();

 signals:
  /// The user left: the company is closed, and the process is to end.
  void ended();

 private:
  void showSplash();
  void showWarehouses();
  void end();

  std::unique_ptr<frmMain> mainWindow_;
};

}  // namespace velmar
