#include "hearing/windows/DetailGrid.h"

#include <QKeyEvent>
#include <QLineEdit>

#include "documents/windows/ArticlePicker.h"
#include "hearing/Invoices.h"
#include "util/NumberText.h"

namespace velmar {

namespace {

constexpr int kLongestEntry = 60;
const QString kCode = QStringLiteral("ID_Articol");
const QString kName = QStringLiteral("Articol");

}  // namespace

class DetailLines : public QAbstractTableModel {
 public:
  DetailLines(const QList<GridColumn>& columns, QObject* parent)
      : QAbstractTableModel(parent), columns_(columns) {}

  void show(std::vector<Row> lines, bool isOpen) {
    const bool isOneMore = isOpen == isOpen_ && lines.size() == lines_.size() + 1;
    const bool isSame = isOpen == isOpen_ && lines.size() == lines_.size();
    // The cell that is being left stays where it is.
    if (isOneMore) {
      beginInsertRows({}, size(), size());
      lines_ = std::move(lines);
      endInsertRows();
    } else if (isSame) {
      lines_ = std::move(lines);
    } else {
      beginResetModel();
      lines_ = std::move(lines);
      isOpen_ = isOpen;
      endResetModel();
    }
    if (rowCount() > 0) emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
  }

  const std::vector<Row>& lines() const { return lines_; }
  bool isOpen() const { return isOpen_; }
  int size() const { return static_cast<int>(lines_.size()); }

  int rowCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : size() + (isOpen_ ? 1 : 0);
  }
  int columnCount(const QModelIndex& /*parent*/ = {}) const override {
    return static_cast<int>(columns_.size());
  }

  QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
    if (orientation != Qt::Horizontal || section >= columns_.size()) return {};
    if (role == Qt::DisplayRole) return columns_[section].caption;
    if (role == Qt::UserRole) return columns_[section].field;
    return {};
  }

  QVariant data(const QModelIndex& at, int role) const override {
    const GridColumn& column = columns_[at.column()];
    if (role == Qt::TextAlignmentRole)
      return static_cast<int>((isRightAligned(column.format) ? Qt::AlignRight : Qt::AlignLeft) |
                              Qt::AlignVCenter);
    if (at.row() >= size()) return {};
    const QVariant& value = lines_[static_cast<size_t>(at.row())].value(column.field);
    if (role == Qt::DisplayRole) return cellText(value, column);
    if (role == Qt::EditRole)
      return column.format == CellFormat::Number && !value.isNull()
                 ? editNumber(Decimal::fromDouble(value.toDouble()), column.decimals)
                 : value.toString();
    return {};
  }

  Qt::ItemFlags flags(const QModelIndex& at) const override {
    Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
    const GridColumn& column = columns_[at.column()];
    const bool isArticle = column.field == kCode || column.field == kName;
    // A new line begins with its article.
    if (isOpen_ && column.editable && (at.row() < size() || isArticle)) flags |= Qt::ItemIsEditable;
    return flags;
  }

 private:
  QList<GridColumn> columns_;
  std::vector<Row> lines_;
  bool isOpen_ = false;
};

DetailGrid::DetailGrid(const QString& form, const QList<GridColumn>& columns)
    : EntryGrid("grdDetalii", Refused::Kept, form), lines_(new DetailLines(columns, this)) {
  setModel(lines_);
  setColumns(columns);
}

void DetailGrid::showLines(std::vector<Row> lines, bool isOpen) { lines_->show(std::move(lines), isOpen); }

const std::vector<Row>& DetailGrid::lines() const { return lines_->lines(); }

bool DetailGrid::hasNewRow() const { return lines_->isOpen(); }

QLineEdit* DetailGrid::makeEditor(QWidget* parent, const QModelIndex& index) {
  if (columns()[index.column()].field != kName) return EntryGrid::makeEditor(parent, index);
  auto* picker = new ArticlePicker(articleList(QStringLiteral("D")), parent);
  picker->setObjectName(QStringLiteral("cboArticol"));
  picker->setMaxLength(kLongestEntry);
  connect(picker, &ArticlePicker::picked, this,
          [this, picker](bool withTab) { withTab ? leave(picker) : leaveWithEnter(picker); });
  QMetaObject::invokeMethod(picker, &ArticlePicker::drop, Qt::QueuedConnection);
  return picker;
}

bool DetailGrid::leavesUntouched(const QLineEdit* editor, const QModelIndex& /*index*/) const {
  const auto* picker = qobject_cast<const ArticlePicker*>(editor);
  return editor->text() == initialText() && !(picker && picker->choice());
}

void DetailGrid::take(QLineEdit* editor, const QModelIndex& index) {
  const auto row = static_cast<size_t>(index.row());
  const auto* picker = qobject_cast<const ArticlePicker*>(editor);
  if (!picker) return take_(row, columns()[index.column()].field, editor->text().trimmed());
  const auto choice = picker->choice();
  if (!choice && editor->text().trimmed().isEmpty()) return;
  if (!choice) throw RuleError(QStringLiteral("Nu exista articolul %1 !").arg(editor->text().trimmed()));
  take_(row, kCode, choice->code);
}

void DetailGrid::keyPressEvent(QKeyEvent* event) {
  const auto row = static_cast<size_t>(currentIndex().row());
  if (event->key() == Qt::Key_F4 && currentIndex().isValid()) {
    const QModelIndex name = model()->index(currentIndex().row(), columnOf(kName));
    setCurrentIndex(name);
    TDBGrid::edit(name);
  } else if (event->key() == Qt::Key_Delete) {
    if (hasNewRow() && currentIndex().isValid() && row < lines().size())
      guarded(form(), QStringLiteral("BeforeDelete"), [&] { remove_(Row(lines()[row])); });
  } else {
    EntryGrid::keyPressEvent(event);
  }
}

Row DetailGrid::withCell(const Row& line, const QString& field, const QString& text) {
  if (field == kCode) return lineWithArticle(line, text);
  const auto number = parseNumber(text);
  if (!number) throw SetBack(QStringLiteral("Va rog introduceti o valoare numerica"));
  Row changed = line;
  changed.set(field, Round(*number, field == QStringLiteral("Cant") ? 3 : 4));
  return changed;
}

}  // namespace velmar
