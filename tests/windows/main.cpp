// Tests of windows and controls that do not need the whole program, without a display.
#include <gtest/gtest.h>
#include <QApplication>
#include <QTemporaryDir>

#include "util/Settings.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  const QTemporaryDir settings;
  velmar::settings::setFolder(settings.path());
  return RUN_ALL_TESTS();
}
