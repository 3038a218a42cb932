#include <QApplication>
#include <QPointer>
#include <QScreen>
#include <QTest>

#include <gtest/gtest.h>

#include "providers/qt/QtApplication.h"
#include "providers/qt/QtScreen.h"
#include "providers/qt/ViewSurface.h"
#include "support/RecordingDiagnostics.h"

namespace touchpanel {
namespace {

struct AllBehaviour final : WindowBehaviour {
  bool canBecomeKeyWindow() const override { return true; }
  bool canBecomeMainWindow() const override { return true; }
};

/// Remembers what reaches it and does what the test tells it to meanwhile.
struct ScriptedView final : View {
  void drawRect(Canvas& canvas) override {
    ++draws;
    if (onDraw) onDraw(canvas);
  }
  void mouseDown(Point location) override { note("down", location); }
  void mouseDragged(Point location) override { note("dragged", location); }
  void mouseUp(Point location) override { note("up", location); }
  void keyDown(std::uint16_t keyCode) override {
    keys.push_back(keyCode);
    if (onEvent) onEvent();
  }
  bool acceptsFirstResponder() const override { return true; }
  bool isOpaque() const override { return false; }

  void note(const char* what, Point location) {
    events.emplace_back(what, location);
    if (onEvent) onEvent();
  }

  int draws = 0;
  std::vector<std::pair<std::string, Point>> events;
  std::vector<std::uint16_t> keys;
  std::function<void(Canvas&)> onDraw;
  std::function<void()> onEvent;
};

struct QtFullScreenWindowTest : ::testing::Test {
  QtApplication application;
  testing::RecordingDiagnostics diagnostics;
  CallbackGate gate{application, diagnostics};
  QtScreen screen{gate};
  AllBehaviour behaviour;
  ScriptedView view;
  std::unique_ptr<FullScreenWindow> window;
  QPointer<ViewSurface> surface;

