#include <QMouseEvent>
#include <QScreen>
#include <QTest>

#include <gmock/gmock.h>

#include "contract/DriverProperties.h"
#include "demo/MouseFinger.h"

namespace touchpanel::demo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A widget that writes down its mouse events.
class Recorder : public QWidget {
 public:
  std::vector<std::string> events;
  QPoint lastPlace;

 protected:
  void mousePressEvent(QMouseEvent* event) override { note("press", *event); }
  void mouseReleaseEvent(QMouseEvent* event) override { note("release", *event); }
  void mouseMoveEvent(QMouseEvent* event) override { note("move", *event); }

 private:
  void note(const std::string& what, const QMouseEvent& event) {
    events.push_back(what + (event.button() == Qt::RightButton ? " right" : ""));
    lastPlace = event.globalPosition().toPoint();
  }
};

/// A window over the whole screen, and a touchscreen that is a quarter of the screen off to the right. What
/// the driver makes of a touch the tour sees; here is what a finger must not do.
class MouseFingerTest : public testing::Test {
 protected:
  MouseFingerTest() { show(window_, QGuiApplication::primaryScreen()->geometry()); }
  static QPoint at(double x, double y) {
    const QSize size = QGuiApplication::primaryScreen()->size();
    return {static_cast<int>(x * size.width()), static_cast<int>(y * size.height())};
  }
  static void show(QWidget& window, const QRect& place) {
    window.setWindowFlag(Qt::FramelessWindowHint);
    window.setGeometry(place);
    window.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
  }
  void configure(Dictionary settings) {
    ASSERT_EQ(touchscreen_.driver().setProperty(property::kConfigration, std::move(settings)), kSuccess);
  }
  static void press(QWidget& on, QPoint point) {
    QTest::mousePress(on.windowHandle(), Qt::LeftButton, {}, point);
  }
  static void release(QWidget& on, QPoint point) {
    QTest::mouseRelease(on.windowHandle(), Qt::LeftButton, {}, point);
    QCoreApplication::processEvents();
  }

  Recorder window_;
  simulated::SimulatedTouchscreen touchscreen_{
      {"Shifted", firmware::exampleDevice(DeviceKind::Infrared), {.offsetX = 0.25}, 0x14100000}};
  bool isFinger_ = true;
  int touches_ = 0;
  FingerClock clock_;
  MouseFinger finger_{[this](const QWindow&) { return isFinger_ ? &touchscreen_ : nullptr; },
                      [this](const auto&, auto, auto) { ++touches_; }, clock_};
};

TEST_F(MouseFingerTest, LeavesTheMouseAMouseWhereNobodyWantsAFinger) {
  isFinger_ = false;
  press(window_, at(0.5, 0.5));
  isFinger_ = true;  // a press that was a mouse's is released by a mouse
  release(window_, at(0.5, 0.5));
  EXPECT_THAT(window_.events, ElementsAre("press", "release"));
  EXPECT_EQ(window_.lastPlace, at(0.5, 0.5));
  EXPECT_EQ(touches_, 0);
}

TEST_F(MouseFingerTest, KeepsADragInTheWindowWhereItBegan) {
  configure({{configration_key::kMode, 2}, {configration_key::kEnableRightClick, false}});
  Recorder other;
  show(other, {{0, 0}, at(0.3, 1)});
  press(window_, at(0.4, 0.5));
  QTest::mouseMove(window_.windowHandle(), at(0.01, 0.5));  // lands on the other window
  release(window_, at(0.01, 0.5));
  EXPECT_THAT(window_.events, ElementsAre("press", "move", "release"));
  EXPECT_NEAR(window_.lastPlace.x(), at(0.26, 0).x(), 2);
  EXPECT_THAT(other.events, IsEmpty());
}

TEST_F(MouseFingerTest, MakesAHeldFingerARightClickWithoutAnyFurtherEvent) {
  configure({{configration_key::kMode, 2}, {configration_key::kRightClickTime, 100}});
  press(window_, at(0.5, 0.5));
  EXPECT_TRUE(QTest::qWaitFor([&] { return window_.events.size() >= 2; }));
  release(window_, at(0.5, 0.5));
  EXPECT_THAT(window_.events, ElementsAre("press right", "release right"));
}

TEST_F(MouseFingerTest, ReachesNoWindowBehindAModalOne) {
  configure({{configration_key::kMode, 0}});
  QWidget sheet(&window_, Qt::Dialog);
  sheet.setWindowModality(Qt::WindowModal);
  show(sheet, {at(0.1, 0.1), QSize(64, 51)});
  // A touch on the sheet whose click the driver puts onto the window behind it.
  press(sheet, {2, 2});
  release(sheet, {2, 2});
  EXPECT_EQ(touches_, 1);
  EXPECT_THAT(window_.events, IsEmpty());
}

}  // namespace
}  // namespace touchpanel::demo
