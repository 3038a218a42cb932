#include <QMenu>
#include <QMenuBar>
#include <QTableView>
#include <cstdio>

#include "contract/DriverProperties.h"
#include "demo/measure/AccuracyProbe.h"
#include "demo/tour/Steps.h"
#include "panel/MainWindowWidget.h"
#include "panel/Translations.h"

namespace touchpanel::demo {
namespace {

std::string describe(const Dictionary& entry) {
  return entry.text(entry_key::kSN) + " (version " + entry.text(entry_key::kFirmwareVersion) + ")";
}

/// Clicks the button that plugs the touchscreen in or out, and waits until the list has `listed` entries.
void togglePlug(Stage& stage, const simulated::SimulatedTouchscreen& touchscreen, std::size_t listed) {
  const auto& controls = stage.widget(touchscreen.model().name.c_str());
  const auto* button = controls.findChild<QWidget*>(QStringLiteral("plugButton"));
  require(button != nullptr, "the simulator window has no button to plug " + touchscreen.model().name);
  stage.click(button->mapToGlobal(button->rect().center()));
  stage.until([&] { return stage.demo().state().deviceListArray.size() == listed; },
              std::to_string(listed) + " listed touchscreens");
}

}  // namespace

std::string listDevices(Stage& stage) {
  stage.untilShown("KeyWindow");
  stage.untilShown("SimulatorWindow");
  const auto* rows = stage.the<QTableView>("deviceTableView").model();
  stage.until([&] { return rows->rowCount() == 3; }, "three rows in the table");
  stage.pictures().takeInEveryTheme("main-window", stage.widget("KeyWindow"));
  std::string outcome;
  for (const auto& touchscreen : stage.demo().machine().all()) {
    const auto entry = stage.demo().entryOf(*touchscreen);
    require(entry != nullptr, touchscreen->model().name + " is not listed");
    require(entry->integer(entry_key::kProductID) == touchscreen->productId(),
            touchscreen->model().name + " is listed under another product id");
    outcome += (outcome.empty() ? "" : ", ") + touchscreen->model().name + " " + describe(*entry);
  }
  return outcome;
}

void chooseFromDeviceMenu(Stage& stage, const char* action) {
  const auto& bar = stage.the<QMenuBar>("menuBar");
  stage.click(bar.mapToGlobal(bar.actionGeometry(bar.actions().first()).center()));
  stage.untilShown("menuDevice");
  const auto& menu = stage.the<QMenu>("menuDevice");
  auto* entry = stage.widget("KeyWindow").findChild<QAction*>(QString::fromUtf8(action));
  require(entry != nullptr && entry->isEnabled(), std::string(action) + " cannot be chosen");
  stage.click(menu.mapToGlobal(menu.actionGeometry(entry).center()));
}

std::string showEmptyLists(Stage& stage) {
  auto& window = dynamic_cast<MainWindowWidget&>(stage.widget("KeyWindow"));
  const auto listed = static_cast<int>(stage.demo().state().deviceListArray.size());
  const std::pair<const char*, ListState> states[] = {
      {"list-empty", ListState::Empty},
      {"list-waiting", ListState::Waiting},
      {"list-refused", ListState::Refused},
      {"list-service-down", ListState::ServiceDown},
  };
  for (const auto& [name, state] : states) {
    window.showRows(0, state == ListState::Waiting ? ListState::Empty : state);
    if (state == ListState::Waiting)
      window.showWait(translatedCount("WaitNotice", "Reading the touchscreen's parameters...", 0));
    stage.pictures().takeInEveryTheme(name, window);
    if (state == ListState::Waiting) window.showWait({});
  }
  window.showRows(listed);
  return "empty, waiting, refused, service down";
}

std::string resetInfrared(Stage& stage) {
  auto& infrared = stage.demo().touchscreen(DeviceKind::Infrared);
  stage.select(infrared);
  const auto entry = stage.demo().entryOf(infrared);
  const auto untilCalibrated = [&](const char* status) {
    stage.until([&] { return entry->text(entry_key::kCalibrateStatus) == status; },
                std::string("the entry to say ") + status);
  };
  const auto calibration = imageOf(infrared.firmware().stored().calibParams);
  stage.click("btnReset");
  untilCalibrated(entry_key::kNo);
  chooseFromDeviceMenu(stage, "actionUndoReset");
  untilCalibrated(entry_key::kYes);
  require(imageOf(infrared.firmware().stored().calibParams) == calibration,
          "the device does not hold again what the reset discarded");
  stage.pictures().take("reset-undone");
  stage.click("btnReset");
  untilCalibrated(entry_key::kNo);
  stage.until([&] { return !stage.widget("btnReset").isEnabled(); }, "Reset to be disabled");
  require(infrared.firmware().stored().deviceConfig.CalibrateStatus == 0,
          "the device still holds a calibration");
  require(!infrared.driver()
               .state()
               .dictionary(property::kCalibration)
               ->boolean(calibration_key::kCalibrateStatus),
          "the driver instance still applies a calibration");
  stage.pictures().take("reset");
  return infrared.model().name + " has no calibration any more, nor has its driver instance";
}

std::string replugOptical(Stage& stage) {
  auto& optical = stage.demo().touchscreen(DeviceKind::Optical);
  const auto listed = stage.demo().state().deviceListArray.size();
  togglePlug(stage, optical, listed - 1);
  togglePlug(stage, optical, listed);
  const auto entry = stage.demo().entryOf(optical);
  require(entry != nullptr && entry->text(entry_key::kCalibrateStatus) == entry_key::kYes,
          "it is not listed as calibrated any more");
  const auto accuracy = probeAccuracy(optical, Demo::screen(), stage.demo().fingerClock());
  require(accuracy && accuracy->mean < 2, "it does not hit any more");
  char outcome[80];
  std::snprintf(outcome, sizeof outcome, "still calibrated, mean error %.2f px", accuracy->mean);
  return outcome;
}

std::string unplugAll(Stage& stage) {
  const auto& touchscreens = stage.demo().machine().all();
  for (std::size_t left = touchscreens.size(); left-- > 0;) {
    togglePlug(stage, *touchscreens[left], left);
    if (left == 1) stage.pictures().take("one-left");
  }
  stage.until([&] { return stage.demo().application().isEnding(); }, "the end of the panel");
  return "the panel ends with the last one";
}

}  // namespace touchpanel::demo
