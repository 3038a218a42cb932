#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/Status.h"

namespace touchpanel {

/// Why a touchscreen that is plugged in does not come onto the list.
struct NotListed {
  enum class Why : std::uint8_t {
    CannotBeOpened,    ///< `status` says why
    NotConfigured,     ///< the system gave it no USB configuration
    NoDriverInstance,  ///< the touch driver service has no instance for it
    ServiceDown,       ///< nor does that service answer: `status`
    NotRead,           ///< its parameters, or its product is unknown
    SettingLacking     ///< the driver configuration file lacks a setting: `detail` names key and file
  };
  Why why = Why::NotRead;
  Status status = kSuccess;
  std::string detail = {};
  bool operator==(const NotListed&) const = default;
};

// What the user can do, in English, marked for translation in the context "Alert".

std::string_view adviceOnOpening(Status status);  ///< about a touchscreen that cannot be opened
/// About a registry without driver instances, whose Registry::availability() is `status`.
std::string_view adviceOnDriver(Status status);
std::string_view adviceOnReading();  ///< about parameters that could not be read

}  // namespace touchpanel
