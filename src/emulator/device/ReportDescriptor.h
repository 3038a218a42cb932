#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace touchpanel::emulator {

/// The HID report descriptor of a touchscreen with contact ids: `fingers` fingers, a scan time and a contact
/// count in report `touchReport`, and the feature "contact count maximum" in report `maximumReport`. With it
/// a kernel takes the device for a multi-touch one.
std::vector<std::uint8_t> multiTouchDescriptor(std::size_t fingers, std::uint8_t touchReport,
                                               std::uint8_t maximumReport);

/// The same for a touchscreen that knows one finger, in one report without a number.
std::vector<std::uint8_t> singleTouchDescriptor();

}  // namespace touchpanel::emulator
