// The facts of the 13 document kinds, as data: tables, numbering, checks in their order with whole sentences,
// header fields, line columns, captions. What truly differs between kinds in behaviour is in KindRules.
#pragma once

#include <QList>
#include <QStringList>
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
  PartnerEmpty,  ///< or a code that no partner has
  JournalEmpty,
  FieldEmpty,          ///< of a VAT rate also a code that is not offered
  NotNumeric,          ///< an empty text is no number; of a VAT rate also a code that is not offered
  PercentNotPositive,  ///< an empty text passes: it is stored as 0
  NotPositive,         ///< no number, or below 0
  NumberTaken,
  OtherNumberTaken,  ///< a second number that the kind of Exista in `detail` finds; may be empty
  PaletSold,
  CashPartnerMissing
};

/// A check at validation, made before the question, in the kind's order.
enum class ValidationCheck {
  NumberEmpty,
  NumberOfOrigin,  ///< the number typed is that of the document on screen
  OutsidePeriod,   ///< %1 and %2 of its text: the ends of the entry period
  DueBeforeDate,
  BeforeFiscalYear,
  CurrencyWithoutRate,  ///< or with one that is not above 0
  JournalEmpty,
  NoLines,
  TotalDiffers,       ///< the sum of the line column in `detail` is not what the header tells
  TotalDiffersGiven,  ///< as TotalDiffers, but a header that tells 0 passes
  EmptyWithTotal      ///< empty although the sum of the line column in `detail` is above 0
};

/// A check before printing, in the kind's order.
enum class PrintCheck {
  NumberEmpty,
  ReceiptPrinted,  ///< the document's fiscal receipt
  BeforeFiscalYear,
  NoLines,
  PartnerEmpty,
  NotSaved
};

template <typename Check>
struct Checked {
  Check check;
  QString text;         ///< the whole sentence shown
  QString field;        ///< column or, where none stores it, control at fault, which gets the focus
  QString detail = {};  ///< what else the check looks at
  QString title = {};   ///< of the message box
};

/// What a header field holds, which tells the control that edits it.
enum class HeaderFieldType {
  Number,
  Partner,
  Percent,
  VatRate,  ///< the code of a rate in kt_cote
  Remark,
  Date,
  DueDate,      ///< starts one month after today
  PaymentMode,  ///< typed as one of paymentWords(), stored as its position from 1
  Journal,
  Foreign,  ///< a box: the document is in foreign currency; unticked, currency and rate are cleared
  Currency,
  Rate,
  CostCentre,
  Warehouse,
  Flag,    ///< a box
  Amount,  ///< a number
  Text
};

/// The words of the ways of payment, in the order of their codes 1 to 4.
const QStringList& paymentWords();

struct HeaderField {
  HeaderFieldType type;
  QString column;   ///< empty for what no draft stores
  QString control;  ///< known name of its control
  QString caption;
  QString toolTip;
  QString list = {};     ///< known name of the list that fills the control
  QString initial = {};  ///< what a new document starts with, as typed
  int longest = 0;       ///< characters; 0: as its column allows
  bool keeps = false;    ///< a new document goes on with what stood for the one before

  /// What its text goes by among the typed ones. The text of a ticked box is "-1".
  const QString& key() const { return column.isEmpty() ? control : column; }
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

constexpr int kAsTyped = -1;          ///< of roundTo
constexpr int kSessionDecimals = -2;  ///< the company's decimals of prices and values

/// The number of decimals meant, kSessionDecimals resolved for the open company.
int decimalsOf(int told);

struct LineColumn {
  QString field;
  QString caption;
  LineEntry entry = LineEntry::Locked;
  int shownDecimals = -1;  ///< -1: not a number; may be kSessionDecimals
  int roundTo = kAsTyped;  ///< decimals a typed number is rounded to; may be kSessionDecimals
  int width = 10;          ///< characters
  bool visible = true;
  QStringList product = {};  ///< of a column that is not stored: the columns whose product it shows
};

/// Columns that the line check before validation looks at.
struct LineCheckColumns {
  QString price = QStringLiteral("PRETFT");
  QString salePrice;  ///< empty: no notice about the sale price
  QString netPrice;   ///< the price after discounts; empty: the kind has none
};

/// The fiscal receipt of a kind. From the moment its sending begins its document stands as it was sent.
struct FiscalReceipt {
  QString printed;     ///< column of the header's table: it was printed; empty: the kind has no receipt
  QString sending;     ///< column: which attempt to print it has begun and not come to an end; 0: none
  QStringList frozen;  ///< further columns of the header that stand with the lines
  // Why the document can be printed no more, deleted no more, or changed no more.
  QString printedText, notDeletable, notChangeable;
  QString unknownText;  ///< the same while nobody knows whether it was printed

  bool exists() const { return !printed.isEmpty(); }
};

/// What a user reads, per kind.
struct KindTexts {
  QString title;
  QString draftsCaption;
  QString newTip, saveTip, validateTip, deleteTip, printTip;  ///< empty: there is no such command
  QString saveFirst;                                          ///< lines typed before the header is saved
  QString confirmValidation;  ///< %1: the number; of a storno %1 the invoice's, %2 its own; empty: not asked
  QString validated;          ///< after success
  QString nothingToDelete;
  QString confirmDeletion;  ///< %1: the number
  QString validatedTitle = QStringLiteral("Confirmare salvare");
  QString validatedFromNotes;  ///< instead of `validated`, for an invoice made of delivery notes
  QString rateMissing;         ///< notice when a header in currency %1 is saved without a rate; empty: none
  QString unknownArticle = QStringLiteral("Articolul cu codul intern %1 nu exista ");
  // What is shown when validation fails: %1 the error's number, %2 its text, %3 the line; and the titles.
  QString ledgerFailure = QStringLiteral("%1 - %2 Linia: %3");
  QString ledgerFailureTitle = QStringLiteral("Salvare in Documente");
  QString stockFailure = QStringLiteral("%1 - %2 Linia: %3");
  QString stockFailureTitle = QStringLiteral("Functia SalvareStocArticole");
  QString postingFailure = QStringLiteral("%1 - %2 Linia: %3");
  QString postingFailureTitle = QStringLiteral("Functia SalvareStocArticole");
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
  bool oldestFirst = false;  ///< order of the list of drafts
  QStringList draftColumns;  ///< of the list of drafts, behind number, date and partner's name
  LineCheckColumns lineCheck;
  bool distinctArticles = true;  ///< an article stands on one line alone
  FiscalReceipt receipt;
  std::vector<Checked<HeaderCheck>> headerChecks;
  std::vector<Checked<ValidationCheck>> validationChecks;
  std::vector<Checked<PrintCheck>> printChecks;
  QList<HeaderField> headerFields;
  QList<LineColumn> lineColumns;
  KindTexts texts;
};

/// All 13 kinds.
const std::vector<DocumentKind>& documentKinds();

/// The kind with that prefix in any case. Throws StoreError when there is none.
const DocumentKind& documentKind(const QString& prefix);

}  // namespace velmar
