// What the notes of a validated document must add up to. Each kind states it beside the rules that make its
// notes; the check compares it with the accounts.
#pragma once

#include <QStringList>
#include <vector>

namespace velmar {

/// A sum of the rows that are posted for a document. Amounts and condition are SQL on its row D of the ledger
/// and its draft H. They use only what the document itself keeps: costs, prices and accounts of articles may
/// have changed since.
struct PostedSum {
  enum class Rows {
    OfPartner,  ///< debit and credit of the rows with a partner
    Others      ///< debit of the rows without
  };
  enum class Is {
    Equal,
    AtLeast,
    AtMost,
    Present  ///< there are such rows, also with 0, unless the amount is 0
  };
  Rows rows;
  Is is;
  QStringList amounts;  ///< one of them
  QString when = {};    ///< the sum is required; empty: always
};

/// Value and VAT of the document, on accounts of the partner.
PostedSum postedGross();
/// The amount, as the debit of accounts without a partner.
PostedSum postedDebit(const QString& amount);

/// SQL: the document's notes, of which N has PARTNER, DEBIT and DEBITS (the number of debits), lack one of
/// the sums. `tolerance` is SQL.
QString lacksSum(const std::vector<PostedSum>& sums, const QString& tolerance);

}  // namespace velmar
