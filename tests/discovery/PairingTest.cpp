#include <gmock/gmock.h>

#include "discovery/DriverChannel.h"
#include "discovery/Pairing.h"
#include "support/FakeRegistry.h"

namespace touchpanel {
namespace {

using testing::FakeRegistry;
constexpr char kWanted[] = "IOHIDPointingDevice";

TEST(Scan, EndsALevelAtItsFirstMatchButLetsALaterBranchWin) {
  FakeRegistry registry;
  const auto root = registry.add("root");
  const auto left = registry.add("branch", root);
  registry.add("leaf", left);
  const auto inLeft = registry.add(kWanted, left);
  registry.add(kWanted, left);  // behind the first match of its level: never seen
  RegistryObject out = 0;
  scan(registry, root, 1, out, kWanted);
  EXPECT_EQ(out, inLeft);

  const auto right = registry.add("branch", root);
  const auto deep = registry.add("deep", right);
  const auto inRight = registry.add(kWanted, deep);
  scan(registry, root, 0, out, kWanted);
  EXPECT_EQ(out, inRight) << "the walk goes on after a match further down";

  const auto direct = registry.add(kWanted, root);
  const auto behind = registry.add("branch", root);
  registry.add(kWanted, behind);
  scan(registry, root, 1, out, kWanted);
  EXPECT_EQ(out, direct) << "a match at this level ends it";
}

TEST(Scan, LeavesTheResultAloneWhenNothingIsFound) {
  FakeRegistry registry;
  const auto root = registry.add("root");
  RegistryObject out = 42;
  scan(registry, root, 1, out, kWanted);
  scan(registry, root + 100, 1, out, kWanted);
  EXPECT_EQ(out, 42U);
}

TEST(CompareID, FindsTheFirstInstanceAtALocation) {
  FakeRegistry registry;
  const auto plain = registry.addDriver(0x14100000);
  const auto wide = registry.addDriver(0x7'0000'0020);  // only the low 32 bits count
  const auto silent = registry.add("VARNEXOTouchScreenDriver");
  const auto textual = registry.add("VARNEXOTouchScreenDriver");
  registry.add(kWanted, textual, {{"LocationID", "32"}});
  const auto twin = registry.addDriver(0x14100000);
  const auto nowhere = registry.addDriver(0);
  const std::vector<RegistryObject> all{silent, plain, wide, textual, nowhere, twin};
  struct Case {
    std::uint32_t location;
    RegistryObject instance;
  };
  for (const auto& expected : {Case{0x14100000, plain}, Case{0x20, wide}, Case{0x21, 0}, Case{0, 0}}) {
    RegistryObject out = 0;
    EXPECT_EQ(compareID(registry, all, expected.location, out), expected.instance) << expected.location;
    if (expected.instance == 0) continue;
    EXPECT_EQ(out, registry.childrenOf(expected.instance).front()) << expected.location;
  }
}

TEST(DriverChannel, ReadsNoCaptureFromNothingPassesTheModeOnAsStoredAndWrapsTheDoubleClickTime) {
  FakeRegistry registry;
  const auto handle = registry.addDriver(7);
  DriverChannel channel(registry);
  EXPECT_EQ(channel.readCapture(handle), std::nullopt) << "nothing was captured yet";
  channel.setMode(handle, "two");
  EXPECT_EQ(registry.writes.back().value, Value(Dictionary{{"mode", "two"}}));
  for (const auto& [milliseconds, nanoseconds] : {std::pair(2147, 2'147'000'000), {2148, -2'146'967'296}}) {
    registry.writes.clear();
    channel.writeDoubleClick(handle, milliseconds, 4);
    EXPECT_EQ(registry.writes.front().value, Value(nanoseconds));
  }
}

}  // namespace
}  // namespace touchpanel
