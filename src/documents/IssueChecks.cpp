#include "documents/IssueChecks.h"

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

std::optional<Shortage> shortageOf(const Document& document, Stocked stocked) {
  Quantities wanted;
  for (const Row& line : document.lines) wanted.add(line.text("CODART"), line.decimal("CANT"));
  QStringList articles = articlesOf(document.lines);
  if (stocked == Stocked::OnlyHeld) articles = heldInStock(articles);
  articles.sort(Qt::CaseInsensitive);
  return firstShortage(articles, wanted, document.header.integer("Magazie"));
}

void requireAvailable(const Document& document, Stocked stocked, const QString& text) {
  const auto shortage = shortageOf(document, stocked);
  if (shortage) throw RuleError(text.arg(shortage->article, editNumber(shortage->available)), "CODART");
}

}  // namespace velmar
