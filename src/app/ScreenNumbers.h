#pragma once

#include <memory>
#include <vector>

#include "platform/Monitors.h"
#include "platform/View.h"

namespace touchpanel {

/// Hears what the user does to the numbers.
class ScreenNumbersListener {
 public:
  virtual ~ScreenNumbersListener() = default;
  /// A finger or a mouse button was released on one of them.
  virtual void released() = 0;
  /// The user has had enough of them.
  virtual void escaped() = 0;
};

/// A large number in a window on each monitor.
class ScreenNumbers {
 public:
  /// `listener` is called while windows cover the monitors. Nothing is owned.
  ScreenNumbers(Screen& screen, ScreenNumbersListener& listener);
  ~ScreenNumbers();

  /// In the upper left corner of each monitor, where windows can be placed; `marked` is the one that is to stand out.
  void showSmall(const Desktop& desktop, std::size_t marked);
  /// All over each monitor: whatever is touched, one of these windows gets it. The marked one has the keyboard and says
  /// that it is to be touched.
  void showFull(const Desktop& desktop, std::size_t marked);
  void hide();

 private:
  class Number;
  void show(const Desktop& desktop, std::size_t marked, bool isFull);
  void add(std::size_t index, bool isMarked);

  Screen& screen_;
  ScreenNumbersListener& listener_;
  Desktop desktop_;  ///< that the numbers are shown on
  bool isFull_ = false;
  std::vector<std::unique_ptr<Number>> shown_;
  std::vector<std::unique_ptr<Number>> before_;  ///< one of them may be handling an event
};

}  // namespace touchpanel
