#include "store/windows/LongRead.h"

#include <QApplication>
#include <QProgressDialog>
#include <QPushButton>
#include <QTimer>

#include "store/Database.h"
#include "TestCompany.h"
#include "util/Errors.h"

namespace velmar {
namespace {

TEST(LongRead, AfterTwoSecondsTheUserCanCancel) {
  const TestCompany company;
  bool isShown = false;
  QTimer watch;
  QObject::connect(&watch, &QTimer::timeout, [&isShown] {
    for (QWidget* window : QApplication::topLevelWidgets()) {
      auto* dialog = qobject_cast<QProgressDialog*>(window);
      if (!dialog || !dialog->isVisible()) continue;
      isShown = true;
      dialog->findChild<QPushButton*>()->click();
    }
  });
  watch.start(20);
  const auto endless = [] {
    OpenRs(
        "WITH RECURSIVE N(A) AS (SELECT 1 UNION ALL SELECT A + 1 FROM N WHERE A < 4000000000) SELECT "
        "COUNT(*) AS N FROM N");
  };
  EXPECT_THROW(readLong("Raport", nullptr, endless), Cancelled);
  EXPECT_TRUE(isShown);
  EXPECT_EQ(OpenRs("SELECT 1 AS N").first().integer("N"), 1);
}

}  // namespace
}  // namespace velmar
