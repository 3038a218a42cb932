#pragma once

#include "app/Outlets.h"
#include "panel/MainWindowWidget.h"
#include "providers/qt/QtControls.h"
#include "providers/qt/QtTable.h"
#include "ui_AboutSheet.h"
#include "ui_MainWindow.h"
#include "ui_SettingsSheet.h"

namespace touchpanel {

struct QtKit {
  using Table = QtTable;
  using Button = QtButton;
  using TextField = QtTextField;
  using RadioGroup = QtRadioGroup;
  using IntegerControl = QtIntegerControl;
  using CheckBox = QtCheckBox;
  using Window = QtWindow;
};

/// The widgets of the interface description that bear an outlet's name, each behind its port.
struct PanelControls : Interface<QtKit> {
  PanelControls(MainWindowWidget& main, QDialog& settingsSheet, const Ui::SettingsSheet& settings,
                QDialog& aboutSheet, QDialog& historySheet, QDialog& screenSheet, CallbackGate& gate);

  /// Calls `action` for each change that the user makes to a control of the settings sheet.
  void onSettingsEdited(const std::function<void()>& action);

  QtButton btnRegionCalibrate;  ///< no outlet of its own: it follows btnCalibrate
};

}  // namespace touchpanel
