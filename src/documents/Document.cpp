#include "documents/Document.h"

#include "documents/DocumentKind.h"

namespace velmar {

bool Document::isPrinted() const {
  return !isNew && kind->receipt.exists() && header.flag(kind->receipt.printed);
}

QDate Document::date() const { return header.date(kind->dateColumn); }

qint64 Document::warehouse() const { return header.integer("Magazie"); }

std::vector<TakenLine> takenBy(const DocumentKind& kind, const std::vector<Row>& lines) {
  std::vector<TakenLine> taken;
  if (kind.sourceColumn.isEmpty()) return taken;
  for (const Row& line : lines)
    if (const auto source = LedgerKey::of(line.text(kind.sourceColumn)))
      taken.push_back({*source, line.text("CODART"), line.decimal("CANT")});
  return taken;
}

QStringList articlesOf(const std::vector<Row>& lines) {
  QStringList articles;
  for (const Row& line : lines) articles.append(line.text("CODART"));
  articles.removeDuplicates();
  return articles;
}

}  // namespace velmar
