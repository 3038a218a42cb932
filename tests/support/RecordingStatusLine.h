#pragma once

#include <vector>

#include "platform/StatusLine.h"

namespace touchpanel::testing {

class RecordingStatusLine final : public StatusLine {
 public:
  void show(const StatusMessage& message) override { messages.push_back(message); }

  std::vector<StatusMessage> messages;
};

}  // namespace touchpanel::testing
