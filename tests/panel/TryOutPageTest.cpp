#include <QPrintDialog>
#include <QPrinter>
#include <QTemporaryDir>

#include "PanelRig.h"

namespace touchpanel::testing {
namespace {

struct TryOutPageTest : StartedPanelRig {
  void SetUp() override {
    StartedPanelRig::SetUp();
    ASSERT_TRUE(QTest::qWaitFor([&] { return panel.mainWindow().isActiveWindow(); }));
    user.type("alt+y");
    ASSERT_TRUE(QTest::qWaitFor([&] { return ui().tryOutPage->isVisible(); }));
  }
  Ui::MainWindow& ui() { return panel.mainWindow().ui(); }
  const TryOut& tryOut() { return panel.tryOutPage().tryOut(); }
  /// Where on the screen is the test point to be touched next.
  QPoint marked() {
    const auto point = tryOut().markedPoint().value();
    return ui().tryOutSurface->mapToGlobal(QPoint(static_cast<int>(point.x), static_cast<int>(point.y)));
  }
};

TEST_F(TryOutPageTest, ShowsTheErrorOfTouchesThatStayOnThePageStartsOverAndPrints) {
  user.press(marked());
  ASSERT_TRUE(QTest::qWaitFor([&] { return !tryOut().trail().empty(); }));
  for (auto* page : {ui().devicePage, ui().tryOutPage}) ui().tabView->setCurrentWidget(page);
  user.release(marked());
  for (std::size_t tap = 0; tap < TryOut::kTapsForResult; ++tap) {
    EXPECT_EQ(ui().lbMeanPixels->text(), "–");
    user.click(marked() + QPoint(30, -40));
    ASSERT_TRUE(QTest::qWaitFor([&] { return tryOut().taps().size() == tap + 1; }));
  }
  EXPECT_NEAR(ui().lbMeanPixels->text().toDouble(), 50, 1.5);
  EXPECT_NEAR(ui().lbLargestPixels->text().toDouble(), 50, 1.5);
  const auto* screen = panel.mainWindow().screen();
  const double millimetres = 50 * screen->physicalSize().width() / screen->geometry().width();
  EXPECT_NEAR(ui().lbMeanMillimetres->text().toDouble(), millimetres, 0.5);

  user.type("alt+o");
  ASSERT_TRUE(QTest::qWaitFor([&] { return tryOut().taps().empty(); }));
  EXPECT_EQ(ui().lbMeanPixels->text(), "–");
  EXPECT_FALSE(ui().btnTryOutClear->isEnabled());
  user.click(marked());
  ASSERT_TRUE(QTest::qWaitFor([&] { return ui().btnTryOutPrint->isEnabled(); }));
  user.type("alt+p");
  ASSERT_TRUE(QTest::qWaitFor([] { return QApplication::activeModalWidget() != nullptr; }));
  auto& dialog = dynamic_cast<QPrintDialog&>(*QApplication::activeModalWidget());
  const QTemporaryDir directory;
  QFile printed(directory.filePath("try-out.pdf"));
  dialog.printer()->setOutputFormat(QPrinter::PdfFormat);
  dialog.printer()->setOutputFileName(printed.fileName());
  emit dialog.accepted(dialog.printer());
  dialog.close();
  ASSERT_TRUE(printed.open(QIODevice::ReadOnly));
  EXPECT_TRUE(printed.readAll().contains("/Count 1"));
}

TEST_F(TryOutPageTest, CoversTheScreenToItsCornersAndCountsSlowTouchesThere) {
  user.type("F11");
  auto& whole = panel.tryOutScreen();
  ASSERT_TRUE(QTest::qWaitFor([&] { return whole.isVisible() && whole.isActiveWindow(); }));
  const QRect screen = QGuiApplication::primaryScreen()->geometry();
  EXPECT_EQ(whole.frameGeometry(), screen);
  user.click(screen.center());
  ASSERT_TRUE(QTest::qWaitFor([&] { return whole.tryOut().taps().size() == 1; }));
  user.hold(screen.topLeft() + QPoint(1, 0));
  ASSERT_TRUE(QTest::qWaitFor([&] { return whole.tryOut().taps().size() == 2; }));
  EXPECT_EQ(whole.tryOut().taps()[1], (LandedTouch{{0, 0}, {1, 0}}));
  EXPECT_TRUE(whole.tryOut().manners()[1].wasHeld);
  EXPECT_TRUE(tryOut().taps().empty()) << "the page has its own";
  user.type("Escape");
  EXPECT_TRUE(QTest::qWaitFor([&] { return !whole.isVisible() && panel.mainWindow().isActiveWindow(); }));
}

}  // namespace
}  // namespace touchpanel::testing
