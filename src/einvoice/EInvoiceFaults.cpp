// The rules of the state's system for what this program writes, in the order of the file.
#include <QRegularExpression>

#include "einvoice/EInvoice.h"
#include "einvoice/Places.h"

namespace velmar {

namespace {

const QString kPartners = QStringLiteral("frmTerti C");
const QString kCompany = QStringLiteral("frmParamSoc");
constexpr int kStreetLength = 150, kTownLength = 50, kItemLength = 100, kReasonLength = 100,
              kNoteLength = 300, kNameLength = 200, kPostCodeLength = 20;

class Rules {
 public:
  explicit Rules(const EInvoice& invoice) : invoice_(invoice) {}

  std::vector<EFault> run() {
    head();
    party(invoice_.seller, QStringLiteral("societatii"), kCompany,
          {"Text1(0)", "Text1(9)", "Text1(13)", "Text1(3)"});
    party(invoice_.buyer, QStringLiteral("clientului"), kPartners,
          {"txtFields(1)", "txtFields(4)", "txtFields(6)", "txtFields(3)"});
    category();
    for (const ELine& each : invoice_.lines) line(each);
    amounts();
    return std::move(faults_);
  }

 private:
  struct Fields {
    const char *name, *street, *town, *code;
  };

  void add(const char* rule, const QString& text, const QString& window = {}, const QString& field = {},
           const QString& key = {}) {
    faults_.push_back({QLatin1String(rule), text, window, key, field});
  }

  void longest(const char* rule, const QString& value, int most, const QString& what,
               const QString& window = {}, const QString& field = {}, const QString& key = {}) {
    if (value.size() > most)
      add(rule, QStringLiteral("%1 are %2 caractere; se admit %3").arg(what).arg(value.size()).arg(most),
          window, field, key);
  }

  void head() {
    static const QRegularExpression digit(QStringLiteral("[0-9]"));
    if (!invoice_.number.contains(digit))
      add("BR-RO-010", QStringLiteral("Numarul facturii nu are nicio cifra"));
    if (!isCurrency(invoice_.currency))
      add("BR-CL-04", QStringLiteral("Codul valutei %1 nu este cunoscut").arg(invoice_.currency),
          "frmValute");
    if (invoice_.lines.empty()) add("BR-16", QStringLiteral("Factura nu are linii"));
    for (const QString& note : invoice_.notes)
      longest("BR-RO-L300", note, kNoteLength, QStringLiteral("Comentariul"));
    static const QRegularExpression iban(QStringLiteral("^[A-Z]{2}[0-9]{2}[A-Z0-9]{10,30}$"));
    if (invoice_.paymentCode == QStringLiteral("30") && !iban.match(invoice_.iban.toUpper()).hasMatch())
      add("BR-61", QStringLiteral("Contul bancar al societatii nu este un IBAN: %1").arg(invoice_.iban),
          kCompany, "txtContBancar");
  }

  void party(const EParty& party, const QString& whose, const QString& window, const Fields& fields) {
    const bool isSeller = window == kCompany;
    if (party.name.isEmpty())
      add(isSeller ? "BR-06" : "BR-07", QStringLiteral("Numele %1 lipseste").arg(whose), window, fields.name);
    longest("BR-RO-L200", party.name, kNameLength, QStringLiteral("Numele %1").arg(whose), window,
            fields.name);
    if (party.street.isEmpty())
      add(isSeller ? "BR-RO-081" : "BR-RO-082", QStringLiteral("Adresa %1 lipseste").arg(whose), window,
          fields.street);
    longest("BR-RO-L150", party.street, kStreetLength, QStringLiteral("Adresa %1").arg(whose), window,
            fields.street);
    if (party.town.isEmpty())
      add(isSeller ? "BR-RO-091" : "BR-RO-092", QStringLiteral("Orasul %1 lipseste").arg(whose), window,
          fields.town);
    longest("BR-RO-L050", party.town, kTownLength, QStringLiteral("Orasul %1").arg(whose), window,
            fields.town);
    longest("BR-RO-L020", party.postCode, kPostCodeLength, QStringLiteral("Codul postal al %1").arg(whose),
            window);
    if (!isCountry(party.country))
      add("BR-CL-14", QStringLiteral("Codul tarii %1 nu este cunoscut: %2").arg(whose, party.country), window,
          "TextCT");
    if (party.vatId.isEmpty() && party.legalId.isEmpty())
      add(isSeller ? "BR-RO-065" : "BR-RO-120", QStringLiteral("Codul fiscal al %1 lipseste").arg(whose),
          window, fields.code);
    static const QRegularExpression vat(QStringLiteral("^(RO[0-9]{2,10}|(?!RO)[A-Z]{2}[0-9A-Z+*]{2,12})$"));
    if (!party.vatId.isEmpty() && !vat.match(party.vatId).hasMatch())
      add("BR-CO-09", QStringLiteral("Codul fiscal al %1 nu este corect: %2").arg(whose, party.vatId), window,
          fields.code);
  }

