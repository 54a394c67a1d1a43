// Article families: the four accounts through which the movements of their articles post.
#pragma once

#include <QString>

namespace velmar {

struct Family {
  QString DENUMIRE;       ///< at most 35 characters
  QString CONTSTOCMARFA;  ///< stock account of goods
  QString CONTCHELT;      ///< expense account
  QString CONTVEN;        ///< revenue account
  QString CONTSTOCPROD;   ///< stock account of own products
};

/// Adds the family and gives its code. Throws RuleError, naming the column, for the first thing missing.
qint64 addFamily(const Family& family);

}  // namespace velmar
