#include <QLabel>
#include <QScreen>
#include <QSpinBox>
#include <algorithm>
#include <map>
#include <set>

#include "calibration/CalibrationGrid.h"
#include "contract/DriverProperties.h"
#include "demo/tour/Steps.h"
#include "providers/qt/ViewSurface.h"

namespace touchpanel::demo {
namespace {

/// A value in a line for people: {mode: 2, enableTouch: true, calibParams: 116 bytes}.
std::string textOf(const Value& value);

struct Writer {
  std::string operator()(bool value) const { return value ? "true" : "false"; }
  std::string operator()(const std::string& value) const { return '"' + value + '"'; }
  std::string operator()(const Bytes& value) const { return std::to_string(value.size()) + " bytes"; }
  std::string operator()(const Array& value) const {
    std::string text;
    for (const auto& element : value) text += (text.empty() ? "" : ", ") + textOf(element);
    return '[' + text + ']';
  }
  std::string operator()(const Dictionary& value) const {
    std::string text;
    for (const auto& [key, element] : value)
      text += (text.empty() ? "" : ", ") + key + ": " + textOf(element);
    return '{' + text + '}';
  }
  std::string operator()(auto number) const { return std::to_string(number); }
};

std::string textOf(const Value& value) { return std::visit(Writer{}, value.storage()); }

void openSettings(Stage& stage) {
  stage.click("btnSettings");
  stage.untilShown("SettingsWindow");
}

/// What was written, and to which objects.
using Messages = std::map<std::string, std::set<RegistryObject>>;

std::string described(const Messages& messages) {
  std::string text;
  for (const auto& [message, receivers] : messages)
    text += (text.empty() ? "" : "; ") + message + " to " + std::to_string(receivers.size()) +
            (receivers.size() == 1 ? " object" : " objects");
  return text;
}

void type(Stage& stage, const char* field, const char* digit) {
  auto* spinBox = stage.widget(field).findChild<QSpinBox*>();
  require(spinBox != nullptr, std::string("there is nothing to type into in ") + field);
  stage.click(spinBox->mapToGlobal(QPoint(spinBox->height() / 2, spinBox->height() / 2)));
  stage.until([&] { return spinBox->hasFocus(); }, std::string("the keyboard in ") + field);
  stage.input().tapKey("a", "Control_L");
  stage.input().tapKey(digit);
  stage.input().tapKey("Tab");
  stage.until([&] { return spinBox->value() == std::stoi(digit) && !spinBox->hasFocus(); },
              std::string(digit) + " in " + field);
}

void takePages(Stage& stage) {
  for (const auto* page :
       {"rightClickPage", "doubleClickPage", "sensitivityPage", "calibrationPage", "touchPage"}) {
    stage.turnTo("settingsPages", page);
    stage.pictures().takeInBothThemes(std::string("settings-") + page);
  }
}

}  // namespace

void chooseCalibrationMode(Stage& stage, int targets) {
  openSettings(stage);
  stage.turnTo("settingsPages", "calibrationPage");
  stage.clickChoice(targets == kFourTargets ? "calibMode0" : "calibMode1");
  stage.click("btnOk");
  stage.untilHidden("SettingsWindow");
  const auto& entries = stage.demo().state().deviceListArray;
  require(std::ranges::all_of(
              entries,
              [&](const auto& entry) { return entry->integer(settings_key::kCalibrateMode) == targets; }),
          "the settings sheet did not choose " + std::to_string(targets) + " targets for every touchscreen");
}

std::string applySettings(Stage& stage) {
  stage.select(stage.demo().touchscreen(DeviceKind::Optical));  // the kind that has every control
  openSettings(stage);
  takePages(stage);
  stage.clickChoice("touchMode1");
  type(stage, "singleClickArea", "3");

  Messages messages;
  stage.demo().registry().observe(
      [&](RegistryObject object, std::string_view name, const Value& value, Status status) {
        if (status == kSuccess) messages[std::string(name) + " " + textOf(value)].insert(object);
      });
  stage.click("btnApply");
  stage.until([&] { return !stage.widget("btnApply").isEnabled(); }, "Apply to be disabled again");
  stage.demo().registry().observe({});

  const auto instances = stage.demo().machine().all().size();
  require(std::ranges::count_if(messages,
                                [&](const auto& entry) { return entry.second.size() == instances; }) == 1,
          "there is no one message that reached every driver instance: " + described(messages));
  for (const auto& touchscreen : stage.demo().machine().all()) {
    const auto state = touchscreen->driver().state();
    const auto* settings = state.dictionary(property::kConfigration);
    require(settings->integer(configration_key::kMode) == 1 &&
                settings->integer(configration_key::kClickRange) == 3,
            touchscreen->model().name + "'s driver instance did not take the settings");
  }
  stage.click("btnDefault");
  stage.click("btnOk");
  stage.untilHidden("SettingsWindow");
  stage.pictures().takeInBothThemes("main-window-settings-saved");
  return described(messages);
}

std::string sayWhichScreen(Stage& stage) {
  auto& infrared = stage.demo().touchscreen(DeviceKind::Infrared);
  stage.select(infrared);
  chooseFromDeviceMenu(stage, "actionScreens");
  stage.untilShown("ScreenWindow");
  stage.until([] { return ViewSurface::shown() != nullptr && ViewSurface::shown()->isUpToDate(); },
              "a number on the screen");
  stage.pictures().takeInBothThemes("screens");
  stage.click("btnTouchScreen");
  const auto coversTheScreen = [] {
    const auto* surface = ViewSurface::shown();
    return surface != nullptr && surface->size() == surface->screen()->size() && surface->isUpToDate();
  };
  stage.until(coversTheScreen, "a number all over the screen");
  stage.pictures().take("screens-touch");
  stage.click(ViewSurface::shown()->screen()->geometry().center());
  const auto& outcome = stage.the<QLabel>("lbScreenOutcome");
  stage.until([&] { return !outcome.text().isEmpty() && !coversTheScreen(); }, "the touch to be taken");
  const auto identity = infrared.driver().monitor().identity;
  require(!identity.empty(), "the driver instance did not get the screen's identity");
  stage.pictures().take("screens-chosen");
  const auto told = outcome.text().toStdString();
  stage.click("btnScreenCancel");
  stage.untilHidden("ScreenWindow");
  require(infrared.driver().monitor().identity.empty(), "Cancel did not take the choice back");
  return '"' + told + "\", identity " + identity;
}

std::string showAbout(Stage& stage) {
  stage.click("btnAbout");
  stage.untilShown("AboutWindow");
  const auto version = stage.the<QLabel>("lbAboutDriverVersion").text().toStdString();
  require(version == "15.1.3.0004", "the About sheet shows version \"" + version + "\"");
  stage.pictures().takeInBothThemes("about");
  stage.click("btnAboutClose");
  stage.untilHidden("AboutWindow");
  return "driver version " + version;
}

}  // namespace touchpanel::demo
