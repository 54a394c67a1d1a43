// The catalogue of articles: looking one up, and adding one under the catalogue's rules.
#pragma once

#include <optional>
#include <QString>

#include "store/Row.h"

namespace velmar {

/// The article's row of G_ARTMAG; nothing when the code is unknown.
std::optional<Row> articleByCode(const QString& code);

/// The article with that product code of the supplier.
std::optional<Row> articleBySupplierCode(const QString& code);

/// What a person gives of a new article.
struct NewArticle {
  QString CODART;      ///< at most 20 characters, upper case
  QString CODPRODFUR;  ///< the supplier's product code
  QString DENART;
  QString DenAltaLimba;
  qint64 FAMART = 0;
  QString UM = QStringLiteral("Buc");
  qint64 CODFURNIZO = 0;
  Decimal COTATVA = 19;
  QString PROVENIENTA = QStringLiteral("M");  ///< "M" goods, "P" own products
  bool FARASTOC = false;
};

/// Adds the article. Throws RuleError, naming the column, when something is missing, the code exists, or no
/// cost method was chosen before the first article. Cost, prices and stock start at 0.
void addArticle(const NewArticle& article);

}  // namespace velmar
