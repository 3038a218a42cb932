#pragma once

#include <functional>

#include "app/TryOut.h"
#include "panel/TryOutSurface.h"

namespace touchpanel {

/// The try-out on one surface: what arrives there is judged and drawn on it. Reads pointer input only and
/// changes nothing, neither in a touchscreen nor in its driver.
class TryOutTouches {
 public:
  /// `surface` is not owned and must outlive this.
  TryOutTouches(TryOutSurface& surface, TryOut::Layout layout);
  ~TryOutTouches();
  TryOutTouches(const TryOutTouches&) = delete;
  TryOutTouches& operator=(const TryOutTouches&) = delete;

  const TryOut& tryOut() const { return tryOut_; }
  TryOutPicture picture() const;
  void startOver();
  /// After each change, the surface's picture included.
  std::function<void()> onChange;

 private:
  /// Lays the test points out anew if the surface or its screen has changed.
  void place();
  void show();

  TryOutSurface& surface_;
  TryOut tryOut_;
};

}  // namespace touchpanel
