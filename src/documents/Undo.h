// Takes a validated document back: the inverse of its validation. The document becomes a draft again. A
// document with two sides is taken back side by side; the draft is open again after the first.
#pragma once

#include "documents/Plan.h"

namespace velmar {

/// What the ledger, the links and the notes say about a validated document.
struct ValidatedDocument {
  struct Line {
    QString article;
    Decimal quantity;
    std::optional<Decimal> rest;  ///< CANTRAMASA
    Decimal cost;                 ///< VALCOST
    QString reference;            ///< REFERINTA
  };
  LedgerKey key;
  QString direction;  ///< TIPIE
  QDate date;
  QString remark;
  std::vector<Line> lines;
  std::vector<LotLink> links;             ///< to the lots that it took from
  std::vector<Lot> lots;                  ///< of the linked receipts, the last validated first
  std::vector<Lot> receipt;               ///< of the receipt that its returns to the supplier refer to
  QHash<QString, Decimal> stillReturned;  ///< by other documents to that receipt; by code in upper case
  QHash<QString, Decimal> receiptIssued;  ///< from that receipt, as its links say; as above
  std::vector<SourceLine> sources;        ///< lines of the orders and notes from which it took
  std::vector<Take> othersTook;           ///< from these, other documents in the order of validation
  bool isTakenFrom = false;               ///< an order of which something was received or delivered
  bool isDraft = false;                   ///< the other side was taken back before
  QString storno;                         ///< key of the storno of an invoice; empty: none
  bool hasLaterIssue = false;             ///< an issue of its first article, on its date or later
  std::vector<qint64> notes;              ///< NDI
};

/// Reads the document or the side. Throws RuleError when it is not in the ledger.
ValidatedDocument readValidated(const LedgerKey& key);

/// Throws RuleError when other documents depend on it: other documents took from the delivery note or the
/// order, its goods were issued, a later issue of its first article exists, or the invoice has a storno.
void requireRemovable(const ValidatedDocument& document);

/// Makes the checks of takeBack() and returns what the user should know before. Throws RuleError.
QStringList checkRemoval(const LedgerKey& key);

/// The plan that takes the document back. Makes no check and reads nothing. `articles` are those of its
/// lines.
Plan undoOf(const ValidatedDocument& document, const ArticleTable& articles, const QString& costMethod);

/// The plan by which the document stays in the ledger but moves no stock: its lots and the stock of its
/// articles get the goods back; the costs of articles stay.
Plan withdrawalOf(const ValidatedDocument& document, const ArticleTable& articles);

/// Takes the document back in one transaction, with all checks under the write lock. Returns whether it had
/// notes. Throws RuleError, also when its electronic invoice was accepted; nothing is then written.
bool takeBack(const LedgerKey& key);

/// Makes a validated document that is not in the ledger a draft again. Throws RuleError when it is in the
/// ledger, or a draft already.
void reopenLost(const LedgerKey& key);

}  // namespace velmar
