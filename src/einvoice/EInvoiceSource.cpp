#include "einvoice/EInvoiceSource.h"

#include <algorithm>

#include "config/UnitCodes.h"
#include "documents/Numbering.h"
#include "einvoice/Places.h"
#include "stock/LedgerKey.h"
#include "store/Database.h"
#include "store/Records.h"
#include "util/Errors.h"
#include "util/NumberText.h"

namespace velmar {

namespace {

constexpr int kDecimals = 2;
const QString kPartners = QStringLiteral("frmTerti C");
const QString kCompany = QStringLiteral("frmParamSoc");

QString digitsOf(const QString& code) {
  QString digits;
  for (const QChar character : code)
    if (character >= u'0' && character <= u'9') digits += character;
  return digits;
}

QString withoutBlanks(QString text) { return text.remove(u' '); }

// 13 digits, the last of which checks the others.
QString eanIn(const QString& code) {
  const QString digits = code.trimmed();
  if (digits.size() != 13 || digitsOf(digits).size() != 13) return {};
  int sum = 0;
  for (int i = 0; i < digits.size(); ++i) sum += digits[i].digitValue() * (i % 2 == 0 ? 1 : 3);
  return sum % 10 == 0 ? digits : QString();
}

// Where the header and the lines of a document are, by the number %1 of the draft.
// Header: CODCLI, MODREG, DATASCAD, CURRENCY, CURS, RATE (code of kt_cote), PERCENT.
// Lines: CODART, DENUMIRE, UM, CANT, PRETFT, NETFT (less the discount), VALOAREFT, VALOARETVA, DENALTALIMBA.
struct Statements {
  QString header, lines;
};

Statements ordinary() {
  return {QStringLiteral("SELECT H.NUMFAC AS NUMAR, H.MODREG, H.DATASCAD, H.CODDeviza AS CURRENCY, H.Curs AS "
                         "CURS, H.BATVA1 AS RATE, "
                         "C.PROCENT AS PERCENT FROM G_FACCLI H LEFT JOIN kt_cote C ON C.COD = H.BATVA1 WHERE "
                         "H.NUMFAC IN (%1)"),
          QStringLiteral(
              "SELECT L.NUMFAC AS NUMAR, L.CODART, L.DENUMIRE, L.UM, L.CANT, L.PRETFT, "
              "COALESCE(L.ValoareFTCuDiscount, "
              "L.PRETFT) AS NETFT, L.VALOAREFT, L.VALOARETVA, A.DenAltaLimba AS DENALTALIMBA FROM G_LFACCL L "
              "LEFT JOIN "
              "G_ARTMAG A ON A.CODART = L.CODART WHERE L.NUMFAC IN (%1) ORDER BY L.NUMFAC, L.NRLINIE")};
}

Statements ofDevices(bool isStorno) {
  const QString which = QStringLiteral("F.Nr IN (%1) AND F.IsStorno = ") + (isStorno ? "-1" : "0");
  return {QStringLiteral("SELECT F.Nr AS NUMAR, NULL AS MODREG, F.DataScadenta AS DATASCAD, 'LEI' AS "
                         "CURRENCY, 0 AS CURS, (SELECT "
                         "MIN(C.COD) FROM kt_cote C WHERE C.PROCENT = F.CotaTVA AND (F.CotaTVA <> 0 OR "
                         "C.CATEGORIE IS NOT NULL)) AS "
                         "RATE, F.CotaTVA AS PERCENT FROM G_FacturiClientiAudio F WHERE ") +
              which,
          QStringLiteral("SELECT F.Nr AS NUMAR, L.ID_Articol AS CODART, L.Articol AS DENUMIRE, A.UM, L.Cant "
                         "AS CANT, L.PretUnitar AS "
                         "PRETFT, L.PretUnitar AS NETFT, L.Valoare AS VALOAREFT, L.TVA AS VALOARETVA, "
                         "A.DenAltaLimba AS DENALTALIMBA "
                         "FROM G_FacturaClientiAudio_Detalii L INNER JOIN G_FacturiClientiAudio F ON "
                         "F.ID_Factura = L.ID_Factura "
                         "LEFT JOIN G_ARTMAG A ON A.CODART = L.ID_Articol WHERE ") +
              which + QStringLiteral(" ORDER BY F.Nr, L.ID_Detaliu")};
}

QString numberWith(const QString& series, const QString& number) {
  const QString letters = series.trimmed();
  return (letters == kNoSeries ? QString() : letters) + number;
}

bool isStorno(const Row& ledger) { return ledger.text("TIP") == ledgerKind(KindId::Storno).prefix; }

// The number of the draft that has the lines: a storno has those of its invoice.
QString draftOf(const Row& ledger) {
  return isStorno(ledger) && !ledger.flag("IsAudio") ? ledger.text("OBS").trimmed()
                                                     : ledger.text("ID").mid(2);
}

// The number of the invoice that the document turns, or that the remark of a return names ("FC12" or "12").
QString turnedBy(const Row& ledger) {
  const QString named = ledger.text("OBS").trimmed();
  if (isStorno(ledger)) return named;
  if (!ledger.decimal("TOTALFT").isNegative()) return {};
  return named.startsWith(QStringLiteral("FC"), Qt::CaseInsensitive) ? named.mid(2) : named;
}

}  // namespace

struct EInvoiceSource::Data {
  Row company;
  QHash<QString, QString> units;  // codes by names in capitals
  QHash<qint64, Row> rates, partners;
  QHash<QString, Row> ledger;   // by key, also of the turned invoices
  QHash<QString, Row> headers;  // by key
  QHash<QString, std::vector<Row>> lines;
};

namespace {

class Maker {
 public:
  using Data = EInvoiceSource::Data;

