// An electronic invoice of a supplier, as its file says it.
#pragma once

#include <QDate>
#include <QStringList>
#include <vector>

#include "util/Decimal.h"

namespace velmar {

/// A rate of VAT: percentage and category ("S", "E", "AE" ...).
struct ReceivedRate {
  QString category;
  Decimal percent;
  bool operator==(const ReceivedRate& other) const = default;
};

/// A line; of a charge on the whole document too. Amounts in the currency, without VAT, negative for what the
/// supplier gives back.
struct ReceivedLine {
  QString code;  ///< of the supplier; may be empty
  QString name;
  QString unit;  ///< code of recommendation 20
  Decimal quantity;
  Decimal value;
  Decimal statedPrice;  ///< of a unit
  ReceivedRate rate;
  bool isCharge = false;
};

struct ReceivedTotal {
  ReceivedRate rate;
  Decimal base, vat;
  Decimal allowance;  ///< of the whole document, to be spread over the lines of the rate
};

struct ReceivedInvoice {
  bool isCreditNote = false;  ///< all amounts have the signs turned
  QString number;
  QDate date, due;
  QString currency;
  bool isVatOnCollection = false;
  QString precedingNumber;
  struct Party {
    QString name, fiscalCode, registration, street, town, postCode, county, country;
    bool paysVat = false;
  } supplier, buyer;
  std::vector<ReceivedLine> lines;
  std::vector<ReceivedTotal> totals;  ///< one for each rate
  Decimal base, vat;

  Decimal total() const { return base + vat; }
};

/// Reads the file. Throws RuleError with the reason for a file that is not well-formed, no invoice or credit
/// note of UBL 2.1, or incomplete, and for sums that disagree; `refused`, if given, then gets what was read
/// up to there.
ReceivedInvoice readInvoice(const QByteArray& file, ReceivedInvoice* refused = nullptr);

/// The fields of the file in its order: CAMP (path of the element or attribute), VALOARE.
std::vector<std::pair<QString, QString>> fieldsOfInvoice(const QByteArray& file);

/// A fiscal code to compare: capitals and digits without blanks and without "RO".
QString comparableCode(const QString& fiscalCode);

}  // namespace velmar
