#include "panel/PanelControls.h"

#include <QCoreApplication>

#include "contract/TouchSettings.h"

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
                             const Ui::SettingsSheet& settings, QDialog& aboutSheet, QDialog& historySheet,
                             QDialog& screenSheet, CallbackGate& gate)
    : Interface{.deviceTableView = QtTable(*main.ui().deviceTableView, deviceColumns(), gate),
                .btnCalibrate =
                    QtButton(*main.ui().btnCalibrate, {main.ui().actionCalibrate}, &btnRegionCalibrate),
                .btnMapping = QtButton(*main.ui().btnMapping),
                .btnReset = QtButton(*main.ui().btnReset, {main.ui().actionReset}),
                .btnSettings = QtButton(*main.ui().btnSettings, {main.ui().actionSettings}),
                .btnExit = QtButton(*main.ui().btnExit, {main.ui().actionExit}),
                .btnAbout = QtButton(*main.ui().btnAbout, {main.ui().actionAbout}),
                .btnApply = QtButton(*settings.btnApply),
                .btnOk = QtButton(*settings.btnOk),
                .btnEnableTouch = QtButton(*main.ui().btnEnableTouch, {main.ui().actionEnableTouch}),
                .btnRebootDevcie = QtButton(*settings.btnRebootDevcie),
                .btnRepeatWrite = QtButton(*main.ui().btnRepeatWrite, {main.ui().actionRepeatWrite}),
                .lbDriverVersion = QtTextField(*main.ui().lbDriverVersion),
                .touchMode = QtRadioGroup(*settings.touchMode),
                .singleClickArea = QtIntegerControl(*settings.singleClickArea),
                .smoothness = QtIntegerControl(*settings.smoothness),
                .calibType = QtRadioGroup(*settings.calibType),
                .calibMode = QtRadioGroup(*settings.calibMode),
                .enableRightClick = QtCheckBox(*settings.enableRightClick),
                .rightClickTime = QtIntegerControl(*settings.rightClickTime),
                .rightClickArea = QtIntegerControl(*settings.rightClickArea),
                .enableDoubleClick = QtCheckBox(*settings.enableDoubleClick),
                .doubleClickTime = QtIntegerControl(*settings.doubleClickTime),
                .doubleClickArea = QtIntegerControl(*settings.doubleClickArea),
                .enableTouchSensitivity = QtCheckBox(*settings.enableTouchSensitivity),
                .touchSensitivityTime = QtIntegerControl(*settings.touchSensitivityTime),
                .touchSensitivityArea = QtIntegerControl(*settings.touchSensitivityArea),
                .KeyWindow = QtWindow(main),
                .SettingsWindow = QtWindow(settingsSheet),
                .AboutWindow = QtWindow(aboutSheet),
                .HistoryWindow = QtWindow(historySheet),
                .ScreenWindow = QtWindow(screenSheet)},
      btnRegionCalibrate(*main.ui().btnRegionCalibrate, {main.ui().actionRegionCalibrate}) {}

void PanelControls::onSettingsEdited(const std::function<void()>& action) {
  calibMode.onEdited(action);
  const TouchSettings anySettings;
  forEachSetting(*this, anySettings, [&](auto& control, const auto&) { control.onEdited(action); });
}

}  // namespace touchpanel
