// A box for a code (an account, a journal, a family) tied to the list that offers the codes with their names.
#pragma once

#include <functional>
#include <QList>
#include <QString>

class QFormLayout;
class QLineEdit;

namespace velmar {

class SearchCombo;
struct BoundList;

/// The list shows the code that stands in the box; a choice in the list goes into the box as if it were
/// typed, unless `objection` tells what is wrong with the code.
void pairWithCombo(QLineEdit* box, SearchCombo* combo,
                   const std::function<QString(const QString&)>& objection = {});

/// Refuses, when the box is left, a typed code that the company does not have, by kind of Exista. A code that
/// was shown before anything was typed passes.
void requireKnownCodeWhenLeft(QLineEdit* box, const QString& kind);

/// Adds a row to a form: the list with the paired box beside it.
void addCodeRow(QFormLayout* rows, const QString& caption, SearchCombo* combo, QLineEdit* box);

/// Hangs lists that are paired with boxes on one statement; they show the codes of their boxes anew.
void fillCodeCombos(const QList<SearchCombo*>& combos, const BoundList& list);

/// A list of "account-title": the accounts that begin with one of these texts; an empty text takes them all.
BoundList accountsBeginning(const QStringList& prefixes);

/// A list of "code-name" from a table that has a code and a name.
BoundList codeList(const QString& table, const QString& code, const QString& name,
                   const QString& condition = {});

}  // namespace velmar
