// The service's own life: touchscreens come and go, things are refused and recovered, state is kept.
#include <gtest/gtest.h>

#include "contract/DriverProperties.h"
#include "driver/service/DriverService.h"
#include "support/AllocationCount.h"
#include "support/CalibrationParams.h"
#include "support/FakeFileWorker.h"
#include "support/FakePropertyListFiles.h"
#include "support/FakeServicePorts.h"
#include "support/RecordingDiagnostics.h"

namespace touchpanel::testing {
namespace {

using namespace std::chrono_literals;

constexpr std::uint32_t kHere = 0x00110000;
constexpr char kUsb[] = "/sys/usb1";
constexpr char kNode[] = "/dev/input/event3";

class Service : public ::testing::Test {
 protected:
  Service() { start(); }

  /// The process ends without a word, and another one starts.
  void start() {
    service.reset();
    store = std::make_unique<driver::StateStore>(files, worker, "/state", diagnostics);
    service = std::make_unique<driver::DriverService>(
        driver::ServicePorts{touches, inputs, outputs, timers, notices, reader, diagnostics}, *store);
  }
  void plug(std::uint16_t product = kProductConfigurationOnly) {
    service->touchscreenArrived(kUsb, {kHere, product});
    service->nodeArrived(kUsb, kNode);
  }
  RegistryObject object() { return service->registry().instancesOf(class_name::kTouchDriver).at(0); }
  Status write(std::string_view name, Dictionary value, const std::string& client = ":1.1") {
    return write(object(), name, std::move(value), client);
  }
  Status write(RegistryObject to, std::string_view name, const Value& value, const std::string& client) {
    std::optional<Status> answer;
    service->setProperty(to, name, value, client, [&](Status status) { answer = status; });
    worker.finish();
    return answer.value();
  }
  Dictionary read(const char* name) { return *service->registry().properties(object())->dictionary(name); }
  void touch(std::chrono::milliseconds at, std::int32_t x, std::int32_t y) {
    timers.time = at;
    inputs.touch(kNode, {at, 1, {{{0, x, y}}}});
  }
  void lift(std::chrono::milliseconds at) {
    timers.time = at;
    inputs.touch(kNode, {at, 0, {}});
  }
  FakeOutputDevices::Device& output() { return outputs.devices[kHere]; }

