#pragma once

#include <memory>
#include <optional>

#include "driver/service/TouchChain.h"
#include "platform/OutputDevices.h"

namespace touchpanel::driver {

/// One kind of device of a touchscreen: made when it is wanted, at once; replaced and taken away only by settle(), when
/// the desktop has had time to take the other one up.
class OutputSlot {
 public:
  /// Nothing is owned.
  OutputSlot(OutputKind kind, OutputDevices& devices, TouchChain& chain)
      : kind_(kind), devices_(devices), chain_(chain) {}
  ~OutputSlot() { clear(); }
  OutputSlot(const OutputSlot&) = delete;
  OutputSlot& operator=(const OutputSlot&) = delete;

  void want(const std::optional<OutputDescription>& wanted) { wanted_ = wanted; }
  /// Makes what is wanted and not there. A device that has refused a frame is not there.
  Status prepare();
  bool isSettled() const { return !next_.device && (wanted_ || !current_.device); }
  void settle();
  void clear();

 private:
  struct Made {
    OutputDescription description;
    std::unique_ptr<OutputDevice> device;
  };
  void use(Made made);

  OutputKind kind_;
  OutputDevices& devices_;
  TouchChain& chain_;
  std::optional<OutputDescription> wanted_;
  Made current_;
  Made next_;
};

}  // namespace touchpanel::driver
