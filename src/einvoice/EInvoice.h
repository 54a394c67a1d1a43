// An electronic invoice: what its file says, and what is wrong with it.
#pragma once

#include <optional>
#include <QDate>
#include <QStringList>
#include <vector>

#include "util/Decimal.h"

namespace velmar {

struct EParty {
  QString name;
  QString street, town, postCode;
  QString county;   ///< "RO-BH"; of another country any text
  QString country;  ///< two letters
  QString vatId;    ///< with the prefix of its country; empty: pays no VAT
  QString legalId;
  QString legalForm;
};

/// The VAT of the document, which has one rate.
struct ECategory {
  QString id;                      ///< "S", "Z", "E", "AE", "K", "G", "O"
  std::optional<Decimal> percent;  ///< none for "O"
  QString reasonCode, reason;      ///< of an exemption
};

struct ELine {
  QString name;
  QString code;        ///< of the seller
  QString ean;         ///< 13 digits; empty: none
  Decimal quantity;    ///< negative for goods that come back
  QString unit;        ///< code of recommendation 20
  Decimal value;       ///< without VAT, 2 decimals
  Decimal price;       ///< of a unit, without VAT, not negative
  Decimal grossPrice;  ///< before the discount; not below `price`
};

struct EInvoice {
  bool isCreditNote = false;  ///< all amounts are those of the note, positive for what the seller owes
  QString number;
  QDate date, due;
  QStringList notes;
  QString currency;  ///< three letters
  QString precedingNumber;
  QDate precedingDate;
  bool isVatOnCollection = false;
  EParty seller, buyer;
  QString deliveryStreet, deliveryTown, deliveryCounty, deliveryCountry;  ///< of "K"
  QString paymentCode;                                                    ///< empty: not stated
  QString iban;
  ECategory category;
  std::vector<ELine> lines;
  Decimal base, vat;                ///< in the currency, 2 decimals
  std::optional<Decimal> vatInLei;  ///< of an invoice in another currency
  Decimal rounding;                 ///< what the books have beyond 2 decimals

  Decimal payable() const { return base + vat + rounding; }
};

/// What keeps a file from being made, and the way to mend it.
struct EFault {
  QString rule;    ///< of the official rules; empty: our own
  QString text;    ///< in Romanian
  QString window;  ///< as the menu opens it
  QString key;     ///< of the record there
  QString field;   ///< control
};

/// The file in UBL 2.1, UTF-8. Characters that XML forbids are left out.
QByteArray eInvoiceXml(const EInvoice& invoice);

/// Everything that the rules of the state's system would refuse, and some that it would not notice.
std::vector<EFault> faultsOf(const EInvoice& invoice);

}  // namespace velmar
