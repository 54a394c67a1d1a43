#include "shell/windows/frmMain.h"

#include <algorithm>
#include <QApplication>
#include <QCloseEvent>
#include <QDesktopServices>
#include <QDialog>
#include <QDir>
#include <QKeyEvent>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QPainter>
#include <QPointer>
#include <QScreen>
#include <QStatusBar>
#include <QStyle>
#include <QTimer>
#include <QToolBar>
#include <QUrl>
#include <utility>

#include "config/Session.h"
#include "shell/Denomination.h"
#include "shell/windows/MenuTable.h"
#include "store/DataChanges.h"
#include "store/windows/EntryGrid.h"
#include "util/Clock.h"
#include "util/Errors.h"
#include "util/Messages.h"
#include "util/NumberText.h"
#include "util/Settings.h"
#include "util/windows/Look.h"

namespace velmar {

namespace {

constexpr QSize kSmallest(960, 640);
constexpr int kClockMs = 1000;
constexpr int kAskAgainMs = 50;
constexpr const char* kWindowKey = "windowKey";
const QString kForm = QStringLiteral("frmMain");

const MenuEntry& entryOf(const QString& name) {
  return *std::find_if(menuTable().begin(), menuTable().end(),
                       [&name](const MenuEntry& each) { return each.name == name; });
}

// An empty area shows a hint how to begin.
class ChildArea : public QMdiArea {
 public:
  using QMdiArea::QMdiArea;

 protected:
  // Ctrl+Tab changes between windows, but within a grid it leaves that.
  bool eventFilter(QObject* watched, QEvent* event) override {
    const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease;
    if (isKey && isInGrid(QApplication::focusWidget())) {
      const int key = static_cast<QKeyEvent*>(event)->key();
      if (key == Qt::Key_Tab || key == Qt::Key_Backtab) return false;
    }
    return QMdiArea::eventFilter(watched, event);
  }

  void paintEvent(QPaintEvent* event) override {
    QMdiArea::paintEvent(event);
    if (!subWindowList().isEmpty()) return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::Disabled, QPalette::Text));
    painter.drawText(viewport()->rect().adjusted(12, 12, -12, -12), Qt::AlignCenter | Qt::TextWordWrap,
                     QStringLiteral("Alegeti o comanda din meniu sau de pe barele laterale."));
  }

 private:
  static bool isInGrid(const QWidget* widget) {
    while (widget && !qobject_cast<const EntryGrid*>(widget)) widget = widget->parentWidget();
    return widget;
  }
};

}  // namespace

frmMain::frmMain() : area_(new ChildArea) {
  setWindowHost(this);
  setObjectName(kForm);
  setCentralWidget(area_);
  setContextMenuPolicy(Qt::PreventContextMenu);
  area_->setBackground(palette().window().color().darker(106));
  area_->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  area_->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  // A window that is closed leaves to the one that was active before it.
  area_->setActivationOrder(QMdiArea::ActivationHistoryOrder);
  connect(area_, &QMdiArea::subWindowActivated, area_->viewport(), qOverload<>(&QWidget::update));
  buildMenu();
  toolbar_ = buildToolBar("Toolbar", "Bara Stanga", Qt::LeftToolBarArea, toolbarTable());
  toolbarRap_ = buildToolBar("ToolbarRap", "Bara Dreapta", Qt::RightToolBarArea, reportToolbarTable());
  buildStatusBar();
  placeWindow();
  showHearingEntries();
  showDenomination();
  applyRights();
  applyRightsToBars();
  setWindowTitle(QStringLiteral("Tarvon Velmar  - ") + session().gDenSocietate);
  connect(
      &dataChanges(), &DataChanges::written, this,
      [this](const QSet<QString>& tables) {
        if (tables.contains(QStringLiteral("KT_PAR"))) applyRightsToBars();
      },
      Qt::QueuedConnection);
  connect(&dataChanges(), &DataChanges::fileLost, this, &frmMain::offerCopy, Qt::QueuedConnection);
  connect(&dataChanges(), &DataChanges::fileDamaged, this, &frmMain::offerRestoring, Qt::QueuedConnection);
  QTimer::singleShot(0, this, &frmMain::offerRestoring);  // found before this window was there
}

frmMain::~frmMain() { setWindowHost(nullptr); }

