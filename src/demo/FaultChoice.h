#pragma once

#include <QString>
#include <vector>

#include "firmware/Firmware.h"

namespace touchpanel::demo {

/// A fault as it is offered to the user.
struct FaultChoice {
  firmware::Fault fault = firmware::Fault::None;
  QString title;
  QString explanation;
  QString argumentTitle;  ///< empty when the fault has no argument
  int minimum = 0;
  int maximum = 0;
  int initial = 0;
  bool hexadecimal = false;
};

/// Every fault that a touchscreen can have, none first, in the language of the moment.
std::vector<FaultChoice> faultChoices();

}  // namespace touchpanel::demo
