#include "config/Checks.h"

#include <algorithm>
#include <iterator>

#include "store/Database.h"
#include "util/Errors.h"
#include "util/Messages.h"
#include "util/NumberText.h"

namespace velmar {

namespace {

enum class Compared { AsText, AsNumber, AsDate };

struct Question {
  const char* kind;
  const char* sql;
  Compared compared = Compared::AsText;
};

const Question kQuestions[] = {
    {"Magazie", "SELECT DENUMIRE FROM G_MULTIMAGAZIE WHERE DENUMIRE = ?"},
    {"MAG_IN_GLINII", "SELECT CODMAG FROM G_LDOCUM WHERE CODMAG = ?", Compared::AsNumber},
    {"Data", "SELECT DATA FROM kt_val2 WHERE DATA = ?", Compared::AsDate},
    {"CodJurnal", "SELECT COD FROM kt_jur WHERE COD = ?"},
    {"Cont", "SELECT CONT FROM kt_pc WHERE CONT = ?"},
    {"OperTert", "SELECT CONT FROM kt_oper WHERE TIP = 'F' AND CONT = ?"},
    {"OperTVA", "SELECT CONT FROM kt_oper WHERE TIP = 'T' AND CONT = ?"},
    {"CodValuta", "SELECT COD FROM kt_val WHERE COD = ?"},
    {"CodCentruCost", "SELECT COD FROM kt_cc WHERE COD = ?"},
    {"CodFamilie", "SELECT COD FROM G_FAMART WHERE COD = ?", Compared::AsNumber},
    {"CodTert", "SELECT COD FROM kt_ter WHERE COD = ?", Compared::AsNumber},
    {"CODARTICOL", "SELECT CODART FROM G_ARTMAG WHERE CODART = ?"},
    {"TertiLinii", "SELECT TERT FROM qryTertiLinii WHERE TERT = ?", Compared::AsNumber},
    {"FACIMPORTTR", "SELECT NUMFACTR FROM G_FACIMP WHERE NUMFACTR = ?"},
    {"FACTURAFURNIZOR", "SELECT NUMFAC FROM G_FACFUR WHERE NUMFAC = ?"},
    {"FACTURAIMPORT", "SELECT NUMFAC FROM G_FACIMP WHERE NUMFAC = ?"},
    {"FACTURACLIENT", "SELECT NUMFAC FROM G_FACCLI WHERE NUMFAC = ?"},
    {"NIR", "SELECT NUMNR FROM G_NRFURN WHERE NUMNR = ?"},
    {"BONINT", "SELECT NUMNR FROM G_BONINT WHERE NUMNR = ?"},
    {"PROFORMA", "SELECT NUMPF FROM G_PROFOR WHERE NUMPF = ?"},
    {"AVIZ", "SELECT NUMAE FROM G_AECLI WHERE NUMAE = ?"},
    {"BONCONS", "SELECT NUMAE FROM G_BONCON WHERE NUMAE = ?"},
    {"COMANDACLIENT", "SELECT NUMCOM FROM G_COMCLI WHERE NUMCOM = ?"},
    {"COMANDAFURNIZOR", "SELECT NUMCOM FROM G_COMFUR WHERE NUMCOM = ?"},
    {"UTILIZATOR", "SELECT NUME FROM UTILIZATORI WHERE NUME = ?"},
    {"ContLinii", "SELECT CONT FROM kt_linii WHERE CONT = ?"},
    {"ContJurnale", "SELECT CONT FROM kt_jur WHERE CONT = ?"},
    {"JurnalLinii", "SELECT JURNAL FROM kt_linii WHERE JURNAL = ?"},
};

/// A link of a document line to its source document; in the line the source's number is prefixed by its kind.
struct LinkQuestion {
  const char* kind;
  const char* sql;
  const char* beforeFirst;
  const char* beforeSecond;  ///< null when the second value is not used
};

const LinkQuestion kLinkQuestions[] = {
    {"AVIZFACTURA", "SELECT NUMAE FROM G_LFACCL WHERE NUMFAC = ? AND NUMAE = ?", "", "AE"},
    {"comandafactura", "SELECT NUMAE FROM G_LFACCL WHERE NUMFAC = ? AND NUMAE = ?", "", "CC"},
    {"ccfactura", "SELECT NUMFAC FROM G_LFACCL WHERE NUMAE = ?", "CC", nullptr},
    {"aefactura", "SELECT NUMAE FROM G_LFACCL WHERE NUMAE = ?", "AE", nullptr},
    {"comandaff", "SELECT NUMCOM FROM G_LFACFU WHERE NUMFAC = ? AND NUMCOM = ?", "", ""},
    {"nir", "SELECT NUMNR FROM G_LNRFUR WHERE NUMNR = ? AND NUMCOM = ?", "", "CF"},
    {"cfnir", "SELECT NUMNR FROM G_LNRFUR WHERE NUMCOM = ?", "CF", nullptr},
};

struct UnknownCode {
  const char* kind;
  const char* text;
};

const UnknownCode kUnknownCodes[] = {{"Cont", "Contul %1 nu exista !"},
                                     {"CodJurnal", "Jurnalul cu codul %1 nu exista !"},
                                     {"CodValuta", "Valuta cu codul %1 nu exista !"},
                                     {"CodCentruCost", "Centrul de cost cu codul %1 nu exista !"},
                                     {"CodFamilie", "Familia cu codul %1 nu exista !"},
                                     {"CodTert", "Tertul cu codul %1 nu exista !"}};

template <typename Table>
auto findKind(const Table& table, const QString& kind) {
  const auto found = std::find_if(std::begin(table), std::end(table),
                                  [&kind](const auto& row) { return kind == QLatin1String(row.kind); });
  return found == std::end(table) ? nullptr : &*found;
}

bool findsRow(const QString& sql, const Values& values) {
  return !OpenRs(sql + QStringLiteral(" LIMIT 1"), values).isEmpty();
}

/// Null when the value cannot be converted to the type of its column: no row matches it.
Value comparable(const QString& value, Compared compared) {
  if (compared == Compared::AsText) return value;
  if (compared == Compared::AsDate) return parseDate(value);
  const auto number = parseNumber(value);
  return number ? Value(*number) : Value();
}

std::optional<Decimal> wholeNumber(const QVariant& value) {
  if (value.typeId() == qMetaTypeId<Decimal>()) return Round(value.value<Decimal>(), 0);
  if (value.typeId() == QMetaType::Double) return Round(Decimal::fromDouble(value.toDouble()), 0);
  const auto number = parseNumber(value.toString());
  return number ? std::optional(Round(*number, 0)) : std::nullopt;
}

std::optional<QDate> dateOf(const QVariant& value) {
  const QDate date = value.typeId() == QMetaType::QString ? parseDate(value.toString()) : value.toDate();
  return date.isValid() ? std::optional(date) : std::nullopt;
}

QString shown(const QVariant& bound) {
  if (bound.typeId() == QMetaType::QDate || bound.typeId() == QMetaType::QDateTime)
    return formatDate(bound.toDate());
  if (bound.typeId() == qMetaTypeId<Decimal>()) return editNumber(bound.value<Decimal>());
  if (bound.typeId() == QMetaType::Double) return editNumber(Decimal::fromDouble(bound.toDouble()));
  return bound.toString();
}

template <typename Read>
QString objection(const QString& value, const QVariant& minimum, const QVariant& maximum, Read&& read) {
  const auto given = read(value);
  if (!given) return QStringLiteral("Valoarea trebuie sa fie numerica");
  const auto low = minimum.isNull() ? std::nullopt : read(minimum);
  if (low && *given < *low)
    return QStringLiteral("Valoarea trebuie sa fie mai mare decat: ") + shown(minimum);
  const auto high = maximum.isNull() ? std::nullopt : read(maximum);
  if (high && *given > *high)
    return QStringLiteral("Valoarea trebuie sa fie mai mica decat: ") + shown(maximum);
  return {};
}

}  // namespace

bool Exista(const QString& value, const QString& kind) {
  const Question* question = findKind(kQuestions, kind);
  if (!question) {
    Mesaj(QStringLiteral(" EROARE ! EROARE ! EROARE ! - Exista ") + kind, kCritical);
    return false;
  }
  return findsRow(QLatin1String(question->sql), {comparable(value, question->compared)});
}

QString unknownCodeObjection(const QString& code, const QString& kind) {
  const QString text = code.trimmed();
  if (text.isEmpty() || Exista(text, kind)) return {};
  const UnknownCode* unknown = findKind(kUnknownCodes, kind);
  return QString::fromLatin1(unknown ? unknown->text : "Codul %1 nu exista !").arg(text.left(20));
}

void requireKnownCode(const Row& row, const QString& column, const QString& kind, const Row& shown) {
  if (!row.has(column)) return;
  const QString code = row.value(column).toString().trimmed();
  if (!shown.isEmpty() && shown.has(column) && shown.value(column).toString().trimmed() == code) return;
  if (const QString text = unknownCodeObjection(code, kind); !text.isEmpty()) throw RuleError(text, column);
}

bool Exista2(const QString& first, const QString& second, const QString& kind) {
  const LinkQuestion* question = findKind(kLinkQuestions, kind);
  if (!question) {
    Mesaj(QStringLiteral("EROARE ! EROARE ! EROARE ! Exista2"));
    return false;
  }
  Values values{QLatin1String(question->beforeFirst) + first};
  if (question->beforeSecond) values.push_back(QLatin1String(question->beforeSecond) + second);
  return findsRow(QLatin1String(question->sql), values);
}

bool ValidareValoare(const QString& value, int kind, const QVariant& minimum, const QVariant& maximum) {
  if (value.isEmpty()) return true;
  QString text;
  if (kind == kNumberValue) text = objection(value, minimum, maximum, wholeNumber);
  if (kind == kDateValue) text = objection(value, minimum, maximum, dateOf);
  if (text.isEmpty()) return true;
  Mesaj(text);
  return false;
}

bool ArticolExista(const QString& code) {
  return findsRow(QStringLiteral("SELECT CODART FROM G_ARTMAG WHERE CODART = ?"), {code});
}

bool ProdusFurnizorExista(const QString& code) {
  return findsRow(QStringLiteral("SELECT CODART FROM G_ARTMAG WHERE CODPRODFUR = ?"), {code});
}

}  // namespace velmar
