#pragma once

#include <chrono>
#include <functional>
#include <string>

#include "platform/Application.h"

namespace touchpanel::demo {

/// Lets the program run until something has come about. Looks after every batch of events and never at fixed
/// times.
class EventWait {
 public:
  explicit EventWait(const Application& application) : application_(application) {}

  /// Serves events until `condition` holds. StepFailed, naming `what`, when that has not come about after
  /// `limit` or cannot any more because the program is ending; a modal panel that is in the way by then is
  /// named and closed.
  void until(const std::function<bool()>& condition, const std::string& what,
             std::chrono::seconds limit = std::chrono::seconds(30)) const;

 private:
  const Application& application_;
};

}  // namespace touchpanel::demo
