#include <QMouseEvent>
#include <QScreen>
#include <QTest>
#include <QWidget>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "contract/DriverProperties.h"
#include "demo/MouseFinger.h"

namespace touchpanel::demo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

QRect screen() { return QGuiApplication::primaryScreen()->geometry(); }

/// A widget that writes down its mouse events, and what `look` sees at each of them.
class Recorder : public QWidget {
 public:
  std::vector<std::string> events;
  std::vector<QPointF> places;
  std::function<void()> look = [] {};

 protected:
  void mousePressEvent(QMouseEvent* event) override { note("press", *event); }
  void mouseReleaseEvent(QMouseEvent* event) override { note("release", *event); }
  void mouseMoveEvent(QMouseEvent* event) override { note("move", *event); }

 private:
  void note(const char* what, const QMouseEvent& event) {
    const auto* button = event.button() == Qt::LeftButton    ? " left"
                         : event.button() == Qt::RightButton ? " right"
                                                             : "";
    events.push_back(std::string(what) + button);
    places.push_back(event.globalPosition());
    look();
  }
};

/// A window over the whole screen, and a touchscreen that is a quarter of the screen off to the right.
class MouseFingerTest : public testing::Test {
 protected:
  MouseFingerTest() {
    window_.setWindowFlag(Qt::FramelessWindowHint);
    window_.setGeometry(screen());
    window_.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&window_));
  }
  static simulated::TouchscreenModel model() {
    firmware::Distortion distortion;
    distortion.offsetX = 0.25;
    return {"Shifted", firmware::exampleDevice(DeviceKind::Infrared), distortion, 0x14100000};
  }
  void configure(Dictionary settings) {
    ASSERT_EQ(touchscreen_.driver().setProperty(property::kConfigration, std::move(settings)), kSuccess);
  }
  QPoint at(double x, double y) const {
    return {static_cast<int>(x * screen().width()), static_cast<int>(y * screen().height())};
  }
  void press(QPoint point) { QTest::mousePress(window_.windowHandle(), Qt::LeftButton, {}, point); }
  void moveTo(QPoint point) { QTest::mouseMove(window_.windowHandle(), point); }
  void release(QPoint point) { QTest::mouseRelease(window_.windowHandle(), Qt::LeftButton, {}, point); }
  void deliver() { QCoreApplication::processEvents(); }

  Recorder window_;
  simulated::SimulatedTouchscreen touchscreen_{model()};
  bool isFinger_ = true;
  std::vector<firmware::RawPoint> touches_;
  FingerClock clock_;
  MouseFinger finger_{
      [this](const QWindow&) { return isFinger_ ? &touchscreen_ : nullptr; },
      [this](const auto&, firmware::ScreenFraction, firmware::RawPoint raw) { touches_.push_back(raw); },
      clock_};
};

TEST_F(MouseFingerTest, ClicksWhereTheDriverPutsTheTouchAndNotWhereTheMouseIs) {
  configure({{configration_key::kMode, 0}});
  press(at(0.5, 0.5));
  release(at(0.5, 0.5));
  deliver();
  EXPECT_THAT(window_.events, ElementsAre("press left", "release left"));
  ASSERT_FALSE(window_.places.empty());
  EXPECT_NEAR(window_.places[0].x(), 0.75 * screen().width(), 2);
  EXPECT_NEAR(window_.places[0].y(), 0.5 * screen().height(), 2);
  EXPECT_EQ(touches_.size(), 1U);
}

TEST_F(MouseFingerTest, LeavesTheMouseAMouseWhereNobodyWantsAFinger) {
  isFinger_ = false;
  press(at(0.5, 0.5));
  isFinger_ = true;  // a press that was a mouse's is released by a mouse
  release(at(0.5, 0.5));
  deliver();
  EXPECT_THAT(window_.events, ElementsAre("press left", "release left"));
  EXPECT_EQ(window_.places[0].toPoint(), at(0.5, 0.5));
  EXPECT_THAT(touches_, IsEmpty());
}

TEST_F(MouseFingerTest, IsCapturedBeforeAnyWindowSeesTheRelease) {
  ASSERT_EQ(touchscreen_.driver().setProperty(property::kCalibration,
                                              Dictionary{{calibration_key::kStatCalibrate, true}}),
            kSuccess);
  std::vector<std::int32_t> captured;
  window_.look = [&] {
    const auto properties = touchscreen_.driver().properties();
    captured.push_back(properties.dictionary(property::kCalibration)->integer(calibration_key::kX));
  };
  press(at(0.25, 0.5));
  release(at(0.25, 0.5));
  deliver();
  ASSERT_THAT(window_.events, ElementsAre("press left", "release left"));
  EXPECT_EQ(captured.back(), touches_.back().x);
}

TEST_F(MouseFingerTest, KeepsADragInTheWindowWhereItBegan) {
  configure({{configration_key::kMode, 2}, {configration_key::kEnableRightClick, false}});
  Recorder other;
  other.setGeometry(QRect(0, 0, screen().width() / 3, screen().height()));
  other.show();
  EXPECT_TRUE(QTest::qWaitForWindowExposed(&other));
  press(at(0.4, 0.5));
  moveTo(at(0.01, 0.5));  // lands on the other window
  release(at(0.01, 0.5));
  deliver();
  EXPECT_THAT(window_.events, ElementsAre("press left", "move", "release left"));
  EXPECT_THAT(other.events, IsEmpty());
}

TEST_F(MouseFingerTest, MakesAHeldFingerARightClickWithoutAnyFurtherEvent) {
  configure({{configration_key::kMode, 2}, {configration_key::kRightClickTime, 100}});
  press(at(0.5, 0.5));
  EXPECT_TRUE(QTest::qWaitFor([&] { return window_.events.size() >= 2; }, 5000));
  release(at(0.5, 0.5));
  deliver();
  EXPECT_THAT(window_.events, ElementsAre("press right", "release right"));
}

TEST_F(MouseFingerTest, ReachesNoWindowBehindAModalOne) {
  configure({{configration_key::kMode, 0}});
  QWidget sheet(&window_, Qt::Dialog);
  sheet.setWindowModality(Qt::WindowModal);
  sheet.setGeometry(QRect(at(0.1, 0.1), at(0.15, 0.15)));
  sheet.show();
  EXPECT_TRUE(QTest::qWaitForWindowExposed(&sheet));
  touchscreen_.setOutput({});
  // A touch on the sheet whose click the driver puts onto the window behind it.
  QTest::mousePress(sheet.windowHandle(), Qt::LeftButton, {}, QPoint(2, 2));
  QTest::mouseRelease(sheet.windowHandle(), Qt::LeftButton, {}, QPoint(2, 2));
  deliver();
  EXPECT_EQ(touches_.size(), 1U);
  EXPECT_THAT(window_.events, IsEmpty());
}

}  // namespace
}  // namespace touchpanel::demo
