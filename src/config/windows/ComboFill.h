// Fills the combo boxes of the windows from the lists of the core.
#pragma once

#include <vector>

class QComboBox;

namespace velmar {

struct BoundList;
struct ListEntry;

/// Fills a plain combo box with the rows that belong to its object name, in place of what it held; what
/// stands left of the first "-" is the item's data. Nothing is chosen at first.
void IncarcaCombo(QComboBox& combo);

/// Hangs a combo box on a data-bound list: an item shows the list field and carries the bound column as its
/// data. Nothing is chosen at first.
void LegaCombo(QComboBox& combo, const BoundList& list);
/// As above: an item shows the entry's text and carries its code.
void LegaCombo(QComboBox& combo, const std::vector<ListEntry>& list);

}  // namespace velmar
