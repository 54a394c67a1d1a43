// The name cell's editor: a line edit that drops the articles whose name, code or supplier's code holds what
// is typed. At most 50 rows are read for each letter, so it answers at once however large the catalogue.
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

  /// Drops the list for what is typed now.
  void drop();

  /// The picked article: by the highlighted row, or the exact or first match of a text.
  struct Choice {
    QString code;
    QString listText;
  };
  std::optional<Choice> choice() const;

 signals:
  /// A row of the list was clicked or taken with Enter or Tab.
  void picked(bool withTab);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  Recordset matches() const;
  void refill();
  int bestRow() const;  ///< the row with just the typed text, else the first
  void take(const QModelIndex& index);

  ArticleList list_;
  QCompleter* completer_;
  QStandardItemModel* rows_;
  std::optional<Choice> taken_;
};

}  // namespace velmar
