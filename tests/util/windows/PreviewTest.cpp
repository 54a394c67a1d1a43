// The preview: pages are drawn when they are shown, and a failure of drawing is reported once.
#include "util/windows/frmPrevizualizare.h"

#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QListView>
#include <QPainter>
#include <QPushButton>
#include <QScrollArea>
#include <QSpinBox>
#include <QtTest/QtTest>
#include <QWheelEvent>

#include "TestCompany.h"
#include "util/Errors.h"
#include "util/windows/frmOptiuniTiparire.h"

namespace velmar {
namespace {

class CountedJob : public PrintJob {
 public:
  QString name() const override { return "Proba / 1"; }
  QPageLayout pageLayout() const override {
    return {QPageSize(QPageSize::A5), QPageLayout::Portrait, QMarginsF(10, 10, 10, 10)};
  }
  int pageCount() const override { return 3000; }
  void paintPage(QPainter& painter, int page) const override {
    if (page == broken) throw StoreError(7, "Pagina nu se poate citi");
    painter.setFont(printFont(painter.font(), 12));
    painter.drawText(QPointF(1000, 1000), pageText(page));
    ++drawn[page];
  }
  QString pageText(int page) const override { return QStringLiteral("foaia %1.").arg(page + 1); }

  QStringList faults() const override { return drawn.contains(1) ? missing : QStringList(); }

  QStringList missing;
  mutable QHash<int, int> drawn;
  int broken = -1;
};

/// A job whose pages have to be counted one at a time.
class SlowJob : public CountedJob {
 public:
  int pageCount() const override {
    while (!isCounted()) countOn(0);
    return kPages;
  }
  int knownPages() const override { return known_; }
  bool isCounted() const override { return known_ == kPages; }
  int countOn(int) const override {
    if (known_ == failsAt) throw StoreError(7, "Randul nu se poate citi");
    ++known_;
    return known_ * 100 / kPages;
  }

  static constexpr int kPages = 40;
  int failsAt = -1;

 private:
  mutable int known_ = 0;
};

TEST(PreviewTest, PagesAreCountedWhileThePreviewIsOpen) {
  SlowJob job;
  frmPrevizualizare preview(job, nullptr);
  preview.show();
  auto* count = preview.findChild<QLabel*>("lblPagini");
  EXPECT_EQ(count->text(), "din ... (1)");
  preview.findChild<QPushButton*>("cmdInainte")->click();
  EXPECT_EQ(preview.findChild<QSpinBox*>("txtPagina")->value(), 2);
  EXPECT_TRUE(QTest::qWaitFor([&job] { return job.isCounted(); }));
  EXPECT_EQ(count->text(), "din 40");
  EXPECT_EQ(preview.findChild<QListView*>("lstPagini")->model()->rowCount(), 40);
  EXPECT_EQ(preview.findChild<QSpinBox*>("txtPagina")->value(), 2);

  MessageRecorder messages;
  SlowJob broken;
  broken.failsAt = 5;
  frmPrevizualizare second(broken, nullptr);
  second.show();
  EXPECT_TRUE(QTest::qWaitFor([&messages] { return !messages.isEmpty(); }));
  QTest::qWait(20);
  EXPECT_EQ(messages.take().size(), 1);
  EXPECT_EQ(second.findChild<QLabel*>("lblPagini")->text(), "din ... (5)");
}

TEST(PreviewTest, PagesAreDrawnAndTheirFaultsReportedWhenTheyAreShown) {
  CountedJob job;
  job.missing = QStringList{"Text A", "Text B", "Text C", "Text D", "Text E"};
  frmPrevizualizare preview(job, nullptr);
  preview.resize(1200, 700);
  preview.show();
  QCoreApplication::processEvents();
  EXPECT_EQ(job.drawn.size(), 1);
  auto* status = preview.findChild<QLabel*>("lblStare");
  EXPECT_FALSE(status->isVisible());
  auto* area = preview.findChild<QScrollArea*>();
  QTest::keyClick(area, Qt::Key_End);
  QTest::keyClick(area, Qt::Key_Home);
  EXPECT_EQ(preview.findChild<QSpinBox*>("txtPagina")->value(), 1);
  EXPECT_EQ(job.drawn.size(), 2);
  EXPECT_EQ(job.drawn[0], 1);  // once, although it was shown twice

  // The wheel scrolls to the end of the page and then turns it.
  const auto wheel = [area] {
    QWheelEvent turn({20, 20}, area->viewport()->mapToGlobal(QPointF(20, 20)), {}, {0, -120}, Qt::NoButton,
                     Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(area->viewport(), &turn);
  };
  for (int i = 0; i < 100 && preview.findChild<QSpinBox*>("txtPagina")->value() < 2; ++i) wheel();
  EXPECT_EQ(preview.findChild<QSpinBox*>("txtPagina")->value(), 2);
  EXPECT_EQ(job.drawn.size(), 3);
  EXPECT_EQ(status->text(), "Formula nu se poate calcula: Text A; Text B; Text C; si inca 2");
}

TEST(PreviewTest, APageThatFailsIsReportedAndLeavesNoFile) {
  MessageRecorder messages;
  CountedJob job;
  job.broken = 1;
  frmPrevizualizare preview(job, nullptr);
  preview.show();
  QCoreApplication::processEvents();
  EXPECT_TRUE(messages.isEmpty());
  QTest::keyClick(preview.findChild<QScrollArea*>(), Qt::Key_PageDown);
  for (int i = 0; i < 20 && messages.isEmpty(); ++i)
    QTest::keyClick(preview.findChild<QScrollArea*>(), Qt::Key_PageDown);
  const QStringList messagesShown = messages.take();
  ASSERT_EQ(messagesShown.size(), 1);
  EXPECT_TRUE(
      messagesShown[0].startsWith("Eroare 7 - Pagina nu se poate citi in procedura KeyDown din Form "));

  const QTemporaryDir folder;
  const QString path = folder.filePath("proba.pdf");
  EXPECT_THROW(writePdf(path, {}, job, nullptr), StoreError);
  EXPECT_FALSE(QFile::exists(path));
  PrintTarget beyond;
  beyond.first = 2998;
  beyond.last = 5000;
  writePdf(path, beyond, job, nullptr);
  EXPECT_TRUE(QFile::exists(path));
}

TEST(PreviewTest, TheSheetCanBeChosenOnlyIfTheJobAllowsIt) {
  CountedJob job;
  frmOptiuniTiparire options(job, false, nullptr);
  EXPECT_EQ(options.windowTitle(), "Selectati mod de obtinere raport");
  EXPECT_EQ(options.findChild<QWidget*>("optPeisaj"), nullptr);
  EXPECT_EQ(options.target().last, -1);
  const QTemporaryDir folder;
  setPrintFolder(folder.path());
  EXPECT_EQ(sendTo({}, job, nullptr), folder.filePath("Proba _ 1-1.pdf"));
  setPrintFolder({});
}

}  // namespace
}  // namespace velmar
