#include <gtest/gtest.h>
#include <QCoreApplication>

#include "hearing/HearingTrade.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  QCoreApplication application(argc, argv);
  velmar::registerHearingTrade();
  return RUN_ALL_TESTS();
}
