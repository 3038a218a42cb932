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
  static driver::HeldCalibration heldAt(float units) { return {true, shiftedBy(units, 0)}; }
  static Dictionary message(const driver::HeldCalibration& held) {
    return driver::calibrationMessage(held.calibrateStatus, held.params);
  }
  Dictionary inForce() {
    const auto calibration = read("calibration");
    return {{"calibrateStatus", *calibration.find("calibrateStatus")},
            {"calibParams", *calibration.find("calibParams")}};
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
  reader.finish(kHere, kSuccess, heldAt(7));
  write("calibration", {{"statCalibrate", true}});
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
  EXPECT_EQ(files.writeAttempts, 1) << "of settings that are known from now on";
  const std::pair<Status, std::size_t> attempts[] = {
      {kErrorNoSpace, 1}, {kErrorNoSpace, 1}, {kSuccess, 2}, {kSuccess, 2}, {kErrorNoSpace, 3}};
  for (const auto& [status, lines] : attempts) {
    files.writeStatus = status;
    EXPECT_EQ(write("configration", {{"mode", files.writeAttempts % 2}}), status);
    EXPECT_EQ(diagnostics.lines.size(), lines);
  }
  EXPECT_EQ(files.writeAttempts, 6);
}

TEST_F(Service, TakesWhatIsSoundOfADamagedStateFileAndKeepsIt) {
  const std::string file = "/state/touchscreen-00110000-0001.plist";
  const Dictionary damaged = {
      {"calibration",
       Dictionary{
           {"calibrateStatus", true}, {"minX", 30000}, {"maxX", 200}, {"minY", 10}, {"calibParams", 1}}},
      {"configration", Dictionary{{"mode", 9}, {"smoothness", 5}, {"odd", 1}}},
      {"other", 1}};
  files.files[file] = damaged;
  for (int i = 0; i < 2; ++i) {
    plug();
    EXPECT_EQ(diagnostics.lines.size(), 1U);
    EXPECT_FALSE(read("calibration").boolean("calibrateStatus")) << "nothing of it is a calibration";
    EXPECT_EQ(read("calibration").integer("minX"), 0) << "an area inside out is no area";
    EXPECT_EQ(read("calibration").integer("maxX"), 32767);
    EXPECT_EQ(read("configration").integer("mode"), 2);
    EXPECT_EQ(read("configration").integer("smoothness"), 5);
    service->touchscreenLeft(kUsb);
  }
  EXPECT_EQ(files.files.at(file + ".damaged"), damaged);
  start();
  plug();
  EXPECT_EQ(read("configration").integer("smoothness"), 5);
  EXPECT_EQ(diagnostics.lines.size(), 1U);
}

TEST_F(Service, GivesTheSettingsLastWrittenToEachTouchscreenThatArrives) {
  // As an earlier release left them: all settings with each touchscreen.
  files.files["/state/touchscreen-00110000-0001.plist"] = {
      {"configration", Dictionary{{"mode", 1}, {"smoothness", 5}, {"enableTouch", false}}}};
  files.files["/state/touchscreen-00110001-0001.plist"] = {{"configration", Dictionary{{"mode", 0}}}};
  const auto plugOther = [&] {
    service->touchscreenArrived("/sys/usb2", {kHere + 1, kProductConfigurationOnly});
    const auto there = service->registry().instancesOf(class_name::kTouchDriver).at(1);
    return *service->registry().properties(there)->dictionary("configration");
  };
  plug();
  EXPECT_EQ(read("configration").integer("mode"), 1);
  EXPECT_FALSE(read("configration").boolean("enableTouch"));
  EXPECT_EQ(plugOther().integer("mode"), 1);
  EXPECT_TRUE(plugOther().boolean("enableTouch")) << "which switches one touchscreen";
  service->touchscreenLeft("/sys/usb2");
  write("configration", {{"mode", 3}});
  EXPECT_EQ(plugOther().integer("mode"), 3);
  start();
  plug();
  EXPECT_EQ(read("configration").integer("mode"), 3);
  EXPECT_EQ(read("configration").integer("smoothness"), 5);
  EXPECT_FALSE(read("configration").boolean("enableTouch"));
  EXPECT_EQ(plugOther().integer("mode"), 3);
}

