// The editor of the name cell: a line edit with a list of the articles whose name, code or supplier's code
// contains the typed text. It reads at most 50 rows per keystroke, so that it is fast with a large catalogue.
#pragma once

#include <QCompleter>
#include <QLineEdit>
#include <QStandardItemModel>

#include "config/Lists.h"

namespace velmar {

class ArticlePicker : public QLineEdit {
  Q_OBJECT
 public:
  ArticlePicker(const ArticleList& list, QWidget* parent);

  /// Opens the list for the typed text.
  void drop();

  /// The chosen article: that of the highlighted row, or the exact or first match of the text.
  struct Choice {
    QString code;
    QString listText;
  };
  std::optional<Choice> choice() const;

 signals:
  /// A row of the list was clicked or chosen with Enter or Tab.
  void picked(bool withTab);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  Recordset matches() const;
  void refill();
  int bestRow() const;  ///< the row with exactly the typed text, else the first
  void take(const QModelIndex& index);

  ArticleList list_;
  QCompleter* completer_;
  QStandardItemModel* rows_;
  std::optional<Choice> taken_;
};

}  // namespace velmar