  void open() {
    const Rect frame = screen.mainScreenFrame();
    window = screen.createBorderlessWindow(frame, behaviour);
    window->setContentView(view);
    window->setShieldingLevel();
    window->makeKeyAndOrderFront();
    window->setInitialFirstResponder(view);
    for (QWidget* widget : QApplication::topLevelWidgets())
      if (auto* found = dynamic_cast<ViewSurface*>(widget); found != nullptr && found->isVisible())
        surface = found;
    ASSERT_TRUE(surface);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(surface));
    ASSERT_TRUE(QTest::qWaitFor([&] { return view.draws > 0; }));
  }
};

TEST_F(QtFullScreenWindowTest, CoversTheMainScreen) {
  open();
  EXPECT_EQ(surface->geometry(), QGuiApplication::primaryScreen()->geometry());
  EXPECT_EQ(surface->frameGeometry(), surface->geometry());
}

TEST_F(QtFullScreenWindowTest, TellsLocationsFromTheLowerLeftCornerAndOnlyOfTheLeftButton) {
  open();
  const float height = static_cast<float>(surface->height());
  QTest::mousePress(surface, Qt::LeftButton, {}, QPoint(10, 20));
  QMouseEvent move(QEvent::MouseMove, QPointF(30.5, 40), QPointF(30.5, 40), Qt::NoButton, Qt::LeftButton, {});
  QCoreApplication::sendEvent(surface, &move);
  QTest::mouseRelease(surface, Qt::LeftButton, {}, QPoint(50, 60));
  QTest::mouseClick(surface, Qt::RightButton, {}, QPoint(5, 5));
  QMouseEvent hover(QEvent::MouseMove, QPointF(1, 1), QPointF(1, 1), Qt::NoButton, Qt::NoButton, {});
  QCoreApplication::sendEvent(surface, &hover);
  const std::vector<std::pair<std::string, Point>> expected = {
      {"down", {10, height - 20}}, {"dragged", {30.5F, height - 40}}, {"up", {50, height - 60}}};
  EXPECT_EQ(view.events, expected);
}

TEST_F(QtFullScreenWindowTest, TellsReturnAndEscapeByTheirKeyCodes) {
  open();
  QTest::keyClick(surface, Qt::Key_Return);
  QTest::keyClick(surface, Qt::Key_Escape);
  QTest::keyClick(surface, Qt::Key_A);
  ASSERT_EQ(view.keys.size(), 3U);
  EXPECT_EQ(view.keys[0], kKeyReturn);
  EXPECT_EQ(view.keys[1], kKeyEscape);
  EXPECT_NE(view.keys[2], kKeyReturn);
  EXPECT_NE(view.keys[2], kKeyEscape);
  surface->close();
  EXPECT_TRUE(surface->isVisible()) << "the view decides when its window goes";
  EXPECT_EQ(view.keys.back(), kKeyEscape);
}

TEST_F(QtFullScreenWindowTest, MergesRequestsAndServesOneThatIsMadeWhileDrawing) {
  open();
  const int before = view.draws;
  view.onDraw = [&](Canvas&) {
    if (view.draws == before + 1) window->setNeedsDisplay();
  };
  window->setNeedsDisplay();
  window->setNeedsDisplay();
  EXPECT_EQ(view.draws, before) << "never from inside the request";
  ASSERT_TRUE(QTest::qWaitFor([&] { return view.draws == before + 2; }));
  QCoreApplication::processEvents();
  EXPECT_EQ(view.draws, before + 2);
}

TEST_F(QtFullScreenWindowTest, ClosesInTheMiddleOfItsDrawing) {
  open();
  const QImage shown = surface->image().copy();
  view.onDraw = [&](Canvas& canvas) {
    window->close();
    canvas.fillRect({0, 0, 100, 100}, color::kRed);
  };
  const int before = view.draws;
  window->setNeedsDisplay();
  ASSERT_TRUE(QTest::qWaitFor([&] { return view.draws == before + 1; }));
  ASSERT_TRUE(QTest::qWaitFor([&] { return surface.isNull(); })) << "the widget goes, but later";
  window->setNeedsDisplay();
  window->close();
  QCoreApplication::processEvents();
  EXPECT_EQ(view.draws, before + 1);
}

TEST_F(QtFullScreenWindowTest, IsDestroyedInsideItsOwnHandlers) {
  struct Case {
    const char* what;
    std::function<void(ViewSurface&)> send;
  };
  const Case cases[] = {
      {"mouse down", [](ViewSurface& target) { QTest::mousePress(&target, Qt::LeftButton); }},
      {"mouse up", [](ViewSurface& target) { QTest::mouseRelease(&target, Qt::LeftButton); }},
      {"key", [](ViewSurface& target) { QTest::keyClick(&target, Qt::Key_Escape); }},
  };
  for (const auto& [what, send] : cases) {
    SCOPED_TRACE(what);
    view.onEvent = nullptr;
    open();
    view.onEvent = [&] { window.reset(); };
    const auto eventsBefore = view.events.size() + view.keys.size();
    send(*surface);
    EXPECT_EQ(view.events.size() + view.keys.size(), eventsBefore + 1);
    EXPECT_EQ(window, nullptr);
    ASSERT_TRUE(QTest::qWaitFor([&] { return surface.isNull(); }));
  }
}

TEST_F(QtFullScreenWindowTest, DrawsOnceTheGateOpensAgain) {
  open();
  const int before = view.draws;
  {
    const CallbackGate::Closed closed(gate);
    window->setNeedsDisplay();
    QCoreApplication::processEvents();
    EXPECT_EQ(view.draws, before);
  }
  EXPECT_TRUE(QTest::qWaitFor([&] { return view.draws == before + 1; }));
}

TEST_F(QtFullScreenWindowTest, SurvivesFramesOfEverySize) {
  for (const Rect frame : {Rect{0, 0, 1, 1}, Rect{0, 0, 7680, 4320}}) {
    view.draws = 0;
    window = screen.createBorderlessWindow(frame, behaviour);
    window->setContentView(view);
    window->makeKeyAndOrderFront();
    EXPECT_TRUE(QTest::qWaitFor([&] { return view.draws > 0; }));
  }
}

}  // namespace
}  // namespace touchpanel
