#include "providers/linux/usb/UsbRegistration.h"

#include <algorithm>

namespace touchpanel {
namespace {

constexpr char kVendorKey[] = "idVendor";
constexpr char kProductKey[] = "idProduct";

}  // namespace

UsbRegistration::UsbRegistration(MakeUsbService makeService, UsbEvent event, const Dictionary& matching,
                                 UsbCallback callback)
    : makeService_(std::move(makeService)),
      event_(event),
      vendorId_(matching.integer(kVendorKey)),
      productId_(matching.integer(kProductKey)),
      callback_(std::move(callback)) {}

UsbService UsbRegistration::next() {
  armed_ = false;
  while (!pending_.empty()) {
    const auto attachment = std::move(pending_.front());
    pending_.pop_front();
    if (!isStale(*attachment)) return makeService_(attachment);
  }
  armed_ = true;
  return 0;
}

bool UsbRegistration::note(UsbEvent event, const std::shared_ptr<UsbAttachment>& attachment) {
  const bool asked =
      event == event_ && attachment->vendorId == vendorId_ && attachment->productId == productId_;
  if (asked) pending_.push_back(attachment);
  return asked;
}

void UsbRegistration::deliver() {
  std::erase_if(pending_, [this](const auto& attachment) { return isStale(*attachment); });
  if (armed_ && !pending_.empty()) callback_(*this);
}

bool UsbRegistration::isStale(const UsbAttachment& attachment) const {
  return event_ == UsbEvent::FirstMatch && !attachment.attached;
}

}  // namespace touchpanel
