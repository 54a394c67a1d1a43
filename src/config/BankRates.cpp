#include "config/BankRates.h"

#include <map>
#include <QHash>
#include <QSet>

#include "store/Database.h"
#include "util/Errors.h"
#include "util/WorkingDays.h"
#include "util/XmlText.h"

namespace velmar {

namespace {

constexpr int kLongestGap = 366;  // days between two days of the file
constexpr int kFirstYear = 1990, kLastYear = 2099;

RuleError refused(const QString& why) {
  return RuleError(QStringLiteral("Fisierul nu se poate citi: %1").arg(why));
}

Decimal positive(const QString& text, const QString& currency, int line) {
  const auto number = Decimal::parse(text.trimmed());
  if (!number || !(*number > 0))
    throw refused(QStringLiteral("cursul valutei %1, linia %2: \"%3\" nu este un curs")
                      .arg(currency)
                      .arg(line)
                      .arg(text.left(20)));
  return *number;
}

using Cube = QHash<QString, Decimal>;  // lei for one unit, by currency

// What the file says about other currencies does not matter.
std::map<QDate, Cube> cubesOf(const XmlText& xml, const QSet<QString>& currencies) {
  const auto body = xml.find(QStringLiteral("DataSet/Body"));
  if (!body || xml.text(*body, QStringLiteral("OrigCurrency")) != QStringLiteral("RON"))
    throw refused(QStringLiteral("cursurile nu sunt in lei"));
  std::map<QDate, Cube> cubes;
  for (const int element : xml.children(*body)) {
    if (xml.name(element) != QStringLiteral("Cube")) continue;
    const QDate date = QDate::fromString(xml.attribute(element, QStringLiteral("date")), Qt::ISODate);
    if (!date.isValid() || date.year() < kFirstYear || date.year() > kLastYear)
      throw refused(QStringLiteral("data unui curs nu este corecta"));
    Cube& cube = cubes[date];
    for (const int rate : xml.children(element)) {
      const QString currency = xml.attribute(rate, QStringLiteral("currency")).toUpper();
      if (!currencies.contains(currency)) continue;
      const QString multiplier = xml.attribute(rate, QStringLiteral("multiplier"));
      const int line = xml.line(rate);
      cube[currency] = positive(xml.text(rate), currency, line) /
                       (multiplier.isEmpty() ? Decimal(1) : positive(multiplier, currency, line));
    }
  }
  if (cubes.empty()) throw refused(QStringLiteral("nu are cursuri"));
  return cubes;
}

}  // namespace

std::vector<BankRate> bankRates(const QByteArray& file, const QStringList& currencies, bool fromItsDay) {
  const XmlText xml(file, XmlText::Names::Local);
  const QString space = xml.rootNamespace();
  if (xml.root() != QStringLiteral("DataSet") ||
      (space != QStringLiteral("http://www.bnr.ro/xsd") && space != QStringLiteral("https://www.bnr.ro/xsd")))
    throw refused(QStringLiteral("nu este fisierul de cursuri al bancii nationale"));
  QSet<QString> used;
  for (const QString& currency : currencies) used.insert(currency.toUpper());
  const std::map<QDate, Cube> cubes = cubesOf(xml, used);
  std::vector<BankRate> rates;
  for (auto cube = cubes.begin(); cube != cubes.end(); ++cube) {
    const auto next = std::next(cube);
    const QDate until = next == cubes.end() ? workingDaysAfter(cube->first, 1) : next->first;
    if (cube->first.daysTo(until) > kLongestGap) throw refused(QStringLiteral("lipsesc zile"));
    const int shift = fromItsDay ? 0 : 1;
    for (QDate day = cube->first.addDays(shift); day < until.addDays(shift); day = day.addDays(1))
      for (const QString& currency : currencies)
        if (const auto rate = cube->second.constFind(currency.toUpper()); rate != cube->second.constEnd())
          rates.push_back({currency, day, *rate});
  }
  if (rates.empty()) throw refused(QStringLiteral("nu are cursuri pentru valutele societatii"));
  return rates;
}

RateComparison compareRates(const std::vector<BankRate>& rates) {
  RateComparison comparison;
  if (rates.empty()) return comparison;
  struct Stored {
    Decimal rate;
    qint64 id;
  };
  QMultiHash<std::pair<QString, QDate>, Stored> stored;  // one a day, but old companies may have several
  for (const Row& row :
       OpenRs("SELECT ID, COD, DATA, CURS FROM kt_val2 WHERE DATA BETWEEN ? AND ? ORDER BY ID",
              {rates.front().date, rates.back().date}))
    stored.insert({row.text("COD"), row.date("DATA")}, {row.decimal("CURS"), row.integer("ID")});
  for (const BankRate& rate : rates) {
    const auto ofDay = stored.values({rate.currency, rate.date});
    if (ofDay.isEmpty()) comparison.missing.push_back(rate);
    for (const Stored& known : ofDay)
      if (known.rate != Decimal::fromDouble(rate.rate.toDouble()))
        comparison.different.push_back({rate, known.rate, known.id});
  }
  return comparison;
}

int storeRates(const std::vector<BankRate>& rates, bool alsoDifferent) {
  Transaction transaction(database());
  const RateComparison comparison = compareRates(rates);
  std::vector<Values> added, changed;
  for (const BankRate& rate : comparison.missing) added.push_back({rate.currency, rate.date, rate.rate});
  if (alsoDifferent)
    for (const auto& each : comparison.different) changed.push_back({each.rate.rate, each.id});
  if (!added.empty()) database().insertRows("kt_val2", {"COD", "DATA", "CURS"}, added);
  if (!changed.empty()) database().executeEach("UPDATE kt_val2 SET CURS = ? WHERE ID = ?", changed);
  transaction.commit();
  return static_cast<int>(added.size() + changed.size());
}

}  // namespace velmar
