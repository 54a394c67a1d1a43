#include "config/windows/ComboFill.h"

#include <QAbstractListModel>
#include <QComboBox>
#include <QLineEdit>

#include "config/Lists.h"

namespace velmar {

namespace {

// Texts and the values behind them; a list of thousands fills at once.
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

  QVariant data(const QModelIndex& index, int role) const override {
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
  for (const Row& row : OpenRs(list.sql))
    choices.push_back({row.text(list.listField), row.value(list.boundColumn)});
  setChoices(combo, std::move(choices));
}

void fillWithCodes(QComboBox& combo, const QString& sql) {
  std::vector<ChoiceModel::Choice> choices;
  for (const Row& row : OpenRs(sql)) {
    const QString code = row.at(0).toString();
    choices.push_back({code + QLatin1Char('-') + row.at(1).toString(), code});
  }
  setChoices(combo, std::move(choices));
}

void pairWithBox(QComboBox* combo, QLineEdit* box) {
  const auto show = [combo, box] {
    const QSignalBlocker quiet(combo);
    int at = combo->count() - 1;
    const QString code = box->text().trimmed();
    while (at >= 0 &&
           (code.isEmpty() || combo->itemData(at).toString().compare(code, Qt::CaseInsensitive) != 0))
      --at;
    combo->setCurrentIndex(at);
  };
  QObject::connect(box, &QLineEdit::textChanged, combo, show);
  QObject::connect(combo, &QComboBox::activated, box, [combo, box] {
    box->setText(combo->currentData().toString());
    emit box->textEdited(box->text());
  });
  show();
}

}  // namespace velmar
