// A combo box with a search: typing any part of a text finds it.
#pragma once

#include <QComboBox>

namespace velmar {

class SearchCombo : public QComboBox {
  Q_OBJECT
 public:
  /// `shown` is the width in characters.
  SearchCombo(const QString& name, const QString& toolTip, int shown, QWidget* parent = nullptr);

  /// Shows the item with that data; nothing when there is none.
  void showData(const QVariant& value);
  /// Selects the item for the typed text: the one with exactly this text, or the only one that contains it.
  /// For any other text there is no choice.
  void settle();
  /// The data of the settled choice, null when there is none.
  QVariant choice() const;

 signals:
  /// The user chose or left the box.
  void settled();
};

/// Refuses a text that matches no item when the list is left.
void requireChoiceWhenLeft(SearchCombo* list);

}  // namespace velmar
