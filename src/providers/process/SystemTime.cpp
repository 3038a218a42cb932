#include "providers/process/SystemTime.h"

namespace touchpanel {

std::chrono::sys_seconds SystemTime::now() const {
  return std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
}

}  // namespace touchpanel
