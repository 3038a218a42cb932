#include "platform/WaitNotice.h"

#include "platform/Translatable.h"

namespace touchpanel {

const char* waitTemplate(WaitText text) {
  switch (text) {
    case WaitText::OpeningTouchscreen:
      return TRANSLATABLE_TEXT("WaitNotice", "Opening a touchscreen...");
    case WaitText::TouchscreenInUse:
      return TRANSLATABLE_COUNT("WaitNotice",
                                "The touchscreen cannot be opened yet, trying again (attempt %n of 50)...");
    case WaitText::PreparingTouchscreen:
      return TRANSLATABLE_TEXT("WaitNotice", "A touchscreen is getting ready...");
    case WaitText::WaitingForDriver:
      return TRANSLATABLE_TEXT("WaitNotice", "Waiting for the touchscreen's driver...");
    case WaitText::ReadingTouchscreen:
      return TRANSLATABLE_TEXT("WaitNotice", "Reading the touchscreen's parameters...");
    case WaitText::WritingTouchscreen:
      return TRANSLATABLE_TEXT("WaitNotice", "Writing to the touchscreen...");
    case WaitText::RemovingTouchscreen:
      return TRANSLATABLE_TEXT("WaitNotice", "A touchscreen was unplugged...");
  }
  return "";
}

}  // namespace touchpanel
