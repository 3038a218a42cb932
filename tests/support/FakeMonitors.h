#pragma once

#include <utility>

#include "platform/Monitors.h"

namespace touchpanel::testing {

class FakeMonitors final : public Monitors {
 public:
  Desktop desktop() override { return now; }
  void onChange(std::function<void()> changed) override { changed_ = std::move(changed); }

  void become(Desktop desktop) {
    now = std::move(desktop);
    identify(now.monitors);
    if (changed_) changed_();
  }

  Desktop now;

 private:
  std::function<void()> changed_;
};

}  // namespace touchpanel::testing