  Maker(const QString& document, const Data& data)
      : data_(data),
        ledger_(data.ledger.value(document)),
        header_(data.headers.value(document)),
        lines_(data.lines.value(document)),
        number_(document.mid(2)),
        partner_(ledger_.integer("CODTERT")),
        isStorno_(velmar::isStorno(ledger_)) {}

  MadeInvoice make() {
    precede();
    readCompany();
    readBuyer();
    readCategory();
    readLines();
    readTerms();
    made_.invoice.number = numberWith(ledger_.text("SERIE"), number_);
    made_.invoice.date = ledger_.date("DATADOC");
    for (EFault& fault : faultsOf(made_.invoice)) {
      place(fault);
      made_.faults.push_back(std::move(fault));
    }
    return made_;
  }

 private:
  void fault(const QString& text, const QString& window = {}, const QString& field = {},
             const QString& key = {}, const QString& rule = {}) {
    made_.faults.push_back({rule, text, window, key, field});
  }

  // The fields of the parties are mended where these are kept.
  void place(EFault& fault) const {
    if (fault.window == kPartners && fault.key.isEmpty()) fault.key = QString::number(partner_);
  }

  void precede() {
    const QString number = turnedBy(ledger_);
    const auto found = data_.ledger.find(LedgerKey{KindId::CustomerInvoice, number}.text());
    if (number.isEmpty() || found == data_.ledger.end()) return;
    made_.invoice.precedingNumber = numberWith(found->text("SERIE"), number);
    made_.invoice.precedingDate = found->date("DATADOC");
  }

  void readCompany() {
    const Row& info = data_.company;
    EParty& seller = made_.invoice.seller;
    seller.name = info.text("DENUMIRE").trimmed();
    seller.street = QStringList{info.text("STRADA1").trimmed(), part("nr. ", info.text("NR1")),
                                part("bl. ", info.text("BLOC1")), part("ap. ", info.text("AP1"))}
                        .join(u' ')
                        .simplified();
    seller.town = info.text("ORAS1").trimmed();
    seller.postCode = info.text("CODPOSTAL1").trimmed();
    seller.country = QStringLiteral("RO");
    seller.county = countyCode(info.text("JUDET1"));
    if (seller.county.isEmpty())
      fault(QStringLiteral("Judetul societatii lipseste sau nu este cunoscut: %1").arg(info.text("JUDET1")),
            kCompany, "Text1(14)", {}, "BR-RO-110");
    if (seller.county == kBucharest) {
      const QString sector = bucharestSector(
          {seller.town, seller.street, QStringLiteral("SECTOR ") + info.text("SECTOR1")}, seller.postCode);
      if (sector.isEmpty())
        fault(QStringLiteral("Sectorul din Bucuresti al societatii lipseste"), kCompany, "txtSector", {},
              "BR-RO-100");
      else
        seller.town = sector;
    }
    const QString digits = digitsOf(info.text("CODFISCAL"));
    pays_ = info.text("PLATITVA").trimmed().compare(QStringLiteral("N"), Qt::CaseInsensitive) != 0;
    seller.legalId = digits;
    if (pays_ && !digits.isEmpty()) seller.vatId = QStringLiteral("RO") + digits;
    QStringList legal{info.text("NREGCOM").trimmed()};
    if (const Decimal capital = info.decimal("CAPSOC"); capital > 0)
      legal.append(QStringLiteral("Capital social: %1 lei").arg(formatNumber(capital, kDecimals)));
    legal.removeAll(QString());
    seller.legalForm = legal.join(QStringLiteral(", "));
    made_.invoice.isVatOnCollection = pays_ && info.flag("TVAINCASARE");
    if (made_.invoice.isVatOnCollection) made_.invoice.notes.append(QStringLiteral("TVA la incasare"));
    iban_ = withoutBlanks(info.text("contbancar"));
  }

