#include "app/SettingsControls.h"

#include "contract/ProductId.h"

namespace touchpanel {
namespace {

constexpr std::int32_t kFewTargets = 4;
constexpr std::int32_t kManyTargets = 25;
constexpr std::int32_t kRowOfFewTargets = 0;
constexpr std::int32_t kRowOfManyTargets = 1;

constexpr std::int32_t kClickOnTouch = 0;
constexpr std::int32_t kClickOnRelease = 1;
constexpr std::int32_t kDragAndHold = 2;

}  // namespace

void SettingsControls::show(const SettingsValues& values) {
  outlets_.touchMode.selectRow(values.touchMode);
  outlets_.calibMode.selectRow(values.calibrateMode == kFewTargets ? kRowOfFewTargets : kRowOfManyTargets);
  outlets_.calibType.setEnabled(false);
  outlets_.calibType.selectRow(values.calibrateType);
  outlets_.singleClickArea.setIntegerValue(values.clickRange);
  outlets_.smoothness.setIntegerValue(values.smoothness);
  outlets_.enableRightClick.setOn(values.enableRightClick);
  outlets_.rightClickTime.setIntegerValue(values.rightClickTime);
  outlets_.rightClickArea.setIntegerValue(values.rightClickArea);
  outlets_.doubleClickTime.setIntegerValue(values.doubleClickTime);
  outlets_.doubleClickArea.setIntegerValue(values.doubleClickArea);
  outlets_.enableTouchSensitivity.setOn(values.enableTouchSensitivity);
  outlets_.touchSensitivityTime.setIntegerValue(values.touchSensitivityTime);
  outlets_.touchSensitivityArea.setIntegerValue(values.touchSensitivityArea);
}

SettingsValues SettingsControls::values() const {
  return {.touchMode = outlets_.touchMode.selectedRow(),
          .clickRange = outlets_.singleClickArea.integerValue(),
          .smoothness = outlets_.smoothness.integerValue(),
          .calibrateMode = outlets_.calibMode.selectedRow() == kRowOfFewTargets ? kFewTargets : kManyTargets,
          .calibrateType = outlets_.calibType.selectedRow(),
          .enableRightClick = outlets_.enableRightClick.isOn(),
          .rightClickTime = outlets_.rightClickTime.integerValue(),
          .rightClickArea = outlets_.rightClickArea.integerValue(),
          .doubleClickTime = outlets_.doubleClickTime.integerValue(),
          .doubleClickArea = outlets_.doubleClickArea.integerValue(),
          .enableTouchSensitivity = outlets_.enableTouchSensitivity.isOn(),
          .touchSensitivityTime = outlets_.touchSensitivityTime.integerValue(),
          .touchSensitivityArea = outlets_.touchSensitivityArea.integerValue()};
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
