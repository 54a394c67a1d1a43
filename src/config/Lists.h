// What goes into the lists of the windows: plain combo boxes by control name, data-bound lists, and the
// lists of articles with their type-ahead search.
#pragma once

#include "store/Database.h"

namespace velmar {

/// The only row of a list that has none.
extern const QString kNoRecords;

/// The rows of the plain combo box of that name; "0-Nu exista inregistrari !" alone when there are none. An
/// unknown name shows a message and gives no rows.
QStringList comboItems(const QString& controlName);

/// A list that shows one field of a statement and gives another.
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

/// A row of a list that is shown one way and stored another.
struct ListEntry {
  QString text;
  QString code;
};

/// VAT rates on the VAT account of purchases or of sales and on the accounts that begin 4428, as "4426-19".
std::vector<ListEntry> vatRates(bool ofPurchases);
/// The code of the rate that a new document starts with: the first one on the account itself; "" when there
/// is none.
QString defaultVatRate(bool ofPurchases);
/// Journals of purchases or of sales, as "JC-Jurnal cumparari".
std::vector<ListEntry> journals(bool ofPurchases);
/// Codes of the currencies.
QStringList currencyCodes();

/// A list of articles: which it holds, and what it tells of each besides name, code and unit.
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

/// At most `limit` articles of the list that hold the typed text in name, code or supplier's code, without
/// regard to case: first those whose name or code begins with it, each part by name. Nothing typed gives the
/// first articles of the list. The columns are `DenArt` (the list text), `CODART`, `UM` and `VALOARE` (price
/// or cost, null in a list without).
Recordset findArticles(const ArticleList& list, const QString& typed, int limit);

}  // namespace velmar
