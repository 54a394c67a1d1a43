#include "util/windows/Forms.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QStackedWidget>
#include <QTabWidget>

#include "util/Messages.h"

namespace velmar {

namespace {

// Handles the keys that the form's controls ignore.
class FormKeys : public QObject {
 public:
  FormKeys(QWidget* form, QPushButton* defaultButton, QPushButton* exitButton)
      : QObject(form), defaultButton_(defaultButton), exitButton_(exitButton) {
    form->installEventFilter(this);
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::KeyPress) return QObject::eventFilter(watched, event);
    const auto* key = static_cast<QKeyEvent*>(event);
    if (key->key() == Qt::Key_Escape && key->modifiers() == Qt::NoModifier) return press(exitButton_);
    if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) {
      QWidget* focused = QApplication::focusWidget();
      if (auto* button = qobject_cast<QPushButton*>(focused)) return press(button);
      if (qobject_cast<QLineEdit*>(focused)) return press(defaultButton_);
    }
    return QObject::eventFilter(watched, event);
  }

 private:
  static bool press(QPushButton* button) {
    if (!button) return false;
    button->click();
    return true;
  }

  QPushButton* defaultButton_;
  QPushButton* exitButton_;
};

// The form's child window frame, or the form itself.
QWidget* frameOf(QWidget* form) {
  auto* child = qobject_cast<QMdiSubWindow*>(form->parentWidget());
  return child ? child : form;
}

}  // namespace

Leaving askLeaving(QWidget* form, const QString& question) {
  activateForm(form);
  switch (Mesaj(question, kYesNoCancel + kQuestion, QStringLiteral("Modificari nesalvate"), 0,
                QStringLiteral("Da"), QStringLiteral("Nu"), QStringLiteral("Renuntare"))) {
    case kResultYes:
      return Leaving::Store;
    case kResultNo:
      return Leaving::Discard;
    default:
      return Leaving::Stay;
  }
}

void activateForm(QWidget* form) {
  auto* child = qobject_cast<QMdiSubWindow*>(frameOf(form));
  if (!child || !child->mdiArea() || child->mdiArea()->activeSubWindow() == child) return;
  if (child->isMinimized()) child->showNormal();
  child->mdiArea()->setActiveSubWindow(child);
}

void closeForm(QWidget* form) { frameOf(form)->close(); }

void minimiseForm(QWidget* form) { frameOf(form)->showMinimized(); }

void maximiseForm(QWidget* form) {
  frameOf(form)->showMaximized();
  if (auto* child = qobject_cast<QMdiSubWindow*>(frameOf(form))) child->mdiArea()->setActiveSubWindow(child);
}

bool goToControl(QWidget* form, const QString& name) {
  auto* control = name.isEmpty() ? nullptr : form->findChild<QWidget*>(name);
  if (!control) return false;
  for (QWidget* page = control; page != form; page = page->parentWidget())
    if (auto* stack = qobject_cast<QStackedWidget*>(page->parentWidget()))
      if (auto* tabs = qobject_cast<QTabWidget*>(stack->parentWidget())) tabs->setCurrentWidget(page);
  control->setFocus();
  if (auto* box = qobject_cast<QLineEdit*>(control)) box->selectAll();
  return true;
}

void setUpExitButton(QPushButton* button, QWidget* form) {
  button->setToolTip(QStringLiteral("Inchidere fereastra"));
  QObject::connect(button, &QPushButton::clicked, form, [form] { closeForm(form); });
}

void setUpKeys(QWidget* form, QPushButton* defaultButton, QPushButton* exitButton) {
  new FormKeys(form, defaultButton, exitButton);
}

Hourglass::Hourglass() { QApplication::setOverrideCursor(Qt::WaitCursor); }

Hourglass::~Hourglass() { QApplication::restoreOverrideCursor(); }

}  // namespace velmar
