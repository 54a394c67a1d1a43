// The settings kept outside the databases: where the companies are, and where the main window stood.
#pragma once

#include <QString>
#include <QVariant>

namespace velmar::settings {

/// Place of the main window, in twips (1/1440 inch, 15 to a pixel).
struct MainWindowPlace {
  int left = 1000;
  int top = 1000;
  int width = 6500;
  int height = 6500;
};

inline constexpr int kTwipsPerPixel = 15;

/// Keeps the settings in that folder from now on; empty means the user's own place.
void setFolder(const QString& path);

/// `DatabasesPath`: the databases folder, empty when none was chosen yet.
QString databasesPath();
/// Throws StoreError when the settings cannot be written.
void setDatabasesPath(const QString& path);

/// `DriveFolder`: the folder that stands for drive C: where the programs of fiscal registers look for their
/// files. Unless set, the drive itself on Windows, else "drive_c" in the user's folder of the program.
QString driveFolder();
void setDriveFolder(const QString& path);

MainWindowPlace mainWindowPlace();
/// A place that cannot be written is forgotten in silence: it must not hold up the end of the program.
void setMainWindowPlace(const MainWindowPlace& place);

/// Whose windows look() and setLook() speak of from now on.
void setUser(const QString& user);

/// What the user's window looked like, by a name of its own ("frmGRILABonIntr/TDBGrid1"); null when nothing
/// was stored.
QVariant look(const QString& name);
void setLook(const QString& name, const QVariant& value);

}  // namespace velmar::settings
