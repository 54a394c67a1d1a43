// The dialog in which a user picks the working warehouse.
#pragma once

#include <optional>
#include <QDialog>

#include "store/Row.h"

class QComboBox;
class QLabel;

namespace velmar {

class frmSelMagazie : public QDialog {
  Q_OBJECT
 public:
  explicit frmSelMagazie(QWidget* parent = nullptr);

 signals:
  void warehouseChosen(qint64 code, const QString& name);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void load();
  void pick(int row);
  void confirm();

  QComboBox* combo_;
  QLabel* picked_;
  Recordset warehouses_;
  std::optional<int> row_;  ///< nothing until the user picks
};

}  // namespace velmar
