#include "reports/windows/ReportJob.h"

#include <algorithm>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QPainter>

#include "reports/BarCodes.h"
#include "reports/Shown.h"
#include "reports/windows/ObjectPainter.h"
#include "util/FileNames.h"

namespace velmar {

using layout::Object;
using layout::Place;
using layout::RowRole;
using layout::Scope;
using layout::TableRow;

namespace {

constexpr int kMostPictures = 20;
constexpr int kMostPoints = 10000;  // of a curve
constexpr int kAll = 100;           // percent

constexpr qreal kLeastRow = kTwipsPerMillimetre;  // of a row that is cut at the end of its table

size_t placeOfTable(const layout::Layout& layout) {
  const auto isTable = [](const Object& object) {
    return std::holds_alternative<layout::Table>(object.content);
  };
  const auto& objects = layout.objects;
  return static_cast<size_t>(std::find_if(objects.begin(), objects.end(), isTable) - objects.begin());
}

qreal heightOf(const auto& rows) {
  qreal height = 0;
  for (const auto& row : rows) height += row.height;
  return height;
}

template <class... Works>
struct Visitor : Works... {
  using Works::operator()...;
};
template <class... Works>
Visitor(Works...) -> Visitor<Works...>;

}  // namespace

/// Receives the contents of a page: draws them, or collects their texts.
class ReportJob::Flow {
 public:
  explicit Flow(QPainter* painter) : painter_(painter) {}

  void row(const FilledRow& filled, const QRectF& frame, const layout::Table& table) {
    if (painter_)
      layout::drawRow(*painter_, frame, *filled.row, filled.texts, table);
    else
      words_.append(filled.texts.join(u' '));
  }
  void sides(const TableRow& row, const QRectF& frame, const layout::Table& table) {
    if (painter_) layout::drawSides(*painter_, frame, row, table);
  }
  void text(const QString& text) {
    if (!painter_) words_.append(text);
  }
  QPainter* painter() { return painter_; }
  QString words() const { return words_.join(u'\n'); }

