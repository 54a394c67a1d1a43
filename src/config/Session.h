// The state of the running process: the open company, the user, the warehouse, and the company's parameters.
// Written at start-up and when the parameters change, read everywhere; the program has one thread.
#pragma once

#include <memory>
#include <QDate>
#include <QString>

#include "store/FileCheck.h"
#include "store/NamedCommands.h"
#include "store/Roster.h"

namespace velmar {

/// The company's parameters, named as their columns.
struct CompanyParameters {
  QString Banca, Casa, CONTClienti, CONTFurnizori, Debitori, Creditori, FurnizoriImobilizari;
  QString CDIFCONV, VDIFCONV, VENSCCUDED, VENSCFARADED, VENEXPORT, PROFIT, TVACumparare, TVAVanzare;
  int Capital = 0, IMO = 0, STOC = 0, Chelt = 0, VENIT = 0;  ///< class digits
  bool StornareNegru = false;
  QDate DataIN, DataSN;  ///< current fiscal year
  QDate DataIC, DataSC;  ///< entry period, both ends included
  QString CasaMarcat;    ///< " " when there is no register
  int CasaMarcat_Nr = 0;
  int PlanC = 0;
  QString TCOST;              ///< "FIFO", "MP" or empty
  int NrZec = 0;              ///< decimals of prices and values
  bool DrepturiBare = false;  ///< the rights of a user also apply to the tool bars
};

/// Values of Session::gModFactura.
inline constexpr int kFromNotes = 6;
inline constexpr int kFromOrders = 7;

struct Session : CompanyParameters {
  QString gCaleAplicatie;  ///< the program's folder, writable by the user
  QString gCaleBD;         ///< the databases folder
  QString gNumeBD;
  QString gDenSocietate;
  QString gConexiune;  ///< identifies the open database: the path of its file
  QString gUtilizator;
  int gTipUtilizator = 0;
  qint64 gMagazie = 0;
  QString gDenMagazie;
  QString gDenSocietateNoua = QStringLiteral("00");  ///< "00": no company is being created
  int gModFactura = 0;  ///< source of a customer invoice: kFromNotes, kFromOrders
  bool ModAudio = false;
  QString gSerieFC = QStringLiteral("00"), gFCStart = QStringLiteral("00"), gFCEnd = QStringLiteral("00");
  QString gSerieAE = QStringLiteral("00"), gAEStart = QStringLiteral("00"), gAEEnd = QStringLiteral("00");
  DataEnvironment gDataEnv;
  std::unique_ptr<RosterEntry> roster;
  std::unique_ptr<FileCheck> fileCheck;
};

Session& session();

/// Reads the parameters of the open company into the session; sets `ModAudio` to false first.
void InitParaSoc();

/// Reads the number ranges of invoices and delivery notes into the session; an empty value becomes "00".
void IncarcaSerii();

/// The value of a column of `kt_par`. A null or empty value shows the message of its group (accounts,
/// journals, anything else) and returns "".
QString ParametruSocietate(const QString& name);

/// The row of `kt_par`; all null when there is none.
Row companyParameters();

/// The value of a column of that row. An empty value throws RuleError with the message of its group.
QString requiredParameter(const Row& parameters, const QString& name);

}  // namespace velmar
