#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "driver/service/OutputSlot.h"
#include "driver/service/ServicePorts.h"
#include "platform/OutageReport.h"

namespace touchpanel::driver {

/// What a touchscreen's devices are to be.
struct WantedDevices {
  bool pointer = true;
  bool touch = false;
  AxisResolution pointerResolution;
  AxisResolution touchResolution;
};

/// One touchscreen's way in and way out: the devices that the desktop sees, and the input nodes that are held
/// for it.
///
/// Nodes are held only while there is a device to write to; otherwise the desktop keeps the raw touches,
/// which is better than none. Whatever cannot be had is tried again every second. Of several nodes the one that can
/// do most leads; the others are only kept quiet.
///
/// A desktop takes a new device up some time after it was made, without a sign. So one that is not wanted any more
/// stays for a second longer.
class TouchscreenDevices {
 public:
  /// Nothing is owned but what is opened. `settled` is called when the devices are those that were wanted last.
  TouchscreenDevices(const TouchscreenIdentity& identity, const ServicePorts& ports, TouchChain& chain,
                     std::function<void()> settled);

  void addNode(const std::string& path);
  void removeNode(const std::string& path);
  void want(const WantedDevices& wanted);
  bool areSettled() const { return pointer_.isSettled() && touch_.isSettled(); }
  /// A device has refused a frame: it is made anew within a second.
  void deviceFailed();

 private:
  struct Node {
    std::string path;
    bool refused = false;  ///< nothing to point with: not tried again
    std::unique_ptr<TouchInput> input;
  };

  void attach();
  bool makeOutputs();
  bool grab(Node& node);
  void chooseSource();
  /// Its fingers are gone without having left.
  void dropSource();
  void settle();
  std::string name() const;

  TouchscreenIdentity identity_;
  ServicePorts ports_;
  TouchChain& chain_;
  std::function<void()> settled_;
  OutageReport outputOutage_;
  OutageReport grabOutage_;
  OutputSlot pointer_;
  OutputSlot touch_;
  std::unique_ptr<Timer> retry_;
  std::unique_ptr<Timer> settling_;
  std::vector<Node> nodes_;
  TouchInput* source_ = nullptr;
};

}  // namespace touchpanel::driver
