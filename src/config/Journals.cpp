#include "config/Journals.h"

#include "config/Accounts.h"
#include "config/Checks.h"
#include "store/Database.h"
#include "store/Records.h"
#include "util/Messages.h"
#include "util/NumberText.h"

namespace velmar {

const QStringList kJournalKinds = {"B (Banca)", "C (Cumparari)", "D (Diverse)",
                                   "R (Casa)",  "V (Vanzari)",   "I(Import)"};

const QStringList kVatRegimes = {" -",
                                 "C-Bunuri de capital taxabile-1",
                                 "C-Bunuri destinate revanzarii taxabile-2",
                                 "C-Bunuri pt. nevoile firmei taxabile-3",
                                 "C-Bunuri scutite-4",
                                 "C-Intracomunitare destinate revanzarii taxabile-5",
                                 "C-Intracomunitare destinate revanzarii scutite-6",
                                 "C-Intracomunitare destinate revanzarii neimpozabile-7",
                                 "C-Intracomunitare pt. nevoile firmei taxabile-8",
                                 "C-Intracomunitare pt. nevoile firmeii scutite-9",
                                 "C-Intracomunitare pt. nevoile firmei neimpozabile-10",
                                 "C-Bunuri taxabile obligatoriu-11",
                                 "V-Bunuri taxabile-12",
                                 "V-Bunuri taxabile cu taxa inversa-13",
                                 "V-Bunuri livrate in afara Romaniei cu drept de deducere-14",
                                 "V-Bunuri livrate in afara Romaniei fara drept de deducere-15",
                                 "V-Bunuri livrate in UE scutite (143/a,d)-16",
                                 "V-Bunuri livrate in UE scutite (143/b,c)-17",
                                 "V-Bunuri livrate in UE cu drept de deducere-18",
                                 "V-Bunuri scutite cu drept de deducere-19",
                                 "V-Operatiuni neimpozabile-20",
                                 "O-Casa-21"};

namespace {

const Table& journals() { return companyTable("kt_jur"); }

QString requiredTitle(const QString& typed) {
  const QString title = typed.trimmed();
  if (title.isEmpty()) throw RuleError(QStringLiteral("Va rugam completati titlul  !"), "TITLU");
  return title;
}

bool regimeFits(qint64 regime, const QString& kind) {
  if (regime < 0 || regime >= kVatRegimes.size()) return false;
  const QChar letter = kVatRegimes[regime][0];
  return (letter == u'C' && kind == QStringLiteral("C")) || (letter == u'V' && kind == QStringLiteral("V")) ||
         (letter == u'O' && kind == QStringLiteral("R"));
}

// A receipt number, or null for an empty cell.
Value receiptNumber(const QString& typed) {
  constexpr qint64 kHighest = 2'000'000'000;
  if (typed.trimmed().isEmpty()) return {};
  const auto number = parseNumber(typed);
  if (!number || Round(*number, 0) != *number || *number > Decimal(kHighest) || *number < Decimal(0))
    throw RuleError(QStringLiteral("Va rog introduceti o valoare numerica!"), {}, kInformation);
  return number->toString().toLongLong();
}

void requireRange(const Row& journal, const QString& column, const Value& value) {
  Row changed = journal;
  changed.set(column, value);
  if (changed.isNull("NrInceput") || changed.isNull("NrSfarsit")) return;
  if (changed.integer("NrInceput") >= changed.integer("NrSfarsit"))
    throw RuleError(QStringLiteral("Nr de la trebuie sa fie mai mic decat Nr pana la"));
}

}  // namespace

void addJournal(const Row& journal) {
  Row row = rowOf({"COD", "TITLU", "CONT", "TIP", "FEL"}, journal);
  const QString code = journal.text("COD").trimmed();
  if (code.isEmpty()) throw RuleError(QStringLiteral("Va rugam completati codul jurnalului  !"), "COD");
  row.set("COD", code);
  row.set("TITLU", requiredTitle(journal.text("TITLU")));
  const QString account = journal.text("CONT");
  if (account.isEmpty()) throw RuleError(QStringLiteral("Va rugam selectati un cont"), "CONT");
  Transaction transaction(database());
  if (Exista(code, "CodJurnal"))
    throw RuleError(QStringLiteral("Acest cod de jurnal exista deja ! Adaugarea nu se poate efectua !"),
                    "COD");
  if (const QString text = shortAccountObjection(account); !text.isEmpty()) throw RuleError(text, "CONT");
  requireKnownCode(row, "CONT", "Cont");
  insertRecord(journals(), row);
  transaction.commit();
}

void changeJournal(const QString& code, const Row& journal) {
  const QString kind = journal.text("TIP");
  QStringList columns = {"COD", "TITLU", "TIP"};
  if (!journal.text("CONT").isEmpty()) columns.append("CONT");
  if (!journal.isNull("FEL") && regimeFits(journal.integer("FEL"), kind)) columns.append("FEL");
  Row row = rowOf(columns, journal);
  row.set("COD", code);
  row.set("TITLU", requiredTitle(journal.text("TITLU")));
  requireKnownCode(row, "CONT", "Cont", record(journals(), code));
  if (!updateRecord(journals(), row)) throw gone();
}

void changeJournalField(const Row& journal, const QString& column, const QString& typed) {
  Value value = typed.trimmed();
  if (column == QStringLiteral("TITLU")) value = requiredTitle(typed);
  if (column == QStringLiteral("CONT") && typed.trimmed().size() < kShortestAccount)
    throw RuleError(QStringLiteral("Introduceti un cont format din minim 3 caractere !"));
  if (column == QStringLiteral("CONT"))
    if (const QString text = unknownCodeObjection(typed, "Cont"); !text.isEmpty()) throw RuleError(text);
  if (column == QStringLiteral("NrInceput") || column == QStringLiteral("NrSfarsit")) {
    value = receiptNumber(typed);
    requireRange(journal, column, value);
  }
  updateField(journals(), journal.text("COD"), column, value);
}

void removeJournal(const QString& code) {
  Transaction transaction(database());
  if (Exista(code, "JurnalLinii"))
    throw RuleError(QStringLiteral("Jurnalul nu se poate sterge deoarece este utilizat in Inregistrari !"));
  deleteRecord(journals(), code);
  transaction.commit();
}

}  // namespace velmar
