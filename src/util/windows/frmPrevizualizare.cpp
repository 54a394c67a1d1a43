#include "util/windows/frmPrevizualizare.h"

#include <algorithm>
#include <QBoxLayout>
#include <QComboBox>
#include <QDir>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QSpinBox>
#include <QStringListModel>

#include "util/Errors.h"
#include "util/windows/Controls.h"
#include "util/windows/Entry.h"
#include "util/windows/Forms.h"
#include "util/windows/frmOptiuniTiparire.h"
#include "util/windows/WorkProgress.h"
#include "util/windows/ZoomSteps.h"

namespace velmar {

namespace {

constexpr int kPagesKept = 6;
constexpr int kFirstCount = 150;    // milliseconds of counting before the window shows
constexpr int kCountingSlice = 15;  // milliseconds of counting while the program is idle
constexpr int kUnknownEnd = 1000000;
constexpr int kBorder = 12;  // pixels around the sheet
constexpr qreal kPointsPerInch = 72;
constexpr int kWholePage = -1;  // special entry among the zoom percentages
constexpr int kPageWidth = -2;

}  // namespace

frmPrevizualizare::frmPrevizualizare(PrintJob& job, QWidget* parent) : QDialog(parent), job_(job) {
  setObjectName("frmPrevizualizare");
  setWindowTitle(QStringLiteral("Previzualizare - %1").arg(job.name()));
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  sheet_ = named(new QLabel, "pagina");
  sheet_->setAlignment(Qt::AlignCenter);
  sheet_->setMargin(kBorder);
  area_ = new QScrollArea;
  area_->setWidget(sheet_);
  area_->setWidgetResizable(true);
  area_->setBackgroundRole(QPalette::Mid);
  area_->installEventFilter(this);
  area_->viewport()->installEventFilter(this);
  lblStare_ = named(new QLabel, "lblStare");
  lblStare_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  auto* all = new QVBoxLayout(this);
  all->addLayout(toolRow());
  auto* middle = new QHBoxLayout;
  middle->addWidget(pageList());
  middle->addWidget(area_, 1);
  all->addLayout(middle, 1);
  all->addWidget(lblStare_);
  lblStare_->hide();
  giveMnemonics(this);
  area_->setFocus();
  connect(&counting_, &QTimer::timeout, this,
          [this] { guarded(objectName(), "counting_Timer", [this] { countOn(); }); });
  job_.countOn(kFirstCount);
  pagesCounted();
  if (!job_.isCounted()) counting_.start();
  const QSize room = screen()->availableSize();
  resize(room.width() * 4 / 5, room.height() * 7 / 8);
}

QPushButton* frmPrevizualizare::tool(const QString& name, const QString& caption, const QString& toolTip,
                                     const QString& picture, const std::function<void()>& action) {
  QPushButton* button = makeButton(name, caption, toolTip, picture);
  connect(button, &QPushButton::clicked, this,
          [this, name, action] { guarded(objectName(), name + QStringLiteral("_Click"), action); });
  return button;
}

QLayout* frmPrevizualizare::toolRow() {
  cmdPrima_ = tool("cmdPrima", "|<", "Prima pagina (Home)", {}, [this] { turnTo(0); });
  cmdInapoi_ = tool("cmdInapoi", "<", "Pagina dinainte (PageUp)", {}, [this] { turnTo(page_ - 1); });
  cmdInainte_ = tool("cmdInainte", ">", "Pagina urmatoare (PageDown)", {}, [this] { turnTo(page_ + 1); });
  cmdUltima_ = tool("cmdUltima", ">|", "Ultima pagina (End)", {}, [this] {
    countTo(kUnknownEnd);
    turnTo(pageCount_ - 1);
  });
  for (QPushButton* button : {cmdPrima_, cmdInapoi_, cmdInainte_, cmdUltima_})
    button->setFixedWidth(fontMetrics().horizontalAdvance("MMMM"));
  txtPagina_ = named(new QSpinBox, "txtPagina", "Numarul paginii");
  txtPagina_->setButtonSymbols(QAbstractSpinBox::NoButtons);
  txtPagina_->setAlignment(Qt::AlignRight);
  txtPagina_->setKeyboardTracking(false);
  connect(txtPagina_, &QSpinBox::valueChanged, this, [this](int page) {
    guarded(objectName(), "txtPagina_Change", [this, page] { turnTo(page - 1); });
  });
  lblPagini_ = named(new QLabel, "lblPagini");
  cboMarime_ = named(new QComboBox, "cboMarime", "Marimea paginii (Ctrl+plus, Ctrl+minus)");
  cboMarime_->addItem("Pagina intreaga", kWholePage);
  cboMarime_->addItem("Latimea paginii", kPageWidth);
  addZoomSteps(cboMarime_);
  cboMarime_->setCurrentIndex(1);
  connect(cboMarime_, &QComboBox::currentIndexChanged, this,
          [this] { guarded(objectName(), "cboMarime_Click", [this] { showPage(); }); });
  // Returns the keyboard focus to the page, so that keys do not scroll the list of sizes.
  connect(cboMarime_, &QComboBox::activated, area_, qOverload<>(&QWidget::setFocus));
  txtCautare_ = makeTextBox("txtCautare", 24, "Cautare in pagini (Ctrl+F)");
  txtCautare_->setPlaceholderText("Cautare");
  connect(txtCautare_, &QLineEdit::returnPressed, this,
          [this] { guarded(objectName(), "txtCautare_KeyPress", [this] { search(); }); });
  auto* row = new QHBoxLayout;
  for (QWidget* widget : std::initializer_list<QWidget*>{cmdPrima_, cmdInapoi_, txtPagina_, lblPagini_,
                                                         cmdInainte_, cmdUltima_, cboMarime_, txtCautare_})
    row->addWidget(widget);
  row->addStretch();
  row->addWidget(tool("cmdTiparire", "Tiparire", "Tiparire (Ctrl+P)", "print", [this] { print(); }));
  row->addWidget(tool("cmdPDF", "Salvare PDF", "Salvare ca fisier PDF (Ctrl+S)", "save", [this] { save(); }));
  QPushButton* close = makeButton("cmdInchide", "Inchidere", "Inchidere fereastra (Esc)", "close");
  connect(close, &QPushButton::clicked, this, &QDialog::reject);
  row->addWidget(close);
  return row;
}

bool frmPrevizualizare::takeKey(const QKeyEvent& event) {
  const auto work = [this](const std::function<void()>& action) {
    guarded(objectName(), "KeyDown", action);
    return true;
  };
  if (event.matches(QKeySequence::Print)) return work([this] { print(); });
  if (event.matches(QKeySequence::Save)) return work([this] { save(); });
  if (event.matches(QKeySequence::Find)) {
    txtCautare_->setFocus();
    txtCautare_->selectAll();
    return true;
  }
  const bool control = event.modifiers() & Qt::ControlModifier;
  switch (event.key()) {
    case Qt::Key_PageDown:
      return work([this] { scrollOrTurn(1); });
    case Qt::Key_PageUp:
      return work([this] { scrollOrTurn(-1); });
    case Qt::Key_Home:
      return work([this] { turnTo(0); });
    case Qt::Key_End:
      return work([this] {
        countTo(kUnknownEnd);
        turnTo(pageCount_ - 1);
      });
    case Qt::Key_Plus:
    case Qt::Key_Equal:
      return control && work([this] { zoomBy(1); });
    case Qt::Key_Minus:
      return control && work([this] { zoomBy(-1); });
    default:
      return false;
  }
}

void frmPrevizualizare::keyPressEvent(QKeyEvent* event) {
  if (!takeKey(*event)) QDialog::keyPressEvent(event);
}

// The wheel turns the page at its top and bottom, and with Ctrl it zooms.
bool frmPrevizualizare::eventFilter(QObject* watched, QEvent* event) {
  if (watched == area_ && event->type() == QEvent::KeyPress && takeKey(*static_cast<QKeyEvent*>(event)))
    return true;
  if (watched == area_->viewport() && event->type() == QEvent::Wheel) {
    const auto* wheel = static_cast<QWheelEvent*>(event);
    const int up = wheel->angleDelta().y();
    const QScrollBar* bar = area_->verticalScrollBar();
    const auto step = [this](auto work) { guarded(objectName(), "MouseWheel", work); };
    if (wheel->modifiers() & Qt::ControlModifier && up != 0) {
      step([this, up] { zoomBy(up > 0 ? 1 : -1); });
      return true;
    }
    if ((up < 0 && bar->value() == bar->maximum()) || (up > 0 && bar->value() == bar->minimum())) {
      step([this, up] { scrollOrTurn(up < 0 ? 1 : -1); });
      return true;
    }
  }
  return QDialog::eventFilter(watched, event);
}

void frmPrevizualizare::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  guarded(objectName(), "Form_Load", [this] { showPage(); });
}

