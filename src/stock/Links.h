// Open quantities of orders and delivery notes: remainders and references in their lines are updated when a
// receipt or an invoice takes from them, and restored when that document is deleted.
#pragma once

#include <QDate>
#include <QString>

#include "util/Decimal.h"

namespace velmar {

/// The document that took from a line, as stored in the line.
struct LinkReference {
  QString document;  ///< key: prefix and number
  QDate date;
};

/// Subtracts a received quantity from the supplier order's line and writes the reference to the order and its
/// ledger row. An order without open quantities becomes SOLDAT.
void receiveOrdered(const QString& order, const QString& article, const Decimal& quantity,
                    const LinkReference& receipt);

/// Subtracts a quantity that was returned by the customer or invoiced from the delivery note's line, in draft
/// and ledger.
void takeFromNote(const QString& note, const QString& article, const Decimal& quantity,
                  const LinkReference& taker);

/// Marks the delivery note as invoiced, and its ledger row as validated, if no line has an open quantity.
void closeNoteIfTaken(const QString& note);

/// Undoes the deliveries of a deleted invoice in its customer orders: the first order line of an article
/// takes the whole quantity; its delivered quantity becomes 0 if no more than that was ordered.
void CorecteazaComenzi(const QString& invoice);

/// Restores the quantities that a deleted receipt note or invoice (its complete key) had taken from delivery
/// notes, and reopens the notes. Every line of the article that refers to the document gets the whole
/// quantity.
void CorecteazaAE(const QString& key);

}  // namespace velmar
