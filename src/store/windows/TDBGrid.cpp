#include "store/windows/TDBGrid.h"

#include <QApplication>
#include <QHeaderView>
#include <QPainter>
#include <QScrollBar>

#include "util/NumberText.h"
#include "util/Settings.h"

namespace velmar {

namespace {

// Paints the footers under their columns, wherever these have been scrolled to.
class GridFooter : public QWidget {
 public:
  explicit GridFooter(TDBGrid* grid) : QWidget(grid), grid_(grid) { hide(); }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.fillRect(rect(), palette().window());
    painter.setPen(palette().mid().color());
    painter.drawLine(0, 0, width(), 0);
    painter.setPen(palette().text().color());
    QFont bold = font();
    bold.setBold(true);
    painter.setFont(bold);
    const int left = grid_->viewport()->x() - x();
    for (int i = 0; i < grid_->columns().size(); ++i) {
      if (grid_->isColumnHidden(i)) continue;
      const QRect cell(left + grid_->columnViewportPosition(i), 0, grid_->columnWidth(i), height());
      const QRect room = cell.adjusted(4, 0, -4, 0);
      // A sum without its first digits would be read as another sum.
      const QString text = painter.fontMetrics().elidedText(grid_->footer(grid_->columns()[i].field),
                                                            Qt::ElideLeft, room.width());
      painter.drawText(room, Qt::AlignRight | Qt::AlignVCenter, text);
    }
  }

 private:
  TDBGrid* grid_;
};

bool rightAligned(CellFormat format) { return format == CellFormat::Number || format == CellFormat::Integer; }

}  // namespace

QString cellText(const QVariant& value, const GridColumn& column) {
  if (value.isNull()) return {};
  switch (column.format) {
    case CellFormat::Number:
      if (value.typeId() == QMetaType::Double)
        return formatNumber(Decimal::fromDouble(value.toDouble()), column.decimals);
      return formatNumber(Decimal(static_cast<qint64>(value.toLongLong())), column.decimals);
    case CellFormat::Date:
      return formatDate(QDate::fromString(value.toString().left(10), Qt::ISODate));
    case CellFormat::Flag:
      return value.toLongLong() != 0 ? QStringLiteral("DA") : QStringLiteral("NU");
    case CellFormat::Integer:
    case CellFormat::Text:
      break;
  }
  return value.toString();
}

void RecordsetModel::setColumns(const QList<GridColumn>& columns) {
  beginResetModel();
  columns_ = columns;
  endResetModel();
}

void RecordsetModel::setRecordset(Recordset recordset) {
  beginResetModel();
  recordset_ = std::move(recordset);
  endResetModel();
}

int RecordsetModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : recordset_.size();
}

int RecordsetModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QVariant RecordsetModel::data(const QModelIndex& index, int role) const {
  const GridColumn& column = columns_[index.column()];
  if (role == Qt::DisplayRole) return cellText(recordset_[index.row()].value(column.field), column);
  if (role == Qt::ToolTipRole && column.format == CellFormat::Text)
    return recordset_[index.row()].text(column.field);
  if (role == Qt::TextAlignmentRole && rightAligned(column.format))
    return QVariant(Qt::AlignRight | Qt::AlignVCenter);
  return {};
}

QVariant RecordsetModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation == Qt::Horizontal && role == Qt::DisplayRole) return columns_[section].caption;
  return QAbstractTableModel::headerData(section, orientation, role);
}

TDBGrid::TDBGrid(const QString& name, QWidget* parent)
    : QTableView(parent), list_(new RecordsetModel(this)), footer_(new GridFooter(this)) {
  setObjectName(name);
  setModel(list_);
  setSelectionBehavior(SelectRows);
  setSelectionMode(SingleSelection);
  setTabKeyNavigation(false);
  setAlternatingRowColors(true);
  setVerticalScrollMode(ScrollPerPixel);
  setWordWrap(false);
  verticalHeader()->hide();
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
  horizontalHeader()->setHighlightSections(false);
  horizontalHeader()->setStretchLastSection(true);
  connect(horizontalHeader(), &QHeaderView::sectionResized, this, [this] {
    footer_->update();
    storeWidths();
  });
}

void TDBGrid::setColumns(const QList<GridColumn>& columns) {
  columns_ = columns;
  list_->setColumns(columns);
  applyWidths();
}

void TDBGrid::applyWidths() {
  settingWidths_ = true;
  for (int i = 0; i < columns_.size() && i < model()->columnCount(); ++i) {
    setColumnHidden(i, !columns_[i].visible);
    const int caption = fontMetrics().horizontalAdvance(columns_[i].caption) + 16;
    const int character = rightAligned(columns_[i].format) ? fontMetrics().horizontalAdvance(QLatin1Char('0'))
                                                           : fontMetrics().averageCharWidth();
    setColumnWidth(i, std::max(caption, character * columns_[i].width + 12));
  }
  restoreWidths();
  stretchLast();
  settingWidths_ = false;
}

QString TDBGrid::lookName() const {
  const QWidget* form = parentWidget();
  while (form && !form->objectName().startsWith(QStringLiteral("frm"))) form = form->parentWidget();
  return form ? form->objectName() + QLatin1Char('/') + objectName() : QString();
}

