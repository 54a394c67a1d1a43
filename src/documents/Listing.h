// Document printing without the screen: what each kind's listing form offers, what it reads, and the
// variables and fields that its layout is given.
#pragma once

#include <QHash>

#include "reports/ReportData.h"

namespace velmar {

/// A box of a listing form, whose text becomes a variable.
struct ListingBox {
  const char* variable;
  const char* control;  ///< its name on the form
  const char* caption;
};

/// The box that holds a date; all others hold texts.
inline constexpr const char* kDispatchDate = "DataExp";

/// The facts of a listing form.
struct ListingKind {
  QString prefix;  ///< of the document kind
  QString form;    ///< class name told of it
  QString caption;
  QString project;             ///< file name of its layout
  QString preprinted = {};     ///< of the layout for a pre-printed form; empty: no such choice
  bool offersReceipt = false;  ///< CheckChitanta
  bool offersCurrency = false;
  bool tellsSum = false;         ///< total in figures and words, and the series of invoices
  bool choosesTarget = false;    ///< "Listare" first prints where the user chooses, then shows the preview
  QList<ListingBox> boxes = {};  ///< of the delegate's frame
  QString headerSql = {};        ///< the one row of the document with that number
  QString linesSql = {};         ///< its lines with that number
  QStringList partner = {};      ///< columns of kt_ter, as variables
};

/// The listing form of the documents of that kind. Throws StoreError when there is none yet.
const ListingKind& listingKind(const QString& prefix);

/// A stored document on its way to paper.
struct ListedDocument {
  Recordset header;  ///< one row; without a currency it tells "ROL", without a rate 0
  Recordset lines;
  Recordset partner;                         ///< empty when the partner's card is missing
  Decimal total;                             ///< with VAT, in the document's currency
  QString currency = QStringLiteral("ROL");  ///< code
};

/// Reads the document. Throws RuleError when there is none of that number.
ListedDocument readListed(const ListingKind& kind, const QString& number);

/// What a user is told, one message after the other, when the partner's card is missing.
QStringList missingPartnerTexts(const ListingKind& kind);

/// What the user chose in the listing form.
struct ListingOptions {
  bool receipt = false;
  bool foreign = false;            ///< amounts in the document's currency
  bool preprinted = false;         ///< only the values, for a form with the lines on it
  QHash<QString, QVariant> boxes;  ///< by variable
};

/// What the layout is given.
ReportData listingData(const ListingKind& kind, const ListedDocument& document,
                       const ListingOptions& options);

/// The path of the layout.
QString listingFile(const ListingKind& kind, const ListingOptions& options);

}  // namespace velmar