void frmMain::buildMenu() {
  QMenu* menu = nullptr;
  for (const MenuEntry& entry : menuTable()) {
    if (entry.opens == Opens::Menu) {
      menu = menuBar()->addMenu(entry.caption);
      menu->setObjectName(entry.name);
      menu->menuAction()->setObjectName(entry.name);
      actions_.insert(entry.name, menu->menuAction());
    } else {
      actions_.insert(entry.name, addEntry(menu, entry));
    }
  }
  actions_.remove(QString());
  actions_[QStringLiteral("mnuHelpContents")]->setShortcut(QKeySequence(Qt::Key_F1));
  connect(actions_[QStringLiteral("mnuWindow")]->menu(), &QMenu::aboutToShow, this,
          &frmMain::listChildWindows);
}

QAction* frmMain::addEntry(QMenu* menu, const MenuEntry& entry) {
  if (entry.opens == Opens::Separator) {
    QAction* separator = menu->addSeparator();
    separator->setObjectName(entry.name);
    return separator;
  }
  QAction* action = menu->addAction(entry.caption);
  action->setObjectName(entry.name);
  if (entry.opens == Opens::OwnCheck) {
    action->setCheckable(true);
    action->setChecked(true);
  }
  const bool own = entry.opens == Opens::Own || entry.opens == Opens::OwnCheck;
  action->setEnabled(own || entry.make || entry.run);
  connect(action, &QAction::triggered, this, [this, &entry] { runEntry(entry); });
  return action;
}

QWidget* frmMain::runEntry(const MenuEntry& entry) {
  QWidget* child = nullptr;
  guarded(kForm, entry.name + QStringLiteral("_Click"), [&] {
    if (entry.name == QStringLiteral("mnuCasa")) hideToolBars();
    switch (entry.opens) {
      case Opens::One:
        child = showOne(entry.window, [&entry] { return entry.make(nullptr); });
        break;
      case Opens::New:
        child = entry.make(nullptr);
        showChild(child);
        break;
      case Opens::Modal:
        runModal(entry);
        break;
      case Opens::Command:
        entry.run();
        break;
      case Opens::Own:
      case Opens::OwnCheck:
        runOwn(entry.name);
        break;
      case Opens::Menu:
      case Opens::Separator:
        break;
    }
  });
  return child;
}

void frmMain::runModal(const MenuEntry& entry) {
  const std::unique_ptr<QWidget> window(entry.make(this));
  auto* dialog = qobject_cast<QDialog*>(window.get());
  Q_ASSERT_X(dialog, "frmMain", "a modal window is a QDialog");
  dialog->exec();
  // A restored company may have another hearing-device mode.
  showHearingEntries();
}

// Runs the work when no message box or modal window is open.
void frmMain::whenNothingIsAsked(const std::function<void()>& work) {
  if (!QApplication::activeModalWidget() && !QApplication::activePopupWidget()) return work();
  QTimer::singleShot(kAskAgainMs, this, [this, work] { whenNothingIsAsked(work); });
}

// What was saved before the file went away is still in the file that this process holds open.
void frmMain::offerCopy() {
  if (std::exchange(isOfferingCopy_, true)) return;
  whenNothingIsAsked([this] {
    const int answer =
        Mesaj(QStringLiteral("Baza de date %1 nu mai este la locul ei, iar documentele salvate pana acum se "
                             "pierd la iesirea din program. Doriti sa le salvati acum in alta parte ?")
                  .arg(session().gNumeBD),
              kYesNo + kCritical);
    isOfferingCopy_ = false;
    if (answer == kResultYes) menuEntry(QStringLiteral("mnuIntSalvare"))->trigger();
  });
}

void frmMain::offerRestoring() {
  const QString damage = session().fileCheck ? session().fileCheck->takeDamage() : QString();
  if (damage.isEmpty()) return;
  whenNothingIsAsked([this, damage] {
    const QString restoring = QStringLiteral("mnuIntRestaurare");
    const QString text = QStringLiteral(
                             "Baza de date a societatii %1 este deteriorata. Nu mai lucrati in ea : "
                             "ce se salveaza acum se poate pierde.\r\n%2\r\n")
                             .arg(session().gDenSocietate, damage);
    if (!isAllowed(restoring)) {
      Mesaj(text + QStringLiteral("Anuntati administratorul, care poate restaura o copie salvata."),
            kCritical);
    } else if (Mesaj(text + QStringLiteral("Doriti sa restaurati acum o copie salvata ?"),
                     kYesNo + kCritical) == kResultYes) {
      menuEntry(restoring)->trigger();
    }
  });
}

