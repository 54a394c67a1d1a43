#include "reports/windows/ListingCommands.h"

#include <QKeyEvent>
#include <QPushButton>

#include "reports/windows/clsListLabel.h"
#include "util/Errors.h"
#include "util/windows/Controls.h"
#include "util/windows/Forms.h"

namespace velmar {

namespace {

// Layouts are changed rarely and by few users, so their command is hidden at first.
class DesignKey : public QObject {
 public:
  DesignKey(QPushButton* pressed, QPushButton* shown) : QObject(pressed), shown_(shown) {
    pressed->installEventFilter(this);
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_P) {
      shown_->show();
      makeRoom();
      return true;
    }
    return QObject::eventFilter(watched, event);
  }

 private:
  // Makes the window as wide as its commands need.
  void makeRoom() {
    QWidget* form = shown_->parentWidget();
    if (form->layout()) form->layout()->activate();
    QWidget* frame = form;
    while (!frame->isWindow() && !frame->inherits("QMdiSubWindow")) frame = frame->parentWidget();
    if (frame->layout()) frame->layout()->activate();
    const int more = form->minimumSizeHint().width() - form->width();
    if (more > 0) frame->resize(frame->width() + more, frame->height());
  }

  QPushButton* shown_;
};

QPushButton* command(QWidget* form, const QString& name, const QString& caption, const QString& picture,
                     const std::function<void()>& action) {
  QPushButton* button = makeButton(name, caption, {}, picture);
  QObject::connect(button, &QPushButton::clicked, form, [form, name, action] {
    guarded(form->objectName(), name + QStringLiteral("_Click"), action);
  });
  return button;
}

// The report engine, prepared for one run.
clsListLabel prepared(const PreparedReport& report, QWidget* form) {
  clsListLabel label(form);
  label.setFileName(report.file);
  label.setData(report.data);
  label.setLabelRun(report.labels);
  return label;
}

void runReport(const PreparedReport& report, bool choosesTarget, clsListLabel::Mode mode, QWidget* form) {
  if (choosesTarget) {
    clsListLabel first = prepared(report, form);
    first.Print_Preview(clsListLabel::PrintChoosing);
    if (first.isLayoutDamaged()) return;  // reported once
  }
  prepared(report, form).Print_Preview(mode);
}

}  // namespace

QHBoxLayout* listingCommands(QWidget* form, const QString& exitCaption, const ListingActions& actions) {
  QPushButton* list = command(form, "cmdVisualizare", "Listare", "print", actions.list);
  QPushButton* design = command(form, "cmdDesign", "Proiectare", "settings", actions.design);
  QPushButton* exit = makeButton("cmdAnulare", exitCaption, {}, "close");
  design->setToolTip(QStringLiteral("Modificarea machetei de listare"));
  setUpExitButton(exit, form);
  new DesignKey(list, design);
  auto* row = new QHBoxLayout;
  row->addStretch();
  for (QPushButton* button : {list, design, exit}) {
    button->setAutoDefault(false);
    row->addWidget(button);
  }
  design->hide();
  setUpKeys(form, list, exit);
  return row;
}

void listReport(const PreparedReport& report, bool choosesTarget, QWidget* form) {
  runReport(report, choosesTarget, clsListLabel::Preview, form);
}

void printReport(const PreparedReport& report, bool choosesTarget, QWidget* form) {
  runReport(report, choosesTarget, clsListLabel::Print, form);
}

void designReport(const PreparedReport& report, QWidget* form) { prepared(report, form).Design(); }

}  // namespace velmar
