#include "touchdriverd/BusLoop.h"

namespace touchpanel::driver {

namespace {
constexpr std::chrono::seconds kRetryInterval{1};
}

BusLoop::BusLoop(EventLoop& loop, BusService& service)
    : loop_(loop), service_(service), retry_(loop.create([this] { connect(); })) {
  connect();
}

void BusLoop::connect() {
  watch_.reset();
  if (!service_.connect()) {
    retry_->arm(loop_.now() + kRetryInterval);
    return;
  }
  const auto prepare = [this] {
    const auto data = service_.pollData();
    return EventLoop::PollRequest{static_cast<std::uint32_t>(data.events), data.timeout_usec};
  };
  watch_ = loop_.watch(service_.pollData().fd, prepare, [this] { process(); });
}

void BusLoop::process() {
  if (service_.process()) return;
  // The connection is gone, and its descriptor with it.
  watch_->stop();
  retry_->arm(loop_.now() + kRetryInterval);
}

}  // namespace touchpanel::driver
