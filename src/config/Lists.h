// The contents of the lists in windows: plain combo boxes by control name, data-bound lists, and lists of
// articles with type-ahead search.
#pragma once

#include "store/Database.h"

namespace velmar {

/// The row shown in an empty list.
extern const QString kNoRecords;

/// The rows of the plain combo box of that name; only "0-Nu exista inregistrari !" when there are none. An
/// unknown name shows a message and returns no rows.
QStringList comboItems(const QString& controlName);

/// A list that displays one field of a statement and has another as its value.
struct BoundList {
  QString sql;
  QString listField;
  QString boundColumn;
  Values values = {};  ///< bound to the statement
};

extern const BoundList kSupplierList;
extern const BoundList kCustomerList;
extern const BoundList kFamilyList;
extern const BoundList kCostCentreList;
extern const BoundList kWarehouseList;

/// A row of a list: the text displayed and the code stored.
struct ListEntry {
  QString text;
  QString code;
};

/// The currencies, as "EUR-Euro".
std::vector<ListEntry> currencies();
/// VAT rates on the VAT account of purchases or of sales and on the accounts that begin with 4428, as
/// "4426-19" or, with the category of a rate of 0, "4427-AE-0".
std::vector<ListEntry> vatRates(bool ofPurchases);
/// The percentages of the rates on the VAT account of purchases or of sales.
std::vector<ListEntry> vatPercents(bool ofPurchases);
/// The code of a new document's default rate: the first one on the account itself; "" when there is none.
QString defaultVatRate(bool ofPurchases);
/// Journals of purchases or of sales, as "JC-Jurnal cumparari".
std::vector<ListEntry> journals(bool ofPurchases);
/// Codes of the currencies.
QStringList currencyCodes();

/// A list of articles: its condition, and what it displays of each besides name, code and unit.
struct ArticleList {
  enum class Amount { None, SalePrice, Cost };

  QString condition;           ///< on G_ARTMAG, empty for all articles
  bool codeBehindName = true;  ///< "Name (code)"
  Amount amount = Amount::None;
};

/// By kind: "M" goods, "P" products with stock, "MP" all with stock, "D" all by bare name, any other all.
ArticleList articleList(const QString& kind);

/// "TR": articles with stock and their cost; "M": the same with the sale price; any other kind: all articles
/// with the sale price.
ArticleList articleListWithCostOrPrice(const QString& kind);
/// Goods held in stock, or all articles held in stock, with their sale price.
ArticleList articleListWithPrice(bool alsoProducts);

/// At most `limit` articles whose name, code or supplier's code contains the typed text, case insensitive:
/// first those whose name or code begins with it, then the others, both sorted by name. For an empty text,
/// the first articles of the list. The columns are `DenArt` (the list text), `CODART`, `UM` and `VALOARE`
/// (price or cost; null if the list has neither).
Recordset findArticles(const ArticleList& list, const QString& typed, int limit);

}  // namespace velmar
