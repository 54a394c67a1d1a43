// A layout with one of everything, and a function that damages its file.
#pragma once

#include <random>

#include "reports/Layout.h"

namespace velmar::layout {

inline Cell cellOf(double width, const QString& formula, bool wraps = false) {
  Cell cell;
  cell.width = width;
  cell.formula = formula;
  cell.style.wraps = wraps;
  cell.borders = {true, true, true, true};
  return cell;
}

inline TableRow rowOf(RowRole role, const std::vector<Cell>& cells, int group = 0) {
  TableRow row;
  row.role = role;
  row.group = group;
  row.cells = cells;
  return row;
}

template <typename Content>
Object objectOf(const QString& name, const QRectF& frame, const Content& content, Pages pages = Pages::All) {
  return {name, frame, {}, pages, content};
}

/// An invoice on A4: its table is 150 mm high.
inline Layout fullLayout() {
  Text title{"\"Factura \" + NUMFAC + \" & anexe\"", {}};
  title.style.font = {"DejaVu Serif", 14, true, true, true};
  title.style.colour = "#204080";
  Text date{"DATAFAC", {}};
  date.style.format = Format::Date;
  date.style.align = Align::Right;
  date.style.vertical = VerticalAlign::Bottom;
  Table table;
  table.groups = {"GRUPA"};
  table.sums = {{"TotalValoare", "CANT * PRET", -1}, {"TotalGrupa", "CANT * PRET", 0}};
  table.fillsDown = true;
  table.extension = 30;
  table.extendsIf = "!NUMFAC";
  Cell amount = cellOf(30, "CANT * PRET");
  amount.style.format = Format::Number;
  amount.style.align = Align::Right;
  Cell total = amount;
  total.formula = "TotalValoare";
  total.style.font.bold = true;
  total.fill = "#e8e8e8";
  table.rows = {rowOf(RowRole::Header,
                      {cellOf(12, "\"Nr.\""), cellOf(80, "\"Denumirea\""), cellOf(30, "\"Valoarea\"")}),
                rowOf(RowRole::Brought, {cellOf(92, "\"Report\""), total}),
                rowOf(RowRole::GroupHeader, {cellOf(122, "\"Grupa \" + GRUPA")}),
                rowOf(RowRole::Line,
                      {cellOf(12, "nLinie"), cellOf(80, "DENUMIRE + \" <\" + COD + \">\"", true), amount}),
                rowOf(RowRole::GroupFooter, {cellOf(92, "\"Total \" + GRUPA"), amount}),
                rowOf(RowRole::Carried, {cellOf(92, "\"De reportat\""), total}),
                rowOf(RowRole::Total, {cellOf(92, "\"Total\""), total})};
  table.rows[4].cells[1].formula = "TotalGrupa";
  Layout made;
  made.title = "Factura";
  made.objects = {
      objectOf("Titlu", QRectF(15, 10, 90, 6), title),
      objectOf("Data", QRectF(150, 10, 50, 6), date),
      objectOf("Linie", QRectF(15, 18, 185, 0), Line{0.5, "#ff0000", false}),
      objectOf("Chenar", QRectF(15, 22, 60, 20), Box{0.3, "#000000", "#f0f0ff", 2}),
      objectOf("Sigla", QRectF(80, 22, 30, 20), Picture{"\"sigla.png\"", true}),
      objectOf("Cod", QRectF(120, 22, 60, 15), BarCode{BarCodeType::Code128, "NUMFAC", true}),
      objectOf(
          "Curba", QRectF(150, 60, 40, 30),
          Curve{"LINIE", "CANT", {1, 64, 1, -10, 20, 5, true, true}, CurveMark::Cross, "#0000FF", 0.3, 6}),
      objectOf("Ean", QRectF(120, 40, 60, 15), BarCode{BarCodeType::Ean13, "\"594123456789\"", true},
               Pages::First),
      objectOf("Linii", QRectF(15, 60, 122, 150), table),
      objectOf("Pagina", QRectF(15, 285, 100, 5), Text{"\"Pagina \" + nPagina + \" din \" + nPagini", {}})};
  made.objects[3].condition = "NUMFAC > 0";
  return made;
}

/// Changes, loses, doubles and moves bytes, makes numbers huge and truncates the end, up to three times.
inline QByteArray damaged(QByteArray xml, std::mt19937& random) {
  const auto below = [&random](qsizetype limit) {
    return static_cast<qsizetype>(random() % static_cast<std::uint32_t>(std::max<qsizetype>(1, limit)));
  };
  static const QByteArrayList kPieces = {
      "\"", "<", ">",  "&",    "/>",   "<table>", "</report>", "1e308",  "-1", "nan", "yes", "99999", "'",
      "(",  ")", "\0", "\xff", "&#0;", "&lt;",    "<cell/>",   "height", "0",  " ",   "]]>", "<!--"};
  for (qsizetype round = 1 + below(3); round > 0; --round) {
    const qsizetype at = below(xml.size());
    switch (below(7)) {
      case 0:
        xml[at] = static_cast<char>(below(256));
        break;
      case 1:
        xml.remove(at, 1 + below(20));
        break;
      case 2:
        xml.insert(at, xml.mid(below(xml.size()), 1 + below(200)));
        break;
      case 3:
        xml.insert(at, kPieces[below(kPieces.size())]);
        break;
      case 4:
        xml.truncate(at);
        break;
      default: {  // another value for an attribute keeps the file well formed
        const qsizetype from = xml.indexOf("=\"", at);
        const qsizetype end = from < 0 ? -1 : xml.indexOf('"', from + 2);
        if (end > 0) xml.replace(from + 2, end - from - 2, kPieces[7 + below(8)]);
        break;
      }
    }
  }
  return xml;
}

}  // namespace velmar::layout
