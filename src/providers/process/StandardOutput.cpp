#include "providers/process/StandardOutput.h"

#include <cstdio>

namespace touchpanel {

void StandardOutput::line(std::string_view text) {
  std::fwrite(text.data(), 1, text.size(), stdout);
  std::fputc('\n', stdout);
  std::fflush(stdout);
}

}  // namespace touchpanel
