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

class JoinedDoubleClickTest : public ::testing::Test {
 protected:
  std::int64_t clickTime() {
    return registry.properties(hid)->dictionary("HIDParameters")->longInteger("HIDClickTime");
  }
  FakeRegistry service;
  FakeDesktop desktop;
  RegistryObject hid = service.add(class_name::kHidSystem, 0,
                                   {{"HIDParameters", Dictionary{{"HIDClickTime", std::int64_t{500'000'000}},
                                                                 {"HIDClickSpace", Array{5, 5}}}}});
  JoinedDoubleClick registry{service, desktop};
};

TEST_F(JoinedDoubleClickTest, ShowsTheServicesTimeWhereTheDesktopHasNone) {
  EXPECT_EQ(clickTime(), 500'000'000);
  EXPECT_EQ(registry.setProperty(hid, "HIDClickTime", 400'000'000), kSuccess);
  EXPECT_EQ(service.writesTo(hid).size(), 1U);
}

TEST_F(JoinedDoubleClickTest, ShowsTheDesktopsTimeAndWritesBothUnlessTheServiceRefuses) {
  desktop.set = std::chrono::milliseconds(650);
  EXPECT_EQ(clickTime(), 650'000'000);
  EXPECT_EQ(*registry.properties(hid)->dictionary("HIDParameters")->array("HIDClickSpace"), (Array{5, 5}));
  EXPECT_EQ(registry.setProperty(hid + 1, "HIDClickTime", 400'000'000), kErrorNoDevice);
  EXPECT_EQ(registry.setProperty(hid, "HIDClickSpace", Array{9, 9}), kSuccess);
  EXPECT_EQ(desktop.set, std::chrono::milliseconds(650));
  EXPECT_EQ(registry.setProperty(hid, "HIDClickTime", 400'000'000), kSuccess);
  EXPECT_EQ(desktop.set, std::chrono::milliseconds(400));
  EXPECT_EQ(service.writesTo(hid).size(), 2U);
}

}  // namespace
}  // namespace touchpanel::testing
