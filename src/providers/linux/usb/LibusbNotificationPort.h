#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "providers/linux/usb/UsbRegistration.h"

namespace touchpanel {

/// A run-loop source for USB arrivals and departures. It is readable when libusb has something to handle, and
/// when something was noticed outside perform(): libusb also handles events inside a synchronous transfer,
/// and then nothing is left to read on its own descriptors.
///
/// Events are told in the order in which they happened, whichever registration they belong to: a touchscreen
/// that is plugged in again at once must be seen to leave before it is seen to arrive.
class LibusbNotificationPort final : public UsbNotificationPort, public RunLoopSource {
 public:
  /// `libusbDescriptors` are watched beside its own; `pump` has libusb handle what is pending.
  LibusbNotificationPort(std::vector<int> libusbDescriptors, std::function<void()> pump);
  ~LibusbNotificationPort() override;
  LibusbNotificationPort(const LibusbNotificationPort&) = delete;
  LibusbNotificationPort& operator=(const LibusbNotificationPort&) = delete;

  RunLoopSource& runLoopSource() override { return *this; }
  std::vector<int> descriptors() const override;
  void perform() override;

  UsbRegistration& add(std::unique_ptr<UsbRegistration> registration);
  /// Passes an event on to whoever asked for it.
  void note(UsbEvent event, const std::shared_ptr<UsbAttachment>& attachment);
  /// Makes its source readable. Allocates nothing and does not fail.
  void wake();

 private:
  std::vector<int> libusbDescriptors_;
  std::function<void()> pump_;
  int wake_;
  std::vector<std::unique_ptr<UsbRegistration>> registrations_;
  std::vector<UsbRegistration*> messages_;  ///< one for each event not told yet
};

}  // namespace touchpanel
