// The facts of the 13 document kinds, as data: tables, numbering, checks in their order with whole sentences,
// header fields, line columns, captions. What truly differs between kinds in behaviour is in KindRules.
#pragma once

#include <QList>
#include <QString>
#include <vector>

namespace velmar {

enum class Numbering {
  Typed,         ///< the user types it
  InvoiceRange,  ///< inside the company's range of invoices; drafts and ledger are looked at
  NoteRange,     ///< inside the company's range of delivery notes; drafts alone are looked at
  Continuous     ///< the next one after drafts and ledger, without a range
};

/// A check of the header, made at saving in the kind's order. All refuse with a text of their own.
enum class HeaderCheck {
  NumberEmpty,
  PartnerEmpty,
  JournalEmpty,
  RateNotNumeric,
  PercentNotPositive,
  NumberTaken
};

/// A check at validation, made before the question, in the kind's order.
enum class ValidationCheck {
  NumberEmpty,
  DueBeforeDate,
  BeforeFiscalYear,
  CurrencyWithoutRate,
  JournalEmpty,
  NoLines
};

template <typename Check>
struct Checked {
  Check check;
  QString text;   ///< the whole sentence shown
  QString field;  ///< column at fault, which gets the focus
};

/// What a header field holds, which tells the control that edits it.
enum class HeaderFieldType { Number, Partner, Percent, VatRate, Remark, Date, DueDate };

struct HeaderField {
  HeaderFieldType type;
  QString column;
  QString control;  ///< known name of its control
  QString caption;
  QString toolTip;
};

/// How a line's cell is entered.
enum class LineEntry {
  Locked,
  Code,             ///< the article's code
  Name,             ///< picked from the list of articles while the code is empty
  Number,           ///< any number
  PositiveNumber,   ///< a number not below 0
  OptionalPositive  ///< as PositiveNumber, or empty
};

struct LineColumn {
  QString field;
  QString caption;
  LineEntry entry = LineEntry::Locked;
  int shownDecimals = -1;  ///< -1: not a number
  int roundTo = -1;        ///< decimals a typed number is rounded to; -1: kept as typed
  int width = 10;          ///< characters
  bool visible = true;
};

/// Columns that the line check before validation looks at.
struct LineCheckColumns {
  QString price = QStringLiteral("PRETFT");
  QString salePrice;  ///< empty: no notice about the sale price
};

/// What a user reads, per kind.
struct KindTexts {
  QString title;
  QString draftsCaption;
  QString newTip, saveTip, validateTip, deleteTip, printTip;
  QString saveFirst;          ///< lines typed before the header is saved
  QString confirmValidation;  ///< %1: the number
  QString validated;          ///< after success
  QString nothingToDelete;
  QString confirmDeletion;  ///< %1: the number
};

struct DocumentKind {
  QString prefix;  ///< value of G_DOCUME.TIP
  QString name;    ///< in English, for developers
  QString window;  ///< class of its window
  QString headerTable, lineTable;
  QString numberColumn;
  QString dateColumn;
  QString partnerColumn;  ///< empty for a transfer
  QString remarkColumn;
  QString tipie;  ///< "I", "E" or empty; what differs by content is the rules' affair
  bool movesStock = true;
  bool posts = true;
  Numbering numbering = Numbering::Typed;
  QString existsKind;  ///< kind of Exista that finds its number
  bool partnersAreSuppliers = false;
  LineCheckColumns lineCheck;
  std::vector<Checked<HeaderCheck>> headerChecks;
  std::vector<Checked<ValidationCheck>> validationChecks;
  QList<HeaderField> headerFields;
  QList<LineColumn> lineColumns;
  KindTexts texts;
};

/// All 13 kinds.
const std::vector<DocumentKind>& documentKinds();

/// The kind with that prefix in any case. Throws StoreError when there is none.
const DocumentKind& documentKind(const QString& prefix);

}  // namespace velmar
