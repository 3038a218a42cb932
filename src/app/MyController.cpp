#include "app/MyController.h"

#include "app/CalibrationStarter.h"
#include "app/DeviceCommands.h"
#include "app/DiscoveredDevices.h"
#include "app/HistorySheet.h"
#include "app/ScreenSheet.h"
#include "app/VersionLabel.h"
#include "discovery/DeviceList.h"
#include "discovery/UsbDiscovery.h"

namespace touchpanel {

namespace {
constexpr int kAboutReturnCode = 1;
}

/// What does the controller's work; all of it shares the controller's state. Each stands once and behind what it
/// uses.
struct MyController::Collaborators {
  Collaborators(const Outlets& outlets, const ControllerPorts& ports, ControllerState& state,
                TableReloader& controller)
      : Collaborators(outlets, ports, ports.discovery, state, controller) {}
  Collaborators(const Outlets& outlets, const ControllerPorts& ports, const DiscoveryPorts& system,
                ControllerState& state, TableReloader& controller)
      : driver(system.registry),
        store(system.usbServices, system.files, system.paths, {system.clock, system.diagnostics},
              system.waitNotice),
        earlier(ports.history, system.diagnostics),
        writes(outlets, state, store, earlier, ports.statusLine),
        buttons(outlets, state),
        settings(
            outlets, state, buttons, driver,
            {ports.sheets, ports.statusLine, system.usbServices, system.process, system.files, system.paths}),
        facts(state, system.registry, earlier, ports.facts),
        monitors(system.registry, ports.monitors),
        table(outlets, state, settings, facts),
        commands(outlets, state, buttons, driver, store, writes, system.process.DeviceContext,
                 ports.statusLine),
        calibrations(state, {driver, system.runLoop, ports.cursor, ports.presentation, store}, ports.screen,
                     system.alerts, writes, facts, ports.statusLine, monitors, controller),
        restoring(driver, store, writes, controller),
        history(state, earlier, restoring,
                {outlets.HistoryWindow, outlets.KeyWindow, ports.sheets, ports.statusLine, ports.earlier}),
        screens(state, driver,
                {outlets.ScreenWindow, outlets.KeyWindow, ports.sheets, ports.statusLine, system.registry,
                 ports.monitors, ports.screen, ports.screens}),
        devices(outlets, state, table, writes, facts, ports.statusLine, ports.emptyList),
        discovery(system, devices) {
    ports.monitors.onChange([this] { screens.monitorsChanged(); });
  }

