#include "store/windows/TDBGrid.h"

#include <algorithm>
#include <QApplication>
#include <QHeaderView>
#include <QMouseEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>

#include "store/windows/ListExport.h"
#include "util/Errors.h"
#include "util/NumberText.h"
#include "util/PlainText.h"
#include "util/Settings.h"
#include "util/windows/Controls.h"

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

// As many for each text: their number must not give its length away.
const QString kDots(8, QChar(0x2022));

}  // namespace

bool isRightAligned(CellFormat format) {
  return format == CellFormat::Number || format == CellFormat::Integer;
}

const QColor kWarningBack(0xFF, 0xD9, 0x99);

QString cellText(const QVariant& value, const GridColumn& column) {
  if (value.isNull()) return {};
  switch (column.format) {
    case CellFormat::Number:
      if (value.typeId() == QMetaType::Double)
        return column.decimals < 0 ? editNumber(Decimal::fromDouble(value.toDouble()))
                                   : formatNumber(Decimal::fromDouble(value.toDouble()), column.decimals);
      return formatNumber(Decimal(static_cast<qint64>(value.toLongLong())), std::max(0, column.decimals));
    case CellFormat::Date:
      return QDate::fromString(value.toString().left(10), Qt::ISODate).toString(QStringLiteral("dd.MM.yyyy"));
    case CellFormat::Flag:
      return value.toLongLong() != 0 ? QStringLiteral("DA") : QStringLiteral("NU");
    case CellFormat::Integer:
    case CellFormat::Text:
      break;
  }
  return visibleText(value.toString());
}

ListModel::ListModel(QObject* parent)
    : QAbstractTableModel(parent), rows_(std::make_unique<RecordsetRows>(Recordset())) {}

void ListModel::setColumns(const QList<GridColumn>& columns) {
  beginResetModel();
  columns_ = columns;
  endResetModel();
}

void ListModel::setRows(std::unique_ptr<RowSource> rows) {
  beginResetModel();
  rows_ = std::move(rows);
  endResetModel();
}

void ListModel::appendRows(int count, const std::function<void()>& append) {
  if (count > 0) beginInsertRows({}, rowCount(), rowCount() + count - 1);
  append();
  if (count > 0) endInsertRows();
}

void ListModel::showSecrets(bool shown) {
  beginResetModel();
  showsSecrets_ = shown;
  endResetModel();
}

void ListModel::sortRows(const QStringList& fields, bool descending) {
  beginResetModel();
  rows_->sort(fields, descending);
  endResetModel();
}

int ListModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : rows_->size(); }

int ListModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QVariant ListModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const GridColumn& column = columns_[index.column()];
  if (column.secret && !showsSecrets_ && role == Qt::ToolTipRole) return {};
  if (column.secret && !showsSecrets_ && role == Qt::DisplayRole)
    return rows_->row(index.row()).isNull(column.field) ? QString() : kDots;
  switch (role) {
    case Qt::DisplayRole:
      return cellText(rows_->row(index.row()).value(column.field), column);
    case Qt::EditRole: {
      const QVariant& value = rows_->row(index.row()).value(column.field);
      if (column.format == CellFormat::Flag) return cellText(value, column);
      return value.typeId() == QMetaType::Double ? editNumber(Decimal::fromDouble(value.toDouble()))
                                                 : value.toString();
    }
    case Qt::ToolTipRole:  // whole, where the column is too narrow for it
      return plainToolTip(data(index, Qt::DisplayRole).toString());
    case Qt::TextAlignmentRole:
      return isRightAligned(column.format) ? QVariant(Qt::AlignRight | Qt::AlignVCenter) : QVariant();
    case Qt::BackgroundRole:
      return highlighted_ && highlighted_(rows_->row(index.row())) ? QVariant(kWarningBack) : QVariant();
    case Qt::ForegroundRole:
      return highlighted_ && highlighted_(rows_->row(index.row())) ? QVariant(QColor(Qt::black)) : QVariant();
    default:
      return {};
  }
}

QVariant ListModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation == Qt::Horizontal && role == Qt::DisplayRole) return columns_[section].caption;
  return QAbstractTableModel::headerData(section, orientation, role);
}

Qt::ItemFlags ListModel::flags(const QModelIndex& index) const {
  const Qt::ItemFlags base = QAbstractTableModel::flags(index);
  if (!index.isValid()) return base;
  return columns_[index.column()].editable ? base | Qt::ItemIsEditable : base;
}

