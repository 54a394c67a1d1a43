#include "config/windows/ComboFill.h"

#include <QComboBox>

#include "config/Lists.h"

namespace velmar {

void IncarcaCombo(QComboBox& combo) {
  combo.clear();
  combo.addItems(comboItems(combo.objectName()));
  combo.setCurrentIndex(-1);
}

void LegaCombo(QComboBox& combo, const BoundList& list) {
  const Recordset rows = OpenRs(list.sql);
  combo.clear();
  for (const Row& row : rows) combo.addItem(row.text(list.listField), row.value(list.boundColumn));
  combo.setCurrentIndex(-1);
}

}  // namespace velmar
