#include "config/windows/ComboFill.h"

#include <QComboBox>

#include "config/Lists.h"
#include "util/AlikeNames.h"
#include "util/PlainText.h"
#include "util/windows/ChoiceModel.h"

namespace velmar {

void IncarcaCombo(QComboBox& combo) {
  std::vector<ChoiceModel::Choice> choices;
  for (const QString& item : comboItems(combo.objectName()))
    choices.push_back({item, item.section(QLatin1Char('-'), 0, 0).trimmed()});
  setChoices(combo, std::move(choices));
}

void LegaCombo(QComboBox& combo, const BoundList& list) {
  std::vector<ChoiceModel::Choice> choices;
  QStringList names, codes;
  const Recordset rows = OpenRs(list.sql, list.values);
  for (const Row& row : rows) {
    names.append(visibleText(row.text(list.listField)));
    codes.append(row.text(list.boundColumn));
  }
  names = withCodesOfAlike(names, codes);
  for (const Row& row : rows)
    choices.push_back({names[static_cast<qsizetype>(choices.size())], row.value(list.boundColumn)});
  setChoices(combo, std::move(choices));
}

void LegaCombo(QComboBox& combo, const std::vector<ListEntry>& list) {
  std::vector<ChoiceModel::Choice> choices;
  for (const ListEntry& entry : list) choices.push_back({entry.text, entry.code});
  setChoices(combo, std::move(choices));
}

}  // namespace velmar
