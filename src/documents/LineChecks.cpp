#include "documents/LineChecks.h"

#include <QSet>

#include "documents/Drafts.h"
#include "documents/kinds/Kinds.h"
#include "documents/LineSource.h"
#include "store/Records.h"
#include "util/Errors.h"
#include "util/Messages.h"
#include "util/NumberText.h"

namespace velmar {

namespace {

QString faultOf(const Row& line, const LineCheckColumns& columns) {
  const QString code = line.text("CODART");
  if (line.isNull("CODART") || code.trimmed().isEmpty())
    return QStringLiteral("Va rog completati codul articol ! Validarea nu se poate efectua !");
  if (line.decimal("CANT").isZero())
    return QStringLiteral(
               "Cantitatea pentru articolul cu codul %1 trebuie sa fie diferita de zero ! Validarea nu se "
               "poate efectua !")
        .arg(code);
  if (line.decimal(columns.price) <= 0)
    return QStringLiteral(
               "Pretul unitar pentru articolul cu codul %1 trebuie sa fie un numar pozitiv ! Validarea nu "
               "se poate efectua !")
        .arg(code);
  if (!columns.netPrice.isEmpty() && line.decimal(columns.netPrice).isNegative())
    return discountsTooHighText(code);
  return {};
}

QStringList heldInStock(const QStringList& articles) {
  QStringList held;
  for (const Row& row :
       rowsOfKeys("SELECT CODART FROM G_ARTMAG WHERE CODART IN (%1) AND FARASTOC = 0", articles))
    held.append(row.text("CODART"));
  return held;
}

}  // namespace

std::optional<Shortage> shortageOf(const Document& document, Stocked stocked, const Quantities& ownOrders) {
  Quantities wanted;
  for (const Row& line : document.lines) wanted.add(line.text("CODART"), line.decimal("CANT"));
  QStringList articles = articlesOf(document.lines);
  if (stocked == Stocked::OnlyHeld) articles = heldInStock(articles);
  articles.sort(Qt::CaseInsensitive);
  return firstShortage(articles, wanted, document.warehouse(), ownOrders);
}

Check distinctArticles() {
  return {.text =
              "Articolul cu codul %1 se repeta ! Va rugam introduceti articole distincte ! Validarea nu "
              "se poate efectua ! ",
          .field = "CODART",
          .fault = [](const Document& document) -> std::optional<Fault> {
            QSet<QString> seen;
            for (const Row& line : document.lines) {
              const QString code = line.text("CODART");
              if (seen.contains(code.toUpper())) return Fault{{code}};
              seen.insert(code.toUpper());
            }
            return std::nullopt;
          },
          .at = CheckedAt::Twice};
}

Check completeLines() {
  return {.text = {},
          .field = "CODART",
          .fault = [](const Document& document) -> std::optional<Fault> {
            for (const Row& line : document.lines) {
              const QString text = faultOf(line, document.kind->lineCheck);
              if (!text.isEmpty()) return Fault{.text = text};
            }
            return std::nullopt;
          },
          .at = CheckedAt::Twice};
}

Check salePricesNotBelowCost() {
  return {.text = "Pretul de vanzare este mai mic decat pretul de cumparare pentru articolul cu codul %1 ",
          .field = "CODART",
          .fault = [](const Document& document) -> std::optional<Fault> {
            const LineCheckColumns& columns = document.kind->lineCheck;
            Fault fault;
            for (const Row& line : document.lines) {
              if (!faultOf(line, columns).isEmpty()) break;
              if (line.decimal(columns.price) > line.decimal(columns.salePrice))
                fault.subjects.append(line.text("CODART"));
            }
            return fault.subjects.isEmpty() ? std::nullopt : std::optional(fault);
          },
          .outcome = Outcome::Tell};
}

Check stockSuffices(Stocked stocked, const QString& text, OwnOrders ownOrders) {
  return {.text = text,
          .field = "CODART",
          .fault = [stocked, own = std::move(ownOrders)](const Document& document) -> std::optional<Fault> {
            const auto shortage = shortageOf(document, stocked, own ? own(document) : Quantities());
            if (!shortage) return std::nullopt;
            return Fault{{shortage->article, editNumber(shortage->available)}};
          },
          .at = CheckedAt::UnderLock};
}

Check withinNotes() {
  return {.text =
              "Cantitatea pentru articolul cu codul %1 este mai mare decat cea ramasa pe Aviz ! Validarea nu "
              "se poate efectua !",
          .field = "CODART",
          .fault = [](const Document& document) -> std::optional<Fault> {
            if (!comesFrom(document, KindId::DeliveryNote)) return std::nullopt;
            for (const Row& line : document.lines)
              if (line.has("CANTAVIZ") && line.decimal("CANT") > line.decimal("CANTAVIZ"))
                return Fault{{line.text("CODART")}};
            const auto tooMuch = exceeding(takenBy(*document.kind, document.lines));
            return tooMuch ? std::optional(Fault{{tooMuch->article}}) : std::nullopt;
          },
          .at = CheckedAt::Twice};
}

QString discountsTooHighText(const QString& code) {
  return QStringLiteral("Discounturile depasesc 100% pentru articolul %1 !").arg(code);
}

bool EsteValidDetaliiDocument(const QString& prefix, const QString& number) {
  const DocumentKind& kind = documentKind(prefix);
  const auto document = Drafts(kind).load(number);
  if (!document) return true;
  try {
    return passes(kind.lineChecks, *document);
  } catch (const RuleError& error) {
    Mesaj(error.text());
    return false;
  }
}

}  // namespace velmar