void TDBGrid::restoreWidths() {
  const QVariantList widths = settings::look(lookName()).toList();
  if (widths.size() != columns_.size()) return;
  for (int i = 0; i < widths.size() && i < model()->columnCount(); ++i)
    if (widths[i].toInt() > 0) setColumnWidth(i, widths[i].toInt());
}

// The header stretches its last column only when it is told anew or resized.
void TDBGrid::stretchLast() {
  horizontalHeader()->setStretchLastSection(false);
  horizontalHeader()->setStretchLastSection(true);
}

// Only what the user drags is kept; the stretch of the last column follows the window.
void TDBGrid::storeWidths() {
  if (settingWidths_ || !isVisible() || QApplication::mouseButtons() == Qt::NoButton || lookName().isEmpty())
    return;
  QVariantList widths;
  for (int i = 0; i < columns_.size(); ++i) widths.append(isColumnHidden(i) ? 0 : columnWidth(i));
  widths.last() = 0;
  settings::setLook(lookName(), widths);
}

// A grid learns which window it belongs to when it is first shown.
void TDBGrid::showEvent(QShowEvent* event) {
  QTableView::showEvent(event);
  settingWidths_ = true;
  restoreWidths();
  stretchLast();
  settingWidths_ = false;
}

int TDBGrid::columnOf(const QString& field) const {
  for (int i = 0; i < columns_.size(); ++i)
    if (columns_[i].field.compare(field, Qt::CaseInsensitive) == 0) return i;
  return -1;
}

void TDBGrid::setRecordset(Recordset recordset) {
  const int row = currentIndex().row();
  {
    const QSignalBlocker quiet(selectionModel());
    list_->setRecordset(std::move(recordset));
  }
  applyWidths();
  if (list_->rowCount() > 0) {
    int column = 0;
    while (column < columns_.size() - 1 && isColumnHidden(column)) ++column;
    const QSignalBlocker quiet(this);
    setCurrentIndex(list_->index(std::clamp(row, 0, list_->rowCount() - 1), column));
  }
  emit currentRecordChanged();
  viewport()->update();
}

const Row* TDBGrid::currentRecord() const {
  const int row = currentIndex().row();
  return row >= 0 && row < list_->rowCount() ? &list_->recordset()[row] : nullptr;
}

bool TDBGrid::selectRecord(const QString& field, const QString& text) {
  for (int i = 0; i < list_->rowCount(); ++i) {
    if (list_->recordset()[i].text(field).compare(text, Qt::CaseInsensitive) != 0) continue;
    setCurrentIndex(list_->index(i, std::max(0, columnOf(field))));
    return true;
  }
  return false;
}

void TDBGrid::setFooter(const QString& field, const QString& text) {
  footers_[field.toUpper()] = text;
  if (footer_->isHidden()) {
    footer_->show();
    updateGeometries();
  }
  footer_->update();
}

QString TDBGrid::footer(const QString& field) const { return footers_.value(field.toUpper()); }

void TDBGrid::updateGeometries() {
  if (placingFooter_) return;
  placingFooter_ = true;
  if (footer_->isHidden()) {
    QTableView::updateGeometries();
  } else {
    placeFooter();
  }
  placingFooter_ = false;
}

// The view reckons with the footer's room for rows, so its vertical scroll bar is set here. With a bar that
// comes and goes by itself the two would disagree without end.
void TDBGrid::placeFooter() {
  const int height = fontMetrics().height() + 8;
  const QScrollBar* below = horizontalScrollBar();
  const int room = this->height() - 2 * frameWidth() - horizontalHeader()->height() - height -
                   (below->isVisible() ? below->height() : 0);
  const int hidden = std::max(0, verticalHeader()->length() - room);
  setVerticalScrollBarPolicy(hidden > 0 ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
  QTableView::updateGeometries();
  const QMargins margins = viewportMargins();
  setViewportMargins(margins.left(), margins.top(), margins.right(), height);
  const QRect view = viewport()->geometry();
  footer_->setGeometry(view.left(), view.bottom() + 1, view.width(), height);
  // The base class measured the header before the footer took its room.
  QHeaderView* header = horizontalHeader();
  if (header->width() != view.width()) {
    header->setGeometry(view.left(), header->y(), view.width(), header->height());
    stretchLast();
  }
  verticalScrollBar()->setRange(0, hidden);
  verticalScrollBar()->setPageStep(view.height());
}

void TDBGrid::paintEvent(QPaintEvent* event) {
  QTableView::paintEvent(event);
  if (model()->rowCount() > 0 || emptyText_.isEmpty()) return;
  QPainter painter(viewport());
  painter.setPen(palette().placeholderText().color());
  painter.drawText(viewport()->rect().adjusted(12, 12, -12, -12), Qt::AlignCenter | Qt::TextWordWrap,
                   emptyText_);
}

void TDBGrid::scrollContentsBy(int dx, int dy) {
  QTableView::scrollContentsBy(dx, dy);
  footer_->update();
}

void TDBGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QTableView::currentChanged(current, previous);
  if (model() == list_ && current.row() != previous.row()) emit currentRecordChanged();
}

}  // namespace velmar
