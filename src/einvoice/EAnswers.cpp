// The answers of the state's system: the state of an upload, its errors, its index, and the archive of an
// accepted or refused invoice.
#include <QCryptographicHash>
#include <QRegularExpression>

#include "documents/EInvoiceState.h"
#include "einvoice/EInvoices.h"
#include "store/Database.h"
#include "util/Errors.h"
#include "util/FileContent.h"
#include "util/XmlText.h"
#include "util/ZipText.h"

namespace velmar {

namespace {

const QString kState = QStringLiteral("mfp:anaf:dgti:efactura:stareMesajFactura:v1");
const QString kErrors = QStringLiteral("mfp:anaf:dgti:efactura:mesajEroriFactuta:v1");
const QString kUpload = QStringLiteral("mfp:anaf:dgti:spv:respUploadFisier:v1");

RuleError noAnswer() {
  return RuleError(QStringLiteral("Fisierul nu este un raspuns al sistemului e-Factura."));
}

// The messages of all elements Error or Errors in the answer, a line each.
QString messagesIn(const XmlText& xml) {
  QStringList messages;
  for (const int element : xml.children(0)) {
    const QString message = xml.attribute(element, QStringLiteral("errorMessage")).simplified();
    if (!message.isEmpty()) messages.append(message);
  }
  return messages.join(u'\n');
}

QString indexIn(const XmlText& xml) {
  for (const char* name : {"Index_incarcare", "index_incarcare"})
    if (const QString index = xml.attribute(0, QLatin1String(name)).trimmed(); !index.isEmpty()) return index;
  return {};
}

Row fileWith(const QString& condition, const QString& value) {
  const Recordset found = OpenRs(QStringLiteral("SELECT ID, DOCID, NUMAR, STARE, INDEX_INCARCARE, SHA256 "
                                                "FROM G_EFACTURA WHERE %1 = ? AND ACTUAL <> 0")
                                     .arg(condition),
                                 {value});
  return found.isEmpty() ? Row() : found.first();
}

class Answer {
 public:
  explicit Answer(QString current) : current_(std::move(current)) {}

  EAnswer read(const QByteArray& file) {
    Transaction transaction(database());
    const EAnswer answer = isZip(file) ? readArchive(file) : readMessage(file, {});
    transaction.commit();
    return answer;
  }

 private:
  static EAnswer unchanged(const QString& text) { return {{}, text}; }
  static EAnswer unknownIndex(const QString& index) {
    return unchanged(
        QStringLiteral("Indexul %1 nu este al unei facturi trimise. Nu s-a schimbat nimic.").arg(index));
  }

  // The stored file that the answer is for; an empty row if the index is another one.
  Row fileOf(const QString& index) const {
    return index.isEmpty() ? fileWith(QStringLiteral("DOCID"), current_)
                           : fileWith(QStringLiteral("INDEX_INCARCARE"), index);
  }

  // `named`: the index that the name of the file in an archive states.
  EAnswer readMessage(const QByteArray& content, const QString& named) {
    if (content.size() > kLargestXml)
      throw RuleError(QStringLiteral("Fisierul este prea mare (peste 20 MB)."));
    const XmlText xml(content, XmlText::Names::Local);
    const QString kind = xml.rootNamespace();
    QString index = indexIn(xml);
    if (kind == kUpload) return uploaded(xml, index);
    if (index.isEmpty()) index = named;
    if (kind != kState && kind != kErrors) throw noAnswer();
    const Row file = fileOf(index);
    if (file.isEmpty())
      return index.isEmpty() ? unchanged(QStringLiteral(
                                   "Fisierul facturii curente nu a fost scris. Nu s-a schimbat nimic."))
                             : unknownIndex(index);
    if (kind == kErrors) return refuse(file, messagesIn(xml));
    const QString state = xml.attribute(0, QStringLiteral("stare")).trimmed();
    if (state == QStringLiteral("ok")) return accept(file);
    if (state == QStringLiteral("nok")) return refuse(file, messagesIn(xml));
    return unchanged(QStringLiteral("Factura %1: %2. Nu s-a schimbat nimic.").arg(file.text("NUMAR"), state));
  }