  DriverChannel driver;
  ContextStore store;
  EarlierCalibrations earlier;
  CalibrationWrites writes;
  CommandButtons buttons;
  SettingsSheet settings;
  SelectedDeviceFacts facts;
  TouchscreenMonitors monitors;
  DeviceTable table;
  DeviceCommands commands;
  CalibrationStarter calibrations;
  CalibrationRestoring restoring;
  HistorySheet history;
  ScreenSheet screens;
  DiscoveredDevices devices;
  UsbDiscovery discovery;
};

MyController::MyController(const Outlets& outlets, const ControllerPorts& ports)
    : outlets_(outlets),
      ports_(ports),
      collaborators_(std::make_unique<Collaborators>(outlets_, ports_, state_, *this)) {
  init();
}

MyController::~MyController() = default;

void MyController::init() {
  state_ = ControllerState();
  ports_.discovery.process.devIntf = nullptr;
}

void MyController::awakeFromNib() {
  outlets_.btnMapping.setEnabled(false);
  registerForUSBNotifications();
  outlets_.KeyWindow.setHidesOnDeactivate(false);
  outlets_.lbDriverVersion.setText(kDriverVersion);
}

std::int32_t MyController::numberOfRows() { return collaborators_->table.numberOfRows(); }

std::string MyController::objectValue(std::string_view columnIdentifier, std::int32_t row) {
  return collaborators_->table.objectValue(columnIdentifier, row);
}

bool MyController::shouldSelectRow(std::int32_t row) { return collaborators_->table.shouldSelectRow(row); }

bool MyController::shouldSelectColumn(std::int32_t /*column*/) { return false; }

void MyController::reloadTableViewData() {
  outlets_.deviceTableView.reloadData();
  UpdateSettings();
  collaborators_->facts.update();
}

void MyController::Exit() { ports_.discovery.application.exit(0); }

void MyController::About() { ports_.sheets.begin(outlets_.AboutWindow, outlets_.KeyWindow); }

void MyController::AboutClose() {
  outlets_.AboutWindow.orderOut();
  ports_.sheets.end(outlets_.AboutWindow, kAboutReturnCode);
}

void MyController::EnableAllItems() { collaborators_->buttons.enableAll(); }

void MyController::Calibration() { collaborators_->calibrations.startPoints(); }

void MyController::RegionCalibration() { collaborators_->calibrations.startRegion(); }

void MyController::Reset() {
  collaborators_->commands.Reset();
  collaborators_->facts.update();
}

void MyController::RepeatWrite() {
  collaborators_->writes.repeat();
  collaborators_->facts.update();
}

void MyController::EnableTouch() {
  collaborators_->commands.EnableTouch();
  collaborators_->facts.update();
}

void MyController::Screens() { collaborators_->screens.open(); }

void MyController::ScreenMarkTouchscreen(std::size_t index) {
  collaborators_->screens.markTouchscreen(index);
}

void MyController::ScreenMark(std::size_t index) { collaborators_->screens.markScreen(index); }

void MyController::ScreenAssign() { collaborators_->screens.assign(); }

void MyController::ScreenTouch() { collaborators_->screens.startTouching(); }

void MyController::ScreenOk() { collaborators_->screens.ok(); }

void MyController::ScreenCancel() { collaborators_->screens.cancel(); }

std::string MyController::monitorOfSelected() {
  return collaborators_->monitors.place(*state_.currentDict).connector;
}

void MyController::UndoReset() {
  collaborators_->history.undoReset();
  collaborators_->facts.update();
}

void MyController::History() { collaborators_->history.open(); }

void MyController::HistoryClose() { collaborators_->history.close(); }

void MyController::Restore(std::size_t row) {
  collaborators_->history.restore(row);
  collaborators_->facts.update();
}

void MyController::Settings() { collaborators_->settings.Settings(); }

void MyController::UpdateSettings() { collaborators_->settings.UpdateSettings(); }

void MyController::RefreshTouchMode(std::int32_t touchMode) {
  collaborators_->settings.RefreshTouchMode(touchMode);
}

void MyController::SettingsChange() { collaborators_->settings.SettingsChange(); }

void MyController::SettingsDefault() { collaborators_->settings.SettingsDefault(); }

void MyController::SettingsApply() {
  collaborators_->settings.SettingsApply();
  collaborators_->facts.update();
}

void MyController::SettingsOk() {
  collaborators_->settings.SettingsOk();
  collaborators_->facts.update();
}

void MyController::SettingsCancel() { collaborators_->settings.SettingsCancel(); }

void MyController::SaveDriverConfig() { collaborators_->settings.SaveDriverConfig(); }

void MyController::WriteDriverConfigToFile() { collaborators_->settings.WriteDriverConfigToFile(); }

void MyController::WriteDeviceConfigToFile(const _DEVICT_CONTEXT& context) {
  writeDeviceConfig(ports_.discovery.files, ports_.discovery.paths, context);
}

bool MyController::registerForUSBNotifications() {
  return collaborators_->discovery.registerForUSBNotifications();
}

bool MyController::CheckDevice(std::uint32_t locationId) const {
  return touchpanel::CheckDevice(state_.deviceListArray, locationId);
}

void MyController::RemoveDeviceFromArray() {
  touchpanel::RemoveDeviceFromArray(collaborators_->devices, ports_.discovery.registry,
                                    ports_.discovery.application);
}

void MyController::LoadDeviceConfig(_DEVICT_CONTEXT& context, UsbDeviceInterface& device,
                                    RegistryObject handle, std::uint32_t locationId) {
  collaborators_->discovery.configLoading().LoadDeviceConfig(context, device, handle, locationId);
}

}  // namespace touchpanel
