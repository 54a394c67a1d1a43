#include "config/windows/ComboFill.h"

#include <QAbstractListModel>
#include <QComboBox>

#include "config/Lists.h"
#include "util/AlikeNames.h"
#include "util/PlainText.h"

namespace velmar {

namespace {

// Texts and their values; fast even for thousands of entries, unlike items added one by one.
class ChoiceModel : public QAbstractListModel {
 public:
  struct Choice {
    QString text;
    QVariant value;
  };

  ChoiceModel(std::vector<Choice> choices, QObject* parent)
      : QAbstractListModel(parent), choices_(std::move(choices)) {}

  int rowCount(const QModelIndex& parent) const override {
    return parent.isValid() ? 0 : static_cast<int>(choices_.size());
  }

  // A combo box also requests the item of an invalid index.
  QVariant data(const QModelIndex& index, int role) const override {
    if (!index.isValid()) return {};
    const Choice& choice = choices_[static_cast<size_t>(index.row())];
    if (role == Qt::DisplayRole || role == Qt::EditRole) return choice.text;
    return role == Qt::UserRole ? choice.value : QVariant();
  }

 private:
  std::vector<Choice> choices_;
};

void setChoices(QComboBox& combo, std::vector<ChoiceModel::Choice> choices) {
  const QSignalBlocker quiet(combo);
  combo.setModel(new ChoiceModel(std::move(choices), &combo));
  combo.setCurrentIndex(-1);
}

}  // namespace

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
