// A combo box of articles that searches by name, code or supplier's code during typing. It contains only the
// first matches, so that it opens quickly with a large catalogue.
#pragma once

#include <QComboBox>

#include "config/Lists.h"

class QStandardItemModel;

namespace velmar {

class ArticleCombo : public QComboBox {
  Q_OBJECT
 public:
  ArticleCombo(const QString& name, const ArticleList& list, QWidget* parent = nullptr);

  /// The code of the selected article, or of the one whose name or code was typed; "" when there is none.
  QString code() const;
  /// Clears the text; the list shows the first articles again.
  void clearChoice();
  /// Opens the list; the focus remains in the text, so that typing can continue.
  void drop();

 private:
  void search(const QString& typed);

  ArticleList list_;
  QStandardItemModel* rows_;
};

}  // namespace velmar
