#include "stock/Links.h"

#include <algorithm>
#include <QHash>
#include <QSet>

#include "store/Database.h"
#include "store/Records.h"

namespace velmar {

namespace {

constexpr int kQuantityDecimals = 3;

// How a kind stores the open quantities of its lines.
struct SourceTables {
  KindId kind;
  const char* headers;
  const char* lines;
  const char* number;
  const char* column;  ///< of the lines
  bool isDelivered;    ///< the column has what was taken, not what is open
  const char* closed;  ///< flag of the header; "" when there is none
  bool restInLedger;   ///< the open quantity is in CANTRAMASA of the ledger too
  bool isDated;        ///< the lines have the date of the reference
};

constexpr SourceTables kSources[] = {
    {KindId::DeliveryNote, "G_AECLI", "G_LAECLI", "NUMAE", "CANTRAMAS", false, "FACTURAT", true, true},
    {KindId::SupplierOrder, "G_COMFUR", "G_LCOMFU", "NUMCOM", "CANTRLIV", false, "SOLDAT", false, true},
    {KindId::CustomerOrder, "G_COMCLI", "G_LCOMCL", "NUMCOM", "CANTLIV", true, "", false, false}};

QString inserted(const char* sql, const SourceTables& tables) {
  return QString::fromLatin1(sql)
      .replace(QStringLiteral("{headers}"), QString::fromLatin1(tables.headers))
      .replace(QStringLiteral("{lines}"), QString::fromLatin1(tables.lines))
      .replace(QStringLiteral("{number}"), QString::fromLatin1(tables.number))
      .replace(QStringLiteral("{column}"), QString::fromLatin1(tables.column))
      .replace(QStringLiteral("{closed}"), QString::fromLatin1(tables.closed))
      .replace(QStringLiteral("{date}"), QString::fromLatin1(tables.isDated ? "DATASOLD" : "NULL"));
}

// Of an article in a document.
QString placeKey(const QString& document, const QString& article) {
  return (document + u'\n' + article).toUpper();
}

void readOf(const SourceTables& tables, const std::vector<LedgerKey>& sources,
            std::vector<SourceLine>& lines) {
  QStringList numbers;
  for (const LedgerKey& source : sources)
    if (source.kind == tables.kind) numbers.append(source.number);
  numbers.removeDuplicates();
  QHash<QString, int> places;
  for (const Row& row :
       rowsOfKeys(inserted("SELECT {number} AS NUMBER, NRLINIE, CODART, CANT, {column} AS REST, "
                           "REFERINTA, {date} AS DATASOLD FROM {lines} WHERE {number} IN (%1) "
                           "ORDER BY {number}, NRLINIE",
                           tables),
                  numbers)) {
    const Decimal quantity = row.decimal("CANT");
    const Decimal stored = row.decimal("REST");
    lines.push_back({{tables.kind, row.text("NUMBER")},
                     row.integer("NRLINIE"),
                     row.text("CODART"),
                     places[placeKey(row.text("NUMBER"), row.text("CODART"))]++,
                     quantity,
                     tables.isDelivered ? Round(quantity - stored, kQuantityDecimals) : stored,
                     row.text("REFERINTA"),
                     row.date("DATASOLD")});
  }
}

// The lines of ledger documents (LINIE), by document and article, in order.
using LedgerPlaces = QHash<QString, std::vector<qint64>>;

LedgerPlaces readPlaces(const QStringList& documents) {
  LedgerPlaces places;
  for (const Row& row : rowsOfKeys("SELECT DOCID, LINIE, ARTID FROM G_LDOCUM WHERE DOCID IN (%1) "
                                   "ORDER BY DOCID, LINIE",
                                   documents))
    places[placeKey(row.text("DOCID"), row.text("ARTID"))].push_back(row.integer("LINIE"));
  return places;
}

// Closes the headers without open lines, opens the others.
void writeClosed(const SourceTables& tables, const QStringList& numbers) {
  QSet<QString> open;  // in upper case
  for (const Row& row : rowsOfKeys(inserted("SELECT DISTINCT {number} AS NUMBER FROM {lines} "
                                            "WHERE {number} IN (%1) AND {column} > 0",
                                            tables),
                                   numbers))
    open.insert(row.text("NUMBER").toUpper());
  std::vector<Values> headers, ledger;
  for (const QString& number : numbers) {
    const bool isClosed = !open.contains(number.toUpper());
    headers.push_back({isClosed, number});
    ledger.push_back({isClosed, LedgerKey{tables.kind, number}.text()});
  }
  database().executeEach(inserted("UPDATE {headers} SET {closed} = ? WHERE {number} = ?", tables), headers);
  if (tables.restInLedger) database().executeEach("UPDATE G_DOCUME SET VALIDAT = ? WHERE ID = ?", ledger);
}

void writeOf(const SourceTables& tables, const std::vector<SourceLine>& all) {
  std::vector<SourceLine> lines;
  QStringList numbers, documents;
  for (const SourceLine& line : all) {
    if (line.source.kind != tables.kind) continue;
    lines.push_back(line);
    numbers.append(line.source.number);
    documents.append(line.source.text());
  }
  if (lines.empty()) return;
  numbers.removeDuplicates();
  documents.removeDuplicates();
  const LedgerPlaces places = readPlaces(documents);
  std::vector<Values> rests, ledger;
  for (const SourceLine& line : lines) {
    const Value date = line.date.isValid() ? Value(line.date) : Value();
    const Value reference = line.reference.isEmpty() ? Value() : Value(line.reference);
    const Decimal stored =
        tables.isDelivered ? Round(line.quantity - line.open, kQuantityDecimals) : line.open;
    Values rest{stored, reference};
    if (tables.isDated) rest.push_back(date);
    rest.insert(rest.end(), {line.source.number, line.line});
    rests.push_back(std::move(rest));
    const auto found = places.constFind(placeKey(line.source.text(), line.article));
    if (found == places.constEnd() || static_cast<size_t>(line.place) >= found->size()) continue;
    Values values{reference, date};
    if (tables.restInLedger) values.insert(values.begin(), line.open);
    values.insert(values.end(), {line.source.text(), (*found)[static_cast<size_t>(line.place)]});
    ledger.push_back(std::move(values));
  }
  database().executeEach(
      inserted("UPDATE {lines} SET {column} = ?, REFERINTA = ?%1 WHERE {number} = ? AND NRLINIE = ?", tables)
          .arg(tables.isDated ? QStringLiteral(", DATASOLD = ?") : QString()),
      rests);
  if (!ledger.empty())
    database().executeEach(
        QStringLiteral("UPDATE G_LDOCUM SET %1REFERINTA = ?, DATASOLD = ? WHERE DOCID = ? AND LINIE = ?")
            .arg(tables.restInLedger ? QStringLiteral("CANTRAMASA = ?, ") : QString()),
        ledger);
  if (*tables.closed != '\0') writeClosed(tables, numbers);
}

}  // namespace

QString referenceOf(const LedgerKey& taker, const LedgerKey& source) {
  const bool isReturn = taker.kind == KindId::ReceiptNote && source.kind == KindId::DeliveryNote;
  return isReturn ? taker.number : taker.text();
}

std::vector<SourceLine> readSources(const std::vector<LedgerKey>& sources) {
  std::vector<SourceLine> lines;
  for (const SourceTables& tables : kSources) readOf(tables, sources, lines);
  return lines;
}

std::optional<TakenLine> exceeding(const std::vector<TakenLine>& taken) {
  std::vector<LedgerKey> sources;
  for (const TakenLine& line : taken) sources.push_back(line.source);
  QHash<QString, Decimal> open;  // by source and article
  for (const SourceLine& line : readSources(sources))
    open[placeKey(line.source.text(), line.article)] += line.open;
  for (const TakenLine& line : taken) {
    Decimal& left = open[placeKey(line.source.text(), line.article)];
    left -= line.quantity;
    if (left < 0) return line;
  }
  return std::nullopt;
}

std::vector<LedgerKey> ordersOf(const QString& invoice) {
  std::vector<LedgerKey> orders;
  for (const Row& row : OpenRs(
           "SELECT F.ID_Comanda AS NUMBER FROM G_FACTURI_COMENZI_CLIENTI F LEFT JOIN G_COMCLI C "
           "ON C.NUMCOM = F.ID_Comanda WHERE F.ID_Factura = ? ORDER BY C.DATACOM NULLS FIRST, F.ID_Comanda",
           {invoice}))
    orders.push_back({KindId::CustomerOrder, row.text("NUMBER")});
  return orders;
}

OpenSources::OpenSources(std::vector<SourceLine> lines)
    : lines_(std::move(lines)), isChanged_(lines_.size(), false) {
  for (size_t i = 0; i < lines_.size(); ++i)
    places_[placeKey(lines_[i].source.text(), lines_[i].article)].push_back(i);
}

void OpenSources::take(const TakenLine& taken, const LedgerKey& taker, const QDate& date) {
  Decimal wanted = taken.quantity;
  SourceLine* last = nullptr;
  for (const size_t i : places_.value(placeKey(taken.source.text(), taken.article))) {
    SourceLine& line = lines_[i];
    last = &line;
    if (wanted.isZero() || line.open <= 0) continue;
    const Decimal part = line.open < wanted ? line.open : wanted;
    line.open = Round(line.open - part, kQuantityDecimals);
    line.reference = referenceOf(taker, line.source);
    line.date = date;
    wanted = Round(wanted - part, kQuantityDecimals);
    isChanged_[i] = true;
  }
  if (!last || wanted.isZero() || taken.source.kind != KindId::DeliveryNote) return;
  last->open = Round(last->open - wanted, kQuantityDecimals);
  last->reference = referenceOf(taker, last->source);
  last->date = date;
  isChanged_[static_cast<size_t>(last - lines_.data())] = true;
}

std::vector<SourceLine> OpenSources::changed() const {
  std::vector<SourceLine> changed;
  for (size_t i = 0; i < lines_.size(); ++i)
    if (isChanged_[i]) changed.push_back(lines_[i]);
  return changed;
}

std::vector<SourceLine> takenAnew(const std::vector<SourceLine>& lines, const std::vector<Take>& takes) {
  std::vector<SourceLine> untouched = lines;
  for (SourceLine& line : untouched) {
    line.open = line.quantity;
    line.reference.clear();
    line.date = QDate();
  }
  OpenSources sources(untouched);
  for (const Take& take : takes) sources.take(take.taken, take.taker, take.date);
  std::vector<SourceLine> changed;
  for (size_t i = 0; i < lines.size(); ++i) {
    const SourceLine& now = sources.lines()[i];
    if (now.open != lines[i].open || now.reference != lines[i].reference.trimmed() ||
        now.date != lines[i].date)
      changed.push_back(now);
  }
  return changed;
}

void writeSources(const std::vector<SourceLine>& lines) {
  for (const SourceTables& tables : kSources) writeOf(tables, lines);
}

}  // namespace velmar
