#include "store/windows/EntryGrid.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QStyledItemDelegate>

#include "util/Errors.h"
#include "util/windows/KeyFilter.h"

namespace velmar {

namespace {

constexpr int kLongestEntry = 60;

// Ctrl+Tab leaves a grid from any cell; with Shift to the previous control.
bool isCtrlTab(const QEvent* event) {
  if (event->type() != QEvent::KeyPress && event->type() != QEvent::ShortcutOverride) return false;
  const auto* key = static_cast<const QKeyEvent*>(event);
  return (key->modifiers() & Qt::ControlModifier) &&
         (key->key() == Qt::Key_Tab || key->key() == Qt::Key_Backtab);
}

bool goesForward(const QEvent* event) {
  const auto* key = static_cast<const QKeyEvent*>(event);
  return key->key() == Qt::Key_Tab && !(key->modifiers() & Qt::ShiftModifier);
}

}  // namespace

// Creates the editors for the grid, which commits their texts. Enter moves to the next editable cell.
class EntryDelegate : public QStyledItemDelegate {
 public:
  explicit EntryDelegate(EntryGrid* grid) : QStyledItemDelegate(grid), grid_(grid) {}

  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem&,
                        const QModelIndex& index) const override {
    QLineEdit* editor = grid_->makeEditor(parent, index);
    grid_->editing_ = index;
    grid_->editor_ = editor;
    grid_->initialText_ = index.data(Qt::EditRole).toString();
    return editor;
  }

  void setEditorData(QWidget* editor, const QModelIndex& index) const override {
    auto* line = static_cast<QLineEdit*>(editor);
    if (line->isModified() || editor == grid_->refused_)
      return;  // a refresh must not overwrite text being typed
    line->setText(index.data(Qt::EditRole).toString());
    line->selectAll();
  }

  // The grid commits the text in commitData().
  void setModelData(QWidget*, QAbstractItemModel*, const QModelIndex&) const override {}

  bool eventFilter(QObject* object, QEvent* event) override {
    if (isCtrlTab(event)) {
      event->accept();  // or a shortcut would handle it
      if (event->type() == QEvent::KeyPress) grid_->leaveGrid(goesForward(event));
      return true;
    }
    if (event->type() == QEvent::KeyPress) {
      const int key = static_cast<QKeyEvent*>(event)->key();
      if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        grid_->leaveWithEnter(static_cast<QWidget*>(object));
        return true;
      }
    }
    return QStyledItemDelegate::eventFilter(object, event);
  }

  void leave(QWidget* editor) {
    emit commitData(editor);
    emit closeEditor(editor, grid_->policy_ == EntryGrid::Refused::Kept ? EditNextItem : NoHint);
  }

 private:
  EntryGrid* grid_;
};

EntryGrid::EntryGrid(const QString& name, Refused refused, const QString& form, QWidget* parent)
    : TDBGrid(name, parent), form_(form), policy_(refused) {
  setItemDelegate(new EntryDelegate(this));
  setSelectionBehavior(refused == Refused::Kept ? SelectItems : SelectRows);
  setEditTriggers(AnyKeyPressed | EditKeyPressed | DoubleClicked | SelectedClicked);
  setTabKeyNavigation(refused == Refused::Kept);
}

QLineEdit* EntryGrid::makeEditor(QWidget* parent, const QModelIndex& index) {
  auto* editor = new QLineEdit(parent);
  editor->setFrame(false);
  editor->setAlignment(Qt::Alignment(index.data(Qt::TextAlignmentRole).toInt()));
  editor->setMaxLength(kLongestEntry);
  if (columns()[index.column()].secret && !showsSecrets()) editor->setEchoMode(QLineEdit::Password);
  KeyFilter::install(editor, {});
  return editor;
}

bool EntryGrid::leavesUntouched(const QLineEdit* editor, const QModelIndex&) const {
  return editor->text() == initialText_;
}

void EntryGrid::take(QLineEdit* editor, const QModelIndex& index) {
  // Storing may refresh the list: pass a copy of the row.
  const Row row = rows().row(index.row());
  store_(row, columns()[index.column()].field, editor->text());
  emit cellStored();
}

void EntryGrid::leave(QWidget* editor) { static_cast<EntryDelegate*>(itemDelegate())->leave(editor); }

void EntryGrid::leaveWithEnter(QWidget* editor) {
  confirming_ = true;
  leave(editor);
  confirming_ = false;
}

bool EntryGrid::commitPending() {
  // A click on a command has already closed the editor; its refusal has not been shown yet.
  if (!editor_) return !cause_;
  QWidget* open = editor_;
  commitData(open);
  const bool taken = !refused_ && !cause_;
  if (!refused_) closeEditor(open, QAbstractItemDelegate::NoHint);
  return taken;
}

