#include "driver/PointerOutput.h"

namespace touchpanel::driver {

void PointerOutput::contacts(const RawFrame& frame) {
  if (frame.count == 0 && last_.count == 0) return;
  OutputFrame out;
  out.count = frame.count;
  for (std::size_t i = 0; i < frame.count; ++i) out.contacts[i] = frame.contacts[i];
  emit(out);
}

void PointerOutput::releaseAll() {
  if (last_.left || last_.right || last_.count > 0) emit({});
}

void PointerOutput::emit(const OutputFrame& frame) {
  if (frame == last_) return;
  last_ = frame;
  sink_(frame);
}

}  // namespace touchpanel::driver
