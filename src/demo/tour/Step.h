#pragma once

#include <string>
#include <vector>

#include "demo/tour/Stage.h"

namespace touchpanel::demo {

/// One step of the tour. `play` does it, sees that it came out as it should and returns what there is to tell
/// in a line; StepFailed otherwise.
struct Step {
  const char* title;
  std::string (*play)(Stage&);
};

/// All steps in order. The last one ends the panel.
const std::vector<Step>& steps();

}  // namespace touchpanel::demo