void frmMain::runOwn(const QString& name) {
  const auto checked = [this, &name] { return actions_[name]->isChecked(); };
  if (name == QStringLiteral("mnuFileExit")) close();
  if (name == QStringLiteral("mnuViewStatusBar")) statusBar()->setVisible(checked());
  if (name == QStringLiteral("mnuViewLeftBar")) toolbar_->setVisible(checked());
  if (name == QStringLiteral("mnuViewRightBar")) toolbarRap_->setVisible(checked());
  if (name == QStringLiteral("mnuWindowCascade")) cascade();
  if (name == QStringLiteral("mnuWindowTileHorizontal")) tile(Qt::Horizontal);
  if (name == QStringLiteral("mnuWindowTileVertical")) tile(Qt::Vertical);
  if (name == QStringLiteral("mnuHelpContents")) showHelp();
}

QToolBar* frmMain::buildToolBar(const QString& name, const QString& title, Qt::ToolBarArea area,
                                const std::vector<ToolEntry>& entries) {
  auto* bar = new QToolBar(title);
  bar->setObjectName(name);
  bar->setMovable(false);
  bar->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
  for (const ToolEntry& entry : entries) {
    if (entry.index > 1) bar->addSeparator();
    QAction* action = bar->addAction(icon(entry.icon), entry.caption);
    action->setObjectName(QStringLiteral("%1(%2)").arg(name).arg(entry.index));
    action->setProperty("index", entry.index);
    action->setToolTip(entry.toolTip);
    action->setData(entry.menuEntry);
    connect(action, &QAction::triggered, this,
            [this, name = entry.menuEntry] { runEntry(entryOf(tradeEntry(name))); });
  }
  addToolBar(area, bar);
  return bar;
}

void frmMain::buildStatusBar() {
  QStatusBar* bar = statusBar();
  bar->setObjectName(QStringLiteral("sbStatusBar"));
  auto* userPanel = new QLabel(
      QStringLiteral("Utilizator:%1--Denumire magazie:%2").arg(session().gUtilizator, session().gDenMagazie));
  userPanel->setTextFormat(Qt::PlainText);
  datePanel_ = new QLabel;
  timePanel_ = new QLabel;
  int number = 0;
  for (QLabel* panel : {userPanel, datePanel_, timePanel_}) {
    panel->setObjectName(QStringLiteral("sbStatusBar(%1)").arg(++number));
    panel->setContentsMargins(6, 0, 6, 0);
    bar->addPermanentWidget(panel, panel == userPanel ? 1 : 0);
  }
  auto* timer = new QTimer(this);
  connect(timer, &QTimer::timeout, this, &frmMain::showDateAndTime);
  timer->start(kClockMs);
  showDateAndTime();
}

void frmMain::showDateAndTime() {
  datePanel_->setText(clock::today().toString(QStringLiteral("dd.MM.yyyy")));
  timePanel_->setText(clock::now().toString(QStringLiteral("HH:mm")));
}

void frmMain::placeWindow() {
  const settings::MainWindowPlace place = settings::mainWindowPlace();
  QRect wanted(place.left / settings::kTwipsPerPixel, place.top / settings::kTwipsPerPixel,
               place.width / settings::kTwipsPerPixel, place.height / settings::kTwipsPerPixel);
  // The screen of the stored position may no longer exist.
  const QScreen* screen = QApplication::screenAt(wanted.topLeft());
  const QRect room = (screen ? screen : QApplication::primaryScreen())->availableGeometry();
  wanted.setSize(wanted.size().boundedTo(room.size()));
  // The default size is smaller than the tool bars and a document need.
  setMinimumSize(kSmallest.boundedTo(room.size()));
  if (!screen) wanted.moveTopLeft(room.topLeft());
  move(wanted.topLeft());
  resize(wanted.size());
}

void frmMain::storePlace() const {
  if (isMinimized()) return;
  settings::setMainWindowPlace({x() * settings::kTwipsPerPixel, y() * settings::kTwipsPerPixel,
                                width() * settings::kTwipsPerPixel, height() * settings::kTwipsPerPixel});
}

// In the hearing-device trade the button of customer invoices makes those of its devices.
QString frmMain::tradeEntry(const QString& entry) {
  return entry == QStringLiteral("mnuVanzFactura") && session().ModAudio ? QStringLiteral("mnuFacturiAudio")
                                                                         : entry;
}

