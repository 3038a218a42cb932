#pragma once

#include <map>
#include <optional>
#include <string>

#include <sdbus-c++/sdbus-c++.h>

#include "platform/Value.h"

namespace touchpanel {

using BusDictionary = std::map<std::string, sdbus::Variant>;

/// A value as it travels: b, i, x, d, s, ay, av or a{sv}. The order of a dictionary's keys is not kept.
sdbus::Variant toBus(const Value& value);
BusDictionary toBus(const Dictionary& dictionary);

/// The same back. Nothing for any other type, at any depth.
std::optional<Value> fromBus(const sdbus::Variant& variant);
std::optional<Dictionary> fromBus(const BusDictionary& dictionary);

}  // namespace touchpanel
