// Fills the combo boxes of the windows from the lists of the core.
#pragma once

#include <QVariant>

class QComboBox;
class QLineEdit;
class QString;

namespace velmar {

struct BoundList;

/// Fills a plain combo box with the rows that belong to its object name, in place of what it held; what
/// stands left of the first "-" is the item's data. Nothing is chosen at first.
void IncarcaCombo(QComboBox& combo);

/// Hangs a combo box on a data-bound list: an item shows the list field and carries the bound column as its
/// data. Nothing is chosen at first.
void LegaCombo(QComboBox& combo, const BoundList& list);

/// Fills a combo box from a statement of code and name: an item shows "code-name" and carries the code as its
/// data. Nothing is chosen at first.
void fillWithCodes(QComboBox& combo, const QString& sql);

/// Ties a list to the box that holds its code: a pick writes the item's data into the box as if it were
/// typed, and the list shows what stands in the box.
void pairWithBox(QComboBox* combo, QLineEdit* box);

}  // namespace velmar
