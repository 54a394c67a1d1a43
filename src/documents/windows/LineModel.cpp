#include "documents/windows/LineModel.h"

#include "documents/LineSource.h"
#include "util/NumberText.h"
#include "util/windows/Look.h"

namespace velmar {

LineModel::LineModel(DocumentEditor& editor, std::function<bool()> bySupplierCode, QObject* parent)
    : QAbstractTableModel(parent),
      editor_(editor),
      bySupplierCode_(std::move(bySupplierCode)),
      columns_(gridColumns(editor.kind())) {}

namespace {

const QColor kFirstBack(192, 255, 192);

}  // namespace

LineColours lineColours(LineMark mark) {
  switch (mark) {
    case LineMark::Dearer:
      return {Qt::red, Qt::white};
    case LineMark::First:
      return {Qt::black, kFirstBack};
    case LineMark::None:
      break;
  }
  return {};
}

QList<GridColumn> LineModel::gridColumns(const DocumentKind& kind) {
  QList<GridColumn> columns;
  for (const LineColumn& line : kind.lineColumns) {
    GridColumn column;
    column.field = line.field;
    column.caption = line.caption;
    column.width = line.width;
    column.visible = line.visible;
    column.format = decimalsOf(line.shownDecimals) >= 0 ? CellFormat::Number : CellFormat::Text;
    column.decimals = std::max(0, decimalsOf(line.shownDecimals));
    columns.append(column);
  }
  return columns;
}

void LineModel::documentChanged() {
  beginResetModel();
  endResetModel();
  emit totalsChanged();
}

void LineModel::marksChanged() {
  if (rowCount() > 0)
    emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1),
                     {Qt::BackgroundRole, Qt::ForegroundRole});
}

void LineModel::amountsChanged() {
  if (rowCount() > 0) emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
  emit totalsChanged();
}

int LineModel::rowCount(const QModelIndex& parent) const {
  if (parent.isValid()) return 0;
  return static_cast<int>(editor_.lines().size()) + (editor_.takesTypedLines() ? 1 : 0);
}

int LineModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

// Locked for all lines, or because of where the line came from.
bool LineModel::isLocked(const QModelIndex& index) const {
  const LineColumn& column = lineColumn(index.column());
  if (column.entry == LineEntry::Locked || isNewRow(index.row())) return column.entry == LineEntry::Locked;
  const LineSource* source = sourceOf(editor_.kind(), editor_.lines()[static_cast<size_t>(index.row())]);
  return source && !source->isOpen(column.field);
}

QVariant LineModel::shownValue(const QModelIndex& index) const {
  const Row& line = editor_.lines()[static_cast<size_t>(index.row())];
  const LineColumn& column = lineColumn(index.column());
  if (column.product.isEmpty()) return line.value(column.field);
  return lineAmount(editor_.kind(), line, column.field).toDouble();
}

// A row may have gone since the grid was shown: the editor reads its document again before the grid does.
QVariant LineModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  const GridColumn& column = columns_[index.column()];
  const bool empty = isNewRow(index.row());
  const LineMark marked = empty ? LineMark::None : editor_.mark(static_cast<size_t>(index.row()));
  switch (role) {
    case Qt::DisplayRole:
      return empty ? QString() : cellText(shownValue(index), column);
    case Qt::EditRole: {
      const Row* line = empty ? nullptr : &editor_.lines()[static_cast<size_t>(index.row())];
      if (!line || !line->has(column.field)) return QString();
      if (column.format != CellFormat::Number) return line->text(column.field);
      return line->isNull(column.field) ? QString() : editNumber(line->decimal(column.field));
    }
    case Qt::ToolTipRole:
      return data(index, Qt::DisplayRole);  // the complete text, in case the column is too narrow
    case Qt::TextAlignmentRole:
      if (column.format == CellFormat::Number) return QVariant(Qt::AlignRight | Qt::AlignVCenter);
      return {};
    case Qt::BackgroundRole:
      if (marked != LineMark::None) return lineColours(marked).back;
      if (!empty && isLocked(index)) return gCuloareInfo();
      return {};
    case Qt::ForegroundRole:
      if (marked != LineMark::None) return lineColours(marked).text;
      if (isLocked(index)) return gCuloareInfoText();
      return {};
    default:
      return {};
  }
}

QVariant LineModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation == Qt::Horizontal && role == Qt::DisplayRole) return columns_[section].caption;
  return QAbstractTableModel::headerData(section, orientation, role);
}

Qt::ItemFlags LineModel::flags(const QModelIndex& index) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return Qt::NoItemFlags;
  const Qt::ItemFlags base = QAbstractTableModel::flags(index);
  return editor_.isOpen(static_cast<size_t>(index.row()), lineColumn(index.column()).field)
             ? base | Qt::ItemIsEditable
             : base;
}

CellVerdict LineModel::check(const QModelIndex& index, const QString& typed) const {
  return editor_.check(static_cast<size_t>(index.row()), lineColumn(index.column()).field, typed,
                       bySupplierCode_());
}

void LineModel::enter(const QModelIndex& index, const QString& typed) {
  const LineColumn& column = lineColumn(index.column());
  if (column.entry == LineEntry::Code) {
    setArticle(index.row(), typed, {}, bySupplierCode_());
  } else {
    editor_.setNumber(static_cast<size_t>(index.row()), column.field, typed);
    changed(index.row());
  }
}

void LineModel::pick(int row, const QString& code, const QString& listText) {
  setArticle(row, code, listText, false);
}

void LineModel::setArticle(int row, const QString& code, const QString& listText, bool bySupplierCode) {
  const bool added = isNewRow(row);
  editor_.setArticle(static_cast<size_t>(row), code, listText, bySupplierCode);
  if (added) {
    // The entry row became the line and is followed by a new entry row.
    beginInsertRows({}, row + 1, row + 1);
    endInsertRows();
  }
  changed(row);
}

void LineModel::changed(int row) {
  emit dataChanged(index(row, 0), index(row, columnCount() - 1));
  emit totalsChanged();
}

void LineModel::deleteLine(int row) {
  editor_.deleteLine(static_cast<size_t>(row));
  beginRemoveRows({}, row, row);
  endRemoveRows();
  emit totalsChanged();
}

}  // namespace velmar