  static QString part(const QString& caption, const QString& value) {
    return value.trimmed().isEmpty() ? QString() : caption + value.trimmed();
  }

  void readBuyer() {
    const auto found = data_.partners.find(partner_);
    if (found == data_.partners.end())
      return fault(QStringLiteral("Clientul %1 nu mai exista").arg(partner_), kPartners);
    const Row& row = *found;
    EParty& buyer = made_.invoice.buyer;
    buyer.name = row.text("NUME").trimmed();
    buyer.street = row.text("AD").trimmed();
    buyer.town = row.text("ORAS").trimmed();
    buyer.postCode = row.text("CP").trimmed();
    buyer.country = countryCode(row.text("CT"));
    buyerAddress(row);
    buyerCodes(row);
    EInvoice& invoice = made_.invoice;
    invoice.deliveryStreet = row.text("ADL").trimmed();
    invoice.deliveryTown = row.text("ORASL").trimmed();
    invoice.deliveryCounty = row.text("JUDETL").trimmed();
  }

  void buyerAddress(const Row& row) {
    EParty& buyer = made_.invoice.buyer;
    buyer.county = row.text("Judet").trimmed();
    if (buyer.country != QStringLiteral("RO")) return;
    QString county = countyCode(buyer.county);
    if (county.isEmpty() && buyer.county.isEmpty() &&
        plainCapitals(buyer.town).contains(QStringLiteral("BUCURESTI")))
      county = kBucharest;
    if (county.isEmpty())
      fault(QStringLiteral("Judetul clientului lipseste sau nu este cunoscut: %1").arg(buyer.county),
            kPartners, "txtJudet", {}, "BR-RO-110");
    buyer.county = county;
    if (county != kBucharest) return;
    const QString sector = bucharestSector({buyer.town, buyer.street}, buyer.postCode);
    if (sector.isEmpty())
      fault(QStringLiteral("Sectorul din Bucuresti al clientului nu reiese din oras, adresa sau cod postal"),
            kPartners, "txtFields(6)", {}, "BR-RO-100");
    else
      buyer.town = sector;
  }

  void buyerCodes(const Row& row) {
    EParty& buyer = made_.invoice.buyer;
    const QString code = withoutBlanks(row.text("CODFISCAL")).toUpper();
    const bool isPerson = row.text("TIP") == QStringLiteral("P") || row.flag("PF") || code.isEmpty();
    const bool isHere = buyer.country == QStringLiteral("RO");
    if (isPerson && (isHere || row.text("TIP") == QStringLiteral("P") || row.flag("PF"))) {
      const QString personal = digitsOf(row.text("CNP"));
      constexpr int kPersonalDigits = 13;
      buyer.legalId = personal.size() == kPersonalDigits ? personal : QString(kPersonalDigits, u'0');
      return;
    }
    const QString country = countryCode(code.left(2));
    if (isHere && country != QStringLiteral("RO") && isInUnion(country))
      fault(QStringLiteral("Codul fiscal al clientului este din alta tara decat codul tarii: %1").arg(code),
            kPartners, "TextCT");
    if (code.startsWith(QStringLiteral("RO")) || (isHere && row.flag("PlatesteTVA"))) {
      buyer.vatId = QStringLiteral("RO") + digitsOf(code);
      return;
    }
    if (isHere || !isInUnion(buyer.country)) {
      buyer.legalId = isHere ? digitsOf(code) : code;
      return;
    }
    const QString prefix = vatPrefix(buyer.country);
    const bool hasCountry = code.startsWith(prefix) || code.startsWith(buyer.country);
    if (!code.isEmpty()) buyer.vatId = prefix + (hasCountry ? code.mid(2) : code);
  }

