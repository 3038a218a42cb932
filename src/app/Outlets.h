#pragma once

#include "platform/Controls.h"

namespace touchpanel {

/// The controls of the main interface description, each under its outlet's name. None is owned; all must
/// outlive the controller.
struct Outlets {
  Table& deviceTableView;
  Button& btnCalibrate;
  Button& btnMapping;
  Button& btnReset;
  Button& btnSettings;
  Button& btnExit;
  Button& btnAbout;
  Button& btnApply;
  Button& btnOk;
  Button& btnEnableTouch;
  Button& btnRebootDevcie;
  TextField& lbDriverVersion;

  RadioGroup& touchMode;
  IntegerControl& singleClickArea;
  IntegerControl& smoothness;
  RadioGroup& calibType;
  RadioGroup& calibMode;
  CheckBox& enableRightClick;
  IntegerControl& rightClickTime;
  IntegerControl& rightClickArea;
  CheckBox& enableDoubleClick;  ///< never read or set
  IntegerControl& doubleClickTime;
  IntegerControl& doubleClickArea;
  CheckBox& enableTouchSensitivity;
  IntegerControl& touchSensitivityTime;
  IntegerControl& touchSensitivityArea;

  Window& KeyWindow;  ///< the main window
  Window& SettingsWindow;
  Window& AboutWindow;
};

}  // namespace touchpanel