 private:
  QPainter* painter_;
  QStringList words_;
};

ReportJob::ReportJob(const QString& file, layout::Layout layout, const ReportData& data)
    : file_(file),
      layout_(std::move(layout)),
      table_(layout_.table()),
      tableObject_(placeOfTable(layout_)),
      evaluation_(data, table_) {
  addFormulas();
}

void ReportJob::addFormulas() {
  const auto add = [this](const QString& formula, Scope scope, const layout::Part& part) {
    formulaParts_.push_back(part);
    return evaluation_.add(formula, scope);
  };
  const auto optional = [&add](const QString& formula, Scope scope, const layout::Part& part) {
    return formula.trimmed().isEmpty() ? -1 : add(formula, scope, part);
  };
  for (size_t i = 0; i < layout_.objects.size(); ++i) {
    const Object& object = layout_.objects[i];
    const layout::Part part{static_cast<int>(i)};
    const QString content = std::visit(Visitor{[](const layout::Text& text) { return text.formula; },
                                               [](const layout::Picture& picture) { return picture.file; },
                                               [](const layout::BarCode& code) { return code.formula; },
                                               [](const auto&) { return QString(); }},
                                       object.content);
    const auto* curve = std::get_if<layout::Curve>(&object.content);
    objectFormulas_.push_back({optional(object.condition, Scope::Page, part),
                               optional(content, Scope::Page, part),
                               curve ? optional(curve->x, Scope::Line, part) : -1,
                               curve ? optional(curve->y, Scope::Line, part) : -1});
  }
  if (!table_) return;
  const layout::Part table{static_cast<int>(tableObject_)};
  extendsIf_ = optional(table_->extendsIf, Scope::Page, table);
  for (const QString& group : table_->groups) groupFormulas_.push_back(add(group, Scope::Line, table));
  for (const layout::Sum& sum : table_->sums) sumFormulas_.push_back(add(sum.formula, Scope::Line, table));
  for (int i = 0; i < static_cast<int>(table_->rows.size()); ++i) {
    const TableRow& row = table_->rows[static_cast<size_t>(i)];
    RowFormulas formulas{optional(row.condition, Scope::Line, {table.object, i}), {}};
    for (int cell = 0; cell < static_cast<int>(row.cells.size()); ++cell)
      formulas.cells.push_back(
          optional(row.cells[static_cast<size_t>(cell)].formula, Scope::Line, {table.object, i, cell}));
    rowFormulas_.push_back(std::move(formulas));
  }
  next_.sums.resize(table_->sums.size());
}

QString ReportJob::name() const { return QFileInfo(file_).completeBaseName(); }

QPageLayout ReportJob::pageLayout() const {
  const layout::Page& page = layout_.page;
  const bool lies = page.width > page.height;
  const QSizeF upright(std::min(page.width, page.height), std::max(page.width, page.height));
  const QPageSize size(upright, QPageSize::Millimeter, QString(), QPageSize::FuzzyMatch);
  return QPageLayout(size, lies ? QPageLayout::Landscape : QPageLayout::Portrait,
                     QMarginsF(page.left, page.top, page.right, page.bottom), QPageLayout::Millimeter);
}

// An extended table moves the objects below its end.
QRectF ReportJob::frameOf(size_t object, int set) const {
  QRectF frame = layout_.objects[object].frame;
  if (table_ && table_->extension > 0 && isShown(extendsIf_, {.set = set})) {
    constexpr double kSlack = 0.01;  // mm
    const double end = layout_.objects[tableObject_].frame.bottom() - kSlack;
    const double bottom = frame.bottom() < end ? frame.bottom() : frame.bottom() + table_->extension;
    if (frame.top() >= end) frame.moveTop(frame.top() + table_->extension);
    frame.setBottom(bottom);
  }
  return layout::toTwips(frame);
}

QStringList ReportJob::faults() const {
  layout::Parts parts;
  for (const int formula : evaluation_.failed()) {
    const layout::Part& part = formulaParts_[static_cast<size_t>(formula)];
    if (std::find(parts.begin(), parts.end(), part) == parts.end()) parts.push_back(part);
  }
  QStringList names;
  for (const layout::Part& part : parts) names.append(nameOf(layout_, part));
  return names;
}

QStringList ReportJob::textsWithoutBars() const {
  QStringList texts;
  for (size_t i = 0; i < layout_.objects.size(); ++i) {
    const auto* code = std::get_if<layout::BarCode>(&layout_.objects[i].content);
    const ObjectFormulas& formulas = objectFormulas_[i];
    if (!code || formulas.content < 0) continue;
    for (int set = 0; set < evaluation_.setCount(); ++set) {
      const Place place{.set = set};
      if (!isShown(formulas.condition, place)) continue;
      const QString text = layout::textOf(evaluation_.value(formulas.content, place)).trimmed();
      if (!text.isEmpty() && layout::barModules(code->type, text).isEmpty()) texts.append(text);
    }
  }
  texts.removeDuplicates();
  return texts;
}

Place ReportJob::placeOf(const Position& position, int line, int page) const {
  return {position.set, line, page, isCounted_ ? knownPages() : 0, &position.sums};
}

bool ReportJob::isShown(int condition, const Place& place) const {
  return condition < 0 || evaluation_.isTrue(condition, place);
}

// Without `withTexts` only the texts that may make their row higher are computed.
ReportJob::FilledRows ReportJob::filled(RowRole role, int group, const Place& place, bool withTexts) const {
  FilledRows result;
  for (size_t i = 0; i < table_->rows.size(); ++i) {
    const TableRow& row = table_->rows[i];
    const bool isOfGroup = role != RowRole::GroupHeader && role != RowRole::GroupFooter;
    if (row.role != role || (!isOfGroup && row.group != group)) continue;
    const RowFormulas& formulas = rowFormulas_[i];
    if (!isShown(formulas.condition, place)) continue;
    FilledRow filled{&row, {}, 0};
    for (size_t cell = 0; cell < row.cells.size(); ++cell) {
      const bool wanted = formulas.cells[cell] >= 0 && (withTexts || row.cells[cell].style.wraps);
      filled.texts.append(
          wanted ? layout::shownText(evaluation_.value(formulas.cells[cell], place), row.cells[cell].style)
                 : QString());
    }
    filled.height = layout::rowHeight(row, filled.texts);
    result.push_back(std::move(filled));
  }
  return result;
}

std::vector<QVariant> ReportJob::groupsAt(const Place& place) const {
  std::vector<QVariant> values;
  for (const int formula : groupFormulas_) values.push_back(evaluation_.value(formula, place));
  return values;
}

void ReportJob::addToSums(std::vector<Decimal>& sums, int firstOpened, const Place& place) const {
  for (size_t i = 0; i < sums.size(); ++i) {
    const int group = table_->sums[i].group;
    if (group >= 0 && group >= firstOpened) sums[i] = 0;
    if (const auto number = layout::numberOf(evaluation_.value(sumFormulas_[i], place))) sums[i] += *number;
  }
}

// The footer rows of the innermost group not checked yet, if it closes here.
std::optional<ReportJob::Block> ReportJob::closingBlock(const Position& at, int firstClosed, int page,
                                                        bool withTexts) const {
  const int group = static_cast<int>(groupFormulas_.size()) - 1 - at.step;
  if (at.line == 0 || group < firstClosed) return std::nullopt;
  Block block{filled(RowRole::GroupFooter, group, placeOf(at, at.line - 1, page), withTexts), 0, false, false,
              at};
  ++block.next.step;
  return block;
}

ReportJob::Block ReportJob::lineBlock(const Position& at, const std::vector<QVariant>& groups,
                                      int firstOpened, int page, bool withTexts) const {
  Block block;
  block.next = at;
  block.next.groups = groups;
  block.next.line = at.line + 1;
  block.next.step = 0;
  const Place place = placeOf(block.next, at.line, page);
  addToSums(block.next.sums, firstOpened, place);
  for (int group = firstOpened; group < static_cast<int>(groupFormulas_.size()); ++group)
    for (FilledRow& row : filled(RowRole::GroupHeader, group, place, withTexts))
      block.rows.push_back(std::move(row));
  for (FilledRow& row : filled(RowRole::Line, 0, place, withTexts)) block.rows.push_back(std::move(row));
  return block;
}

ReportJob::Block ReportJob::nextBlock(const Position& at, int page, bool withTexts) const {
  const int groupCount = static_cast<int>(groupFormulas_.size());
  if (at.line < evaluation_.lineCount()) {
    const std::vector<QVariant> groups = groupsAt(placeOf(at, at.line, page));
    int firstChanged = 0;
    if (at.line > 0)
      while (firstChanged < groupCount &&
             groups[static_cast<size_t>(firstChanged)] == at.groups[static_cast<size_t>(firstChanged)])
        ++firstChanged;
    if (auto closing = closingBlock(at, firstChanged, page, withTexts)) return *closing;
    return lineBlock(at, groups, firstChanged, page, withTexts);
  }
  if (auto closing = closingBlock(at, 0, page, withTexts)) return *closing;
  Block total{filled(RowRole::Total, 0, placeOf(at, at.line - 1, page), withTexts), 0, true, true, at};
  return total;
}

bool ReportJob::hasTable(const Place& place) const {
  return table_ && isShown(objectFormulas_[tableObject_].condition, place);
}

// The table on one page; returns the end of the page. A page that was counted before ends at the same line,
// even if it is higher now because of the number of pages or of rows written since.
ReportJob::PageEnd ReportJob::flow(const Position& start, int page, const Sheet* counted, Flow* out) const {
  const bool withTexts = out != nullptr;
  Position at = start;
  if (!hasTable(placeOf(start, -1, page))) return {at, true};

  const QRectF frame = frameOf(tableObject_, at.set);
  qreal y = frame.top();
  const TableRow* lineRow = nullptr;
  // A row higher than the page is cut at `end`.
  const auto put = [&](const FilledRows& rows, qreal from, qreal end) {
    for (const FilledRow& row : rows) {
      const qreal left = end - from;
      const qreal height = left > kLeastRow ? std::min(row.height, left) : row.height;
      if (out) out->row(row, QRectF(frame.left(), from, frame.width(), height), *table_);
      from += height;
    }
    return from;
  };
  // Rows at the lower end of the page, over the extended side borders of the lines.
  const auto putLast = [&](const FilledRows& rows) {
    const qreal last = table_->fillsDown ? std::max(y, frame.bottom() - heightOf(rows)) : y;
    if (out && table_->fillsDown && lineRow && last > y)
      out->sides(*lineRow, QRectF(frame.left(), y, frame.width(), last - y), *table_);
    put(rows, last, frame.bottom());
  };

  const Place top = placeOf(at, at.line, page);
  y = put(filled(RowRole::Header, 0, top, true), y, frame.bottom());
  if (!at.opensSet) y = put(filled(RowRole::Brought, 0, top, true), y, frame.bottom());
  for (const TableRow& row : table_->rows)
    if (row.role == RowRole::Line && !lineRow) lineRow = &row;
  const auto carried = [&] { return filled(RowRole::Carried, 0, placeOf(at, at.line - 1, page), true); };
  const qreal kept = heightOf(carried());
  bool isStarted = false;
  for (;;) {
    Block block = nextBlock(at, page, withTexts);
    block.height = heightOf(block.rows);
    const qreal bottom = frame.bottom() - (block.isLast ? 0 : kept);
    // A block that does not even fit an empty page must be placed anyway.
    const bool isFull = y + block.height > bottom + 1 && isStarted;
    if (counted ? !counted->closesSet && at.blocks >= counted->blocks : isFull) {
      putLast(carried());
      at.opensSet = false;
      return {at, false};
    }
    if (block.isTotal) {
      putLast(block.rows);
      return {at, true};
    }
    y = put(block.rows, y, bottom);
    isStarted = isStarted || block.height > 0;
    at = std::move(block.next);
    ++at.blocks;
  }
}

// False when there is no further page.
bool ReportJob::countSheet() const {
  if (isCounted_) return false;
  if (next_.set >= evaluation_.setCount()) {
    isCounted_ = true;
    return false;
  }
  PageEnd page = flow(next_, knownPages(), nullptr, nullptr);
  sheets_.push_back({next_, page.end.sums, page.end.blocks, page.closesSet});
  if (page.closesSet) {
    next_ = {};
    next_.set = page.end.set + 1;
    next_.sums.resize(page.end.sums.size());
    isCounted_ = next_.set >= evaluation_.setCount();
  } else {
    next_ = std::move(page.end);
  }
  return true;
}

int ReportJob::pageCount() const {
  while (countSheet()) {
  }
  return std::max(1, knownPages());
}

int ReportJob::countOn(int milliseconds) const {
  QElapsedTimer time;
  time.start();
  while (time.elapsed() < milliseconds && countSheet()) {
  }
  if (isCounted_) return kAll;
  const double ofSet = next_.line / static_cast<double>(std::max(1, evaluation_.lineCount()));
  return static_cast<int>(kAll * (next_.set + ofSet) / evaluation_.setCount());
}

ReportJob::Sheet ReportJob::sheet(int page) const {
  while (page >= knownPages() && countSheet()) {
  }
  return sheets_[static_cast<size_t>(std::clamp(page, 0, std::max(0, knownPages() - 1)))];
}

QImage ReportJob::picture(const QString& path) const {
  const QString given = path.trimmed().replace(u'\\', u'/');
  const QFileInfo place(QFileInfo(file_).dir().absoluteFilePath(given));
  const QString whole = pathInFolder(place.path(), place.fileName());
  const auto known = pictures_.constFind(whole);
  if (known != pictures_.constEnd()) return *known;
  if (pictures_.size() >= kMostPictures) pictures_.clear();
  // A device or a pipe is no picture, and would be read without end.
  return *pictures_.insert(whole, QFileInfo(whole).isFile() ? QImage(whole) : QImage());
}

// The values of a curve over all lines.
QList<std::optional<QPointF>> ReportJob::pointsOf(const ObjectFormulas& formulas, const Place& place) const {
  QList<std::optional<QPointF>> points;
  if (formulas.x < 0 || formulas.y < 0) return points;
  const int count = std::min(evaluation_.lineCount(), kMostPoints);
  for (int line = 0; line < count; ++line) {
    Place at = place;
    at.line = line;
    const auto x = layout::numberOf(evaluation_.value(formulas.x, at));
    if (!x) continue;
    const auto y = layout::numberOf(evaluation_.value(formulas.y, at));
    points.append(y ? std::optional(QPointF(x->toDouble(), y->toDouble())) : std::nullopt);
  }
  return points;
}

void ReportJob::putObject(size_t number, const Sheet& sheet, const Place& place, Flow& out) const {
  const Object& object = layout_.objects[number];
  const ObjectFormulas& formulas = objectFormulas_[number];
  const bool isOnPage = object.pages == layout::Pages::All || number == tableObject_ ||
                        (object.pages == layout::Pages::First && sheet.start.opensSet) ||
                        (object.pages == layout::Pages::Following && !sheet.start.opensSet) ||
                        (object.pages == layout::Pages::Last && sheet.closesSet);
  if (!isOnPage || !isShown(formulas.condition, place)) return;
  const QRectF frame = frameOf(number, place.set);
  const QVariant value = formulas.content < 0 ? QVariant() : evaluation_.value(formulas.content, place);
  QPainter* painter = out.painter();
  std::visit(Visitor{[&](const layout::Text& text) {
                       const QString shown = layout::shownText(value, text.style);
                       out.text(shown);
                       if (painter) layout::drawText(*painter, frame, shown, text.style);
                     },
                     [&](const layout::Line& line) {
                       if (painter) layout::drawLine(*painter, frame, line);
                     },
                     [&](const layout::Box& box) {
                       if (painter) layout::drawBox(*painter, frame, box);
                     },
                     [&](const layout::Picture& shown) {
                       if (painter)
                         layout::drawPicture(*painter, frame, picture(value.toString()), shown.keepsRatio);
                     },
                     [&](const layout::BarCode& code) {
                       const QString text = layout::textOf(value);
                       if (code.showsText) out.text(text);
                       if (painter) layout::drawBarCode(*painter, frame, code, text);
                     },
                     [&](const layout::Curve& curve) {
                       if (painter) layout::drawCurve(*painter, frame, curve, pointsOf(formulas, place));
                     },
                     [&](const layout::Table&) { flow(sheet.start, place.page, &sheet, &out); }},
             object.content);
}

void ReportJob::putPage(int page, Flow& out) const {
  if (isEmpty()) return;
  const Sheet shown = sheet(page);
  Position end = shown.start;
  end.sums = shown.sums;
  const Place place = placeOf(end, -1, page);
  for (size_t i = 0; i < layout_.objects.size(); ++i) putObject(i, shown, place, out);
}

void ReportJob::paintPage(QPainter& painter, int page) const {
  Flow out(&painter);
  putPage(page, out);
}

QString ReportJob::pageText(int page) const {
  Flow out(nullptr);
  putPage(page, out);
  return out.words();
}

}  // namespace velmar
