#include "store/windows/GridPrint.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <QHeaderView>
#include <QPainter>
#include <QSaveFile>
#include <QTextLayout>
#include <QTextStream>

#include "util/Errors.h"
#include "util/FileRights.h"

namespace velmar {

namespace {

constexpr qreal kLetters = 9;  // points, of rows that fit the page
constexpr qreal kSmallestLetters = 6.5;
constexpr qreal kHeaderLetters = 10;
constexpr qreal kFooterLetters = 8;
constexpr qreal kLeading = 1.25;  // height of a row, in heights of its letters
constexpr qreal kPadding = 3 * kTwipsPerPoint;
constexpr qreal kGap = 6 * kTwipsPerPoint;  // between the texts of the page and the table
constexpr qreal kMostGrowth = 1.6;          // of a text column on a page with unused width
constexpr qreal kRepeatedShare = 0.25;      // of the page width, for a column repeated in each band
constexpr qreal kThinLine = 0.5 * kTwipsPerPoint;
const QColor kRule(0xc0, 0xc0, 0xc0);

using Thirds = std::array<QString, 3>;

// The lines of a header or footer, with their codes replaced.
QList<Thirds> pageLines(const QString& text, int page, int pages) {
  if (text.isEmpty()) return {};
  QList<Thirds> lines(1);
  size_t third = 0;
  const auto next = [&third] { third = std::min<size_t>(third + 1, 2); };
  for (qsizetype i = 0; i < text.size(); ++i) {
    QChar code = text[i];
    if (code == QLatin1Char('\\') && i + 1 < text.size()) {
      const QChar behind = text[i + 1];
      if (behind == QLatin1Char('p') || behind == QLatin1Char('P')) {
        lines.last()[third] += QString::number(behind == QLatin1Char('p') ? page + 1 : pages);
        ++i;
        continue;
      }
      if (behind == QLatin1Char('t') || behind == QLatin1Char('n')) {
        code = behind == QLatin1Char('t') ? QLatin1Char('\t') : QLatin1Char('\n');
        ++i;
      }
    }
    if (code == QLatin1Char('\t')) {
      next();
    } else if (code == QLatin1Char('\n')) {
      lines.append(Thirds());
      third = 0;
    } else {
      lines.last()[third] += code;
    }
  }
  return lines;
}

QFont pageFont(const TDBGrid& grid, qreal points, bool bold) {
  QFont font = printFont(QFont(grid.font().family()), points);
  font.setBold(bold);
  return font;
}

qreal textHeight(const QString& text, const QFont& font) {
  return static_cast<qreal>(pageLines(text, 0, 1).size()) * QFontMetricsF(font).height() * kLeading;
}

// The text in lines of at most that width, broken between words, or within one that is longer. It is laid out
// in parts: the toolkit is slow with very long ones.
QStringList wrappedText(const QString& text, const QFont& font, qreal width) {
  constexpr qsizetype kPart = 1000;
  QTextOption option;
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  QStringList lines;
  for (qsizetype from = 0; from < text.size() || lines.isEmpty();) {
    const QString part = text.mid(from, kPart);
    const bool isLast = from + part.size() == text.size();
    QTextLayout layout(part, font);
    layout.setTextOption(option);
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
      line.setLineWidth(width);
      const qsizetype end = line.textStart() + line.textLength();
      // What would continue in the next part begins it.
      if (end == part.size() && !isLast && line.textStart() > 0) break;
      lines.append(part.mid(line.textStart(), line.textLength()).trimmed());
      from += line.textLength();
    }
    layout.endLayout();
    if (part.isEmpty()) break;
  }
  return lines;
}

QString oneLine(QString text) {
  return text.replace(QLatin1Char('\n'), QLatin1Char(' ')).replace(QLatin1Char('\r'), QString());
}

}  // namespace

GridPrint::GridPrint(const TDBGrid& grid, const GridPrintSettings& settings)
    : grid_(grid),
      settings_(settings),
      layout_(QPageSize(QPageSize::A4), settings.orientation, settings.margins, QPageLayout::Millimeter) {
  if (settings.rows == GridPrintSettings::Rows::Selected) places_ = grid.selectedPlaces();
  takeColumns();
  arrange();
}

void GridPrint::takeColumns() {
  QList<int> sections = grid_.visibleColumns();
  if (!settings_.columns.isEmpty()) {
    sections.clear();
    for (const QString& field : settings_.columns)
      if (const int section = grid_.columnOf(field); section >= 0) sections.append(section);
  }
  for (const int section : sections) {
    const GridColumn& shown = grid_.columns()[section];
    const QAbstractItemModel* model = grid_.model();
    const QVariant alignment =
        model->rowCount() > 0 ? model->index(0, section).data(Qt::TextAlignmentRole) : QVariant();
    const bool number = shown.format == CellFormat::Number || shown.format == CellFormat::Integer;
    const bool right = alignment.isValid() ? (alignment.toInt() & Qt::AlignRight) != 0 : number;
    Column column{section, shown.caption, grid_.footer(shown.field), right, 0};
    column.width = wantedWidth(section, column);
    hasFooters_ = hasFooters_ || !column.footer.isEmpty();
    columns_.append(column);
  }
}

