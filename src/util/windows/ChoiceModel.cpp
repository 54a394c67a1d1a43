#include "util/windows/ChoiceModel.h"

#include <QComboBox>

namespace velmar {

ChoiceModel::ChoiceModel(std::vector<Choice> choices, QObject* parent)
    : QAbstractListModel(parent), choices_(std::move(choices)) {}

int ChoiceModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(choices_.size());
}

// A combo box also requests the item of an invalid index.
QVariant ChoiceModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const Choice& choice = choices_[static_cast<size_t>(index.row())];
  if (role == Qt::DisplayRole || role == Qt::EditRole) return choice.text;
  return role == Qt::UserRole ? choice.value : QVariant();
}

void ChoiceModel::append(const Choice& choice) {
  const int row = static_cast<int>(choices_.size());
  beginInsertRows({}, row, row);
  choices_.push_back(choice);
  endInsertRows();
}

void addChoice(QComboBox& combo, const ChoiceModel::Choice& choice) {
  auto* model = dynamic_cast<ChoiceModel*>(combo.model());
  if (!model) return setChoices(combo, {choice});
  const QSignalBlocker quiet(combo);
  if (combo.findData(choice.value) < 0) model->append(choice);
}

void setChoices(QComboBox& combo, std::vector<ChoiceModel::Choice> choices) {
  const QSignalBlocker quiet(combo);
  combo.setModel(new ChoiceModel(std::move(choices), &combo));
  combo.setCurrentIndex(-1);
}

}  // namespace velmar
