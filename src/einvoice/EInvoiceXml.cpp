#include <QXmlStreamWriter>

#include "einvoice/EInvoice.h"
#include "einvoice/Ubl.h"

namespace velmar {

namespace {

const QString kCac = ublNamespace(QStringLiteral("CommonAggregateComponents"));
const QString kCbc = ublNamespace(QStringLiteral("CommonBasicComponents"));
const QString kProfile =
    QStringLiteral("urn:cen.eu:en16931:2017#compliant#urn:efactura.mfinante.ro:CIUS-RO:1.0.1");

QString amountText(const Decimal& amount) {
  const QString text = Round(amount, 2).toString();
  const qsizetype point = text.indexOf(u'.');
  if (point < 0) return text + QStringLiteral(".00");
  return text.leftJustified(point + 3, u'0');
}

// Only characters that XML allows.
QString allowed(const QString& text) {
  QString kept;
  for (qsizetype i = 0; i < text.size(); ++i) {
    const QChar character = text[i];
    if (character.isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate()) {
      kept += character;
      kept += text[++i];
      continue;
    }
    const bool isControl =
        character.unicode() < 0x20 && character != u'\t' && character != u'\n' && character != u'\r';
    if (!isControl && !character.isSurrogate() && character.unicode() != 0xFFFE &&
        character.unicode() != 0xFFFF)
      kept += character;
  }
  return kept;
}

class Writer {
 public:
  explicit Writer(const EInvoice& invoice) : invoice_(invoice), xml_(&bytes_) {}

  QByteArray write() {
    xml_.setAutoFormatting(true);
    xml_.setAutoFormattingIndent(1);
    xml_.writeStartDocument();
    const QString root = isNote() ? QStringLiteral("CreditNote") : QStringLiteral("Invoice");
    xml_.writeStartElement(root);
    xml_.writeDefaultNamespace(ublNamespace(root));
    xml_.writeNamespace(kCac, QStringLiteral("cac"));
    xml_.writeNamespace(kCbc, QStringLiteral("cbc"));
    head();
    open("AccountingSupplierParty");
    party(invoice_.seller);
    close();
    open("AccountingCustomerParty");
    party(invoice_.buyer);
    close();
    if (!invoice_.deliveryCountry.isEmpty()) delivery();
    payment();
    totals();
    int number = 0;
    for (const ELine& line : invoice_.lines) writeLine(line, ++number);
    xml_.writeEndElement();
    xml_.writeEndDocument();
    return bytes_;
  }

 private:
  bool isNote() const { return invoice_.isCreditNote; }

  void open(const char* name) { xml_.writeStartElement(kCac, QLatin1String(name)); }
  void close() { xml_.writeEndElement(); }
  void text(const char* name, const QString& value) {
    const QString shown = allowed(value).trimmed();
    if (!shown.isEmpty()) xml_.writeTextElement(kCbc, QLatin1String(name), shown);
  }
  void date(const char* name, const QDate& day) { text(name, day.toString(Qt::ISODate)); }
  void amount(const char* name, const Decimal& value) {
    amountIn(name, amountText(value), invoice_.currency);
  }
  void amountIn(const char* name, const QString& value, const QString& currency) {
    xml_.writeStartElement(kCbc, QLatin1String(name));
    xml_.writeAttribute(QStringLiteral("currencyID"), currency);
    xml_.writeCharacters(value);
    xml_.writeEndElement();
  }

  void head() {
    text("CustomizationID", kProfile);
    text("ID", invoice_.number);
    date("IssueDate", invoice_.date);
    if (!isNote()) date("DueDate", invoice_.due);
    text(isNote() ? "CreditNoteTypeCode" : "InvoiceTypeCode",
         isNote() ? QStringLiteral("381") : QStringLiteral("380"));
    for (const QString& note : invoice_.notes) text("Note", note);
    text("DocumentCurrencyCode", invoice_.currency);
    if (invoice_.vatInLei) text("TaxCurrencyCode", QStringLiteral("RON"));
    if (invoice_.isVatOnCollection) {
      open("InvoicePeriod");
      text("DescriptionCode", QStringLiteral("432"));
      close();
    }
    if (invoice_.precedingNumber.isEmpty()) return;
    open("BillingReference");
    open("InvoiceDocumentReference");
    text("ID", invoice_.precedingNumber);
    if (invoice_.precedingDate.isValid()) date("IssueDate", invoice_.precedingDate);
    close();
    close();
  }

  void address(const char* name, const QString& street, const QString& town, const QString& postCode,
               const QString& county, const QString& country) {
    open(name);
    text("StreetName", street);
    text("CityName", town);
    text("PostalZone", postCode);
    text("CountrySubentity", county);
    open("Country");
    text("IdentificationCode", country);
    close();
    close();
  }

