#pragma once

#include <functional>
#include <memory>

namespace touchpanel {

/// A way for another thread to have something done by the main loop.
class Notice {
 public:
  virtual ~Notice() = default;
  /// From any thread; neither blocks nor allocates. Several before the loop gets to it may become one.
  virtual void give() = 0;
};

class Notices {
 public:
  virtual ~Notices() = default;
  /// `callback` is called by the main loop soon after each give(). Destroying the notice, on the main thread, ends
  /// that.
  virtual std::unique_ptr<Notice> createNotice(std::function<void()> callback) = 0;
};

}  // namespace touchpanel