void frmPrevizualizare::resizeEvent(QResizeEvent* event) {
  QDialog::resizeEvent(event);
  if (isVisible() && cboMarime_->currentData().toInt() < 0)
    guarded(objectName(), "Form_Resize", [this] { showPage(); });
}

QListView* frmPrevizualizare::pageList() {
  pages_ = new QStringListModel(this);
  lstPagini_ = named(new QListView, "lstPagini", "Paginile");
  lstPagini_->setModel(pages_);
  lstPagini_->setUniformItemSizes(true);
  lstPagini_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  lstPagini_->setFixedWidth(fontMetrics().horizontalAdvance("Pagina 00000") +
                            lstPagini_->verticalScrollBar()->sizeHint().width());
  connect(lstPagini_->selectionModel(), &QItemSelectionModel::currentChanged, this,
          [this](const QModelIndex& current) {
            guarded(objectName(), "lstPagini_Click", [this, current] {
              if (current.isValid() && current.row() != page_) turnTo(current.row());
            });
          });
  return lstPagini_;
}

void frmPrevizualizare::countOn() {
  counting_.stop();  // a failure is reported only once
  if (!job_.isCounted()) job_.countOn(kCountingSlice);
  pagesCounted();
  if (!job_.isCounted()) return counting_.start();
  drawn_.clear();  // pages may print the number of pages
  showPage();
}

