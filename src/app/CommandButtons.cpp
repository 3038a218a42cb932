#include "app/CommandButtons.h"

#include "platform/Translatable.h"

namespace touchpanel {

void CommandButtons::enableAll() {
  enableReset();
  Control* const following[] = {&outlets_.deviceTableView, &outlets_.btnCalibrate, &outlets_.btnSettings,
                                &outlets_.btnExit, &outlets_.btnAbout};
  for (auto* control : following) control->setEnabled(state_.bEnableItems);
}

void CommandButtons::enableReset() {
  const bool resettable =
      state_.hasSelection() && state_.currentDict->text(entry_key::kCalibrateStatus) != entry_key::kNo;
  outlets_.btnReset.setEnabled(state_.bEnableItems && resettable);
}

void CommandButtons::titleEnableTouch(bool touchIsEnabled) {
  outlets_.btnEnableTouch.setTitle(touchIsEnabled ? TRANSLATABLE_TEXT("Controls", "Disable Touch")
                                                  : TRANSLATABLE_TEXT("Controls", "Enable Touch"));
}

}  // namespace touchpanel
