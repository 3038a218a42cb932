#pragma once

#include <string_view>

namespace touchpanel {

/// What the program waits for while its main thread blocks.
struct WaitMessage {
  /// English, marked for translation in the context "WaitNotice" where it stands: "%n" is the attempt, "%2" the
  /// reason. A literal: it ends with a NUL and lives as long as the program.
  std::string_view text;
  int attempt = 0;               ///< counted from 1; 0 where the text has none
  std::string_view reason = {};  ///< a literal, too, marked in the context "StatusLine"
  bool operator==(const WaitMessage&) const = default;
};

/// Shows the user what the blocked program waits for.
class WaitNotice {
 public:
  virtual ~WaitNotice() = default;
  /// Called before a wait, or during one when something new is waited for: shows `message` at once, without
  /// running the event loop, since the main thread blocks as soon as this returns.
  virtual void waitingFor(const WaitMessage& message) = 0;
  /// The wait is over.
  virtual void done() = 0;
};

/// A notice that stands for as long as this lives. Scopes do not nest.
class WaitScope {
 public:
  WaitScope(WaitNotice& notice, const WaitMessage& message) : notice_(notice) { notice_.waitingFor(message); }
  ~WaitScope() { notice_.done(); }
  WaitScope(const WaitScope&) = delete;
  WaitScope& operator=(const WaitScope&) = delete;

  void change(const WaitMessage& message) { notice_.waitingFor(message); }

 private:
  WaitNotice& notice_;
};

}  // namespace touchpanel
