#include "store/EngineTexts.h"

#include <iterator>
#include <QRegularExpression>

namespace velmar {

namespace {

/// A message of an engine, what it names in parentheses, and what a user reads of it.
struct Wording {
  const char* english;
  const char* romanian;
};

constexpr Wording kSqlite[] = {
    {"^no such table: (.+)$", "tabela %1 nu exista"},
    {"^no such column: (.+)$", "coloana %1 nu exista"},
    {"^table (.+) has no column named (.+)$", "tabela %1 nu are coloana %2"},
    {"^(?:table|index) (.+) already exists$", "%1 exista deja"},
    {"^no such function: (.+)$", "functia %1 nu exista"},
    {"^near (.+): syntax error$", "instructiune gresita langa %1"},
    {"^UNIQUE constraint failed: (.+)$", "exista deja o inregistrare cu aceeasi valoare (%1)"},
    {"^NOT NULL constraint failed: (.+)$", "lipseste o valoare obligatorie (%1)"},
    {"^CHECK constraint failed: (.+)$", "o valoare nu este permisa (%1)"},
    {"^FOREIGN KEY constraint failed", "inregistrarea este legata de alte date"},
    {"^datatype mismatch", "o valoare nu este de tipul potrivit"}};

constexpr Wording kPostgres[] = {
    {"^relation \"(.+?)\" does not exist", "tabela %1 nu exista"},
    {"^column \"?(.+?)\"? (?:of relation \"(.+?)\" )?does not exist", "coloana %1 nu exista"},
    {"^database \"(.+?)\" does not exist", "baza de date %1 nu exista"},
    {"^(?:database|relation|schema) \"(.+?)\" already exists", "%1 exista deja"},
    {"^function (.+?) does not exist", "functia %1 nu exista"},
    {"^syntax error at or near (.+)$", "instructiune gresita langa %1"},
    {"unique constraint \"(.+?)\"", "exista deja o inregistrare cu aceeasi valoare (%1)"},
    {"^null value in column \"(.+?)\"", "lipseste o valoare obligatorie (%1)"},
    {"check constraint \"(.+?)\"", "o valoare nu este permisa (%1)"},
    {"foreign key constraint \"(.+?)\"", "inregistrarea este legata de alte date (%1)"},
    {"^invalid input syntax for type (.+?): (.+)$", "valoarea %2 nu este de tipul %1"},
    {"out of range|field overflow", "un numar este prea mare"},
    {"^value too long for type (.+)$", "un text este prea lung (%1)"},
    {"^permission denied for (?:\\w+) (.+)$", "utilizatorul nu are drepturi asupra %1"},
    {"^must be owner of (?:\\w+) (.+)$", "utilizatorul nu este proprietarul %1"},
    {"^password authentication failed for user (.+)$", "parola utilizatorului %1 nu este primita"},
    {"role \"(.+?)\" does not exist", "utilizatorul %1 nu exista"},
    {"Connection refused", "nu raspunde la adresa si portul din setari"},
    {"could not translate host name \"(.+?)\"", "adresa %1 nu este cunoscuta"},
    {"No such file or directory", "nu raspunde la adresa si portul din setari"},
    {"remaining connection slots|too many (?:clients|connections)", "sunt prea multe legaturi deschise"}};

template <size_t Count>
QString worded(const Wording (&wordings)[Count], const QString& message) {
  for (const auto& [english, romanian] : wordings) {
    const auto match = QRegularExpression(QLatin1String(english)).match(message.trimmed());
    if (!match.hasMatch()) continue;
    QString text = QString::fromLatin1(romanian);
    for (int i = 1; i <= 2; ++i) text.replace(QStringLiteral("%%1").arg(i), match.captured(i));
    return text;
  }
  return {};
}

}  // namespace

QString sqliteReason(int code, const QString& message) {
  const QString known = worded(kSqlite, message);
  return known.isEmpty() ? QStringLiteral("baza de date a refuzat operatia (cod %1)").arg(code) : known;
}

QString postgresReason(const QString& state, const QString& message) {
  const QString known = worded(kPostgres, message);
  if (!known.isEmpty()) return known;
  if (state.startsWith(QStringLiteral("42501")))
    return QStringLiteral("utilizatorul nu are drepturile necesare pe server");
  if (state.isEmpty()) return QStringLiteral("serverul nu raspunde");
  return QStringLiteral("serverul a refuzat operatia (cod %1)").arg(state);
}

}  // namespace velmar
