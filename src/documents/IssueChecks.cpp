#include "documents/IssueChecks.h"

#include "stock/Availability.h"
#include "store/Records.h"
#include "util/Errors.h"
#include "util/NumberText.h"

namespace velmar {

namespace {

QStringList heldInStock(const QStringList& articles) {
  QStringList held;
  for (const Row& row :
       rowsOfKeys("SELECT CODART FROM G_ARTMAG WHERE CODART IN (%1) AND FARASTOC = 0", articles))
    held.append(row.text("CODART"));
  return held;
}

}  // namespace

QStringList articlesOf(const std::vector<Row>& lines) {
  QStringList articles;
  for (const Row& line : lines) articles.append(line.text("CODART"));
  articles.removeDuplicates();
  return articles;
}

void requireAvailable(const Document& document, Stocked stocked, const QString& text) {
  Quantities wanted;
  for (const Row& line : document.lines) wanted.add(line.text("CODART"), line.decimal("CANT"));
  QStringList articles = articlesOf(document.lines);
  if (stocked == Stocked::OnlyHeld) articles = heldInStock(articles);
  articles.sort(Qt::CaseInsensitive);
  const auto shortage = firstShortage(articles, wanted, document.header.integer("Magazie"));
  if (shortage) throw RuleError(text.arg(shortage->article, editNumber(shortage->available)), "CODART");
}

}  // namespace velmar