TDBGrid::TDBGrid(const QString& name, QWidget* parent)
    : QTableView(parent), list_(new ListModel(this)), footer_(new GridFooter(this)) {
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
  setEditTriggers(NoEditTriggers);
  horizontalHeader()->setSectionsMovable(true);
  horizontalHeader()->viewport()->installEventFilter(this);
  // Only what the user drags is kept; the stretch of the last column follows the window.
  const auto lookChanged = [this] {
    footer_->update();
    if (QApplication::mouseButtons() != Qt::NoButton) storeLook();
  };
  connect(horizontalHeader(), &QHeaderView::sectionResized, this, lookChanged);
  connect(horizontalHeader(), &QHeaderView::sectionMoved, this, lookChanged);
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
    setColumnWidth(i, naturalWidth(i));
  }
  restoreLook();
  stretchLast();
  settingWidths_ = false;
  keepInView();
}

void TDBGrid::dataChanged(const QModelIndex& from, const QModelIndex& to, const QList<int>& roles) {
  QTableView::dataChanged(from, to, roles);
  keepInView();
}

void TDBGrid::reset() {
  widest_.clear();
  QTableView::reset();
}

void TDBGrid::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  if (event->size().width() != event->oldSize().width()) keepInView();
}

QString TDBGrid::lookName() const {
  const QWidget* form = parentWidget();
  while (form && !form->objectName().startsWith(QStringLiteral("frm"))) form = form->parentWidget();
  if (!form) return {};
  const QString name = form->objectName() + QLatin1Char('/') + objectName();
  return look_.isEmpty() ? name : name + QLatin1Char('/') + look_;
}

void TDBGrid::restoreLook() {
  const QVariantMap look = settings::look(lookName()).toMap();
  const QVariantList widths = look.value(QStringLiteral("widths")).toList();
  const QVariantList order = look.value(QStringLiteral("order")).toList();
  // What was kept of other columns says nothing of these.
  if (widths.size() != columns_.size() || order.size() != columns_.size()) return;
  QHeaderView* header = horizontalHeader();
  if (header->count() != columns_.size()) return;
  hasLook_ = true;
  for (int i = 0; i < header->count(); ++i) {
    if (widths[i].toInt() > 0) setColumnWidth(i, widths[i].toInt());
    const int column = order[i].toInt();
    if (column >= 0 && column < header->count()) header->moveSection(header->visualIndex(column), i);
  }
}

// The header stretches its last column only when that is set anew or it is resized.
void TDBGrid::stretchLast() {
  horizontalHeader()->setStretchLastSection(false);
  horizontalHeader()->setStretchLastSection(true);
}

void TDBGrid::storeLook() {
  if (settingWidths_ || !isVisible() || lookName().isEmpty()) return;
  hasLook_ = true;
  const QHeaderView* header = horizontalHeader();
  QVariantList widths, order;
  for (int i = 0; i < header->count(); ++i) {
    const bool stretched = header->visualIndex(i) == header->count() - 1;
    widths.append(isColumnHidden(i) || stretched ? 0 : columnWidth(i));
    order.append(header->logicalIndex(i));
  }
  settings::setLook(lookName(), QVariantMap{{"widths", widths}, {"order", order}});
}

// A grid learns which window it belongs to when it is first shown.
void TDBGrid::showEvent(QShowEvent* event) {
  QTableView::showEvent(event);
  settingWidths_ = true;
  restoreLook();
  stretchLast();
  settingWidths_ = false;
  keepInView();
  if (isExported_) offerExport(*this);
}

int TDBGrid::columnOf(const QString& field) const {
  for (int i = 0; i < columns_.size(); ++i)
    if (columns_[i].field.compare(field, Qt::CaseInsensitive) == 0) return i;
  return -1;
}

void TDBGrid::setRecordset(Recordset recordset) {
  setRows(std::make_unique<RecordsetRows>(std::move(recordset)));
}

void TDBGrid::setRows(std::unique_ptr<RowSource> rows) {
  const int row = currentIndex().row();
  const int column = currentIndex().column();
  if (!order_.fields.isEmpty()) rows->sort(order_.fields, order_.descending);
  {
    const QSignalBlocker quiet(selectionModel());
    list_->setRows(std::move(rows));
  }
  applyWidths();
  if (list_->rowCount() > 0) {
    const QSignalBlocker quiet(this);
    makeCurrent(std::clamp(row, 0, list_->rowCount() - 1), column);
  }
  fetchVisible();
  emit currentRecordChanged();
  viewport()->update();
}

const Row* TDBGrid::currentRecord() const {
  const int row = currentIndex().row();
  return row >= 0 && row < list_->rowCount() ? &list_->rows().row(row) : nullptr;
}

bool TDBGrid::selectRecord(const QString& field, const QString& text) {
  const int place = list_->rows().find(field, text);
  if (place >= 0) selectPlace(place);
  return place >= 0;
}

void TDBGrid::selectPlace(int row) { makeCurrent(row, currentIndex().column()); }

void TDBGrid::makeCurrent(int row, int column) {
  const QList<int> visible = visibleColumns();
  setCurrentIndex(list_->index(row, visible.contains(column) ? column : visible.value(0)));
}

