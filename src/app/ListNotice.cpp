#include "app/ListNotice.h"

#include "discovery/WriteOutcome.h"
#include "platform/Translatable.h"

namespace touchpanel {

ListNotice noticeOf(const NotListed& reason) {
  using Why = NotListed::Why;
  using State = ListNotice::State;
  switch (reason.why) {
    case Why::CannotBeOpened:
      return {State::Refused,
              {.text = TRANSLATABLE_TEXT("StatusLine", "A touchscreen cannot be opened: %2."),
               .reason = reasonOfDevice(reason.status)},
              adviceOnOpening(reason.status)};
    case Why::NotConfigured:
      return {State::Refused,
              {TRANSLATABLE_TEXT("StatusLine", "The system did not make a touchscreen ready for use.")},
              TRANSLATABLE_TEXT("Alert",
                                "It may not have been authorised. See to that, then plug the touchscreen in "
                                "again.")};
    case Why::NoDriverInstance:
      return {
          State::Refused,
          {TRANSLATABLE_TEXT("StatusLine",
                             "A touchscreen is plugged in, but the touch driver service does not serve it.")},
          TRANSLATABLE_TEXT("Alert",
                            "Unplug it and plug it in again. If that does not help, restart the touch driver "
                            "service.")};
    case Why::ServiceDown:
      return {State::ServiceDown,
              {.text = TRANSLATABLE_TEXT("StatusLine", "A touchscreen cannot be listed: %2."),
               .reason = reasonOfDriver(reason.status)},
              adviceOnDriver(reason.status)};
    case Why::SettingLacking:
      return {State::Refused,
              {.text = TRANSLATABLE_TEXT("StatusLine",
                                         "A touchscreen cannot be listed: the settings file lacks %1."),
               .device = reason.detail},
              TRANSLATABLE_TEXT("Alert",
                                "Add the missing setting to that file, or remove the file to start from the "
                                "defaults. Then plug the touchscreen in again.")};
    case Why::NotRead:
      break;
  }
  return {
      State::Refused,
      {TRANSLATABLE_TEXT("StatusLine", "A touchscreen cannot be listed: its parameters could not be read.")},
      adviceOnReading()};
}

}  // namespace touchpanel
