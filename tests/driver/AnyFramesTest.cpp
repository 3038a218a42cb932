// Whatever comes in, what goes out is sound.
#include <random>

#include <gtest/gtest.h>

#include "contract/DriverProperties.h"
#include "driver/TouchDriver.h"
#include "support/AllocationCount.h"
#include "support/CalibrationParams.h"

namespace touchpanel::testing {
namespace {

/// Fingers that come, wander and go, with now and then a frame that no sound source would send.
class RandomTouches {
 public:
  explicit RandomTouches(std::uint32_t seed) : random_(seed) {}
  int below(int end) { return std::uniform_int_distribution(0, end - 1)(random_); }
  std::int32_t coordinate() { return below(20) ? below(32768) : static_cast<std::int32_t>(random_()); }

  RawFrame next() {
    now_ += std::chrono::microseconds(below(4) ? below(20000) : below(1500000));
    if (below(200) == 0) now_ -= std::chrono::seconds(5);
    RawFrame frame;
    frame.time = now_;
    if (below(3) == 0) count_ = static_cast<std::uint8_t>(below(20) ? below(4) : below(256));
    frame.count = count_;
    for (std::size_t i = 0; i < std::min<std::size_t>(frame.count, frame.contacts.size()); ++i)
      frame.contacts[i] = {below(20) ? static_cast<std::int32_t>(i) : below(100) - 50, coordinate(),
                           coordinate()};
    return frame;
  }
  Dictionary settings() {
    return {{"mode", below(4)},
            {"clickRange", below(20)},
            {"enableRightClick", below(2) == 1},
            {"rightClickTime", below(1000)},
            {"smoothness", below(10)},
            {"enableTouchSensitivity", below(2) == 1},
            {"enableTouch", below(10) > 0}};
  }
  Dictionary calibration() {
    auto params = shiftedBy(static_cast<float>(below(20000) - 10000), static_cast<float>(below(9)) * 1e4F);
    params.X.A30 = static_cast<float>(below(2000) - 1000) * 1e-12F;
    params.Y.A12 = static_cast<float>(below(2000) - 1000) * 1e-6F;
    return {{"calibrateStatus", below(2) == 1},
            {"calibParams", bytesOf(params)},
            {"statCalibrate", below(4) == 0}};
  }
  Dictionary monitor() {
    return {{"minX", below(16000)}, {"maxY", 16000 + below(16000)}, {"turn", below(4)}};
  }
  std::chrono::microseconds now() const { return now_; }

 private:
  std::mt19937 random_;
  std::chrono::microseconds now_{0};
  std::uint8_t count_ = 0;
};

void expectSound(const OutputFrame& frame) {
  const auto inside = [](std::int32_t v) { return v >= 0 && v <= kLogicalMaximum; };
  ASSERT_TRUE(inside(frame.x) && inside(frame.y));
  ASSERT_FALSE(frame.left && frame.right) << "one finger holds one button";
  ASSERT_LE(frame.count, frame.contacts.size());
  ASSERT_FALSE(frame.count > 0 && (frame.left || frame.right || frame.hasPosition));
  std::uint32_t ids = 0;
  for (std::size_t i = 0; i < frame.count; ++i) {
    const auto& contact = frame.contacts[i];
    ASSERT_TRUE(contact.id >= 0 && contact.id < static_cast<std::int32_t>(kMaximumContacts));
    ASSERT_FALSE(ids & (1U << contact.id));
    ids |= 1U << contact.id;
    ASSERT_TRUE(inside(contact.x) && inside(contact.y));
  }
}

TEST(AnyFrames, LeaveButtonsBalancedCoordinatesInsideAndContactsValidWithoutAllocating) {
  for (std::uint32_t seed = 1; seed <= 40; ++seed) {
    SCOPED_TRACE(seed);
    RandomTouches touches(seed);
    OutputFrame last;
    driver::TouchDriver driver([&](const OutputFrame& frame) {
      expectSound(frame);
      ASSERT_FALSE(frame == last) << "a frame that tells nothing new";
      last = frame;
    });
    driver.setDoubleClick(std::chrono::milliseconds(500), 5);
    for (int i = 0; i < 1500 && !HasFatalFailure(); ++i) {
      if (touches.below(40) == 0) driver.setProperty(property::kConfigration, touches.settings());
      if (touches.below(60) == 0) driver.setProperty(property::kCalibration, touches.calibration());
      if (touches.below(90) == 0) driver.setProperty(property::kMonitor, touches.monitor());
      const auto frame = touches.next();
      const auto allocated = allocationCount();
      if (touches.below(5) == 0) driver.tick(touches.now());
      driver.process(frame);
      ASSERT_EQ(allocationCount(), allocated);
      ASSERT_FALSE(frame.count == 0 && (last.left || last.right || last.count > 0)) << "held by nobody";
    }
    driver.process({touches.now() + std::chrono::hours(1), 0, {}});
    ASSERT_TRUE(!last.left && !last.right && last.count == 0);
    ASSERT_EQ(driver.nextDeadline(), std::nullopt);
  }
}

}  // namespace
}  // namespace touchpanel::testing
