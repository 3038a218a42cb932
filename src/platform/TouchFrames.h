#pragma once

#include <array>
#include <chrono>
#include <cstdint>

namespace touchpanel {

inline constexpr std::size_t kMaximumContacts = 10;

/// One finger on the glass. Coordinates are raw sensor units scaled to 0..32767 on both axes, y downwards.
struct Contact {
  std::int32_t id = 0;  ///< 0..kMaximumContacts-1, stable while the finger stays down
  std::int32_t x = 0;
  std::int32_t y = 0;
  bool operator==(const Contact&) const = default;
};

/// Everything that touches the glass at one moment. A frame without contacts is the last finger leaving.
struct RawFrame {
  std::chrono::microseconds time{0};  ///< the input's monotonic clock
  std::uint8_t count = 0;
  std::array<Contact, kMaximumContacts> contacts{};
};

/// What is sent to the desktop at one moment: logical units 0..32767, y downwards.
struct OutputFrame {
  bool hasPosition = false;  ///< the pointer moves to x, y
  std::int32_t x = 0;
  std::int32_t y = 0;
  bool left = false;       ///< left button held after this frame
  bool right = false;      ///< right button held after this frame
  std::uint8_t count = 0;  ///< multi-touch pass-through: the contacts down after this frame
  std::array<Contact, kMaximumContacts> contacts{};
  bool operator==(const OutputFrame&) const = default;
};

}  // namespace touchpanel
