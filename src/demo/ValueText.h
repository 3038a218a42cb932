#pragma once

#include <string>

#include "platform/Value.h"

namespace touchpanel::demo {

/// A value in a line for people: {mode: 2, enableTouch: true, calibParams: 116 bytes}.
std::string textOf(const Value& value);

}  // namespace touchpanel::demo
