// A box for a code (an account, a journal) tied to the combo box that offers the codes with their names.
#pragma once

#include <functional>

class QComboBox;
class QLineEdit;
class QString;

namespace velmar {

struct BoundList;

/// A combo box to search in by any part of its texts.
QComboBox* makeCodeCombo(const QString& name);

/// The combo shows the code that stands in the box; a pick in the combo goes into the box, unless `objection`
/// tells what is wrong with the code.
void pairWithCombo(QLineEdit* box, QComboBox* combo,
                   const std::function<QString(const QString&)>& objection = {});

/// Hangs combos made by makeCodeCombo() on one list, which they share; they show the codes of their boxes
/// anew.
void fillCodeCombos(const QList<QComboBox*>& combos, const BoundList& list);

}  // namespace velmar
