#include "providers/process/BlockingClock.h"

#include <thread>

namespace touchpanel {

void BlockingClock::sleep(std::chrono::milliseconds duration) { std::this_thread::sleep_for(duration); }

}  // namespace touchpanel