// Throws Cancelled when the user stops waiting.
void frmPrevizualizare::countTo(int page) {
  if (page < pageCount_ || job_.isCounted()) return;
  WorkProgress progress("Numararea paginilor", this);
  while (page >= job_.knownPages() && !job_.isCounted()) progress.show(job_.countOn(kCountingSlice), 100);
  countOn();
}

void frmPrevizualizare::pagesCounted() {
  pageCount_ = std::max(1, job_.isCounted() ? job_.pageCount() : job_.knownPages());
  int listed = pages_->rowCount();
  if (listed > pageCount_) pages_->removeRows(pageCount_, listed - pageCount_);
  if (listed < pageCount_) {
    pages_->insertRows(listed, pageCount_ - listed);
    for (; listed < pageCount_; ++listed)
      pages_->setData(pages_->index(listed), QStringLiteral("Pagina %1").arg(listed + 1));
  }
  {
    const QSignalBlocker quiet(txtPagina_);
    txtPagina_->setRange(1, job_.isCounted() ? pageCount_ : kUnknownEnd);
  }
  lblPagini_->setText(job_.isCounted() ? QStringLiteral("din %1").arg(pageCount_)
                                       : QStringLiteral("din ... (%1)").arg(pageCount_));
}

void frmPrevizualizare::turnTo(int page) {
  countTo(page);
  const int wanted = std::clamp(page, 0, pageCount_ - 1);
  const bool back = wanted < page_;
  const bool turned = std::exchange(page_, wanted) != wanted;
  showPage();
  // A disabled button passes the focus to its neighbour, which would receive the next key.
  if (!txtPagina_->hasFocus() && !lstPagini_->hasFocus()) area_->setFocus();
  if (turned) area_->verticalScrollBar()->setValue(back ? area_->verticalScrollBar()->maximum() : 0);
}

void frmPrevizualizare::scrollOrTurn(int step) {
  QScrollBar* bar = area_->verticalScrollBar();
  const bool atEnd = step > 0 ? bar->value() == bar->maximum() : bar->value() == bar->minimum();
  if (!atEnd)
    bar->setValue(bar->value() + step * bar->pageStep() * 9 / 10);
  else if (page_ + step >= 0 && (page_ + step < pageCount_ || !job_.isCounted()))
    turnTo(page_ + step);
}

void frmPrevizualizare::zoomBy(int step) { chooseZoomStep(cboMarime_, zoom(), step); }

qreal frmPrevizualizare::zoom() const {
  const int chosen = cboMarime_->currentData().toInt();
  if (chosen > 0) return chosen / 100.0;
  const QSizeF points = job_.pageLayout().fullRectPoints().size();
  const qreal pixelsPerPoint = logicalDpiX() / kPointsPerInch;
  const int bar = area_->verticalScrollBar()->sizeHint().width();
  const QSize room = area_->size() - QSize(2 * kBorder + 4 + bar, 2 * kBorder + 4);
  const qreal wide = room.width() / (points.width() * pixelsPerPoint);
  const qreal high = room.height() / (points.height() * pixelsPerPoint);
  return std::max(0.1, chosen == kPageWidth ? wide : std::min(wide, high));
}