  void readCategory() {
    ECategory& category = made_.invoice.category;
    if (!pays_) {
      category = {QStringLiteral("O"), std::nullopt, QStringLiteral("VATEX-EU-O"),
                  QStringLiteral("Neplatitor de TVA")};
      // Nobody has a VAT code on such an invoice.
      EParty& buyer = made_.invoice.buyer;
      if (!buyer.vatId.isEmpty() && buyer.legalId.isEmpty()) buyer.legalId = digitsOf(buyer.vatId);
      buyer.vatId.clear();
      return;
    }
    const Decimal percent = header_.decimal("PERCENT");
    category.percent = percent;
    if (percent > 0) {
      category.id = QStringLiteral("S");
      return;
    }
    const Row rate = data_.rates.value(header_.integer("RATE"));
    category.id = rate.isEmpty() ? QString() : rate.text("CATEGORIE").trimmed().toUpper();
    if (category.id.isEmpty())
      return fault(QStringLiteral("Cota TVA de 0 nu are categorie (scutit, taxare inversa, export ...)"),
                   "frmCoteTVA", "cboCategorie", QString::number(header_.integer("RATE")), "BR-CL-17");
    if (category.id == QStringLiteral("Z")) return;
    category.reasonCode = rate.text("CODSCUTIRE").trimmed();
    category.reason = rate.text("TEXTSCUTIRE").trimmed();
    if (!category.reasonCode.isEmpty() || !category.reason.isEmpty()) return;
    static const QHash<QString, QString> usual = {
        {"AE", "VATEX-EU-AE"}, {"G", "VATEX-EU-G"}, {"K", "VATEX-EU-IC"}};
    category.reasonCode = usual.value(category.id);
    if (category.reasonCode.isEmpty())
      fault(QStringLiteral("Cota TVA scutita nu are codul sau textul scutirii"), "frmCoteTVA",
            "txtCodScutire", QString::number(header_.integer("RATE")), "BR-E-10");
  }

  void readLines() {
    EInvoice& invoice = made_.invoice;
    Decimal value, vat;
    for (const Row& line : lines_) {
      value += line.decimal("VALOAREFT");
      vat += line.decimal("VALOARETVA");
    }
    // What the customer owes: a storno takes it back. A note has the signs turned.
    const Decimal effect = isStorno_ ? Decimal(0) - (value + vat) : value + vat;
    invoice.isCreditNote = effect.isNegative();
    const bool isTurned = isStorno_ != invoice.isCreditNote;
    const auto turned = [isTurned](const Decimal& amount) { return isTurned ? Decimal(0) - amount : amount; };
    invoice.base = Round(turned(value), kDecimals);
    invoice.vat = Round(turned(vat), kDecimals);
    invoice.rounding = Round(turned(value + vat), kDecimals) - invoice.base - invoice.vat;
    Decimal exact, written;
    for (const Row& line : lines_) {
      exact += turned(line.decimal("VALOAREFT"));
      ELine made = madeLine(line);
      made.quantity = turned(line.decimal("CANT"));
      made.value = Round(exact, kDecimals) - written;  // so that the lines add up to the base
      written += made.value;
      invoice.lines.push_back(std::move(made));
    }
    readCurrency(turned);
  }

  ELine madeLine(const Row& line) {
    ELine made;
    made.name = line.text("DENUMIRE").trimmed();
    made.code = line.text("CODART").trimmed();
    made.ean = eanIn(made.code);
    if (made.ean.isEmpty()) made.ean = eanIn(line.text("DENALTALIMBA"));
    made.unit = unitCode(line.text("UM"));
    made.price = line.decimal("NETFT");
    made.grossPrice = std::max(line.decimal("PRETFT"), made.price);
    return made;
  }

  QString unitCode(const QString& unit) {
    const QString name = unit.trimmed();
    if (name.isEmpty()) return QStringLiteral("C62");
    const QString code = data_.units.value(name.toUpper());
    if (!isUnitCode(code) && !unknownUnits_.contains(name)) {
      unknownUnits_.append(name);
      fault(code.isEmpty()
                ? QStringLiteral("Unitatea de masura %1 nu are cod").arg(name)
                : QStringLiteral("Unitatea de masura %1 are un cod necunoscut: %2").arg(name, code),
            "frmUM", "grdDataGrid", {}, "BR-CL-23");
    }
    return code;
  }

  template <typename Turn>
  void readCurrency(Turn turned) {
    EInvoice& invoice = made_.invoice;
    const QString currency = header_.text("CURRENCY").trimmed().toUpper();
    invoice.currency = isLei(currency) ? QStringLiteral("RON") : currency;
    if (isLei(currency)) return;
    if (currency == QStringLiteral("ROL"))
      return fault(QStringLiteral("Documentul este in lei vechi (ROL)"), {}, {}, {}, "BR-CL-03");
    invoice.vatInLei = Round(turned(ledger_.decimal("TOTALTVA")), kDecimals);
    invoice.notes.append(
        QStringLiteral("Curs: 1 %1 = %2 lei").arg(currency, formatNumber(header_.decimal("CURS"), 4)));
  }

