#include "hearing/OrderFile.h"

#include <QFileInfo>
#include <QRegularExpression>

#include "catalogue/Partners.h"
#include "hearing/Orders.h"
#include "store/Database.h"
#include "store/Records.h"
#include "store/Schema.h"
#include "util/Clock.h"
#include "util/Errors.h"
#include "util/FileContent.h"
#include "util/PlainText.h"
#include "util/XmlText.h"

namespace velmar {

namespace {

constexpr qint64 kLargestFile = 1024LL * 1024;
const QString kRoot = QStringLiteral("comanda");
const QString kPatient = QStringLiteral("comanda/dateClient");

int widthOf(const char* table, const char* column) { return companyTable(table).column(column)->width; }

// Finds the elements of an order and checks their texts.
class Reader {
 public:
  explicit Reader(const XmlText& xml) : xml_(xml) {}

  bool has(const QString& path) const { return xml_.find(path).has_value(); }

  QString text(const QString& path) const {
    const QString found = xml_.text(element(path));
    if (!hiddenCharacter(oneLine(found)).isEmpty()) refuse(path, "are caractere nepermise");
    return oneLine(found);
  }

  /// For a column of that table.
  QString text(const QString& path, const char* table, const char* column) const {
    const QString found = text(path);
    if (found.size() > widthOf(table, column)) refuse(path, "este prea lung");
    return found;
  }

  QString required(const QString& path, const char* table, const char* column) const {
    const QString found = text(path, table, column);
    if (found.isEmpty()) refuse(path, "este gol");
    return found;
  }

  QString optional(const QString& path, const char* table, const char* column) const {
    return has(path) ? text(path, table, column) : QString();
  }

  QDate date(const QString& path) const {
    constexpr int kFirstYear = 1900, kLastYear = 9999;
    const auto part = [&](const QString& name) {
      bool isNumber = false;
      const int value = text(path + u'/' + name).toInt(&isNumber);
      return isNumber ? value : 0;
    };
    const int year = part("an");
    const QDate found(year, part("luna"), part("zi"));
    if (!found.isValid() || year < kFirstYear || year > kLastYear) refuse(path, "nu este o data care exista");
    return found;
  }

  Decimal price(const QString& path) const {
    const auto found = parsePrice(text(path));
    if (!found) refuse(path, "nu este un pret");
    return *found;
  }

  OrderFile::Ears audiogram(const QString& path, Audiogram kind) const {
    return {cells(path + QStringLiteral("/stanga"), kind), cells(path + QStringLiteral("/dreapta"), kind)};
  }

 private:
  [[noreturn]] static void refuse(const QString& path, const char* why) {
    throw RuleError(
        QStringLiteral("Elementul %1 %2. Comanda nu a fost importata.").arg(path, QLatin1String(why)));
  }

  int element(const QString& path) const {
    const auto found = xml_.find(path);
    if (!found) refuse(path, "lipseste");
    return *found;
  }

  std::vector<std::optional<Decimal>> cells(const QString& path, Audiogram kind) const {
    static const QRegularExpression number(QStringLiteral("^[+-]?[0-9]{1,9}([.,][0-9]{1,9})?$"));
    const std::vector<int> children = xml_.children(element(path));
    const size_t count = audiogramPoints(kind).size();
    if (children.size() < count) refuse(path, "are prea putine celule");
    std::vector<std::optional<Decimal>> values;
    for (size_t i = 0; i < count; ++i) {
      QString cell = xml_.text(children[i]);
      if (cell.isEmpty() || cell == QStringLiteral("-")) {
        values.emplace_back();
        continue;
      }
      if (!number.match(cell).hasMatch())
        refuse(QStringLiteral("%1[%2]").arg(path).arg(i + 1), "nu este un numar");
      if (cell.startsWith(u'+')) cell.remove(0, 1);
      values.push_back(Decimal::parse(cell.replace(u',', u'.')));
    }
    return values;
  }

