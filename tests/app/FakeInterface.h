#pragma once

#include "app/Outlets.h"
#include "support/FakeControls.h"

namespace touchpanel::testing {

/// The main interface made of doubles, each under its outlet's name.
struct FakeInterface {
  FakeTable deviceTableView;
  FakeButton btnCalibrate, btnMapping, btnReset, btnSettings, btnExit, btnAbout, btnApply, btnOk;
  FakeButton btnEnableTouch, btnRebootDevcie;
  FakeTextField lbDriverVersion;
  FakeRadioGroup touchMode;
  FakeIntegerControl singleClickArea, smoothness;
  FakeRadioGroup calibType, calibMode;
  FakeCheckBox enableRightClick;
  FakeIntegerControl rightClickTime, rightClickArea;
  FakeCheckBox enableDoubleClick;
  FakeIntegerControl doubleClickTime, doubleClickArea;
  FakeCheckBox enableTouchSensitivity;
  FakeIntegerControl touchSensitivityTime, touchSensitivityArea;
  FakeWindow KeyWindow, SettingsWindow, AboutWindow;

  Outlets outlets() {
    return {deviceTableView,
            btnCalibrate,
            btnMapping,
            btnReset,
            btnSettings,
            btnExit,
            btnAbout,
            btnApply,
            btnOk,
            btnEnableTouch,
            btnRebootDevcie,
            lbDriverVersion,
            touchMode,
            singleClickArea,
            smoothness,
            calibType,
            calibMode,
            enableRightClick,
            rightClickTime,
            rightClickArea,
            enableDoubleClick,
            doubleClickTime,
            doubleClickArea,
            enableTouchSensitivity,
            touchSensitivityTime,
            touchSensitivityArea,
            KeyWindow,
            SettingsWindow,
            AboutWindow};
  }
};

}  // namespace touchpanel::testing
