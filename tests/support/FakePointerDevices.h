#pragma once

#include <map>
#include <vector>

#include "platform/PointerDevices.h"

namespace touchpanel::testing {

/// Pointer devices by location, with what was written to each.
class FakePointerDevices final : public PointerDevices {
 public:
  struct Device {
    bool exists = false;
    bool multiTouch = false;
    Status writeResult = kSuccess;
    std::vector<OutputFrame> frames;
  };

  Status create(const TouchscreenIdentity& identity, std::unique_ptr<PointerDevice>& device) override {
    ++attempts;
    if (createResult == kSuccess) device = std::make_unique<Pointer>(devices[identity.locationId]);
    return createResult;
  }

  Status createResult = kSuccess;
  int attempts = 0;
  std::map<std::uint32_t, Device> devices;

 private:
  class Pointer final : public PointerDevice {
   public:
    explicit Pointer(Device& device) : device_(device) { device_.exists = true; }
    ~Pointer() override { device_.exists = device_.multiTouch = false; }
    Status write(const OutputFrame& frame) override {
      if (device_.writeResult == kSuccess) device_.frames.push_back(frame);
      return device_.writeResult;
    }
    Status setMultiTouch(bool wanted) override {
      device_.multiTouch = wanted;
      return kSuccess;
    }

   private:
    Device& device_;
  };
};

}  // namespace touchpanel::testing
