#include "einvoice/EInvoices.h"

#include <exception>
#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QRegularExpression>

#include "config/Parameters.h"
#include "config/Session.h"
#include "documents/EInvoiceState.h"
#include "documents/Numbering.h"
#include "store/Database.h"
#include "store/Records.h"
#include "util/Clock.h"
#include "util/Errors.h"
#include "util/FileRights.h"
#include "util/WorkingDays.h"

namespace velmar {

namespace {

constexpr int kBatch = 100;  // documents that are read, and stored, together

// A buyer abroad without a Romanian code: the invoice does not go through the state's system.
const QString kAbroad = QStringLiteral(
    "(UPPER(TRIM(COALESCE(T.CT, ''))) NOT IN ('', 'RO') AND SUBSTR(UPPER(TRIM(COALESCE(T.CODFISCAL, ''))), "
    "1, 2) <> "
    "'RO')");
const QString kInvoices = QStringLiteral("G_DOCUME D LEFT JOIN kt_ter T ON T.COD = D.CODTERT");
// From these days on invoices to firms, and to persons, go through the state's system.
const QDate kFirms(2024, 1, 1);
const QDate kPersons(2025, 1, 1);
const QString kPerson =
    QStringLiteral("(T.TIP = 'P' OR COALESCE(T.PF, 0) <> 0 OR TRIM(COALESCE(T.CODFISCAL, '')) = '')");

// The last day of issue whose term is over.
QDate lastLateDay(const QDate& today) {
  const int term = eInvoiceTerm(storedIdentity());
  QDate day = today;
  while (workingDaysAfter(day, term) >= today) day = day.addDays(-1);
  return day;
}

// Whether a row of kInvoices is late; its values are those of lateValues().
// The state is sought in an index: a row of a file has the state behind its contents.
const QString kLate =
    QStringLiteral(
        "(D.DATADOC BETWEEN ? AND ? AND NOT EXISTS (SELECT 1 FROM G_EFACTURA F WHERE F.DOCID = D.ID "
        "AND F.ACTUAL <> 0 AND F.STARE IN (?, ?)) AND NOT ") +
    kAbroad + QStringLiteral(" AND (D.DATADOC >= ? OR NOT ") + kPerson + QStringLiteral("))");
Values lateValues(const QDate& today) {
  return {kFirms, endOf(lastLateDay(today)), einvoice::kSent, einvoice::kAccepted, kPersons};
}

// The stored file of a document; an empty row without one.
Row storedFile(const QString& document) {
  const Recordset found = OpenRs("SELECT * FROM G_EFACTURA WHERE DOCID = ? AND ACTUAL <> 0", {document});
  return found.isEmpty() ? Row() : found.first();
}

bool isAbroad(const QString& document) {
  return !OpenRs(QStringLiteral("SELECT D.ID FROM %1 WHERE D.ID = ? AND %2").arg(kInvoices, kAbroad),
                 {document})
              .isEmpty();
}

Row requiredFile(const QString& document) {
  const Row file = storedFile(document);
  if (file.isEmpty()) throw RuleError(QStringLiteral("Fisierul facturii %1 nu a fost scris.").arg(document));
  return file;
}

// A version of the file of a document, which becomes its own.
Row newVersion(const QString& document, const QString& number, const QByteArray& content) {
  Row row = rowOf("DOCID NUMAR CONTINUT SHA256 MOMENT UTILIZATOR STARE ACTUAL");
  row.set("DOCID", document);
  row.set("NUMAR", number);
  row.set("CONTINUT", QString::fromUtf8(content));
  row.set("SHA256",
          QString::fromLatin1(QCryptographicHash::hash(content, QCryptographicHash::Sha256).toHex()));
  row.set("MOMENT", clock::now());
  row.set("UTILIZATOR", session().gUtilizator);
  row.set("STARE", einvoice::kWritten);
  row.set("ACTUAL", true);
  return row;
}

void store(const Row& version) {
  database().execute("UPDATE G_EFACTURA SET ACTUAL = 0 WHERE DOCID = ? AND ACTUAL <> 0",
                     {version.text("DOCID")});
  insertNumbered(companyTable("G_EFACTURA"), version);
}

void writeFile(const QString& path, const QByteArray& content) {
  QFile file(path);
  openPrivately(file);
  if (file.write(content) == content.size() && file.flush()) return;
  const StoreError error = notWritten(file);
  file.remove();
  throw error;
}

// The files of one batch, with one read and in the caller's transaction. Stops at a file that cannot be
// written and returns that error, so that the records of the files before it can be stored.
std::exception_ptr writeBatch(EInvoiceSource& source, const QStringList& documents, const QString& folder,
                              QSet<QString>& names, WrittenInvoices& result) {
  QHash<QString, Row> stored;
  for (const Row& row :
       rowsOfKeys("SELECT E.DOCID, E.NUMAR, E.CONTINUT, D.DATADOC FROM G_EFACTURA E INNER JOIN G_DOCUME D "
                  "ON D.ID = E.DOCID WHERE E.ACTUAL <> 0 AND E.DOCID IN (%1)",
                  documents))
    stored.insert(row.text("DOCID"), row);
  QStringList missing;
  for (const QString& document : documents)
    if (!stored.contains(document)) missing.append(document);
  source.read(missing);
  for (const QString& document : documents) {
    QString number;
    QDate date;
    QByteArray content;
    if (const auto kept = stored.find(document); kept != stored.end()) {
      number = kept->text("NUMAR");
      date = kept->date("DATADOC");
      content = kept->text("CONTINUT").toUtf8();
    } else {
      const MadeInvoice made = source.make(document);
      if (!made.faults.empty()) {
        result.faulty.append(document);
        continue;
      }
      number = made.invoice.number;
      date = made.invoice.date;
      content = eInvoiceXml(made.invoice);
    }
    QString name = eInvoiceFileName(number, date);
    if (names.contains(name)) name = document.left(2) + u'_' + name;  // an invoice and a storno of one number
    // Numbers that differ only in characters that file names do not have.
    const QString stem = name.chopped(4);
    for (int more = 2; names.contains(name); ++more) name = QStringLiteral("%1_%2.xml").arg(stem).arg(more);
    names.insert(name);
    try {
      writeFile(QDir(folder).filePath(name), content);
    } catch (const StoreError&) {
      return std::current_exception();
    }
    if (!stored.contains(document)) store(newVersion(document, number, content));
    ++result.written;
  }
  return nullptr;
}

}  // namespace

Recordset eInvoices(const QDate& from, const QDate& to, const QDate& today) {
  Values values = {kNoSeries, einvoice::kNotSent, einvoice::kToSend};
  for (const Value& value : lateValues(today)) values.push_back(value);
  values.insert(values.end(), {from, endOf(to)});
  return OpenRs(
      QStringLiteral(
          "SELECT D.ID, CASE WHEN TRIM(COALESCE(D.SERIE, '')) IN ('', ?) THEN '' ELSE TRIM(D.SERIE) END || "
          "SUBSTR(D.ID, 3) AS DOCUMENT, D.DATADOC, T.NUME, CASE WHEN D.TIP = 'FS' THEN -1 ELSE 1 END * "
          "ROUND_EVEN(COALESCE(D.TOTALFT, 0) + COALESCE(D.TOTALTVA, 0), 2) AS TOTAL, CASE WHEN %1 THEN ? "
          "ELSE "
          "COALESCE(E.STARE, ?) END AS STARE, E.INDEX_INCARCARE, CASE WHEN %2 THEN -1 ELSE 0 END AS "
          "INTARZIAT, "
          "E.MESAJ FROM %3 LEFT JOIN G_EFACTURA E ON E.DOCID = D.ID AND E.ACTUAL <> 0 WHERE D.TIP IN ('FC', "
          "'FS') AND D.DATADOC BETWEEN ? AND ? ORDER BY D.DATADOC, "
          "D.ID")
          .arg(kAbroad, kLate, kInvoices),
      values);
}

int lateEInvoices(const QDate& today) {
  const Values values = lateValues(today);
  return static_cast<int>(
      OpenRs(QStringLiteral("SELECT COUNT(*) AS NUMAR FROM %1 WHERE D.TIP IN ('FC', 'FS') AND %2")
                 .arg(kInvoices, kLate),
             values)
          .first()
          .integer("NUMAR"));
}

std::vector<EFault> checkEInvoice(const QString& document) {
  EInvoiceSource source;
  source.read({document});
  return source.make(document).faults;
}

QString eInvoiceFileName(const QString& number, const QDate& date) {
  static const QRegularExpression forbidden(QStringLiteral("[^A-Za-z0-9.-]"));
  QString name = number;
  return name.replace(forbidden, QStringLiteral("-")) + date.toString(QStringLiteral("_yyyyMMdd")) +
         QStringLiteral(".xml");
}

WrittenInvoices writeEInvoices(const QStringList& documents, const QString& folder,
                               const Progress& progress) {
  WrittenInvoices result;
  QSet<QString> names;
  EInvoiceSource source;
  for (qsizetype done = 0; done < documents.size(); done += kBatch) {
    report(progress, static_cast<int>(done), static_cast<int>(documents.size()));
    Transaction transaction(database());
    const auto failure = writeBatch(source, documents.mid(done, kBatch), folder, names, result);
    transaction.commit();
    if (failure) std::rethrow_exception(failure);
  }
  return result;
}

void remakeEInvoice(const QString& document) {
  Transaction transaction(database());
  const Row stored = storedFile(document);
  const QString state = stored.isEmpty() ? QString() : stored.text("STARE");
  if (state == einvoice::kSent || state == einvoice::kAccepted)
    throw RuleError(QStringLiteral("Factura este %1. Fisierul nu se mai reface.").arg(state));
  EInvoiceSource source;
  source.read({document});
  const MadeInvoice made = source.make(document);
  if (!made.faults.empty())
    throw RuleError(
        QStringLiteral("Factura are greseli. Fisierul nu a fost refacut: %1").arg(made.faults.front().text));
  store(newVersion(document, made.invoice.number, eInvoiceXml(made.invoice)));
  transaction.commit();
}

void markSent(const QString& document, const QString& index) {
  static const QRegularExpression digits(QStringLiteral("^[0-9]{1,30}$"));
  const QString field = QStringLiteral("INDEX_INCARCARE");
  if (!digits.match(index).hasMatch())
    throw RuleError(QStringLiteral("Introduceti indexul de incarcare, un numar !"), field);
  Transaction transaction(database());
  const Row file = requiredFile(document);
  if (isAbroad(document))
    throw RuleError(QStringLiteral("Factura este pentru un client din strainatate si nu se trimite."));
  if (file.text("STARE") == einvoice::kAccepted) throw RuleError(QStringLiteral("Factura este acceptata."));
  if (!OpenRs("SELECT ID FROM G_EFACTURA WHERE INDEX_INCARCARE = ? AND DOCID <> ?", {index, document})
           .isEmpty())
    throw RuleError(QStringLiteral("Indexul %1 este al altei facturi !").arg(index), field);
  database().execute("UPDATE G_EFACTURA SET STARE = ?, INDEX_INCARCARE = ?, MESAJ = NULL WHERE ID = ?",
                     {einvoice::kSent, index, file.integer("ID")});
  transaction.commit();
}

}  // namespace velmar
