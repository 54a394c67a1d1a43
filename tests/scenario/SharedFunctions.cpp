#include "SharedFunctions.h"

#include <QDate>

#include "catalogue/Discounts.h"
#include "config/Checks.h"
#include "config/Lookups.h"
#include "config/Numbers.h"
#include "config/Session.h"
#include "documents/Invariants.h"
#include "documents/Numbering.h"
#include "reports/windows/frmProiectare.h"
#include "shell/SampleCompany.h"
#include "stock/Availability.h"
#include "store/DatabaseFiles.h"
#include "util/AmountText.h"
#include "util/Messages.h"

namespace velmar::scenario {

namespace {

Decimal decimal(const QVariant& value) {
  if (value.typeId() == QMetaType::QString) {
    const auto parsed = Decimal::parse(value.toString());
    if (!parsed) throw Failure(QStringLiteral("\"%1\" is no number").arg(value.toString()));
    return *parsed;
  }
  return Decimal::fromDouble(value.toDouble());
}

QDate date(const QVariant& value) { return QDate::fromString(value.toString(), Qt::ISODate); }

// A bound of ValidareValoare: a date if dates are compared.
QVariant bound(const QVariant& value, int kind) {
  const QVariant plain = databaseValue(value);
  return kind == kDateValue && !plain.isNull() ? QVariant(date(plain)) : plain;
}

Values valuesFrom(const Arguments& a, int first) {
  Values values;
  for (const QVariant& value : a.mid(first)) values.push_back(Value::raw(databaseValue(value)));
  return values;
}

Functions valueFunctions() {
  Functions f;
  f["Round"] = [](const Arguments& a) { return Round(decimal(a.value(0)), a.value(1).toInt()).toDouble(); };
  f["SumaText"] = [](const Arguments& a) {
    QString currency = a.value(1).toString();
    return SumaText(decimal(a.value(0)), currency);
  };
  f["Nz"] = [](const Arguments& a) {
    return Nz(databaseValue(a.value(0)), a.size() > 1 ? databaseValue(a[1]) : QVariant(0));
  };
  f["NzGol"] = [](const Arguments& a) {
    return NzGol(databaseValue(a.value(0)), a.size() > 1 ? databaseValue(a[1]) : QVariant(0));
  };
  f["ValidareValoare"] = [](const Arguments& a) {
    const int kind = a.value(1).toInt();
    return ValidareValoare(a.value(0).toString(), kind, bound(a.value(2), kind), bound(a.value(3), kind));
  };
  f["Mesaj"] = [](const Arguments& a) {
    return Mesaj(a.value(0).toString(), a.value(1).toInt(), a.value(2).toString());
  };
  f["InitParaSoc"] = [](const Arguments&) {
    InitParaSoc();
    return QVariant();
  };
  f["ParametruSocietate"] = [](const Arguments& a) { return ParametruSocietate(a.value(0).toString()); };
  f["InPerioadaCulegere"] = [](const Arguments& a) { return InPerioadaCulegere(date(a.value(0))); };
  return f;
}

Functions lookups() {
  Functions f;
  f["Exista"] = [](const Arguments& a) { return Exista(a.value(0).toString(), a.value(1).toString()); };
  f["Exista2"] = [](const Arguments& a) {
    return Exista2(a.value(0).toString(), a.value(1).toString(), a.value(2).toString());
  };
  f["NumarUrmator"] = [](const Arguments& a) { return NumarUrmator(a.value(0).toString()); };
  f["LinieUrmatoare"] = [](const Arguments& a) {
    return LinieUrmatoare(a.value(0).toString(), a.value(1).toString());
  };
  f["FacturaUrmatoare"] = [](const Arguments&) { return FacturaUrmatoare(); };
  f["BonUrmator"] = [](const Arguments&) { return BonUrmator(); };
  f["gStocValid"] = [](const Arguments& a) { return gStocValid(a.value(0).toString()).toDouble(); };
  f["disagreementText"] = [](const Arguments&) { return disagreementText(); };
  f["NumarDocument"] = [](const Arguments& a) { return NumarDocument(a.value(0).toString()); };
  f["ValoareSql"] = [](const Arguments& a) { return ValoareSql(a.value(0).toString(), valuesFrom(a, 1)); };
  f["ProcentTVA"] = [](const Arguments& a) { return ProcentTVA(a.value(0).toLongLong()).toDouble(); };
  f["ContTVA"] = [](const Arguments& a) { return ContTVA(a.value(0).toLongLong()); };
  f["Curs"] = [](const Arguments& a) { return Curs(a.value(0).toString(), date(a.value(1))).toDouble(); };
  f["UMArticol"] = [](const Arguments& a) { return UMArticol(a.value(0).toString()); };
  f["DenumireArticol"] = [](const Arguments& a) {
    return DenumireArticol(a.value(0).toString(), a.value(1).toBool());
  };
  f["CodArticolFurnizor"] = [](const Arguments& a) {
    return CodArticolFurnizor(a.value(0).toString(), a.value(1, true).toBool());
  };
  f["CostArticol"] = [](const Arguments& a) { return CostArticol(a.value(0).toString()).toDouble(); };
  f["DiscountArticol"] = [](const Arguments& a) {
    return DiscountArticol(a.value(0).toString(), decimal(a.value(1)));
  };
  f["DiscountTert"] = [](const Arguments& a) { return DiscountTert(a.value(0).toLongLong()); };
  f["ArticolExista"] = [](const Arguments& a) { return ArticolExista(a.value(0).toString()); };
  f["ProdusFurnizorExista"] = [](const Arguments& a) { return ProdusFurnizorExista(a.value(0).toString()); };
  return f;
}

// Opens a layout in the designer, with an invoice of one line as data.
void design(const QString& file) {
  ReportData data;
  data.variables = Recordset(std::make_shared<Columns>(QStringList{"CLIENT", "NRFAC"}));
  data.variables.append({QStringLiteral("ALFA SRL"), 17});
  data.hasVariables = true;
  Recordset lines(std::make_shared<Columns>(QStringList{"DENUMIRE", "CANT"}));
  lines.append({QStringLiteral("Suruburi"), 12.5});
  data.fields = std::make_shared<RecordsetRows>(lines);
  data.fieldNames = lines.columns();
  designLayout(nullptr, file, data);
}

// Further functions: reading the parameters again, creating the sample company.
Functions services() {
  Functions f;
  f["databaseExists"] = [](const Arguments& a) {
    return databaseExists(a.value(0).toString(), a.value(1).toString());
  };
  f["makeHearingSampleCompany"] = [](const Arguments& a) {
    return makeHearingSampleCompany(a.value(0).toString());
  };
  f["makeSampleCompany"] = [](const Arguments& a) { return makeSampleCompany(a.value(0).toString()); };
  f["designLayout"] = [](const Arguments& a) {
    design(a.value(0).toString());
    return QVariant();
  };
  return f;
}

}  // namespace

QVariant databaseValue(const QVariant& value) {
  if (value.typeId() == QMetaType::Nullptr) return {};
  if (value.typeId() == QMetaType::Bool) return qlonglong(value.toBool() ? -1 : 0);
  if (value.typeId() == QMetaType::Int) return qlonglong(value.toInt());
  if (value.typeId() == QMetaType::Double && value.toDouble() == std::floor(value.toDouble()) &&
      std::abs(value.toDouble()) < 9e15)
    return static_cast<qlonglong>(value.toDouble());
  return value;
}

void addSharedFunctions(Functions& functions) {
  Functions table = valueFunctions();
  table.insert(lookups());
  table.insert(services());
  functions["shared"] = [table](const Arguments& a) {
    const auto function = table.constFind(a[0].toString());
    if (function == table.constEnd())
      throw Failure(QStringLiteral("there is no shared function %1").arg(a[0].toString()));
    return (*function)(a[1].toList());
  };
}

}  // namespace velmar::scenario
