#pragma once

#include "platform/Controls.h"

namespace touchpanel {

/// The controls of the main interface description, each under its outlet's name. `Kit` names the type that
/// stands for each kind of control.
template <typename Kit>
struct Interface {
  typename Kit::Table deviceTableView;
  typename Kit::Button btnCalibrate, btnMapping, btnReset, btnSettings, btnExit, btnAbout, btnApply, btnOk;
  typename Kit::Button btnEnableTouch, btnRebootDevcie, btnRepeatWrite;
  typename Kit::TextField lbDriverVersion;

  typename Kit::RadioGroup touchMode;
  typename Kit::IntegerControl singleClickArea, smoothness;
  typename Kit::RadioGroup calibType, calibMode;
  typename Kit::CheckBox enableRightClick;
  typename Kit::IntegerControl rightClickTime, rightClickArea;
  typename Kit::CheckBox enableDoubleClick;  ///< never read or set
  typename Kit::IntegerControl doubleClickTime, doubleClickArea;
  typename Kit::CheckBox enableTouchSensitivity;
  typename Kit::IntegerControl touchSensitivityTime, touchSensitivityArea;

  typename Kit::Window KeyWindow, SettingsWindow, AboutWindow, HistoryWindow,
      ScreenWindow;  ///< KeyWindow is the main window
};

struct PortKit {
  using Table = touchpanel::Table&;
  using Button = touchpanel::Button&;
  using TextField = touchpanel::TextField&;
  using RadioGroup = touchpanel::RadioGroup&;
  using IntegerControl = touchpanel::IntegerControl&;
  using CheckBox = touchpanel::CheckBox&;
  using Window = touchpanel::Window&;
};

/// The interface as the controller sees it. None of the controls is owned; all must outlive the controller.
using Outlets = Interface<PortKit>;

template <typename Kit>
Outlets outletsOf(Interface<Kit>& of) {
  return {of.deviceTableView,
          of.btnCalibrate,
          of.btnMapping,
          of.btnReset,
          of.btnSettings,
          of.btnExit,
          of.btnAbout,
          of.btnApply,
          of.btnOk,
          of.btnEnableTouch,
          of.btnRebootDevcie,
          of.btnRepeatWrite,
          of.lbDriverVersion,
          of.touchMode,
          of.singleClickArea,
          of.smoothness,
          of.calibType,
          of.calibMode,
          of.enableRightClick,
          of.rightClickTime,
          of.rightClickArea,
          of.enableDoubleClick,
          of.doubleClickTime,
          of.doubleClickArea,
          of.enableTouchSensitivity,
          of.touchSensitivityTime,
          of.touchSensitivityArea,
          of.KeyWindow,
          of.SettingsWindow,
          of.AboutWindow,
          of.HistoryWindow,
          of.ScreenWindow};
}

/// Calls `visit` with each control of the settings sheet and the setting that it shows as it is; the number of
/// targets is not among them, since its control shows a choice.
template <typename Controls, typename Settings, typename Visit>
void forEachSetting(Controls& controls, Settings& settings, const Visit& visit) {
  visit(controls.touchMode, settings.mode);
  visit(controls.calibType, settings.calibrateType);
  visit(controls.singleClickArea, settings.clickRange);
  visit(controls.smoothness, settings.smoothness);
  visit(controls.enableRightClick, settings.enableRightClick);
  visit(controls.rightClickTime, settings.rightClickTime);
  visit(controls.rightClickArea, settings.rightClickArea);
  visit(controls.doubleClickTime, settings.doubleClickTime);
  visit(controls.doubleClickArea, settings.doubleClickArea);
  visit(controls.enableTouchSensitivity, settings.enableTouchSensitivity);
  visit(controls.touchSensitivityTime, settings.touchSensitivityTime);
  visit(controls.touchSensitivityArea, settings.touchSensitivityArea);
}

}  // namespace touchpanel
