// The grid of a document's lines, for keyboard entry: Enter moves to the next code or quantity, Tab to the
// next editable cell and after the last one out of the grid, Ctrl+Tab always out of it. A refused cell keeps
// its text and the focus; the name cell opens the list of articles.
#pragma once

#include "config/Lists.h"
#include "documents/windows/LineModel.h"
#include "store/windows/EntryGrid.h"

namespace velmar {

class LineGrid : public EntryGrid {
  Q_OBJECT
  Q_PROPERTY(bool hasNewRow READ hasNewRow)
 public:
  LineGrid(const QString& name, LineModel* model, const ArticleList& articles, const QString& form,
           QWidget* parent);

  /// Whether there is an empty row for the next line at the end.
  bool hasNewRow() const { return model()->rowCount() > 0 && lines_->isNewRow(model()->rowCount() - 1); }

  /// Enter in a cell of the column moves to the next line, for users who only scan codes and type quantities.
  void setLastColumn(const QString& field) { lastColumn_ = field; }

  /// The articles from which names are picked.
  void setArticles(const ArticleList& articles) { articles_ = articles; }

  /// Moves to the empty row and opens its first cell.
  void startNewLine();

 signals:
  /// A line could not be stored; the reason has been shown.
  void refusedByStore();

 protected:
  QLineEdit* makeEditor(QWidget* parent, const QModelIndex& index) override;
  bool leavesUntouched(const QLineEdit* editor, const QModelIndex& index) const override;
  void take(QLineEdit* editor, const QModelIndex& index) override;
  void afterRefusal() override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void deleteCurrent();
  QModelIndex nextUsual(const QModelIndex& from) const;

  LineModel* lines_;
  ArticleList articles_;
  QString lastColumn_;
  bool storeRefused_ = false;  ///< the last refusal came from the store
};

}  // namespace velmar
