#include "config/Parameters.h"

#include <limits>
#include <QHash>
#include <QRegularExpression>

#include "config/Checks.h"
#include "config/CostMethod.h"
#include "config/NumberRanges.h"
#include "config/Session.h"
#include "store/Database.h"
#include "store/Records.h"
#include "util/Errors.h"
#include "util/Messages.h"
#include "util/NumberText.h"

namespace velmar {

namespace {

constexpr int kMostDecimals = 9;

const QHash<QString, QString> kIdentityNumbers = {
    {"CAPSOC", "Va rugam introduceti o valoare numerica pentru capitalul social !"},
    {"TERMENEFACT", "Va rugam introduceti o valoare numerica pentru termenul facturilor electronice !"},
    {"FP", "Va rugam introduceti o valoare numerica pentru forma de proprietate !"},
    {"RAMURA", "Va rugam introduceti o valoare numerica pentru codul CAEN !"}};

Row onlyRecord(const QString& table) {
  const Recordset found = OpenRs(QStringLiteral("SELECT * FROM %1").arg(table));
  if (found.isEmpty())
    throw StoreError(0, QStringLiteral("Tabela %1 nu are inregistrarea cu parametrii societatii").arg(table));
  return found.first();
}

void setNumber(Row& row, const QString& column, const std::optional<Decimal>& number) {
  row.set(column, number ? Value(*number) : Value());
}

constexpr int kLongestTerm = 60;  // working days

Row checkedIdentity(const Row& typed) {
  if (typed.text("DENUMIRE").trimmed().isEmpty())
    throw RuleError("Salvarea nu se poate efectua. Introduceti o denumire pentru societatea curenta !",
                    "DENUMIRE", kCritical, "Configurare societate");
  Row identity = typed;
  for (const char* column : {"CAPSOC", "FP", "RAMURA", "TERMENEFACT"})
    if (typed.has(column))
      setNumber(identity, column, numberIn(typed, column, identityNumberMessage(column)));
  if (identity.has("TERMENEFACT") && !identity.isNull("TERMENEFACT") &&
      (identity.decimal("TERMENEFACT") < 1 || identity.decimal("TERMENEFACT") > kLongestTerm ||
       Round(identity.decimal("TERMENEFACT"), 0) != identity.decimal("TERMENEFACT")))
    throw RuleError(
        QStringLiteral("Termenul facturilor electronice este un numar intreg de zile, de la 1 la %1 !")
            .arg(kLongestTerm),
        "TERMENEFACT");
  const QString objection = vatPayerObjection(typed.text("PLATITVA"));
  if (!objection.isEmpty()) throw RuleError(objection, "PLATITVA");
  if (const QString wrong = sectorObjection(typed.has("SECTOR1") ? typed.text("SECTOR1") : QString());
      !wrong.isEmpty())
    throw RuleError(wrong, "SECTOR1");
  identity.set("PLATITVA", typed.text("PLATITVA").trimmed().toUpper());
  return identity;
}

// More decimals than a price needs would only show the limits of double precision.
int decimalsIn(const QString& typed) {
  const auto number = parseNumber(typed);
  if (!number) return 0;
  if (*number < 0 || *number > kMostDecimals || Round(*number, 0) != *number)
    throw RuleError(QStringLiteral("Numarul de zecimale trebuie sa fie un numar intreg de la 0 la %1 !")
                        .arg(kMostDecimals),
                    "NrZec");
  return number->toString().toInt();
}

// Codes in columns with that prefix ("CONT", "JUR") must exist, unless they are already stored.
void requireKnownCodes(const Row& typed, const QString& prefix, const QString& kind) {
  const Row before = storedParameters();
  for (const QString& column : typed.columns())
    if (column.startsWith(prefix)) requireKnownCode(typed, column, kind, before);
}

// The letters of the fiscal registers: Activa, Datecs, Optima, Partner.
void requireKnownRegister(const Row& typed) {
  const QString kind = typed.text("CASAMARCAT").trimmed();
  if (kind.isEmpty() || kind == storedParameters().text("CASAMARCAT").trimmed()) return;
  if (kind.size() != 1 || !QStringLiteral("ADOP").contains(kind, Qt::CaseInsensitive))
    throw RuleError(
        QStringLiteral("Casa de marcat este A (Activa), D (Datecs), O (Optima) sau P (Partner) !"),
        "CASAMARCAT");
}

}  // namespace

Row storedIdentity() { return onlyRecord(QStringLiteral("kt_info")); }

int eInvoiceTerm(const Row& identity) {
  constexpr int kUsual = 5;
  const qint64 chosen = identity.integer("TERMENEFACT");
  return chosen > 0 ? static_cast<int>(chosen) : kUsual;
}

Row storedParameters() { return onlyRecord(QStringLiteral("kt_par")); }

QString identityNumberMessage(const QString& column) { return kIdentityNumbers.value(column); }

QString vatPayerObjection(const QString& letter) {
  const QString upper = letter.trimmed().toUpper();
  const bool valid = upper.isEmpty() || upper == QStringLiteral("D") || upper == QStringLiteral("N");
  return valid ? QString() : QStringLiteral("Va rugam completati D (de la DA) sau N (de la NU) !");
}

QString sectorObjection(const QString& sector) {
  static const QRegularExpression valid(QStringLiteral("^[1-6]?$"));
  return valid.match(sector.trimmed()).hasMatch()
             ? QString()
             : QStringLiteral("Sectorul din Bucuresti este un numar de la 1 la 6 !");
}

void saveIdentity(const Row& identity, const QString& method, bool hearing) {
  const Row checked = checkedIdentity(identity);
  Row mode = rowOf("MODAUDIO");
  mode.set("MODAUDIO", hearing);
  Transaction transaction(database());
  writeOnlyRecord("kt_info", checked);
  writeOnlyRecord("kt_par", mode);
  // The method may already be stored, by an earlier save here or by another workstation.
  if (!method.isEmpty() && storedIdentity().text("TCOST") != method) chooseCostMethod(method);
  transaction.commit();
}

void saveAccounts(const Row& accounts, const QString& decimals) {
  Row places = rowOf("NrZec");
  places.set("NrZec", decimalsIn(decimals));
  requireKnownCodes(accounts, QStringLiteral("CONT"), QStringLiteral("Cont"));
  const Row checked = checkedRanges(accounts);
  Transaction transaction(database());
  writeOnlyRecord("kt_info", places);
  writeOnlyRecord("kt_par", checked);
  transaction.commit();
  IncarcaSerii();
}

void saveJournals(const Row& journals) {
  const QString noNumber = QStringLiteral("Valoarea trebuie sa fie numerica");
  const auto length = numberIn(journals, "CASAMARCAT_Nr", noNumber);
  const bool whole = !length || (*length >= 0 && *length <= std::numeric_limits<qint32>::max() &&
                                 Round(*length, 0) == *length);
  if (!whole) throw RuleError(noNumber, "CASAMARCAT_Nr");
  requireKnownCodes(journals, QStringLiteral("JUR"), QStringLiteral("CodJurnal"));
  requireKnownRegister(journals);
  Row checked = journals;
  setNumber(checked, "CASAMARCAT_Nr", length);
  writeOnlyRecord("kt_par", checked);
}

void writeOnlyRecord(const QString& table, const Row& row) {
  requireWidths(companyTable(table), row);
  requirePlainTexts(companyTable(table), row);
  QStringList sets;
  Values values;
  for (const QString& column : row.columns()) {
    sets.append(column + QStringLiteral(" = ?"));
    const QVariant& cell = row.value(column);
    const bool isEmptyText = cell.typeId() == QMetaType::QString && cell.toString().isEmpty();
    values.push_back(isEmptyText ? Value() : Value::raw(cell));
  }
  if (ExecutaSql(QStringLiteral("UPDATE %1 SET %2").arg(table, sets.join(QStringLiteral(", "))), values) == 0)
    throw StoreError(0, QStringLiteral("Tabela %1 nu are inregistrarea cu parametrii societatii").arg(table));
}

}  // namespace velmar
