#include "config/Accounts.h"

#include "config/Checks.h"
#include "store/Database.h"
#include "store/Records.h"
#include "util/Messages.h"

namespace velmar {

namespace {

const Table& accounts() { return companyTable("kt_pc"); }

QString requiredTitle(const QString& typed) {
  const QString title = typed.trimmed();
  if (title.isEmpty()) throw RuleError(QStringLiteral("Va rugam completati titlul contului !"), "TITLU");
  return title;
}

struct Turnover {
  Decimal debit, credit;
};

// By symbol in upper case, for the accounts and for all groups above them.
QHash<QString, Turnover> turnovers(const QDate& upTo) {
  QHash<QString, Turnover> sums;
  // The rounding removes the error of the floating-point sum before the decimal sums begin.
  for (const Row& posted : OpenRs("SELECT L.CONT AS CONT, ROUND_EVEN(SUM(COALESCE(L.DEBIT, 0)), 6) AS DEBIT, "
                                  "ROUND_EVEN(SUM(COALESCE(L.CREDIT, 0)), 6) AS CREDIT FROM kt_linii L "
                                  "WHERE L.DATAINR <= ? AND L.CONT IN (SELECT P.CONT FROM kt_pc P) "
                                  "GROUP BY L.CONT ORDER BY L.CONT",
                                  {upTo})) {
    const QString symbol = posted.text("CONT").toUpper();
    for (qsizetype length = 1; length <= symbol.size(); ++length) {
      Turnover& sum = sums[symbol.left(length)];
      sum.debit += posted.decimal("DEBIT");
      sum.credit += posted.decimal("CREDIT");
    }
  }
  return sums;
}

}  // namespace

QString shortAccountObjection(const QString& account) {
  return account.size() < kShortestAccount
             ? QStringLiteral("Va rugam selectati un cont corespunzator (minim 3 caractere) !")
             : QString();
}

QString addAccount(const Row& account) {
  if (account.text("CONT").contains(QLatin1Char('-')))
    throw RuleError(QStringLiteral("Simbol cont nu poate contine cratima "), "CONT", kExclamation);
  const QString symbol = account.text("CONT").trimmed();
  if (symbol.isEmpty()) throw RuleError(QStringLiteral("Va rugam completati un numar de cont !"), "CONT");
  Row row = rowOf("CONT TITLU DEBITN CREDITN CODBUG");
  row.set("CONT", symbol);
  row.set("TITLU", requiredTitle(account.text("TITLU")));
  row.set("DEBITN", 0);
  row.set("CREDITN", 0);
  row.set("CODBUG", account.text("CODBUG").trimmed());
  requireKnownCode(row, "CODBUG", "CodCentruCost");
  Transaction transaction(database());
  if (Exista(symbol, "Cont"))
    throw RuleError(QStringLiteral("Acest numar de cont exista deja ! Adaugarea nu se poate efectua !"),
                    "CONT");
  insertRecord(accounts(), row);
  transaction.commit();
  return symbol;
}

void changeAccount(const QString& symbol, const QString& column, const QString& typed) {
  Value value = typed.trimmed();
  if (column == QStringLiteral("TITLU")) value = requiredTitle(typed);
  if (column == QStringLiteral("CODBUG"))
    if (const QString text = unknownCodeObjection(typed, "CodCentruCost"); !text.isEmpty())
      throw RuleError(text);
  if (column == QStringLiteral("NeUtilizabil")) value = typedFlag(typed);
  updateField(accounts(), symbol, column, value);
}

void removeAccount(const QString& symbol) {
  Transaction transaction(database());
  if (Exista(symbol, "ContLinii"))
    throw RuleError(QStringLiteral("Contul nu se poate sterge deoarece este utilizat in Inregistrari !"));
  if (Exista(symbol, "ContJurnale"))
    throw RuleError(QStringLiteral("Contul nu se poate sterge deoarece este utilizat in Jurnale !"));
  if (symbol.size() < kShortestAccount)
    throw RuleError(QStringLiteral("Clasele si subclasele nu se pot sterge!"));
  deleteRecord(accounts(), symbol);
  transaction.commit();
}

void storeTurnovers(const QDate& upTo) {
  Transaction transaction(database());
  const QHash<QString, Turnover> sums = turnovers(upTo);
  std::vector<Values> figures;
  for (const Row& account : OpenRs("SELECT CONT FROM kt_pc ORDER BY CONT")) {
    const Turnover sum = sums.value(account.text("CONT").toUpper());
    const Decimal debit = Round(sum.debit, 2);
    const Decimal credit = Round(sum.credit, 2);
    figures.push_back({debit, credit, debit - credit, account.text("CONT")});
  }
  database().executeEach("UPDATE kt_pc SET DEBITN = ?, CREDITN = ?, SOLDN = ? WHERE CONT = ?", figures);
  transaction.commit();
}

}  // namespace velmar
