#include "documents/windows/LineGrid.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QStyledItemDelegate>

#include "documents/windows/ArticlePicker.h"
#include "util/Errors.h"
#include "util/Messages.h"

namespace velmar {

namespace {

constexpr int kLongestEntry = 60;

}  // namespace

// Editors of the line grid: a picker for the name, a plain line edit for the rest. Enter means: next open
// cell.
class LineDelegate : public QStyledItemDelegate {
 public:
  LineDelegate(LineGrid* grid, const ArticleList& articles)
      : QStyledItemDelegate(grid), grid_(grid), articles_(articles) {}

  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem&,
                        const QModelIndex& index) const override {
    QLineEdit* editor = nullptr;
    if (grid_->lines_->lineColumn(index.column()).entry == LineEntry::Name) {
      auto* picker = new ArticlePicker(articles_, parent);
      connect(picker, &ArticlePicker::picked, this, [this, picker] { leave(picker, EditNextItem); });
      QMetaObject::invokeMethod(picker, &ArticlePicker::drop, Qt::QueuedConnection);
      editor = picker;
    } else {
      editor = new QLineEdit(parent);
      editor->setFrame(false);
      editor->setAlignment(Qt::Alignment(index.data(Qt::TextAlignmentRole).toInt()));
    }
    editor->setMaxLength(kLongestEntry);
    grid_->editing_ = index;
    grid_->editor_ = editor;
    grid_->initialText_ = index.data(Qt::EditRole).toString();
    return editor;
  }

  void setEditorData(QWidget* editor, const QModelIndex& index) const override {
    auto* line = static_cast<QLineEdit*>(editor);
    if (line->isModified() || editor == grid_->refused_)
      return;  // a refresh must not take what is being typed
    line->setText(index.data(Qt::EditRole).toString());
    line->selectAll();
  }

  // The grid itself takes the text over in commitData.
  void setModelData(QWidget*, QAbstractItemModel*, const QModelIndex&) const override {}

  bool eventFilter(QObject* object, QEvent* event) override {
    if (event->type() == QEvent::KeyPress) {
      const int key = static_cast<QKeyEvent*>(event)->key();
      if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        grid_->confirming_ = true;
        leave(static_cast<QWidget*>(object), EditNextItem);
        grid_->confirming_ = false;
        return true;
      }
    }
    return QStyledItemDelegate::eventFilter(object, event);
  }

  void leave(QWidget* editor, EndEditHint hint) const {
    auto* self = const_cast<LineDelegate*>(this);
    emit self->commitData(editor);
    emit self->closeEditor(editor, hint);
  }

 private:
  LineGrid* grid_;
  ArticleList articles_;
};

LineGrid::LineGrid(const QString& name, LineModel* model, const ArticleList& articles, const QString& form,
                   QWidget* parent)
    : TDBGrid(name, parent), lines_(model), form_(form) {
  setModel(model);
  setItemDelegate(new LineDelegate(this, articles));
  setSelectionBehavior(SelectItems);
  setEditTriggers(AnyKeyPressed | EditKeyPressed | DoubleClicked | SelectedClicked);
  setTabKeyNavigation(true);
}

bool LineGrid::commitPending() {
  if (!editor_) return true;
  QWidget* open = editor_;
  commitData(open);
  if (refused_) return false;
  closeEditor(open, QAbstractItemDelegate::NoHint);
  return true;
}

void LineGrid::startNewLine() {
  if (!hasNewRow()) return;
  setFocus();
  const QModelIndex first = lines_->index(lines_->rowCount() - 1, columnOf("CODART"));
  setCurrentIndex(first);
  scrollTo(first);
}

void LineGrid::commitData(QWidget* widget) {
  auto* line = qobject_cast<QLineEdit*>(widget);
  // The box itself takes the focus from the editor, which asks again.
  if (telling_ || !line || widget != editor_ || !editing_.isValid()) return;
  const QModelIndex index = editing_;
  auto* picker = qobject_cast<ArticlePicker*>(widget);
  const auto choice = picker ? picker->choice() : std::nullopt;
  // A new line's code may be left empty on the way to its name, but Enter confirms it.
  const bool confirmsNoCode =
      confirming_ && line->text().isEmpty() && lines_->lineColumn(index.column()).entry == LineEntry::Code;
  if (!choice && line->text() == initialText_ && !confirmsNoCode) {
    refused_.clear();
    return;
  }
  if (!choice) {
    const DocumentEditor::Verdict verdict = lines_->check(index, line->text());
    if (verdict.refused && verdict.text.isEmpty() && picker) return;  // an empty name is just left
    if (verdict.refused) {
      refuse(widget, [text = verdict.text] {
        if (!text.isEmpty()) Mesaj(text);
      });
      return;
    }
  }
  try {
    if (choice) {
      lines_->pick(index.row(), choice->code, choice->listText);
    } else {
      lines_->enter(index, line->text());
    }
    refused_.clear();
    initialText_ = line->text();
  } catch (...) {
    refuse(widget, [this, cause = std::current_exception()] {
      guarded(form_, QStringLiteral("AfterColUpdate"), [&cause] { std::rethrow_exception(cause); });
      emit refusedByStore();
    });
  }
}

