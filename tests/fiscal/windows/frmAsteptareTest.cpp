#include "fiscal/windows/frmAsteptare.h"

#include <gtest/gtest.h>
#include <QApplication>
#include <QTest>
#include <QTimer>

#include "fiscal/OutsideProgram.h"

namespace velmar {

namespace {

OutsideCommand shell(const QString& script) {
  return {QStringLiteral("/bin/sh"), {QStringLiteral("-c"), script}, QStringLiteral("/")};
}

// Calls `work` with the window once it is open and active.
template <typename Work>
void whenShown(Work work) {
  auto* watch = new QTimer(qApp);
  QObject::connect(watch, &QTimer::timeout, watch, [watch, work] {
    auto* window = qobject_cast<frmAsteptare*>(QApplication::activeModalWidget());
    if (!window || !window->isActiveWindow()) return;
    watch->deleteLater();
    work(window);
  });
  watch->start(10);
}

TEST(FrmAsteptare, ClosesByItselfOrWhenTheUserGivesUp) {
  WindowRegisterWait wait;

  // A quick register shows no window, but the others are responsive; a slow one shows it until its end.
  // Enter does not give up.
  OutsideProgram quick(shell("sleep 0.2"));
  bool lived = false;
  QTimer::singleShot(0, qApp, [&lived] { lived = qApp->property("busy").toInt() == 1; });
  wait.wait(quick);
  EXPECT_TRUE(quick.hasSucceeded());
  EXPECT_TRUE(lived);
  EXPECT_EQ(qApp->property("busy").toInt(), 0);
  bool shown = false;
  OutsideProgram slow(shell("sleep 2"));
  whenShown([&](QWidget* window) {
    shown = true;
    QTest::keyClick(window->focusWidget(), Qt::Key_Return);
  });
  wait.wait(slow);
  EXPECT_TRUE(shown);
  EXPECT_TRUE(slow.hasSucceeded());

  // The button, with the keyboard, and Esc.
  for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Escape}) {
    OutsideProgram hanging(shell("exec sleep 20"));
    whenShown([key](QWidget* window) {
      EXPECT_EQ(window->focusWidget()->objectName(), "cmdRenunta");
      QTest::keyClick(window->focusWidget(), key);
    });
    wait.wait(hanging);
    EXPECT_FALSE(hanging.hasEnded());
  }
}

}  // namespace

}  // namespace velmar
