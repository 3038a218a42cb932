#include "calibration/CalibrationTexts.h"

#include "platform/Translatable.h"

namespace touchpanel {
namespace {

const char* const kFontFamily = "Arial";

const char* const kTip = TRANSLATABLE_TEXT(
    "CalibrationScreen",
    "Note:\n"
    "1. When calibrating, to get better calibration result, the user's head should keep still;\n"
    "2. The calibration coordinates are detemined by the point where the finger leaves the touchscreen;\n"
    "3. The bull's eye is only for reference, it's not neccessarily the optimal calibration point, the user "
    "should\n"
    "     aim the bull's eye the first calibration, if the result is not satisfying, the user can "
    "recalibrate "
    "and\n"
    "     deliberately move slightly apart from the bull's eye.\n");

StyledText label(const char* text) { return {text, kFontFamily, 12, color::kYellow}; }

}  // namespace

CalibrationTexts::CalibrationTexts()
    : tipString(label(kTip)),
      okString(label(TRANSLATABLE_TEXT("CalibrationScreen", "OK"))),
      cancelString(label(TRANSLATABLE_TEXT("CalibrationScreen", "Cancel"))),
      calibString(label(TRANSLATABLE_TEXT("CalibrationScreen", "ReCalibrate"))),
      timerStringAttrib{kFontFamily, 30, color::kBlack} {
  setSeconds(30);
}

void CalibrationTexts::setSeconds(std::int32_t seconds) {
  timerString = timerStringAttrib.apply(std::to_string(seconds));
}

}  // namespace touchpanel
