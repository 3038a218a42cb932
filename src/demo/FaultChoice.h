#pragma once

#include <QString>
#include <optional>
#include <vector>

#include "firmware/Firmware.h"

namespace touchpanel::demo {

/// The number that belongs to a fault, as it is asked for.
struct FaultArgument {
  QString meaning;
  QString prefix;
  QString suffix;
  int minimum = 0;
  int maximum = 0;
  int initial = 0;
  int base = 10;
};

/// A fault as it is offered to the user.
struct FaultChoice {
  firmware::Fault fault = firmware::Fault::None;
  QString title;
  QString explanation;
  std::optional<FaultArgument> argument = {};
};

/// Every fault that a touchscreen can have, none first, in the language of the moment.
std::vector<FaultChoice> faultChoices();

}  // namespace touchpanel::demo
