// Exchange rates from the file of the national bank, of one day or many.
#pragma once

#include <QByteArray>
#include <QDate>
#include <vector>

#include "util/Decimal.h"

namespace velmar {

struct BankRate {
  QString currency;
  QDate date;    ///< on which it holds
  Decimal rate;  ///< lei for one unit
};

/// The rates of the file for these currencies, one for each day on which they hold: from the day after the
/// bank's day up to the bank's next day in the file, the last ones up to the next working day; or, with
/// `fromItsDay`, from the bank's day up to the day before these. Throws RuleError for a file that is not the
/// bank's, and for a rate of these currencies that is no positive number, with its line.
std::vector<BankRate> bankRates(const QByteArray& file, const QStringList& currencies, bool fromItsDay);

/// The rates compared with those of the company.
struct RateComparison {
  std::vector<BankRate> missing;
  struct Difference {
    BankRate rate;
    Decimal stored;
    qint64 id = 0;
  };
  std::vector<Difference> different;
};
RateComparison compareRates(const std::vector<BankRate>& rates);

/// Stores the missing rates, and the different ones if asked, in one transaction. Returns how many.
int storeRates(const std::vector<BankRate>& rates, bool alsoDifferent);

}  // namespace velmar