  const XmlText& xml_;
};

void readPatient(const Reader& reader, OrderFile& order) {
  const auto path = [](const char* name) { return kPatient + u'/' + QLatin1String(name); };
  const QString surname = reader.required(path("nume"), "kt_ter", "NUME");
  order.patient.name = (surname + u' ' + reader.text(path("prenume"), "kt_ter", "NUME")).trimmed();
  if (order.patient.name.size() > widthOf("kt_ter", "NUME"))
    throw RuleError(QStringLiteral("Elementul %1 este prea lung. Comanda nu a fost importata.")
                        .arg(path("nume") + QStringLiteral(", prenume")));
  order.patient.address = reader.text(path("adresa"), "kt_ter", "AD");
  order.patient.cardSeries = reader.text(path("biSerie"), "kt_ter", "SerieBI");
  order.patient.cardNumber = reader.text(path("biNr"), "kt_ter", "NrBI");
  order.patient.personalNumber = reader.text(path("cnp"), "kt_ter", "CNP");
  order.patient.cardIssuer = reader.text(path("politia"), "kt_ter", "EmisBI");
  order.patient.cardDate = reader.date(path("data"));
}

void readDevice(const Reader& reader, OrderFile& order) {
  const QString block = QStringLiteral("//dateDispozitivMedical/");
  const char* table = "G_COMANDA_AUDIO";
  order.device = reader.required(block + "numeDispMedical", table, "ID_Dispozitiv");
  order.grade = reader.text(block + "gradHipoAcuzie", table, "GradHipoacuzie").toUpper();
  order.serial = reader.text(block + "serieDisp", table, "SerieDispozitiv");
  order.fullPrice = reader.price(block + "pretLivrare");
  order.insuredPrice = reader.price(block + "pretReferinta");
  order.isRight = reader.text(block + "urechea/dreapta") == QLatin1String("true");
}

qint64 partnerWhere(const QString& condition, const Values& values) {
  const Recordset found =
      OpenRs(QStringLiteral("SELECT COD FROM kt_ter WHERE %1 ORDER BY COD LIMIT 1").arg(condition), values);
  return found.isEmpty() ? 0 : found.first().integer("COD");
}

qint64 patientOf(const OrderFile& order) {
  const auto& patient = order.patient;
  const qint64 known = patient.personalNumber.isEmpty()
                           ? partnerWhere("(CNP IS NULL OR CNP = '') AND NUME = ?", {patient.name})
                           : partnerWhere("CNP = ?", {patient.personalNumber});
  if (known != 0) return known;
  Row added = newPartner(patient.name, "C");
  added.set("AD", patient.address);
  added.set("SerieBI", patient.cardSeries);
  added.set("NrBI", patient.cardNumber);
  added.set("CNP", patient.personalNumber);
  added.set("EmisBI", patient.cardIssuer);
  added.set("DataEmisBI", patient.cardDate);
  return addPartner(added);
}

qint64 doctorOf(const OrderFile& order) {
  const qint64 known = partnerWhere("NUME = ? AND TIP = 'D'", {order.doctor});
  return known != 0 ? known : addPartner(newPartner(order.doctor, "D"));
}

qint64 insurerOf(const OrderFile& order) {
  const qint64 known = partnerWhere("NUME = ?", {order.insurer});
  return known != 0 ? known : addPartner(newPartner(order.insurer, "C"));
}

qint64 workPointOf(const OrderFile& order) {
  if (order.workPoint.name.isEmpty()) return 0;
  const qint64 known = partnerWhere("NUME = ?", {order.workPoint.name});
  if (known != 0) return known;
  Row added = newPartner(order.workPoint.name, "C");
  added.set("AD", order.workPoint.address);
  added.set("TELEFON", order.workPoint.phone);
  return addPartner(added);
}

void requireNew(const OrderFile& order) {
  if (!OpenRs("SELECT ID_Comanda FROM G_COMANDA_AUDIO WHERE Nr = ? AND Data = ?", {order.number, order.date})
           .isEmpty())
    throw RuleError(QStringLiteral("Comanda mai exista"));
}

}  // namespace

std::optional<Decimal> parsePrice(QString text) {
  static const QRegularExpression currency(QStringLiteral("\\s*(lei|ron)$"),
                                           QRegularExpression::CaseInsensitiveOption);
  static const QRegularExpression grouped(
      QStringLiteral("^[1-9][0-9]{0,2}(\\.[0-9]{3}){1,3}(,[0-9]{1,9})?$"));
  static const QRegularExpression plain(QStringLiteral("^[0-9]{1,12}([.,][0-9]{1,9})?$"));
  constexpr int kDecimals = 4;
  text = text.trimmed().remove(currency);
  if (grouped.match(text).hasMatch())
    text.remove(u'.');
  else if (!plain.match(text).hasMatch())
    return std::nullopt;
  return Round(*Decimal::parse(text.replace(u',', u'.')), kDecimals);
}

OrderFile readOrderFile(const QByteArray& bytes) {
  if (bytes.size() > kLargestFile)
    throw RuleError(QStringLiteral("Fisierul este prea mare pentru o comanda (maxim 1 MB)."));
  const XmlText xml(bytes);
  if (xml.root() != kRoot || !xml.rootNamespace().isEmpty())
    throw RuleError(QStringLiteral("Fisierul nu este o comanda: elementul principal nu este %1.").arg(kRoot));
  const Reader reader(xml);
  const char* table = "G_COMANDA_AUDIO";
  OrderFile order;
  order.number = reader.required("comanda/nrComanda", table, "Nr").toUpper();
  order.date = reader.date("comanda/dataComanda");
  readPatient(reader, order);
  order.doctor = reader.required("//doctor", "kt_ter", "NUME");
  order.workPoint.name = reader.optional("//punctLucru/nume", "kt_ter", "NUME");
  order.workPoint.address = reader.optional("//punctLucru/adresa", "kt_ter", "AD");
  order.workPoint.phone = reader.optional("//punctLucru/telefon", "kt_ter", "TELEFON");
  readDevice(reader, order);
  order.decision = reader.text("//decizie/nrDecizie", table, "NrDecizie");
  order.decisionDate = reader.date("//decizie/dataDecizie");
  order.insurer = reader.required("//cas", "kt_ter", "NUME");
  order.insuranceBook = reader.text("//nrCarnetAsigurat", table, "NrCarnetAsigurat");
  order.certificate = reader.text("//certificatGarantie/nr", table, "NrCertificatGarantie");
  order.certificateDate = reader.date("//certificatGarantie/data");
  order.tone = reader.audiogram("//audiogramaTonala", Audiogram::Tone);
  order.speech = reader.audiogram("//audiogramaVocala", Audiogram::Speech);
  return order;
}

qint64 importOrder(const QString& path) {
  const OrderFile order = readOrderFile(fileContent(path, kLargestFile));
  if (path.size() > widthOf("G_COMANDA_AUDIO", "Fisier"))
    throw RuleError(QStringLiteral("Calea fisierului este prea lunga."));
  Transaction transaction(database());
  requireNew(order);
  Row row = newOrder();
  row.set("ID_Pacient", patientOf(order));
  row.set("ID_Doctor", doctorOf(order));
  if (const qint64 workPoint = workPointOf(order); workPoint != 0) row.set("ID_PunctLucru", workPoint);
  row.set("ID_CAS", insurerOf(order));
  row.set("ID_Dispozitiv", order.device);
  row.set("Data", order.date);
  row.set("Nr", order.number);
  row.set("GradHipoacuzie", order.grade);
  row.set("PretLivrare", order.fullPrice);
  row.set("PretReferinta", order.insuredPrice);
  row.set("UrecheaDreapta", order.isRight);
  row.set("NrDecizie", order.decision);
  row.set("DataDecizie", order.decisionDate);
  row.set("NrCarnetAsigurat", order.insuranceBook);
  row.set("NrCertificatGarantie", order.certificate);
  row.set("DataCertificatGarantie", order.certificateDate);
  row.set("SerieDispozitiv", order.serial);
  row.set("IsImport", true);
  row.set("Fisier", path);
  row.set("DataImport", clock::today());
  const qint64 key = insertNumbered(companyTable("G_COMANDA_AUDIO"), row);
  insertAudiogram(Audiogram::Speech, key, order.speech.left, order.speech.right);
  insertAudiogram(Audiogram::Tone, key, order.tone.left, order.tone.right);
  transaction.commit();
  return key;
}

}  // namespace velmar
