#include "config/Users.h"

#include "config/Checks.h"
#include "config/Session.h"
#include "store/Database.h"
#include "store/Records.h"
#include "util/Messages.h"
#include "util/NumberText.h"

namespace velmar {

namespace {

const Table& users() { return companyTable("UTILIZATORI"); }

RuleError refused(const QString& text, const QString& column = {}) {
  return RuleError(text, column, kCritical);
}

bool isAdmin(const QString& name) {
  return name.trimmed().compare(QStringLiteral("admin"), Qt::CaseInsensitive) == 0;
}

// The login window does not accept apostrophes: a user with one could not log in.
void requireTypeable(const QString& text, const QString& column) {
  if (text.contains(QLatin1Char('\'')))
    throw refused(QStringLiteral("Numele si parola nu pot contine apostrof !"), column);
}

QString requiredName(const QString& typed) {
  if (typed.trimmed().isEmpty()) throw refused(QStringLiteral("Va rugam introduceti numele !"), "NUME");
  requireTypeable(typed, "NUME");
  return typed.trimmed();
}

QString requiredPassword(const QString& typed) {
  if (typed.trimmed().isEmpty()) throw refused(QStringLiteral("Va rugam introduceti parola !"), "PAROLA");
  requireTypeable(typed, "PAROLA");
  return typed.trimmed();
}

qint64 requiredType(const QString& typed) {
  const auto number = parseNumber(typed);
  if (!number || *number < Decimal(0) || *number > Decimal(2) || Round(*number, 0) != *number)
    throw refused(QStringLiteral("Tipul utilizatorului este 0, 1 sau 2 !"), "TIP");
  return number->toString().toLongLong();
}

void requireNewName(const QString& name) {
  if (Exista(name, "UTILIZATOR"))
    throw refused(QStringLiteral("Acest nume de utilizator exista deja ! Adaugarea nu se poate efectua !"),
                  "NUME");
}

void requireFullUserBesides(const QString& name) {
  if (OpenRs("SELECT NUME FROM UTILIZATORI WHERE TIP = 0 AND NUME <> ? LIMIT 1", {name}).isEmpty())
    throw refused(QStringLiteral("Cel putin un utilizator trebuie sa aiba toate drepturile !"));
}

}  // namespace

void addUser(const Row& user) {
  Row row = rowOf("NUME PAROLA TIP");
  row.set("NUME", requiredName(user.text("NUME")));
  row.set("PAROLA", requiredPassword(user.text("PAROLA")));
  row.set("TIP", requiredType(user.text("TIP")));
  Transaction transaction(database());
  requireNewName(row.text("NUME"));
  insertRecord(users(), row);
  transaction.commit();
}

void changeUser(const QString& name, const QString& column, const QString& typed) {
  Transaction transaction(database());
  if (column == QStringLiteral("NUME")) {
    const QString other = requiredName(typed);
    const bool isOther = other.compare(name, Qt::CaseInsensitive) != 0;
    if (isOther && isAdmin(name))
      throw refused(QStringLiteral("Nu se poate modifica numele pentru utilizatorul admin !"), "NUME");
    if (isOther) requireNewName(other);
    updateField(users(), name, column, other);
  } else if (column == QStringLiteral("PAROLA")) {
    updateField(users(), name, column, requiredPassword(typed));
  } else {
    if (isAdmin(name))
      throw refused(QStringLiteral("Nu se poate modifica tipul pentru utilizatorul admin !"));
    const qint64 type = requiredType(typed);
    if (type != 0) requireFullUserBesides(name);
    updateField(users(), name, column, type);
  }
  transaction.commit();
}

void applyRightsToToolBars(bool applied) {
  ExecutaSql("UPDATE kt_par SET DREPTURIBARE = ?", {applied});
  session().DrepturiBare = applied;
}

void requireRemovableUser(const QString& name) {
  if (isAdmin(name)) throw refused(QStringLiteral("Utilizatorul admin nu se poate sterge !"));
}

void removeUser(const QString& name) {
  Transaction transaction(database());
  requireRemovableUser(name);
  requireFullUserBesides(name);
  deleteRecord(users(), name);
  transaction.commit();
}

}  // namespace velmar
