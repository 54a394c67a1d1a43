#include "util/Settings.h"

#include <QDir>
#include <QSettings>
#include <QStandardPaths>

#include "util/Errors.h"
#include "util/FileRights.h"

namespace velmar::settings {

namespace {

const QString kDatabasesPath = QStringLiteral("Software/TARVON/Setari/DatabasesPath");
const QString kDriveFolder = QStringLiteral("Velmar/Settings/DriveFolder");
const QString kMainLeft = QStringLiteral("Velmar/Settings/MainLeft");
const QString kMainTop = QStringLiteral("Velmar/Settings/MainTop");
const QString kMainWidth = QStringLiteral("Velmar/Settings/MainWidth");
const QString kMainHeight = QStringLiteral("Velmar/Settings/MainHeight");

QString& folder() {
  static QString theFolder;
  return theFolder;
}

template <typename Work>
auto withStore(Work&& work) {
  if (!folder().isEmpty()) {
    QSettings store(QDir(folder()).filePath(QStringLiteral("velmar.ini")), QSettings::IniFormat);
    return work(store);
  }
  QSettings store(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("velmar"));
  return work(store);
}

template <typename Work>
void change(Work&& work) {
  withStore([&work](QSettings& store) {
    work(store);
    store.sync();
    protectFile(store.fileName());
  });
}

QString ownDrive() {
#ifdef Q_OS_WIN
  return QStringLiteral("C:/");
#else
  return QDir(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation))
      .filePath(QStringLiteral("drive_c"));
#endif
}

QString& user() {
  static QString theUser;
  return theUser;
}

QString lookKey(const QString& name) { return QStringLiteral("Velmar/Looks/%1/%2").arg(user(), name); }

int number(const QSettings& store, const QString& key, int defaultValue) {
  bool ok = false;
  const int value = store.value(key, defaultValue).toInt(&ok);
  return ok ? value : defaultValue;
}

}  // namespace

void setFolder(const QString& path) { folder() = path; }

QString databasesPath() {
  return withStore([](QSettings& store) { return store.value(kDatabasesPath).toString(); });
}

void setDatabasesPath(const QString& path) {
  change([&path](QSettings& store) {
    store.setValue(kDatabasesPath, path);
    store.sync();
    if (store.status() != QSettings::NoError)
      throw StoreError(kFileFailure,
                       QStringLiteral("Setarile din %1 nu pot fi scrise. Verificati drepturile asupra lor.")
                           .arg(QDir::toNativeSeparators(store.fileName())));
  });
}

QString driveFolder() {
  const QString set = withStore([](QSettings& store) { return store.value(kDriveFolder).toString(); });
  return set.isEmpty() ? ownDrive() : set;
}

void setDriveFolder(const QString& path) {
  change([&path](QSettings& store) { store.setValue(kDriveFolder, path); });
}

MainWindowPlace mainWindowPlace() {
  return withStore([](QSettings& store) {
    MainWindowPlace place;
    place.left = number(store, kMainLeft, place.left);
    place.top = number(store, kMainTop, place.top);
    place.width = number(store, kMainWidth, place.width);
    place.height = number(store, kMainHeight, place.height);
    return place;
  });
}

void setMainWindowPlace(const MainWindowPlace& place) {
  change([&place](QSettings& store) {
    store.setValue(kMainLeft, place.left);
    store.setValue(kMainTop, place.top);
    store.setValue(kMainWidth, place.width);
    store.setValue(kMainHeight, place.height);
  });
}

void setUser(const QString& name) { user() = name; }

QVariant look(const QString& name) {
  return withStore([&name](QSettings& store) { return store.value(lookKey(name)); });
}

void setLook(const QString& name, const QVariant& value) {
  change([&](QSettings& store) { store.setValue(lookKey(name), value); });
}

}  // namespace velmar::settings
