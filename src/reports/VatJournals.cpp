#include "reports/VatJournals.h"

#include <numeric>

#include "config/Session.h"
#include "store/Database.h"
#include "store/NamedCommands.h"
#include "util/Errors.h"

namespace velmar {

namespace {

constexpr int kDocumentsAtOnce = 1000;

// %1: the query of the documents; %2: the order in which they are numbered; %3: the sign of a document. The
// first value is the starting number.
const QString kNumbered = QStringLiteral(
    "SELECT ROW_NUMBER() OVER (ORDER BY %2) - 1 + ? AS NRC, D.*, "
    "%3 * COALESCE(D.TOTALFT, 0) AS BAZA, %3 * COALESCE(D.TOTALTVA, 0) AS TVA, "
    "%3 * ROUND_EVEN(COALESCE(D.TOTALFT, 0) + COALESCE(D.TOTALTVA, 0), 6) AS TOTAL FROM (%1) AS D");

const QString kInsertPurchases = QStringLiteral(
    "INSERT INTO kt_jct (NRC, DATA, NDP, NUME, CODF, TOTAL, NEIMP, BAZA1, TVA1, IMP, TVAIMP) "
    "SELECT N.NRC, N.DataFactura, N.NumarFactura, N.NumeTert, N.CodFiscal, N.TOTAL, "
    "CASE WHEN N.TVA <> 0 THEN 0 ELSE N.TOTAL END, N.BAZA, N.TVA, 0, 0 FROM (%1) AS N");

const QString kInsertSales = QStringLiteral(
    "INSERT INTO kt_jvt (UTILIZATOR, NRC, DATA, NDP, NUME, CODF, TOTAL, BAZA1, TVA1, SCUTIT, SCUTIT_CD, "
    "SCUTIT_FD, EXPORT) "
    "SELECT ?, N.NRC, N.DataFactura, N.NumarFactura, N.NumeTert, N.CodFiscal, N.TOTAL, N.BAZA, N.TVA, "
    "0, 0, 0, 0 FROM (%1) AS N");

const QString kStorno = QStringLiteral("FS");

// Controls of the window.
const QString kFirstNumber = QStringLiteral("txtNRC");
const QString kFrom = QStringLiteral("DTPickerdela");
const QString kTo = QStringLiteral("DTPickerla");
const QString kSubtracts = QStringLiteral("chkStorno");

QString signOf(const VatPeriod& period) {
  return period.subtractsStornos ? QStringLiteral("(CASE WHEN D.TIP = '%1' THEN -1 ELSE 1 END)").arg(kStorno)
                                 : QStringLiteral("1");
}

void requireNumbers(int firstNumber, int rows) {
  const int most = kLargestRowNumber - rows + 1;
  if (firstNumber <= most) return;
  const QString advice = most > 0 ? QStringLiteral("Numarul de inceput poate fi cel mult %1 !").arg(most)
                                  : QStringLiteral("Alegeti o perioada mai scurta !");
  throw RuleError(QStringLiteral("Perioada are %1 documente, iar numerele curente nu pot depasi %2. %3")
                      .arg(rows)
                      .arg(kLargestRowNumber)
                      .arg(advice),
                  kFirstNumber);
}

Values boundsOf(const VatPeriod& period) {
  return {period.from.addDays(period.takesFirstDay ? 0 : 1), endOf(period.to)};
}

// Whole days of the period whose documents are read or written by one statement.
struct Part {
  Values bounds;
  int documents = 0;
};

std::vector<Part> partsOf(const VatJournal& journal, const VatPeriod& period) {
  const QString sql = QStringLiteral(
      "SELECT D.DataFactura, COUNT(*) AS N FROM (%1) AS D GROUP BY D.DataFactura ORDER BY D.DataFactura");
  std::vector<Part> parts;
  for (const Row& day : OpenRs(sql.arg(session().gDataEnv.statement(journal.command)), boundsOf(period))) {
    const Value date = Value::raw(day.value("DataFactura"));
    if (parts.empty() || parts.back().documents >= kDocumentsAtOnce) parts.push_back({{date, date}, 0});
    parts.back().bounds[1] = date;
    parts.back().documents += static_cast<int>(day.integer("N"));
  }
  return parts;
}

int documentsIn(const std::vector<Part>& parts) {
  return std::accumulate(parts.begin(), parts.end(), 0,
                         [](int sum, const Part& part) { return sum + part.documents; });
}

// Appends the rows as they are printed. The ledger has documents in a currency unrounded in lei: amounts are
// rounded as they are shown, so that the totals are the sums of the shown amounts.
void appendRows(Recordset& all, const Recordset& rows, bool subtractsStornos, int firstNumber) {
  const Columns columns(rows.columns());
  const int kind = columns.indexOf("TIP"), base = columns.indexOf("TOTALFT"),
            tax = columns.indexOf("TOTALTVA");
  for (const Row& row : rows) {
    const bool isSubtracted = subtractsStornos && row.at(kind).toString() == kStorno;
    const auto amount = [&row, isSubtracted](int column) {
      const Decimal rounded = Round(Decimal::fromDouble(row.at(column).toDouble()), 2);
      return isSubtracted ? -rounded : rounded;
    };
    const Decimal value = amount(base), vat = amount(tax);
    const double total = (value + vat).toDouble();
    const bool isTaxed = row.at(tax).toDouble() != 0;  // as in the work table
    std::vector<QVariant> cells;
    cells.reserve(static_cast<size_t>(all.columns().size()));
    for (int i = 0; i < row.columns().size(); ++i)
      cells.push_back(i == base  ? QVariant(value.toDouble())
                      : i == tax ? QVariant(vat.toDouble())
                                 : row.at(i));
    cells.emplace_back(total);
    cells.emplace_back(isTaxed ? value.toDouble() : 0.0);
    cells.emplace_back(isTaxed ? 0.0 : total);
    cells.emplace_back(firstNumber + all.size());
    all.append(std::move(cells));
  }
}

Recordset documentsIn(const VatJournal& journal, const VatPeriod& period, const std::vector<Part>& parts,
                      int firstNumber, const Progress& progress) {
  const int of = documentsIn(parts);
  Recordset all;
  for (const Part& part : parts) {
    report(progress, all.size(), of);
    const Recordset rows = session().gDataEnv.open(journal.command, part.bounds);
    if (all.isEmpty())
      all = Recordset(
          std::make_shared<Columns>(rows.columns() + QStringList{"TOTALDOC", "BAZATVA", "NEIMPDOC", "NRC"}));
    appendRows(all, rows, period.subtractsStornos, firstNumber);
  }
  if (!all.isEmpty()) all.transform("DataFactura", asDate);
  return all;
}

}  // namespace

const VatJournal& purchaseJournal() {
  static const VatJournal journal{"frmRapJCTVA",
                                  "Jurnal de cumparare cu TVA",
                                  "Furnizor",
                                  "Get_Doc_CTVA",
                                  "kt_jct",
                                  "Jctva",
                                  kInsertPurchases,
                                  false,
                                  true,
                                  false,
                                  true};
  return journal;
}

const VatJournal& salesJournal() {
  static const VatJournal journal{"frmRapJVTVA", "Jurnal de vanzare cu TVA",
                                  "Client",      "Get_Doc_VTVA",
                                  "kt_jvt",      "Jvtva",
                                  kInsertSales,  true,
                                  false,         true,
                                  false};
  return journal;
}

Recordset journalRows(const VatJournal& journal, const VatPeriod& period, int firstNumber,
                      const Progress& progress) {
  const std::vector<Part> parts = partsOf(journal, period);
  requireNumbers(firstNumber, documentsIn(parts));
  return documentsIn(journal, period, parts, firstNumber, progress);
}

int stornosOf(const VatJournal& journal, const VatPeriod& period) {
  Values values = boundsOf(period);
  values.emplace_back(kStorno);
  const QString sql = QStringLiteral("SELECT COUNT(*) AS N FROM (%1) AS D WHERE D.TIP = ?");
  return static_cast<int>(
      OpenRs(sql.arg(session().gDataEnv.statement(journal.command)), values).first().integer("N"));
}

int computeJournal(const VatJournal& journal, const VatPeriod& period, int firstNumber, const QString& user,
                   const Progress& progress) {
  Transaction transaction(database());
  const std::vector<Part> parts = partsOf(journal, period);
  if (parts.empty()) {
    const QString format = QStringLiteral("dd/MM/yyyy");  // as in the boxes of the period
    throw RuleError(QStringLiteral("Nu exista inregistrari in perioada %1 - %2")
                        .arg(period.from.toString(format), period.to.toString(format)));
  }
  const int of = documentsIn(parts);
  requireNumbers(firstNumber, of);
  ExecutaSql(QStringLiteral("DELETE FROM %1 WHERE UTILIZATOR = ? OR UTILIZATOR IS NULL").arg(journal.table),
             {user});
  const QString sql =
      journal.insert.arg(kNumbered.arg(session().gDataEnv.statement(journal.command),
                                       documentOrder("D.DataFactura", "D.NumarFactura"), signOf(period)));
  int rows = 0;
  for (const Part& part : parts) {
    report(progress, rows, of);
    Values values;
    if (journal.keepsUser) values.emplace_back(user);
    values.emplace_back(firstNumber + rows);
    values.insert(values.end(), part.bounds.begin(), part.bounds.end());
    rows += ExecutaSql(sql, values);
  }
  transaction.commit();
  return rows;
}

StockReport reportOf(const VatJournal& journal) {
  using Kind = ReportControl::Kind;
  using Shown = ReportColumn::Kind;
  ReportControl number{Kind::Number, kFirstNumber, "&Numar curent inceput:"};
  number.tip = "Numarul primului rand din jurnal";
  number.most = kLargestRowNumber;
  number.wrong = "Numarul curent de inceput trebuie sa fie un numar intreg intre 1 si %1";
  number.mayBeEmpty = true;
  const auto withTip = [](ReportControl control, const QString& tip) {
    control.tip = tip;
    return control;
  };
  ReportFrame options{"&Optiuni", {number}, {}, "frmOptiuni"};
  if (journal.hasStornos) {
    options.controls.push_back(withTip({Kind::Check, kSubtracts, "Stornari cu minus"},
                                       "Facturile de stornare se scad din jurnal in loc sa se adune"));
    options.controls.push_back({Kind::Note, "lblStorno", {}});
  }
  const ReportFrame days{
      "&Perioada",
      {withTip({Kind::Date, kFrom, "De la "},
               "Perioada incepe dupa aceasta zi: documentele din ea nu intra in jurnal"),
       {Kind::Date, kTo, "Pana la"},
       withTip({Kind::Check, kTakesFirstDay, "Si prima zi"}, "Documentele din prima zi intra in jurnal")},
      {},
      "frmData"};
  StockReport report{journal.window, journal.caption, journal.project, {options, days}, kFrom, kTo};
  report.start = StockReport::Start::CalendarYear;
  report.losesFirstDay = true;
  report.canPrint = journal.canPrint;
  report.columns = {
      {"NRC", "Nr. crt.", Shown::Whole, 8},          {"DataFactura", "Data", Shown::Date},
      {"NumarFactura", "Document", Shown::Text, 14}, {"NumeTert", journal.partner, Shown::Text, 30},
      {"CodFiscal", "Cod fiscal", Shown::Text, 14},  {"TOTALDOC", "Total", Shown::Amount, 14, true}};
  if (journal.splitsUntaxed) report.columns.push_back({"NEIMPDOC", "Neimpozabile", Shown::Amount, 14, true});
  report.columns.push_back({journal.splitsUntaxed ? "BAZATVA" : "TOTALFT", "Baza", Shown::Amount, 14, true});
  report.columns.push_back({"TOTALTVA", "TVA", Shown::Amount, 12, true});
  report.links = {"NumarFactura", {}, {}, "NumeTert"};
  const auto period = [](const ReportChoice& choice) {
    return VatPeriod{choice.dates[kFrom], choice.dates[kTo], choice.has(kSubtracts),
                     choice.has(kTakesFirstDay)};
  };
  report.rowsInParts = [&journal, period](const ReportChoice& choice, const Progress& progress) {
    return journalRows(journal, period(choice), choice.numbers[kFirstNumber], progress);
  };
  report.variables = [](const ReportChoice& choice, Variables& variables) {
    variables.add("ParamDataDela", choice.dates[kFrom]);
    variables.add("ParamDataPanala", choice.dates[kTo]);
    variables.add("NrCrt", choice.numbers[kFirstNumber]);
  };
  if (journal.hasStornos)
    report.note = [&journal, period](const ReportChoice& choice) {
      return QStringLiteral("Stornari in perioada: %1").arg(stornosOf(journal, period(choice)));
    };
  report.compute = [&journal, period](const ReportChoice& choice, const Progress& progress) {
    const int rows = computeJournal(journal, period(choice), choice.numbers[kFirstNumber],
                                    session().gUtilizator, progress);
    return QStringLiteral("Jurnalul a fost calculat: %1 documente").arg(rows);
  };
  return report;
}

}  // namespace velmar
