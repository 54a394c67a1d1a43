#include "config/FiscalYears.h"

#include "config/Parameters.h"
#include "util/Errors.h"

namespace velmar {

namespace {

struct Dates {
  QDate start, end;              // year N
  QDate nextStart, nextEnd;      // year N+1
  QDate periodStart, periodEnd;  // entry period

  explicit Dates(const Row& row)
      : start(row.date("DATAIN")),
        end(row.date("DATASN")),
        nextStart(row.date("DATAIN1")),
        nextEnd(row.date("DATASN1")),
        periodStart(row.date("DATAIC")),
        periodEnd(row.date("DATASC")) {}

  bool isOutside(const QDate& date) const { return date < start || date > nextEnd; }
};

struct DateRule {
  QString column;
  bool (*isBroken)(const Dates&);
  QString message;
};

const DateRule kSavingRules[] = {
    {"DATAIN", [](const Dates& d) { return d.start > d.end; },
     "Data de inceput a exercitiului trebuie sa fie mai mica decat data de sfarsit ! Salvarea nu se poate "
     "efectua !"},
    {"DATAIN1", [](const Dates& d) { return d.nextStart <= d.end; },
     "Data de inceput a exercitiului N+1 trebuie sa fie mai mare decat data de sfarsit a exercitiului N ! "
     "Salvarea nu se poate efectua !"},
    {"DATAIN1", [](const Dates& d) { return d.nextStart > d.nextEnd; },
     "Data de inceput a exercitiului N+1 trebuie sa fie mai mica decat data de sfarsit ! Salvarea nu se "
     "poate "
     "efectua !"},
    {"DATAIC", [](const Dates& d) { return d.periodStart > d.periodEnd; },
     "Data de inceput a perioadei de culegere trebuie sa fie mai mica decat data de sfarsit ! Salvarea nu se "
     "poate efectua !"},
    {"DATAIC", [](const Dates& d) { return d.isOutside(d.periodStart); },
     "Perioada de culegere trebuie sa fie cuprinsa in exercitiul N,N+1 ! Salvarea nu se poate efectua !"},
    {"DATASC", [](const Dates& d) { return d.isOutside(d.periodEnd); },
     "Perioada de culegere trebuie sa fie cuprinsa in exercitiul N, N+1 ! Salvarea nu se poate efectua !"},
    {"DATAIN1", [](const Dates& d) { return d.end.daysTo(d.nextStart) > 1; },
     "Data de inceput a exercitiului N+1 trebuie sa fie ziua urmatoare datei de sfarsit a exercitiului N ! "
     "Salvarea nu se poate efectua !"}};

const DateRule kWarnings[] = {
    {"DATAIN", [](const Dates& d) { return d.start > d.end; },
     "Data de inceput a exercitiului trebuie sa fie mai mica decat data de sfarsit!"},
    {"DATASN", [](const Dates& d) { return d.end < d.start; },
     "Data de sfarsit a exercitiului trebuie sa fie mai mare decat data de inceput!"},
    {"DATAIN1", [](const Dates& d) { return d.nextStart <= d.end; },
     "Data de inceput a exercitiului N+1 trebuie sa fie mai mare decat data de sfarsit a exercitiului N!"},
    {"DATAIN1", [](const Dates& d) { return d.nextStart > d.nextEnd; },
     "Data de inceput trebuie sa fie mai mica decat data de sfarsit!"},
    {"DATASN1", [](const Dates& d) { return d.nextEnd < d.nextStart; },
     "Data de sfarsit trebuie sa fie mai mare decat data de inceput!"},
    {"DATAIC", [](const Dates& d) { return d.periodStart > d.periodEnd; },
     "Data de inceput trebuie sa fie mai mica decat data de sfarsit!"},
    {"DATAIC", [](const Dates& d) { return d.isOutside(d.periodStart); },
     "Perioada de culegere trebuie sa fie cuprinsa in exercitiul N,N+1!"},
    {"DATASC", [](const Dates& d) { return d.periodEnd < d.periodStart; },
     "Data de sfarsit trebuie sa fie mai mare decat data de inceput!"},
    {"DATASC", [](const Dates& d) { return d.isOutside(d.periodEnd); },
     "Perioada de culegere trebuie sa fie cuprinsa in exercitiul N ,N+1!"}};

}  // namespace

void saveFiscalYears(const Row& row) {
  const Dates dates(row);
  for (const DateRule& rule : kSavingRules)
    if (rule.isBroken(dates)) throw RuleError(rule.message, rule.column, 0, QStringLiteral("Validare"));
  writeOnlyRecord(QStringLiteral("kt_par"), row);
}

QString fiscalYearWarning(const Row& row, const QString& column) {
  const Dates dates(row);
  for (const DateRule& rule : kWarnings)
    if (rule.column == column && rule.isBroken(dates)) return rule.message;
  return {};
}

}  // namespace velmar
