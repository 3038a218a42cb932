#pragma once

#include <cstddef>
#include <cstdint>

#include "contract/CalibrationParameters.h"

namespace touchpanel {

/// Bytes of one block: the largest payload that a packet carries.
inline constexpr std::size_t kBlockSize = 58;

#pragma pack(push, 1)
// The record names are those of the device's own definition, leading underscore and capital included.
// NOLINTBEGIN(bugprone-reserved-identifier)

/// Screen or camera properties, as the device reports them. Never written back.
struct _ScrProps {
  std::uint8_t pos;
  std::uint8_t s1;
  std::int32_t width;
  std::int32_t height;
  std::int32_t fps;
  std::int32_t maxSpeed;
  std::int32_t camOffsetY;
  std::int32_t camLOffsetX;
  std::int32_t camROffsetY;
  std::int32_t velocityRefCount;
  float veloctiyWeighing;
  float reserve0;
  float reserve1;
  float reserve2;
  float reserve3;
  float reserve4;
};

/// A rectangle in the driver's logical units.
struct _IROPT_TOUCH_AREA {
  std::uint16_t MinX;
  std::uint16_t MinY;
  std::uint16_t MaxX;
  std::uint16_t MaxY;
};

/// The device configuration block.
struct _TUC_DEVICE_CONFIG {
  std::uint8_t DeviceID;
  std::uint8_t MonitorID;
  _IROPT_TOUCH_AREA DefaultTouchArea;
  std::uint8_t CalibrateStatus;  ///< 1 once a calibration was accepted, 0 after a reset
  _IROPT_TOUCH_AREA ExtendTouchArea[3];
  std::int32_t OffX;
  std::int32_t OffY;
  std::uint16_t ResolutionX;
  std::uint16_t ResolutionY;
  std::uint16_t PrimaryResolutionX;
  std::uint16_t PrimaryResolutionY;
  std::uint8_t Reserved[7];
};

/// Everything known about one touchscreen: 293 bytes, packed, little-endian, also a wire format.
///
///     0            58              116              174              232   233            253          293
///     +------------+---------------+----------------+----------------+-----+--------------+------------+
///     | ScreenProps| DeviceConfig  | CalibParams.X  | CalibParams.Y  |Mode | FirmwareVer  | BarCode    |
///     +------------+---------------+----------------+----------------+-----+--------------+------------+
///
/// The two texts are NUL-terminated unless they fill their field.
struct _DEVICT_CONTEXT {
  _ScrProps ScreenProps;
  _TUC_DEVICE_CONFIG DeviceConfig;
  _CALIB_PARAMS CalibParams;
  std::uint8_t CalibrateMode;  ///< never transmitted
  char FirmwareVer[20];
  char BarCode[40];
};
// NOLINTEND(bugprone-reserved-identifier)
#pragma pack(pop)

inline constexpr std::size_t kDeviceContextSize = 293;

// Every offset of the record is fixed by the devices in the field.
static_assert(sizeof(_ScrProps) == kBlockSize && sizeof(_TUC_DEVICE_CONFIG) == kBlockSize);
static_assert(sizeof(_CALIB_PARAM) == kBlockSize);
static_assert(sizeof(_IROPT_TOUCH_AREA) == 8 && sizeof(_DEVICT_CONTEXT) == kDeviceContextSize);
static_assert(offsetof(_ScrProps, pos) == 0 && offsetof(_ScrProps, s1) == 1 &&
              offsetof(_ScrProps, width) == 2);
static_assert(offsetof(_ScrProps, height) == 6 && offsetof(_ScrProps, fps) == 10);
static_assert(offsetof(_ScrProps, maxSpeed) == 14 && offsetof(_ScrProps, camOffsetY) == 18);
static_assert(offsetof(_ScrProps, camLOffsetX) == 22 && offsetof(_ScrProps, camROffsetY) == 26);
static_assert(offsetof(_ScrProps, velocityRefCount) == 30 && offsetof(_ScrProps, veloctiyWeighing) == 34);
static_assert(offsetof(_ScrProps, reserve0) == 38 && offsetof(_ScrProps, reserve1) == 42);
static_assert(offsetof(_ScrProps, reserve2) == 46 && offsetof(_ScrProps, reserve3) == 50);
static_assert(offsetof(_ScrProps, reserve4) == 54);
static_assert(offsetof(_IROPT_TOUCH_AREA, MinX) == 0 && offsetof(_IROPT_TOUCH_AREA, MinY) == 2);
static_assert(offsetof(_IROPT_TOUCH_AREA, MaxX) == 4 && offsetof(_IROPT_TOUCH_AREA, MaxY) == 6);
static_assert(offsetof(_TUC_DEVICE_CONFIG, DeviceID) == 0 && offsetof(_TUC_DEVICE_CONFIG, MonitorID) == 1);
static_assert(offsetof(_TUC_DEVICE_CONFIG, DefaultTouchArea) == 2);
static_assert(offsetof(_TUC_DEVICE_CONFIG, CalibrateStatus) == 10);
static_assert(offsetof(_TUC_DEVICE_CONFIG, ExtendTouchArea) == 11);
static_assert(offsetof(_TUC_DEVICE_CONFIG, OffX) == 35 && offsetof(_TUC_DEVICE_CONFIG, OffY) == 39);
static_assert(offsetof(_TUC_DEVICE_CONFIG, ResolutionX) == 43 &&
              offsetof(_TUC_DEVICE_CONFIG, ResolutionY) == 45);
static_assert(offsetof(_TUC_DEVICE_CONFIG, PrimaryResolutionX) == 47);
static_assert(offsetof(_TUC_DEVICE_CONFIG, PrimaryResolutionY) == 49);
static_assert(offsetof(_TUC_DEVICE_CONFIG, Reserved) == 51);
static_assert(offsetof(_DEVICT_CONTEXT, ScreenProps) == 0 && offsetof(_DEVICT_CONTEXT, DeviceConfig) == 58);
static_assert(offsetof(_DEVICT_CONTEXT, CalibParams) == 116 &&
              offsetof(_DEVICT_CONTEXT, CalibrateMode) == 232);
static_assert(offsetof(_DEVICT_CONTEXT, FirmwareVer) == 233 && offsetof(_DEVICT_CONTEXT, BarCode) == 253);

}  // namespace touchpanel
