// What invoices and repair vouchers of hearing devices share at validation: the checks of their lines, the
// cost of what they issue, and their place in the ledger.
#pragma once

#include "documents/Plan.h"
#include "documents/Undo.h"

namespace velmar {

/// Throws RuleError when there is no line (`noLines`), or a line has no article, no quantity above 0 or no
/// price. `lines` have ID_Articol, Cant and PretUnitar.
void requireCompleteLines(const std::vector<Row>& lines, const QString& noLines);

/// The articles of the lines, each once.
QStringList articlesOfLines(const std::vector<Row>& lines);

/// Throws RuleError when the working warehouse does not have the lines on that date (warehouseStockOn) beside
/// open orders. Articles without stock are not looked at; lines of one article count together.
void requireInStock(const std::vector<Row>& lines, const QDate& date, const ArticleTable& articles);

/// What an issue takes: the stock of its articles and, under FIFO, lots with their links. Sets `Cost` of the
/// lines (lei, of the whole line): what the lots cost, or the quantity times the article's cost. Articles
/// without stock are not moved.
Plan issueOf(const LedgerKey& key, std::vector<Row>& lines, const ArticleTable& articles);

/// Takes the document, which is in the ledger, out of the stock, or issues its goods again, with the costs
/// that they have now; in the caller's transaction. Returns the costs of its lines in their order, lei.
void withdraw(const LedgerKey& key);
std::vector<Decimal> issueAgain(const LedgerKey& key);

/// A line of the ledger. `lines` have besides Articol: Cant, PretUnitar, Valoare and Cost, and of an invoice
/// TVA and Total.
LedgerLine ledgerLineOf(const Row& line, const Decimal& vatPercent);

/// The lines as the posting rules read them: CODART, VALOAREFT, VALOARETVA, and COST of the whole line.
std::vector<Row> postedLines(const std::vector<Row>& lines);
/// The rule of the note's rows of expense and stock, in the journal "OD".
NoteRule costRule(const NoteTerms& terms, int marks);
/// One note of the rules: the first one's note with the rows of all, each with its journal.
std::vector<Note> oneNote(std::vector<Note> notes);

}  // namespace velmar
