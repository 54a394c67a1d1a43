// Settings stored outside the databases: the databases folder, the position of the main window, and others.
#pragma once

#include <QString>
#include <QVariant>

namespace velmar::settings {

/// Position of the main window, in twips (1/1440 inch, 15 to a pixel).
struct MainWindowPlace {
  int left = 1000;
  int top = 1000;
  int width = 6500;
  int height = 6500;
};

inline constexpr int kTwipsPerPixel = 15;

/// Stores the settings in that folder from now on; empty: the user's configuration folder.
void setFolder(const QString& path);

/// `DatabasesPath`: the databases folder; empty if none was chosen yet.
QString databasesPath();
/// Throws StoreError when the settings cannot be written.
void setDatabasesPath(const QString& path);

/// `DriveFolder`: the folder used as drive C:, where the programs of fiscal registers look for their files.
/// Default: the drive itself on Windows, otherwise "drive_c" in the program's data folder.
QString driveFolder();
void setDriveFolder(const QString& path);

MainWindowPlace mainWindowPlace();
/// A write error is ignored: it must not prevent the program from ending.
void setMainWindowPlace(const MainWindowPlace& place);

/// The user whose window settings look() and setLook() access from now on.
void setUser(const QString& user);

/// Stored appearance of a window or control of the user, by name ("frmGRILABonIntr/TDBGrid1"); null if there
/// is none.
QVariant look(const QString& name);
void setLook(const QString& name, const QVariant& value);

}  // namespace velmar::settings
