#pragma once

#include <cstdint>
#include <string>

#include "platform/Canvas.h"

namespace touchpanel {

/// The look of a text, without its words.
struct TextAttributes {
  std::string fontFamily;
  float fontSize = 0;
  Color color;
  StyledText apply(std::string text) const { return {std::move(text), fontFamily, fontSize, color}; }
};

/// The texts of a calibration screen. Released when the run ends.
struct CalibrationTexts {
  CalibrationTexts();
  /// Sets `timerString` to `seconds` in decimal.
  void setSeconds(std::int32_t seconds);

  StyledText tipString;
  StyledText okString;
  StyledText cancelString;
  StyledText calibString;
  TextAttributes timerStringAttrib;
  StyledText timerString;
};

}  // namespace touchpanel
