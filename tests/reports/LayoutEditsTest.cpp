// Editing of layouts: the grid, the sheet's edges, aligned columns, undo steps; and the typed values of
// properties.
#include "reports/LayoutEdits.h"

#include <gtest/gtest.h>

#include "reports/LayoutFaults.h"
#include "reports/LayoutProperties.h"

namespace velmar::layout {
namespace {

const Grid kGrid = {5, true};

Layout withTexts(const std::vector<QRectF>& frames) {
  Layout layout;
  for (const QRectF& frame : frames)
    layout.objects.push_back({QString(), frame, QString(), Pages::All, Text{QStringLiteral("CLIENT"), {}}});
  return layout;
}

Parts all(const Layout& layout) {
  Parts parts;
  for (int i = 0; i < static_cast<int>(layout.objects.size()); ++i) parts.push_back({i, -1, -1});
  return parts;
}

QRectF frame(const Layout& layout, int object) {
  return layout.objects.at(static_cast<size_t>(object)).frame;
}

QString refusal(const std::function<void()>& work) {
  try {
    work();
  } catch (const RuleError& error) {
    return error.text();
  }
  return {};
}

std::vector<double> widths(const Layout& layout, size_t row) {
  std::vector<double> found;
  for (const Cell& cell : layout.table()->rows.at(row).cells) found.push_back(cell.width);
  return found;
}

TEST(LayoutEdits, MovesSnapToTheGridAndRemainOnTheSheet) {
  // The first one's corner snaps to the grid, the second keeps its distance: 13.2 + 4 = 17.2, so 15.
  Layout layout = withTexts({QRectF(13.2, 21, 30, 5), QRectF(20.7, 40, 30, 5)});
  move(layout, all(layout), {4, 0}, kGrid);
  EXPECT_EQ(frame(layout, 0), QRectF(15, 21, 30, 5));  // not moved downwards: no snap there
  EXPECT_EQ(frame(layout, 1), QRectF(22.5, 40, 30, 5));

  // A first step goes to the next line, however near; fine steps and a missing grid ignore lines.
  nudge(layout, {{1, -1, -1}}, 1, -1, false, kGrid);
  EXPECT_EQ(frame(layout, 1), QRectF(25, 35, 30, 5));
  nudge(layout, {{1, -1, -1}}, -1, 0, true, kGrid);
  EXPECT_EQ(frame(layout, 1), QRectF(24.9, 35, 30, 5));
  nudge(layout, {{1, -1, -1}}, -1, 0, false, {5, false});
  EXPECT_EQ(frame(layout, 1), QRectF(19.9, 35, 30, 5));

  // Both stop when the first of them reaches the edge of 210 x 297.
  move(layout, all(layout), {500, 500}, kGrid);
  EXPECT_EQ(frame(layout, 1).right(), 210);
  EXPECT_EQ(frame(layout, 0).right(), 210 - 4.9);
  EXPECT_EQ(frame(layout, 1).bottom(), 297);
  // One that is outside in the file can only be moved closer.
  layout = withTexts({QRectF(-20, 290, 30, 15)});
  move(layout, all(layout), {-10, 10}, {1, true});
  EXPECT_EQ(frame(layout, 0), QRectF(-20, 290, 30, 15));
  move(layout, all(layout), {8, -4}, {1, true});
  EXPECT_EQ(frame(layout, 0), QRectF(-12, 286, 30, 15));
}

TEST(LayoutEdits, SidesAreNotDraggedBeyondTheOppositeSide) {
  Layout layout = withTexts({QRectF(20, 20, 30, 10)});
  const Part part = {0, -1, -1};
  size(layout, part, kLeftSide | kTopSide, {-3, 4}, kGrid);  // 17 to 15, 24 to 25
  EXPECT_EQ(frame(layout, 0), QRectF(15, 25, 35, 5));
  size(layout, part, kLeftSide, {100, 0}, kGrid);
  EXPECT_EQ(frame(layout, 0), QRectF(49, 25, 1, 5));
  size(layout, part, kRightSide | kBottomSide, {400, 1}, kGrid);
  EXPECT_EQ(frame(layout, 0), QRectF(49, 25, 161, 5));
  nudgeSize(layout, {part}, -1, 1, false, kGrid);  // 210 to 205, 30 to 35
  EXPECT_EQ(frame(layout, 0), QRectF(49, 25, 156, 10));

  // A line may be flat and drawn in any direction.
  const Part line = add(layout, Kind::Line, drawnFrame({80.4, 60.2}, {22.6, 60.4}, {1, true}));
  EXPECT_EQ(frame(layout, line.object), QRectF(23, 60, 57, 0));
  size(layout, line, kBottomSide, {0, -50}, kGrid);
  EXPECT_EQ(frame(layout, line.object).height(), 0);
}

TEST(LayoutEdits, ObjectsAreAlignedWithTheFirst) {
  const std::vector<QRectF> frames = {QRectF(50, 50, 40, 10), QRectF(10, 80, 21, 7), QRectF(200, 5, 10, 30)};
  const auto arranged = [&frames](Alignment alignment) {
    Layout layout = withTexts(frames);
    align(layout, all(layout), alignment);
    return std::pair(frame(layout, 1).topLeft(), frame(layout, 2).topLeft());
  };
  EXPECT_EQ(arranged(Alignment::Left), std::pair(QPointF(50, 80), QPointF(50, 5)));
  EXPECT_EQ(arranged(Alignment::Right), std::pair(QPointF(69, 80), QPointF(80, 5)));
  EXPECT_EQ(arranged(Alignment::Top), std::pair(QPointF(10, 50), QPointF(200, 50)));
  EXPECT_EQ(arranged(Alignment::Bottom), std::pair(QPointF(10, 53), QPointF(200, 30)));
  EXPECT_EQ(arranged(Alignment::Centre), std::pair(QPointF(59.5, 80), QPointF(65, 5)));
  EXPECT_EQ(arranged(Alignment::Middle), std::pair(QPointF(10, 51.5), QPointF(200, 40)));

  Layout layout = withTexts(frames);
  equalise(layout, all(layout), true);
  EXPECT_EQ(frame(layout, 2), QRectF(170, 5, 40, 30));  // at the edge it grows to the left
  EXPECT_EQ(reorder(layout, {{0, -1, -1}}, true), Parts({{2, -1, -1}}));
  EXPECT_EQ(frame(layout, 2), frames[0]);
}

TEST(LayoutEdits, ColumnsOfATableRemainAligned) {
  Layout layout;
  const Part table = add(layout, Kind::Table, QRectF(10, 100, 60, 50));
  const clsFieldVarDescription amount = {"CANT", LLTip::Number, {}};
  // After the other if the right half of its cell was hit, each 25 wide, the third with the remaining width.
  addName(layout, {"DENUMIRE", LLTip::Text, {}}, {12, 107});
  addName(layout, amount, {30, 107});
  addName(layout, {"DATA", LLTip::Date, {}}, {11, 107});
  EXPECT_EQ(widths(layout, 0), std::vector<double>({10, 25, 25}));
  EXPECT_EQ(widths(layout, 1), std::vector<double>({10, 25, 25}));
  const std::vector<Cell>& line = layout.table()->rows[1].cells;
  EXPECT_EQ(QStringList({line[0].formula, line[1].formula, line[2].formula}),
            QStringList({"DATA", "DENUMIRE", "CANT"}));
  EXPECT_EQ(line[0].style.format, Format::Date);
  EXPECT_EQ(line[2].style.align, Align::Right);

  // A total goes after the lines whatever precedes; a group's header before them.
  EXPECT_EQ(addRow(layout, table, RowRole::Total), (Part{0, 2, -1}));
  EXPECT_EQ(addRow(layout, table, RowRole::GroupHeader), (Part{0, 1, -1}));
  size(layout, {0, 2, 1}, kRightSide, {8, 0}, {1, true});
  for (size_t row = 0; row < 4; ++row) EXPECT_EQ(widths(layout, row), std::vector<double>({10, 33, 25}));
  // Cells of the same column that are selected together grow once.
  nudgeSize(layout, {{0, 0, 1}, {0, 2, 1}}, 1, 0, false, {1, true});
  EXPECT_EQ(widths(layout, 3), std::vector<double>({10, 34, 25}));
  EXPECT_EQ(partAt(layout, {21, 112}, 0, true), (Part{0, 2, 1}));
  EXPECT_EQ(neighbour(layout, {0, 2, 1}, 1, -2), (Part{0, 0, 2}));

  EXPECT_EQ(remove(layout, {{0, 2, 1}}), Parts({{0, 2, 1}}));
  EXPECT_EQ(widths(layout, 2), std::vector<double>({10, 25}));
  EXPECT_EQ(widths(layout, 3), std::vector<double>({10, 34, 25}));
  EXPECT_EQ(refusal([&] { add(layout, Kind::Table, {}); }),
            "Raportul are deja un tabel. Un raport poate avea numai unul.");
  const QByteArray copy = copied(layout, {table});
  EXPECT_NE(refusal([&] { paste(layout, copy); }), QString());
  EXPECT_EQ(layout.objects.size(), 1U);
  EXPECT_EQ(refusal([&] { paste(layout, "Buna ziua"); }), "Nu este copiat niciun obiect de raport.");
}

TEST(LayoutEdits, StepsOfOneMovementAreUndoneTogether) {
  State state = {std::make_shared<Layout>(withTexts({QRectF(20, 20, 30, 5), QRectF(20, 40, 30, 5)})),
                 {{0, -1, -1}}};
  const auto step = [&state](int right) {
    return edited(state, "Mutare", "move", [&state, right](Layout& layout) {
      nudge(layout, state.chosen, right, 0, false, kGrid);
      return state.chosen;
    });
  };
  Edit first = *step(1);
  state = first.after;
  const Edit second = *step(1);
  EXPECT_TRUE(join(first, second));
  EXPECT_EQ(frame(*first.before.layout, 0).left(), 20);
  EXPECT_EQ(frame(*first.after.layout, 0).left(), 30);
  // The move of another object is a separate step, and so is one after an undone step.
  state = first.after;
  state.chosen = {{1, -1, -1}};
  EXPECT_FALSE(join(first, *step(1)));
  state = first.before;
  EXPECT_FALSE(join(first, *step(1)));
  // At the sheet's edge nothing changes and there is nothing to undo.
  for (int i = 0; i < 100; ++i)
    if (const auto edit = step(-1)) state = edit->after;
  EXPECT_EQ(frame(*state.layout, 0).left(), 0);
  EXPECT_FALSE(step(-1));
}

TEST(LayoutProperties, TypedValuesAreAcceptedOrRefusedCompletely) {
  Layout layout = withTexts({QRectF(20, 20, 30, 5), QRectF(20, 40, 30, 5)});
  add(layout, Kind::Box, QRectF(5, 5, 100, 20));
  const Parts texts = {{0, -1, -1}, {1, -1, -1}};
  setProperty(layout, texts, "points", " 12.5 ");
  setProperty(layout, texts, "align", "la d");
  setProperty(layout, texts, "bold", "DA");
  setProperty(layout, texts, "colour", "#c00000");
  setProperty(layout, {texts[1]}, "formula", "NRFAC");
  const TextStyle& style = std::get<Text>(layout.objects[1].content).style;
  EXPECT_EQ(style.font.points, 12.5);
  EXPECT_EQ(style.align, Align::Right);
  EXPECT_TRUE(style.font.bold);
  EXPECT_EQ(style.colour, "#C00000");

  const QByteArray before = write(layout);
  EXPECT_EQ(refusal([&] { setProperty(layout, texts, "decimals", "10"); }),
            "\"Zecimale\" trebuie sa fie un numar intre 0 si 9.");
  EXPECT_EQ(refusal([&] { setProperty(layout, texts, "decimals", "1,5"); }),
            "\"Zecimale\" trebuie sa fie un numar intreg.");
  EXPECT_EQ(refusal([&] { setProperty(layout, texts, "align", "la"); }),
            "\"Aliniere\" poate fi: la stanga, la mijloc, la dreapta.");
  EXPECT_NE(refusal([&] { setProperty(layout, texts, "colour", "rosu"); }), QString());
  EXPECT_NE(refusal([&] { setProperty(layout, texts, "formula", QString(QChar(1))); }), QString());
  EXPECT_EQ(write(layout), before);

  // For a text and a box only the properties that both have, empty where the values differ.
  const std::vector<Property> common = propertiesOf(layout, all(layout));
  const auto find = [&common](const QString& name) {
    const auto found =
        std::find_if(common.begin(), common.end(), [&](const Property& p) { return p.name == name; });
    return found == common.end() ? nullptr : &*found;
  };
  EXPECT_EQ(find("formula"), nullptr);
  EXPECT_EQ(find("pages")->value, "toate");
  EXPECT_EQ(find("x")->value, "");
}

TEST(LayoutProperties, GroupsAndSumsAreTypedOnePerLine) {
  Layout layout;
  const Parts table = {add(layout, Kind::Table, {})};
  setProperty(layout, table, "groups.0", "GESTIUNE");
  setProperty(layout, table, "groups.1", "CODTVA");
  setProperty(layout, table, "sums.0", "TOTAL = CANT * PRET");
  setProperty(layout, table, "sums.1", "PETVA [2] = VALOARE");
  const Part footer = addRow(layout, table[0], RowRole::GroupFooter);
  setProperty(layout, {footer}, "group", "2");
  EXPECT_EQ(layout.table()->sums[1].group, 1);
  EXPECT_EQ(textOf(layout.table()->sums[1]), "PETVA [2] = VALOARE");
  EXPECT_NE(refusal([&] { setProperty(layout, table, "sums.0", "CANT * PRET"); }), QString());
  // The first group is deleted: the rows and sums of the next group follow it.
  setProperty(layout, table, "groups.0", "");
  EXPECT_EQ(layout.table()->groups, std::vector<QString>({"CODTVA"}));
  EXPECT_EQ(layout.table()->sums[1].group, 0);
  EXPECT_EQ(layout.table()->rows[static_cast<size_t>(footer.row)].group, 0);
  setProperty(layout, table, "sums.0", "");
  EXPECT_EQ(layout.table()->sums.size(), 1U);
}

TEST(LayoutFaults, EachFaultIsReportedWithItsPosition) {
  Layout layout = withTexts({QRectF(20, 20, 30, 5), QRectF(190, 20, 30, 5)});
  const Part table = add(layout, Kind::Table, QRectF(10, 100, 50, 50));
  setProperty(layout, {table}, "sums.0", "TOTAL [3] = CANT + CANTT");
  addNameAt(layout, {"CANT", LLTip::Number, {}}, table, false);
  setProperty(layout, {{2, 1, 0}}, "width", "60");
  setProperty(layout, {{0, -1, -1}}, "formula", "total + nPagina + client");
  setProperty(layout, {{0, -1, -1}}, "condition", "1 +");
  const KnownNames names(layout, {{"CLIENT", LLTip::Text, {}}}, {{"CANT", LLTip::Number, {}}});
  QStringList texts;
  for (const Fault& fault : faultsOf(layout, names)) texts.append(textOf(layout, fault));
  ASSERT_EQ(texts.size(), 5) << qUtf8Printable(texts.join("\n"));
  EXPECT_TRUE(texts[0].startsWith("Text 1, Conditie")) << qUtf8Printable(texts[0]);
  EXPECT_EQ(texts[1], "Text 2: Iese din foaie");
  // "TOTAL [3] = CANT + CANTT": the column in the sum as it is typed.
  EXPECT_EQ(texts[2], "Tabel Tabel1, Suma 1, coloana 20: Numele CANTT nu este definit");
  EXPECT_EQ(texts[3], "Tabel Tabel1, Suma 1: Tabelul nu are grupa 3");
  // A typed width applies to the one cell: the header still fits.
  EXPECT_TRUE(texts[4].endsWith("rand 2 (Linie): Celulele sunt impreuna mai late decat tabelul"));
  EXPECT_EQ(placeIn("ab\ncde\nf", 2, 3), 5);
  EXPECT_EQ(placeIn("ab\ncde\nf", 2, 9), 6);
  EXPECT_EQ(placeIn("ab\ncde\nf", 9, 9), 8);
}

}  // namespace
}  // namespace velmar::layout