void EntryGrid::commitData(QWidget* widget) {
  auto* line = qobject_cast<QLineEdit*>(widget);
  // A message box, also one shown while the text is stored, takes the focus from the editor, which commits
  // again.
  if (showing_ || taking_ || !line || widget != editor_ || !editing_.isValid()) return;
  if (cause_ && !refused_) return;
  if (leavesUntouched(line, editing_)) {
    refused_.clear();
    return;
  }
  try {
    const QScopedValueRollback<bool> taking(taking_, true);
    take(line, editing_);
    refused_.clear();
    initialText_ = line->text();
  } catch (const SetBack&) {
    refused_.clear();
    refuse(std::current_exception());
  } catch (...) {
    if (policy_ == Refused::Kept) refused_ = widget;
    refuse(std::current_exception());
  }
}

// The box is shown after the event that left the cell: within the event, the text would be lost.
void EntryGrid::refuse(std::exception_ptr cause) {
  const bool waiting = static_cast<bool>(cause_);
  cause_ = std::move(cause);
  if (!waiting) QMetaObject::invokeMethod(this, &EntryGrid::showRefusal, Qt::QueuedConnection);
}

void EntryGrid::showRefusal() {
  const std::exception_ptr cause = std::exchange(cause_, nullptr);
  if (!cause) return;
  showing_ = true;
  guarded(form_, QStringLiteral("AfterColUpdate"), [&cause] {
    try {
      std::rethrow_exception(cause);
    } catch (const QuietRefusal&) {
      // The text remains, without a message.
    }
  });
  showing_ = false;
  afterRefusal();
  if (!refused_) {
    setFocus();
    return;
  }
  if (editing_.isValid()) setCurrentIndex(editing_);
  refused_->setFocus();
  static_cast<QLineEdit*>(refused_.data())->selectAll();
}

void EntryGrid::closeEditor(QWidget* widget, QAbstractItemDelegate::EndEditHint hint) {
  if (taking_) return;  // the caller that commits the text also closes the editor
  if (widget == refused_ && hint != QAbstractItemDelegate::RevertModelCache) return;
  if (widget == refused_) {
    refused_.clear();
    cause_ = nullptr;
  }
  if (widget == editor_) {
    editor_.clear();
    editing_ = QPersistentModelIndex();
  }
  // A cell that is reset to its old text remains current.
  if (cause_) hint = QAbstractItemDelegate::NoHint;
  const bool forward = hint == QAbstractItemDelegate::EditNextItem;
  const bool moves = forward || hint == QAbstractItemDelegate::EditPreviousItem;
  const bool isAtEnd =
      moves && moveCursor(forward ? MoveNext : MovePrevious, Qt::NoModifier) == currentIndex();
  TDBGrid::closeEditor(widget, isAtEnd ? QAbstractItemDelegate::NoHint : hint);
  if (isAtEnd && !confirming_) leaveGrid(forward);
}

void EntryGrid::leaveGrid(bool forward) {
  if (!commitPending()) return;
  setFocus();
  // NOLINTNEXTLINE(bugprone-parent-virtual-call): the base class walks through the cells
  QWidget::focusNextPrevChild(forward);
}

bool EntryGrid::event(QEvent* event) {
  if (!isCtrlTab(event)) return TDBGrid::event(event);
  event->accept();
  if (event->type() == QEvent::KeyPress) leaveGrid(goesForward(event));
  return true;
}

QModelIndex EntryGrid::nextOpen(const QModelIndex& from, int step) const {
  const QHeaderView* header = horizontalHeader();
  int row = from.row();
  int place = header->visualIndex(from.column());
  while (true) {
    place += step;
    if (place < 0 || place >= header->count()) {
      row += step;
      place = step > 0 ? 0 : header->count() - 1;
    }
    if (row < 0 || row >= model()->rowCount()) return from;
    const QModelIndex next = model()->index(row, header->logicalIndex(place));
    if (!isColumnHidden(next.column()) && (next.flags() & Qt::ItemIsEditable)) return next;
  }
}

QModelIndex EntryGrid::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
  if (action == MoveNext) return nextOpen(currentIndex(), 1);
  if (action == MovePrevious) return nextOpen(currentIndex(), -1);
  return TDBGrid::moveCursor(action, modifiers);
}

bool EntryGrid::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) {
  if (refused_ || cause_) return false;
  return TDBGrid::edit(index, trigger, event);
}

void EntryGrid::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    if (currentIndex().flags() & Qt::ItemIsEditable) {
      TDBGrid::edit(currentIndex());
    } else {
      const QScopedValueRollback<bool> confirming(confirming_, true);
      setCurrentIndex(moveCursor(MoveNext, Qt::NoModifier));
    }
    return;
  }
  TDBGrid::keyPressEvent(event);
}

void EntryGrid::mousePressEvent(QMouseEvent* event) {
  if (refused_) return;
  TDBGrid::mousePressEvent(event);
}

}  // namespace velmar
