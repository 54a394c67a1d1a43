#include "BareNumber.h"

#include <algorithm>
#include <cstdlib>
#include <string>

#include "documents/kinds/Kinds.h"
#include "store/Schema.h"

namespace velmar::bench {

namespace {

// Document numbers in keys with a prefix.
struct KeyColumn {
  QString table;
  QString column;
  int prefix = 0;
  QString condition;
};

KeyColumn drafts(const DocumentKind& kind) { return {kind.headerTable, kind.numberColumn, 0, {}}; }

KeyColumn ledger(const char* kind) {
  return {QStringLiteral("G_DOCUME"), QStringLiteral("ID"), 2,
          QStringLiteral("TIP = '%1' AND ").arg(QLatin1String(kind))};
}

// The highest key of each length with a number of plain digits: one index lookup for each.
std::string plain(const KeyColumn& keys) {
  QStringList lengths;
  for (int length = 1; length <= kPlainDigits; ++length)
    lengths.append(QStringLiteral("SELECT %1 AS LEN").arg(keys.prefix + length));
  return QStringLiteral(
             "SELECT (SELECT %1 FROM %2 WHERE %3LENGTH(%1) = LENGTHS.LEN AND %4 ORDER BY %1 DESC LIMIT 1) "
             "AS LAST FROM (%5) AS LENGTHS")
      .arg(keys.column, keys.table, keys.condition, plainNumber(keyNumber(keys.column, keys.prefix)),
           lengths.join(QStringLiteral(" UNION ALL ")))
      .toStdString();
}

std::string odd(const KeyColumn& keys) {
  return QStringLiteral("SELECT %1 FROM %2 WHERE %3%4")
      .arg(keys.column, keys.table, keys.condition, oddNumber(keys.column, keys.prefix))
      .toStdString();
}

// Where the numbers of a kind are.
std::vector<KeyColumn> keysOf(const DocumentKind& kind) {
  std::vector<KeyColumn> keys;
  if (kind.numbering != Numbering::Typed) keys.push_back(drafts(kind));
  if (kind.numbering != Numbering::InvoiceRange) return keys;
  for (const char* prefix : {"FC", "FS"}) keys.push_back(ledger(prefix));
  return keys;
}

}  // namespace

BareNumber::BareNumber(BareConnection& connection, const QString& prefix) {
  for (const KeyColumn& keys : keysOf(documentKind(prefix)))
    keys_.push_back({connection.prepare(plain(keys).c_str()), connection.prepare(odd(keys).c_str()),
                     static_cast<size_t>(keys.prefix)});
  if (!keys_.empty())
    ranges_.push_back(connection.prepare("SELECT SERIEFC, FCSTART, FCEND FROM kt_par ORDER BY ID"));
}

double BareNumber::next() {
  for (BareStatement& range : ranges_) range.run();
  double most = 0;
  for (Keys& keys : keys_)
    for (BareStatement* statement : {&keys.plain, &keys.odd}) {
      while (statement->step()) {
        const std::string key(statement->text(0));
        if (key.size() > keys.prefix) most = std::max(most, std::strtod(key.c_str() + keys.prefix, nullptr));
      }
      statement->reset();
    }
  return most + 1;
}

}  // namespace velmar::bench