// The width on the screen, except for the last column, which may be stretched to the window.
qreal GridPrint::wantedWidth(int section, const Column& column) const {
  const QFontMetricsF plain(pageFont(grid_, kLetters, false));
  const QFontMetricsF bold(pageFont(grid_, kLetters, true));
  const qreal digit = plain.horizontalAdvance(QLatin1Char('0'));
  const qreal defined = digit * grid_.columns()[section].width + 2 * kPadding;
  const qreal shown =
      digit * grid_.columnWidth(section) / QFontMetricsF(grid_.font()).horizontalAdvance(QLatin1Char('0'));
  const bool last = grid_.visibleColumns().value(grid_.visibleColumns().size() - 1, -1) == section;
  const bool usesScreen = !grid_.isColumnHidden(section) && !last;
  return std::max({usesScreen ? shown : defined, bold.horizontalAdvance(column.caption) + 2 * kPadding,
                   bold.horizontalAdvance(column.footer) + 2 * kPadding});
}

void GridPrint::setPageLayout(const QPageLayout& layout) {
  layout_ = layout;
  arrange();
}

QRectF GridPrint::body() const {
  const QRectF inches = layout_.paintRect(QPageLayout::Inch);
  return {inches.topLeft() * kTwipsPerInch, inches.size() * kTwipsPerInch};
}

QFont GridPrint::letters(bool bold) const { return pageFont(grid_, kLetters * scale_, bold); }

qreal GridPrint::headerHeight() const {
  const qreal height = textHeight(settings_.header, pageFont(grid_, kHeaderLetters, settings_.boldHeader));
  return height > 0 ? height + kGap : 0;
}

qreal GridPrint::footerHeight() const {
  const qreal height = textHeight(settings_.footer, pageFont(grid_, kFooterLetters, false));
  return height > 0 ? height + kGap : 0;
}

void GridPrint::arrange() {
  widths_.clear();
  bands_.clear();
  scale_ = 1;
  for (const Column& column : columns_) widths_.append(column.width);
  const qreal room = body().width();
  const qreal wanted = std::accumulate(widths_.cbegin(), widths_.cend(), qreal(0));
  if (wanted <= room * kLetters / kSmallestLetters) {
    bands_.append(QList<int>(columns_.size()));
    std::iota(bands_.first().begin(), bands_.first().end(), 0);
    if (wanted > room)
      scale_ = room / wanted;
    else
      fillLine(room - wanted);
  } else {
    spreadColumns(room);
  }
  rowHeight_ = QFontMetricsF(letters(true)).height() * kLeading;
  const qreal high = body().height() - headerHeight() - footerHeight() - (hasFooters_ ? rowHeight_ : 0);
  firstLines_ = std::max(1, static_cast<int>(high / rowHeight_) - 1);
  laterLines_ = settings_.repeatHeads ? firstLines_ : firstLines_ + 1;
  if (settings_.wrapped) wrapRows();
}

void GridPrint::wrapRows() {
  wrapped_.clear();
  const QFont font = letters(false);
  for (int row = 0; row < rowCount(); ++row) {
    const size_t first = wrapped_.size();
    wrapped_.push_back({QStringList(columns_.size())});
    for (qsizetype i = 0; i < columns_.size(); ++i) {
      QStringList texts{cell(row, columns_[i])};
      if (!columns_[i].right) texts = wrappedText(texts.first(), font, (widths_[i] - 2 * kPadding) * scale_);
      for (qsizetype line = 0; line < texts.size(); ++line) {
        const size_t place = first + static_cast<size_t>(line);
        if (place == wrapped_.size()) wrapped_.push_back({QStringList(columns_.size())});
        wrapped_[place].texts[i] = texts[line];
      }
    }
    wrapped_.back().endsRow = true;
  }
}

// Widens text columns, whose texts may be truncated on the screen.
void GridPrint::fillLine(qreal spare) {
  qreal texts = 0;
  for (const Column& column : columns_)
    if (!column.right) texts += column.width;
  if (texts <= 0) return;
  const qreal growth = std::min(kMostGrowth, 1 + spare / texts);
  for (qsizetype i = 0; i < columns_.size(); ++i)
    if (!columns_[i].right) widths_[i] *= growth;
}

