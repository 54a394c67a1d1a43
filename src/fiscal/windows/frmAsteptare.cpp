#include "fiscal/windows/frmAsteptare.h"

#include <chrono>
#include <QApplication>
#include <QBoxLayout>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QLabel>
#include <QPushButton>
#include <QTimer>

#include "fiscal/OutsideProgram.h"
#include "util/windows/Controls.h"
#include "util/windows/Entry.h"
#include "util/windows/Forms.h"

namespace velmar {

namespace {

constexpr int kMoment = 1000;     // milliseconds in which most receipts are printed
constexpr int kShownLength = 56;  // characters

QLabel* paragraph(const QString& text, const QString& name) {
  auto* label = named(new QLabel(text), name);
  label->setWordWrap(true);
  label->setFixedWidth(label->fontMetrics().averageCharWidth() * kShownLength);
  return label;
}

// Shows how long the program has been waiting.
QLabel* stopwatch(QObject* owner) {
  auto* label = named(new QLabel, "lblTimp");
  QElapsedTimer since;
  since.start();
  const auto showTime = [label, since] {
    label->setText(
        QStringLiteral("Timp de asteptare: %1 s").arg((kMoment + since.elapsed()) / std::milli::den));
  };
  auto* second = new QTimer(owner);
  QObject::connect(second, &QTimer::timeout, label, showTime);
  second->start(std::chrono::seconds(1));
  showTime();
  return label;
}

// Waits while windows repaint but accept no input. The property counts work in progress, for tests that wait
// until the program is idle.
void waitAMoment(OutsideProgram& program) {
  constexpr const char* kBusy = "busy";
  const Hourglass hourglass;
  const QVariant before = qApp->property(kBusy);
  qApp->setProperty(kBusy, before.toInt() + 1);
  QEventLoop loop;
  QObject::connect(&program, &OutsideProgram::ended, &loop, &QEventLoop::quit);
  QTimer::singleShot(kMoment, &loop, &QEventLoop::quit);
  loop.exec(QEventLoop::ExcludeUserInputEvents);
  qApp->setProperty(kBusy, before);
}

}  // namespace

frmAsteptare::frmAsteptare(OutsideProgram& program, QWidget* parent) : QDialog(parent) {
  setObjectName("frmAsteptare");
  setWindowTitle("Casa de marcat");
  auto* cmdRenunta = makeButton("cmdRenunta", "Renunta", "Nu mai astepta casa de marcat (Esc)", "exit");
  // Enter that is still held down must not give up.
  cmdRenunta->setAutoDefault(false);
  connect(cmdRenunta, &QPushButton::clicked, this, &QDialog::reject);
  connect(&program, &OutsideProgram::ended, this, &QDialog::accept);

  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(cmdRenunta);
  auto* all = new QVBoxLayout(this);
  all->addWidget(paragraph("Bonul se tipareste. Se asteapta casa de marcat ...", "lblAsteptare"));
  all->addWidget(stopwatch(this));
  all->addWidget(
      paragraph("Daca renuntati, verificati daca bonul a iesit din casa de marcat: programul ei "
                "lucreaza mai departe.",
                "lblRenunta"));
  all->addSpacing(fontMetrics().height());
  all->addLayout(buttons);
  all->setSizeConstraint(QLayout::SetFixedSize);
  giveMnemonics(this);
}

void WindowRegisterWait::wait(OutsideProgram& program) {
  waitAMoment(program);
  if (program.hasEnded()) return;
  QWidget* owner = QApplication::activeModalWidget();
  frmAsteptare window(program, owner ? owner : QApplication::activeWindow());
  window.exec();
}

}  // namespace velmar
