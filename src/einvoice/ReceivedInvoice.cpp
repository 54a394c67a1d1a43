#include "einvoice/ReceivedInvoice.h"

#include <algorithm>

#include "einvoice/Ubl.h"
#include "util/Errors.h"
#include "util/FileContent.h"
#include "util/XmlText.h"

namespace velmar {

namespace {

constexpr int kLongestNumber = 40;  // characters
constexpr qint64 kLargestNumber = 1'000'000'000'000;

RuleError refused(const QString& why) { return RuleError(why); }

class Reader {
 public:
  explicit Reader(const QByteArray& file) : xml_(file, XmlText::Names::Local) {
    const QString root = xml_.root();
    invoice_.isCreditNote = root == QStringLiteral("CreditNote");
    if ((root != QStringLiteral("Invoice") && !invoice_.isCreditNote) ||
        xml_.rootNamespace() != ublNamespace(root))
      throw refused(QStringLiteral("Fisierul nu este o factura UBL 2.1 (elementul %1)").arg(root.left(40)));
  }

  ReceivedInvoice read() {
    head();
    party(invoice_.supplier, "AccountingSupplierParty");
    party(invoice_.buyer, "AccountingCustomerParty");
    if (invoice_.supplier.fiscalCode.isEmpty())
      throw refused(QStringLiteral("Codul fiscal al furnizorului lipseste"));
    totals();
    for (const int element : xml_.children(0)) {
      const QString name = xml_.name(element);
      if (name == QStringLiteral("InvoiceLine") || name == QStringLiteral("CreditNoteLine")) line(element);
      if (name == QStringLiteral("AllowanceCharge")) allowance(element);
    }
    if (invoice_.lines.empty()) throw refused(QStringLiteral("Factura nu are linii"));
    requireSums();
    if (invoice_.isCreditNote) turn();
    return std::move(invoice_);
  }

  const ReceivedInvoice& readSoFar() const { return invoice_; }

 private:
  QString at(int element, const char* path) const { return xml_.text(element, QLatin1String(path)); }

  QString required(int element, const char* path, const char* what) const {
    const QString text = at(element, path);
    if (text.isEmpty()) throw refused(QStringLiteral("%1 lipseste").arg(QLatin1String(what)));
    return text;
  }

  static QDate dateIn(const QString& text) { return QDate::fromString(text.left(10), Qt::ISODate); }

  static Decimal numberIn(const QString& text, const char* what) {
    const bool isPlain = text.size() <= kLongestNumber && !text.contains(u'e', Qt::CaseInsensitive);
    const auto number = isPlain ? Decimal::parse(text) : std::nullopt;
    if (!number || number->abs() >= kLargestNumber)
      throw refused(QStringLiteral("%1 nu este un numar: %2").arg(QLatin1String(what), text.left(40)));
    return *number;
  }
  Decimal number(int element, const char* path, const char* what) const {
    return numberIn(required(element, path, what), what);
  }

  void head() {
    invoice_.number = required(0, "ID", "Numarul facturii").simplified();
    invoice_.date = dateIn(required(0, "IssueDate", "Data facturii"));
    if (!invoice_.date.isValid()) throw refused(QStringLiteral("Data facturii nu este corecta"));
    invoice_.due = dateIn(at(0, invoice_.isCreditNote ? "PaymentMeans/PaymentDueDate" : "DueDate"));
    if (!invoice_.due.isValid() || invoice_.due < invoice_.date) invoice_.due = invoice_.date;
    invoice_.currency = required(0, "DocumentCurrencyCode", "Valuta").toUpper();
    invoice_.isVatOnCollection = at(0, "InvoicePeriod/DescriptionCode") == QStringLiteral("432");
    invoice_.precedingNumber = at(0, "BillingReference/InvoiceDocumentReference/ID").simplified();
  }

