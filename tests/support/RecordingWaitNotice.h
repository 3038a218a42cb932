#pragma once

#include <vector>

#include "platform/WaitNotice.h"

namespace touchpanel::testing {

/// Remembers every wait, and whether one is being shown now.
class RecordingWaitNotice final : public WaitNotice {
 public:
  void waitingFor(const WaitMessage& message) override {
    messages.push_back(message);
    isShown = true;
  }
  void done() override { isShown = false; }

  std::vector<WaitMessage> messages;
  bool isShown = false;
};

}  // namespace touchpanel::testing
