#include "driver/service/OutputSlot.h"

#include <utility>

namespace touchpanel::driver {

Status OutputSlot::prepare() {
  if (chain_.failure(kind_) != kSuccess) clear();
  if (!wanted_) return kSuccess;
  if (next_.device && next_.description == *wanted_) return kSuccess;
  next_ = {};
  if (current_.device && current_.description == *wanted_) return kSuccess;
  Made made{*wanted_, nullptr};
  if (const auto status = devices_.create(made.description, made.device); status != kSuccess) return status;
  if (current_.device)
    next_ = std::move(made);
  else
    use(std::move(made));
  return kSuccess;
}

void OutputSlot::settle() {
  if (!wanted_) return clear();
  if (next_.device) use(std::exchange(next_, {}));
}

void OutputSlot::clear() {
  next_ = {};
  if (current_.device) use({});
}

void OutputSlot::use(Made made) {
  chain_.setOutput(kind_, made.device.get());
  current_ = std::move(made);
}

}  // namespace touchpanel::driver
