// What a validation writes, determined completely before anything is written; also what taking a validated
// document back writes. Making a plan needs no database; executePlan() writes it.
#pragma once

#include <optional>
#include <QDateTime>

#include "accounting/Posting.h"
#include "documents/Document.h"
#include "documents/PlanInputs.h"
#include "stock/Ledger.h"
#include "stock/Lots.h"
#include "stock/Valuation.h"
#include "util/Errors.h"

namespace velmar {

/// What the lines of a document do, determined by the rules of its kind.
struct Effects {
  std::vector<LedgerDocument> ledger;
  std::vector<Row> lines;             ///< of the draft, with the costs that the lots determined
  std::vector<Row> changedLines;      ///< those of them that are stored with what validation determined
  QStringList changedColumns;         ///< the columns of these that are stored
  std::vector<Consumption> consumed;  ///< from the lots
  std::vector<LotTake> returned;  ///< from the lots of the receipt that a return to the supplier refers to
  std::vector<StockChange> stock;
  std::vector<NoteRule> notes;  ///< empty: nothing is posted
  std::vector<Note> composed;   ///< notes that no rule makes
};

/// The part of the document's ledger entry common to all kinds: key, direction, warehouse, partner, date and
/// remark. The rules add the rest.
LedgerDocument ledgerOf(const Document& document);

/// The number in a column; empty for null.
std::optional<Decimal> optionalDecimal(const Row& row, const QString& column);

/// Changes of a document's own tables.
struct DraftChange {
  const DocumentKind* kind = nullptr;  ///< null: the document has no draft of the 13 kinds
  QString number;                      ///< of a kind without a draft: of the document that it is made from
  std::vector<Row> lines;              ///< that are stored
  QStringList lineColumns;             ///< their columns to store
  bool isValidated = true;             ///< VALIDAT afterwards; of a kind without a draft STORNAT
  bool isMarked = true;                ///< that is written; it is an error when it was so before
};

struct Plan {
  std::vector<LedgerDocument> ledger;
  std::vector<LedgerKey> removedLedger;
  std::vector<DirectionChange> directions;
  LedgerKey taker;                  ///< the document that takes from lots or gives back to them
  std::vector<LotTake> rests;       ///< new remainders of lots
  std::vector<LotTake> links;       ///< that are stored
  QStringList removedLinks;         ///< articles whose links are deleted
  std::vector<SourceLine> sources;  ///< lines of orders and notes with their new open quantities
  std::vector<ArticleChange> articles;
  DraftChange draft;
  std::vector<Note> notes;
  std::vector<qint64> removedNotes;  ///< by NDI
};

/// The steps of a validation, which have different messages when they fail.
enum class Step { Ledger, Stock, Posting };

/// An error other than a violated rule, with the step in which it occurred.
class StepFailure : public Error {
 public:
  StepFailure(Step step, const Error& error, int line)
      : Error(error.number(), error.text()), step_(step), line_(line) {}
  Step step() const { return step_; }
  int line() const { return line_; }  ///< of the source, for the message

 private:
  Step step_;
  int line_;
};

/// The plan that validates the document. Throws RuleError for a violated rule, StepFailure for other errors.
Plan planOf(const Document& document, const PlanInputs& inputs);

/// Executes the plan, in few statements, in the caller's transaction. Throws as planOf().
void executePlan(const Plan& plan, const QDateTime& moment);

}  // namespace velmar
