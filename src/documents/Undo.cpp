#include "documents/Undo.h"

#include <algorithm>

#include "documents/Drafts.h"
#include "documents/EInvoiceState.h"
#include "documents/kinds/Kinds.h"
#include "documents/OtherTrade.h"
#include "store/Database.h"
#include "store/Records.h"
#include "util/Clock.h"
#include "util/Errors.h"

namespace velmar {

namespace {

const QString kIssue = QStringLiteral("E");
const QString kReceipt = QStringLiteral("I");

std::vector<ValidatedDocument::Line> readLines(const QString& key) {
  std::vector<ValidatedDocument::Line> lines;
  for (const Row& row : OpenRs(
           "SELECT ARTID, CANT, CANTRAMASA, VALCOST, REFERINTA FROM G_LDOCUM WHERE DOCID = ? ORDER BY LINIE",
           {key}))
    lines.push_back({row.text("ARTID"), row.decimal("CANT"), optionalDecimal(row, "CANTRAMASA"),
                     row.decimal("VALCOST"), row.text("REFERINTA").trimmed()});
  return lines;
}

// The receipt that the negative lines took from: that named in the remark; of a storno, the turned invoice.
QString takenReceipt(const ValidatedDocument& document) {
  const QString remark = document.remark.trimmed();
  return document.key.kind == KindId::Storno && !remark.isEmpty()
             ? LedgerKey{KindId::CustomerInvoice, remark}.text()
             : remark;
}

// The other ways by which goods left that receipt.
void readReturns(ValidatedDocument& document) {
  QStringList articles;
  for (const auto& line : document.lines)
    if (line.quantity.isNegative()) articles.append(line.article);
  const QString receipt = takenReceipt(document);
  if (!ledgerKind(document.key.kind).receives || articles.isEmpty() || receipt.isEmpty()) return;
  document.receipt = lotsOfReceipt(receipt, articles);
  if (document.receipt.empty()) return;
  for (const Row& row :
       OpenRs("SELECT L.ARTID AS ARTID, -SUM(L.CANT) AS CANT FROM G_DOCUME D INNER JOIN G_LDOCUM L "
              "ON L.DOCID = D.ID WHERE D.TIP = ? AND TRIM(D.OBS) = ? AND D.ID <> ? AND L.CANT < 0 "
              "GROUP BY L.ARTID",
              {document.key.prefix(), receipt, document.key.text()}))
    document.stillReturned[row.text("ARTID").toUpper()] += row.decimal("CANT");
  for (const Row& row :
       OpenRs("SELECT CODART, SUM(CANT) AS CANT FROM G_I_E WHERE ID_I = ? GROUP BY CODART", {receipt}))
    document.receiptIssued[row.text("CODART").toUpper()] += row.decimal("CANT");
}

// What the validated documents of the kind took from the sources, by number and line.
void readTakes(const DocumentKind& kind, const QStringList& sources,
               std::vector<std::pair<QDateTime, Take>>& takes) {
  // Sorted here: for the order of its key the engine might read the whole table.
  std::vector<Row> lines = rowsOfKeys(
      QStringLiteral("SELECT %1 AS NUMBER, NRLINIE, %2 AS SOURCE, CODART, CANT FROM %3 WHERE %2 IN (%4)")
          .arg(kind.numberColumn, kind.sourceColumn, kind.lineTable, QStringLiteral("%1")),
      sources);
  std::sort(lines.begin(), lines.end(), [](const Row& a, const Row& b) {
    return std::pair(a.text("NUMBER").toUpper(), a.integer("NRLINIE")) <
           std::pair(b.text("NUMBER").toUpper(), b.integer("NRLINIE"));
  });
  const auto keyOf = [&kind](const Row& line) { return LedgerKey{kind.id, line.text("NUMBER")}.text(); };
  QStringList keys;
  for (const Row& line : lines) keys.append(keyOf(line));
  keys.removeDuplicates();
  QHash<QString, Row> documents;  // by key in upper case
  for (const Row& row :
       rowsOfKeys("SELECT ID, DATADOC, DATAINTROD, TIMP FROM G_DOCUME WHERE ID IN (%1)", keys))
    documents.insert(row.text("ID").toUpper(), row);
  for (const Row& line : lines) {
    const Row document = documents.value(keyOf(line).toUpper());
    if (document.isEmpty()) continue;
    const auto source = LedgerKey::of(line.text("SOURCE"));
    const QDateTime moment(document.date("DATAINTROD"), document.value("TIMP").toTime());
    takes.push_back({moment,
                     {{*source, line.text("CODART"), line.decimal("CANT")},
                      {kind.id, line.text("NUMBER")},
                      source->kind == KindId::DeliveryNote ? moment.date() : document.date("DATADOC")}});
  }
}

// The orders and notes that it took from, and what others took from them.
void readTaken(ValidatedDocument& document) {
  const DocumentKind* kind = findDocumentKind(document.key.kind);
  if (!kind || kind->sourceColumn.isEmpty()) return;
  const auto draft = Drafts(*kind).load(document.key.number);
  if (!draft) return;
  std::vector<LedgerKey> sources;
  QStringList keys;
  for (const TakenLine& taken : takenBy(*kind, draft->lines)) {
    if (keys.contains(taken.source.text())) continue;
    sources.push_back(taken.source);
    keys.append(taken.source.text());
  }
  document.sources = readSources(sources);
  std::vector<std::pair<QDateTime, Take>> takes;
  for (const DocumentKind& taker : documentKinds())
    if (!taker.sourceColumn.isEmpty() && taker.rules) readTakes(taker, keys, takes);
  std::stable_sort(takes.begin(), takes.end(),
                   [](const auto& a, const auto& b) { return a.first < b.first; });
  for (const auto& [moment, take] : takes)
    if (take.taker.text() != document.key.text()) document.othersTook.push_back(take);
}

bool isDraft(const LedgerKey& key) {
  const DocumentKind& kind = documentKind(key.kind);
  return !OpenRs(QStringLiteral("SELECT VALIDAT FROM %1 WHERE %2 = ? AND VALIDAT = 0")
                     .arg(kind.headerTable, kind.numberColumn),
                 {key.number})
              .isEmpty();
}

bool isOrder(KindId kind) { return kind == KindId::CustomerOrder || kind == KindId::SupplierOrder; }

bool isTakenFrom(const LedgerKey& order) {
  const std::vector<SourceLine> lines = readSources({order});
  return std::any_of(lines.begin(), lines.end(),
                     [](const SourceLine& line) { return line.open != line.quantity; });
}

// The mark on the invoice saves the search in most cases.
QString stornoOf(const LedgerKey& invoice) {
  if (OpenRs("SELECT NUMFAC FROM G_FACCLI WHERE NUMFAC = ? AND STORNAT = -1", {invoice.number}).isEmpty())
    return {};
  const Recordset found = OpenRs("SELECT ID FROM G_DOCUME WHERE TIP = ? AND TRIM(OBS) = ? ORDER BY ID",
                                 {ledgerKind(KindId::Storno).prefix, invoice.number});
  return found.isEmpty() ? QString() : found.first().text("ID");
}

bool hasLaterIssue(const ValidatedDocument& document) {
  return !document.lines.empty() &&
         !OpenRs(
              "SELECT D.ID AS ID FROM G_DOCUME D INNER JOIN G_LDOCUM L ON L.DOCID = D.ID "
              "WHERE D.TIPIE = 'E' AND D.DATADOC >= ? AND D.ID <> ? AND L.ARTID = ? LIMIT 1",
              {document.date, document.key.text(), document.lines.front().article})
              .isEmpty();
}

// What a lot of the line has lost: a receipt's quantity, or goods that a customer returned on an issue.
bool isConsumed(const ValidatedDocument& document, const ValidatedDocument::Line& line) {
  if (!line.rest) return false;
  if (document.direction == kReceipt) return *line.rest != line.quantity;
  return document.direction == kIssue && line.quantity.isNegative() && *line.rest != line.quantity.abs();
}

// Returned goods are on the receipt again: what it received, less what other documents took from it.
std::vector<LotTake> returnsUndone(const ValidatedDocument& document) {
  QHash<QString, Decimal> returned;  // by code in upper case
  for (const auto& line : document.lines)
    if (line.quantity.isNegative()) returned[line.article.toUpper()] += line.quantity.abs();
  QHash<QString, Decimal> room = returned;
  QHash<QString, Decimal> size, rest;
  for (const Lot& lot : document.receipt) {
    size[lot.article.toUpper()] += lot.size;
    rest[lot.article.toUpper()] += lot.rest;
  }
  for (auto entry = room.begin(); entry != room.end(); ++entry) {
    const QString& code = entry.key();
    const Decimal most = size.value(code) - document.stillReturned.value(code) -
                         document.receiptIssued.value(code) - rest.value(code);
    *entry = std::max(Decimal(0), std::min(*entry, most));
  }
  std::vector<LotLink> links;
  for (const Lot& lot : document.receipt) {
    const Decimal back = room.take(lot.article.toUpper());
    if (back > 0) links.push_back({lot.document, lot.article, back});
  }
  return givenBack(document.receipt, links);
}

}  // namespace

ValidatedDocument readValidated(const LedgerKey& key) {
  const Recordset found = OpenRs("SELECT TIPIE, DATADOC, OBS FROM G_DOCUME WHERE ID = ?", {key.text()});
  if (found.isEmpty())
    throw RuleError(QStringLiteral("Documentul %1 nu a putut fi mutat in grila de culegere").arg(key.text()));
  ValidatedDocument document;
  document.key = key;
  document.direction = found.first().text("TIPIE").trimmed().toUpper();
  document.date = found.first().date("DATADOC");
  document.remark = found.first().text("OBS");
  document.lines = readLines(key.text());
  document.links = linksOf(key);
  document.lots = linkedLots(document.links);
  readReturns(document);
  readTaken(document);
  document.hasLaterIssue = document.direction == kIssue && hasLaterIssue(document);
  if (key.side != LedgerSide::None) document.isDraft = isDraft(key);
  if (isOrder(key.kind)) document.isTakenFrom = isTakenFrom(key);
  if (key.kind == KindId::CustomerInvoice) document.storno = stornoOf(key);
  document.notes = notesOf(key.prefix(), key.number, document.date);
  return document;
}

void requireRemovable(const ValidatedDocument& document) {
  const auto& lines = document.lines;
  if (document.key.kind == KindId::DeliveryNote &&
      std::any_of(lines.begin(), lines.end(), [](const auto& line) { return !line.reference.isEmpty(); }))
    throw RuleError(QStringLiteral("Acest Aviz de expeditie are referinte.Nu poate fi sters "));
  if (document.hasLaterIssue || std::any_of(lines.begin(), lines.end(), [&document](const auto& line) {
        return isConsumed(document, line);
      }))
    throw RuleError(QStringLiteral("Exista documente de iesire dupa acest document. Nu poate fi sters."));
  if (document.isTakenFrom)
    throw RuleError(
        QStringLiteral("Din aceasta comanda s-au receptionat sau livrat cantitati. Nu poate fi stearsa."));
  if (!document.storno.isEmpty())
    throw RuleError(QStringLiteral("Factura a fost stornata cu documentul %1. Nu poate fi stearsa.")
                        .arg(document.storno));
}

// Whether the document belongs to the other trade.
static bool isOfOtherTrade(const LedgerKey& key) { return otherTrade() && ledgerKind(key.kind).isAudio; }

QStringList checkRemoval(const LedgerKey& key) {
  requireNotAccepted(key);
  if (isOfOtherTrade(key)) return otherTrade()->checkRemoval(key);
  const ValidatedDocument document = readValidated(key);
  requireRemovable(document);
  if (document.direction != kReceipt || TIPCOST() == kFifo) return {};
  return {QStringLiteral(
      "Acesta este un document de intrare si nu poate fi sters daca s-au facut iesiri din stoc !")};
}

namespace {

// The goods are back in their lots and in the stock of their articles.
Plan goodsBack(const ValidatedDocument& document, const ArticleTable& articles, bool restoresCost) {
  Plan plan;
  plan.taker = document.key;
  plan.rests = givenBack(document.lots, document.links);
  const std::vector<LotTake> returns = returnsUndone(document);
  plan.rests.insert(plan.rests.end(), returns.begin(), returns.end());
  for (const LotLink& link : document.links) plan.removedLinks.append(link.article);
  plan.removedLinks.removeDuplicates();
  if (document.direction == kIssue || document.direction == kReceipt) {
    const bool isIssue = document.direction == kIssue;
    // The hearing-device trade never moves articles without stock; for the other documents all are counted.
    const bool skipsUnheld = ledgerKind(document.key.kind).isAudio;
    std::vector<StockReturn> changes;
    for (const auto& line : document.lines) {
      const ArticleFacts* article = articles.find(line.article);
      if (skipsUnheld && article && article->figures.FARASTOC) continue;
      // The value of goods that a customer brought back has the sign of their quantity.
      const Decimal value = line.quantity.isNegative() ? -line.cost.abs() : line.cost;
      changes.push_back({line.article, isIssue ? -line.quantity : line.quantity, value});
    }
    plan.articles = changesTakenBack(changes, articles, isIssue && restoresCost);
  }
  return plan;
}

}  // namespace

Plan withdrawalOf(const ValidatedDocument& document, const ArticleTable& articles) {
  Plan plan = goodsBack(document, articles, false);
  plan.directions = {{document.key, {}}};
  return plan;
}

Plan undoOf(const ValidatedDocument& document, const ArticleTable& articles, const QString& costMethod) {
  Plan plan = goodsBack(document, articles, costMethod != kFifo);
  plan.removedLedger = {document.key};
  plan.sources = takenAnew(document.sources, document.othersTook);
  // The remark of a document without a draft is the number of the one that it was made from.
  if (const DocumentKind* kind = findDocumentKind(document.key.kind))
    plan.draft = {
        kind, kind->hasDraft ? document.key.number : document.remark, {}, {}, false, !document.isDraft};
  plan.removedNotes = document.notes;
  return plan;
}

namespace {

bool takeOwnBack(const LedgerKey& key) {
  const ValidatedDocument document = readValidated(key);
  requireRemovable(document);
  QStringList codes;
  for (const auto& line : document.lines) codes.append(line.article);
  executePlan(undoOf(document, readArticles(codes), TIPCOST()), clock::now());
  return !document.notes.empty();
}

}  // namespace

bool takeBack(const LedgerKey& key) {
  Transaction transaction(database());
  requireNotAccepted(key);
  leaveEInvoice(key);
  const bool hadNotes = isOfOtherTrade(key) ? otherTrade()->takeBack(key) : takeOwnBack(key);
  transaction.commit();
  return hadNotes;
}

void reopenLost(const LedgerKey& key) {
  const DocumentKind& kind = documentKind(key.kind);
  QStringList keys;
  for (const LedgerSide side : {LedgerSide::None, LedgerSide::Issue, LedgerSide::Receipt})
    if (ledgerKind(kind.id).hasSides == (side != LedgerSide::None))
      keys.append(LedgerKey{key.kind, key.number, side}.text());
  Transaction transaction(database());
  if (!rowsOfKeys("SELECT ID FROM G_DOCUME WHERE ID IN (%1)", keys).empty())
    throw RuleError(QStringLiteral("Documentul %1 are inregistrari in documente.").arg(key.text()));
  Drafts(kind).setValidated(key.number, false);
  transaction.commit();
}

}  // namespace velmar
