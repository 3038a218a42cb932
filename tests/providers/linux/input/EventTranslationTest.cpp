// Input events to frames and frames to input events, against the kernel's own constants.
#include <array>
#include <limits>
#include <memory>
#include <random>
#include <set>
#include <sstream>
#include <stdexcept>

#include <gtest/gtest.h>
#include <libevdev/libevdev.h>
#include <linux/input.h>

#include "providers/linux/input/FrameAssembler.h"
#include "providers/linux/input/NodeReports.h"
#include "providers/linux/input/OutputEvents.h"

namespace touchpanel::testing {
namespace {

TEST(ScaledToLogical, MapsAnyRangeOntoTheWholeLogicalOne) {
  using Row = std::array<std::int32_t, 4>;
  for (const auto& [value, minimum, maximum, logical] :
       {Row{0, 0, 32767, 0}, Row{4095, 0, 4095, 32767}, Row{2048, 0, 4095, 16388}, Row{0, -100, 100, 16384},
        Row{101, -100, 100, 32767}, Row{-2147483647, 0, 10, 0},
        Row{2147483647, -2147483647, 2147483647, 32767}, Row{5, 9, 1, 0}})
    EXPECT_EQ(scaledToLogical(value, {minimum, maximum}), logical) << value;
}

struct Code {
  const char* name;
  unsigned type;
  unsigned code;
};
constexpr Code kCodes[] = {{"x", EV_ABS, ABS_X},
                           {"y", EV_ABS, ABS_Y},
                           {"X", EV_ABS, ABS_MT_POSITION_X},
                           {"Y", EV_ABS, ABS_MT_POSITION_Y},
                           {"id", EV_ABS, ABS_MT_TRACKING_ID},
                           {"slot", EV_ABS, ABS_MT_SLOT},
                           {"dx", EV_REL, REL_X},
                           {"touch", EV_KEY, BTN_TOUCH},
                           {"left", EV_KEY, BTN_LEFT},
                           {"pen", EV_KEY, BTN_TOOL_PEN},
                           {"stylus", EV_KEY, BTN_STYLUS},
                           {"key", EV_KEY, KEY_A},
                           {"|", EV_SYN, SYN_MT_REPORT},
                           {";", EV_SYN, SYN_REPORT}};

const Code& codeOf(const std::string& name) {
  for (const auto& code : kCodes)
    if (code.name == name) return code;
  throw std::invalid_argument(name);
}

/// What `events`, "<code>=<value> <code>=<value> ; ..." with "|" after each listed contact and ";" after each
/// report, give: "id@x,y id@x,y" per frame, "-" for an empty one, parted by "; ".
std::string framesOf(InputReports reports, const std::string& events) {
  std::ostringstream text;
  FrameAssembler assembler(reports, {0, 32767}, {0, 32767}, [&](const RawFrame& frame) {
    if (text.tellp() > 0) text << "; ";
    if (frame.count == 0) text << '-';
    for (std::size_t i = 0; i < frame.count; ++i)
      text << (i ? " " : "") << frame.contacts[i].id << '@' << frame.contacts[i].x << ','
           << frame.contacts[i].y;
    EXPECT_EQ(frame.time, std::chrono::microseconds(7));
  });
  std::istringstream words(events);
  for (std::string word; words >> word;) {
    const auto equals = word.find('=');
    const auto& [name, type, code] = codeOf(word.substr(0, equals));
    assembler.event(static_cast<std::uint16_t>(type), static_cast<std::uint16_t>(code),
                    equals == std::string::npos ? 0 : std::stoi(word.substr(equals + 1)),
                    std::chrono::microseconds(7));
  }
  return text.str();
}

TEST(FrameAssembler, FollowsWhateverATouchscreenReports) {
  using enum InputReports;
  for (const auto& [what, reports, events, frames] :
       std::vector<std::tuple<const char*, InputReports, const char*, const char*>>{
           {"a single touch", SingleTouch,
            "x=10 y=20 ; touch=1 ; x=11 ; slot=3 left=1 touch=0 ; touch=0 ; touch=1 ; touch=1 ;",
            "-; 0@10,20; 0@11,20; -; -; 0@11,20; 0@11,20"},
           {"two touches in a report", SingleTouch, "x=10 touch=1 ; touch=0 x=900 touch=1 ;",
            "0@10,0; -; 0@900,0"},
           {"an absolute mouse", AbsoluteMouse, "x=10 y=20 ; touch=1 ; left=1 ; x=11 ; left=0 ;",
            "-; -; 0@10,20; 0@11,20; -"},
           {"a pen that comes near before it touches", Pen, "pen=1 x=10 y=20 ; touch=1 ; touch=0 ; pen=0 ;",
            "-; 0@10,20; -; -"},
           {"slots", MultiTouchB,
            "id=50 X=1 Y=2 slot=4 id=51 X=5 Y=6 touch=1 x=1 ; X=7 ; slot=0 id=-1 ; slot=4 id=-1 ;",
            "0@1,2 4@5,6; 0@1,2 4@7,6; 4@7,6; -"},
           {"slots that are none", MultiTouchB, "slot=10 id=1 X=1 slot=-1 id=1 slot=9 id=2 X=3 ;", "9@3,0"},
           {"slots asked for once more, then another finger in one of them", MultiTouchB,
            "id=5 X=1 ; slot=0 id=5 X=1 slot=0 ; id=6 X=900 ; id=-1 id=7 ;",
            "0@1,0; 0@1,0; -; 0@900,0; -; 0@900,0"},
           {"a list with ids in any order", MultiTouchA,
            "id=7 X=10 Y=20 | id=9 X=900 | ; id=9 X=30000 | id=7 X=11 | ; id=9 X=30001 Y=5 | ; | ;",
            "0@10,20 1@900,20; 0@11,20 1@30000,20; 1@30001,5; -"},
           {"a list without ids in any order", MultiTouchA,
            "X=10 Y=10 | X=900 Y=900 | ; X=910 | X=20 Y=20 | X=500 ; X=21 Y=20 | X=501 Y=20 | ; ;",
            "0@10,10 1@900,900; 0@20,20 1@910,900 2@500,20; 0@21,20 2@501,20; -"},
           {"a list in which another finger has landed far away", MultiTouchA,
            "X=10 Y=10 | ; X=9000 Y=10 | ;", "0@10,10; 1@9000,10"}})
    EXPECT_EQ(framesOf(reports, events), frames) << what;
}

TEST(FrameAssembler, MakesSoundFramesOfAnyEventsAndRanges) {
  std::mt19937 random(1);
  const auto below = [&](int end) { return std::uniform_int_distribution(0, end - 1)(random); };
  constexpr auto kLeast = std::numeric_limits<std::int32_t>::min();
  constexpr auto kMost = std::numeric_limits<std::int32_t>::max();
  for (const auto reports : {InputReports::Nothing, InputReports::Pen, InputReports::AbsoluteMouse,
                             InputReports::SingleTouch, InputReports::MultiTouchA, InputReports::MultiTouchB})
    for (const auto range : {AxisRange{0, 0}, {5, -5}, {kLeast, kMost}, {0, 32767}}) {
      FrameAssembler assembler(reports, range, range, [](const RawFrame& frame) {
        std::set<std::int32_t> ids;
        ASSERT_LE(frame.count, kMaximumContacts);
        for (std::size_t i = 0; i < frame.count; ++i) {
          const auto& [id, x, y] = frame.contacts[i];
          ASSERT_TRUE(id >= 0 && id < static_cast<std::int32_t>(kMaximumContacts) && ids.insert(id).second);
          ASSERT_TRUE(x >= 0 && x <= 32767 && y >= 0 && y <= 32767);
        }
      });
      for (int i = 0; i < 5000; ++i) {
        const auto& code = kCodes[static_cast<std::size_t>(below(std::size(kCodes)))];
        const auto value = below(3) ? below(14) - 2 : static_cast<std::int32_t>(random());
        assembler.event(static_cast<std::uint16_t>(code.type), static_cast<std::uint16_t>(code.code), value,
                        {});
      }
    }
}

TEST(NodeReports, FollowFromTheCodesThatANodeHas) {
  using enum InputReports;
  for (const auto& [codes, maximum, touches, isPointing] :
       std::vector<std::tuple<const char*, int, InputReports, bool>>{
           {"touch x y X Y id slot", 9, MultiTouchB, true},
           {"touch x y X Y id slot pen", 9, MultiTouchB, true},
           {"touch x y X Y id", 9, MultiTouchA, true},
           {"X Y", 9, MultiTouchA, true},
           {"touch x y", 9, SingleTouch, true},
           {"touch left x y", 9, SingleTouch, true},
           {"touch x y pen", 9, Pen, true},
           {"touch x y stylus", 9, Pen, true},
           {"left x y", 9, AbsoluteMouse, true},
           {"left x y", 0, Nothing, true},
           {"touch x y X Y id slot", 0, Nothing, false},
           {"left dx", 9, Nothing, true},
           {"touch x", 9, Nothing, false},
           {"x y", 9, Nothing, false},
           {"key", 9, Nothing, false}}) {
    const std::unique_ptr<libevdev, decltype(&libevdev_free)> device(libevdev_new(), libevdev_free);
    const input_absinfo axis{0, 0, maximum, 0, 0, 0};
    std::istringstream words(codes);
    for (std::string word; words >> word;) {
      const auto& [name, type, code] = codeOf(word);
      libevdev_enable_event_code(device.get(), type, code, type == EV_ABS ? &axis : nullptr);
    }
    const AxisRange range{0, touches == Nothing ? 0 : maximum};
    EXPECT_EQ(reportsOf(*device), (NodeReports{touches, isPointing, range, range})) << codes;
  }
}

std::string told(std::span<const input_event> events) {
  std::ostringstream text;
  for (const auto& event : events)
    text << (text.tellp() > 0 ? " " : "") << event.type << '/' << event.code << '=' << event.value;
  return text.str();
}

TEST(PointerEvents, TellOnlyChangesInOneReportButBothAxesAtAPress) {
  PointerEvents events;
  EXPECT_EQ(told(events.next({true, 0, 5, true, false, 0, {}})), "3/0=1 3/0=0 3/1=5 1/272=1 0/0=0")
      << "0 is what a new device has";
  EXPECT_EQ(told(events.next({true, 7, 5, true, false, 0, {}})), "3/0=7 0/0=0");
  EXPECT_EQ(told(events.next({true, 7, 5, true, false, 0, {}})), "");
  EXPECT_EQ(told(events.next({true, 7, 5, false, true, 0, {}})),
            "3/0=6 3/0=7 3/1=4 3/1=5 1/272=0 1/273=1 0/0=0");
  EXPECT_EQ(told(events.next({})), "1/273=0 0/0=0");
}

TEST(ContactEvents, GiveEachLandingASlotAndAFreshTrackingId) {
  ContactEvents events;
  EXPECT_EQ(told(events.next({false, 0, 0, false, false, 2, {{{3, 10, 20}, {0, 1, 2}}}})),
            "3/47=3 3/57=0 3/53=10 3/54=20 3/47=0 3/57=1 3/53=1 3/54=2 1/330=1 3/0=10 3/1=20 0/0=0");
  EXPECT_EQ(told(events.next({false, 0, 0, false, false, 2, {{{3, 10, 21}, {0, 1, 2}}}})),
            "3/47=3 3/54=21 3/0=10 3/1=21 0/0=0");
  EXPECT_EQ(told(events.next({false, 0, 0, false, false, 1, {{{0, 1, 2}}}})),
            "3/47=3 3/57=-1 3/0=1 3/1=2 0/0=0");
  EXPECT_EQ(told(events.next({})), "3/47=0 3/57=-1 1/330=0 0/0=0");
  EXPECT_EQ(told(events.next({})), "");
  EXPECT_EQ(told(events.next({false, 0, 0, false, false, 1, {{{3, 10, 21}}}})),
            "3/47=3 3/57=2 3/53=10 3/54=21 1/330=1 3/0=10 3/1=21 0/0=0");
}

TEST(ContactEvents, HaveRoomForEveryContactAtOnce) {
  ContactEvents events;
  OutputFrame all;
  for (std::int32_t id = 0; id < 5; ++id) all.contacts[all.count++] = {id, 1, 1};
  events.next(all);
  OutputFrame others;
  for (std::int32_t id = 5; id < 10; ++id) others.contacts[others.count++] = {id, 2, 2};
  EXPECT_EQ(events.next(others).size(), 5 * 2 + 5 * 4 + 3);
  for (std::int32_t id = 0; id < 5; ++id) others.contacts[others.count++] = {id, 3, 3};
  EXPECT_EQ(events.next(others).size(), 5 * 4 + 3);
}

}  // namespace
}  // namespace touchpanel::testing
