#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "emulator/console/Session.h"

namespace touchpanel::emulator {
namespace {

using namespace std::chrono_literals;
using ::testing::HasSubstr;
using ::testing::StartsWith;

/// A bus with two ports and the outcome that a test chooses.
class FakeUsbBus : public UsbBus {
 public:
  PlugResult plug(UsbIpConnection&, std::optional<int> port) override {
    if (outcome != PlugResult::Outcome::Plugged) return {outcome, 0, "taken"};
    return {outcome, port.value_or(plugged++), {}};
  }
  void unplug(UsbIpConnection&) override { --plugged; }

  PlugResult::Outcome outcome = PlugResult::Outcome::Plugged;
  int plugged = 0;
};

class SessionTest : public ::testing::Test {
 protected:
  /// The replies to `text`, with as much time as it takes.
  std::string run(const std::string& text) {
    session.feed(text + "\n");
    session.proceed(now);
    while (session.deadline()) {
      now = *session.deadline();
      session.proceed(now);
    }
    return std::exchange(session.output(), {});
  }
  /// Plugs in an undistorted touchscreen whose reports the host reads.
  UsbTouchscreen& plugListened() {
    run("plug a infrared offset=0,0 scale=1,1 skew=0,0 barrel=0 noise=0");
    touchscreens.find("a")->device.setListened(true);
    return touchscreens.find("a")->device;
  }
  static std::size_t reportsWaiting(UsbTouchscreen& device) {
    std::size_t count = 0;
    while (!device.takeReport().empty()) ++count;
    return count;
  }

  FakeUsbBus bus;
  Touchscreens touchscreens{bus};
  Session session{touchscreens};
  Time now{1s};
};

TEST_F(SessionTest, AnswersWhatItCannotDoWithAReason) {
  run("plug a infrared");
  run("plug gone optical\nunplug gone");
  const std::pair<const char*, const char*> cases[] = {
      {"jump a", "error there is no command jump"},
      {"tap a 0.5", "error usage: tap NAME X Y [MS]"},
      {"tap b 0.5 0.5", "error there is no touchscreen called b"},
      {"tap gone 0.5 0.5", "error gone is not plugged in"},
      {"unplug gone", "error gone is not plugged in"},
      {"tap a 0.5 1.01", "error a coordinate is a number from 0 to 1, not 1.01"},
      {"tap a 0.5 nan", "error a coordinate is a number from 0 to 1, not nan"},
      {"tap a 0.5 0.5x", "error a coordinate is a number from 0 to 1, not 0.5x"},
      {"tap a 0.5 0.5 -1", "error a time in milliseconds is a number from 0 to 3600000, not -1"},
      {"down a 10 0 0", "error a finger is a number from 0 to 9, not 10"},
      {"plug a", "error a is plugged in already"},
      {"plug a infrared", "error a exists already; plug it in again without a kind"},
      {"plug c", "error a new touchscreen needs a kind"},
      {"plug c foggy", "error a kind is one of: infrared optical configuration-only"},
      {"plug c infrared size=3", "error there is no option size"},
      {"plug c infrared serial", "error an option is written OPTION=VALUE, not serial"},
      {"plug c infrared offset=1", "error offset is a pair of numbers: X,Y"},
      {"plug c infrared product=0x0c20", "error no touchscreen of that kind has product id 0x0c20"},
      {"fault a sleepy", "error a fault is one of: none ignores-command"},
      {"fault a unplugs-after-packets", "error unplugs-after-packets takes a number from 1"},
      {"await a configured 50", "error a is not configured"},
      {"await a asleep", "error a state is configured, listening or unplugged"},
  };
  for (const auto& [command, reply] : cases) EXPECT_THAT(run(command), StartsWith(reply)) << command;
  EXPECT_EQ(run("list"), "ok a@0 gone@-\n") << "none of them had an effect";
}

TEST_F(SessionTest, TakesRemarksAndTextInAnyPieces) {
  session.feed("# nothing\n\n  li");
  session.feed("st # all of them\nlist");
  session.proceed(now);
  EXPECT_EQ(session.output(), "ok\n");
  session.finish();
  session.proceed(now);
  EXPECT_EQ(session.output(), "ok\nok\n");
  EXPECT_EQ(run("quit\nlist"), "ok\nok\n") << "nothing after quit";
  EXPECT_TRUE(session.quitAsked());
}

TEST_F(SessionTest, ForgetsANewTouchscreenThatCannotBePluggedIn) {
  for (const auto outcome : {PlugResult::Outcome::PortBusy, PlugResult::Outcome::Failed}) {
    bus.outcome = outcome;
    EXPECT_EQ(run("plug a infrared\nlist"), "error taken\nok\n");
  }
}

TEST_F(SessionTest, PlaysGesturesInTheirOwnTime) {
  UsbTouchscreen& device = plugListened();
  session.feed("tap a 0.25 0.5 80\nlist\n");
  session.proceed(now);
  EXPECT_EQ(reportsWaiting(device), 1U);
  EXPECT_EQ(session.deadline(), now + 80ms);
  session.proceed(now + 79ms);
  EXPECT_EQ(session.output(), "") << "the next command waits for the finger";
  session.proceed(now += 80ms);
  EXPECT_EQ(reportsWaiting(device), 1U);
  EXPECT_THAT(std::exchange(session.output(), {}), StartsWith("ok raw 8192 16384\nok a@0"));

  const Time before = now;
  EXPECT_EQ(run("swipe a 0 0 0.5 0.5 100"), "ok raw 16384 16384\n");
  EXPECT_EQ(now - before, 110ms);
  EXPECT_EQ(reportsWaiting(device), 12U) << "first touch, ten moves, and the lift";
  run("swipe a 0 0 0.5 0.5 100 5");
  EXPECT_EQ(reportsWaiting(device), 22U);
}

TEST_F(SessionTest, CountsTouchesThatNobodyReads) {
  UsbTouchscreen& device = plugListened();
  session.feed("swipe a 0 0 0.5 0.5 1000\nlist\n");
  session.proceed(now);
  touchscreens.unplug(*touchscreens.find("a"));
  session.proceed(now + 2s);
  EXPECT_THAT(std::exchange(session.output(), {}), HasSubstr("ok a@-"));
  EXPECT_EQ(device.droppedReports(), 1U) << "the report that was waiting; later ones are none";
  EXPECT_THAT(run("plug a\ntap a 0.5 0.5"), HasSubstr("dropped 2"));
}

}  // namespace
}  // namespace touchpanel::emulator
