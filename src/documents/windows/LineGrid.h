// The grid of a document's lines, worked by keyboard: Enter moves to the next open cell, a refused cell keeps
// its text and the focus, the name cell drops the list of articles.
#pragma once

#include <optional>
#include <QPersistentModelIndex>
#include <QPointer>

#include "config/Lists.h"
#include "documents/windows/LineModel.h"

namespace velmar {

class LineGrid : public TDBGrid {
  Q_OBJECT
  Q_PROPERTY(bool hasNewRow READ hasNewRow)
 public:
  LineGrid(const QString& name, LineModel* model, const ArticleList& articles, const QString& form,
           QWidget* parent);

  /// Whether an empty row for the next line stands at the end.
  bool hasNewRow() const { return model()->rowCount() > 0 && lines_->isNewRow(model()->rowCount() - 1); }

  /// Takes over what stands in an open cell. False when the cell refuses it: the message stands, the command
  /// that asked should not run.
  bool commitPending();

  /// Moves to the empty row and opens its first cell.
  void startNewLine();

 signals:
  /// A line could not be stored, and the user has been told why.
  void refusedByStore();

 protected:
  void commitData(QWidget* editor) override;
  void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;
  QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
  bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  friend class LineDelegate;
  void refuse(QWidget* editor, std::function<void()> tell);
  void tellRefusal();
  void deleteCurrent();
  QModelIndex nextOpen(const QModelIndex& from, int step) const;

  LineModel* lines_;
  QString form_;
  QPersistentModelIndex editing_;  ///< the cell whose editor is open
  QPointer<QWidget> editor_;       ///< that editor
  QString initialText_;            ///< what it showed when it opened
  QPointer<QWidget> refused_;      ///< the editor whose text was refused, until its text is mended
  std::function<void()> tell_;     ///< shows why
  bool telling_ = false;           ///< that box stands
  bool confirming_ = false;        ///< the cell is being left with Enter
};

}  // namespace velmar
