#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/OutageReport.h"
#include "platform/PointerDevices.h"
#include "platform/Timers.h"
#include "platform/TouchInputs.h"

namespace touchpanel::driver {

/// One touchscreen's way in and way out: the device that the desktop sees, and the input nodes that are held
/// for it.
///
/// Nodes are held only while there is a device to write to; otherwise the desktop keeps the raw touches,
/// which is better than none. Whatever cannot be had is tried again every second. Of several nodes that
/// report touches the first one counts; the others are only kept quiet.
class TouchscreenDevices {
 public:
  /// Nothing is owned but what is opened. `frames` gets the touches.
  TouchscreenDevices(const TouchscreenIdentity& identity, TouchInputs& inputs, PointerDevices& pointers,
                     Timers& timers, Diagnostics& diagnostics, FrameListener& frames);

  void addNode(const std::string& path);
  /// True when touches came from that node.
  bool removeNode(const std::string& path);
  void write(const OutputFrame& frame);
  void setMultiTouch(bool wanted);

 private:
  struct Node {
    std::string path;
    bool refused = false;  ///< no pointing device: not tried again
    std::unique_ptr<TouchInput> input;
  };

  void attach();
  bool makePointer();
  bool grab(Node& node);
  void chooseSource();
  void pointerFailed(Status status);

  TouchscreenIdentity identity_;
  TouchInputs& inputs_;
  PointerDevices& pointers_;
  Timers& timers_;
  FrameListener& frames_;
  OutageReport pointerOutage_;
  OutageReport grabOutage_;
  std::unique_ptr<Timer> retry_;
  std::unique_ptr<PointerDevice> pointer_;
  bool multiTouch_ = false;
  bool pointerBroken_ = false;
  std::vector<Node> nodes_;
  const TouchInput* source_ = nullptr;
};

}  // namespace touchpanel::driver
