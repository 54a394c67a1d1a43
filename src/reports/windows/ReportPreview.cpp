#include "reports/windows/ReportPreview.h"

#include <algorithm>
#include <QBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>
#include <QSpinBox>

#include "util/Errors.h"
#include "util/windows/Controls.h"
#include "util/windows/PrintOutput.h"

namespace velmar {

namespace {

constexpr int kBorder = 12;  // pixels around the sheet
constexpr double kLargestZoom = 1.5;
constexpr int kCountingTime = 300;  // milliseconds

}  // namespace

ReportPreview::ReportPreview(QWidget* parent) : QWidget(parent) {
  txtPagina_ = named(new QSpinBox, "txtPaginaRaport", "Numarul paginii (PageUp, PageDown)");
  txtPagina_->setButtonSymbols(QAbstractSpinBox::UpDownArrows);
  lblPagini_ = named(new QLabel, "lblPaginiRaport");
  sheet_ = named(new QLabel, "foaie");
  sheet_->setAlignment(Qt::AlignCenter);
  sheet_->setMargin(kBorder);
  area_ = new QScrollArea;
  area_->setWidget(sheet_);
  area_->setWidgetResizable(true);
  area_->setBackgroundRole(QPalette::Mid);
  area_->setFocusPolicy(Qt::StrongFocus);
  area_->installEventFilter(this);
  auto* row = new QHBoxLayout;
  row->addWidget(new QLabel("Pagina"));
  row->addWidget(txtPagina_);
  row->addWidget(lblPagini_);
  row->addStretch();
  auto* all = new QVBoxLayout(this);
  all->addLayout(row);
  all->addWidget(area_, 1);
  connect(txtPagina_, &QSpinBox::valueChanged, this,
          [this] { guarded("frmProiectare", "txtPaginaRaport_Change", [this] { showPage(); }); });
}

void ReportPreview::setJob(std::unique_ptr<PrintJob> job, const QString& why) {
  job_ = std::move(job);
  // A long report is counted only for a limited time, since the next change starts the count again.
  if (job_) job_->countOn(kCountingTime);
  const int pages = job_ ? std::max(1, job_->knownPages()) : 0;
  {
    const QSignalBlocker quiet(txtPagina_);
    txtPagina_->setRange(std::min(1, pages), pages);
  }
  txtPagina_->setEnabled(pages > 1);
  const bool isCounted = !job_ || job_->isCounted();
  lblPagini_->setText((isCounted ? QStringLiteral("din %1") : QStringLiteral("din peste %1")).arg(pages));
  if (job_)
    showPage();
  else
    sheet_->setText(why);
}

void ReportPreview::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  if (job_ && isVisible()) guarded("frmProiectare", "Form_Resize", [this] { showPage(); });
}

bool ReportPreview::eventFilter(QObject* watched, QEvent* event) {
  if (watched == area_ && event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    const int step = key == Qt::Key_PageDown ? 1 : (key == Qt::Key_PageUp ? -1 : 0);
    QScrollBar* bar = area_->verticalScrollBar();
    const bool atEnd = step > 0 ? bar->value() == bar->maximum() : bar->value() == bar->minimum();
    if (step != 0 && atEnd) {
      txtPagina_->setValue(txtPagina_->value() + step);
      return true;
    }
  }
  return QWidget::eventFilter(watched, event);
}

void ReportPreview::showPage() {
  constexpr qreal kPointsPerInch = 72;
  const QSizeF inches = job_->pageLayout().fullRectPoints().size() / kPointsPerInch;
  const int room = area_->width() - 2 * kBorder - area_->verticalScrollBar()->sizeHint().width() - 4;
  const qreal wide = room / (inches.width() * logicalDpiX());
  const qreal dots = std::clamp(wide, 0.1, kLargestZoom) * logicalDpiX() * devicePixelRatioF();
  QPixmap picture((inches * dots).toSize().expandedTo({1, 1}));
  picture.fill(Qt::white);
  QPainter painter(&picture);
  painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing |
                         QPainter::SmoothPixmapTransform);
  sheet_->clear();  // if the page cannot be drawn, the previous one must not remain
  paintSheet(painter, *job_, std::max(0, txtPagina_->value() - 1), dots);
  painter.end();
  picture.setDevicePixelRatio(devicePixelRatioF());
  sheet_->setPixmap(picture);
}

}  // namespace velmar