  void category() {
    const ECategory& category = invoice_.category;
    const QString& id = category.id;
    longest("BR-RO-L100", category.reason, kReasonLength, QStringLiteral("Textul scutirii"), "frmCoteTVA",
            "txtTextScutire");
    static const QRegularExpression reason(
        QStringLiteral("^VATEX-EU-(79-C|132(-1[A-Q])?|143(-1([A-L]|FA))?|148(-[A-G])?|151(-1(A|AA|B|C|D|E))?|"
                       "309|AE|D|F|G|I|IC|J|O)$"));
    if (!category.reasonCode.isEmpty() && !reason.match(category.reasonCode).hasMatch())
      add("BR-CL-22", QStringLiteral("Codul scutirii nu este cunoscut: %1").arg(category.reasonCode),
          "frmCoteTVA", "txtCodScutire");
    if (id == QStringLiteral("AE") && invoice_.buyer.vatId.isEmpty() && isAnonymous(invoice_.buyer.legalId))
      add("BR-AE-02", QStringLiteral("Taxarea inversa cere codul fiscal al clientului"), kPartners,
          "txtFields(3)");
    if (id == QStringLiteral("K")) {
      if (invoice_.buyer.vatId.isEmpty() || invoice_.buyer.country == QStringLiteral("RO"))
        add("BR-IC-02",
            QStringLiteral("Livrarea intracomunitara cere codul de TVA al clientului din alta tara"),
            kPartners, "txtFields(3)");
      if (invoice_.deliveryStreet.isEmpty())
        add("BR-RO-180", QStringLiteral("Livrarea intracomunitara cere adresa de livrare"), kPartners,
            "txtFields(12)");
      if (invoice_.deliveryTown.isEmpty())
        add("BR-RO-201", QStringLiteral("Livrarea intracomunitara cere orasul de livrare"), kPartners,
            "txtFields(14)");
      if (invoice_.deliveryCounty.isEmpty())
        add("BR-RO-211", QStringLiteral("Livrarea intracomunitara cere judetul sau regiunea de livrare"),
            kPartners, "txtJudetL");
      longest("BR-RO-L150", invoice_.deliveryStreet, kStreetLength, QStringLiteral("Adresa de livrare"),
              kPartners, "txtFields(12)");
      longest("BR-RO-L050", invoice_.deliveryTown, kTownLength, QStringLiteral("Orasul de livrare"),
              kPartners, "txtFields(14)");
    }
    if (id != QStringLiteral("O") && !id.isEmpty() && invoice_.seller.vatId.isEmpty())
      add("BR-S-02", QStringLiteral("Codul de TVA al societatii lipseste"), kCompany, "Text1(3)");
  }

  static bool isAnonymous(const QString& id) { return id.isEmpty() || id == QString(id.size(), u'0'); }

  void line(const ELine& line) {
    const QString article = QStringLiteral("frmArticole");
    if (line.name.isEmpty())
      add("BR-25", QStringLiteral("O linie nu are denumire"), article, "txtCamp(2)", line.code);
    longest("BR-RO-L100", line.name, kItemLength, QStringLiteral("Denumirea articolului %1").arg(line.code),
            article, "txtCamp(2)", line.code);
    if (line.price.isNegative())
      add("BR-27", QStringLiteral("Pretul articolului %1 este sub zero").arg(line.code), article, {},
          line.code);
    if (line.quantity.isZero()) add("BR-22", QStringLiteral("Articolul %1 nu are cantitate").arg(line.code));
  }

  void amounts() {
    const Decimal percent = invoice_.category.percent.value_or(Decimal(0));
    const Decimal computed = Round(invoice_.base * percent / 100, 2);
    if ((invoice_.vat - computed).abs() >= 1)
      add("BR-CO-17",
          QStringLiteral(
              "TVA-ul documentului (%1) difera cu un leu sau mai mult de baza inmultita cu cota (%2)")
              .arg(invoice_.vat.toString(), computed.toString()));
    const QString& id = invoice_.category.id;
    if (id == QStringLiteral("S") || invoice_.vat.isZero() || (invoice_.vat - computed).abs() >= 1) return;
    const QString rule =
        QStringLiteral("BR-%1-09").arg(id == QStringLiteral("K") ? QStringLiteral("IC") : id);
    add(rule.toLatin1().constData(),
        QStringLiteral("Un document fara TVA are TVA de %1").arg(invoice_.vat.toString()));
  }

  const EInvoice& invoice_;
  std::vector<EFault> faults_;
};

}  // namespace

std::vector<EFault> faultsOf(const EInvoice& invoice) { return Rules(invoice).run(); }

}  // namespace velmar