  void party(ReceivedInvoice::Party& party, const char* path) {
    const auto found = xml_.find(0, QLatin1String(path) + QStringLiteral("/Party"));
    if (!found) throw refused(QStringLiteral("Furnizorul sau cumparatorul lipseste"));
    party.name = at(*found, "PartyLegalEntity/RegistrationName").simplified();
    if (party.name.isEmpty()) party.name = at(*found, "PartyName/Name").simplified();
    for (const int element : xml_.children(*found))
      if (xml_.name(element) == QStringLiteral("PartyTaxScheme") &&
          at(element, "TaxScheme/ID") == QStringLiteral("VAT"))
        party.fiscalCode = at(element, "CompanyID").simplified();
    party.paysVat = !party.fiscalCode.isEmpty();
    if (party.fiscalCode.isEmpty()) party.fiscalCode = at(*found, "PartyLegalEntity/CompanyID").simplified();
    party.registration = at(*found, "PartyLegalEntity/CompanyLegalForm").simplified();
    party.street = at(*found, "PostalAddress/StreetName").simplified();
    party.town = at(*found, "PostalAddress/CityName").simplified();
    party.postCode = at(*found, "PostalAddress/PostalZone").simplified();
    party.county = at(*found, "PostalAddress/CountrySubentity").simplified();
    party.country = at(*found, "PostalAddress/Country/IdentificationCode").toUpper();
  }

  ReceivedRate rateAt(int element, const char* category) const {
    const auto found = xml_.find(element, QLatin1String(category));
    if (!found) throw refused(QStringLiteral("Categoria TVA a unei linii lipseste"));
    const QString percent = at(*found, "Percent");
    const QString id = required(*found, "ID", "Categoria TVA").toUpper();
    if (percent.isEmpty() && id == QStringLiteral("S"))
      throw refused(QStringLiteral("Cota TVA a unei linii lipseste"));
    return {id, percent.isEmpty() ? Decimal(0) : numberIn(percent, "Cota TVA")};
  }

  void totals() {
    for (const int total : xml_.children(0)) {
      if (xml_.name(total) != QStringLiteral("TaxTotal")) continue;
      const auto amount = xml_.find(total, QStringLiteral("TaxAmount"));
      // A second total states the VAT in lei.
      if (!amount || xml_.attribute(*amount, QStringLiteral("currencyID")).toUpper() != invoice_.currency)
        continue;
      invoice_.vat = numberIn(xml_.text(*amount), "TVA");
      for (const int part : xml_.children(total))
        if (xml_.name(part) == QStringLiteral("TaxSubtotal"))
          invoice_.totals.push_back({rateAt(part, "TaxCategory"), number(part, "TaxableAmount", "Baza TVA"),
                                     number(part, "TaxAmount", "TVA"), Decimal(0)});
      break;
    }
    if (invoice_.totals.empty()) throw refused(QStringLiteral("Totalurile TVA lipsesc"));
    invoice_.base = number(0, "LegalMonetaryTotal/TaxExclusiveAmount", "Totalul fara TVA");
  }

  ReceivedTotal& totalOf(const ReceivedRate& rate) {
    const auto found = std::find_if(invoice_.totals.begin(), invoice_.totals.end(),
                                    [&rate](const ReceivedTotal& total) { return total.rate == rate; });
    if (found == invoice_.totals.end())
      throw refused(
          QStringLiteral("Cota TVA %1 a unei linii nu este in totaluri").arg(rate.percent.toString()));
    return *found;
  }

  void line(int element) {
    ReceivedLine line;
    line.code = at(element, "Item/SellersItemIdentification/ID").simplified();
    line.name = required(element, "Item/Name", "Denumirea unei linii").simplified();
    const auto quantity = xml_.find(element, invoice_.isCreditNote ? QStringLiteral("CreditedQuantity")
                                                                   : QStringLiteral("InvoicedQuantity"));
    if (!quantity) throw refused(QStringLiteral("Cantitatea unei linii lipseste"));
    line.unit = xml_.attribute(*quantity, QStringLiteral("unitCode"));
    line.quantity = numberIn(xml_.text(*quantity), "Cantitatea");
    line.value = number(element, "LineExtensionAmount", "Valoarea unei linii");
    if (line.quantity.isZero()) {
      if (line.value.isZero()) return;  // a remark of the supplier, no goods
      throw refused(QStringLiteral("Cantitatea unei linii este 0"));
    }
    line.statedPrice = number(element, "Price/PriceAmount", "Pretul unei linii");
    if (const QString base = at(element, "Price/BaseQuantity"); !base.isEmpty())
      if (const Decimal per = numberIn(base, "Cantitatea de baza a pretului"); !per.isZero())
        line.statedPrice /= per;
    line.rate = rateAt(element, "Item/ClassifiedTaxCategory");
    totalOf(line.rate);
    lineTotal_ += line.value;
    invoice_.lines.push_back(std::move(line));
  }