// The first column and the one of the key.
QList<int> GridPrint::repeatedColumns(qreal widest) const {
  QList<int> repeated;
  for (int i = 0; i < columns_.size(); ++i) {
    const QString& field = grid_.columns()[columns_[i].section].field;
    const bool isKey = field.compare(settings_.key, Qt::CaseInsensitive) == 0;
    if ((i == 0 || isKey) && widths_[i] <= widest * kRepeatedShare) repeated.append(i);
  }
  return repeated;
}

// If there are too many columns for a legible font size, they are spread over several pages, each of which
// begins with the columns that identify the rows.
void GridPrint::spreadColumns(qreal room) {
  const qreal widest = room * kLetters / kSmallestLetters;
  const QList<int> repeated = repeatedColumns(widest);
  qreal taken = 0;
  for (const int each : repeated) taken += widths_[each];
  qreal used = taken;
  qreal widestBand = taken;
  bands_.append(repeated);
  for (int i = 0; i < columns_.size(); ++i) {
    if (repeated.contains(i)) continue;
    widths_[i] = std::min(widths_[i], widest - taken);
    if (used + widths_[i] > widest) {
      bands_.append(repeated);
      used = taken;
    }
    bands_.last().append(i);
    used += widths_[i];
    widestBand = std::max(widestBand, used);
  }
  scale_ = std::min(qreal(1), room / widestBand);
}

int GridPrint::rowCount() const {
  return settings_.rows == GridPrintSettings::Rows::All ? grid_.model()->rowCount()
                                                        : static_cast<int>(places_.size());
}

int GridPrint::lineCount() const {
  return settings_.wrapped ? static_cast<int>(wrapped_.size()) : rowCount();
}

int GridPrint::sheetCount() const {
  const int later = std::max(0, lineCount() - firstLines_);
  return 1 + (later + laterLines_ - 1) / laterLines_;
}

int GridPrint::firstLineOf(int sheet) const {
  return sheet == 0 ? 0 : firstLines_ + (sheet - 1) * laterLines_;
}

int GridPrint::linesOn(int sheet) const {
  return std::clamp(lineCount() - firstLineOf(sheet), 0, sheet == 0 ? firstLines_ : laterLines_);
}

int GridPrint::pageCount() const { return sheetCount() * std::max(1, bandCount()); }

QString GridPrint::cell(int row, const Column& column) const {
  if (grid_.columns()[column.section].secret) return {};
  const int place = settings_.rows == GridPrintSettings::Rows::All ? row : places_[row];
  return oneLine(grid_.model()->index(place, column.section).data(Qt::DisplayRole).toString());
}

QString GridPrint::lineText(int line, int column) const {
  return settings_.wrapped ? wrapped_[static_cast<size_t>(line)].texts[column] : cell(line, columns_[column]);
}

void GridPrint::paintPage(QPainter& painter, int page) const {
  const QRectF whole = body();
  painter.setPen(Qt::black);
  paintTexts(painter, whole, page);
  if (bands_.isEmpty()) return;
  const QList<int>& band = bands_[page % bandCount()];
  const int sheet = page / bandCount();
  qreal width = 0;
  for (const int each : band) width += widths_[each] * scale_;
  qreal top = whole.top() + headerHeight();
  const auto line = [&](bool isHead, auto textOf) {
    qreal left = whole.left();
    for (const int each : band) {
      const qreal wide = widths_[each] * scale_;
      paintCell(painter, textOf(each), columns_[each], isHead, {left, top, wide, rowHeight_});
      left += wide;
    }
    top += rowHeight_;
  };
  const auto rule = [&](const QColor& colour, qreal thickness) {
    painter.fillRect(QRectF(whole.left(), top - thickness / 2, width, thickness), colour);
  };
  if (sheet == 0 || settings_.repeatHeads) {
    painter.setFont(letters(true));
    line(true, [this](int column) { return columns_[column].caption; });
    rule(Qt::black, 2 * kThinLine);
  }
  painter.setFont(letters(false));
  const int first = firstLineOf(sheet);
  for (int each = first; each < first + linesOn(sheet); ++each) {
    line(false, [this, each](int column) { return lineText(each, column); });
    if (!settings_.wrapped || wrapped_[static_cast<size_t>(each)].endsRow) rule(kRule, kThinLine);
  }
  if (hasFooters_ && (settings_.repeatFooters || sheet == sheetCount() - 1)) {
    rule(Qt::black, 2 * kThinLine);
    painter.setFont(letters(true));
    line(true, [this](int column) { return columns_[column].footer; });
  }
}

void GridPrint::paintTexts(QPainter& painter, const QRectF& body, int page) const {
  painter.setFont(pageFont(grid_, kHeaderLetters, settings_.boldHeader));
  paintLine(painter, settings_.header, body, page);
  painter.setFont(pageFont(grid_, kFooterLetters, false));
  const qreal high = textHeight(settings_.footer, painter.font());
  paintLine(painter, settings_.footer, body.adjusted(0, body.height() - high, 0, 0), page);
}

