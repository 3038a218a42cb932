#pragma once

#include <stdexcept>

namespace touchpanel::demo {

/// Thrown where a step of the tour finds something that is not as it should be. what() is for people.
class StepFailed : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace touchpanel::demo
