#pragma once

#include "panel/StatusArea.h"
#include "platform/StatusLine.h"

namespace touchpanel {

/// The last thing done, in the user's language.
class QtStatusLine final : public StatusLine {
 public:
  explicit QtStatusLine(StatusArea& area) : area_(area) {}
  void show(const StatusMessage& message) override;

 private:
  StatusArea& area_;
};

}  // namespace touchpanel
