#include "documents/LineSource.h"

#include "config/Checks.h"

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

Checks addedToStored(const QString& withoutNumber, const QString& unsaved) {
  return {{.text = withoutNumber,
           .fault = [](const Document& document) -> std::optional<Fault> {
             const QString& column = document.kind->numberColumn;
             if (!document.typed().text(column).isEmpty()) return std::nullopt;
             return Fault{.field = column};
           }},
          {.text = unsaved, .fault = [](const Document& document) -> std::optional<Fault> {
             if (!document.isNew) return std::nullopt;
             return Fault{.field = document.kind->numberColumn};
           }}};
}

Check sureToAdd(const QString& what, const QString& number) {
  return {.text = QStringLiteral("Sunteti sigur ca doriti sa adaugati %1 %2 ?").arg(what, number),
          .fault = [](const Document&) { return std::optional(Fault()); },
          .outcome = Outcome::Ask,
          .title = QStringLiteral("Confirmare")};
}

Check askedAgain(const QString& onThis, const QString& onAnother, const QString& number,
                 const QString& findsOnThis, const QString& findsOnAnother) {
  return {.text = onAnother,
          .fault = [=](const Document& document) -> std::optional<Fault> {
            if (Exista2(document.number, number, findsOnThis))
              return Fault{.text = onThis.arg(number, document.number)};
            if (Exista2(number, {}, findsOnAnother)) return Fault{{number}};
            return std::nullopt;
          },
          .outcome = Outcome::Ask};
}

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
