#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "app/ControllerPorts.h"
#include "app/ControllerState.h"
#include "app/Outlets.h"
#include "calibration/TableReloader.h"

namespace touchpanel {

/// The application's delegate: owner of the device list, the selection, the working settings and the flags.
/// It answers the main interface's questions and passes each action on to the collaborator that does it.
///
/// Every operation belongs to the main thread and is to be called from the run loop, one at a time. With
/// nothing selected a device command only says so on the status line.
class MyController final : public TableSource, public TableReloader {
 public:
  /// Keeps references to everything in `outlets` and `ports`; sends nothing anywhere and touches no control.
  MyController(const Outlets& outlets, const ControllerPorts& ports);
  ~MyController() override;
  MyController(const MyController&) = delete;
  MyController& operator=(const MyController&) = delete;

  // Life cycle.

  /// Puts list, selection, settings and flags to their start values. Done by construction already.
  void init();
  /// Start-up work, once, after the interface was loaded and before the main window is shown: finds the
  /// attached touchscreens and reads them, which blocks for a second or more for each. Without any driver
  /// instance an alert is shown and Application::terminate() is called; look at Application::isEnding()
  /// before showing the window.
  void awakeFromNib();
  void applicationDidFinishLaunching() {}
  bool applicationShouldTerminateAfterLastWindowClosed() const { return true; }
  bool windowShouldClose() const { return true; }

  // The device table.

  std::int32_t numberOfRows() override;
  std::string objectValue(std::string_view columnIdentifier, std::int32_t row) override;
  bool shouldSelectRow(std::int32_t row) override;
  bool shouldSelectColumn(std::int32_t column) override;
  void didSelectTabViewItem(std::int32_t /*index*/) {}
  void reloadTableViewData() override;

  // Main window.

  void Exit();
  void About();
  void AboutClose();
  void GetDeviceInfo() {}
  void EnableAllItems();

  // Device commands.

  void Calibration();
  void RegionCalibration();
  void Mapping() {}
  /// Blocks while the device is written, for a quarter of a second or more.
  void Reset();
  /// Writes the calibration again whose write to a touchscreen failed last; nothing when there is none.
  void RepeatWrite();
  void EnableTouch();
  /// Puts back what the last reset of the selected touchscreen discarded. Blocks like a reset.
  void UndoReset();

  // Sheet of the screens.

  void Screens();
  void ScreenMarkTouchscreen(std::size_t index);
  void ScreenMark(std::size_t index);
  void ScreenAssign();
  void ScreenTouch();
  void ScreenOk();
  void ScreenCancel();
  /// The connector of the monitor that the selected touchscreen lies on; empty when that is not known.
  std::string monitorOfSelected();

  // Sheet of earlier calibrations.

  void History();
  void HistoryClose();
  /// Closes the sheet and writes the calibration that is shown in `row` to its touchscreen. Blocks like a reset.
  void Restore(std::size_t row);

  // Settings sheet.

  void Settings();
  void UpdateSettings();
  void RefreshTouchMode(std::int32_t touchMode);
  /// For every change that the user makes to a control of the sheet.
  void SettingsChange();
  void SettingsDefault();
  void SettingsApply();
  void SettingsOk();
  void SettingsCancel();
  void SaveDriverConfig();

  // Files.

  void WriteDriverConfigToFile();
  void WriteDeviceConfigToFile(const _DEVICT_CONTEXT& context);

  // Discovery.

  bool registerForUSBNotifications();
  bool CheckDevice(std::uint32_t locationId) const;
  void RemoveDeviceFromArray();
  void LoadDeviceConfig(_DEVICT_CONTEXT& context, UsbDeviceInterface& device, RegistryObject handle,
                        std::uint32_t locationId);

  const ControllerState& state() const { return state_; }

 private:
  struct Collaborators;

  Outlets outlets_;
  ControllerPorts ports_;
  ControllerState state_;
  std::unique_ptr<Collaborators> collaborators_;
};

}  // namespace touchpanel
