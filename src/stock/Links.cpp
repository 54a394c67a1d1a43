#include "stock/Links.h"

#include <algorithm>
#include <QHash>

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
                     places[(row.text("NUMBER") + u'\n' + row.text("CODART")).toUpper()]++,
                     quantity,
                     tables.isDelivered ? Round(quantity - stored, kQuantityDecimals) : stored,
                     row.text("REFERINTA"),
                     row.date("DATASOLD")});
  }
}

void writeOf(const SourceTables& tables, const std::vector<SourceLine>& lines) {
  std::vector<Values> rests, ledger;
  QStringList numbers;
  for (const SourceLine& line : lines) {
    if (line.source.kind != tables.kind) continue;
    const Value date = line.date.isValid() ? Value(line.date) : Value();
    const Value reference = line.reference.isEmpty() ? Value() : Value(line.reference);
    const Decimal stored =
        tables.isDelivered ? Round(line.quantity - line.open, kQuantityDecimals) : line.open;
    Values rest{stored, reference};
    if (tables.isDated) rest.push_back(date);
    rest.insert(rest.end(), {line.source.number, line.line});
    rests.push_back(std::move(rest));
    Values values{reference, date};
    if (tables.restInLedger) values.insert(values.begin(), line.open);
    values.insert(values.end(), {line.source.text(), line.source.text(), line.article, line.place});
    ledger.push_back(std::move(values));
    numbers.append(line.source.number);
  }
  numbers.removeDuplicates();
  if (rests.empty()) return;
  database().executeEach(
      inserted("UPDATE {lines} SET {column} = ?, REFERINTA = ?%1 WHERE {number} = ? AND NRLINIE = ?", tables)
          .arg(tables.isDated ? QStringLiteral(", DATASOLD = ?") : QString()),
      rests);
  database().executeEach(QStringLiteral("UPDATE G_LDOCUM SET %1REFERINTA = ?, DATASOLD = ? "
                                        "WHERE DOCID = ? AND LINIE = (SELECT LINIE FROM G_LDOCUM WHERE "
                                        "DOCID = ? AND ARTID = ? ORDER BY LINIE LIMIT 1 OFFSET ?)")
                             .arg(tables.restInLedger ? QStringLiteral("CANTRAMASA = ?, ") : QString()),
                         ledger);
  if (*tables.closed == '\0') return;
  for (const QString& number : numbers) {
    const bool isOpen =
        !database()
             .query(
                 inserted("SELECT {number} FROM {lines} WHERE {number} = ? AND {column} > 0 LIMIT 1", tables),
                 {number})
             .isEmpty();
    database().execute(inserted("UPDATE {headers} SET {closed} = ? WHERE {number} = ?", tables),
                       {!isOpen, number});
    if (tables.restInLedger)
      database().execute("UPDATE G_DOCUME SET VALIDAT = ? WHERE ID = ?",
                         {!isOpen, LedgerKey{tables.kind, number}.text()});
  }
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
  const auto keyOf = [](const LedgerKey& source, const QString& article) {
    return (source.text() + u'\n' + article).toUpper();
  };
  for (const SourceLine& line : readSources(sources)) open[keyOf(line.source, line.article)] += line.open;
  for (const TakenLine& line : taken) {
    Decimal& left = open[keyOf(line.source, line.article)];
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
    : lines_(std::move(lines)), isChanged_(lines_.size(), false) {}

bool OpenSources::isOf(const SourceLine& line, const TakenLine& taken) const {
  return line.source.kind == taken.source.kind &&
         line.source.number.compare(taken.source.number, Qt::CaseInsensitive) == 0 &&
         line.article.compare(taken.article, Qt::CaseInsensitive) == 0;
}

void OpenSources::take(const TakenLine& taken, const LedgerKey& taker, const QDate& date) {
  Decimal wanted = taken.quantity;
  SourceLine* last = nullptr;
  for (size_t i = 0; i < lines_.size(); ++i) {
    SourceLine& line = lines_[i];
    if (!isOf(line, taken)) continue;
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
