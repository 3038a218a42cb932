#include <gtest/gtest.h>

#include "providers/linux/desktop/JoinedDoubleClick.h"
#include "support/FakeRegistry.h"

namespace touchpanel::testing {
namespace {

struct FakeDesktop final : DesktopDoubleClick {
  std::optional<std::chrono::milliseconds> time() const override { return set; }
  bool setTime(std::chrono::milliseconds time) override {
    if (set) set = time;
    return set.has_value();
  }
  std::optional<std::chrono::milliseconds> set;
};

TEST(JoinedDoubleClick, ShowsTheDesktopsTimeIfThereIsOneAndWritesBothUnlessTheServiceRefuses) {
  FakeRegistry service;
  const auto hid = service.add(class_name::kHidSystem, 0,
                               {{"HIDParameters", Dictionary{{"HIDClickTime", std::int64_t{500'000'000}},
                                                             {"HIDClickSpace", Array{5, 5}}}}});
  FakeDesktop desktop;
  JoinedDoubleClick registry{service, desktop};
  const auto shown = [&] { return *registry.properties(hid)->dictionary("HIDParameters"); };
  EXPECT_EQ(shown().longInteger("HIDClickTime"), 500'000'000);
  EXPECT_EQ(registry.setProperty(hid, "HIDClickTime", 300'000'000), kSuccess);
  desktop.set = std::chrono::milliseconds(650);
  EXPECT_EQ(shown().longInteger("HIDClickTime"), 650'000'000);
  EXPECT_EQ(*shown().array("HIDClickSpace"), (Array{5, 5}));
  EXPECT_EQ(registry.setProperty(hid + 1, "HIDClickTime", 400'000'000), kErrorNoDevice);
  EXPECT_EQ(registry.setProperty(hid, "HIDClickSpace", Array{9, 9}), kSuccess);
  EXPECT_EQ(desktop.set, std::chrono::milliseconds(650));
  EXPECT_EQ(registry.setProperty(hid, "HIDClickTime", 400'000'000), kSuccess);
  EXPECT_EQ(desktop.set, std::chrono::milliseconds(400));
  EXPECT_EQ(service.writesTo(hid).size(), 3U);
}

}  // namespace
}  // namespace touchpanel::testing
