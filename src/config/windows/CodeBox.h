// A box for a code (an account, a journal, a family), linked to a list of the codes with their names.
#pragma once

#include <functional>
#include <QList>
#include <QString>

class QFormLayout;
class QLineEdit;

namespace velmar {

class SearchCombo;
struct BoundList;

/// The list shows the code in the box; a choice in the list is entered into the box as if typed, unless
/// `objection` returns a reason against the code.
void pairWithCombo(QLineEdit* box, SearchCombo* combo,
                   const std::function<QString(const QString&)>& objection = {});

/// Refuses an unknown typed code when the box is left, by kind of Exista. The code that was shown before
/// anything was typed is accepted.
void requireKnownCodeWhenLeft(QLineEdit* box, const QString& kind);

/// Adds a row to a form: the list with the paired box beside it.
void addCodeRow(QFormLayout* rows, const QString& caption, SearchCombo* combo, QLineEdit* box);

/// Fills lists that are paired with boxes from one statement; they then show the codes of their boxes.
void fillCodeCombos(const QList<SearchCombo*>& combos, const BoundList& list);

/// A list of "account-title": the accounts that begin with one of the prefixes; an empty prefix matches all.
BoundList accountsBeginning(const QStringList& prefixes);

/// A list of "code-name" from a table with a code and a name.
BoundList codeList(const QString& table, const QString& code, const QString& name,
                   const QString& condition = {});

}  // namespace velmar
