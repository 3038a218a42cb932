#include "app/SettingsControls.h"

#include "contract/ProductId.h"

namespace touchpanel {
namespace {

constexpr std::int32_t kFewTargets = 4;
constexpr std::int32_t kManyTargets = 25;
constexpr std::int32_t kRowOfFewTargets = 0;
constexpr std::int32_t kRowOfManyTargets = 1;

struct Show {
  void operator()(RadioGroup& control, std::int32_t value) const { control.selectRow(value); }
  void operator()(IntegerControl& control, std::int32_t value) const { control.setIntegerValue(value); }
  void operator()(CheckBox& control, bool value) const { control.setOn(value); }
};

struct Read {
  void operator()(const RadioGroup& control, std::int32_t& value) const { value = control.selectedRow(); }
  void operator()(const IntegerControl& control, std::int32_t& value) const {
    value = control.integerValue();
  }
  void operator()(const CheckBox& control, bool& value) const { value = control.isOn(); }
};

}  // namespace

void SettingsControls::show(const TouchSettings& settings) {
  outlets_.calibType.setEnabled(false);
  outlets_.calibMode.selectRow(settings.calibrateMode == kFewTargets ? kRowOfFewTargets : kRowOfManyTargets);
  forEachSetting(outlets_, settings, Show());
}

TouchSettings SettingsControls::changed(TouchSettings settings) const {
  settings.calibrateMode = outlets_.calibMode.selectedRow() == kRowOfFewTargets ? kFewTargets : kManyTargets;
  forEachSetting(outlets_, settings, Read());
  return settings;
}

void SettingsControls::enableDependents(std::int32_t touchMode, std::int32_t productId) {
  enableRightClick(touchMode);
  enableFilters(productId == kProductOptical);
}

void SettingsControls::enableRightClick(std::int32_t touchMode) {
  const bool never = touchMode == kClickOnTouch || touchMode == kClickOnRelease;
  if (!never && touchMode != kDragAndHold) return;
  const bool on = !never && outlets_.enableRightClick.isOn();
  outlets_.enableRightClick.setEnabled(!never);
  outlets_.rightClickTime.setEnabled(on);
  outlets_.rightClickArea.setEnabled(on);
}

void SettingsControls::enableFilters(bool exist) {
  const bool on = exist && outlets_.enableTouchSensitivity.isOn();
  outlets_.smoothness.setEnabled(exist);
  outlets_.enableTouchSensitivity.setEnabled(exist);
  outlets_.touchSensitivityTime.setEnabled(on);
  outlets_.touchSensitivityArea.setEnabled(on);
}

}  // namespace touchpanel
