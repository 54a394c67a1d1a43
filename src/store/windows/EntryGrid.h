// A grid whose cells are typed into. A text that is refused is told about once the cell has been left, and
// the cell is current again.
#pragma once

#include <exception>
#include <functional>
#include <QPersistentModelIndex>
#include <QPointer>

#include "store/windows/TDBGrid.h"
#include "util/Errors.h"

class QLineEdit;

namespace velmar {

/// Refuses the text of a cell without a word.
class QuietRefusal : public std::exception {};

/// Refuses the text of a cell, which shows again what it held, whatever becomes of refused texts else.
class SetBack : public RuleError {
 public:
  using RuleError::RuleError;
};

class EntryGrid : public TDBGrid {
  Q_OBJECT
 public:
  /// What becomes of a text that is refused: it stays in the open cell to be mended, or the cell shows again
  /// what it held.
  enum class Refused { Kept, Reverted };

  /// `form` names the window in error reports.
  EntryGrid(const QString& name, Refused refused, const QString& form, QWidget* parent = nullptr);

  /// Takes over what stands in an open cell. False when the cell refuses it: the message stands, the command
  /// that asked should not run.
  bool commitPending();

  /// Stores what was typed into a cell of a list; throws to refuse it.
  using Store = std::function<void(const Row& row, const QString& field, const QString& text)>;
  void setStore(Store store) { store_ = std::move(store); }

 signals:
  /// A cell took a text.
  void cellStored();

 protected:
  virtual QLineEdit* makeEditor(QWidget* parent, const QModelIndex& index);
  /// Whether the cell is just left, its text neither taken nor refused.
  virtual bool leavesUntouched(const QLineEdit* editor, const QModelIndex& index) const;
  /// Takes the text over; throws to refuse it.
  virtual void take(QLineEdit* editor, const QModelIndex& index);
  /// Called once the user has been told why a text was refused.
  virtual void afterRefusal() {}
  const QString& initialText() const { return initialText_; }
  /// Whether the cell is being left with Enter.
  bool isConfirming() const { return confirming_; }
  bool isEditing() const { return !editor_.isNull(); }
  bool isRefusing() const { return !refused_.isNull(); }
  /// The next cell that can be edited, by rows; the one asked from when there is none.
  QModelIndex nextOpen(const QModelIndex& from, int step) const;
  const QString& form() const { return form_; }
  /// Takes the text over and leaves the cell.
  void leave(QWidget* editor);
  /// As leave(), with Enter.
  void leaveWithEnter(QWidget* editor);
  /// Gives the focus to the control behind the grid or before it, unless an open cell refuses its text.
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
  void tellRefusal();

  QString form_;
  Refused policy_;
  Store store_;
  QPersistentModelIndex editing_;  ///< the cell whose editor is open
  QPointer<QWidget> editor_;       ///< that editor
  QString initialText_;            ///< what it showed when it opened
  QPointer<QWidget> refused_;      ///< the editor whose text was refused, until its text is mended
  std::exception_ptr cause_;       ///< why, until the user has been told
  bool telling_ = false;           ///< that box stands
  bool taking_ = false;            ///< a text is being taken over, perhaps with a box on the way
  bool confirming_ = false;
};

}  // namespace velmar
