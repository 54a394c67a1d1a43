// Common parts of the descriptions of kinds: messages with a kind's noun, the first columns of each line
// grid, the fields of a document in foreign currency.
#pragma once

#include "documents/DocumentKind.h"

namespace velmar::wording {

/// Tool tip of a validation that only writes the ledger.
inline const char* const kRecordTip = "Verificare informatii si salvare in tabela Documente";
inline const char* const kPressSave = "Va rugam apasati Salvare";

/// `noun` in the genitive: "facturii".
Checked<HeaderCheck> numberEmpty(const DocumentKind& kind, const QString& noun);
Checked<HeaderCheck> customerEmpty(const DocumentKind& kind);
Checked<HeaderCheck> supplierEmpty(const DocumentKind& kind);
Checked<HeaderCheck> journalEmpty();
Checked<HeaderCheck> rateNotChosen(const QString& column);
/// `check` determines whether an empty percentage is accepted.
Checked<HeaderCheck> percentNotPositive(const QString& column, HeaderCheck check = HeaderCheck::NotPositive);
/// `noun` with its article: "Factura".
Checked<HeaderCheck> numberTaken(const DocumentKind& kind, const QString& noun);

Checked<ValidationCheck> nothingSelected(const DocumentKind& kind, const QString& text);
Checked<ValidationCheck> dueBeforeDate();
Checked<ValidationCheck> beforeFiscalYear(const DocumentKind& kind);
Checked<ValidationCheck> currencyWithoutRate(const QString& column);
Checked<ValidationCheck> journalNotChosen();
/// `noun` with its article: "Bonul de intrare".
Checked<ValidationCheck> noLines(const QString& noun);

Checked<PrintCheck> printWithoutNumber(const DocumentKind& kind, const QString& text);
Checked<PrintCheck> printWithoutPartner(const DocumentKind& kind, const QString& text);
Checked<PrintCheck> printUnsaved(const DocumentKind& kind, const QString& text = kPressSave);

/// The box, the currency and the rate of a document that may be in foreign currency.
QList<HeaderField> currencyFields(const QString& currency, const QString& rate);
/// The journal; the default, a single blank, means the company's own.
HeaderField companyJournal();
/// The box that determines whether notes are posted; ticked in a new document.
HeaderField postsNotes(const QString& toolTip);
HeaderField vatPercent(const QString& column, const QString& initial = {});

/// Number (hidden), line number, code, name and unit.
QList<LineColumn> leadingColumns(const DocumentKind& kind);
LineColumn price(const QString& field, const QString& caption, LineEntry entry, int roundTo = kAsTyped);
/// A computed amount, in the company's decimals.
LineColumn value(const QString& field, const QString& caption);

/// Sets the tool tips of the commands; those of saving and validation are common.
void setTips(KindTexts& texts, const QString& newTip, const QString& deleteTip, const QString& printTip);
/// Sets questions and messages with the noun ("factura"): before lines, on validation and deletion.
void setQuestions(KindTexts& texts, const QString& noun, const QString& nothingSelected);

}  // namespace velmar::wording
