// Document printing: the options of each kind's listing form, the data that it reads, and the variables and
// fields of its layout.
#pragma once

#include <QHash>

#include "reports/ReportData.h"

namespace velmar {

/// A box of a listing form, whose text is a variable of the report.
struct ListingBox {
  const char* variable;
  const char* control;  ///< its name on the form
  const char* caption;
};

/// The box with a date; all others contain texts.
inline constexpr const char* kDispatchDate = "DataExp";

/// The description of a listing form.
struct ListingKind {
  QString prefix;  ///< of the document kind
  QString form;    ///< class name
  QString caption;
  QString project;             ///< file name of its layout
  QString preprinted = {};     ///< of the layout for a pre-printed form; empty: no such choice
  bool offersReceipt = false;  ///< CheckChitanta
  bool offersCurrency = false;
  bool printsSum = false;  ///< total in figures and words, and the series of invoices
  bool choosesTarget =
      false;  ///< "Listare" first prints to a target chosen by the user, then shows the preview
  QList<ListingBox> boxes = {};  ///< of the delegate's frame
  QString headerSql = {};        ///< the one row of the document with that number
  QString linesSql = {};         ///< its lines with that number
  QStringList partner = {};      ///< columns of kt_ter, as variables
};

/// The listing form of the documents of that kind. Throws StoreError when there is none yet.
const ListingKind& listingKind(const QString& prefix);

/// A stored document to be printed.
struct ListedDocument {
  Recordset header;  ///< one row; the default currency is "ROL", the default rate 0
  Recordset lines;
  Recordset partner;                         ///< empty when the partner's card is missing
  Decimal total;                             ///< with VAT, in the document's currency
  QString currency = QStringLiteral("ROL");  ///< code
};

/// Reads the document. Throws RuleError when there is none of that number.
ListedDocument readListed(const ListingKind& kind, const QString& number);

/// The messages, shown one after the other, when the partner's card is missing.
QStringList missingPartnerTexts(const ListingKind& kind);

/// The user's choices in the listing form.
struct ListingOptions {
  bool receipt = false;
  bool foreign = false;            ///< amounts in the document's currency
  bool preprinted = false;         ///< only the values, for a pre-printed form
  QHash<QString, QVariant> boxes;  ///< by variable
};

/// The data for the layout.
ReportData listingData(const ListingKind& kind, const ListedDocument& document,
                       const ListingOptions& options);

/// The path of the layout.
QString listingFile(const ListingKind& kind, const ListingOptions& options);

}  // namespace velmar
