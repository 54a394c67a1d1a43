#include "reports/Evaluation.h"

#include <algorithm>

#include "reports/Shown.h"

namespace velmar::layout {

namespace {

constexpr const char* kUncounted = "...";

bool isSame(const QString& a, const char* b) { return a.compare(QLatin1String(b), Qt::CaseInsensitive) == 0; }

int placeIn(const QStringList& names, const QString& name) {
  const auto found = std::find_if(names.cbegin(), names.cend(), [&name](const QString& each) {
    return each.compare(name, Qt::CaseInsensitive) == 0;
  });
  return found == names.cend() ? -1 : static_cast<int>(found - names.cbegin());
}

const clsFieldVarDescription* extraNamed(const ReportValues& values, const QString& name) {
  // Of several values with the same name the last one is used.
  const auto found = std::find_if(values.crbegin(), values.crend(), [&name](const auto& each) {
    return each.name.compare(name, Qt::CaseInsensitive) == 0;
  });
  return found == values.crend() ? nullptr : &*found;
}

QStringList sumNamesOf(const Table* table) {
  QStringList names;
  if (table)
    for (const Sum& sum : table->sums) names.append(sum.name);
  return names;
}

}  // namespace

Evaluation::Evaluation(const ReportData& data, const Table* table)
    : data_(data), sumNames_(sumNamesOf(table)) {}

int Evaluation::add(const QString& formula, Scope scope) {
  const int number = formulas_.add(formula);
  std::vector<Source> sources;
  for (const QString& name : formulas_.names(number)) sources.push_back(find(name, scope));
  sources_.push_back(std::move(sources));
  return number;
}

Evaluation::Source Evaluation::find(const QString& name, Scope scope) const {
  if (scope == Scope::Line && data_.fields) {
    if (const auto* extra = extraNamed(data_.extraFields, name))
      return {Origin::Constant, 0, reportValue(*extra)};
    if (const int place = placeIn(data_.fieldNames, name); place >= 0) return {Origin::Field, place, {}};
  }
  if (const int place = placeIn(sumNames_, name); place >= 0) return {Origin::Sum, place, {}};
  if (const auto* extra = extraNamed(data_.extraVariables, name))
    return {Origin::Constant, 0, reportValue(*extra)};
  if (const int place = placeIn(data_.variables.columns(), name); data_.hasVariables && place >= 0)
    return {Origin::Variable, place, {}};
  if (isSame(name, kPageName)) return {Origin::Page, 0, {}};
  if (isSame(name, kPageCountName)) return {Origin::PageCount, 0, {}};
  if (isSame(name, kLineName)) return {Origin::Line, 0, {}};
  return {};
}

QVariant Evaluation::take(const Source& source, const Place& place) const {
  switch (source.origin) {
    case Origin::Field: {
      if (place.line < 0 || place.line >= lineCount()) return {};
      const Row& row = data_.fields->row(place.line);
      // The columns of the row source may be in another order than `fieldNames`.
      const QString& name = data_.fieldNames[source.place];
      return row.has(name) ? row.value(name) : QVariant();
    }
    case Origin::Variable:
      return place.set < data_.variables.size() ? data_.variables[place.set].at(source.place) : QVariant();
    case Origin::Constant:
      return source.constant;
    case Origin::Sum:
      return place.sums ? QVariant::fromValue((*place.sums)[static_cast<size_t>(source.place)]) : QVariant();
    case Origin::Page:
      return place.page + 1;
    case Origin::PageCount:
      return place.pages > 0 ? QVariant(place.pages) : QVariant(QString::fromLatin1(kUncounted));
    case Origin::Line:
      return place.line >= 0 ? QVariant(place.line + 1) : QVariant();
    case Origin::Nothing:
      break;
  }
  return {};
}

QVariant Evaluation::value(int formula, const Place& place) const {
  const std::vector<Source>& sources = sources_[static_cast<size_t>(formula)];
  if (formulas_.isName(formula)) return take(sources.front(), place);
  QVariantList values;
  values.reserve(static_cast<qsizetype>(sources.size()));
  for (const Source& source : sources) values.append(take(source, place));
  return formulas_.value(formula, values);
}

bool Evaluation::isTrue(int formula, const Place& place) const {
  return layout::isTrue(value(formula, place));
}

}  // namespace velmar::layout
