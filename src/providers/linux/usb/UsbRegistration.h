#pragma once

#include <deque>
#include <functional>
#include <memory>

#include "platform/Usb.h"
#include "providers/linux/usb/UsbAttachment.h"

namespace touchpanel {

/// Makes a service that stands for an attachment.
using MakeUsbService = std::function<UsbService(const std::shared_ptr<UsbAttachment>&)>;

/// One request for notifications: which devices, which event, whom to tell, and what has not been fetched
/// yet.
class UsbRegistration final : public UsbIterator {
 public:
  UsbRegistration(MakeUsbService makeService, UsbEvent event, const Dictionary& matching,
                  UsbCallback callback);

  /// The next device that has not been fetched. One that left before it was fetched is not handed out as an
  /// arrival: nobody could open it any more.
  UsbService next() override;

  /// Takes the event in when it is one that was asked for; tells whether it was.
  bool note(UsbEvent event, const std::shared_ptr<UsbAttachment>& attachment);
  /// Calls the callback when there is anything to fetch and everything before it was fetched.
  void deliver();

 private:
  bool isStale(const UsbAttachment& attachment) const;

  MakeUsbService makeService_;
  UsbEvent event_;
  std::int64_t vendorId_;
  std::int64_t productId_;
  UsbCallback callback_;
  std::deque<std::shared_ptr<UsbAttachment>> pending_;
  bool armed_ = false;  ///< run out since the last fetch
};

}  // namespace touchpanel
