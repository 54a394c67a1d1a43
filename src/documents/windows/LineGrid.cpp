#include "documents/windows/LineGrid.h"

#include <QKeyEvent>

#include "documents/windows/ArticlePicker.h"
#include "util/Errors.h"

namespace velmar {

namespace {

constexpr int kLongestEntry = 60;

}  // namespace

LineGrid::LineGrid(const QString& name, LineModel* model, const ArticleList& articles, const QString& form,
                   QWidget* parent)
    : EntryGrid(name, Refused::Kept, form, parent), lines_(model), articles_(articles) {
  setModel(model);
}

void LineGrid::startNewLine() {
  if (!hasNewRow()) return;
  setFocus();
  const QModelIndex first = lines_->index(lines_->rowCount() - 1, columnOf("CODART"));
  setCurrentIndex(first);
  scrollTo(first);
}

// An ArticlePicker for the name, a line edit for the other cells.
QLineEdit* LineGrid::makeEditor(QWidget* parent, const QModelIndex& index) {
  if (lines_->lineColumn(index.column()).entry != LineEntry::Name)
    return EntryGrid::makeEditor(parent, index);
  auto* picker = new ArticlePicker(articles_, parent);
  picker->setMaxLength(kLongestEntry);
  connect(picker, &ArticlePicker::picked, this,
          [this, picker](bool withTab) { withTab ? leave(picker) : leaveWithEnter(picker); });
  QMetaObject::invokeMethod(picker, &ArticlePicker::drop, Qt::QueuedConnection);
  return picker;
}

bool LineGrid::leavesUntouched(const QLineEdit* editor, const QModelIndex& index) const {
  const auto* picker = qobject_cast<const ArticlePicker*>(editor);
  if (picker && picker->choice()) return false;
  // Tab may leave a new line's code empty to reach the name; Enter may not.
  const bool confirmsNoCode = isConfirming() && editor->text().isEmpty() &&
                              lines_->lineColumn(index.column()).entry == LineEntry::Code;
  return editor->text() == initialText() && !confirmsNoCode;
}

void LineGrid::take(QLineEdit* editor, const QModelIndex& index) {
  storeRefused_ = false;
  auto* picker = qobject_cast<ArticlePicker*>(editor);
  const auto choice = picker ? picker->choice() : std::nullopt;
  if (!choice) {
    const CellVerdict verdict = lines_->check(index, editor->text());
    if (verdict.refused && verdict.text.isEmpty() && picker) return;  // leaving an empty name is allowed
    if (verdict.refused && verdict.text.isEmpty()) throw QuietRefusal();
    if (verdict.setsBack) throw SetBack(verdict.text);
    if (verdict.refused) throw RuleError(verdict.text);
  }
  try {
    if (choice)
      lines_->pick(index.row(), choice->code, choice->listText);
    else
      lines_->enter(index, editor->text());
  } catch (...) {
    storeRefused_ = true;
    throw;
  }
}

void LineGrid::afterRefusal() {
  if (storeRefused_) emit refusedByStore();
}

void LineGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  EntryGrid::currentChanged(current, previous);
  if (!current.isValid() || isRefusing()) return;
  // Entering the name cell of an empty line opens the list of articles.
  if (lines_->lineColumn(current.column()).entry == LineEntry::Name &&
      (current.flags() & Qt::ItemIsEditable) && hasFocus())
    QMetaObject::invokeMethod(
        this,
        [this, place = QPersistentModelIndex(current)] {
          if (place.isValid() && currentIndex() == place && !isEditing()) TDBGrid::edit(place);
        },
        Qt::QueuedConnection);
}

QModelIndex LineGrid::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
  const QModelIndex from = currentIndex();
  // The new line is entered at its code, from any column.
  if (action == MoveDown && hasNewRow() && from.isValid() && from.row() == lines_->rowCount() - 2)
    return lines_->index(lines_->rowCount() - 1, columnOf("CODART"));
  if (action == MoveNext && isConfirming() && from.isValid() && hasNewRow() &&
      lines_->lineColumn(from.column()).field == lastColumn_)
    return lines_->index(lines_->rowCount() - 1, columnOf("CODART"));
  return action == MoveNext && isConfirming() ? nextUsual(from) : EntryGrid::moveCursor(action, modifiers);
}

// The cells typed on nearly every line; Tab reaches the others.
QModelIndex LineGrid::nextUsual(const QModelIndex& from) const {
  for (QModelIndex at = from;;) {
    const QModelIndex next = nextOpen(at, 1);
    if (next == at) return from;
    const LineColumn& column = lines_->lineColumn(next.column());
    if (column.entry == LineEntry::Code || column.field == QStringLiteral("CANT")) return next;
    at = next;
  }
}

void LineGrid::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Insert)
    startNewLine();
  else if (event->key() == Qt::Key_Delete)
    deleteCurrent();
  else
    EntryGrid::keyPressEvent(event);
}

void LineGrid::deleteCurrent() {
  const int row = currentIndex().row();
  if (row < 0 || lines_->isNewRow(row) || lines_->isFrozen()) return;
  if (!guarded(form(), QStringLiteral("BeforeDelete"), [this, row] { lines_->deleteLine(row); }))
    emit refusedByStore();
}

}  // namespace velmar
