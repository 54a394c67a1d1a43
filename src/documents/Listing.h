// Document printing: the data that a kind's listing form reads, and the variables and fields of its layout.
#pragma once

#include <QHash>

#include "documents/ListingKind.h"
#include "reports/ReportData.h"

namespace velmar {

/// The listing form of the documents of that kind. Throws StoreError when there is none yet.
const ListingKind& listingKind(const QString& prefix);

/// A stored document to be printed.
struct ListedDocument {
  Recordset header;  ///< one row; an empty currency is "ROL", as "LEI" is, an empty rate 0
  Recordset lines;
  Recordset partner;                         ///< empty when the partner's card is missing
  Decimal total;                             ///< with VAT, in the document's currency
  QString currency = QStringLiteral("ROL");  ///< code
};

/// Which document is printed, on which form.
struct Printout {
  const ListingKind* form = nullptr;
  QString number;                     ///< of the stored document
  bool foreign = false;               ///< it is in foreign currency
  QHash<QString, QVariant> own = {};  ///< variables that no table stores
  bool oldMoney = false;              ///< amounts are printed in lei before the denomination of 2005
};

/// The validated document with that ledger key, as it is printed again: a storno with the goods of its
/// invoice; a document from before the denomination, if the company went through it, in the money of its
/// time. Throws RuleError when it is not in the ledger, StoreError when its kind is not described.
Printout reprintOf(const QString& key);

/// The variables of a storno, which no table stores: the numbers of its invoice and of its own, and its date.
QHash<QString, QVariant> stornoVariables(const QString& invoice, const QString& storno, const QDate& date);

/// Reads the document. Throws RuleError when there is none of that number.
ListedDocument readListed(const Printout& printout);

/// The messages, shown one after the other, when the partner's card is missing.
QStringList missingPartnerTexts(const ListingKind& kind);

/// The user's choices in the listing form.
struct ListingOptions {
  bool receipt = false;
  bool foreign = false;            ///< amounts in the document's currency
  bool preprinted = false;         ///< only the values, for a pre-printed form
  QHash<QString, QVariant> boxes;  ///< by variable
  QHash<QString, QVariant> own;    ///< variables of the document that no table stores
};

/// The data for the layout.
ReportData listingData(const ListingKind& kind, const ListedDocument& document,
                       const ListingOptions& options);

/// The path of the layout.
QString listingFile(const ListingKind& kind, const ListingOptions& options);

}  // namespace velmar
