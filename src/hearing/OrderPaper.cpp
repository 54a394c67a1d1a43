#include "hearing/OrderPaper.h"

#include <QDir>

#include "config/Session.h"
#include "hearing/Orders.h"
#include "reports/Variables.h"
#include "store/Database.h"
#include "util/Errors.h"

namespace velmar {

namespace {

struct PrintedPartner {
  const char* code;  ///< column of the order
  const char* missing;
  const char* action;
  bool isRequired;
  QStringList columns;
  QString prefix;
};

// The variables of each partner are its columns with a prefix.
const QList<PrintedPartner>& printedPartners() {
  static const char* const add = "Trebuie introdus in baza de date";
  static const QList<PrintedPartner> partners = {
      {"ID_Pacient",
       "Pacient inexistent in baza de date",
       add,
       true,
       {"NUME", "CNP", "AD", "ORAS", "JUDET", "SERIEBI", "NRBI", "EMISBI", "DATAEMISBI", "TELEFON", "REPREZ"},
       {}},
      {"ID_Furnizor", "Furnizor inexistent in baza de date", add, true, {"NUME", "TARA"}, "F"},
      {"ID_PunctLucru",
       "Punct de lucru inexistent in baza de date",
       add,
       false,
       {"NUME", "AD", "ORAS", "JUDET", "TELEFON"},
       "P"},
      {"ID_CAS",
       "Casa de sanatate inexistenta in baza de date",
       "Trebuie introdusa in baza de date",
       true,
       {"NUME"},
       "CASA"},
      {"ID_Doctor", "Doctor inexistent in baza de date", add, true, {"NUME"}, "DR"}};
  return partners;
}

void addPartner(Variables& variables, const Row& order, const PrintedPartner& partner) {
  const bool isNone = order.isNull(partner.code) && !partner.isRequired;
  const Recordset found =
      isNone ? Recordset() : session().gDataEnv.open("Get_Tert", {order.integer(partner.code)});
  if (found.isEmpty() && !isNone)
    throw RuleError(QLatin1String(partner.missing) + QStringLiteral("\r\n") + QLatin1String(partner.action));
  for (const QString& column : partner.columns) {
    const QString name = partner.prefix + column;
    variables.add(name, isNone ? QVariant(QString()) : found.first().value(column));
  }
  if (partner.prefix == QStringLiteral("DR")) variables.add("DCONTACT", found.first().value("REPREZ"));
}

// The row of the ear: left is the first one.
Row earOf(const Recordset& rows, bool isRight) {
  for (const Row& row : rows)
    if (row.flag("UrecheaDreapta") == isRight) return row;
  return {};
}

int pointOf(const Row& row, const QString& column) {
  return row.isEmpty() ? 0 : static_cast<int>(Round(row.decimal(column), 0).toDouble());
}

Recordset curvePoints(qint64 order, bool isRight) {
  Recordset points(std::make_shared<Columns>(QStringList{"ID_Comanda", "AX", "AY", "BX", "BY"}));
  const Row speech = earOf(audiogram(Audiogram::Speech, order), isRight);
  for (const AudiogramPoint& point : audiogramPoints(Audiogram::Speech))
    points.append({order, point.at, pointOf(speech, point.column), QVariant(), QVariant()});
  const Row tone = earOf(audiogram(Audiogram::Tone, order), isRight);
  for (const AudiogramPoint& point : audiogramPoints(Audiogram::Tone))
    points.append({order, QVariant(), QVariant(), point.at, -pointOf(tone, point.column)});
  return points;
}

}  // namespace

ReportData orderPaper(qint64 order) {
  ReportData data;
  data.variables = OpenRs(
      "SELECT C.*, A.CODFURNIZO AS ID_Furnizor, A.DENART, A.PretVanzare, A.CompensareCAS, A.TipBaterie, "
      "A.TipEmitator, A.TipAparat FROM G_ARTMAG A INNER JOIN G_COMANDA_AUDIO C ON A.CODART = C.ID_Dispozitiv "
      "WHERE "
      "C.ID_Comanda = ?",
      {order});
  if (data.variables.isEmpty())
    throw RuleError(
        QStringLiteral("Dispozitiv inexistent in baza de date\r\nTrebuie introdus in baza de date"));
  data.hasVariables = true;
  for (const char* date : {"Data", "DataDecizie", "DataCertificatGarantie"})
    data.variables.transform(date, asDate);
  const Row header = data.variables.first();
  const bool isRight = header.flag("UrecheaDreapta");
  const Recordset points = curvePoints(order, isRight);
  data.fieldNames = points.columns();
  data.fields = std::make_shared<RecordsetRows>(points);
  Variables variables(data);
  variables.addCompany();
  for (const PrintedPartner& partner : printedPartners()) addPartner(variables, header, partner);
  const Row tone = earOf(OpenRs("SELECT * FROM G_AT WHERE ID_Comanda = ?", {order}), isRight);
  for (const AudiogramPoint& point : audiogramPoints(Audiogram::Tone))
    variables.add(point.column, tone.isEmpty() ? QVariant() : tone.value(point.column));
  variables.add("Urechea", isRight ? QStringLiteral("Dreapta") : QStringLiteral("Stanga"));
  return data;
}

QString orderLayout(bool isBack) {
  return QDir(session().gCaleAplicatie)
      .filePath(isBack ? QStringLiteral("lst/Comanda_Audio_Verso.lst")
                       : QStringLiteral("lst/Comanda_Audio.lst"));
}

}  // namespace velmar
