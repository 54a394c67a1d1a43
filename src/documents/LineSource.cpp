#include "documents/LineSource.h"

namespace velmar {

bool LineSource::isShown(const Document& /*document*/) const { return true; }

bool LineSource::isEnabled(const Document& /*document*/) const { return true; }

Recordset LineSource::offer(const Document& /*document*/) const { return {}; }

QString LineSource::namedIn(const TypedHeader& /*header*/) const { return {}; }

void LineSource::added(const Document& /*document*/, const QString& /*number*/) const {}

void LineSource::emptied(const QString& /*document*/) const {}

bool LineSource::isOpen(const QString& field) const {
  return field != QStringLiteral("CODART") && field != QStringLiteral("DENUMIRE");
}

bool LineSource::allowsTypedLines() const { return true; }

namespace {

std::optional<LedgerKey> originOf(const DocumentKind& kind, const Row& line) {
  return kind.sourceColumn.isEmpty() ? std::nullopt : LedgerKey::of(line.text(kind.sourceColumn));
}

}  // namespace

const LineSource* sourceOf(const DocumentKind& kind, const Row& line) {
  const auto origin = originOf(kind, line);
  if (!origin) return nullptr;
  for (const LineSource* source : kind.sources)
    if (source->kind() == origin->kind) return source;
  return nullptr;
}

bool comesFrom(const Document& document, KindId source) {
  if (document.lines.empty()) return false;
  const auto origin = originOf(*document.kind, document.lines.front());
  return origin && origin->kind == source;
}

}  // namespace velmar
