#include "einvoice/Places.h"

#include <QLocale>
#include <QRegularExpression>
#include <QSet>
#include <QStringList>

#include "util/PlainText.h"

namespace velmar {

namespace {

struct County {
  const char* code;
  const char* name;
};
constexpr County kCounties[] = {{"AB", "ALBA"},
                                {"AR", "ARAD"},
                                {"AG", "ARGES"},
                                {"BC", "BACAU"},
                                {"BH", "BIHOR"},
                                {"BN", "BISTRITA-NASAUD"},
                                {"BT", "BOTOSANI"},
                                {"BV", "BRASOV"},
                                {"BR", "BRAILA"},
                                {"BZ", "BUZAU"},
                                {"CS", "CARAS-SEVERIN"},
                                {"CL", "CALARASI"},
                                {"CJ", "CLUJ"},
                                {"CT", "CONSTANTA"},
                                {"CV", "COVASNA"},
                                {"DB", "DAMBOVITA"},
                                {"DJ", "DOLJ"},
                                {"GL", "GALATI"},
                                {"GR", "GIURGIU"},
                                {"GJ", "GORJ"},
                                {"HR", "HARGHITA"},
                                {"HD", "HUNEDOARA"},
                                {"IL", "IALOMITA"},
                                {"IS", "IASI"},
                                {"IF", "ILFOV"},
                                {"MM", "MARAMURES"},
                                {"MH", "MEHEDINTI"},
                                {"MS", "MURES"},
                                {"NT", "NEAMT"},
                                {"OT", "OLT"},
                                {"PH", "PRAHOVA"},
                                {"SM", "SATU MARE"},
                                {"SJ", "SALAJ"},
                                {"SB", "SIBIU"},
                                {"SV", "SUCEAVA"},
                                {"TR", "TELEORMAN"},
                                {"TM", "TIMIS"},
                                {"TL", "TULCEA"},
                                {"VS", "VASLUI"},
                                {"VL", "VALCEA"},
                                {"VN", "VRANCEA"},
                                {"B", "BUCURESTI"},
                                // In the spelling before 1993.
                                {"DB", "DIMBOVITA"},
                                {"VL", "VILCEA"}};

const QStringList& countries() {
  static const QStringList codes =
      QStringLiteral(
          "AD AE AF AG AI AL AM AO AQ AR AS AT AU AW AX AZ BA BB BD BE BF BG BH BI BJ BL BM BN BO BQ BR BS "
          "BT BV BW BY BZ CA CC CD CF CG CH CI CK CL CM CN CO CR CU CV CW CX CY CZ DE DJ DK DM DO DZ EC EE "
          "EG EH ER ES ET FI FJ FK FM FO FR GA GB GD GE GF GG GH GI GL GM GN GP GQ GR GS GT GU GW GY HK HM "
          "HN HR HT HU ID IE IL IM IN IO IQ IR IS IT JE JM JO JP KE KG KH KI KM KN KP KR KW KY KZ LA LB LC "
          "LI LK LR LS LT LU LV LY MA MC MD ME MF MG MH MK ML MM MN MO MP MQ MR MS MT MU MV MW MX MY MZ NA "
          "NC NE NF NG NI NL NO NP NR NU NZ OM PA PE PF PG PH PK PL PM PN PR PS PT PW PY QA RE RO RS RU RW "
          "SA SB SC SD SE SG SH SI SJ SK SL SM SN SO SR SS ST SV SX SY SZ TC TD TF TG TH TJ TK TL TM TN TO "
          "TR TT TV TW TZ UA UG UM US UY UZ VA VC VE VG VI VN VU WF WS XI YE YT ZA ZM ZW")
          .split(u' ');
  return codes;
}

const QStringList kUnion = {"AT", "BE", "BG", "CY", "CZ", "DE", "DK", "EE", "ES", "FI",
                            "FR", "GR", "HR", "HU", "IE", "IT", "LT", "LU", "LV", "MT",
                            "NL", "PL", "PT", "RO", "SE", "SI", "SK", "XI"};

}  // namespace

QString plainCapitals(const QString& text) { return plainLetters(text).toUpper(); }

QString countyCode(const QString& county) {
  static const QRegularExpression words(QStringLiteral("^(RO-|JUDETUL|JUD\\.?|MUNICIPIUL|MUN\\.?)\\s*"));
  static const QRegularExpression other(QStringLiteral("[^A-Z]+"));
  QString name = plainCapitals(county).trimmed();
  name.remove(words);
  const QString letters = QString(name).remove(other);
  for (const County& each : kCounties)
    if (letters == QLatin1String(each.code) || letters == QString(QLatin1String(each.name)).remove(other))
      return QStringLiteral("RO-") + QLatin1String(each.code);
  return {};
}

QString bucharestSector(const QStringList& texts, const QString& postCode) {
  static const QRegularExpression named(QStringLiteral("SECT(?:OR(?:UL)?)?\\.?\\s*([1-6])(?![0-9])"));
  for (const QString& text : texts)
    if (const auto found = named.match(plainCapitals(text)); found.hasMatch())
      return QStringLiteral("SECTOR") + found.captured(1);
  const QString digits = postCode.trimmed();
  if (digits.size() == 6 && digits[0] == u'0' && digits[1] >= u'1' && digits[1] <= u'6')
    return QStringLiteral("SECTOR") + digits[1];
  return {};
}

QString countryCode(const QString& CT) {
  const QString code = CT.trimmed().toUpper();
  if (code.isEmpty()) return QStringLiteral("RO");
  return code == QStringLiteral("EL") ? QStringLiteral("GR") : code;
}

bool isCountry(const QString& code) { return countries().contains(code); }

bool isLei(const QString& currency) {
  return currency.isEmpty() || currency == QStringLiteral("LEI") || currency == QStringLiteral("RON");
}

bool isCurrency(const QString& code) {
  static const QSet<QString> codes = [] {
    QSet<QString> all;
    for (const QLocale& locale :
         QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyTerritory))
      all.insert(locale.currencySymbol(QLocale::CurrencyIsoCode));
    all.remove(QString());
    return all;
  }();
  return codes.contains(code);
}

bool isInUnion(const QString& country) { return kUnion.contains(country); }

QString vatPrefix(const QString& country) {
  return country == QStringLiteral("GR") ? QStringLiteral("EL") : country;
}

}  // namespace velmar
