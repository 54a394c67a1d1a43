// Common parts of the descriptions of kinds: messages with a kind's noun, the first columns of each line
// grid, the fields of a document in foreign currency.
#pragma once

#include "documents/kinds/Kinds.h"
#include "documents/LineChecks.h"

namespace velmar::wording {

/// A kind with the facts of the ledger; everything else is to be set.
DocumentKind kindOf(KindId id, const QString& name, const QString& window);

/// Tool tip of a validation that only writes the ledger.
inline const char* const kRecordTip = "Verificare informatii si salvare in tabela Documente";
inline const char* const kPressSave = "Va rugam apasati Salvare";

// Checks of the header before it is stored.
/// `noun` in the genitive: "facturii".
Check numberEmpty(const DocumentKind& kind, const QString& noun);
/// Also refuses a code that is not that of a partner.
Check partnerEmpty(const QString& column, const QString& noun);
Check customerEmpty(const DocumentKind& kind);
Check supplierEmpty(const DocumentKind& kind);
Check journalEmpty();
/// The field is empty or, for a VAT rate, its code is not in the list.
Check fieldEmpty(const QString& column, const QString& text);
/// Not a number; for a VAT rate also a code that is not in the list.
Check notNumeric(const QString& column, const QString& text);
Check rateNotChosen(const QString& column);
/// Not a number, or below 0.
Check notPositive(const QString& column, const QString& text);
Check percentNotPositive(const QString& column);
/// As percentNotPositive, but accepts an empty text, which is stored as 0.
Check percentNotPositiveOrEmpty(const QString& column);
/// A new document has the number of another one; the message is the kind's.
Check numberTaken(const DocumentKind& kind);
/// As numberTaken(), for a second number that the kind of Exista finds; it may be empty.
Check otherNumberTaken(const QString& column, const QString& existsKind, const QString& text);
/// `noun` with its article: "Factura".
QString numberTakenText(const QString& noun);

// Checks at validation.
Check nothingSelected(const DocumentKind& kind, const QString& text);
Check dueBeforeDate();
Check beforeFiscalYear(const DocumentKind& kind);
Check outsidePeriod(const DocumentKind& kind);
Check currencyWithoutRate(const QString& column);
Check journalNotChosen();
Check withoutLines(const QString& text);
/// `noun` with its article: "Bonul de intrare".
Check noLines(const QString& noun);
/// The sum of the line column differs from the header's; `accepts0`: 0 in the header is accepted.
Check totalDiffers(const QString& field, const QString& lineColumn, bool accepts0, const QString& text);
/// The header column is empty although the sum of the line column is above 0.
Check emptyWithTotal(const QString& field, const QString& lineColumn, const QString& text);

// Checks before printing.
Check printWithoutPartner(const DocumentKind& kind, const QString& text);
Check printUnsaved(const DocumentKind& kind);

/// The box, the currency and the rate of a document that may be in foreign currency.
QList<HeaderField> currencyFields(const QString& currency, const QString& rate);
/// The journal; the default, a single blank, means the company's own.
HeaderField companyJournal();
/// The box that determines whether notes are posted; ticked in a new document.
HeaderField postsNotes(const QString& toolTip);
HeaderField vatPercent(const QString& column, const QString& initial = {});
/// The same on purchases: 19 at first, shown with two decimals.
HeaderField purchaseVatPercent(const QString& column);
HeaderField vatRate(const QString& column, const QString& control = QStringLiteral("txtFields(2)"));

/// Number (hidden), line number, code, name and unit.
QList<LineColumn> leadingColumns(const DocumentKind& kind);
LineColumn price(const QString& field, const QString& caption, LineEntry entry, int roundTo = kAsTyped);
/// A computed amount, in the company's decimals.
LineColumn value(const QString& field, const QString& caption);

/// The columns of kt_ter that every document prints.
inline const QStringList kPrintedPartner{"NUME", "CODFISCAL", "AD", "CONTBANCAR", "BANCA"};
/// The statement for all columns of the printed lines.
QString printedLines(const QString& table, const QString& number);
/// The boxes with the data of the delegate.
QList<ListingBox> delegateBoxes();

/// Sets the tool tips of the commands; those of saving and validation are common.
void setTips(KindTexts& texts, const QString& newTip, const QString& deleteTip, const QString& printTip);
/// Sets questions and messages with the noun ("factura"): before lines, on validation and deletion.
void setQuestions(KindTexts& texts, const QString& noun, const QString& nothingSelected);

}  // namespace velmar::wording