  EAnswer uploaded(const XmlText& xml, const QString& index) {
    static const QRegularExpression digits(QStringLiteral("^[0-9]{1,30}$"));
    if (!digits.match(index).hasMatch())
      return unchanged(QStringLiteral("Incarcarea nu a reusit. %1").arg(messagesIn(xml)).trimmed());
    if (const Row known = fileWith(QStringLiteral("INDEX_INCARCARE"), index); !known.isEmpty())
      return {known.text("DOCID"),
              QStringLiteral("Factura %1 are indexul %2.").arg(known.text("NUMAR"), index)};
    const Row file = fileOf({});
    if (file.isEmpty())
      return unchanged(QStringLiteral("Fisierul facturii curente nu a fost scris. Nu s-a schimbat nimic."));
    const QString state = file.text("STARE");
    if (state == einvoice::kSent || state == einvoice::kAccepted)
      return unchanged(QStringLiteral("Factura %1 este %2 cu indexul %3. Nu s-a schimbat nimic.")
                           .arg(file.text("NUMAR"), state, file.text("INDEX_INCARCARE")));
    markSent(file.text("DOCID"), index);
    return {file.text("DOCID"),
            QStringLiteral("Factura %1 a fost trimisa, indexul %2.").arg(file.text("NUMAR"), index)};
  }

  // The archive has the invoice, or its errors, beside the signature.
  EAnswer readArchive(const QByteArray& file) {
    static const QRegularExpression named(QStringLiteral("^([0-9]{1,30})\\.xml$"),
                                          QRegularExpression::CaseInsensitiveOption);
    for (const ZipEntry& entry : unzipped(file)) {
      const auto index = named.match(entry.name);
      if (!index.hasMatch()) continue;
      if (const Row own = ownFile(entry.content, index.captured(1)); !own.isEmpty()) return accept(own);
      const QString kind = XmlText(entry.content, XmlText::Names::Local).rootNamespace();
      if (kind == kErrors || kind == kState) return readMessage(entry.content, index.captured(1));
      const Row other = fileOf(index.captured(1));
      if (other.isEmpty()) return unknownIndex(index.captured(1));
      return unchanged(
          QStringLiteral("Fisierul din arhiva nu este cel scris pentru factura %1. Nu s-a schimbat nimic.")
              .arg(other.text("NUMAR")));
    }
    throw noAnswer();
  }

  // The stored file with that content, whose index is this one or not known yet.
  static Row ownFile(const QByteArray& content, const QString& index) {
    const QString hash =
        QString::fromLatin1(QCryptographicHash::hash(content, QCryptographicHash::Sha256).toHex());
    Row file = fileWith(QStringLiteral("SHA256"), hash);
    if (file.isEmpty()) return {};
    if (file.text("INDEX_INCARCARE").isEmpty()) {
      database().execute("UPDATE G_EFACTURA SET INDEX_INCARCARE = ? WHERE ID = ?",
                         {index, file.integer("ID")});
      return file;
    }
    return file.text("INDEX_INCARCARE") == index ? file : Row();
  }

  static EAnswer accept(const Row& file) {
    database().execute("UPDATE G_EFACTURA SET STARE = ?, MESAJ = NULL WHERE ID = ?",
                       {einvoice::kAccepted, file.integer("ID")});
    return {file.text("DOCID"), QStringLiteral("Factura %1 a fost acceptata.").arg(file.text("NUMAR"))};
  }

  static EAnswer refuse(const Row& file, const QString& messages) {
    database().execute("UPDATE G_EFACTURA SET STARE = ?, MESAJ = ? WHERE ID = ?",
                       {einvoice::kRefused, messages, file.integer("ID")});
    return {file.text("DOCID"), QStringLiteral("Factura %1 a fost respinsa.").arg(file.text("NUMAR"))};
  }

  QString current_;
};

}  // namespace

EAnswer readAnswer(const QByteArray& file, const QString& current) { return Answer(current).read(file); }

}  // namespace velmar
