#pragma once

#include "panel/StartUpPanel.h"
#include "panel/StatusArea.h"
#include "platform/WaitNotice.h"
#include "providers/qt/QtCursor.h"

namespace touchpanel {

/// What the program waits for, wherever the user is looking: on the full-screen view, on the start-up panel
/// or on the status line; and a busy cursor over all of them.
class QtWaitNotice final : public WaitNotice {
 public:
  QtWaitNotice(QtCursor& cursor, StatusArea& area, StartUpPanel& startUp)
      : cursor_(cursor), area_(area), startUp_(startUp) {}
  void waitingFor(const WaitMessage& message) override;
  void done() override;

 private:
  QtCursor& cursor_;
  StatusArea& area_;
  StartUpPanel& startUp_;
};

}  // namespace touchpanel