// Windows that show other fields in the hearing-device trade are opened anew when it begins or ends.
void frmMain::reopenCatalogues() {
  for (QMdiSubWindow* child : area_->subWindowList()) {
    const QString name = child->widget() ? child->widget()->objectName() : QString();
    if (name != QStringLiteral("frmArticole") && name != QStringLiteral("frmTerti")) continue;
    const QString key = child->widget()->property(kWindowKey).toString();
    if (!child->close()) continue;  // it asked about a changed card
    for (const MenuEntry& entry : menuTable())
      if (entry.window == key && entry.make) showOne(key, [&entry] { return entry.make(nullptr); });
  }
}

void frmMain::showHearingEntries() {
  const bool hearing = session().ModAudio;
  if (std::exchange(wasHearing_, hearing) != hearing) reopenCatalogues();
  for (const char* name :
       {"mnuComenziAudio", "mnuFacturiAudio", "mnuBonReparatie", "mnuLine1", "mnuComisioane"})
    actions_[QString::fromLatin1(name)]->setVisible(hearing);
  for (const char* name : {"mnuVanzariComanda", "mnuVanzFactura", "mnuStorno", "mnuBonConsum"})
    actions_[QString::fromLatin1(name)]->setVisible(!hearing);
  if (toolbar_) applyRightsToBars();
}

void frmMain::showDenomination() {
  QAction* entry = actions_[QStringLiteral("mnuDenominare")];
  entry->setVisible(false);
  guarded("frmMain", "Form_Load", [entry] { entry->setVisible(hasOldLei()); });
}

void frmMain::applyRights() {
  const int type = session().gTipUtilizator;
  QStringList refused;
  if (type != 0)
    refused << "mnuCreare"
            << "mnuFilemnuSocConf"
            << "mnuUtilizatori"
            << "mnuMagazii"
            << "mnuIntretinere";
  if (type != 0 && type != 1)
    refused << "mnumnuTabele"
            << "mnuCumparari"
            << "mnuVanzari";
  for (const QString& name : refused) actions_[name]->setEnabled(false);
}

// Whether the menu and its entry can be chosen.
bool frmMain::isAllowed(const QString& entry) const {
  const QAction* action = menuEntry(entry);
  const auto* menu = qobject_cast<const QMenu*>(action->parent());
  const auto canBeChosen = [](const QAction* each) { return each->isEnabled() && each->isVisible(); };
  return canBeChosen(action) && (!menu || canBeChosen(menu->menuAction()));
}

// The rights of a user apply to the menu, and to the tool bars when the company wants it.
void frmMain::applyRightsToBars() {
  for (QAction* button : toolbar_->actions() + toolbarRap_->actions()) {
    if (button->isSeparator()) continue;
    const QString entry = button->data().toString();
    const MenuEntry& command = entryOf(tradeEntry(entry));
    button->setEnabled((command.make || command.run) &&
                       (!session().DrepturiBare || isAllowed(tradeEntry(entry))));
  }
}

void frmMain::hideToolBars() {
  toolbar_->hide();
  toolbarRap_->hide();
  actions_[QStringLiteral("mnuViewLeftBar")]->setChecked(false);
  actions_[QStringLiteral("mnuViewRightBar")]->setChecked(false);
}

void frmMain::showChild(QWidget* window) {
  QMdiSubWindow* child = area_->addSubWindow(window);
  child->setAttribute(Qt::WA_DeleteOnClose);
  child->setWindowIcon(windowIcon());
  const QSize last = settings::look(window->objectName()).toSize();
  child->resize((last.isValid() ? last : child->sizeHint()).boundedTo(area_->viewport()->size()));
  child->installEventFilter(this);
  child->show();
  // The window's own first field.
  QWidget* first = window->focusWidget();
  (first ? first : window)->setFocus();
}

// A child window is restored to its previous size.
bool frmMain::eventFilter(QObject* watched, QEvent* event) {
  auto* child = qobject_cast<QMdiSubWindow*>(watched);
  if (child && child->widget() && event->type() == QEvent::Close && !child->isMaximized() &&
      !child->isMinimized())
    settings::setLook(child->widget()->objectName(), child->size());
  // The closed window may have changed the hearing-device mode.
  if (child && event->type() == QEvent::Close)
    QMetaObject::invokeMethod(this, &frmMain::showHearingEntries, Qt::QueuedConnection);
  return QMainWindow::eventFilter(watched, event);
}

