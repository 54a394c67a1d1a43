// The description of a document kind as data: identity, tables, numbering, ordered checks with their
// messages, header fields, line columns, captions, printed form. Differences in behaviour are in KindRules.
// Each kind is described in its own source in documents/kinds/.
#pragma once

#include <QList>
#include <QStringList>
#include <vector>

#include "config/Lists.h"
#include "documents/Checks.h"
#include "documents/ListingKind.h"
#include "documents/PostedSum.h"
#include "stock/LedgerKey.h"

namespace velmar {

enum class Numbering {
  Typed,         ///< the user types it
  InvoiceRange,  ///< from the company's range of invoices, after drafts and ledger
  NoteRange,     ///< from the company's range of delivery notes, after drafts only
  Continuous     ///< the next one after drafts and ledger, without a range
};

/// The type of a header field, which determines its control.
enum class HeaderFieldType {
  Number,
  Partner,
  Percent,
  VatRate,  ///< the code of a rate in kt_cote
  Remark,
  Date,
  DueDate,       ///< default: one month from today
  DeliveryDate,  ///< default: today
  PaymentMode,   ///< typed as one of paymentWords(), stored as its position from 1
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

/// The names of the payment methods, in the order of their codes 1 to 4.
const QStringList& paymentWords();

struct HeaderField {
  HeaderFieldType type;
  QString column;   ///< empty if drafts do not store it
  QString control;  ///< known name of its control
  QString caption;
  QString toolTip;
  QString list = {};       ///< known name of the list that fills the control
  QString initial = {};    ///< default of a new document, as typed
  int longest = 0;         ///< characters; 0: as its column allows
  bool keeps = false;      ///< a new document keeps the value of the previous one
  int decimals = -1;       ///< shown by a percent; -1: as typed
  bool mayBeZero = false;  ///< a rate may be 0

  /// The key of its text among the typed texts. The text of a ticked box is "-1".
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

constexpr int kNameWidth = 35;  ///< characters of an article's name in a line

constexpr int kAsTyped = -1;          ///< of roundTo
constexpr int kSessionDecimals = -2;  ///< the company's decimals of prices and values

/// The number of decimals, with kSessionDecimals resolved for the open company.
int decimalsOf(int decimals);

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

/// The columns used by the checks of the lines before validation.
struct LineCheckColumns {
  QString price = QStringLiteral("PRETFT");
  QString salePrice;  ///< empty: no notice about the sale price
  QString netPrice;   ///< the price after discounts; empty: the kind has none
};

/// The fiscal receipt of a kind. Once sending begins, the document can no longer be changed.
struct FiscalReceipt {
  QString printed;     ///< column of the header's table: it was printed; empty: the kind has no receipt
  QString sending;     ///< column: the number of the print attempt in progress; 0: none
  QStringList frozen;  ///< header columns that cannot be changed either
  // The messages when the document can no longer be printed, deleted or changed.
  QString printedText, notDeletable, notChangeable;
  QString unknownText;  ///< the message while it is unknown whether it was printed

  bool exists() const { return !printed.isEmpty(); }
};

/// The texts of a kind.
struct KindTexts {
  QString title;
  QString draftsCaption;
  QString newTip, saveTip, validateTip, deleteTip, printTip;  ///< empty: the command does not exist
  QString numberTaken;  ///< a new document has the number of another one
  QString unsaved;      ///< a document that is not stored cannot be printed
  QString saveFirst;    ///< message for lines typed before the header is saved
  QString
      confirmValidation;  ///< %1: the number (for a storno, the invoice's; %2 its own); empty: no question
  QString validated;      ///< after success
  QString nothingToDelete;
  QString confirmDeletion;  ///< %1: the number
  QString validatedTitle = QStringLiteral("Confirmare salvare");
  QString validatedFromNotes;  ///< instead of `validated`, for an invoice created from delivery notes
  QString rateMissing;         ///< notice when a header in currency %1 is saved without a rate; empty: none
  QString unknownArticle = QStringLiteral("Articolul cu codul intern %1 nu exista ");
  // The messages when validation fails (%1 the error's number, %2 its text, %3 the line) and their titles.
  QString ledgerFailure = QStringLiteral("%1 - %2 Linia: %3");
  QString ledgerFailureTitle = QStringLiteral("Salvare in Documente");
  QString stockFailure = QStringLiteral("%1 - %2 Linia: %3");
  QString stockFailureTitle = QStringLiteral("Functia SalvareStocArticole");
  QString postingFailure = QStringLiteral("%1 - %2 Linia: %3");
  QString postingFailureTitle = QStringLiteral("Functia SalvareStocArticole");
};

class KindRules;
class LineSource;

struct DocumentKind {
  KindId id;
  QString prefix;  ///< value of G_DOCUME.TIP
  QString name;    ///< in English, for developers
  QString window;  ///< name of its window
  QString headerTable, lineTable;
  QString numberColumn;
  QString dateColumn;
  QString partnerColumn;  ///< empty for a transfer
  QString remarkColumn;
  QString tipie;  ///< "I", "E" or empty; the rules decide if it depends on the document
  Numbering numbering = Numbering::Typed;
  QString existsKind;  ///< kind of Exista that finds its number
  bool partnersAreSuppliers = false;
  bool isSale = false;               ///< goods are sold or offered to a customer
  bool hasDraft = true;              ///< its header and lines are stored before it is validated
  std::vector<PostedSum> posted;     ///< what its notes must contain; stated beside the rules that make them
  bool oldestFirst = false;          ///< order of the list of drafts
  bool listsUnknownPartner = false;  ///< the list of drafts has those whose partner is unknown too
  QStringList draftColumns;          ///< of the list of drafts, after number, date and partner's name
  QString sourceColumn;  ///< of the lines: key of the order or note that a line came from; empty: none
  std::vector<const LineSource*> sources;  ///< of lines that are not typed
  LineCheckColumns lineCheck;
  FiscalReceipt receipt;
  Checks openingChecks;     ///< when its window opens
  Checks headerChecks;      ///< before the header is stored, and again at validation
  Checks validationChecks;  ///< at validation, before the question
  Checks lineChecks;        ///< after it
  Checks printChecks;
  QList<HeaderField> headerFields;
  QList<LineColumn> lineColumns;
  QString articleList;  ///< kind of articleListWithCostOrPrice that fills the name cells
  KindTexts texts;
  std::optional<ListingKind> paper;    ///< the listing form; empty: it cannot be printed yet
  std::optional<ListingKind> reprint;  ///< the listing form once it is validated; empty: the same
  const KindRules* rules = nullptr;    ///< null: it cannot be entered yet

  /// The first header field of that type; null when there is none.
  const HeaderField* field(HeaderFieldType type) const {
    for (const HeaderField& field : headerFields)
      if (field.type == type) return &field;
    return nullptr;
  }
};

}  // namespace velmar