void GridPrint::paintLine(QPainter& painter, const QString& text, const QRectF& room, int page) const {
  const qreal high = QFontMetricsF(painter.font()).height() * kLeading;
  constexpr Qt::Alignment kSides[] = {Qt::AlignLeft, Qt::AlignHCenter, Qt::AlignRight};
  QRectF at(room.left(), room.top(), room.width(), high);
  for (const Thirds& thirds : pageLines(text, page, pageCount())) {
    for (size_t third = 0; third < thirds.size(); ++third)
      painter.drawText(at, kSides[third] | Qt::AlignVCenter | Qt::TextSingleLine, thirds[third].trimmed());
    at.translate(0, high);
  }
}

// A text that is too long is truncated with dots; a number or a heading is condensed, since a truncated
// number would be read as another one.
void GridPrint::paintCell(QPainter& painter, const QString& text, const Column& column, bool whole,
                          const QRectF& room) const {
  if (text.isEmpty()) return;
  const QRectF inside = room.adjusted(kPadding * scale_, 0, -kPadding * scale_, 0);
  const int flags = Qt::AlignVCenter | Qt::TextSingleLine | (column.right ? Qt::AlignRight : Qt::AlignLeft);
  const QFontMetricsF metrics(painter.font());
  const qreal wide = metrics.horizontalAdvance(text);
  if (wide <= inside.width()) {
    painter.drawText(inside, flags, text);
  } else if (!column.right && !whole) {
    painter.drawText(inside, flags, metrics.elidedText(text, Qt::ElideRight, inside.width()));
  } else {
    painter.save();
    painter.translate(inside.left(), inside.top());
    painter.scale(inside.width() / wide, 1);
    painter.drawText(QRectF(0, 0, wide, inside.height()), flags | Qt::TextDontClip, text);
    painter.restore();
  }
}

QString GridPrint::pageText(int page) const {
  QStringList words;
  for (const QString& text : {settings_.header, settings_.footer})
    for (const Thirds& thirds : pageLines(text, page, pageCount()))
      for (const QString& third : thirds) words.append(third);
  if (bands_.isEmpty()) return words.join(QLatin1Char('\n'));
  const int sheet = page / bandCount();
  for (const int each : bands_[page % bandCount()]) {
    words << columns_[each].caption << columns_[each].footer;
    for (int line = firstLineOf(sheet); line < firstLineOf(sheet) + linesOn(sheet); ++line)
      words.append(lineText(line, each));
  }
  return words.join(QLatin1Char('\n'));
}

void GridPrint::writeHtml(const QString& path) const {
  QSaveFile file(path);
  openPrivately(file);
  QStringList title;
  for (const Thirds& thirds : pageLines(settings_.header, 0, 1))
    for (const QString& third : thirds)
      if (!third.trimmed().isEmpty()) title.append(third.trimmed().toHtmlEscaped());
  QTextStream out(&file);
  const auto line = [&](const char* tag, auto textOf) {
    out << "<tr>";
    for (const Column& column : columns_)
      out << '<' << tag << (column.right ? " class=\"n\">" : ">") << textOf(column).toHtmlEscaped() << "</"
          << tag << '>';
    out << "</tr>\n";
  };
  out << "<!DOCTYPE html>\n<html lang=\"ro\">\n<head>\n<meta charset=\"utf-8\">\n<title>"
      << title.join(QLatin1Char(' ')) << "</title>\n<style>table{border-collapse:collapse}"
      << "th,td{border:1px solid #c0c0c0;padding:2px 6px;text-align:left}.n{text-align:right}"
      << "</style>\n</head>\n<body>\n<h1>" << title.join(QStringLiteral("<br>"))
      << "</h1>\n<table>\n<thead>\n";
  line("th", [](const Column& column) { return column.caption; });
  out << "</thead>\n<tbody>\n";
  for (int row = 0; row < rowCount(); ++row)
    line("td", [this, row](const Column& column) { return cell(row, column); });
  out << "</tbody>\n";
  if (hasFooters_) {
    out << "<tfoot>\n";
    line("th", [](const Column& column) { return column.footer; });
    out << "</tfoot>\n";
  }
  out << "</table>\n</body>\n</html>\n";
  out.flush();
  if (out.status() != QTextStream::Ok || !file.commit()) throw notWritten(file);
}

bool printGrid(const TDBGrid& grid, const GridPrintSettings& settings, QWidget* parent) {
  GridPrint job(grid, settings);
  const bool shown = printAndPreview(job, PrintWay::SetUpAndPreview, parent);
  if (!settings.htmlCopy.isEmpty()) job.writeHtml(settings.htmlCopy);
  return shown;
}

}  // namespace velmar
