#include <filesystem>
#include <iostream>

#include <gmock/gmock.h>

#include "PanelRun.h"

namespace touchpanel::testing {
namespace {

/// One command under one trouble: what the status line says, and what is new where afterwards.
struct Case {
  std::string action;
  std::string trouble;
  std::string sentence;
  std::string state;
};

/// A machine with one touchscreen of each kind, and the panel on it, for one case.
class World {
 public:
  explicit World(const std::string& action) : action_(action) {
    for (auto& model : simulated::exampleTouchscreens()) {
      model.description.deviceConfig.CalibrateStatus = action == "Reset" ? 1 : 0;
      machine_.plugIn(machine_.add(std::move(model)));
    }
    run_.emplace(machine_, directory_);
    run_->select(touched());
    entry_ = run_->controller().state().currentDict;
    if (action != "Restore") return;
    run_->calibrate(touched(), 4);
    run_->controller().Reset();
  }

  void carryOut(const std::string& trouble) {
    if (trouble == "service restarted") {
      perform("service down");
      run_->registry.failure = kSuccess;
      return perform("none");
    }
    perform(trouble);
  }
  std::string sentence() const {
    const auto& message = run_->statusLine.messages.back();
    std::string text(message.text);
    for (const auto& [place, words] : {std::pair("%2", std::string(message.reason)),
                                       {"%1", message.device},
                                       {"%n", std::to_string(message.count)}})
      if (const auto at = text.find(place); at != std::string::npos) text.replace(at, 2, words);
    return text;
  }
  std::string state() const {
    const auto& driver = touched().driver();
    const auto listed = contextOf(*entry_);
    const auto newOrOld = [](bool isNew) { return isNew ? " new" : " old"; };
    std::string state;
    if (action_ == "Apply") {
      state = std::string("driver") + newOrOld(driver.settings().clickRange == 9) + ", other" +
              newOrOld(machine_.all()[1]->driver().settings().clickRange == 9) + ", list" +
              newOrOld(entry_->integer(settings_key::kClickRange) == 9);
    } else if (action_ == "Enable Touch") {
      state = std::string("driver ") + (driver.settings().enableTouch ? "on" : "off") + ", button " +
              run_->interface.btnEnableTouch.title;
    } else {
      const bool calibrated = action_ != "Reset";
      state = deviceState(listed) + ", driver" +
              newOrOld(driver.calibration().calibrateStatus == calibrated) + ", list" +
              newOrOld(entry_->text(entry_key::kCalibrateStatus) == (calibrated ? "YES" : "NO"));
    }
    return state + (run_->interface.btnRepeatWrite.enabled ? ", can be repeated" : "");
  }
  void repeat() {
    machine_.usb().beforeTransfer = nullptr;
    touched().firmware().setFault({});
    run_->controller().RepeatWrite();
  }

 private:
  simulated::SimulatedTouchscreen& touched() const {
    return *machine_.all()[action_ == "OK, in a file" ? 2 : 0];
  }
  std::string deviceState(const _DEVICT_CONTEXT& listed) const {
    if (action_ == "OK, in a file")
      return std::filesystem::exists(directory_.file("com.VARNEXO.Device.Config.plist")) ? "file new"
                                                                                         : "file old";
    const auto& held = touched().firmware().stored();
    const int blocks = (imageOf(held.deviceConfig) == imageOf(listed.DeviceConfig) ? 1 : 0) +
                       (imageOf(held.calibParams.X) == imageOf(listed.CalibParams.X) ? 1 : 0) +
                       (imageOf(held.calibParams.Y) == imageOf(listed.CalibParams.Y) ? 1 : 0);
    return "device " + std::to_string(blocks) + " of 3 blocks";
  }
  void cause(const std::string& trouble) {
    machine_.usb().beforeTransfer = [this, trouble](const DeviceRequest& request) {
      if ((request.bmRequestType & 0x80) != 0) return;
      const auto code = request.pData[kCommandAt];
      const bool ignored = code == CMD_IR_SET_CALIB_X ? trouble == "one block fails" || trouble == "all fail"
                                                      : trouble == "all fail" && code != CMD_SET_MODE;
      touched().firmware().setFault(
          {ignored ? firmware::Fault::IgnoresCommand : firmware::Fault::None, code});
      if (trouble == "unplugged" && code == CMD_IR_SET_CALIB_Y) machine_.unplug(touched());
    };
    if (trouble == "no folder") std::filesystem::remove_all(directory_.path());
    if (trouble == "not permitted" || (action_ == "Apply" && trouble == "one block fails"))
      run_->registry.failure = kErrorNotPermitted;
    if (trouble == "one block fails") run_->registry.spared = machine_.handleOf(*machine_.all()[1]);
    if (trouble == "service down") run_->registry.failure = kErrorNotResponding;
    if (trouble == "unplugged" && (action_ == "Apply" || action_ == "Enable Touch"))
      machine_.unplug(touched());
  }
  void perform(const std::string& trouble) {
    auto& controller = run_->controller();
    if (action_.starts_with("OK")) {
      // Who may not write, or whose service is down, does not come as far as OK.
      if (trouble == "not permitted" || trouble == "service down") cause(trouble);
      run_->calibrate(touched(), 4, [&] { cause(trouble == "down at OK" ? "service down" : trouble); });
      return;
    }
    cause(trouble);
    if (action_ == "Reset") controller.Reset();
    if (action_ == "Restore") controller.UndoReset();
    if (action_ == "Enable Touch") controller.EnableTouch();
    if (action_ != "Apply") return;
    controller.Settings();
    run_->interface.singleClickArea.value = 9;
    controller.SettingsApply();
  }

