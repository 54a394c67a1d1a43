#include "store/Filter.h"

#include <algorithm>

#include "util/AlikeNames.h"
#include "util/Errors.h"
#include "util/NumberText.h"

namespace velmar {

namespace {

QString textOf(Comparison comparison) {
  for (const auto& [each, text] : comparisons())
    if (each == comparison) return text;
  return {};
}

bool isNumber(ColumnType type) {
  return type == ColumnType::Integer || type == ColumnType::AutoNumber || type == ColumnType::Real ||
         type == ColumnType::Boolean;
}

bool isDate(ColumnType type) { return type == ColumnType::Date || type == ColumnType::DateTime; }

bool comparesText(Comparison comparison) {
  return comparison == Comparison::BeginsWith || comparison == Comparison::Contains;
}

Value valueOf(const FilterTerm& term, const QString& typed, const QString& box) {
  if (!term.choice.isNull()) return Value::raw(term.choice);
  if (typed.isEmpty()) throw RuleError(QStringLiteral("Va rugam completati valoarea conditiei !"), box);
  if (isNumber(term.field.type)) {
    const auto number = parseNumber(typed);
    if (!number) throw RuleError(QStringLiteral("Va rugam introduceti o valoare numerica !"), box);
    return *number;
  }
  if (isDate(term.field.type)) {
    const QDate date = parseDate(typed);
    if (!date.isValid())
      throw RuleError(QStringLiteral("Va rugam introduceti o data in forma zz/ll/aaaa !"), box);
    return date;
  }
  return typed;
}

Condition conditionOf(const FilterTerm& term) {
  const QString& column = term.field.column;
  const bool isText = term.field.type == ColumnType::Text;
  if (comparesText(term.comparison) && !isText)
    throw RuleError(
        QStringLiteral("Comparatia \"%1\" se foloseste numai la texte !").arg(textOf(term.comparison)),
        QStringLiteral("comparison"));
  if (term.comparison == Comparison::Empty)
    return {isText ? QStringLiteral("%1 IS NULL OR %1 = ''").arg(column)
                   : QStringLiteral("%1 IS NULL").arg(column),
            {}};
  const Value value = valueOf(term, term.first, QStringLiteral("first"));
  // A day counts as a whole, whatever the times of its dates.
  const bool isDay = isDate(term.field.type) && term.choice.isNull();
  const auto last = [isDay](const Value& given) { return isDay ? endOf(given.data().toDate()) : given; };
  switch (term.comparison) {
    case Comparison::NotEqual:
      if (isDay)
        return {QStringLiteral("%1 NOT BETWEEN ? AND ? OR %1 IS NULL").arg(column), {value, last(value)}};
      return {QStringLiteral("%1 <> ? OR %1 IS NULL").arg(column), {value}};
    case Comparison::Less:
      return {column + QStringLiteral(" < ?"), {value}};
    case Comparison::More:
      return {column + QStringLiteral(" > ?"), {last(value)}};
    case Comparison::Between:
      return {column + QStringLiteral(" BETWEEN ? AND ?"),
              {value, last(valueOf(term, term.second, QStringLiteral("second")))}};
    case Comparison::BeginsWith:
      return beginsWith(column, term.first);
    case Comparison::Contains:
      return {column + QStringLiteral(" LIKE ? ESCAPE '!'"), {u'%' + escapedForLike(term.first) + u'%'}};
    case Comparison::Equal:
      if (isDay) return {column + QStringLiteral(" BETWEEN ? AND ?"), {value, last(value)}};
      break;
    case Comparison::Empty:
      break;
  }
  return {column + QStringLiteral(" = ?"), {value}};
}

QString textOf(const FilterTerm& term) {
  QString text = term.field.caption + u' ' + textOf(term.comparison);
  const auto quoted = [](const QString& value) { return QStringLiteral(" \"%1\"").arg(value); };
  if (term.comparison != Comparison::Empty) text += quoted(term.first);
  if (term.comparison == Comparison::Between) text += QStringLiteral(" si") + quoted(term.second);
  return text;
}

FilterField& fieldOf(QList<FilterField>& fields, const QString& column) {
  const auto found = std::find_if(fields.begin(), fields.end(), [&column](const FilterField& field) {
    return field.column.compare(column, Qt::CaseInsensitive) == 0;
  });
  if (found == fields.end()) throw StoreError(0, QStringLiteral("Lipseste coloana %1").arg(column));
  return *found;
}

}  // namespace

const QList<std::pair<Comparison, QString>>& comparisons() {
  static const QList<std::pair<Comparison, QString>> all = {
      {Comparison::Equal, QStringLiteral("egal cu")},
      {Comparison::NotEqual, QStringLiteral("diferit de")},
      {Comparison::Less, QStringLiteral("mai mic decat")},
      {Comparison::More, QStringLiteral("mai mare decat")},
      {Comparison::Between, QStringLiteral("intre")},
      {Comparison::BeginsWith, QStringLiteral("incepe cu")},
      {Comparison::Contains, QStringLiteral("contine")},
      {Comparison::Empty, QStringLiteral("este gol")}};
  return all;
}

QList<FilterField> filterFields(const Table& table, const QHash<QString, QString>& captions,
                                const QStringList& without) {
  QList<FilterField> fields;
  for (const Column& column : table.columns())
    if (!without.contains(column.name, Qt::CaseInsensitive))
      fields.append({column.name, captions.value(column.name, column.name.toUpper()), column.type});
  std::stable_sort(fields.begin(), fields.end(), [](const FilterField& a, const FilterField& b) {
    return a.caption.compare(b.caption, Qt::CaseInsensitive) < 0;
  });
  return fields;
}

void offerChoices(QList<FilterField>& fields, const QString& column, const QString& sql) {
  constexpr int kMany = 2000;
  FilterField& field = fieldOf(fields, column);
  field.hasManyChoices = [sql] {
    const QString unordered = sql.section(QStringLiteral(" ORDER BY "), 0, 0);
    return !OpenRs(QStringLiteral("%1 LIMIT 1 OFFSET %2").arg(unordered).arg(kMany)).isEmpty();
  };
  field.choices = [sql] {
    QStringList names, codes;
    const Recordset rows = OpenRs(sql);
    for (const Row& row : rows) {
      names.append(row.at(1).toString());
      codes.append(row.at(0).toString());
    }
    names = withCodesOfAlike(names, codes);
    QList<FilterChoice> choices;
    for (const Row& row : rows) choices.append({names[choices.size()], row.at(0)});
    return choices;
  };
}

void offerFlag(QList<FilterField>& fields, const QString& column, const QString& yes, const QString& no) {
  fieldOf(fields, column).choices = [yes, no] { return QList<FilterChoice>{{yes, -1LL}, {no, 0LL}}; };
}

void offerYesNo(QList<FilterField>& fields, const QString& column) {
  offerFlag(fields, column, QStringLiteral("DA"), QStringLiteral("NU"));
}

void Filter::add(const FilterTerm& term, bool orElse) {
  const Condition added = conditionOf(term);
  if (++terms_ == 1) {
    condition_ = added;
    text_ = textOf(term);
    return;
  }
  if (orElse) {
    condition_.sql = QStringLiteral("(%1) OR (%2)").arg(condition_.sql, added.sql);
    condition_.values.insert(condition_.values.end(), added.values.begin(), added.values.end());
  } else {
    condition_ = condition_ && added;
  }
  if (terms_ > 2 && orElse != lastOr_) text_ = QStringLiteral("(%1)").arg(text_);
  lastOr_ = orElse;
  text_ += (orElse ? QStringLiteral(" sau ") : QStringLiteral(" si ")) + textOf(term);
}

}  // namespace velmar