TEST_F(Service, KeepsATrialOnlyUntilItsClientLeavesAndThenWhatTheTouchscreenHolds) {
  const auto before = heldAt(1), trial = heldAt(2), other = heldAt(3);
  struct Row {
    const char* what;
    std::optional<std::pair<Status, driver::HeldCalibration>>
        answer;  // of the reading when the client has left
    driver::HeldCalibration afterwards;
  };
  for (const auto& row : std::vector<Row>{
           {"accepted", std::pair{kSuccess, trial}, trial},
           {"not accepted", std::pair{kSuccess, before}, before},
           {"restored", std::pair{kSuccess, other}, other},
           {"not readable", std::pair{kErrorInputOutput, trial}, before},
           {"holds nothing", std::pair{kErrorNotFound, trial}, before},
           {"senseless", std::pair{kSuccess, driver::HeldCalibration{true, {}}}, before},
           {"does not answer", std::nullopt, before},
       }) {
    SCOPED_TRACE(row.what);
    files.files.clear();
    start();
    plug(kProductOptical);
    reader.finish(kHere, kSuccess, before);
    write("calibration", {{"statCalibrate", true}}, ":1.7");
    write("calibration", message(trial), ":1.7");
    write("configration", {{"mode", 1}}, ":1.8");
    const int reads = reader.started;
    service->clientLeft(":1.8");
    EXPECT_EQ(inForce(), message(trial));
    EXPECT_EQ(reader.started, reads);
    service->clientLeft(":1.7");
    EXPECT_EQ(inForce(), message(trial)) << "which may have been accepted";
    if (row.answer)
      reader.finish(kHere, row.answer->first, row.answer->second);
    else
      timers.advance(1s);
    EXPECT_EQ(inForce(), message(row.afterwards));
    worker.finish();
    start();
    plug(kProductOptical);
    EXPECT_EQ(inForce(), message(row.afterwards))
        << "remembered, and in force before the touchscreen is read";
    touch(timers.time == 0s ? 1ms : 5000ms, 100, 100);
    EXPECT_FALSE(output().frames.empty());
    service->touchscreenLeft(kUsb);
    EXPECT_TRUE(reader.underWay.empty());
  }
}

TEST_F(Service, SavesNoTrialThoughTheServiceDies) {
  plug(kProductOptical);
  reader.finish(kHere, kSuccess, heldAt(1));
  write("calibration", message(heldAt(2)));
  write("monitor", {{"name", "the one on the left"}});
  start();
  plug(kProductOptical);
  EXPECT_EQ(inForce(), message(heldAt(1)));
  EXPECT_EQ(read("monitor").text("name"), "the one on the left");
  write("calibration", message(heldAt(3)));
  reader.finish(kHere, kSuccess, heldAt(4));
  EXPECT_EQ(inForce(), message(heldAt(3))) << "a reading does not disturb a trial";
  write("calibration", message(heldAt(4)));
  const int reads = reader.started;
  service->clientLeft(":1.1");
  EXPECT_EQ(reader.started, reads) << "it has taken its trial back";
}

TEST_F(Service, ReadsATouchscreenAgainWithGrowingPausesAndSaysSoOnce) {
  plug(kProductOptical);
  for (const auto until : {1s, 2s, 4s, 8s, 16s, 32s, 60s, 60s}) {
    reader.finish(kHere, kErrorInputOutput);
    const int before = reader.started;
    timers.advance(until - 1ms);
    EXPECT_EQ(reader.started, before);
    timers.advance(1ms);
    EXPECT_EQ(reader.started, before + 1);
  }
  EXPECT_EQ(diagnostics.lines.size(), 1U);
  reader.finish(kHere, kErrorInputOutput);
  timers.advance(30s);
  write("calibration", {{"statCalibrate", true}});
  const int before = reader.started;
  timers.advance(45s);
  EXPECT_EQ(reader.started, before) << "a calibration run needs its touches";
  write("calibration", {{"statCalibrate", false}});
  timers.advance(60s);
  reader.finish(kHere, kSuccess, heldAt(2));
  EXPECT_EQ(inForce(), message(heldAt(2)));
  EXPECT_EQ(diagnostics.lines.size(), 2U);
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
