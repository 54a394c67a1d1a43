// The settings kept outside the databases: where the companies are, and where the main window stood.
#pragma once

#include <QString>

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

MainWindowPlace mainWindowPlace();
/// A place that cannot be written is forgotten in silence: it must not hold up the end of the program.
void setMainWindowPlace(const MainWindowPlace& place);

}  // namespace velmar::settings
