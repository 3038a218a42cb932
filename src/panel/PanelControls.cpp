#include "panel/PanelControls.h"

#include <QCoreApplication>

namespace touchpanel {
namespace {

/// Gives the texts of the list their place in the catalogues.
class DeviceTable {
  Q_DECLARE_TR_FUNCTIONS(DeviceTable)
};

[[maybe_unused]] constexpr const char* kWords[] = {QT_TRANSLATE_NOOP("DeviceTable", "YES"),
                                                   QT_TRANSLATE_NOOP("DeviceTable", "NO")};

/// The columns of the list of touchscreens.
std::vector<QtTable::Column> deviceColumns() {
  const auto word = [](const std::string& english) { return DeviceTable::tr(english.c_str()); };
  return {{"SN", DeviceTable::tr("Serial number")},
          {"FirmwareVersion", DeviceTable::tr("Firmware")},
          {"CalibrateStatus", DeviceTable::tr("Calibrated"), word},
          {"MonitorID", DeviceTable::tr("Monitor")},
          {"LocationID", DeviceTable::tr("Location")}};
}

}  // namespace

PanelControls::PanelControls(MainWindowWidget& main, QDialog& settingsSheet,
                             const Ui::SettingsSheet& settings, QDialog& aboutSheet, CallbackGate& gate)
    : deviceTableView(*main.ui().deviceTableView, deviceColumns(), gate),
      btnRegionCalibrate(*main.ui().btnRegionCalibrate, {main.ui().actionRegionCalibrate}),
      btnCalibrate(*main.ui().btnCalibrate, {main.ui().actionCalibrate}, &btnRegionCalibrate),
      btnMapping(*main.ui().btnMapping),
      btnReset(*main.ui().btnReset, {main.ui().actionReset}),
      btnSettings(*main.ui().btnSettings, {main.ui().actionSettings}),
      btnExit(*main.ui().btnExit, {main.ui().actionExit}),
      btnAbout(*main.ui().btnAbout, {main.ui().actionAbout}),
      btnApply(*settings.btnApply),
      btnOk(*settings.btnOk),
      btnEnableTouch(*main.ui().btnEnableTouch, {main.ui().actionEnableTouch}),
      btnRebootDevcie(*settings.btnRebootDevcie),
      lbDriverVersion(*main.ui().lbDriverVersion),
      touchMode(*settings.touchMode),
      singleClickArea(*settings.singleClickArea),
      smoothness(*settings.smoothness),
      calibType(*settings.calibType),
      calibMode(*settings.calibMode),
      enableRightClick(*settings.enableRightClick),
      rightClickTime(*settings.rightClickTime),
      rightClickArea(*settings.rightClickArea),
      enableDoubleClick(*settings.enableDoubleClick),
      doubleClickTime(*settings.doubleClickTime),
      doubleClickArea(*settings.doubleClickArea),
      enableTouchSensitivity(*settings.enableTouchSensitivity),
      touchSensitivityTime(*settings.touchSensitivityTime),
      touchSensitivityArea(*settings.touchSensitivityArea),
      KeyWindow(main),
      SettingsWindow(settingsSheet),
      AboutWindow(aboutSheet) {}

Outlets PanelControls::outlets() {
  return {.deviceTableView = deviceTableView,
          .btnCalibrate = btnCalibrate,
          .btnMapping = btnMapping,
          .btnReset = btnReset,
          .btnSettings = btnSettings,
          .btnExit = btnExit,
          .btnAbout = btnAbout,
          .btnApply = btnApply,
          .btnOk = btnOk,
          .btnEnableTouch = btnEnableTouch,
          .btnRebootDevcie = btnRebootDevcie,
          .lbDriverVersion = lbDriverVersion,
          .touchMode = touchMode,
          .singleClickArea = singleClickArea,
          .smoothness = smoothness,
          .calibType = calibType,
          .calibMode = calibMode,
          .enableRightClick = enableRightClick,
          .rightClickTime = rightClickTime,
          .rightClickArea = rightClickArea,
          .enableDoubleClick = enableDoubleClick,
          .doubleClickTime = doubleClickTime,
          .doubleClickArea = doubleClickArea,
          .enableTouchSensitivity = enableTouchSensitivity,
          .touchSensitivityTime = touchSensitivityTime,
          .touchSensitivityArea = touchSensitivityArea,
          .KeyWindow = KeyWindow,
          .SettingsWindow = SettingsWindow,
          .AboutWindow = AboutWindow};
}

void PanelControls::onSettingsEdited(const std::function<void()>& action) {
  for (auto* group : {&touchMode, &calibType, &calibMode}) group->onEdited(action);
  for (auto* box : {&enableRightClick, &enableTouchSensitivity}) box->onEdited(action);
  for (auto* control : {&singleClickArea, &smoothness, &rightClickTime, &rightClickArea, &doubleClickTime,
                        &doubleClickArea, &touchSensitivityTime, &touchSensitivityArea})
    control->onEdited(action);
}

}  // namespace touchpanel
