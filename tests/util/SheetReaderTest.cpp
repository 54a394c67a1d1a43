#include "util/SheetReader.h"

#include <gtest/gtest.h>
#include <bit>
#include <QFile>
#include <QTemporaryDir>

#include "util/Errors.h"
#include "Zipped.h"

namespace velmar {

namespace {

SheetTable readBytes(const QByteArray& bytes) {
  const QTemporaryDir folder;
  QFile file(folder.filePath("sheet"));
  EXPECT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(bytes);
  file.close();
  return readSheet(file.fileName());
}

QByteArray number(quint64 value, int bytes) {
  QByteArray text;
  for (int i = 0; i < bytes; ++i) text += static_cast<char>(i < 8 ? value >> (8 * i) : 0);
  return text;
}

QByteArray record(int kind, const QByteArray& content) {
  return number(static_cast<quint64>(kind), 2) + number(static_cast<quint64>(content.size()), 2) + content;
}

QByteArray place(int row, int column) {
  return number(static_cast<quint64>(row), 2) + number(static_cast<quint64>(column), 2) + number(0, 2);
}

QByteArray label(int column, const QByteArray& text) {
  return record(0x204, place(0, column) + number(static_cast<quint64>(text.size()), 2) + number(0, 1) + text);
}

QByteArray formula(int column, const QByteArray& result) {
  return record(0x06, place(1, column) + result + number(0, 8));
}

/// The second of two sheets has these cells, in a workbook of one stream within a container.
QByteArray xls(const QByteArray& cells) {
  const auto sheet = [](const QByteArray& within) {
    return record(0x809, number(0x100600, 4) + number(0, 12)) +
           record(0x200, number(0, 4) + number(2, 4) + number(0, 2) + number(9, 2) + number(0, 2)) + within +
           record(0x0A, {});
  };
  const QByteArray first = sheet(formula(0, number(std::bit_cast<quint64>(9.0), 8)));
  const auto globals = [](quint64 place, quint64 next) {
    return record(0x809, number(0x50600, 4) + number(0, 12)) + record(0x42, number(1200, 2)) +
           record(0x22, number(0, 2)) +
           record(0x85, number(place, 4) + number(0, 2) + QByteArray("\5\0Other", 7)) +
           record(0x85, number(next, 4) + number(0, 2) + QByteArray("\6\0Sheet1", 8)) + record(0x0A, {});
  };
  const auto start = static_cast<quint64>(globals(0, 0).size());
  const QByteArray stream =
      (globals(start, start + static_cast<quint64>(first.size())) + first + sheet(cells))
          .leftJustified(4096, '\0');
  QByteArray header = QByteArray::fromHex("d0cf11e0a1b11ae1") + QByteArray(16, '\0') +
                      QByteArray::fromHex("3e000300feff09000600") + QByteArray(10, '\0') + number(1, 4) +
                      number(8, 4) + number(0, 4) + number(4096, 4) + number(0xFFFFFFFE, 4) + number(0, 4) +
                      number(0xFFFFFFFE, 4) + number(0, 4) + number(9, 4);
  QByteArray table;
  for (quint64 sector = 1; sector < 8; ++sector) table += number(sector, 4);
  table += number(0xFFFFFFFE, 4) + number(0xFFFFFFFE, 4) + number(0xFFFFFFFD, 4);
  const auto entry = [](const QString& name, quint64 kind, quint64 child, quint64 at, quint64 size) {
    QByteArray text(reinterpret_cast<const char*>(name.utf16()), name.size() * 2 + 2);
    return text.leftJustified(64, '\0') + number(static_cast<quint64>(text.size()), 2) + number(kind, 1) +
           number(1, 1) + number(0xFFFFFFFFFFFFFFFF, 8) + number(child, 4) + QByteArray(36, '\0') +
           number(at, 4) + number(size, 8);
  };
  return header.leftJustified(512, '\xFF') + stream +
         (entry("Root Entry", 5, 1, 0xFFFFFFFE, 0) + entry("Workbook", 2, 0xFFFFFFFF, 0, 4096))
             .leftJustified(512, '\0') +
         table.leftJustified(512, '\xFF');
}

TEST(SheetReader, OldFormulasHaveTheirStoredResults) {
  QByteArray cells;
  for (int i = 0; i < 7; ++i) cells += label(i, "C" + QByteArray::number(i));
  const auto mark = [](quint64 kind, quint64 value) {
    return number(kind, 2) + number(value, 4) + number(0xFFFF, 2);
  };
  cells += formula(0, number(std::bit_cast<quint64>(7.5), 8));
  cells += formula(1, mark(0, 0)) + record(0x4BC, number(0, 8)) +  // a text, after a shared formula
           record(0x207, number(2, 2) + number(0, 1) + "F1");
  // Six characters, the last three in a record that continues it, as 16 bits.
  cells += formula(2, mark(0, 0)) + record(0x207, number(6, 2) + number(0, 1) + "abc") +
           record(0x3C, number(1, 1) + number('d', 2) + number(0x218, 2) + number('f', 2));
  cells += formula(3, mark(1, 1)) + formula(4, mark(2, 7)) + formula(5, mark(3, 0));
  cells += record(0x203, place(1, 6) + number(std::bit_cast<quint64>(2.0), 8));
  const SheetTable table = readBytes(xls(cells));
  ASSERT_EQ(table.size(), 1);
  EXPECT_EQ(table.number(0, "C0"), 7.5);
  const QStringList expected{"7.5", "F1", "abcd\u0218f", "1", "#DIV/0!", "", "2"};
  for (int i = 0; i < 7; ++i) EXPECT_EQ(table.text(0, QStringLiteral("C%1").arg(i)), expected[i]);
  EXPECT_THROW(readBytes(xls(label(0, "C0") + record(0x06, place(1, 0)))), RuleError) << "a cut record";
}

TEST(SheetReader, TextsAreWithoutCommentsAndEscapes) {
  const QByteArray start =
      "<o:d xmlns:o='o' xmlns:t='t' xmlns:x='x'><t:table t:name='Sheet1'><t:table-row/><t:table-row>"
      "<t:table-cell o:value-type='string'><x:p>COD</x:p></t:table-cell><t:table-cell "
      "o:value-type='string'><x:p>PRET</x:p></t:table-cell></t:table-row><t:table-row>";
  const QByteArray note = "<o:annotation><x:p>a note</x:p></o:annotation>";
  const SheetTable ods = readBytes(
      zipped({{"content.xml",
               start + "<t:table-cell o:value-type='string'>" + note +
                   "<x:p>P<x:s x:c='2'/><x:span>2<x:tab/>3</x:span><x:line-break/>4</x:p></t:table-cell>"
                   "<t:table-cell o:value-type='float' o:value='2.5'>" +
                   note +
                   "<x:p>2,50</x:p></t:table-cell></t:table-row><t:table-row><t:table-cell "
                   "o:value-type='string' o:string-value='P7'/><t:table-cell o:value-type='string' "
                   "o:string-value='1.234,50'/></t:table-row></t:table></o:d>"}}));
  ASSERT_EQ(ods.size(), 2);
  EXPECT_EQ(ods.text(0, "COD"), "P  2\t3\n4");
  EXPECT_EQ(ods.number(0, "PRET"), 2.5);
  EXPECT_EQ(ods.text(1, "COD"), "P7");
  EXPECT_EQ(ods.number(1, "PRET"), 1234.5);

  // The parts of the workbook have names of their own; two blank rows are above the heading.
  const SheetTable xlsx = readBytes(
      zipped({{"_rels/.rels", "<R><Relationship Id='a' Type='x/officeDocument' Target='/foo/book.xml'/></R>"},
              {"foo/book.xml", "<workbook xmlns:r='r'><sheet name='S' r:id='b'/></workbook>"},
              {"foo/_rels/book.xml.rels",
               "<R><Relationship Id='b' Type='x/worksheet' Target='../s.xml'/><Relationship Id='c' "
               "Type='x/sharedStrings' Target='t.xml'/></R>"},
              {"foo/t.xml", "<sst><si><t>_x0041_ _x41_ _x005F_x0041_ _x0000_</t></si></sst>"},
              {"s.xml",
               "<worksheet><row/><row><c t='str'><v> </v></c></row><row><c t='str'><v>C_x004F_D</v></c></row>"
               "<row><c t='s'><v>0</v></c></row><row><c><v>nan</v></c></row></worksheet>"}}));
  ASSERT_EQ(xlsx.size(), 2);
  EXPECT_EQ(xlsx.text(0, "COD"), "A _x41_ _x0041_ _x0000_");
  EXPECT_EQ(xlsx.text(1, "COD"), "#NUM!");
  EXPECT_THROW(
      readBytes(zipped({{"_rels/.rels", "<R><Relationship Type='x/officeDocument' Target='w.xml'/></R>"},
                        {"w.xml", "<document/>"}})),
      RuleError);
}

}  // namespace

}  // namespace velmar
