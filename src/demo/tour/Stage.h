#pragma once

#include <QPoint>
#include <QWidget>
#include <functional>
#include <string>

#include "demo/Demo.h"
#include "demo/tour/InjectedInput.h"
#include "demo/tour/Pictures.h"
#include "demo/tour/StepFailed.h"

namespace touchpanel::demo {

/// What every step of the tour plays on: the demo, the user's hands, and the camera. The steps know where
/// widgets are; what they do to them goes the long way through the X server.
class Stage {
 public:
  Stage(Demo& demo, Pictures& pictures) : demo_(demo), pictures_(pictures) {}

  Demo& demo() { return demo_; }
  InjectedInput& input() { return input_; }
  Pictures& pictures() { return pictures_; }
  /// Serves events until `condition` holds, which is looked at after every batch of events and never at fixed
  /// times. StepFailed, naming `what`, when that has not come about after half a minute or cannot any more
  /// because the program is ending; a modal window that is in the way by then is named and closed.
  void until(const std::function<bool()>& condition, const std::string& what) const;

  /// The visible widget of that object name in any window; StepFailed when there is none after waiting.
  QWidget& widget(const char* name) const;
  template <typename Kind>
  Kind& the(const char* name) const {
    return dynamic_cast<Kind&>(widget(name));
  }
  /// Waits until the window's contents are on the screen.
  void untilShown(const char* name) const;
  void untilHidden(const char* name) const;

  /// Moves the pointer there and clicks.
  void click(QPoint pixel);
  /// Clicks in the middle of a widget once it can be used.
  void click(const char* name);
  /// The same for a check box or radio button, whose middle may be empty.
  void clickChoice(const char* name);
  /// Clicks the tab of page `page` of a tab widget and waits for the page.
  void turnTo(const char* tabs, const char* page);
  /// Clicks the touchscreen's row in the device table and waits until it is the selected one.
  void select(const simulated::SimulatedTouchscreen& touchscreen);

 private:
  QWidget& usable(const char* name) const;

  Demo& demo_;
  InjectedInput input_;
  Pictures& pictures_;
};

/// StepFailed with `complaint` unless `holds`.
inline void require(bool holds, const std::string& complaint) {
  if (!holds) throw StepFailed(complaint);
}

}  // namespace touchpanel::demo
