// The steps from the start of the process to the main window, and the end of the process.
#pragma once

#include <memory>
#include <QObject>

namespace velmar {

class frmMain;

class StartUp : public QObject {
  Q_OBJECT
 public:
  /// Prepares the program's folder; shows an error, but continues.
  explicit StartUp(const QString& applicationFolder, QObject* parent = nullptr);
  ~StartUp() override;

  /// Shows splash, login and the choice of the warehouse. Returns when the warehouse dialog is open, or when
  /// the user cancels (ended() is then emitted). Runs nested event loops.
  void run();

  /// Logs in without the dialog. Shows an error and returns false if that fails.
  bool openCompany(const QString& folder, const QString& numeBD, const QString& denumire, const QString& user,
                   const QString& password);

  /// Stores the working warehouse in the session.
  void chooseWarehouse(qint64 code, const QString& name);

  /// The last step: creates and shows the main window.
  void DeschideFereastraPrincipala();

 signals:
  /// The user cancelled: the company is closed, and the process must end.
  void ended();

 private:
  void showSplash();
  void showWarehouses();
  void end();

  std::unique_ptr<frmMain> mainWindow_;
};

}  // namespace velmar
