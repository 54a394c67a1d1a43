// What the descriptions of several kinds share: sentences built around a kind's noun, the columns that every
// line grid begins with, the fields of a document in foreign currency.
#pragma once

#include "documents/DocumentKind.h"

namespace velmar::wording {

/// Tool tip of validation where only the ledger is written.
inline const char* const kRecordTip = "Verificare informatii si salvare in tabela Documente";
inline const char* const kPressSave = "Va rugam apasati Salvare";

/// `noun` in the genitive: "facturii".
Checked<HeaderCheck> numberEmpty(const DocumentKind& kind, const QString& noun);
Checked<HeaderCheck> customerEmpty(const DocumentKind& kind);
Checked<HeaderCheck> supplierEmpty(const DocumentKind& kind);
Checked<HeaderCheck> journalEmpty();
Checked<HeaderCheck> rateNotChosen(const QString& column);
/// `check` tells whether an empty percent passes.
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
/// The journal, which starts as the single blank that means the company's own.
HeaderField companyJournal();
/// The box that decides whether accounts are posted; a new document has it ticked.
HeaderField postsNotes(const QString& toolTip);
HeaderField vatPercent(const QString& column, const QString& initial = {});

/// Number (hidden), line number, code, name and unit.
QList<LineColumn> leadingColumns(const DocumentKind& kind);
LineColumn price(const QString& field, const QString& caption, LineEntry entry, int roundTo = kAsTyped);
/// A computed amount, in the company's decimals.
LineColumn value(const QString& field, const QString& caption);

/// The tool tips of the commands; saving and validation get the common ones.
void setTips(KindTexts& texts, const QString& newTip, const QString& deleteTip, const QString& printTip);
/// What is asked and told about "factura": before lines, at validation and at deletion.
void setQuestions(KindTexts& texts, const QString& noun, const QString& nothingSelected);

}  // namespace velmar::wording
