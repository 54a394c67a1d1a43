// The layout of a report: the objects on its pages, as drawn in the designer. Layouts are project files
// (".lst") in the folder "lst"; lst/README.md describes the format.
#pragma once

#include <optional>
#include <QRectF>
#include <QString>
#include <variant>
#include <vector>

#include "util/Errors.h"

namespace velmar::layout {

/// A layout that cannot be used: invalid XML, an unknown element, a number out of range.
class LayoutError : public Error {
 public:
  LayoutError(const QString& text, int line, int column);
  int line() const { return line_; }      ///< in the file, from 1; 0 if unknown
  int column() const { return column_; }  ///< from 1

 private:
  int line_;
  int column_;
};

// All lengths are millimetres, the origin is the upper left corner of the sheet.

inline constexpr double kLargestSheet = 2000;
inline constexpr int kMostObjects = 2000;  ///< in a layout; also the maximum number of cells of a table

struct Page {
  double width = 210;
  double height = 297;
  double left = 15;
  double top = 10;
  double right = 10;
  double bottom = 10;
};

enum class Align { Left, Centre, Right };
enum class VerticalAlign { Top, Middle, Bottom };

struct Font {
  QString family = QStringLiteral("DejaVu Sans");
  double points = 9;
  bool bold = false;
  bool italic = false;
  bool underlined = false;
};

/// How the value of a formula is converted to text.
enum class Format {
  Text,    ///< unchanged: numbers with all their decimals, dates as dd.MM.yyyy
  Number,  ///< Romanian format ("1.234,50") with `decimals`
  Price,   ///< a number with the company's decimals of prices
  Date     ///< by `pattern` ("dd.MM.yyyy")
};

struct TextStyle {
  Font font;
  QString colour = QStringLiteral("#000000");
  Align align = Align::Left;
  VerticalAlign vertical = VerticalAlign::Top;
  bool wraps = false;  ///< wraps to further lines; in a table the row grows
  Format format = Format::Text;
  int decimals = 2;        ///< 0 to 9
  bool hidesZero = false;  ///< the number 0 is printed as an empty text
  QString pattern = QStringLiteral("dd.MM.yyyy");
};

struct Text {
  QString formula;  ///< the text; see Formula.h
  TextStyle style;
};

/// From the upper left to the lower right corner of the object's frame, or from the lower left to the upper
/// right one.
struct Line {
  double pen = 0.2;
  QString colour = QStringLiteral("#000000");
  bool rising = false;
};

struct Box {
  double pen = 0.2;  ///< 0: no line
  QString colour = QStringLiteral("#000000");
  QString fill;  ///< empty: none
  double radius = 0;
};

struct Picture {
  QString file;  ///< formula of the path, which may be relative to the layout's folder
  bool keepsRatio = true;
};

enum class BarCodeType { Code128, Ean13 };

struct BarCode {
  BarCodeType type = BarCodeType::Code128;
  QString formula;
  bool showsText = true;
};

/// The scale of a curve.
struct CurveAxes {
  double leastX = 0, mostX = 100, stepX = 10;
  double leastY = 0, mostY = 100, stepY = 10;
  bool doubling = false;   ///< across, each step doubles the value
  bool growsDown = false;  ///< larger values are lower
};

enum class CurveMark { None, Circle, Cross, Dot };

/// A curve over the lines of the data. A line without a value across is left out, one without a value
/// upwards is a gap; a value beyond the scale is drawn at its end.
struct Curve {
  QString x, y;  ///< formulas over the fields of a line
  CurveAxes axes;
  CurveMark mark = CurveMark::Circle;
  QString colour = QStringLiteral("#000000");
  double pen = 0.4;
  double points = 7;  ///< size of the numbers at the axes
};

/// Lines around a cell.
struct Borders {
  bool left = false;
  bool top = false;
  bool right = false;
  bool bottom = false;
};

struct Cell {
  double width = 20;
  QString formula;
  TextStyle style;
  Borders borders;
  QString fill;  ///< empty: none
};

enum class RowRole {
  Header,       ///< at the top of the table on each page
  Brought,      ///< below the header from the second page on: the sums of the previous pages
  GroupHeader,  ///< before the first line of a group
  Line,         ///< for each row of the data
  GroupFooter,  ///< after the last line of a group
  Carried,      ///< at the end of the table on each page but the last
  Total         ///< after the last line
};

struct TableRow {
  RowRole role = RowRole::Line;
  int group = 0;      ///< of a group's row: the index of its group in Table::groups
  QString condition;  ///< formula; the row is omitted if it is false, 0 or empty
  double height = 5;  ///< minimum; a row grows with its wrapped texts
  std::vector<Cell> cells;
};

/// A sum over the lines so far. Formulas use its name in the rows of the table (in a Carried row the sum up
/// to this page, in a Brought row that of the previous pages) and in objects of the last page.
struct Sum {
  QString name;
  QString formula;  ///< a number for each line
  /// Where it is reset: -1 never, else at each new group of that index in Table::groups.
  int group = -1;
};

/// The lines of the data, on as many pages as needed. The frame is the same on each page.
struct Table {
  std::vector<QString> groups;  ///< formulas, outermost first; a group ends when its value changes
  std::vector<Sum> sums;
  std::vector<TableRow> rows;
  double pen = 0.2;  ///< width of the cells' borders
  QString colour = QStringLiteral("#000000");
  bool fillsDown = false;  ///< the Line row's side borders extend to the lower end of the frame
  /// mm by which the frame is longer in page groups for which `extendsIf`, a formula over the variables, is
  /// true; edges of objects at its lower end or below move down as much.
  double extension = 0;
  QString extendsIf;
};

/// The pages that show an object. Each page group has its own first and last page.
enum class Pages { All, First, Following, Last };

struct Object {
  QString name;
  QRectF frame;
  QString condition;  ///< formula; empty: always
  Pages pages = Pages::All;
  std::variant<Text, Line, Box, Picture, BarCode, Curve, Table> content;
};

/// A sheet of labels. The page of the layout is one label, each page group is one label.
struct Labels {
  double sheetWidth = 210;
  double sheetHeight = 297;
  double sheetLeft = 0;  ///< of the first label on the sheet
  double sheetTop = 0;
  int columns = 1;
  int rows = 1;
  double gapX = 0;  ///< between neighbours
  double gapY = 0;
};

/// Contains at most one table.
struct Layout {
  QString title;
  Page page;
  std::optional<Labels> labels;  ///< if not set, the page is the sheet
  std::vector<Object> objects;   ///< in drawing order

  const Table* table() const;  ///< nullptr when there is none
};

/// Throws LayoutError.
Layout read(const QByteArray& xml);
QByteArray write(const Layout& layout);

/// Throws LayoutError, or StoreError when the file cannot be read.
Layout load(const QString& path);
/// Writes the file atomically. Throws StoreError when it cannot be written.
void save(const QString& path, const Layout& layout);

}  // namespace velmar::layout
