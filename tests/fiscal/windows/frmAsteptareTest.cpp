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

// What happens to the window once it stands.
template <typename Work>
void whenItStands(Work work) {
  auto* watch = new QTimer(qApp);
  QObject::connect(watch, &QTimer::timeout, watch, [watch, work] {
    auto* window = qobject_cast<frmAsteptare*>(QApplication::activeModalWidget());
    if (!window || !window->isActiveWindow()) return;
    watch->deleteLater();
    work(window);
  });
  watch->start(10);
}

TEST(FrmAsteptare, GoesByItselfOrWhenItsUserGivesUp) {
  WindowRegisterWait wait;

  // A register that is quick shows no window, but the others live on; one that is not keeps it until the end.
  // Enter gives up nothing.
  OutsideProgram quick(shell("sleep 0.2"));
  bool lived = false;
  QTimer::singleShot(0, qApp, [&lived] { lived = qApp->property("busy").toInt() == 1; });
  wait.wait(quick);
  EXPECT_TRUE(quick.hasSucceeded());
  EXPECT_TRUE(lived);
  EXPECT_EQ(qApp->property("busy").toInt(), 0);
  bool stood = false;
  OutsideProgram slow(shell("sleep 2"));
  whenItStands([&](QWidget* window) {
    stood = true;
    QTest::keyClick(window->focusWidget(), Qt::Key_Return);
  });
  wait.wait(slow);
  EXPECT_TRUE(stood);
  EXPECT_TRUE(slow.hasSucceeded());

  // The button, by keyboard, and Esc.
  for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Escape}) {
    OutsideProgram hanging(shell("exec sleep 20"));
    whenItStands([key](QWidget* window) {
      EXPECT_EQ(window->focusWidget()->objectName(), "cmdRenunta");
      QTest::keyClick(window->focusWidget(), key);
    });
    wait.wait(hanging);
    EXPECT_FALSE(hanging.hasEnded());
  }
}

}  // namespace

}  // namespace velmar
