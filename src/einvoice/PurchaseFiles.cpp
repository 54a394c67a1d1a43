#include "einvoice/PurchaseFiles.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>

#include "config/Session.h"
#include "store/Database.h"
#include "store/Records.h"
#include "store/Schema.h"
#include "util/Clock.h"
#include "util/Errors.h"
#include "util/FileContent.h"
#include "util/PlainText.h"
#include "util/ZipText.h"

namespace velmar {

namespace {

constexpr int kBatch = 100;  // files that are stored together

const Table& files() { return companyTable("G_EFACTURAPRIM"); }

// A file as its column has it: compressed, since a change of the row writes the content again. The mark is no
// character of base64; a content without it is not compressed.
const QChar kCompressed = u':';

QString packed(const QByteArray& content) {
  constexpr int kFast = 1;
  return kCompressed + QString::fromLatin1(qCompress(content, kFast).toBase64());
}

QByteArray unpacked(const QString& stored) {
  if (!stored.startsWith(kCompressed)) return QByteArray::fromBase64(stored.toLatin1());
  return qUncompress(QByteArray::fromBase64(stored.mid(1).toLatin1()));
}

// The invoices of the files that were read last, by the hash of the file: taking these over does not parse
// them again.
class LastRead {
 public:
  void clear() {
    invoices_.clear();
    lines_ = 0;
  }
  // Further ones are left out when the lines are many.
  void keep(const QString& hash, const ReceivedInvoice& invoice) {
    constexpr size_t kMostLines = 50'000;
    if (lines_ + invoice.lines.size() > kMostLines || invoices_.contains(hash)) return;
    lines_ += invoice.lines.size();
    invoices_.insert(hash, invoice);
  }
  std::optional<ReceivedInvoice> find(const QString& hash) const {
    const auto found = invoices_.constFind(hash);
    return found == invoices_.constEnd() ? std::nullopt : std::optional(*found);
  }