  void readTerms() {
    EInvoice& invoice = made_.invoice;
    invoice.due = isStorno_ ? ledger_.date("DATADOC") : header_.date("DATASCAD");
    if (!invoice.due.isValid() || invoice.due < ledger_.date("DATADOC"))
      invoice.due = ledger_.date("DATADOC");
    enum Mode { kCash = 1, kCheque, kOrder, kOther };
    switch (header_.integer("MODREG")) {
      case kCash:
        invoice.paymentCode = QStringLiteral("10");
        break;
      case kCheque:
        invoice.paymentCode = QStringLiteral("20");
        break;
      case kOrder:
        invoice.paymentCode = iban_.isEmpty() ? QStringLiteral("42") : QStringLiteral("30");
        invoice.iban = iban_;
        break;
      case kOther:
        invoice.paymentCode = QStringLiteral("1");
        break;
      default:
        break;
    }
    if (invoice.category.id == QStringLiteral("K")) {
      invoice.deliveryCountry = invoice.buyer.country;
    } else {
      invoice.deliveryStreet.clear();
      invoice.deliveryTown.clear();
      invoice.deliveryCounty.clear();
    }
  }

  const Data& data_;
  const Row ledger_, header_;
  const std::vector<Row> lines_;
  const QString number_;
  const qint64 partner_;
  const bool isStorno_;
  bool pays_ = true;
  QString iban_;
  QStringList unknownUnits_;
  MadeInvoice made_;
};

}  // namespace

EInvoiceSource::EInvoiceSource() : data_(std::make_unique<Data>()) {
  if (const Recordset info = OpenRs("SELECT * FROM kt_info"); !info.isEmpty()) data_->company = info.first();
  for (const Row& row : OpenRs("SELECT UM, COD FROM G_UM"))
    data_->units.insert(row.text("UM").trimmed().toUpper(), row.text("COD").trimmed());
  for (const Row& row : OpenRs("SELECT * FROM kt_cote")) data_->rates.insert(row.integer("COD"), row);
}

EInvoiceSource::~EInvoiceSource() = default;

void EInvoiceSource::read(const QStringList& documents) {
  data_->ledger.clear();
  data_->headers.clear();
  data_->lines.clear();
  data_->partners.clear();
  struct Group {
    Statements statements;
    QHash<QString, QStringList> documents;  // by the number of the draft
  };
  Group groups[] = {{ordinary(), {}}, {ofDevices(false), {}}, {ofDevices(true), {}}};
  QStringList turned;
  for (const Row& row : rowsOfKeys("SELECT * FROM G_DOCUME WHERE ID IN (%1)", documents)) {
    data_->ledger.insert(row.text("ID"), row);
    Group& group = groups[row.flag("IsAudio") ? (isStorno(row) ? 2 : 1) : 0];
    group.documents[draftOf(row)].append(row.text("ID"));
    if (const QString number = turnedBy(row); !number.isEmpty())
      turned.append(LedgerKey{KindId::CustomerInvoice, number}.text());
  }
  for (const Group& group : groups) {
    const QStringList numbers = group.documents.keys();
    for (const Row& row : rowsOfKeys(group.statements.header, numbers))
      for (const QString& document : group.documents.value(row.text("NUMAR")))
        data_->headers.insert(document, row);
    for (const Row& row : rowsOfKeys(group.statements.lines, numbers))
      for (const QString& document : group.documents.value(row.text("NUMAR")))
        data_->lines[document].push_back(row);
  }
  for (const Row& row : rowsOfKeys("SELECT * FROM G_DOCUME WHERE ID IN (%1)", turned))
    if (!data_->ledger.contains(row.text("ID"))) data_->ledger.insert(row.text("ID"), row);
  for (const Row& row : rowsOfKeys(
           "SELECT * FROM kt_ter WHERE COD IN (SELECT CODTERT FROM G_DOCUME WHERE ID IN (%1))", documents))
    data_->partners.insert(row.integer("COD"), row);
}

MadeInvoice EInvoiceSource::make(const QString& document) const {
  if (!data_->ledger.contains(document))
    throw RuleError(QStringLiteral("Documentul %1 nu mai exista").arg(document));
  if (!data_->headers.contains(document))
    return {{},
            {{{},
              QStringLiteral("Documentul %1 nu mai are antet si linii in culegere").arg(document),
              {},
              {},
              {}}}};
  return Maker(document, *data_).make();
}

}  // namespace velmar
