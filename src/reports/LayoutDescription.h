// Describes the parts of a layout: name, kind and range of each of their members, passed to an "archive" that
// reads, writes, displays or changes them.
#pragma once

#include <array>
#include <utility>
#include <vector>

#include "reports/Layout.h"

namespace velmar::layout {

template <typename Enum>
using Choices = std::vector<std::pair<Enum, const char*>>;

inline const Choices<Align> kAligns = {
    {Align::Left, "left"}, {Align::Centre, "centre"}, {Align::Right, "right"}};
inline const Choices<VerticalAlign> kVerticalAligns = {
    {VerticalAlign::Top, "top"}, {VerticalAlign::Middle, "middle"}, {VerticalAlign::Bottom, "bottom"}};
inline const Choices<Format> kFormats = {
    {Format::Text, "text"}, {Format::Number, "number"}, {Format::Price, "price"}, {Format::Date, "date"}};
inline const Choices<BarCodeType> kBarCodes = {{BarCodeType::Code128, "code128"},
                                               {BarCodeType::Ean13, "ean13"}};
inline const Choices<CurveMark> kCurveMarks = {{CurveMark::None, "none"},
                                               {CurveMark::Circle, "circle"},
                                               {CurveMark::Cross, "cross"},
                                               {CurveMark::Dot, "dot"}};
inline const Choices<Pages> kPages = {
    {Pages::All, "all"}, {Pages::First, "first"}, {Pages::Following, "following"}, {Pages::Last, "last"}};
inline const Choices<RowRole> kRoles = {
    {RowRole::Header, "header"}, {RowRole::Brought, "brought"},         {RowRole::GroupHeader, "groupHeader"},
    {RowRole::Line, "line"},     {RowRole::GroupFooter, "groupFooter"}, {RowRole::Carried, "carried"},
    {RowRole::Total, "total"}};

inline constexpr int kMostGroups = 8;
inline constexpr int kMostLabels = 100;  ///< beside or below each other
inline constexpr int kLongestText = 20000;

/// "#RRGGBB", or empty for none.
bool isColour(const QString& text);

/// The valid range of a number.
struct Range {
  double least;
  double most;
};

inline constexpr Range kLength = {0, kLargestSheet};
inline constexpr Range kPlace = {-kLargestSheet, kLargestSheet};
inline constexpr Range kPen = {0, 20};
inline constexpr Range kScale = {-1e9, 1e9};  // of a curve

// The members of each part, described once for all archives.

template <typename Archive>
void describe(Archive& archive, Page& page) {
  archive.field("width", page.width, {10, kLargestSheet});
  archive.field("height", page.height, {10, kLargestSheet});
  archive.field("left", page.left, kLength);
  archive.field("top", page.top, kLength);
  archive.field("right", page.right, kLength);
  archive.field("bottom", page.bottom, kLength);
}

template <typename Archive>
void describe(Archive& archive, Labels& labels) {
  archive.field("sheetWidth", labels.sheetWidth, {10, kLargestSheet});
  archive.field("sheetHeight", labels.sheetHeight, {10, kLargestSheet});
  archive.field("sheetLeft", labels.sheetLeft, kLength);
  archive.field("sheetTop", labels.sheetTop, kLength);
  archive.field("columns", labels.columns, {1, kMostLabels});
  archive.field("rows", labels.rows, {1, kMostLabels});
  archive.field("gapX", labels.gapX, kLength);
  archive.field("gapY", labels.gapY, kLength);
}

template <typename Archive>
void describe(Archive& archive, TextStyle& style) {
  archive.field("font", style.font.family);
  archive.field("points", style.font.points, {1, 500});
  archive.field("bold", style.font.bold);
  archive.field("italic", style.font.italic);
  archive.field("underlined", style.font.underlined);
  archive.colour("colour", style.colour);
  archive.field("align", style.align, kAligns);
  archive.field("vertical", style.vertical, kVerticalAligns);
  archive.field("wraps", style.wraps);
  archive.field("format", style.format, kFormats);
  archive.field("decimals", style.decimals, {0, 9});
  archive.field("hidesZero", style.hidesZero);
  archive.field("pattern", style.pattern);
}

template <typename Archive>
void describe(Archive& archive, Text& text) {
  archive.field("formula", text.formula);
  describe(archive, text.style);
}

template <typename Archive>
void describe(Archive& archive, Line& line) {
  archive.field("pen", line.pen, kPen);
  archive.colour("colour", line.colour);
  archive.field("rising", line.rising);
}

template <typename Archive>
void describe(Archive& archive, Box& box) {
  archive.field("pen", box.pen, kPen);
  archive.colour("colour", box.colour);
  archive.colour("fill", box.fill);
  archive.field("radius", box.radius, kLength);
}

template <typename Archive>
void describe(Archive& archive, Picture& picture) {
  archive.field("file", picture.file);
  archive.field("keepsRatio", picture.keepsRatio);
}

template <typename Archive>
void describe(Archive& archive, BarCode& code) {
  archive.field("type", code.type, kBarCodes);
  archive.field("formula", code.formula);
  archive.field("showsText", code.showsText);
}

template <typename Archive>
void describe(Archive& archive, Curve& curve) {
  archive.field("xValue", curve.x);
  archive.field("yValue", curve.y);
  archive.field("leastX", curve.axes.leastX, kScale);
  archive.field("mostX", curve.axes.mostX, kScale);
  archive.field("stepX", curve.axes.stepX, kScale);
  archive.field("doubling", curve.axes.doubling);
  archive.field("leastY", curve.axes.leastY, kScale);
  archive.field("mostY", curve.axes.mostY, kScale);
  archive.field("stepY", curve.axes.stepY, kScale);
  archive.field("growsDown", curve.axes.growsDown);
  archive.field("mark", curve.mark, kCurveMarks);
  archive.colour("colour", curve.colour);
  archive.field("pen", curve.pen, kPen);
  archive.field("points", curve.points, {1, 500});
}

template <typename Archive>
void describe(Archive& archive, Cell& cell) {
  archive.field("width", cell.width, {0.1, kLargestSheet});
  archive.field("formula", cell.formula);
  describe(archive, cell.style);
  archive.field("lineLeft", cell.borders.left);
  archive.field("lineTop", cell.borders.top);
  archive.field("lineRight", cell.borders.right);
  archive.field("lineBottom", cell.borders.bottom);
  archive.colour("fill", cell.fill);
}

template <typename Archive>
void describe(Archive& archive, TableRow& row) {
  archive.field("role", row.role, kRoles);
  archive.field("group", row.group, {0, kMostGroups - 1});
  archive.field("condition", row.condition);
  archive.field("height", row.height, {0.1, kLargestSheet});
}

template <typename Archive>
void describe(Archive& archive, Sum& sum) {
  archive.field("name", sum.name);
  archive.field("formula", sum.formula);
  archive.field("group", sum.group, {-1, kMostGroups - 1});
}

template <typename Archive>
void describe(Archive& archive, Table& table) {
  archive.field("pen", table.pen, kPen);
  archive.colour("colour", table.colour);
  archive.field("fillsDown", table.fillsDown);
  archive.field("extension", table.extension, kLength);
  archive.field("extendsIf", table.extendsIf);
}

/// The members common to all objects.
template <typename Archive>
void describeFrame(Archive& archive, Object& object, std::array<double, 4>& frame) {
  archive.field("name", object.name);
  archive.field("x", frame[0], kPlace);
  archive.field("y", frame[1], kPlace);
  archive.field("width", frame[2], kLength);
  archive.field("height", frame[3], kLength);
  archive.field("condition", object.condition);
  archive.field("pages", object.pages, kPages);
}

}  // namespace velmar::layout