  // An allowance is spread over the lines of its rate; a charge is a line.
  void allowance(int element) {
    const ReceivedRate rate = rateAt(element, "TaxCategory");
    const Decimal amount = number(element, "Amount", "Suma unei reduceri");
    const QString isCharge = at(element, "ChargeIndicator");
    if (isCharge == QStringLiteral("true") || isCharge == QStringLiteral("1")) {
      QString reason = at(element, "AllowanceChargeReason").simplified();
      if (reason.isEmpty()) reason = QStringLiteral("Taxa suplimentara");
      invoice_.lines.push_back({{}, reason, QStringLiteral("C62"), Decimal(1), amount, amount, rate, true});
      charges_ += amount;
    } else {
      totalOf(rate).allowance += amount;
      allowances_ += amount;
    }
  }

  static void requireEqual(const Decimal& one, const Decimal& other, const char* what) {
    if (one != other)
      throw refused(QStringLiteral("Sumele nu corespund: %1 (%2 fata de %3)")
                        .arg(QLatin1String(what), one.toString(), other.toString()));
  }

  void requireSums() {
    requireEqual(number(0, "LegalMonetaryTotal/LineExtensionAmount", "Totalul liniilor"), lineTotal_,
                 "totalul liniilor");
    requireEqual(invoice_.base, lineTotal_ - allowances_ + charges_, "totalul fara TVA");
    const auto requireTotal = [this](const char* path, const Decimal& total, const char* what) {
      const QString stated = at(0, path);
      if (!stated.isEmpty()) requireEqual(numberIn(stated, "Un total"), total, what);
    };
    requireTotal("LegalMonetaryTotal/AllowanceTotalAmount", allowances_, "totalul reducerilor");
    requireTotal("LegalMonetaryTotal/ChargeTotalAmount", charges_, "totalul taxelor suplimentare");
    Decimal vat, base;
    for (const ReceivedTotal& total : invoice_.totals) {
      Decimal lines;
      bool hasLines = false;
      for (const ReceivedLine& line : invoice_.lines) {
        if (line.rate != total.rate) continue;
        hasLines = true;
        lines += line.value;
      }
      // No draft could hold them.
      if (!hasLines && !(total.base.isZero() && total.vat.isZero() && total.allowance.isZero()))
        throw refused(
            QStringLiteral("Cota TVA %1 are sume, dar nicio linie").arg(total.rate.percent.toString()));
      requireEqual(total.base, lines - total.allowance, "baza unei cote TVA");
      vat += total.vat;
      base += total.base;
    }
    requireEqual(invoice_.vat, vat, "TVA");
    requireEqual(invoice_.base, base, "baza TVA");
    requireEqual(number(0, "LegalMonetaryTotal/TaxInclusiveAmount", "Totalul cu TVA"), invoice_.total(),
                 "totalul cu TVA");
    const auto optional = [this](const char* path, const char* what) {
      const QString stated = at(0, path);
      return stated.isEmpty() ? Decimal(0) : numberIn(stated, what);
    };
    requireTotal("LegalMonetaryTotal/PayableAmount",
                 invoice_.total() - optional("LegalMonetaryTotal/PrepaidAmount", "Suma platita in avans") +
                     optional("LegalMonetaryTotal/PayableRoundingAmount", "Rotunjirea"),
                 "suma de plata");
  }

  void turn() {
    const auto negate = [](Decimal& amount) { amount = Decimal(0) - amount; };
    for (ReceivedLine& line : invoice_.lines) {
      negate(line.quantity);
      negate(line.value);
    }
    for (ReceivedTotal& total : invoice_.totals)
      for (Decimal* amount : {&total.base, &total.vat, &total.allowance}) negate(*amount);
    negate(invoice_.base);
    negate(invoice_.vat);
  }

  XmlText xml_;
  ReceivedInvoice invoice_;
  Decimal lineTotal_, allowances_, charges_;
};

}  // namespace

ReceivedInvoice readInvoice(const QByteArray& file, ReceivedInvoice* refused) {
  if (file.size() > kLargestXml) throw RuleError(QStringLiteral("Fisierul este prea mare (peste 20 MB)"));
  Reader reader(file);
  try {
    return reader.read();
  } catch (const RuleError&) {
    if (refused) *refused = reader.readSoFar();
    throw;
  }
}

std::vector<std::pair<QString, QString>> fieldsOfInvoice(const QByteArray& file) {
  return XmlText(file, XmlText::Names::Local).fields();
}

QString comparableCode(const QString& fiscalCode) {
  QString code;
  for (const QChar character : fiscalCode.toUpper())
    if (character.isLetterOrNumber()) code += character;
  return code.startsWith(QStringLiteral("RO")) ? code.mid(2) : code;
}

}  // namespace velmar
