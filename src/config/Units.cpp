#include "config/Units.h"

#include <QRegularExpression>
#include <QSet>

#include "store/Database.h"
#include "store/Records.h"
#include "util/Errors.h"

namespace velmar {

namespace {

const Table& units() { return companyTable("G_UM"); }

// The codes of goods, services and packages that small companies trade in.
const QSet<QString>& knownCodes() {
  static const QString codes = QStringLiteral(
      "H87 C62 KGM GRM MGM TNE DTN LTR MLT CLT DLT HLT MTR CMT MMT DMT KMT MTK CMK MMK DMK KMK MTQ CMQ MMQ "
      "DMQ LM HUR MIN SEC DAY WEE MON ANN QAN SAN KWH WHR MWH GWH KWT WTT MAW KVA VLT AMP OHM JOU KJO GJ "
      "SET PR DZN GRO NMP CEN MIL BLL LEF ZP RM NAR E48 E49 LS ACT AS NIU EA TP P1 XPK XBX XJR XBO XSA XRO "
      "XPX XBG XCT XCS XCR XCN XTU XTB XCA XBJ XBA XDR XPC XPA XST XRL XBE XBK XSH XCL XSW XEN XCY XVI XAE "
      "XAM XCX XKG XPF XTN XTK XTY XBT XPE XPO XCH X5H XEC XSY XIB XCQ XBU XBN XTR XTC BAR CEL KEL HTZ MHZ "
      "PAL KPA MPA DAA 4G 2N 4K");
  static const QStringList list = codes.split(u' ');
  static const QSet<QString> known(list.begin(), list.end());
  return known;
}

QString requiredCode(const QString& typed) {
  static const QRegularExpression code(QStringLiteral("^[A-Z0-9]{2,3}$"));
  const QString capitals = typed.trimmed().toUpper();
  if (!code.match(capitals).hasMatch())
    throw RuleError(QStringLiteral("Codul unitatii are 2 sau 3 litere mari si cifre, de exemplu H87 !"),
                    "COD");
  if (!isUnitCode(capitals))
    throw RuleError(QStringLiteral("Codul %1 nu este in lista codurilor de unitati !").arg(capitals), "COD");
  return capitals;
}

}  // namespace

bool isUnitCode(const QString& code) { return knownCodes().contains(code); }

void addUnit(const Row& unit) {
  Row row = rowOf("UM COD");
  row.set("UM", unit.text("UM").trimmed());
  row.set("COD", requiredCode(unit.text("COD")));
  if (row.text("UM").isEmpty()) throw RuleError(QStringLiteral("Introduceti unitatea de masura !"), "UM");
  Transaction transaction(database());
  if (!OpenRs("SELECT UM FROM G_UM WHERE UPPER(UM) = ?", {row.text("UM").toUpper()}).isEmpty())
    throw RuleError(QStringLiteral("Unitatea de masura %1 exista deja !").arg(row.text("UM")), "UM");
  insertRecord(units(), row);
  transaction.commit();
}

void changeUnitCode(const QString& unit, const QString& code) {
  updateField(units(), unit, "COD", requiredCode(code));
}

void removeUnit(const QString& unit) { deleteRecord(units(), unit); }

}  // namespace velmar
