#include "config/Session.h"

#include "store/Database.h"
#include "store/Schema.h"
#include "util/Clock.h"
#include "util/Errors.h"
#include "util/Messages.h"

namespace velmar {

namespace {

QDate dateOrToday(const Row& row, const QString& column) {
  const QDate date = row.date(column);
  return date.isValid() ? date : clock::today();
}

QString valueOf(const QString& name) {
  const Column* column = companyTable("kt_par").column(name);
  if (!column) throw StoreError(0, QStringLiteral("Lipseste parametrul %1").arg(name));
  const Recordset found = OpenRs(QStringLiteral("SELECT %1 FROM kt_par ORDER BY ID").arg(column->name));
  return found.isEmpty() ? QString() : found.first().at(0).toString();
}

QString missingText(const QString& name) {
  const QString group = name.left(3).toUpper();
  if (group == QStringLiteral("CON"))
    return QStringLiteral("Nu au fost stabilite toate conturile necesare la configurarea societatii !");
  if (group == QStringLiteral("JUR"))
    return QStringLiteral("Nu au fost stabilite toate jurnalele necesare la configurarea societatii !");
  return QStringLiteral("Eroare la obtinerea unui parametru al societatii !");
}

}  // namespace

Session& session() {
  static Session theSession;
  return theSession;
}

void InitParaSoc() {
  Session& s = session();
  s.ModAudio = false;
  const Recordset parameters = OpenRs("SELECT * FROM kt_par ORDER BY ID");
  if (!parameters.isEmpty()) {
    const Row& par = parameters.first();
    s.Banca = par.text("Banca");
    s.Casa = par.text("Casa");
    s.CONTClienti = par.text("CONTClienti");
    s.CONTFurnizori = par.text("CONTFurnizori");
    s.Debitori = par.text("Debitori");
    s.Creditori = par.text("Creditori");
    s.FurnizoriImobilizari = par.text("FurnizoriImobilizari");
    s.CDIFCONV = par.text("CDIFCONV");
    s.VDIFCONV = par.text("VDIFCONV");
    s.VENSCCUDED = par.text("VENSCCUDED");
    s.VENSCFARADED = par.text("VENSCFARADED");
    s.VENEXPORT = par.text("VENEXPORT");
    s.PROFIT = par.text("PROFIT");
    s.TVACumparare = par.text("TVACumparare");
    s.TVAVanzare = par.text("TVAVanzare");
    s.Capital = static_cast<int>(par.integer("Capital"));
    s.IMO = static_cast<int>(par.integer("IMO"));
    s.STOC = static_cast<int>(par.integer("STOC"));
    s.Chelt = static_cast<int>(par.integer("Chelt"));
    s.VENIT = static_cast<int>(par.integer("VENIT"));
    s.StornareNegru = par.flag("StornareNegru");
    s.DataIN = dateOrToday(par, "DATAIN");
    s.DataSN = dateOrToday(par, "DATASN");
    s.DataIC = dateOrToday(par, "DATAIC");
    s.DataSC = dateOrToday(par, "DATASC");
    s.CasaMarcat = Nz(par.value("CASAMARCAT"), QStringLiteral(" ")).toString();
    s.CasaMarcat_Nr = static_cast<int>(par.integer("CASAMARCAT_Nr"));
    s.ModAudio = par.flag("MODAUDIO");
    s.DrepturiBare = par.flag("DREPTURIBARE");
  }
  const Recordset info = OpenRs("SELECT PlanC, TCOST, NrZec FROM kt_info");
  if (!info.isEmpty()) {
    s.PlanC = static_cast<int>(info.first().integer("PlanC"));
    s.TCOST = info.first().text("TCOST");
    s.NrZec = static_cast<int>(info.first().integer("NrZec"));
  }
}

void IncarcaSerii() {
  const Recordset found =
      OpenRs("SELECT SERIEFC, FCSTART, FCEND, SERIEAE, AESTART, AEEND FROM kt_par ORDER BY ID");
  const auto value = [&found](const QString& column) {
    const QString text = found.isEmpty() ? QString() : found.first().text(column).trimmed();
    return text.isEmpty() ? QStringLiteral("00") : text;
  };
  Session& s = session();
  s.gSerieFC = value("SERIEFC");
  s.gFCStart = value("FCSTART");
  s.gFCEnd = value("FCEND");
  s.gSerieAE = value("SERIEAE");
  s.gAEStart = value("AESTART");
  s.gAEEnd = value("AEEND");
}

QString ParametruSocietate(const QString& name) {
  QString value = valueOf(name);
  if (value.isEmpty()) Mesaj(missingText(name));
  return value;
}

Row companyParameters() {
  const Recordset found = OpenRs("SELECT * FROM kt_par ORDER BY ID LIMIT 1");
  return found.isEmpty() ? companyTable("kt_par").emptyRow() : found.first();
}

QString requiredParameter(const Row& parameters, const QString& name) {
  QString value = parameters.text(name);
  if (value.isEmpty()) throw RuleError(missingText(name), name);
  return value;
}

}  // namespace velmar
