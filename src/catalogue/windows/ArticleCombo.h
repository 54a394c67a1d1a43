// A combo box of articles that searches while one types, by name, code or supplier's code: it holds the first
// matches only, so that it opens at once however large the catalogue.
#pragma once

#include <QComboBox>

#include "config/Lists.h"

class QStandardItemModel;

namespace velmar {

class ArticleCombo : public QComboBox {
  Q_OBJECT
 public:
  ArticleCombo(const QString& name, const ArticleList& list, QWidget* parent = nullptr);

  /// Code of the article that was picked, or whose name or code stands typed; "" when that is none.
  QString code() const;
  /// Empties the text; the list shows the first articles again.
  void clearChoice();
  /// Drops the list; the focus stays in the text, so that one can go on typing.
  void drop();

 private:
  void search(const QString& typed);

  ArticleList list_;
  QStandardItemModel* rows_;
};

}  // namespace velmar