QWidget* frmMain::showOne(const QString& key, const std::function<QWidget*()>& make) {
  for (QMdiSubWindow* child : area_->subWindowList()) {
    if (child->widget()->property(kWindowKey).toString() != key) continue;
    activateChild(child);
    return child->widget();
  }
  QWidget* window = make();
  window->setProperty(kWindowKey, key);
  showChild(window);
  return window;
}

QWidget* frmMain::showOffered(const QString& window) {
  const auto isOffered = [](const QAction* action) {
    return action && action->isEnabled() && action->isVisible();
  };
  bool isInOfferedMenu = false;
  for (const MenuEntry& entry : menuTable()) {
    QAction* action = actions_.value(entry.name);
    if (entry.opens == Opens::Menu) isInOfferedMenu = isOffered(action);
    if (entry.window == window && entry.make && isInOfferedMenu && isOffered(action)) return runEntry(entry);
  }
  return nullptr;
}

void frmMain::activateChild(QMdiSubWindow* child) {
  if (child->isMinimized()) child->showNormal();
  area_->setActiveSubWindow(child);
}

void frmMain::listChildWindows() {
  qDeleteAll(windowList_);
  windowList_.clear();
  QMenu* menu = actions_[QStringLiteral("mnuWindow")]->menu();
  const QList<QMdiSubWindow*> children = area_->subWindowList();
  if (children.isEmpty()) return;
  windowList_.append(menu->addSeparator());
  for (qsizetype i = 0; i < children.size(); ++i) {
    QMdiSubWindow* child = children[i];
    const QString mnemonic = i < 9 ? QStringLiteral("&%1 ").arg(i + 1) : QString();
    QString title = child->windowTitle();
    QAction* action = menu->addAction(mnemonic + title.replace(QLatin1Char('&'), QStringLiteral("&&")));
    action->setCheckable(true);
    action->setChecked(child == area_->activeSubWindow());
    connect(action, &QAction::triggered, child, [this, child] { activateChild(child); });
    windowList_.append(action);
  }
}

// A window is never smaller than its contents need: the area scrolls instead.
void frmMain::tile(Qt::Orientation orientation) {
  QList<QMdiSubWindow*> children;
  for (QMdiSubWindow* child : area_->subWindowList())
    if (child->isVisible() && !child->isMinimized()) children.append(child);
  if (children.isEmpty()) return;
  const bool isStacked = orientation == Qt::Horizontal;
  QSize room = area_->viewport()->size();
  int needed = 0;  // in the direction in which the windows follow each other
  for (const QMdiSubWindow* child : children)
    needed += isStacked ? child->minimumSizeHint().height() : child->minimumSizeHint().width();
  const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
  if (needed > (isStacked ? room.height() : room.width())) room -= isStacked ? QSize(bar, 0) : QSize(0, bar);
  const int count = static_cast<int>(children.size());
  const QSize share =
      isStacked ? QSize(room.width(), room.height() / count) : QSize(room.width() / count, room.height());
  QPoint at;
  for (QMdiSubWindow* child : children) {
    child->showNormal();
    child->setGeometry(QRect(at, share.expandedTo(child->minimumSizeHint())));
    if (isStacked)
      at.ry() += child->height();
    else
      at.rx() += child->width();
  }
}

void frmMain::cascade() {
  area_->cascadeSubWindows();
  for (QMdiSubWindow* child : area_->subWindowList())
    if (child->isVisible() && !child->isMinimized())
      child->resize(child->size().expandedTo(child->minimumSizeHint()));
}

void frmMain::showHelp() {
  const QString file = QDir(session().gCaleAplicatie).filePath(QStringLiteral("Velmar.chm"));
  QString error;
  if (!QFile::exists(file))
    error = QStringLiteral("Fisierul %1 nu exista.").arg(QDir::toNativeSeparators(file));
  else if (!QDesktopServices::openUrl(QUrl::fromLocalFile(file)))
    error = QStringLiteral("Nu exista un program care sa deschida fisierul %1.")
                .arg(QDir::toNativeSeparators(file));
  if (!error.isEmpty()) Mesaj(QStringLiteral("No help file!!! ") + error);
}

void frmMain::closeEvent(QCloseEvent* event) {
  area_->closeAllSubWindows();
  const QList<QMdiSubWindow*> children = area_->subWindowList();
  if (std::any_of(children.begin(), children.end(),
                  [](const QMdiSubWindow* child) { return child->isVisible(); })) {
    event->ignore();
    return;
  }
  storePlace();
  QMainWindow::closeEvent(event);
  emit closed();
}

}  // namespace velmar
