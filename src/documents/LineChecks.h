// The checks of a document's lines at validation.
#pragma once

#include "documents/Checks.h"
#include "documents/Document.h"
#include "stock/Availability.h"

namespace velmar {

enum class Stocked {
  All,      ///< all articles are checked
  OnlyHeld  ///< articles without stock are ignored
};

/// The first article, by code, with less available in the document's warehouse than the lines need.
/// `ownOrders` are open quantities that do not hold it up.
std::optional<Shortage> shortageOf(const Document& document, Stocked stocked,
                                   const Quantities& ownOrders = {});

/// No article is on two lines, case insensitive.
Check distinctArticles();

/// Every line has a code, a quantity other than 0, a positive price, and discounts that do not exceed it.
Check completeLines();

/// A notice about sale prices below the purchase prices, up to the first line that is not complete.
Check salePricesNotBelowCost();

/// What of the open orders does not hold up a document, by article.
using OwnOrders = std::function<Quantities(const Document& document)>;

/// The stock of the document's warehouse, without what other orders have open, covers the lines; `text` with
/// the article's code and the available quantity.
Check stockSuffices(Stocked stocked, const QString& text, OwnOrders ownOrders = {});

/// Lines of delivery notes take no more than they were offered, nor more than the notes have now.
Check withinNotes();

/// The message for an article whose discounts exceed its price.
QString discountsTooHighText(const QString& code);

/// Makes the checks of the stored lines that need no write lock; shows the notices and the first fault.
/// Lines of a document that does not exist are valid.
bool EsteValidDetaliiDocument(const QString& prefix, const QString& number);

}  // namespace velmar
