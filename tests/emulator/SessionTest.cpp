#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "emulator/console/Session.h"

namespace touchpanel::emulator {
namespace {

using namespace std::chrono_literals;
using ::testing::HasSubstr;
using ::testing::StartsWith;

/// A bus with two ports that a test can hold occupied.
class FakeUsbBus : public UsbBus {
 public:
  PlugResult plug(UsbIpConnection& connection, std::optional<int> port) override {
    if (broken) return {PlugResult::Outcome::Failed, 0, "no bus"};
    const int chosen = port.value_or(plugged.empty() ? 0 : 1);
    if (busy) return {PlugResult::Outcome::PortBusy, 0, "taken"};
    plugged.push_back(&connection);
    return {PlugResult::Outcome::Plugged, chosen, {}};
  }
  void unplug(UsbIpConnection& connection) override { std::erase(plugged, &connection); }

  bool broken = false;
  bool busy = false;
  std::vector<UsbIpConnection*> plugged;
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
  UsbTouchscreen& device(const std::string& name) { return touchscreens.find(name)->device; }
  /// Plugs in an undistorted touchscreen that somebody reads.
  void plugListened(const std::string& name) {
    run("plug " + name + " infrared offset=0,0 scale=1,1 skew=0,0 barrel=0 noise=0");
    device(name).setListened(true);
  }
  std::size_t reportsWaiting(const std::string& name) {
    std::size_t count = 0;
    while (!device(name).takeReport().empty()) ++count;
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
}

TEST_F(SessionTest, KeepsATouchscreensPortAndMemoryWhileItIsUnplugged) {
  EXPECT_EQ(run("plug a infrared port=1 serial=7 product=0x85"), "ok port 1\n");
  const std::string before = run("dump a");
  EXPECT_THAT(before, HasSubstr("product=0x0085"));
  EXPECT_EQ(run("unplug a\nplug a"), "ok\nok port 1\n");
  EXPECT_EQ(run("dump a"), before);
}

TEST_F(SessionTest, WaitsForAPortThatIsAboutToBeFree) {
  bus.busy = true;
  session.feed("plug a infrared\n");
  session.proceed(now);
  ASSERT_TRUE(session.deadline());
  bus.busy = false;
  session.proceed(*session.deadline());
  EXPECT_EQ(session.output(), "ok port 0\n");
}

TEST_F(SessionTest, ForgetsANewTouchscreenThatCannotBePluggedIn) {
  bus.busy = true;
  EXPECT_EQ(run("plug a infrared"), "error taken\n");
  bus.broken = true;
  EXPECT_EQ(run("plug a infrared\nlist"), "error no bus\nok\n");
}

TEST_F(SessionTest, PlaysGesturesInTheirOwnTime) {
  plugListened("a");
  session.feed("tap a 0.25 0.5 80\nlist\n");
  session.proceed(now);
  EXPECT_EQ(reportsWaiting("a"), 1U);
  EXPECT_EQ(session.deadline(), now + 80ms);
  session.proceed(now + 79ms);
  EXPECT_EQ(session.output(), "") << "the next command waits for the finger";
  session.proceed(now + 80ms);
  EXPECT_EQ(reportsWaiting("a"), 1U);
  EXPECT_THAT(session.output(), StartsWith("ok raw 8192 16384\nok a@0"));
}

TEST_F(SessionTest, SwipesFromPointToPoint) {
  plugListened("a");
  const Time before = now;
  EXPECT_EQ(run("swipe a 0 0 0.5 0.5 100"), "ok raw 16384 16384\n");
  EXPECT_EQ(now - before, 110ms);
  EXPECT_EQ(reportsWaiting("a"), 12U) << "first touch, ten moves, and the lift";
  run("swipe a 0 0 0.5 0.5 100 5");
  EXPECT_EQ(reportsWaiting("a"), 22U);
}

TEST_F(SessionTest, TellsOfTouchesThatNobodyRead) {
  run("plug a infrared");
  EXPECT_THAT(run("tap a 0.5 0.5"), HasSubstr("dropped 2"));
}

TEST_F(SessionTest, EndsAGestureQuietlyOnATouchscreenThatIsGone) {
  plugListened("a");
  session.feed("hold a 0.5 0.5 1000\nlist\n");
  session.proceed(now);
  touchscreens.unplug(*touchscreens.find("a"));
  session.proceed(now + 1s);
  EXPECT_THAT(session.output(), HasSubstr("ok a@-"));
  EXPECT_EQ(device("a").droppedReports(), 1U) << "the report that was waiting went with the plug";
}

TEST_F(SessionTest, WaitsForWhatTheHostDoes) {
  plugListened("a");
  EXPECT_EQ(run("await a listening"), "ok\n");
  EXPECT_EQ(run("await a configured 50"), "error a is not configured\n");
  session.feed("fault a unplugs-after-packets 1\nawait a unplugged\n");
  session.proceed(now);
  EXPECT_EQ(session.output(), "ok\n");
  device("a").control({0x40, 0, 0, 0, 6}, {});
  touchscreens.settle();
  session.proceed(now);
  EXPECT_EQ(session.output(), "ok\nok\n");
  EXPECT_TRUE(bus.plugged.empty());
}

TEST_F(SessionTest, QuitsAtOnce) {
  session.feed("quit\nlist\n");
  session.proceed(now);
  EXPECT_TRUE(session.quitAsked());
  EXPECT_EQ(session.output(), "");
}

}  // namespace
}  // namespace touchpanel::emulator
