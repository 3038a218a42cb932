#pragma once

#include <functional>

#include "ControllerRig.h"
#include "providers/files/LibplistFiles.h"
#include "providers/simulated/SimulatedTouchscreens.h"
#include "support/TemporaryDirectory.h"
#include "support/TouchedView.h"

namespace touchpanel::testing {

inline constexpr Size kScreen{1920, 1080};

/// Decorator: a registry whose service may be down, or refuse this user's writes.
class UnsureRegistry final : public Registry {
 public:
  explicit UnsureRegistry(Registry& registry) : registry_(registry) {}
  Status availability() override { return failure; }
  std::vector<RegistryObject> instancesOf(std::string_view className) override {
    return isDown() ? std::vector<RegistryObject>() : registry_.instancesOf(className);
  }
  std::vector<RegistryObject> childrenOf(RegistryObject parent) override {
    return isDown() ? std::vector<RegistryObject>() : registry_.childrenOf(parent);
  }
  bool conformsTo(RegistryObject object, std::string_view className) override {
    return !isDown() && registry_.conformsTo(object, className);
  }
  std::optional<Dictionary> properties(RegistryObject object) override {
    return isDown() ? std::nullopt : registry_.properties(object);
  }
  Status setProperty(RegistryObject object, std::string_view name, const Value& value) override {
    if (failure != kSuccess && object != spared) return failure;
    return registry_.setProperty(object, name, value);
  }

  Status failure = kSuccess;
  RegistryObject spared = 0;  ///< takes writes all the same

 private:
  bool isDown() const { return failure == kErrorNotResponding; }

  Registry& registry_;
};

/// One run of the control panel, with the world it runs in; the machine and the files outlive it.
class PanelRun : public ControllerRig {
 public:
  PanelRun(simulated::SimulatedTouchscreens& machine, const TemporaryDirectory& directory)
      : registry(machine.registry()),
        controller_(outletsOf(interface), portsOn(registry, machine.usb(), machine.usb(), disk_,
                                                  ConfigPaths::in(directory.path()))) {
    controller_.awakeFromNib();
    if (controller_.numberOfRows() > 0) controller_.objectValue(entry_key::kSN, 0);
  }
  MyController& controller() { return controller_; }
  const DeviceListArray& list() const { return controller_.state().deviceListArray; }

  /// Selects the touchscreen and leads a finger through its calibration, with `beforeOk` in front of the last
  /// touch. False when it did not end by OK.
  bool calibrate(
      simulated::SimulatedTouchscreen& touchscreen, int mode, const std::function<void()>& beforeOk = [] {}) {
    if (!select(touchscreen)) return false;
    const auto entry = controller_.state().currentDict;
    entry->set(settings_key::kCalibrateMode, mode);
    controller_.Calibration();
    if (screen.windows.back()->isClosed) return false;
    const auto turn = monitors.now.monitors.empty() ? 0 : monitors.now.monitors[0].turn;
    TouchedView finger(touchscreen, {screen.frame.width, screen.frame.height}, turn);
    finger.show(*screen.windows.back()->view, screen.windows.back());
    for (int i = 0; i < mode && !finger.isClosed(); ++i) finger.tapTarget();
    beforeOk();
    if (!finger.isClosed()) finger.tapMiddle();
    return finger.isClosed() && entry->text(entry_key::kCalibrateStatus) == entry_key::kYes;
  }
  bool select(const simulated::SimulatedTouchscreen& touchscreen) {
    for (std::size_t row = 0; row < list().size(); ++row)
      if (static_cast<std::uint32_t>(list()[row]->integer(entry_key::kLocationID)) ==
          touchscreen.locationId())
        return controller_.shouldSelectRow(static_cast<std::int32_t>(row));
    return false;
  }
  std::vector<std::string> column(const char* key) {
    std::vector<std::string> texts;
    for (std::int32_t row = 0; row < controller_.numberOfRows(); ++row)
      texts.push_back(controller_.objectValue(key, row));
    return texts;
  }

  UnsureRegistry registry;

 private:
  files::LibplistFiles disk_;
  MyController controller_;
};

}  // namespace touchpanel::testing