  std::string action_;
  TemporaryDirectory directory_;
  simulated::SimulatedTouchscreens machine_;
  std::optional<PanelRun> run_;
  DeviceEntry entry_;
};

TEST(Outcomes, AreToldAsTheyAreForEveryActionUnderEveryTrouble) {
  const Case cases[] = {
      {"OK", "none", "The new calibration of IR-2026-0000001 is written and in use.",
       "device 3 of 3 blocks, driver new, list new"},
      {"OK", "one block fails",
       "The new calibration of IR-2026-0000001 is in use, but was written only in part: the horizontal "
       "calibration was not confirmed.",
       "device 2 of 3 blocks, driver new, list new, can be repeated"},
      {"OK", "all fail",
       "The new calibration of IR-2026-0000001 is in use, but was not written: none of its blocks was "
       "confirmed.",
       "device 0 of 3 blocks, driver new, list new, can be repeated"},
      {"OK", "unplugged",
       "The new calibration of IR-2026-0000001 is not confirmed to be in use, and whether it was written is "
       "not known: it was unplugged during the write.",
       "device 2 of 3 blocks, driver new, list new, can be repeated"},
      {"OK", "not permitted",
       "IR-2026-0000001 cannot be calibrated now: you are not permitted to change settings of touchscreens.",
       "device 3 of 3 blocks, driver old, list old"},
      {"OK", "service down",
       "IR-2026-0000001 cannot be calibrated now: the touch driver service does not answer.",
       "device 3 of 3 blocks, driver old, list old"},
      {"OK", "down at OK",
       "The new calibration of IR-2026-0000001 is written, but not confirmed to be in use: the touch driver "
       "service does not answer.",
       "device 3 of 3 blocks, driver new, list new"},
      {"OK", "service restarted", "The new calibration of IR-2026-0000001 is written and in use.",
       "device 3 of 3 blocks, driver new, list new"},
      {"OK, in a file", "none", "The new calibration of Infrared Touchscreen is written and in use.",
       "file new, driver new, list new"},
      {"OK, in a file", "no folder",
       "The new calibration of Infrared Touchscreen is in use, but was not written: the folder of the file "
       "is missing.",
       "file old, driver new, list new, can be repeated"},
      {"Reset", "none", "IR-2026-0000001 has no calibration any more; that is written and in force.",
       "device 3 of 3 blocks, driver new, list new"},
      {"Reset", "one block fails",
       "The reset of IR-2026-0000001 is in force, but was written only in part: the horizontal calibration "
       "was not confirmed.",
       "device 2 of 3 blocks, driver new, list new, can be repeated"},
      {"Reset", "all fail",
       "The reset of IR-2026-0000001 is in force, but was not written: none of its blocks was confirmed.",
       "device 0 of 3 blocks, driver new, list new, can be repeated"},
      {"Reset", "unplugged",
       "The reset of IR-2026-0000001 is in force, but whether it was written is not known: it was unplugged "
       "during the write.",
       "device 2 of 3 blocks, driver new, list new, can be repeated"},
      {"Reset", "not permitted",
       "The reset of IR-2026-0000001 is written, but not confirmed to be in force: you are not permitted to "
       "change settings of touchscreens.",
       "device 3 of 3 blocks, driver old, list new"},
      {"Reset", "service down",
       "The reset of IR-2026-0000001 is written, but not confirmed to be in force: the touch driver service "
       "does not answer.",
       "device 3 of 3 blocks, driver old, list new"},
      {"Reset", "service restarted",
       "IR-2026-0000001 has no calibration any more; that is written and in force.",
       "device 3 of 3 blocks, driver new, list new"},
      {"Restore", "none", "The earlier calibration of IR-2026-0000001 is written and in use again.",
       "device 3 of 3 blocks, driver new, list new"},
      {"Restore", "one block fails",
       "The earlier calibration of IR-2026-0000001 is in use, but was written only in part: the horizontal "
       "calibration was not confirmed.",
       "device 2 of 3 blocks, driver new, list new, can be repeated"},
      {"Restore", "all fail",
       "The earlier calibration of IR-2026-0000001 is in use, but was not written: none of its blocks was "
       "confirmed.",
       "device 0 of 3 blocks, driver new, list new, can be repeated"},
      {"Restore", "unplugged",
       "The earlier calibration of IR-2026-0000001 is in use, but whether it was written is not known: it "
       "was unplugged during the write.",
       "device 2 of 3 blocks, driver new, list new, can be repeated"},
      {"Restore", "not permitted",
       "The earlier calibration of IR-2026-0000001 is written, but not confirmed to be in use: you are not "
       "permitted to change settings of touchscreens.",
       "device 3 of 3 blocks, driver old, list new"},
      {"Restore", "service down",
       "The earlier calibration of IR-2026-0000001 is written, but not confirmed to be in use: the touch "
       "driver service does not answer.",
       "device 3 of 3 blocks, driver old, list new"},
      {"Restore", "service restarted", "There is no reset of IR-2026-0000001 to undo.",
       "device 3 of 3 blocks, driver old, list new"},
      {"Apply", "none", "Settings were sent to 3 touchscreen(s) and saved.",
       "driver new, other new, list new"},
      {"Apply", "one block fails",
       "Settings were sent to 1 touchscreen(s) and saved, but Infrared Touchscreen, IR-2026-0000001 did not "
       "take them: you are not permitted to change settings of touchscreens.",
       "driver old, other new, list new"},
      {"Apply", "no folder",
       "Settings were sent to 3 touchscreen(s), but could not be saved for the next start: the folder of the "
       "file is missing.",
       "driver new, other new, list new"},
      {"Apply", "unplugged",
       "Settings were sent to 2 touchscreen(s) and saved, but IR-2026-0000001 did not take them: the touch "
       "driver service has no such touchscreen any more.",
       "driver old, other new, list new"},
      {"Apply", "not permitted",
       "The settings are saved for the next start, but Infrared Touchscreen, A26B11C-D1E-01-0000-0000002, "
       "IR-2026-0000001 did not take them: you are not permitted to change settings of touchscreens.",
       "driver old, other old, list new"},
      {"Apply", "service down",
       "The settings are saved for the next start, but Infrared Touchscreen, A26B11C-D1E-01-0000-0000002, "
       "IR-2026-0000001 did not take them: the touch driver service does not answer.",
       "driver old, other old, list new"},
      {"Apply", "service restarted", "Settings were sent to 3 touchscreen(s) and saved.",
       "driver new, other new, list new"},
      {"Enable Touch", "none", "Touch was disabled on IR-2026-0000001.", "driver off, button Enable Touch"},
      {"Enable Touch", "unplugged",
       "Touch was not disabled on IR-2026-0000001: the touch driver service has no such touchscreen any "
       "more.",
       "driver on, button Disable Touch"},
      {"Enable Touch", "not permitted",
       "Touch was not disabled on IR-2026-0000001: you are not permitted to change settings of touchscreens.",
       "driver on, button Disable Touch"},
      {"Enable Touch", "service down",
       "It is not confirmed that touch was disabled on IR-2026-0000001: the touch driver service does not "
       "answer.",
       "driver on, button Disable Touch"},
      {"Enable Touch", "service restarted", "Touch was disabled on IR-2026-0000001.",
       "driver off, button Enable Touch"},
  };
  std::cout << "| action | trouble | status line | state afterwards |\n|---|---|---|---|\n";
  for (const auto& [action, trouble, sentence, state] : cases) {
    SCOPED_TRACE(action + ", " + trouble);
    World world(action);
    world.carryOut(trouble);
    std::cout << "| " << action << " | " << trouble << " | " << world.sentence() << " | " << world.state()
              << " |\n";
    EXPECT_EQ(world.sentence(), sentence);
    EXPECT_EQ(world.state(), state);
    if (!world.state().ends_with("can be repeated") || trouble == "unplugged" || trouble == "no folder")
      continue;
    world.repeat();
    EXPECT_THAT(world.sentence(), ::testing::StartsWith("What was to be written"));
    EXPECT_THAT(world.state(), ::testing::AllOf(::testing::HasSubstr("3 of 3"),
                                                ::testing::Not(::testing::HasSubstr("repeat"))));
  }
}

}  // namespace
}  // namespace touchpanel::testing
