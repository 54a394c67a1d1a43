#include "reports/LayoutFaults.h"

#include <algorithm>

#include "reports/Formula.h"
#include "reports/LayoutProperties.h"

namespace velmar::layout {

namespace {

constexpr double kSlack = 0.01;  // mm

// The column of the name as a separate word in the formula, from 1; 0 if it does not occur.
int columnOf(const QString& formula, const QString& name) {
  const auto isLetter = [](QChar c) { return c.isLetterOrNumber() || c == u'_' || c == u'$' || c == u'.'; };
  for (qsizetype at = formula.indexOf(name); at >= 0; at = formula.indexOf(name, at + 1)) {
    const qsizetype end = at + name.size();
    const bool begins = at == 0 || !isLetter(formula[at - 1]);
    const bool ends = end == formula.size() || !isLetter(formula[end]) || formula[end] == u'.';
    if (begins && ends) return static_cast<int>(at) + 1;
  }
  return 0;
}

class Search {
 public:
  Search(const Layout& layout, const KnownNames& names) : layout_(layout), names_(names) {}

  std::vector<Fault> run() {
    for (int i = 0; i < static_cast<int>(layout_.objects.size()); ++i) searchObject(i);
    return std::move(faults_);
  }

 private:
  void searchObject(int place) {
    const Object& object = layout_.objects[static_cast<size_t>(place)];
    const Part part = {place, -1, -1};
    searchFrame(part, object.frame);
    searchFormula(part, QStringLiteral("condition"), object.condition);
    if (const auto* text = std::get_if<Text>(&object.content))
      searchFormula(part, QStringLiteral("formula"), text->formula);
    if (const auto* code = std::get_if<BarCode>(&object.content))
      searchFormula(part, QStringLiteral("formula"), code->formula);
    if (const auto* curve = std::get_if<Curve>(&object.content)) searchCurve(part, *curve);
    if (const auto* picture = std::get_if<Picture>(&object.content))
      searchFormula(part, QStringLiteral("file"), picture->file);
    if (const auto* table = std::get_if<Table>(&object.content)) searchTable(part, object, *table);
  }

  void searchFrame(const Part& part, const QRectF& frame) {
    const Page& page = layout_.page;
    const bool outside = frame.left() < -kSlack || frame.top() < -kSlack ||
                         frame.right() > page.width + kSlack || frame.bottom() > page.height + kSlack;
    if (outside) add(part, {}, QStringLiteral("Iese din foaie"));
  }

  void searchCurve(const Part& part, const Curve& curve) {
    searchFormula(part, QStringLiteral("xValue"), curve.x);
    searchFormula(part, QStringLiteral("yValue"), curve.y);
    const CurveAxes& axes = curve.axes;
    if (axes.mostX <= axes.leastX || (axes.doubling && axes.leastX <= 0))
      add(part, QStringLiteral("mostX"), QStringLiteral("Scara pe orizontala nu este corecta"));
    if (axes.mostY <= axes.leastY)
      add(part, QStringLiteral("mostY"), QStringLiteral("Scara pe verticala nu este corecta"));
  }

  void searchTable(const Part& part, const Object& object, const Table& table) {
    searchFormula(part, QStringLiteral("extendsIf"), table.extendsIf);
    for (size_t i = 0; i < table.groups.size(); ++i)
      searchFormula(part, QStringLiteral("groups.%1").arg(i), table.groups[i]);
    for (size_t i = 0; i < table.sums.size(); ++i) searchSum(part, table, i);
    if (std::none_of(table.rows.begin(), table.rows.end(),
                     [](const TableRow& row) { return row.role == RowRole::Line && !row.cells.empty(); }))
      add(part, {}, QStringLiteral("Tabelul nu are coloane: trageti nume pe randul lui de linie"));
    for (size_t row = 0; row < table.rows.size(); ++row)
      searchRow({part.object, static_cast<int>(row), -1}, object, table, table.rows[row]);
  }

