// The items of a combo box: texts and their values; fast even for thousands, unlike items added one by one.
#pragma once

#include <QAbstractListModel>
#include <vector>

class QComboBox;

namespace velmar {

class ChoiceModel : public QAbstractListModel {
 public:
  struct Choice {
    QString text;
    QVariant value;
  };

  ChoiceModel(std::vector<Choice> choices, QObject* parent);

  int rowCount(const QModelIndex& parent) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  void append(const Choice& choice);

 private:
  std::vector<Choice> choices_;
};

/// Replaces the items of the box. Nothing is selected; there is no signal.
void setChoices(QComboBox& combo, std::vector<ChoiceModel::Choice> choices);
/// Adds an item at the end, unless there is one with that value. The selection stays.
void addChoice(QComboBox& combo, const ChoiceModel::Choice& choice);

}  // namespace velmar
