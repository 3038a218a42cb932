// Input events to frames and frames to input events, against the kernel's own constants.
#include <array>
#include <sstream>

#include <gtest/gtest.h>
#include <linux/input.h>

#include "providers/linux/input/FrameAssembler.h"
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

/// "id@x,y id@x,y" per frame, "-" for an empty one, parted by "; ".
std::string framesOf(bool multiTouch, const std::vector<input_event>& events) {
  std::ostringstream text;
  FrameAssembler assembler(multiTouch, {0, 32767}, {0, 32767}, [&](const RawFrame& frame) {
    if (text.tellp() > 0) text << "; ";
    if (frame.count == 0) text << '-';
    for (std::size_t i = 0; i < frame.count; ++i)
      text << (i ? " " : "") << frame.contacts[i].id << '@' << frame.contacts[i].x << ','
           << frame.contacts[i].y;
    EXPECT_EQ(frame.time, std::chrono::microseconds(7));
  });
  for (const auto& event : events)
    assembler.event(event.type, event.code, event.value, std::chrono::microseconds(7));
  return text.str();
}

input_event abs(int code, int value) { return {{}, EV_ABS, static_cast<std::uint16_t>(code), value}; }
input_event key(int code, int value) { return {{}, EV_KEY, static_cast<std::uint16_t>(code), value}; }
const input_event kReport = {{}, EV_SYN, SYN_REPORT, 0};

TEST(FrameAssembler, FollowsASingleTouch) {
  EXPECT_EQ(
      framesOf(false, {abs(ABS_X, 10), abs(ABS_Y, 20), kReport, key(BTN_TOUCH, 1), kReport, abs(ABS_X, 11),
                       kReport, abs(ABS_MT_SLOT, 3), key(BTN_LEFT, 1), key(BTN_TOUCH, 0), kReport}),
      "-; 0@10,20; 0@11,20; -");
}

TEST(FrameAssembler, FollowsSlots) {
  EXPECT_EQ(
      framesOf(true, {abs(ABS_MT_TRACKING_ID, 50), abs(ABS_MT_POSITION_X, 1), abs(ABS_MT_POSITION_Y, 2),
                      abs(ABS_MT_SLOT, 4), abs(ABS_MT_TRACKING_ID, 51), abs(ABS_MT_POSITION_X, 5),
                      abs(ABS_MT_POSITION_Y, 6), key(BTN_TOUCH, 1), abs(ABS_X, 1), kReport,
                      abs(ABS_MT_POSITION_X, 7), kReport, abs(ABS_MT_SLOT, 0), abs(ABS_MT_TRACKING_ID, -1),
                      kReport, abs(ABS_MT_SLOT, 4), abs(ABS_MT_TRACKING_ID, -1), kReport}),
      "0@1,2 4@5,6; 0@1,2 4@7,6; 4@7,6; -");
  EXPECT_EQ(framesOf(true, {abs(ABS_MT_SLOT, 10), abs(ABS_MT_TRACKING_ID, 1), abs(ABS_MT_POSITION_X, 1),
                            abs(ABS_MT_SLOT, -1), abs(ABS_MT_TRACKING_ID, 1), abs(ABS_MT_SLOT, 9),
                            abs(ABS_MT_TRACKING_ID, 2), abs(ABS_MT_POSITION_X, 3), kReport}),
            "9@3,0")
      << "slots beyond the contacts that count";
}

TEST(FrameAssembler, LetsAFingerLeaveBeforeAnotherTakesItsSlot) {
  const std::vector<input_event> down = {abs(ABS_MT_TRACKING_ID, 1), abs(ABS_MT_POSITION_X, 5), kReport};
  for (const bool said : {true, false}) {
    auto events = down;
    if (said) events.push_back(abs(ABS_MT_TRACKING_ID, -1));
    events.insert(events.end(), {abs(ABS_MT_TRACKING_ID, 2), abs(ABS_MT_POSITION_X, 900), kReport, kReport});
    EXPECT_EQ(framesOf(true, events), "0@5,0; -; 0@900,0; 0@900,0");
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
