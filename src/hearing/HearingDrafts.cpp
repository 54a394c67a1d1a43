#include "hearing/HearingDrafts.h"

#include <algorithm>

#include "store/Database.h"
#include "store/Records.h"
#include "util/Errors.h"

namespace velmar {

namespace {

const QString kGone = QStringLiteral(
    "Documentul a fost validat sau sters intre timp de alt utilizator ! Nu s-a modificat nimic ! Apasati F5 "
    "pentru a reciti lista.");
const QString kChanged = QStringLiteral(
    "Documentul a fost modificat intre timp de alt utilizator ! Nu s-a salvat nimic ! Se arata acum "
    "documentul "
    "asa cum este salvat: verificati si incercati din nou.");

bool isSameCell(const Column& column, const Row& a, const Row& b) {
  switch (column.type) {
    case ColumnType::Text:
      return a.text(column.name) == b.text(column.name);
    case ColumnType::Date:
      return a.date(column.name) == b.date(column.name);
    default:
      return a.decimal(column.name) == b.decimal(column.name);
  }
}

}  // namespace

bool isSameRow(const Table& table, const Row& a, const Row& b) {
  const auto& columns = table.columns();
  return std::all_of(columns.begin(), columns.end(), [&](const Column& column) {
    return !a.has(column.name) || !b.has(column.name) || isSameCell(column, a, b);
  });
}

Row HearingDrafts::stored(qint64 key) const { return record(header_, key); }

std::vector<Row> HearingDrafts::lines(qint64 key) const {
  return OpenRs(QStringLiteral("SELECT * FROM %1 WHERE %2 = ? ORDER BY %3")
                    .arg(lines_.name(), owner(), lineKey()),
                {key})
      .takeRows();
}

Row HearingDrafts::requireDraft(qint64 key) const {
  Row header = stored(key);
  if (header.isEmpty() || header.flag("Validat")) throw RuleError(kGone);
  return header;
}

std::vector<Row> HearingDrafts::requireAsShown(const Row& header, const std::vector<Row>& shown) const {
  const qint64 key = header.integer(headerKey());
  const Row now = requireDraft(key);
  std::vector<Row> present = lines(key);
  const bool isSame = isSameRow(header_, now, header) &&
                      std::equal(present.begin(), present.end(), shown.begin(), shown.end(),
                                 [this](const Row& a, const Row& b) { return isSameRow(lines_, a, b); });
  if (!isSame) throw RuleError(kChanged);
  return present;
}

void HearingDrafts::saveHeader(const Row& header, const Row& shown, const QString& changed) const {
  const qint64 key = shown.integer(headerKey());
  const Row current = requireDraft(key);
  QStringList columns = ofTable(header_, header).columns();
  if (!columns.contains(headerKey(), Qt::CaseInsensitive)) columns.append(headerKey());
  Row written = changesOf(header_, rowOf(columns, header), shown);
  written.set(headerKey(), key);
  const QStringList conflicts = differing(written.columns(), current, shown);
  if (!conflicts.isEmpty()) throw ChangedMeanwhile(changed, current, conflicts);
  if (written.columns().size() > 1) updateRecord(header_, written);
}

void HearingDrafts::remove(qint64 key) const {
  database().execute(QStringLiteral("DELETE FROM %1 WHERE %2 = ?").arg(lines_.name(), owner()), {key});
  deleteRecord(header_, key);
}

qint64 HearingDrafts::addLine(qint64 key, const Row& line) const {
  Row row = ofTable(lines_, line);
  row.set(owner(), key);
  return insertNumbered(lines_, row);
}

void HearingDrafts::saveLine(const Row& line, const Row& shown) const {
  const Row current = record(lines_, shown.integer(lineKey()));
  if (current.isEmpty() || !isSameRow(lines_, current, shown)) throw RuleError(kChanged);
  updateRecord(lines_, ofTable(lines_, line));
}

void HearingDrafts::removeLine(qint64 line) const {
  if (!deleteRecord(lines_, line)) throw RuleError(kChanged);
}

void HearingDrafts::storeCosts(const std::vector<Row>& lines) const {
  std::vector<Values> costs;
  for (const Row& line : lines) costs.push_back({line.decimal("Cost"), line.integer(lineKey())});
  database().executeEach(QStringLiteral("UPDATE %1 SET Cost = ? WHERE %2 = ?").arg(lines_.name(), lineKey()),
                         costs);
}

}  // namespace velmar
