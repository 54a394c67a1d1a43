// Charts, the export of a list, the first page and the denomination over a ledger of a million lines,
// compared with bare statements, and the export with the library that writes the file.
#include <xlsxwriter.h>
#include <functional>
#include <QApplication>
#include <QRegularExpression>
#include <QTemporaryDir>

#include "Bare.h"
#include "Benches.h"
#include "Fixture.h"
#include "reports/Charts.h"
#include "shell/Denomination.h"
#include "shell/windows/frmPanou.h"
#include "store/Database.h"
#include "util/Clock.h"
#include "util/SheetFile.h"

namespace velmar::bench {

namespace {

constexpr double kAim = 2;
constexpr double kPanelAim = 1.5;
constexpr double kConversionAim = 1.5;
constexpr int kFigureRounds = 5;
constexpr int kExported = 100'000;
constexpr int kTextColumns = 3;
constexpr int kColumns = 8;

void measureCharts(Store store, BareConnection& bare) {
  const std::string period = " FROM kt_linii WHERE DATAINR BETWEEN '2000-01-01' AND '2099-12-31' AND ";
  const std::string month = "SUBSTR(CAST(DATAINR AS TEXT), 6, 2)";
  struct Chart {
    ChartKind kind;
    const char* account;
    std::string sql;
  };
  const Chart charts[] = {
      {ChartKind::Account, "371",
       "SELECT " + month + ", SUM(DEBIT - CREDIT)" + period + "CONT >= '371' AND CONT < '372' GROUP BY " +
           month},
      {ChartKind::ClassShares, "6",
       "SELECT CONT, SUM(DEBIT)" + period + "CONT >= '6' AND CONT < '7' GROUP BY CONT"},
      {ChartKind::ExpensesAndRevenue, "6",
       "SELECT " + month + ", SUM(CREDIT), SUM(DEBIT)" + period + "CONT > '6' GROUP BY " + month},
      {ChartKind::Suppliers, "401",
       "SELECT TERT, SUM(CREDIT)" + period + "CREDIT > 0 AND CONT >= '40' AND CONT < '41' GROUP BY TERT"}};
  for (const Chart& chart : charts) {
    const ChartChoice choice{chart.kind, chart.account, QDate(2000, 1, 1), QDate(2099, 12, 31), 0};
    BareStatement statement = bare.prepare(chart.sql.c_str());
    compare(
        store, QStringLiteral("figures"), chartKinds()[static_cast<int>(chart.kind)], kAim, kFigureRounds,
        [&choice] { chartData(choice, choice.account); }, [&statement] { statement.readAll(); });
  }
}

void measurePanel(Store store, BareConnection& bare) {
  const std::string today = clock::today().toString(Qt::ISODate).toStdString();
  const std::string start = clock::today().addDays(-31).toString(Qt::ISODate).toStdString();
  std::vector<BareStatement> statements;
  for (const std::string& sql :
       {"SELECT SUM(TOTALFT + TOTALTVA) FROM G_DOCUME WHERE TIP IN ('FC', 'BS', 'FS') AND DATADOC BETWEEN '" +
            start + "' AND '" + today + "'",
        std::string("SELECT CODART, DENART, STOC, STOCMINIM FROM G_ARTMAG WHERE STOCMINIM > 0 AND STOC <= "
                    "STOCMINIM"),
        "SELECT C.NUMCOM, SUM(L.CANT * L.PRETFT) FROM G_COMCLI C INNER JOIN G_LCOMCL L ON L.NUMCOM = "
        "C.NUMCOM "
        "WHERE C.VALIDAT <> 0 AND C.DATALIV < '" +
            today + "' AND L.CANT > COALESCE(L.CANTLIV, 0) GROUP BY C.NUMCOM",
        "SELECT COUNT(*) FROM G_DOCUME D LEFT JOIN kt_ter T ON T.COD = D.CODTERT LEFT JOIN G_EFACTURA E ON "
        "E.DOCID = D.ID AND E.ACTUAL <> 0 WHERE D.TIP IN ('FC', 'FS') AND COALESCE(E.STARE, '') NOT IN "
        "('trimisa', 'acceptata') AND COALESCE(T.CT, '') IN ('', 'RO') AND D.DATADOC BETWEEN '2024-01-01' "
        "AND '" +
            today + "' AND (D.DATADOC >= '2025-01-01' OR T.TIP <> 'P')"})
    statements.push_back(bare.prepare(sql.c_str()));
  compare(
      store, QStringLiteral("figures"), QStringLiteral("prima pagina"), kPanelAim, kRounds,
      [] {
        frmPanou window;
        window.show();
        QApplication::processEvents();
      },
      [&statements] {
        for (BareStatement& each : statements) each.readAll();
      });
}

// Texts, then amounts.
QVariant exportedCell(int row, int column) {
  return column < kTextColumns ? QVariant(QStringLiteral("Articolul %1-%2").arg(row).arg(column))
                               : QVariant(row * 1.25 + column);
}

void measureExport(Store store) {
  const QTemporaryDir folder;
  QList<SheetColumn> columns;
  for (int i = 0; i < kColumns; ++i)
    columns.append(
        {QString::number(i), i < kTextColumns ? SheetColumn::Kind::Text : SheetColumn::Kind::Number, 2});
  compare(
      store, QStringLiteral("figures"), QStringLiteral("100.000 de randuri in .xlsx"), kAim, 3,
      [&] { writeSheet(folder.filePath("a.xlsx"), columns, kExported, exportedCell); },
      [&folder] {
        lxw_workbook_options options{};
        options.constant_memory = LXW_TRUE;
        lxw_workbook* book = workbook_new_opt(folder.filePath("b.xlsx").toUtf8().constData(), &options);
        lxw_worksheet* sheet = workbook_add_worksheet(book, nullptr);
        for (lxw_row_t row = 0; row < kExported; ++row)
          for (int column = 0; column < kColumns; ++column) {
            const auto at = static_cast<lxw_col_t>(column);
            const QVariant value = exportedCell(static_cast<int>(row), column);
            if (column < kTextColumns)
              worksheet_write_string(sheet, row, at, value.toString().toUtf8().constData(), nullptr);
            else
              worksheet_write_number(sheet, row, at, value.toDouble(), nullptr);
          }
        workbook_close(book);
      });
}

// All documents are in old lei; each conversion has its own copy of the company.
void measureConversion(Store store) {
  const QString path = copyOfCompany(store, CompanySize::GrownTrade, QStringLiteral("lei-noi.mdb"));
  const QString other = copyOfCompany(store, CompanySize::GrownTrade, QStringLiteral("lei-direct.mdb"));
  for (const QString& each : {path, other}) {
    const OpenCompany company(each);
    ExecutaSql("UPDATE G_DOCUME SET DATADOC = '2004-03-15'");
    ExecutaSql("UPDATE kt_linii SET DATAINR = '2004-03-15'");
    ExecutaSql("DELETE FROM kt_val WHERE COD = 'ROL'");
  }
  const OpenCompany company(path);
  database().takeRecordedStatements();
  const double own = timed([] { convertToNewLei(); });
  // A bare connection to a file does not have the program's rounding.
  static const QRegularExpression kRounding(QStringLiteral("ROUND_EVEN\\((\\w+), 0\\)"));
  QList<QByteArray> updates;
  for (QString sql : database().takeRecordedStatements())
    if (sql.startsWith(QStringLiteral("UPDATE")))
      updates.append(sql.replace(kRounding, QStringLiteral("ROUND(\\1)")).toUtf8());
  BareConnection bare(other);
  const double direct = timed([&] {
    bare.beginWrite();
    for (const QByteArray& sql : updates) {
      BareStatement update = bare.prepare(sql.constData());
      if (sql.contains('?')) update.bind(1, std::string_view("2005-07-01"));
      update.run();
    }
    bare.run("COMMIT");
  });
  const QString name = QStringLiteral("denominare, %1 instructiuni").arg(updates.size());
  noteRatio(QStringLiteral("figures: ") + name, store, own / direct, kConversionAim);
  printRow(name, {milliseconds(own), milliseconds(direct), ratio(own / direct, kConversionAim),
                  QStringLiteral("<= %1").arg(kConversionAim)});
  removeCompany(path);
  removeCompany(other);
}

}  // namespace

bool measureFigures(Store store) {
  printHeading(store, QStringLiteral("figures: grafice, prima pagina, export, denominare"),
               {QStringLiteral("program"), QStringLiteral("direct"), QStringLiteral("raport"),
                QStringLiteral("tinta")});
  {
    const QString path = copyOfCompany(store, CompanySize::Grown, QStringLiteral("cifre.mdb"));
    const OpenCompany company(path);
    BareConnection bare(path);
    measureCharts(store, bare);
    measurePanel(store, bare);
    removeCompany(path);
  }
  measureExport(store);
  measureConversion(store);
  return true;
}

}  // namespace velmar::bench
