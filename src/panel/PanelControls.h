#pragma once

#include "app/Outlets.h"
#include "panel/MainWindowWidget.h"
#include "providers/qt/QtControls.h"
#include "providers/qt/QtTable.h"
#include "ui_AboutSheet.h"
#include "ui_MainWindow.h"
#include "ui_SettingsSheet.h"

namespace touchpanel {

/// The widgets of the interface description that bear an outlet's name, each behind its port.
struct PanelControls {
  PanelControls(MainWindowWidget& main, QDialog& settingsSheet, const Ui::SettingsSheet& settings,
                QDialog& aboutSheet, CallbackGate& gate);

  Outlets outlets();
  /// Calls `action` for each change that the user makes to a control of the settings sheet.
  void onSettingsEdited(const std::function<void()>& action);

  QtTable deviceTableView;
  QtButton btnRegionCalibrate;  ///< no outlet of its own: it follows btnCalibrate
  QtButton btnCalibrate, btnMapping, btnReset, btnSettings, btnExit, btnAbout;
  QtButton btnApply, btnOk, btnEnableTouch, btnRebootDevcie;
  QtTextField lbDriverVersion;

  QtRadioGroup touchMode;
  QtIntegerControl singleClickArea, smoothness;
  QtRadioGroup calibType, calibMode;
  QtCheckBox enableRightClick;
  QtIntegerControl rightClickTime, rightClickArea;
  QtCheckBox enableDoubleClick;
  QtIntegerControl doubleClickTime, doubleClickArea;
  QtCheckBox enableTouchSensitivity;
  QtIntegerControl touchSensitivityTime, touchSensitivityArea;

  QtWindow KeyWindow, SettingsWindow, AboutWindow;
};

}  // namespace touchpanel
