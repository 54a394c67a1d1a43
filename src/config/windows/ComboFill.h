// Fills the combo boxes of the windows from the lists of the core.
#pragma once

#include <vector>

class QComboBox;

namespace velmar {

struct BoundList;
struct ListEntry;

/// Replaces the items of a plain combo box by the rows for its object name; the text before the first "-" is
/// the item's data. Nothing is selected.
void IncarcaCombo(QComboBox& combo);

/// Fills a combo box from a data-bound list: an item shows the list field and has the bound column as its
/// data. Nothing is selected.
void LegaCombo(QComboBox& combo, const BoundList& list);
/// As above: an item shows the entry's text and has its code as data.
void LegaCombo(QComboBox& combo, const std::vector<ListEntry>& list);

}  // namespace velmar
