#include "accounting/Notes.h"

#include "config/Session.h"
#include "store/Database.h"
#include "util/Clock.h"
#include "util/Errors.h"

namespace velmar {

namespace {

const QString kNational = QStringLiteral("LEI");
const QString kOurs = QStringLiteral("G");
const QString kAccountMissing =
    QStringLiteral("Nu au fost stabilite toate conturile necesare la configurarea societatii !");

// What notes read from the accounts carry beside the columns of every note.
const QString kQuantity = QStringLiteral("CANTIT");
const QStringList& copiedColumns() {
  static const QStringList columns{kQuantity,      "CODCC",      "CODIE", "CODOPER",
                                   "CODSUCURSALA", "ID_FORMULA", "LITM"};
  return columns;
}

// The columns of every note, then those that some of the notes use.
QStringList columnsOf(const std::vector<Note>& notes) {
  QStringList columns{"NDI",        "NRLINIE", "JURNAL",        "DATAINR", "CONT",   "EXPL",
                      "DEBIT",      "CREDIT",  "DOC",           "MARCA",   "COD",    "PROV",
                      "UTILIZATOR", "TIMP",    "DocExplicatie", "TIPDOC",  "FELDOC", "TERT",
                      "TVA_LINREF", "COTATVA", "CODBUG",        "DATASCAD"};
  if (notes.front().inCurrencyForm) columns.append({"CURS", "DEVDEBIT", "DEVCREDIT"});
  if (!notes.front().vatOnCollection.data().isNull()) columns.append("TVAINC");
  if (!notes.front().rows.front().copied.empty())
    columns.append(copiedColumns());
  else if (!notes.front().branch.isEmpty())
    columns.append("CodSucursala");
  return columns;
}

Values valuesOf(const Note& note, const NoteRow& row, qint64 ndi, int line, const QDateTime& now) {
  Values values{ndi,
                line,
                row.journal.isEmpty() ? note.journal : row.journal,
                note.date,
                row.account,
                note.explanation.value_or(note.remark),
                row.debit,
                row.credit,
                note.number,
                note.number,
                note.currency.isEmpty() ? kNational : note.currency,
                kOurs,
                note.user.isEmpty() ? session().gUtilizator : note.user,
                now,
                note.remark,
                note.stamp.isEmpty() ? Value() : Value(note.stamp),
                note.kind.isEmpty() ? Value() : Value(note.kind),
                row.partner,
                row.vatLink,
                row.vatPercent,
                row.costCentre,
                note.dueDate.isValid() ? Value(note.dueDate) : Value()};
  if (note.inCurrencyForm)
    for (const Decimal& amount : {note.rate, row.foreignDebit, row.foreignCredit}) values.push_back(amount);
  if (!note.vatOnCollection.data().isNull()) values.push_back(note.vatOnCollection);
  if (!row.copied.empty())
    values.insert(values.end(), row.copied.begin(), row.copied.end());
  else if (!note.branch.isEmpty())
    values.emplace_back(note.branch);
  return values;
}

}  // namespace

void turnRound(Note& note, bool inBlack) {
  for (NoteRow& row : note.rows) {
    if (inBlack) {
      std::swap(row.debit, row.credit);
      std::swap(row.foreignDebit, row.foreignCredit);
      continue;
    }
    for (Decimal* amount : {&row.debit, &row.credit, &row.foreignDebit, &row.foreignCredit})
      *amount = Decimal(0) - *amount;
  }
}

void fillNulls(Note& note) {
  const auto fill = [](Value& cell, const Value& empty) {
    if (cell.data().isNull()) cell = empty;
  };
  for (NoteRow& row : note.rows) {
    for (Value* number : {&row.partner, &row.vatLink, &row.vatPercent}) fill(*number, 0);
    fill(row.costCentre, "");
    for (qsizetype i = 0; i < static_cast<qsizetype>(row.copied.size()); ++i)
      fill(row.copied[static_cast<size_t>(i)], copiedColumns()[i] == kQuantity ? Value(0) : Value(""));
  }
}

void requireBalance(const Note& note) {
  Decimal debit;
  Decimal credit;
  for (const NoteRow& row : note.rows) {
    if (row.account.trimmed().isEmpty()) throw RuleError(kAccountMissing);
    debit += row.debit;
    credit += row.credit;
  }
  if (debit != credit)
    throw StoreError(0, QStringLiteral("DEBIT <> CREDIT, validarea nu se poate efectua !"));
}

qint64 writeNotes(const std::vector<Note>& notes) {
  std::vector<Note> written;
  for (const Note& note : notes) {
    requireBalance(note);
    if (!note.rows.empty()) written.push_back(note);
  }
  if (written.empty()) return 0;
  const qint64 first = database().query("SELECT MAX(NDI) AS NDI FROM kt_linii").first().integer("NDI") + 1;
  const QDateTime now = clock::now();
  std::vector<Values> rows;
  qint64 ndi = first;
  for (const Note& note : written) {
    int line = 0;
    for (const NoteRow& row : note.rows) rows.push_back(valuesOf(note, row, ndi, ++line, now));
    ++ndi;
  }
  database().insertRows("kt_linii", columnsOf(written), rows);
  return first;
}

std::vector<qint64> notesOf(const QString& kind, const QString& number, const QDate& from) {
  const Recordset rows = OpenRs(
      "SELECT NDI, MAX(TIPDOC) AS TIPDOC, MAX(FELDOC) AS FELDOC, MIN(DATAINR) AS DATAINR FROM kt_linii "
      "WHERE DOC = ? AND PROV = ? GROUP BY NDI ORDER BY NDI",
      {number, kOurs});
  std::vector<qint64> found;
  std::vector<qint64> unstamped;
  for (const Row& row : rows) {
    const QString stored = row.text("FELDOC");
    const QString stamp = row.text("TIPDOC");
    const bool isRecent = row.date("DATAINR") >= from;
    if (!stored.isEmpty()) {
      if (isRecent && stored.compare(kind, Qt::CaseInsensitive) == 0) found.push_back(row.integer("NDI"));
      continue;
    }
    if (isRecent) unstamped.push_back(row.integer("NDI"));
    if (stamp.isEmpty()) continue;
    if (stamp.compare(kind, Qt::CaseInsensitive) == 0)
      found.insert(found.end(), unstamped.begin(), unstamped.end());
    unstamped.clear();
  }
  return found;
}

std::vector<Note> readNotes(const std::vector<qint64>& ndis) {
  QStringList numbers;
  for (const qint64 ndi : ndis) numbers.append(QString::number(ndi));
  std::vector<Note> notes;
  qint64 last = 0;
  for (const Row& row : numbers.isEmpty() ? std::vector<Row>()
                                          : OpenRs(QStringLiteral("SELECT * FROM kt_linii WHERE NDI IN (%1) "
                                                                  "AND PROV = ? ORDER BY NDI, NRLINIE")
                                                       .arg(numbers.join(u',')),
                                                   {kOurs})
                                                .takeRows()) {
    if (notes.empty() || row.integer("NDI") != last) {
      last = row.integer("NDI");
      Note note;
      note.kind = row.text("FELDOC");
      note.journal = row.text("JURNAL");
      note.date = row.date("DATAINR");
      note.number = row.text("DOC");
      note.remark = row.text("DocExplicatie");
      note.explanation = row.text("EXPL");
      note.dueDate = row.date("DATASCAD");
      note.currency = row.text("COD") == kNational ? QString() : row.text("COD");
      note.user = row.text("UTILIZATOR");
      note.inCurrencyForm = true;
      note.rate = row.decimal("CURS");
      note.vatOnCollection = Value::raw(row.value("TVAINC"));
      notes.push_back(std::move(note));
    }
    Values copied;
    for (const QString& column : copiedColumns()) copied.push_back(Value::raw(row.value(column)));
    notes.back().rows.push_back({row.text("CONT"), row.decimal("DEBIT"), row.decimal("CREDIT"),
                                 row.decimal("DEVDEBIT"), row.decimal("DEVCREDIT"),
                                 Value::raw(row.value("TERT")), Value::raw(row.value("TVA_LINREF")),
                                 Value::raw(row.value("COTATVA")), Value::raw(row.value("CODBUG")),
                                 row.text("JURNAL"), std::move(copied)});
  }
  return notes;
}

int removeNotes(const std::vector<qint64>& notes, const QString& number) {
  int rows = 0;
  for (const qint64 note : notes)
    rows += database().execute("DELETE FROM kt_linii WHERE NDI = ? AND DOC = ? AND PROV = ?",
                               {note, number, kOurs});
  return rows;
}

}  // namespace velmar
