#include "stock/Ledger.h"

#include <algorithm>
#include <functional>

#include "config/Session.h"
#include "store/Database.h"
#include "store/Records.h"
#include "util/Errors.h"

namespace velmar {

namespace {

template <typename Object>
struct WrittenColumn {
  const char* name;
  std::function<Value(const Object&)> value;
};

Value textOrNull(const QString& text) { return text.isEmpty() ? Value() : Value(text); }
Value dateOrNull(const QDate& date) { return date.isValid() ? Value(date) : Value(); }

template <typename Number>
Value numberOrNull(const std::optional<Number>& number) {
  return number ? Value(*number) : Value();
}

const std::vector<WrittenColumn<LedgerDocument>>& documentColumns() {
  using D = LedgerDocument;
  static const std::vector<WrittenColumn<D>> columns{
      {"ID", [](const D& d) { return Value(d.key.text()); }},
      {"TIP", [](const D& d) { return Value(d.key.prefix()); }},
      {"TIPIE", [](const D& d) { return textOrNull(d.direction); }},
      {"CODMAG", [](const D& d) { return Value(d.warehouse); }},
      {"CODTERT", [](const D& d) { return Value(d.partner); }},
      {"DATADOC", [](const D& d) { return Value(d.date); }},
      {"OBS", [](const D& d) { return Value(d.remark); }},
      {"TOTALFT", [](const D& d) { return Value(d.value); }},
      {"TOTALTVA", [](const D& d) { return Value(d.vat); }},
      {"TOTALCOST", [](const D& d) { return Value(d.cost); }},
      {"CODDEV", [](const D& d) { return Value(d.currency); }},
      {"CURS", [](const D& d) { return numberOrNull(d.rate); }},
      {"TOTALDEV", [](const D& d) { return Value(d.valueInCurrency); }},
      {"DATASCAD", [](const D& d) { return dateOrNull(d.dueDate); }},
      {"MODREG", [](const D& d) { return numberOrNull(d.paymentMode); }},
      {"IsAudio", [](const D& d) { return Value(ledgerKind(d.key.kind).isAudio); }},
      {"STORNAT", [](const D& d) { return Value(d.isTurned); }},
      {"SERIE", [](const D& d) { return textOrNull(d.series); }},
      {"NUMFACTR", [](const D& d) { return textOrNull(d.carrierInvoice); }},
      {"FURTR", [](const D& d) { return numberOrNull(d.carrier); }},
      {"TRANSTTI", [](const D& d) { return numberOrNull(d.transport); }}};
  return columns;
}

const std::vector<WrittenColumn<LedgerLine>>& lineColumns() {
  using L = LedgerLine;
  static const std::vector<WrittenColumn<L>> columns{
      {"ARTID", [](const L& l) { return Value(l.article); }},
      {"CANT", [](const L& l) { return Value(l.quantity); }},
      {"PRETFT", [](const L& l) { return Value(l.price); }},
      {"PRETTTI", [](const L& l) { return Value(l.priceWithVat); }},
      {"PRETDEV", [](const L& l) { return Value(l.priceInCurrency); }},
      {"VALTVA", [](const L& l) { return Value(l.vat); }},
      {"COST", [](const L& l) { return Value(l.unitCost); }},
      {"COSTDEV", [](const L& l) { return Value(l.unitCostInCurrency); }},
      {"VALCOST", [](const L& l) { return Value(l.cost); }},
      {"VALCOSTDEV", [](const L& l) { return Value(l.costInCurrency); }},
      {"CODTVA", [](const L& l) { return Value(l.vatPercent); }},
      {"CANTRAMASA", [](const L& l) { return numberOrNull(l.rest); }},
      {"PRETVA", [](const L& l) { return numberOrNull(l.salePrice); }},
      {"PROCRAB", [](const L& l) { return numberOrNull(l.discountPercent); }},
      {"VALRAB", [](const L& l) { return numberOrNull(l.discountedPrice); }},
      {"CODCC", [](const L& l) { return textOrNull(l.costCentre); }},
      {"PALET", [](const L& l) { return textOrNull(l.palet); }},
      {"REFERINTA", [](const L& l) { return textOrNull(l.reference); }}};
  return columns;
}

template <typename Object>
void appendCells(const std::vector<WrittenColumn<Object>>& columns, const Object& object, Values& cells) {
  for (const auto& column : columns) cells.push_back(column.value(object));
}

template <typename Object>
QStringList namesOf(const std::vector<WrittenColumn<Object>>& columns) {
  QStringList names;
  for (const auto& column : columns) names.append(QLatin1String(column.name));
  return names;
}

}  // namespace

void writeLedger(const std::vector<LedgerDocument>& documents, const QDateTime& moment) {
  if (documents.empty()) return;
  QStringList keys;
  std::vector<Values> heads;
  std::vector<Values> rows;
  const Value written(moment);
  for (const LedgerDocument& document : documents) {
    keys.append(document.key.text());
    Values head{moment.date(), moment.time(), session().gUtilizator};
    appendCells(documentColumns(), document, head);
    heads.push_back(std::move(head));
    int number = 0;
    for (const LedgerLine& line : document.lines) {
      Values row{keys.last(), ++number, written, document.warehouse};
      appendCells(lineColumns(), line, row);
      rows.push_back(std::move(row));
    }
  }
  const auto taken = rowsOfKeys("SELECT ID FROM G_DOCUME WHERE ID IN (%1)", keys);
  if (!taken.empty())
    throw RuleError(QStringLiteral("Mai exista factura: ") + taken.front().text("ID"), {}, 0,
                    QStringLiteral("Eroare..."));
  database().insertRows("G_DOCUME",
                        QStringList{"DATAINTROD", "TIMP", "UTILIZATOR"} + namesOf(documentColumns()), heads);
  database().insertRows("G_LDOCUM", QStringList{"DOCID", "LINIE", "DATA", "CODMAG"} + namesOf(lineColumns()),
                        rows);
}

void removeLedger(const std::vector<LedgerKey>& keys) {
  for (const LedgerKey& key : keys) {
    database().execute("DELETE FROM G_LDOCUM WHERE DOCID = ?", {key.text()});
    if (database().execute("DELETE FROM G_DOCUME WHERE ID = ?", {key.text()}) == 0)
      throw RuleError(
          QStringLiteral("Documentul %1 nu a putut fi mutat in grila de culegere").arg(key.text()));
  }
}

void writeDirections(const std::vector<DirectionChange>& changes) {
  for (const DirectionChange& change : changes) {
    const QString key = change.key.text();
    if (database().execute("UPDATE G_DOCUME SET TIPIE = ? WHERE ID = ?",
                           {textOrNull(change.direction), key}) == 0)
      throw RuleError(QStringLiteral("Documentul %1 nu mai exista").arg(key));
    if (change.lineCosts.empty()) continue;
    std::vector<Values> lines;
    Decimal total;
    for (const Decimal& cost : change.lineCosts) {
      total += cost;
      lines.push_back({cost, cost, key, static_cast<qint64>(lines.size()) + 1});
    }
    database().executeEach("UPDATE G_LDOCUM SET COST = ?, VALCOST = ? WHERE DOCID = ? AND LINIE = ?", lines);
    database().execute("UPDATE G_DOCUME SET TOTALCOST = ? WHERE ID = ?", {total, key});
  }
}

QString TIPCOST() {
  const Recordset found = OpenRs("SELECT TCOST FROM kt_info");
  return found.isEmpty() ? QString() : found.first().text("TCOST").trimmed();
}

}  // namespace velmar
