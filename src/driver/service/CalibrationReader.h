#pragma once

#include <functional>
#include <memory>

#include "platform/Status.h"
#include "platform/TouchscreenIdentity.h"
#include "protocol/DeviceContext.h"

namespace touchpanel::driver {

/// A read that is under way. Destroying it abandons the read; its callback then never comes.
class CalibrationReading {
 public:
  virtual ~CalibrationReading() = default;
};

/// Reads what a touchscreen itself holds, without keeping the caller from its other work.
class CalibrationReader {
 public:
  using Done = std::function<void(Status, const _DEVICT_CONTEXT&)>;

  virtual ~CalibrationReader() = default;
  /// Opens the touchscreen exclusively (waiting while another program has it), reads its blocks over `held`,
  /// closes it and calls `done` once from the event loop, never from inside this call. A block that cannot be
  /// read keeps what `held` had.
  virtual std::unique_ptr<CalibrationReading> start(const TouchscreenIdentity& identity,
                                                    const _DEVICT_CONTEXT& held, Done done) = 0;
};

}  // namespace touchpanel::driver
