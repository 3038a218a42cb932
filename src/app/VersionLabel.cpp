#include "app/VersionLabel.h"

#include <cstdio>

namespace touchpanel {

std::string driverVersionText() {
  char text[32];
  std::snprintf(text, sizeof text, "%d.%d.%d.%04d", 15, 1, 3, 4);
  return text;
}

}  // namespace touchpanel