  FakeTouchThread touches;
  FakeTouchInputs inputs;
  FakeOutputDevices outputs;
  FakeTimers timers;
  FakeNotices notices;
  FakeCalibrationReader reader;
  RecordingDiagnostics diagnostics;
  FakePropertyListFiles files;
  FakeFileWorker worker;
  std::unique_ptr<driver::StateStore> store;
  std::unique_ptr<driver::DriverService> service;
};

TEST_F(Service, LetsGoOfATouchscreenThatLeavesAndNeverReusesAHandle) {
  plug();
  plug();
  EXPECT_EQ(object(), 256U);
  service->touchscreenLeft(kUsb);
  service->touchscreenLeft(kUsb);
  EXPECT_EQ(write(256, "calibration", Dictionary{}, ":1.1"), kErrorNoDevice);
  EXPECT_FALSE(inputs.nodes[kNode].held);
  EXPECT_FALSE(output().pointer);
  plug();
  EXPECT_EQ(object(), 259U);
}

TEST_F(Service, KeepsNothingOfTouchscreensThatHaveLeft) {
  std::ptrdiff_t held = 0;
  for (int round = 0; round < 10'000; ++round) {
    if (round == 100) held = heldAllocations();
    plug(round % 2 ? kProductOptical : kProductConfigurationOnly);
    touch(std::chrono::milliseconds(round), 100, 100);
    if (round % 3) service->nodeLeft(kNode);
    service->touchscreenLeft(kUsb);
    output().frames.clear();
  }
  EXPECT_EQ(heldAllocations(), held);
}

TEST_F(Service, CarriesTouchesFromTheNodeToThePointerAndLetsGoWhenTheNodeVanishes) {
  service->nodeArrived(kUsb, kNode);
  EXPECT_FALSE(inputs.nodes[kNode].held) << "not ours as long as no touchscreen is known for it";
  plug();
  touch(0ms, 100, 200);
  inputs.tick(1500ms);
  ASSERT_EQ(output().frames.size(), 3U);
  EXPECT_EQ(output().frames[0].x, 100);
  EXPECT_TRUE(output().frames[1].right) << "of a finger that reports nothing more";
  write("configration", {{"enableRightClick", false}});
  lift(1600ms);
  for (const auto at : {2000ms, 3000ms}) {
    touch(at, 300, 200);
    EXPECT_TRUE(output().frames.back().left);
    service->nodeLeft(kNode);
    EXPECT_FALSE(output().frames.back().left);
    service->nodeArrived(kUsb, kNode);
  }
}

TEST_F(Service, HoldsEveryPointingNodeButListensToTheOneThatCanDoMost) {
  const std::string keyboard = "/dev/input/event1", mouse = "/dev/input/event2", single = "/dev/input/event4";
  inputs.nodes[keyboard].openResult = kErrorUnsupported;
  inputs.nodes[mouse].reports = InputReports::Nothing;
  inputs.nodes[single].reports = InputReports::SingleTouch;
  service->touchscreenArrived(kUsb, {kHere, kProductConfigurationOnly});
  for (const auto& node : {keyboard, mouse, single}) service->nodeArrived(kUsb, node);
  EXPECT_TRUE(inputs.nodes[mouse].held);
  inputs.touch(single, {1ms, 1, {{{0, 1, 1}}}});
  write("configration", {{"enableRightClick", false}});
  inputs.touch(single, {2ms, 0, {}});
  inputs.touch(single, {3ms, 1, {{{0, 1, 1}}}});
  EXPECT_TRUE(output().frames.back().left);
  service->nodeArrived(kUsb, kNode);
  EXPECT_FALSE(output().frames.back().left) << "the finger of the one before is let go";
  EXPECT_TRUE(inputs.nodes[kNode].listener);
  EXPECT_FALSE(inputs.nodes[single].listener);
  EXPECT_TRUE(inputs.nodes[single].held);
  timers.advance(10s);
  EXPECT_EQ(inputs.nodes[keyboard].attempts, 1) << "a keyboard stays one";
  EXPECT_EQ(diagnostics.lines.size(), 1U);
  service->nodeLeft(kNode);
  EXPECT_TRUE(inputs.nodes[single].listener) << "the next one takes its place";
}

TEST_F(Service, TakesNoNodeUnderAFinger) {
  inputs.nodes[kNode].openResult = kErrorBusy;
  plug();
  timers.advance(2s);
  EXPECT_TRUE(diagnostics.lines.empty());
  inputs.nodes[kNode].openResult = kSuccess;
  timers.advance(1s);
  EXPECT_TRUE(inputs.nodes[kNode].listener);
}

TEST_F(Service, LosesNoTouchWhenTheKindOfDeviceChanges) {
  plug();
  const auto kinds = [&] { return std::pair(output().pointer, output().touch); };
  EXPECT_EQ(kinds(), std::pair(true, false));
  write("configration", {{"mode", 3}});
  EXPECT_EQ(kinds(), std::pair(true, true));
  touch(0ms, 5, 5);
  lift(1ms);
  EXPECT_EQ(output().frames.size(), 3U) << "by the device that the desktop knows";
  timers.advance(1s);
  EXPECT_EQ(kinds(), std::pair(false, true));
  touch(2000ms, 5, 5);
  EXPECT_EQ(output().touches.back().count, 1);
  lift(2001ms);
  write("calibration", {{"statCalibrate", true}});
  EXPECT_EQ(kinds(), std::pair(true, true)) << "a calibration is touched with a pointer";
  write("calibration", {{"statCalibrate", false}});
  timers.advance(1s);
  EXPECT_EQ(kinds(), std::pair(false, true));
}

TEST_F(Service, KeepsTryingARefusedGrabAndSaysSoOnce) {
  auto& node = inputs.nodes[kNode];
  node.openResult = kErrorExclusiveAccess;
  plug();
  timers.advance(5s);
  EXPECT_EQ(diagnostics.lines.size(), 1U);
  EXPECT_GE(node.attempts, 5);
  node.openResult = kSuccess;
  timers.advance(1s);
  EXPECT_TRUE(node.held);
  EXPECT_EQ(diagnostics.lines.size(), 2U);
  const int attempts = node.attempts;
  timers.advance(1h);  // and nothing polls any more
  EXPECT_EQ(node.attempts, attempts);
}

TEST_F(Service, LeavesTheDesktopItsRawTouchesWhileThereIsNoPointerDevice) {
  outputs.createResult = kErrorNotFound;
  plug();
  EXPECT_FALSE(inputs.nodes[kNode].held);
  EXPECT_EQ(write("configration", {{"mode", 3}}), kSuccess) << "settings are taken all the same";
  timers.advance(5s);
  EXPECT_EQ(diagnostics.lines.size(), 1U);
  outputs.createResult = kSuccess;
  timers.advance(1s);
  EXPECT_TRUE(output().touch);
  EXPECT_EQ(diagnostics.lines.size(), 2U);
  output().writeResult = kErrorNoDevice;
  touch(6000ms, 1, 1);
  lift(6010ms);
  EXPECT_EQ(diagnostics.lines.size(), 3U);
  output().writeResult = kSuccess;
  outputs.createResult = kErrorNotFound;
  timers.advance(2s);
  EXPECT_FALSE(inputs.nodes[kNode].held) << "nor while it has to be made anew";
  outputs.createResult = kSuccess;
  timers.advance(1s);
  touch(10000ms, 5, 5);
  EXPECT_EQ(output().touches.back().contacts[0].x, 5);
}

TEST_F(Service, KeepsSettingsThroughRestartAndReplugAndMultiTouchWithThem) {
  plug();
  EXPECT_FALSE(output().touch);
  write("calibration",
        {{"calibrateStatus", true}, {"calibParams", bytesOf(shiftedBy(7, 0))}, {"statCalibrate", true}});
  write("configration", {{"smoothness", 9}, {"mode", 3}});
  EXPECT_TRUE(output().touch);
  const auto configration = read("configration");
  auto calibration = read("calibration");
  calibration.set("statCalibrate", false);
  for (const bool restart : {true, false}) {
    if (restart)
      start();
    else
      service->touchscreenLeft(kUsb);
    plug();
    EXPECT_EQ(read("configration"), configration);
    EXPECT_EQ(read("calibration"), calibration);
    EXPECT_TRUE(output().touch);
  }
  write("configration", {{"mode", 2}});
  timers.advance(1s);
  EXPECT_FALSE(output().touch);
}

TEST_F(Service, SavesWhatChangesAndSaysOnceThatItCannot) {
  plug();
  write("configration", {{"mode", 2}});
  write("calibration", {{"statCalibrate", true}});
  EXPECT_EQ(write("configration", {{"mode", 99}}), kErrorBadArgument);
  EXPECT_EQ(files.writeAttempts, 0);
  const std::pair<Status, std::size_t> attempts[] = {
      {kErrorNoSpace, 1}, {kErrorNoSpace, 1}, {kSuccess, 2}, {kSuccess, 2}, {kErrorNoSpace, 3}};
  for (const auto& [status, lines] : attempts) {
    files.writeStatus = status;
    EXPECT_EQ(write("configration", {{"mode", files.writeAttempts % 2}}), status);
    EXPECT_EQ(diagnostics.lines.size(), lines);
  }
  EXPECT_EQ(files.writeAttempts, 5);
}

TEST_F(Service, ReportsADamagedStateFileAndTakesWhatIsValidOfIt) {
  files.files["/state/touchscreen-00110000-0001.plist"] = {
      {"calibration",
       Dictionary{
           {"calibrateStatus", true}, {"minX", 30000}, {"maxX", 200}, {"minY", 10}, {"calibParams", 1}}},
      {"other", 1}};
  files.files["/state/touchscreen-00110001-0001.plist"] = {
      {"configration", Dictionary{{"mode", 9}, {"smoothness", 5}, {"odd", 1}}}};
  plug();
  EXPECT_EQ(diagnostics.lines.size(), 1U);
  EXPECT_TRUE(read("calibration").boolean("calibrateStatus"));
  EXPECT_EQ(read("calibration").integer("minX"), 0) << "an area inside out is no area";
  EXPECT_EQ(read("calibration").integer("maxX"), 32767);
  EXPECT_EQ(read("configration").integer("smoothness"), 1);
  service->touchscreenLeft(kUsb);
  service->touchscreenArrived(kUsb, {kHere + 1, kProductConfigurationOnly});
  EXPECT_EQ(diagnostics.lines.size(), 2U);
  EXPECT_EQ(read("configration").integer("mode"), 2);
  EXPECT_EQ(read("configration").integer("smoothness"), 5);
}

TEST_F(Service, TakesTheCalibrationThatTheDeviceHoldsOverTheOneItRemembers) {
  plug(kProductOptical);
  write("calibration", {{"calibrateStatus", true}, {"calibParams", bytesOf(shiftedBy(7, 0))}});
  start();
  plug(kProductOptical);
  EXPECT_TRUE(reader.underWay.at(kHere).known.calibrateStatus) << "a block that cannot be read keeps this";
  EXPECT_EQ(reader.underWay.at(kHere).known.params.X.A00, 7);
  write("calibration", {});
  touch(0ms, 100, 100);
  EXPECT_EQ(output().frames.size(), 1U) << "touches do not wait for the reading";
  const driver::HeldCalibration held{true, shiftedBy(50, 0)};
  reader.underWay.at(kHere).done(kSuccess, held);
  const auto taken = bytesOf(held.params);
  EXPECT_EQ(*read("calibration").bytes("calibParams"), taken);
  start();
  plug(kProductOptical);
  EXPECT_EQ(*read("calibration").bytes("calibParams"), taken) << "and remembers it";
  reader.underWay.at(kHere).done(kErrorTimeout, {});
  EXPECT_EQ(*read("calibration").bytes("calibParams"), taken);
  EXPECT_EQ(diagnostics.lines.size(), 1U);
  write("calibration", {{"calibrateStatus", false}});
  reader.underWay.at(kHere).done(kSuccess, held);
  EXPECT_FALSE(read("calibration").boolean("calibrateStatus")) << "but not over what a panel wrote meanwhile";
  service->touchscreenLeft(kUsb);
  EXPECT_TRUE(reader.underWay.empty()) << "the reading of a touchscreen that leaves is abandoned";
  plug(kProductConfigurationOnly);
  EXPECT_TRUE(reader.underWay.empty()) << "this kind holds nothing to read";
}

TEST_F(Service, KeepsACaptureForTheClientThatAskedForItUntilItLeaves) {
  plug();
  const auto pointsOf = [&](const std::string& client) {
    const auto calibration = *service->properties(object(), client)->dictionary("calibration");
    return std::vector{calibration.integer("x"), calibration.integer("y"), calibration.integer("pointId")};
  };
  const std::vector none{0, 0, 0};
  write("calibration", {{"statCalibrate", true}}, ":1.7");
  for (const char* key : {"pointId", "statCalibrate"})
    for (const auto& value : {Value(1), Value(false), Value(true)})
      EXPECT_EQ(write("calibration", {{key, value}}, ":1.8"), kErrorExclusiveAccess) << key;
  EXPECT_EQ(write("calibration", {{"calibrateStatus", false}}, ":1.8"), kSuccess);
  EXPECT_EQ(write("calibration", {{"pointId", 3}}, ":1.7"), kSuccess);
  touch(0ms, 100, 200);
  lift(10ms);
  EXPECT_EQ(pointsOf(":1.7"), (std::vector{100, 200, 3}));
  EXPECT_EQ(pointsOf(":1.8"), none);
  service->clientLeft(":1.8");
  EXPECT_TRUE(read("calibration").boolean("statCalibrate"));
  service->clientLeft(":1.7");
  EXPECT_FALSE(read("calibration").boolean("statCalibrate"));
  EXPECT_EQ(pointsOf(":1.7"), none);
  EXPECT_EQ(write("calibration", {{"statCalibrate", true}}, ":1.8"), kSuccess);
  service->clientLeft(":1.7");
  EXPECT_TRUE(read("calibration").boolean("statCalibrate"));
  service->allClientsLeft();
  EXPECT_FALSE(read("calibration").boolean("statCalibrate"));
}

TEST_F(Service, EndsACaptureThatNobodyTouchesForAMinute) {
  plug();
  write("calibration", {{"statCalibrate", true}});
  timers.advance(50s);
  touch(50s, 1, 1);
  lift(51s);
  timers.advance(59s);
  EXPECT_TRUE(read("calibration").boolean("statCalibrate"));
  timers.advance(1s);
  EXPECT_FALSE(read("calibration").boolean("statCalibrate"));
  write("calibration", {{"statCalibrate", true}});
  service->touchscreenLeft(kUsb);
  timers.advance(2min);
}

TEST_F(Service, SharesTheDoubleClickSettingsAndKeepsThem) {
  plug();
  service->touchscreenArrived("/sys/usb2", {kHere + 1, kProductConfigurationOnly});
  const auto systems = service->registry().instancesOf(class_name::kHidSystem);
  ASSERT_EQ(systems.size(), 2U);
  const auto set = [&](RegistryObject system, const char* name, const Value& value) {
    return write(system, name, value, ":1.1");
  };
  const auto parameters = [&] {
    return *service->registry().properties(object() + 2)->dictionary("HIDParameters");
  };
  EXPECT_EQ(parameters().longInteger("HIDClickTime"), 500'000'000);
  EXPECT_EQ(set(systems[0], "HIDClickTime", std::int64_t{60'000'000'000}), kSuccess);
  EXPECT_EQ(set(systems[1], "HIDClickTime", 700'000'000), kSuccess);
  EXPECT_EQ(set(systems[1], "HIDClickSpace", Array{8, 9}), kSuccess);
  for (const auto& bad : Array{-1, true, std::int64_t{60'000'000'001}})
    EXPECT_EQ(set(systems[0], "HIDClickTime", bad), kErrorBadArgument);
  for (const auto& bad : Array{5, Array{1, 1, 1}, Array{1, -1}, Array{"1", 1}})
    EXPECT_EQ(set(systems[0], "HIDClickSpace", bad), kErrorBadArgument);
  EXPECT_EQ(set(systems[0], "HIDParameters", Dictionary{}), kErrorUnsupported);
  start();
  plug();
  EXPECT_EQ(parameters(),
            (Dictionary{{"HIDClickTime", std::int64_t{700'000'000}}, {"HIDClickSpace", Array{8, 9}}}));
  // A second tap 8 units away lands on the first one's point.
  write("configration", {{"enableRightClick", false}});
  touch(0ms, 5000, 5000);
  lift(10ms);
  touch(600ms, 5250, 5000);
  EXPECT_EQ(output().frames.back().x, 5000);
}

}  // namespace
}  // namespace touchpanel::testing