// The box is shown once the event that left the cell is over: shown inside it, the text would be lost.
void LineGrid::refuse(QWidget* widget, std::function<void()> tell) {
  const bool waiting = static_cast<bool>(tell_);
  refused_ = widget;
  tell_ = std::move(tell);
  if (!waiting) QMetaObject::invokeMethod(this, &LineGrid::tellRefusal, Qt::QueuedConnection);
}

void LineGrid::tellRefusal() {
  const auto tell = std::exchange(tell_, nullptr);
  if (!tell) return;
  telling_ = true;
  tell();
  telling_ = false;
  if (!refused_) return;
  if (editing_.isValid()) setCurrentIndex(editing_);
  refused_->setFocus();
  static_cast<QLineEdit*>(refused_.data())->selectAll();
}

void LineGrid::closeEditor(QWidget* widget, QAbstractItemDelegate::EndEditHint hint) {
  if (widget == refused_ && hint != QAbstractItemDelegate::RevertModelCache) return;
  if (widget == refused_) {
    refused_.clear();
    tell_ = nullptr;
  }
  if (widget == editor_) {
    editor_.clear();
    editing_ = QPersistentModelIndex();
  }
  TDBGrid::closeEditor(widget, hint);
}

QModelIndex LineGrid::nextOpen(const QModelIndex& from, int step) const {
  int row = from.row();
  int column = from.column();
  while (true) {
    column += step;
    if (column < 0 || column >= lines_->columnCount()) {
      row += step;
      column = step > 0 ? 0 : lines_->columnCount() - 1;
    }
    if (row < 0 || row >= lines_->rowCount()) return from;
    const QModelIndex next = lines_->index(row, column);
    if (!isColumnHidden(column) && (next.flags() & Qt::ItemIsEditable)) return next;
  }
}

QModelIndex LineGrid::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
  if (action == MoveNext) return nextOpen(currentIndex(), 1);
  if (action == MovePrevious) return nextOpen(currentIndex(), -1);
  return TDBGrid::moveCursor(action, modifiers);
}

bool LineGrid::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) {
  if (refused_) return false;
  return TDBGrid::edit(index, trigger, event);
}

void LineGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  TDBGrid::currentChanged(current, previous);
  if (!current.isValid() || refused_) return;
  // Reaching the name of an empty line drops the list of articles.
  if (lines_->lineColumn(current.column()).entry == LineEntry::Name &&
      (current.flags() & Qt::ItemIsEditable) && hasFocus())
    QMetaObject::invokeMethod(
        this,
        [this, place = QPersistentModelIndex(current)] {
          if (place.isValid() && currentIndex() == place && !editor_) TDBGrid::edit(place);
        },
        Qt::QueuedConnection);
}

void LineGrid::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter: {
      const QModelIndex next = nextOpen(currentIndex(), 1);
      if (currentIndex().flags() & Qt::ItemIsEditable)
        TDBGrid::edit(currentIndex());
      else
        setCurrentIndex(next);
      return;
    }
    case Qt::Key_Insert:
      startNewLine();
      return;
    case Qt::Key_Delete:
      deleteCurrent();
      return;
    default:
      TDBGrid::keyPressEvent(event);
  }
}

void LineGrid::mousePressEvent(QMouseEvent* event) {
  if (refused_) return;
  TDBGrid::mousePressEvent(event);
}

void LineGrid::deleteCurrent() {
  const int row = currentIndex().row();
  if (row < 0 || lines_->isNewRow(row)) return;
  if (!guarded(form_, QStringLiteral("BeforeDelete"), [this, row] { lines_->deleteLine(row); }))
    emit refusedByStore();
}

}  // namespace velmar