QList<int> TDBGrid::selectedPlaces() const {
  QList<int> places;
  for (const QItemSelectionRange& range : selectionModel()->selection())
    for (int row = range.top(); row <= range.bottom(); ++row) places.append(row);
  std::sort(places.begin(), places.end());
  places.erase(std::unique(places.begin(), places.end()), places.end());
  return places;
}

QList<int> TDBGrid::visibleColumns() const {
  QList<int> visible;
  for (int place = 0; place < horizontalHeader()->count(); ++place) {
    const int column = horizontalHeader()->logicalIndex(place);
    if (!isColumnHidden(column)) visible.append(column);
  }
  return visible;
}

void TDBGrid::setSortable() {
  horizontalHeader()->setSectionsClickable(true);
  connect(horizontalHeader(), &QHeaderView::sectionClicked, this, &TDBGrid::orderByHeading);
}

void TDBGrid::orderByHeading(int column) {
  const QString& field = columns_[column].field;
  GridOrder wanted = order_;
  if (QApplication::keyboardModifiers() & Qt::ControlModifier) {
    if (!wanted.fields.contains(field)) wanted.fields.append(field);
  } else {
    wanted.descending = wanted.fields == QStringList(field) && !wanted.descending;
    wanted.fields = {field};
  }
  guarded(objectName(), "HeadClick", [&] { sortBy(wanted); });
}

void TDBGrid::sortBy(const GridOrder& order) {
  order_ = order;
  const int column = currentIndex().column();
  const bool ordered = !order_.fields.isEmpty();
  horizontalHeader()->setSortIndicatorShown(ordered);
  if (ordered)
    horizontalHeader()->setSortIndicator(columnOf(order_.fields.first()),
                                         order_.descending ? Qt::DescendingOrder : Qt::AscendingOrder);
  {
    const QSignalBlocker quiet(selectionModel());
    list_->sortRows(order_.fields, order_.descending);
  }
  applyWidths();
  if (list_->rowCount() > 0) {
    const QSignalBlocker quiet(this);
    makeCurrent(0, column);
  }
  fetchVisible();
  emit currentRecordChanged();
  viewport()->update();
}

// A heading that is let go above the grid asks to be grouped by. The header then has moved its section as
// well, which is taken back.
bool TDBGrid::eventFilter(QObject* watched, QEvent* event) {
  QHeaderView* header = horizontalHeader();
  if (watched == header->viewport()) {
    const auto place = [event] { return static_cast<QMouseEvent*>(event)->position().toPoint(); };
    if (event->type() == QEvent::MouseButtonPress) draggedColumn_ = header->logicalIndexAt(place().x());
    if (event->type() == QEvent::MouseButtonRelease && draggedColumn_ >= 0) {
      const int column = std::exchange(draggedColumn_, -1);
      const int stood = header->visualIndex(column);
      const bool out = place().y() < 0;
      settingWidths_ = out;
      const auto over = [this, column, stood, out] {
        if (!out) return storeLook();
        horizontalHeader()->moveSection(horizontalHeader()->visualIndex(column), stood);
        settingWidths_ = false;
        emit columnDraggedOut(columns_.value(column).field);
      };
      QMetaObject::invokeMethod(this, over, Qt::QueuedConnection);
    }
  }
  return QTableView::eventFilter(watched, event);
}

// Rows come from the store before they are painted, never while.
void TDBGrid::fetchVisible() {
  if (model() != list_ || list_->rowCount() == 0) return;
  const int first = std::max(0, rowAt(0));
  const int shown = viewport()->height() / std::max(1, verticalHeader()->defaultSectionSize()) + 2;
  list_->rows().fetch(first, first + shown);
}

void TDBGrid::setFooter(const QString& field, const QString& text) {
  QString& shown = footers_[field.toUpper()];
  const bool isOther = shown != text;
  shown = text;
  if (footer_->isHidden()) {
    footer_->show();
    updateGeometries();
  }
  const int column = columnOf(field);
  if (column >= 0 && !isColumnHidden(column) && columnWidth(column) < footerWidth(column)) {
    const QScopedValueRollback<bool> setting(settingWidths_, true);
    setColumnWidth(column, footerWidth(column));
  }
  if (isOther) keepInView();
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
  fetchVisible();
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
  if (dy != 0) fetchVisible();
  if (dy != 0) keepInView();
  footer_->update();
}

void TDBGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QTableView::currentChanged(current, previous);
  if (model() == list_ && current.row() != previous.row()) emit currentRecordChanged();
}

void TDBGrid::selectAll() {
  emit allRowsNeeded();
  QTableView::selectAll();
}

QModelIndex TDBGrid::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
  if (action == MoveEnd && modifiers.testFlag(Qt::ControlModifier)) emit allRowsNeeded();
  return QTableView::moveCursor(action, modifiers);
}

}  // namespace velmar