 private:
  QHash<QString, ReceivedInvoice> invoices_;
  size_t lines_ = 0;
};

LastRead& lastRead() {
  static LastRead read;
  return read;
}

// What a file is, as the list shows it.
Row judged(const QByteArray& content, const QString& name, PurchaseSource& source) {
  Row row =
      rowOf("SHA256 FISIER CONTINUT CODFISCAL FURNIZOR NUMAR DATA TOTAL STARE LIPSESTE MOMENT UTILIZATOR");
  row.set("SHA256",
          QString::fromLatin1(QCryptographicHash::hash(content, QCryptographicHash::Sha256).toHex()));
  row.set("FISIER", fittedText(name, "G_EFACTURAPRIM", "FISIER"));
  row.set("UTILIZATOR", session().gUtilizator);
  const auto cut = [&row](const char* column, const QString& text) {
    row.set(column, visibleText(oneLine(text)).left(files().column(column)->width));
  };
  ReceivedInvoice refused;
  const auto describe = [&](const ReceivedInvoice& invoice) {
    row.set("CONTINUT", packed(content));
    cut("CODFISCAL", comparableCode(invoice.supplier.fiscalCode));
    cut("FURNIZOR", invoice.supplier.name);
    cut("NUMAR", invoice.number);
    row.set("DATA", invoice.date);
    row.set("TOTAL", invoice.total());
  };
  try {
    const ReceivedInvoice invoice = readInvoice(content, &refused);
    lastRead().keep(row.text("SHA256"), invoice);
    describe(invoice);
    const Purchase purchase = purchaseOf(invoice, source);
    if (const QString exists = existsText(purchase); !exists.isEmpty()) throw RuleError(exists);
    const QStringList missing = missingIn(purchase, source);
    row.set("STARE", missing.isEmpty() ? received::kToTake : received::kIncomplete);
    cut("LIPSESTE", missing.join(QStringLiteral("; ")));
  } catch (const RuleError& reason) {
    if (!refused.number.isEmpty()) describe(refused);
    row.set("STARE", received::kRefused);
    cut("LIPSESTE", reason.text());
  }
  return row;
}

// Stores the row in place of an earlier one of the same content; a file that was taken over stays so.
void store(Row row, const QDateTime& moment) {
  row.set("MOMENT", moment);
  const Recordset known =
      OpenRs("SELECT ID, STARE, DOCUMENTE FROM G_EFACTURAPRIM WHERE SHA256 = ?", {row.text("SHA256")});
  if (known.isEmpty()) {
    insertNumbered(files(), row);
    return;
  }
  QStringList columns = row.columns();
  if (known.first().text("STARE") == received::kTaken &&
      !existingDrafts(known.first().text("DOCUMENTE")).isEmpty())
    for (const char* kept : {"STARE", "LIPSESTE"}) columns.removeAll(QLatin1String(kept));
  Row stored = rowOf(columns + QStringList("ID"), row);
  stored.set("ID", known.first().integer("ID"));
  updateRecord(files(), stored);
}

}  // namespace

void readPurchases(const QStringList& paths, const Progress& progress) {
  PurchaseSource source;
  lastRead().clear();
  const QDateTime moment = clock::now();
  for (qsizetype done = 0; done < paths.size(); done += kBatch) {
    Transaction transaction(database());
    for (const QString& path : paths.mid(done, kBatch)) {
      const QString name = QFileInfo(path).fileName();
      report(progress, static_cast<int>(done), static_cast<int>(paths.size()));
      std::vector<ZipEntry> contents;
      try {
        QByteArray content = fileContent(path, kLargestArchive);
        if (isZip(content)) {
          for (ZipEntry& entry : unzipped(content))
            if (entry.name.endsWith(QStringLiteral(".xml"), Qt::CaseInsensitive) &&
                !entry.name.startsWith(QStringLiteral("semnatura"), Qt::CaseInsensitive))
              contents.push_back({name + u'/' + entry.name, std::move(entry.content)});
          if (contents.empty()) throw RuleError(QStringLiteral("Arhiva nu are fisiere XML"));
        } else {
          contents.push_back({name, std::move(content)});
        }
      } catch (const RuleError& reason) {
        Row row = rowOf("SHA256 FISIER STARE LIPSESTE MOMENT UTILIZATOR");
        row.set("SHA256", QString::fromLatin1(
                              QCryptographicHash::hash(path.toUtf8(), QCryptographicHash::Sha256).toHex()));
        row.set("FISIER", fittedText(name, "G_EFACTURAPRIM", "FISIER"));
        row.set("STARE", received::kRefused);
        row.set("LIPSESTE", visibleText(oneLine(reason.text())).left(files().column("LIPSESTE")->width));
        row.set("UTILIZATOR", session().gUtilizator);
        store(row, moment);
      }
      for (const ZipEntry& each : contents) store(judged(each.content, each.name, source), moment);
    }
    transaction.commit();
  }
}

QStringList filesOf(const QString& folder) {
  QStringList paths;
  const QFileInfoList entries = QDir(folder).entryInfoList({"*.xml", "*.zip"}, QDir::Files, QDir::Name);
  for (const QFileInfo& entry : entries)
    if (!entry.isSymLink() && entry.isFile()) paths.append(entry.filePath());
  return paths;
}

Recordset lastPurchases() {
  return OpenRs(
      "SELECT ID, FISIER, FURNIZOR, NUMAR, DATA, TOTAL, STARE, LIPSESTE FROM G_EFACTURAPRIM WHERE MOMENT = "
      "(SELECT "
      "MAX(MOMENT) FROM G_EFACTURAPRIM) ORDER BY ID");
}

QByteArray purchaseFile(qint64 id) {
  const Recordset found = OpenRs("SELECT CONTINUT, LIPSESTE FROM G_EFACTURAPRIM WHERE ID = ?", {id});
  if (found.isEmpty() || found.first().text("CONTINUT").isEmpty())
    throw RuleError(
        found.isEmpty()
            ? QStringLiteral("Fisierul nu mai exista.")
            : QStringLiteral("Fisierul nu se poate deschide: %1").arg(found.first().text("LIPSESTE")));
  return unpacked(found.first().text("CONTINUT"));
}

Purchase storedPurchase(qint64 id, PurchaseSource& source) {
  const Recordset found = OpenRs("SELECT SHA256 FROM G_EFACTURAPRIM WHERE ID = ?", {id});
  auto invoice = found.isEmpty() ? std::nullopt : lastRead().find(found.first().text("SHA256"));
  if (!invoice) {
    const QByteArray file = purchaseFile(id);
    try {
      invoice = readInvoice(file);
    } catch (const RuleError& reason) {
      throw RuleError(QStringLiteral("Fisierul nu se poate deschide: %1").arg(reason.text()));
    }
  }
  Purchase purchase = purchaseOf(std::move(*invoice), source);
  purchase.id = id;
  return purchase;
}

void judgeAgain(qint64 id, PurchaseSource& source) {
  const Recordset found = OpenRs("SELECT FISIER, STARE FROM G_EFACTURAPRIM WHERE ID = ?", {id});
  if (found.isEmpty() || found.first().text("STARE") == received::kTaken) return;
  const Row row = judged(purchaseFile(id), found.first().text("FISIER"), source);
  database().execute("UPDATE G_EFACTURAPRIM SET STARE = ?, LIPSESTE = ? WHERE ID = ?",
                     {row.text("STARE"), row.text("LIPSESTE"), id});
}

}  // namespace velmar
