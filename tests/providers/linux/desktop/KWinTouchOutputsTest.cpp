#include <gtest/gtest.h>
#include <sdbus-c++/sdbus-c++.h>

#include "providers/linux/desktop/KWinTouchOutputs.h"
#include "support/PrivateBus.h"

namespace touchpanel::testing {
namespace {

/// KWin's input devices on the session bus.
struct FakeKWin {
  struct Device {
    std::string name;
    bool touch;
    std::string output = "HDMI-A-1";
    std::unique_ptr<sdbus::IObject> object = {};
  };

  FakeKWin() {
    constexpr char kPath[] = "/org/kde/KWin/InputDevice";
    all_ = sdbus::createObject(*connection, kPath);
    all_->registerProperty("devicesSysNames")
        .onInterface("org.kde.KWin.InputDeviceManager")
        .withGetter([this] {
          std::vector<std::string> names;
          for (const auto& [name, device] : devices) names.push_back(name);
          return names;
        });
    all_->finishRegistration();
    for (auto& [name, device] : devices) {
      constexpr char kDevice[] = "org.kde.KWin.InputDevice";
      auto& each = device;
      each.object = sdbus::createObject(*connection, std::string(kPath) + '/' + name);
      each.object->registerProperty("name").onInterface(kDevice).withGetter([&each] { return each.name; });
      each.object->registerProperty("touch").onInterface(kDevice).withGetter([&each] { return each.touch; });
      each.object->registerProperty("outputName")
          .onInterface(kDevice)
          .withGetter([&each] { return each.output; })
          .withSetter([this, &each](const std::string& output) {
            ++writes;
            each.output = output;
          });
      each.object->finishRegistration();
    }
    connection->enterEventLoopAsync();
  }
  ~FakeKWin() { connection->leaveEventLoop(); }

  // Outlives the objects.
  std::unique_ptr<sdbus::IConnection> connection = sdbus::createSessionBusConnection("org.kde.KWin");
  std::map<std::string, Device> devices = [] {
    std::map<std::string, Device> all;
    all["event3"] = {"Touchscreen 14100000 pointer", false};
    all["event4"] = {"Touchscreen 14100000 multi-touch", true};
    all["event5"] = {"Touchscreen 14200000 multi-touch", true};
    return all;
  }();
  int writes = 0;

 private:
  std::unique_ptr<sdbus::IObject> all_;
};

TEST(KWinTouchOutputs, SetsTheMonitorOfTheTouchDeviceAloneAndOnlyWhenItIsAnother) {
  PrivateBus bus;
  Monitor monitor;
  monitor.connector = "DP-1";
  KWinTouchOutputs outputs;
  outputs.assign("Touchscreen 14100000", monitor);  // no KWin
  {
    FakeKWin kwin;
    for (int again = 0; again < 2; ++again) outputs.assign("Touchscreen 14100000", monitor);
    EXPECT_EQ(kwin.devices["event4"].output, "DP-1");
    EXPECT_EQ(kwin.devices["event3"].output, "HDMI-A-1");
    EXPECT_EQ(kwin.devices["event5"].output, "HDMI-A-1");
    EXPECT_EQ(kwin.writes, 1);
  }
  bus.stop();
  outputs.assign("Touchscreen 14100000", monitor);  // no bus
}

}  // namespace
}  // namespace touchpanel::testing
