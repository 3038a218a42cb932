#include "driver/TouchDriver.h"

namespace touchpanel::driver {

Status TouchDriver::setProperty(std::string_view name, const Value& value) {
  CaptureRequest capture;
  const auto status = properties_.setProperty(name, value, capture);
  if (status == kSuccess) configure(pipeline_, properties_, settings().mode, capture);
  return status;
}

bool TouchDriver::restore(const Dictionary& state) {
  const bool all = properties_.restore(state);
  configure(pipeline_, properties_, settings().mode);
  return all;
}

}  // namespace touchpanel::driver
