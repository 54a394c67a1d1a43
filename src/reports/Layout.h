// The layout of a report: what stands where on its pages, as the user draws it in the designer. Layouts are
// project files (".lst") in the folder "lst"; lst/README.md describes the format.
#pragma once

#include <QRectF>
#include <QString>
#include <variant>
#include <vector>

#include "util/Errors.h"

namespace velmar::layout {

/// A layout that cannot be used: damaged XML, an unknown element, a number out of its range.
class LayoutError : public Error {
 public:
  LayoutError(const QString& text, int line, int column);
  int line() const { return line_; }      ///< of the file, from 1; 0 when no place is known
  int column() const { return column_; }  ///< from 1

 private:
  int line_;
  int column_;
};

// All lengths are millimetres, the origin is the upper left corner of the sheet.

inline constexpr double kLargestSheet = 2000;
inline constexpr int kMostObjects = 2000;  ///< of a layout; as many cells of a table

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

/// How the value of a formula becomes text.
enum class Format {
  Text,    ///< as it is: numbers with the decimals they have, dates as dd.MM.yyyy
  Number,  ///< in the Romanian way ("1.234,50") with `decimals`
  Price,   ///< a number with the decimals that prices of the company have
  Date     ///< by `pattern` ("dd.MM.yyyy")
};

struct TextStyle {
  Font font;
  QString colour = QStringLiteral("#000000");
  Align align = Align::Left;
  VerticalAlign vertical = VerticalAlign::Top;
  bool wraps = false;  ///< onto further lines; in a table the row grows
  Format format = Format::Text;
  int decimals = 2;        ///< 0 to 9
  bool hidesZero = false;  ///< a number that is 0 prints empty
  QString pattern = QStringLiteral("dd.MM.yyyy");
};

struct Text {
  QString formula;  ///< gives the text; "Formula.h" tells what it may say
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
  QString file;  ///< formula that gives a path; a relative one starts at the layout's folder
  bool keepsRatio = true;
};

enum class BarCodeType { Code128, Ean13 };

struct BarCode {
  BarCodeType type = BarCodeType::Code128;
  QString formula;
  bool showsText = true;
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
  Header,       ///< at the top of the table on every page
  Brought,      ///< below the header from the second page on: what the pages before had
  GroupHeader,  ///< before the first line of a group
  Line,         ///< for each row of the data
  GroupFooter,  ///< behind the last line of a group
  Carried,      ///< at the end of the table on every page but the last
  Total         ///< behind the last line
};

struct TableRow {
  RowRole role = RowRole::Line;
  int group = 0;      ///< of a group's row: the place of its group in Table::groups
  QString condition;  ///< formula; the row is left out where it gives false, 0 or nothing
  double height = 5;  ///< at least; a row grows with its wrapped texts
  std::vector<Cell> cells;
};

/// A sum over the lines so far; formulas speak of it by its name, in the rows of the table (on a Carried row
/// what has been printed so far, on a Brought row what the pages before had) and in objects of the last page.
struct Sum {
  QString name;
  QString formula;  ///< gives a number for each line
  /// Where it starts anew: -1 never, else with each new group of that place in Table::groups.
  int group = -1;
};

/// The lines of the data, over as many pages as they need. The frame is the same on every page.
struct Table {
  std::vector<QString> groups;  ///< formulas, the outermost first; a group ends when its value changes
  std::vector<Sum> sums;
  std::vector<TableRow> rows;
  double pen = 0.2;  ///< of the cells' borders
  QString colour = QStringLiteral("#000000");
  bool fillsDown = false;  ///< the Line row's borders at the sides run on to the lower end of the frame
  /// mm by which the frame is longer in page groups for which `extendsIf`, a formula over the variables, is
  /// true; edges of objects at its lower end or below move down as much.
  double extension = 0;
  QString extendsIf;
};

/// On which pages an object stands. With several page groups each has its own first and last.
enum class Pages { All, First, Following, Last };

struct Object {
  QString name;
  QRectF frame;
  QString condition;  ///< formula; empty: always
  Pages pages = Pages::All;
  std::variant<Text, Line, Box, Picture, BarCode, Table> content;
};

/// What a layout holds at most one table of.
struct Layout {
  QString title;
  Page page;
  std::vector<Object> objects;  ///< in the order in which they are drawn

  const Table* table() const;  ///< nullptr when there is none
};

/// Throws LayoutError.
Layout read(const QByteArray& xml);
QByteArray write(const Layout& layout);

/// Throws LayoutError, or StoreError when the file cannot be read.
Layout load(const QString& path);
/// Writes the file whole or not at all. Throws StoreError when it cannot be written.
void save(const QString& path, const Layout& layout);

}  // namespace velmar::layout