  void taxScheme() {
    open("TaxScheme");
    text("ID", QStringLiteral("VAT"));
    close();
  }

  void party(const EParty& party) {
    open("Party");
    open("PartyName");
    text("Name", party.name);
    close();
    address("PostalAddress", party.street, party.town, party.postCode, party.county, party.country);
    if (!party.vatId.isEmpty()) {
      open("PartyTaxScheme");
      text("CompanyID", party.vatId);
      taxScheme();
      close();
    }
    open("PartyLegalEntity");
    text("RegistrationName", party.name);
    text("CompanyID", party.legalId);
    text("CompanyLegalForm", party.legalForm);
    close();
    close();
  }

  void delivery() {
    open("Delivery");
    date("ActualDeliveryDate", invoice_.date);
    open("DeliveryLocation");
    address("Address", invoice_.deliveryStreet, invoice_.deliveryTown, {}, invoice_.deliveryCounty,
            invoice_.deliveryCountry);
    close();
    close();
  }

  // A credit note states its due date with the means of payment.
  void payment() {
    if (invoice_.paymentCode.isEmpty() && !isNote()) return;
    open("PaymentMeans");
    text("PaymentMeansCode", invoice_.paymentCode.isEmpty() ? QStringLiteral("1") : invoice_.paymentCode);
    if (isNote()) date("PaymentDueDate", invoice_.due);
    if (!invoice_.iban.isEmpty()) {
      open("PayeeFinancialAccount");
      text("ID", invoice_.iban);
      close();
    }
    close();
  }

  void category(const char* name, bool hasReason) {
    const ECategory& category = invoice_.category;
    open(name);
    text("ID", category.id);
    if (category.percent) text("Percent", category.percent->toString());
    if (hasReason) {
      text("TaxExemptionReasonCode", category.reasonCode);
      text("TaxExemptionReason", category.reason);
    }
    taxScheme();
    close();
  }

  void totals() {
    open("TaxTotal");
    amount("TaxAmount", invoice_.vat);
    open("TaxSubtotal");
    amount("TaxableAmount", invoice_.base);
    amount("TaxAmount", invoice_.vat);
    category("TaxCategory", true);
    close();
    close();
    if (invoice_.vatInLei) {
      open("TaxTotal");
      amountIn("TaxAmount", amountText(*invoice_.vatInLei), QStringLiteral("RON"));
      close();
    }
    open("LegalMonetaryTotal");
    amount("LineExtensionAmount", invoice_.base);
    amount("TaxExclusiveAmount", invoice_.base);
    amount("TaxInclusiveAmount", invoice_.base + invoice_.vat);
    if (!invoice_.rounding.isZero()) amount("PayableRoundingAmount", invoice_.rounding);
    amount("PayableAmount", invoice_.payable());
    close();
  }

  void writeLine(const ELine& line, int number) {
    open(isNote() ? "CreditNoteLine" : "InvoiceLine");
    text("ID", QString::number(number));
    xml_.writeStartElement(
        kCbc, isNote() ? QStringLiteral("CreditedQuantity") : QStringLiteral("InvoicedQuantity"));
    xml_.writeAttribute(QStringLiteral("unitCode"), line.unit);
    xml_.writeCharacters(line.quantity.toString());
    xml_.writeEndElement();
    amount("LineExtensionAmount", line.value);
    open("Item");
    text("Name", line.name);
    if (!line.code.trimmed().isEmpty()) {
      open("SellersItemIdentification");
      text("ID", line.code);
      close();
    }
    if (!line.ean.isEmpty()) {
      open("StandardItemIdentification");
      xml_.writeStartElement(kCbc, QStringLiteral("ID"));
      xml_.writeAttribute(QStringLiteral("schemeID"), QStringLiteral("0160"));
      xml_.writeCharacters(line.ean);
      xml_.writeEndElement();
      close();
    }
    category("ClassifiedTaxCategory", false);
    close();
    price(line);
    close();
  }

  void price(const ELine& line) {
    open("Price");
    amountIn("PriceAmount", line.price.toString(), invoice_.currency);
    if (line.grossPrice > line.price) {
      open("AllowanceCharge");
      text("ChargeIndicator", QStringLiteral("false"));
      amountIn("Amount", (line.grossPrice - line.price).toString(), invoice_.currency);
      amountIn("BaseAmount", line.grossPrice.toString(), invoice_.currency);
      close();
    }
    close();
  }

  const EInvoice& invoice_;
  QByteArray bytes_;
  QXmlStreamWriter xml_;
};

}  // namespace

QByteArray eInvoiceXml(const EInvoice& invoice) { return Writer(invoice).write(); }

}  // namespace velmar
