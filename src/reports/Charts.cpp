#include "reports/Charts.h"

#include <algorithm>
#include <cmath>

#include "config/Session.h"
#include "store/Database.h"
#include "store/ListRows.h"
#include "util/Errors.h"
#include "util/NumberText.h"

namespace velmar {

namespace {

const QString kLabel = QStringLiteral("Eticheta");

QString sum(const QString& of) { return QStringLiteral("ROUND_EVEN(COALESCE(SUM(%1), 0), 6)").arg(of); }

// The month of a date, on both engines.
const QString kMonth = QStringLiteral("CAST(SUBSTR(CAST(DATAINR AS TEXT), 6, 2) AS INTEGER)");

bool beginsWithDigit(int digit, const QString& account) {
  return !account.isEmpty() && QString::number(digit).startsWith(account.front());
}

// The account of partners that a parameter names begins with the two characters of this one.
bool isPartnerAccount(const QString& parameter, const QString& account) {
  return !account.isEmpty() && ParametruSocietate(parameter).startsWith(account.left(2));
}

Condition inPeriod(const ChartChoice& choice) {
  return {QStringLiteral("DATAINR BETWEEN ? AND ?"), {choice.from, endOf(choice.to)}};
}

Recordset readMonths(const QString& figures, const Condition& condition) {
  return OpenRs(QStringLiteral("SELECT %1, %2 AS LUNA FROM kt_linii WHERE %3 GROUP BY %2 ORDER BY LUNA")
                    .arg(figures, kMonth, condition.sql),
                condition.values);
}

Recordset readAccount(const ChartChoice& choice) {
  const QString figures = isPartnerAccount("CONTFURNIZORI", choice.account)
                              ? QStringLiteral("ABS(%1) AS RULAJCREDITOR").arg(sum("CREDIT"))
                          : isPartnerAccount("CONTCLIENTI", choice.account)
                              ? QStringLiteral("ABS(%1) AS RULAJDEBITOR").arg(sum("DEBIT"))
                              : sum("DEBIT - CREDIT") + QStringLiteral(" AS SOLD");
  return readMonths(figures, inPeriod(choice) && beginsWith("CONT", choice.account));
}

Recordset readShares(const ChartChoice& choice) {
  const QString figures = beginsWithDigit(session().VENIT, choice.account)
                              ? QStringLiteral("ABS(%1) AS CREDITUL").arg(sum("CREDIT"))
                          : beginsWithDigit(session().Chelt, choice.account)
                              ? sum("DEBIT") + QStringLiteral(" AS DEBITUL")
                              : sum("DEBIT - CREDIT") + QStringLiteral(" AS SOLD");
  const Condition condition = inPeriod(choice) && beginsWith("CONT", choice.account);
  return OpenRs(QStringLiteral("SELECT CONT, %1 FROM kt_linii WHERE %2 GROUP BY CONT ORDER BY CONT")
                    .arg(figures, condition.sql),
                condition.values);
}

Recordset readExpenses(const ChartChoice& choice) {
  const QString digit = QString::number(session().Chelt).left(1);
  return readMonths(
      QStringLiteral("ABS(%1) AS RULAJCREDITOR, ABS(%2) AS RULAJDEBITOR").arg(sum("CREDIT"), sum("DEBIT")),
      inPeriod(choice) && Condition{QStringLiteral("CONT > ?"), {digit}});
}

// One row for each partner, whatever its accounts.
Recordset readPartners(const ChartChoice& choice, const QString& side, const QString& parameter) {
  const Condition condition = inPeriod(choice) &&
                              Condition{QStringLiteral("L.%1 > ?").arg(side), {choice.minimum}} &&
                              beginsWith("L.CONT", ParametruSocietate(parameter).left(2));
  return OpenRs(QStringLiteral(
                    "SELECT T.NUME AS NUME, %1 AS %2UL FROM kt_ter AS T INNER JOIN kt_linii AS L ON L.TERT = "
                    "T.COD WHERE %3 GROUP BY T.COD, T.NUME ORDER BY NUME NULLS FIRST, T.COD")
                    .arg(sum("L." + side), side, condition.sql),
                condition.values);
}

Recordset read(const ChartChoice& choice) {
  switch (choice.kind) {
    case ChartKind::Account:
      return readAccount(choice);
    case ChartKind::ClassShares:
      return readShares(choice);
    case ChartKind::ExpensesAndRevenue:
      return readExpenses(choice);
    case ChartKind::Customers:
      return readPartners(choice, "DEBIT", "CONTCLIENTI");
    case ChartKind::Suppliers:
      return readPartners(choice, "CREDIT", "CONTFURNIZORI");
  }
  return {};
}

// The field as the series is called.
QString captionOf(const QString& field) {
  for (const char* name : {"RulajCreditor", "RulajDebitor", "Sold"})
    if (field.compare(QLatin1String(name), Qt::CaseInsensitive) == 0) return QString::fromLatin1(name);
  return field.toUpper();
}

// The rows with their labels in front: months with the year of the last day, else the first field.
Recordset labelled(const Recordset& rows, bool isShares, int year) {
  QStringList columns{kLabel};
  for (const QString& column : rows.columns()) columns.append(column.toUpper());
  Recordset all(std::make_shared<Columns>(columns));
  for (const Row& row : rows) {
    std::vector<QVariant> cells{
        isShares
            ? row.at(0)
            : QVariant(
                  QStringLiteral("%1 / %2").arg(row.integer("LUNA"), 2, 10, QLatin1Char('0')).arg(year))};
    for (int i = 0; i < row.columns().size(); ++i) cells.push_back(row.at(i));
    all.append(std::move(cells));
  }
  return all;
}

}  // namespace

const QStringList& chartKinds() {
  static const QStringList kinds{"Evolutie cont", "Repartitie clasa", "Evolutie Cheltuieli / Venituri",
                                 "Repartitie Clienti", "Repartitie Furnizori"};
  return kinds;
}

ChartData chartData(const ChartChoice& choice, const QString& accountText) {
  if (choice.account.isEmpty()) throw RuleError(QStringLiteral("Va rog selectati un cont !"), "CONT");
  const Recordset rows = read(choice);
  if (rows.isEmpty()) throw RuleError(QStringLiteral("Nu exista date pentru trasare grafic! "));
  ChartData data;
  const QString kind = chartKinds()[static_cast<int>(choice.kind)];
  data.title = choice.kind == ChartKind::Account       ? accountText + u' ' + kind
               : choice.kind == ChartKind::ClassShares ? choice.account + u' ' + kind
                                                       : kind;
  data.isShares = choice.kind != ChartKind::Account && choice.kind != ChartKind::ExpensesAndRevenue;
  if (choice.kind == ChartKind::ExpensesAndRevenue) {
    data.series = {"Cheltuieli", "Venituri"};
    data.fields = {"RULAJDEBITOR", "RULAJCREDITOR"};
  } else {
    data.fields = {rows.columns()[data.isShares ? 1 : 0].toUpper()};
    data.series = {captionOf(data.fields.first())};
  }
  data.rows = labelled(rows, data.isShares, choice.to.year());
  if (!data.isShares && choice.from.year() != choice.to.year())
    data.note =
        QStringLiteral("Lunile anilor %1 - %2 sunt adunate").arg(choice.from.year()).arg(choice.to.year());
  return data;
}

std::vector<ChartSlice> chartSlices(const ChartData& data) {
  std::vector<ChartSlice> slices;
  if (data.series.size() > 1) {
    for (const QString& series : data.series) slices.push_back({series});
    for (const Row& row : data.rows)
      for (int i = 0; i < data.fields.size(); ++i) slices[i].figure += row.decimal(data.fields[i]);
  } else {
    for (const Row& row : data.rows) slices.push_back({row.text(kLabel), row.decimal(data.fields.first())});
  }
  double whole = 0;
  for (const ChartSlice& slice : slices) whole += std::abs(slice.figure.toDouble());
  if (whole > 0)
    for (ChartSlice& slice : slices)
      slice.percent = static_cast<int>(std::lround(std::abs(slice.figure.toDouble()) / whole * 100));
  return slices;
}

int chartDecimals(const ChartData& data) {
  const bool isWhole = std::all_of(data.rows.begin(), data.rows.end(), [&data](const Row& row) {
    return std::all_of(data.fields.begin(), data.fields.end(), [&row](const QString& field) {
      return Round(row.decimal(field), 0) == row.decimal(field);
    });
  });
  return isWhole ? 0 : 2;
}

QString ChartScale::text(int mark) const { return formatNumber(step * Decimal(mark), step < 1 ? 2 : 0); }

ChartScale chartScale(double least, double most) {
  constexpr double kMarks = 5;
  constexpr double kTenth = 0.1;
  constexpr double kSlack = 1e-9;  // of a step: the error of a division
  least = std::min(least, 0.0);
  most = std::max(most, 0.0);
  const double wanted = std::max((most - least) / kMarks, kTenth * kTenth);
  const int power = static_cast<int>(std::floor(std::log10(wanted) + kSlack));
  Decimal ten = 1;
  for (int i = 0; i < std::abs(power); ++i) ten = ten * Decimal(10);
  if (power < 0) ten = Decimal(1) / ten;
  ChartScale scale;
  for (const int times : {1, 2, 5, 10}) {
    scale.step = ten * Decimal(times);
    if (scale.step.toDouble() >= wanted * (1 - kSlack)) break;
  }
  const double step = scale.step.toDouble();
  scale.first = static_cast<int>(std::floor(least / step + kSlack));
  scale.last = std::max(static_cast<int>(std::ceil(most / step - kSlack)), scale.first + 1);
  return scale;
}

}  // namespace velmar