const QPixmap& frmPrevizualizare::drawn(int page) {
  const qreal wanted = zoom() * logicalDpiX() * devicePixelRatioF();
  if (!qFuzzyCompare(wanted, drawnZoom_) || drawn_.size() >= kPagesKept) drawn_.clear();
  drawnZoom_ = wanted;
  auto found = drawn_.find(page);
  if (found == drawn_.end()) {
    const QSizeF inches = job_.pageLayout().fullRect(QPageLayout::Inch).size();
    QPixmap picture((inches * wanted).toSize());
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing |
                           QPainter::SmoothPixmapTransform);
    paintSheet(painter, job_, page, wanted);
    painter.end();
    picture.setDevicePixelRatio(devicePixelRatioF());
    found = drawn_.insert(page, picture);
  }
  return *found;
}

void frmPrevizualizare::showPage() {
  {
    const QSignalBlocker quiet(txtPagina_);
    txtPagina_->setValue(page_ + 1);
  }
  lstPagini_->setCurrentIndex(pages_->index(page_));
  cmdPrima_->setEnabled(page_ > 0);
  cmdInapoi_->setEnabled(page_ > 0);
  const bool hasMore = page_ < pageCount_ - 1 || !job_.isCounted();
  cmdInainte_->setEnabled(hasMore);
  cmdUltima_->setEnabled(hasMore);
  sheet_->clear();  // if the page cannot be drawn, the previous one must not remain
  sheet_->setPixmap(drawn(page_));
  showStatus();
}

void frmPrevizualizare::search() {
  const QString text = txtCautare_->text().trimmed();
  if (text.isEmpty()) return;
  countTo(kUnknownEnd);
  WorkProgress progress("Cautare", this);
  for (int step = 1; step <= pageCount_; ++step) {
    progress.show(step - 1, pageCount_);
    const int page = (page_ + step) % pageCount_;
    if (!job_.pageText(page).contains(text, Qt::CaseInsensitive)) continue;
    turnTo(page);
    return report(QStringLiteral("\"%1\" este in pagina %2.").arg(text).arg(page + 1));
  }
  report(QStringLiteral("\"%1\" nu este in nicio pagina.").arg(text));
}

void frmPrevizualizare::print() {
  frmOptiuniTiparire options(job_, false, this);
  const bool wanted = options.exec() == QDialog::Accepted;
  if (wanted) {
    const PrintTarget target = options.target();
    const QString where = sendTo(target, job_, this);
    if (!where.isEmpty())
      report(target.printer.isEmpty() ? QStringLiteral("Salvat in %1").arg(QDir::toNativeSeparators(where))
                                      : QStringLiteral("Trimis la imprimanta %1").arg(where));
  }
  // The sheet may have changed.
  drawn_.clear();
  pagesCounted();
  turnTo(page_);
}

void frmPrevizualizare::save() {
  const QString where = sendTo({}, job_, this);
  if (!where.isEmpty()) report(QStringLiteral("Salvat in %1").arg(QDir::toNativeSeparators(where)));
}

void frmPrevizualizare::report(const QString& text) {
  told_ = text;
  showStatus();
}

// Shows the last message, and below it what is missing on the pages.
void frmPrevizualizare::showStatus() {
  constexpr qsizetype kMostNames = 3;
  QStringList lines;
  if (!told_.isEmpty()) lines.append(told_);
  if (const QStringList faults = job_.faults(); !faults.isEmpty()) {
    QString names = faults.first(std::min(faults.size(), kMostNames)).join(QStringLiteral("; "));
    if (faults.size() > kMostNames) names += QStringLiteral("; si inca %1").arg(faults.size() - kMostNames);
    lines.append(QStringLiteral("Formula nu se poate calcula: %1").arg(names));
  }
  lblStare_->setText(lines.join(QLatin1Char('\n')));
  lblStare_->setVisible(!lines.isEmpty());
}

bool printAndPreview(PrintJob& job, PrintWay way, QWidget* parent) {
  PrintTarget target;
  if (way != PrintWay::Preview) {
    frmOptiuniTiparire options(job, way == PrintWay::SetUpAndPreview, parent);
    if (options.exec() != QDialog::Accepted) return false;
    target = options.target();
  }
  if (way == PrintWay::Print) return !sendTo(target, job, parent).isEmpty();
  keepPreviewCopy(job, parent);
  frmPrevizualizare(job, parent).exec();
  return true;
}

}  // namespace velmar
