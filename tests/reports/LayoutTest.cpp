// Layout files: what is written is read back, and no damage of a file crashes the program.
#include "reports/Layout.h"

#include <gtest/gtest.h>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <random>

#include "config/Session.h"
#include "FullLayout.h"
#include "Printers.h"
#include "shell/ApplicationFolder.h"

namespace velmar::layout {
namespace {

TEST(LayoutFile, WhatIsWrittenIsReadBack) {
  const Layout layout = fullLayout();
  const QByteArray xml = write(layout);
  EXPECT_EQ(write(read(xml)), xml);
  const Layout again = read(xml);
  ASSERT_EQ(again.objects.size(), layout.objects.size());
  EXPECT_EQ(again.page.height, 297);
  EXPECT_EQ(again.objects[0].frame, QRectF(15, 10, 90, 6));
  const Table* table = again.table();
  ASSERT_TRUE(table);
  EXPECT_EQ(table->rows.size(), layout.table()->rows.size());
  EXPECT_EQ(table->rows[3].cells[1].formula, "DENUMIRE + \" <\" + COD + \">\"");
  EXPECT_TRUE(table->rows[3].cells[1].style.wraps);
}

TEST(LayoutFile, AnErrorIsReportedWithItsPosition) {
  const auto fault = [](const char* xml) {
    try {
      read(xml);
    } catch (const LayoutError& error) {
      return QStringLiteral("%1:%2 %3").arg(error.line()).arg(error.column()).arg(error.text());
    }
    return QString();
  };
  EXPECT_TRUE(fault("").contains("XML gresit"));
  EXPECT_TRUE(fault("<html/>").endsWith("fisierul nu este un raport"));
  EXPECT_TRUE(fault("<report>\n  <text formula='a' bld='yes'/>\n</report>").startsWith("2:"));
  EXPECT_TRUE(fault("<report><page width='1e999'/></report>").contains("\"width\""));
  EXPECT_TRUE(fault("<report><page width='nan'/></report>").contains("\"width\""));
  EXPECT_TRUE(fault("<report><table/><table/></report>").endsWith("raportul are mai multe tabele"));
  EXPECT_TRUE(fault("<report><text colour='red'/></report>").contains("#RRGGBB"));
  EXPECT_TRUE(fault("<report><text/>").contains("XML gresit"));
}

// The supplied layouts, with bytes changed, lost, doubled and moved, other values of attributes, and
// truncated ends.
TEST(LayoutFile, FiveThousandDamagedOnesAreLayoutsOrErrors) {
  const QTemporaryDir folder;
  prepareApplicationFolder(folder.path());
  session() = Session();
  const QDir layouts(folder.filePath("lst"));
  std::vector<QByteArray> files = {write(fullLayout())};
  for (const QString& name : layouts.entryList({"*.lst"}, QDir::Files)) {
    QFile file(layouts.filePath(name));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    files.push_back(file.readAll());
  }
  ASSERT_GT(files.size(), 5U);
  std::mt19937 random(20261125);  // NOLINT(cert-msc51-cpp): the same files in every run
  int readable = 0;
  for (size_t i = 0; i < 5000; ++i) {
    const QByteArray xml = damaged(files[i % files.size()], random);
    try {
      const Layout layout = read(xml);
      ++readable;
      if (readable % 10 != 0) continue;
      ASSERT_EQ(write(read(write(layout))), write(layout)) << xml.constData();
    } catch (const LayoutError& error) {
      ASSERT_GE(error.line(), 0);
      ASSERT_FALSE(error.text().isEmpty());
    }
  }
  EXPECT_GT(readable, 100);
  EXPECT_LT(readable, 4900);
}

}  // namespace
}  // namespace velmar::layout
