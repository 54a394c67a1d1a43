// How the columns of a grid share its width.
#include <algorithm>
#include <QHeaderView>
#include <QScopedValueRollback>

#include "store/windows/TDBGrid.h"

namespace velmar {

namespace {

constexpr int kHeadingMargin = 16;
constexpr int kCellMargin = 12;
constexpr int kShortestText = 9;   // characters of a text cell
constexpr int kReadableName = 24;  // characters of a name that the other columns make room for

}  // namespace

// Wide enough for heading, cells and footer.
int TDBGrid::naturalWidth(int column) const {
  const GridColumn& facts = columns_[column];
  const int character = isRightAligned(facts.format) ? fontMetrics().horizontalAdvance(QLatin1Char('0'))
                                                     : fontMetrics().averageCharWidth();
  const int cells = isRightAligned(facts.format) ? widest_.value(column) : 0;
  return std::max({fontMetrics().horizontalAdvance(facts.caption) + kHeadingMargin,
                   std::max(character * facts.width, cells) + kCellMargin, footerWidth(column)});
}

int TDBGrid::footerWidth(int column) const {
  QFont bold = font();
  bold.setBold(true);
  return QFontMetrics(bold).horizontalAdvance(footer(columns_[column].field)) + kCellMargin;
}

void TDBGrid::setKeptInView(const QString& field, const QStringList& nameFields) {
  keptField_ = field;
  nameFields_ = nameFields;
  horizontalHeader()->setDefaultAlignment(Qt::AlignCenter | Qt::Alignment(Qt::TextWordWrap));
}

// The width at which a caption takes two lines.
int TDBGrid::headingWidth(int column) const {
  const QString& caption = columns_[column].caption;
  const auto known = headings_.constFind(caption);
  if (known != headings_.constEnd()) return *known;
  const auto fits = [this, &caption](int width) {
    const QRect room =
        fontMetrics().boundingRect(QRect(0, 0, width, kHeadingMargin), Qt::TextWordWrap, caption);
    return room.width() <= width && room.height() <= 2 * fontMetrics().lineSpacing();
  };
  const int whole = fontMetrics().horizontalAdvance(caption);
  int width = whole / 2;
  while (width < whole && !fits(width)) ++width;
  return headings_[caption] = width + kHeadingMargin;
}

// As narrow as cells and footer allow, with the heading on two lines.
int TDBGrid::leastWidth(int column) const {
  const bool isText = columns_[column].format == CellFormat::Text;
  const int typed = isText ? fontMetrics().averageCharWidth() * kShortestText : 0;
  return std::min(naturalWidth(column),
                  std::max({headingWidth(column), std::max(widest_.value(column), typed) + kCellMargin,
                            footerWidth(column)}));
}

// The widest cell seen so far counts, or columns would change their width while the user scrolls.
void TDBGrid::measureCells() {
  const int first = std::max(0, rowAt(0));
  const int last =
      std::min(model()->rowCount() - 1,
               first + viewport()->height() / std::max(1, verticalHeader()->defaultSectionSize()));
  for (const int column : visibleColumns())
    for (int row = first; row <= last; ++row) {
      const QString text = model()->index(row, column).data(Qt::DisplayRole).toString();
      widest_[column] = std::max(widest_.value(column), fontMetrics().horizontalAdvance(text));
    }
}

void TDBGrid::keepInView() {
  if (hasLook_ || nameFields_.isEmpty() || !isVisible()) return;
  measureCells();
  const int character = fontMetrics().averageCharWidth();
  QList<int> names, others;
  int natural = 0;
  int least = 0;
  int readable = 0;  // the names
  int naturalOfNames = 0;
  for (const int column : visibleColumns()) {
    if (nameFields_.contains(columns_[column].field, Qt::CaseInsensitive)) {
      names.append(column);
      naturalOfNames += naturalWidth(column);
      readable += std::min(naturalWidth(column), character * kReadableName);
    } else {
      others.append(column);
      natural += naturalWidth(column);
      least += leastWidth(column);
    }
    if (columns_[column].field == keptField_) break;
  }
  if (names.isEmpty()) return;
  const int missing = std::clamp(natural + readable - viewport()->width(), 0, natural - least);
  const QScopedValueRollback<bool> setting(settingWidths_, true);
  int left = viewport()->width();
  bool wraps = false;
  const auto place = [this, &wraps](int column, int width) {
    wraps = wraps || width < fontMetrics().horizontalAdvance(columns_[column].caption) + kHeadingMargin;
    setColumnWidth(column, width);
  };
  for (const int column : others) {
    const int spare = naturalWidth(column) - leastWidth(column);
    const int width = naturalWidth(column) - (missing > 0 ? spare * missing / (natural - least) : 0);
    left -= width;
    place(column, width);
  }
  for (const int name : names) {
    const int share = left * naturalWidth(name) / std::max(1, naturalOfNames);
    const int whole = std::max(naturalWidth(name), widest_.value(name) + kCellMargin);
    const int width = std::clamp(share, character * kShortestText, whole);
    left -= width;
    naturalOfNames -= naturalWidth(name);
    place(name, width);
  }
  stretchLast();  // the last column takes what is left
  const int lines = wraps ? 2 * fontMetrics().lineSpacing() + kCellMargin : 0;
  if (horizontalHeader()->minimumHeight() == lines) return;
  horizontalHeader()->setMinimumHeight(lines);
  updateGeometries();
}

}  // namespace velmar
