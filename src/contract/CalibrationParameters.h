#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <type_traits>

namespace touchpanel {

#pragma pack(push, 1)
// The record names are those of the device's own definition, leading underscore and capital included.
// NOLINTBEGIN(bugprone-reserved-identifier)

/// One axis of a calibration: a cubic in the raw touch coordinates x and y. Aij multiplies x^i * y^j.
struct _CALIB_PARAM {
  float A03;
  float A12;
  float A21;
  float A30;
  float A02;
  float A11;
  float A20;
  float A01;
  float A10;
  float A00;
  std::uint8_t reserve[18];  ///< carried unchanged
};

struct _CALIB_PARAMS {
  _CALIB_PARAM X;
  _CALIB_PARAM Y;
};

// NOLINTEND(bugprone-reserved-identifier)
#pragma pack(pop)

/// Of the "calibParams" property and of the touchscreens' own records.
inline constexpr std::size_t kCalibParamsSize = 116;

/// The byte image of a record, in wire order.
template <typename Record>
std::array<std::uint8_t, sizeof(Record)> imageOf(const Record& record) {
  static_assert(std::is_trivially_copyable_v<Record>);
  std::array<std::uint8_t, sizeof(Record)> image;
  std::memcpy(image.data(), &record, sizeof(Record));
  return image;
}

/// Copies `image` over the start of `record`; bytes beyond the record are ignored, bytes missing stay as they
/// were.
template <typename Record>
void copyImage(std::span<const std::uint8_t> image, Record& record) {
  static_assert(std::is_trivially_copyable_v<Record>);
  if (image.empty()) return;  // its address may be null, which memcpy does not take
  std::memcpy(&record, image.data(), image.size() < sizeof(Record) ? image.size() : sizeof(Record));
}

// A record in memory is its image on the wire.
static_assert(std::endian::native == std::endian::little);
static_assert(sizeof(_CALIB_PARAMS) == kCalibParamsSize);
static_assert(offsetof(_CALIB_PARAM, A03) == 0 && offsetof(_CALIB_PARAM, A12) == 4);
static_assert(offsetof(_CALIB_PARAM, A21) == 8 && offsetof(_CALIB_PARAM, A30) == 12);
static_assert(offsetof(_CALIB_PARAM, A02) == 16 && offsetof(_CALIB_PARAM, A11) == 20);
static_assert(offsetof(_CALIB_PARAM, A20) == 24 && offsetof(_CALIB_PARAM, A01) == 28);
static_assert(offsetof(_CALIB_PARAM, A10) == 32 && offsetof(_CALIB_PARAM, A00) == 36);
static_assert(offsetof(_CALIB_PARAM, reserve) == 40);
static_assert(offsetof(_CALIB_PARAMS, X) == 0 && offsetof(_CALIB_PARAMS, Y) == 58);

}  // namespace touchpanel
