// An editable grid. When a refused cell is left, the reason is shown and the cell becomes current again.
#pragma once

#include <exception>
#include <functional>
#include <QPersistentModelIndex>
#include <QPointer>

#include "store/windows/TDBGrid.h"
#include "util/Errors.h"

class QLineEdit;

namespace velmar {

/// Refuses the text of a cell without a message.
class QuietRefusal : public std::exception {};

/// Refuses the text of a cell and restores its old value, whatever the policy of the grid.
class SetBack : public RuleError {
 public:
  using RuleError::RuleError;
};

class EntryGrid : public TDBGrid {
  Q_OBJECT
 public:
  /// The policy for refused texts: kept in the open cell for correction, or replaced by the old value.
  enum class Refused { Kept, Reverted };

  /// `form` names the window in error reports.
  EntryGrid(const QString& name, Refused refused, const QString& form, QWidget* parent = nullptr);

  /// Commits an open cell. False when it is refused, after the message: the command that called this must not
  /// run.
  bool commitPending();

  /// Stores what was typed into a cell of a list; throws to refuse it.
  using Store = std::function<void(const Row& row, const QString& field, const QString& text)>;
  void setStore(Store store) { store_ = std::move(store); }

 signals:
  /// A cell took a text.
  void cellStored();

 protected:
  virtual QLineEdit* makeEditor(QWidget* parent, const QModelIndex& index);
  /// Whether the cell is left with its text neither stored nor refused.
  virtual bool leavesUntouched(const QLineEdit* editor, const QModelIndex& index) const;
  /// Stores the text; throws to refuse it.
  virtual void take(QLineEdit* editor, const QModelIndex& index);
  /// Called after the reason of a refusal has been shown.
  virtual void afterRefusal() {}
  const QString& initialText() const { return initialText_; }
  /// Whether the cell is being left with Enter.
  bool isConfirming() const { return confirming_; }
  bool isEditing() const { return !editor_.isNull(); }
  bool isRefusing() const { return !refused_.isNull(); }
  /// The next cell that can be edited, by rows; the one asked from when there is none.
  QModelIndex nextOpen(const QModelIndex& from, int step) const;
  const QString& form() const { return form_; }
  /// Commits the text and leaves the cell.
  void leave(QWidget* editor);
  /// As leave(), with Enter.
  void leaveWithEnter(QWidget* editor);
  /// Moves the focus to the control after or before the grid, unless an open cell refuses its text.
  void leaveGrid(bool forward);

  bool event(QEvent* event) override;

  void commitData(QWidget* editor) override;
  void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;
  QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
  bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  friend class EntryDelegate;
  void refuse(std::exception_ptr cause);
  void showRefusal();

  QString form_;
  Refused policy_;
  Store store_;
  QPersistentModelIndex editing_;  ///< the cell whose editor is open
  QPointer<QWidget> editor_;       ///< that editor
  QString initialText_;            ///< what it showed when it opened
  QPointer<QWidget> refused_;      ///< the editor whose text was refused, until it is corrected
  std::exception_ptr cause_;       ///< the reason, until it has been shown
  bool showing_ = false;           ///< the message box is open
  bool taking_ = false;            ///< a text is being stored, possibly with a message box
  bool confirming_ = false;
};

}  // namespace velmar
