// What orders and delivery notes have left: remainders and references in their own lines, moved when a
// receipt or an invoice takes from them and put back when that is deleted.
#pragma once

#include <QDate>
#include <QString>

#include "util/Decimal.h"

namespace velmar {

/// The document that took from a line, as the line keeps it.
struct LinkReference {
  QString document;  ///< key: prefix and number
  QDate date;
};

/// Takes what a receipt note brought off the supplier order's line and leaves the reference on the order and
/// its ledger row. An order of which nothing is left to come becomes SOLDAT.
void receiveOrdered(const QString& order, const QString& article, const Decimal& quantity,
                    const LinkReference& receipt);

/// Takes what a customer brought back, or was invoiced, off the delivery note's line in draft and ledger.
void takeFromNote(const QString& note, const QString& article, const Decimal& quantity,
                  const LinkReference& taker);

/// Marks the delivery note as invoiced, and its ledger row as validated, when no line has anything left.
void closeNoteIfTaken(const QString& note);

/// Gives back what the deleted invoice had delivered of its customer orders: the first order line of an
/// article takes the whole quantity, and falls to 0 where it was not ordered more.
void CorecteazaComenzi(const QString& invoice);

/// Gives back what a deleted receipt note or invoice (its whole key) had taken from delivery notes, and opens
/// the note again. Every line of the article that names the document gets the whole quantity.
void CorecteazaAE(const QString& key);

}  // namespace velmar