  void searchSum(const Part& part, const Table& table, size_t place) {
    const Sum& sum = table.sums[place];
    const QString property = QStringLiteral("sums.%1").arg(place);
    // The column in the sum as it is typed.
    Sum head = sum;
    head.formula.clear();
    searchFormula(part, property, sum.formula, static_cast<int>(textOf(head).size()));
    if (sum.name.isEmpty()) add(part, property, QStringLiteral("Suma nu are nume"));
    if (sum.group >= static_cast<int>(table.groups.size())) addMissingGroup(part, property, sum.group);
  }

  void searchRow(const Part& part, const Object& object, const Table& table, const TableRow& row) {
    const bool isGroups = row.role == RowRole::GroupHeader || row.role == RowRole::GroupFooter;
    if (isGroups && row.group >= static_cast<int>(table.groups.size()))
      addMissingGroup(part, QStringLiteral("group"), row.group);
    searchFormula(part, QStringLiteral("condition"), row.condition);
    double width = 0;
    for (size_t cell = 0; cell < row.cells.size(); ++cell) {
      width += row.cells[cell].width;
      searchFormula({part.object, part.row, static_cast<int>(cell)}, QStringLiteral("formula"),
                    row.cells[cell].formula);
    }
    if (width > object.frame.width() + kSlack)
      add(part, {}, QStringLiteral("Celulele sunt impreuna mai late decat tabelul"));
  }

  void addMissingGroup(const Part& part, const QString& property, int group) {
    add(part, property, QStringLiteral("Tabelul nu are grupa %1").arg(group + 1));
  }

  void searchFormula(const Part& part, const QString& property, const QString& formula, int before = 0) {
    if (formula.isEmpty()) return;
    if (const auto fault = faultOf(formula)) {
      add(part, property, fault->text, fault->column > 0 ? fault->column + before : 0);
      return;
    }
    QStringList reported;
    for (const QString& name : namesIn(formula)) {
      if (names_.has(name) || reported.contains(name, Qt::CaseInsensitive)) continue;
      reported.append(name);
      const int column = columnOf(formula, name);
      add(part, property, QStringLiteral("Numele %1 nu este definit").arg(name),
          column > 0 ? column + before : 0);
    }
  }

  void add(const Part& part, const QString& property, const QString& text, int column = 0) {
    faults_.push_back({part, property, text, column});
  }

  const Layout& layout_;
  const KnownNames& names_;
  std::vector<Fault> faults_;
};

}  // namespace

KnownNames::KnownNames(const Layout& layout, const ReportValues& variables, const ReportValues& fields) {
  for (const char* name : {kPageName, kPageCountName, kLineName}) names_.append(QLatin1String(name));
  for (const ReportValues* values : {&variables, &fields})
    for (const clsFieldVarDescription& value : *values) names_.append(value.name);
  if (const Table* table = layout.table())
    for (const Sum& sum : table->sums) names_.append(sum.name);
  for (QString& name : names_) name = name.toUpper();
  names_.sort();
}

bool KnownNames::has(const QString& name) const {
  return std::binary_search(names_.begin(), names_.end(), name.toUpper());
}

std::vector<Fault> faultsOf(const Layout& layout, const KnownNames& names) {
  return Search(layout, names).run();
}

QString textOf(const Layout& layout, const Fault& fault) {
  QString place = nameOf(layout, fault.part);
  for (const Property& property : propertiesOf(layout, {fault.part}))
    if (property.name == fault.property) place += QStringLiteral(", ") + property.caption;
  if (fault.column > 0) place += QStringLiteral(", coloana %1").arg(fault.column);
  return place + QStringLiteral(": ") + fault.text;
}

int placeIn(const QString& text, int line, int column) {
  if (line <= 0) return 0;
  qsizetype start = 0;
  for (int i = 1; i < line; ++i) {
    const qsizetype end = text.indexOf(QLatin1Char('\n'), start);
    if (end < 0) break;
    start = end + 1;
  }
  const qsizetype found = text.indexOf(QLatin1Char('\n'), start);
  const qsizetype end = found < 0 ? text.size() : found;
  return static_cast<int>(std::min<qsizetype>(end, start + std::max(0, column - 1)));
}

}  // namespace velmar::layout
