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
  void mouseMoved(Point location) override { note("moved", location); }
  void keyDown(std::uint16_t keyCode) override { note("key " + std::to_string(keyCode), {}); }
  bool acceptsFirstResponder() const override { return true; }
  bool isOpaque() const override { return false; }

  void note(const std::string& what, Point location) {
    events.emplace_back(what, location);
    if (onEvent) onEvent();
  }

  int draws = 0;
  std::vector<std::pair<std::string, Point>> events;
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
    window = screen.createBorderlessWindow(screen.mainScreenFrame(), behaviour);
    window->setContentView(view);
    window->setShieldingLevel();
    window->makeKeyAndOrderFront();
    window->setInitialFirstResponder(view);
    surface = ViewSurface::shown();
    ASSERT_TRUE(surface);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(surface));
    ASSERT_TRUE(QTest::qWaitFor([&] { return view.draws > 0; }));
  }
};

TEST_F(QtFullScreenWindowTest, PassesFingersAndMouseFromTheLowerLeftCornerAndKeysByTheirCodes) {
  open();
  const float height = static_cast<float>(surface->height());
  QTest::mousePress(surface, Qt::LeftButton, {}, QPoint(10, 20));
  QMouseEvent move(QEvent::MouseMove, QPointF(30.5, 40), QPointF(30.5, 40), Qt::NoButton, Qt::LeftButton, {});
  QCoreApplication::sendEvent(surface, &move);
  QTest::mouseRelease(surface, Qt::LeftButton, {}, QPoint(50, 60));
  QTest::mouseClick(surface, Qt::RightButton, {}, QPoint(5, 5));
  QTest::mouseClick(surface, Qt::MiddleButton, {}, QPoint(5, 5));
  QMouseEvent hover(QEvent::MouseMove, QPointF(1, 1), QPointF(1, 1), Qt::NoButton, Qt::NoButton, {});
  QCoreApplication::sendEvent(surface, &hover);
  for (const auto key : {Qt::Key_Return, Qt::Key_Escape, Qt::Key_A}) QTest::keyClick(surface, key);
  surface->close();
  EXPECT_TRUE(surface->isVisible()) << "the view decides when its window goes";
  const std::vector<std::pair<std::string, Point>> expected = {{"down", {10, height - 20}},
                                                               {"dragged", {30.5F, height - 40}},
                                                               {"up", {50, height - 60}},
                                                               {"down", {5, height - 5}},
                                                               {"up", {5, height - 5}},
                                                               {"moved", {1, height - 1}},
                                                               {"key 36", {}},
                                                               {"key 53", {}},
                                                               {"key 65535", {}},
                                                               {"key 53", {}}};
  EXPECT_EQ(view.events, expected);
}

TEST_F(QtFullScreenWindowTest, MergesRequestsAndServesThemAfterDrawingAndWhenTheGateOpens) {
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
  {
    const CallbackGate::Closed closed(gate);
    window->setNeedsDisplay();
    QCoreApplication::processEvents();
    EXPECT_EQ(view.draws, before + 2);
  }
  EXPECT_TRUE(QTest::qWaitFor([&] { return view.draws == before + 3; }));
}

TEST_F(QtFullScreenWindowTest, ClosesInTheMiddleOfItsDrawing) {
  open();
  view.onDraw = [&](Canvas& canvas) {
    window->close();
    canvas.fillRect({0, 0, 100, 100}, color::kRed);
    EXPECT_NE(surface->image().pixelColor(0, surface->height() - 1), QColor(Qt::red));
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
  const std::pair<const char*, std::function<void(ViewSurface&)>> cases[] = {
      {"mouse down", [](ViewSurface& target) { QTest::mousePress(&target, Qt::LeftButton); }},
      {"mouse up", [](ViewSurface& target) { QTest::mouseRelease(&target, Qt::LeftButton); }},
      {"key", [](ViewSurface& target) { QTest::keyClick(&target, Qt::Key_Escape); }},
  };
  for (const auto& [what, send] : cases) {
    SCOPED_TRACE(what);
    view.onEvent = nullptr;
    open();
    view.onEvent = [&] { window.reset(); };
    view.events.clear();
    send(*surface);
    EXPECT_EQ(view.events.size(), 1U);
    EXPECT_EQ(window, nullptr);
    ASSERT_TRUE(QTest::qWaitFor([&] { return surface.isNull(); }));
  }
}

}  // namespace
}  // namespace touchpanel
