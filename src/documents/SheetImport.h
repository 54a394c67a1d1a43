// Spreadsheets of suppliers: the lines of an invoice with the articles that the catalogue lacks, and the
// count of an import lot compared with its invoices.
#pragma once

#include <optional>
#include <QStringList>

#include "documents/DocumentKind.h"
#include "util/Progress.h"

namespace velmar {

/// Sentences on rows that were left out, the first 20 and how many more; empty when there are none.
QString leftOutText(const QStringList& sentences);

/// What the user chose for the lines of an invoice.
struct LineImport {
  KindId kind = KindId::SupplierInvoice;  ///< or ImportInvoice
  QString number;                         ///< of the draft
  qint64 supplier = 0;
  bool isForeign = false;       ///< prices are in the currency
  QString currency;             ///< empty: none
  std::optional<Decimal> rate;  ///< lei for one unit
  QString family;               ///< code; empty: none chosen
  QString pallet;
  bool codeIsSuppliers = false;  ///< a new article gets the supplier's code
  bool familyFromFile = false;   ///< CODI and FAM are in the file
};

/// Reads the file and writes lines and new articles in one transaction, the lines behind those that the draft
/// has. A row without a quantity makes its article and no line. Amounts are not rounded. Returns sentences on
/// the rows left out. Throws RuleError, naming the field at fault (CURS, FAMILIE), when the file or the
/// choice does not serve, and Cancelled; nothing is then written.
QStringList importLines(const LineImport& choice, const QString& path, const Progress& progress = {});

/// The count of a lot, compared with the validated documents whose remark begins with its text.
struct LotCount {
  QString note;  ///< number of the receipt note, a draft without lines
  QString lot;
  bool ofSurpluses = true;  ///< else of shortages
};

struct LotResult {
  bool isCompared = false;  ///< false: no article is both counted and invoiced
  QStringList leftOut;
};

/// Reads the count, writes the differences as lines of the note and its remark, in one transaction. Throws
/// RuleError (field LOT without a lot); nothing is then written.
LotResult importLot(const LotCount& count, const QString& path);

}  // namespace velmar
