// The users of a company: their names, passwords and rights.
#pragma once

#include "store/Row.h"

namespace velmar {

/// Adds the user of the row: `NUME`, `PAROLA`, `TIP` (0, 1 or 2). Throws RuleError, naming the column, for a
/// name or password that is missing or has an apostrophe, a name that is taken in any case, or another type.
void addUser(const Row& user);

/// Stores what was typed into a column of a user. Throws RuleError for the name and rights of admin, for what
/// addUser() refuses, and when no user would have all rights any more.
void changeUser(const QString& name, const QString& column, const QString& typed);

/// Stores whether the rights also apply to the tool bars (`kt_par.DREPTURIBARE`), for all users of the
/// company.
void applyRightsToToolBars(bool applied);

/// Throws RuleError for admin.
void requireRemovableUser(const QString& name);
/// Deletes the user. Throws as requireRemovableUser(), and for the last user with all rights.
void removeUser(const QString& name);

}  // namespace velmar
