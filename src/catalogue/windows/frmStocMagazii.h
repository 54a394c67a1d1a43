// The stock of an article in each warehouse.
#pragma once

#include <QDialog>

namespace velmar {

class frmStocMagazii : public QDialog {
  Q_OBJECT
 public:
  /// Reads the stock of the article with that code; `name` is shown above.
  frmStocMagazii(const QString& article, const QString& name, QWidget* parent);
};

}  // namespace velmar
