#pragma once

namespace touchpanel {

/// What the program can be waiting for while its main thread blocks. The English text stands in
/// waitTemplate(), once.
enum class WaitText {
  OpeningTouchscreen,
  TouchscreenInUse,
  PreparingTouchscreen,
  WaitingForDriver,
  ReadingTouchscreen,
  WritingTouchscreen,
  RemovingTouchscreen,
};

/// One wait, free of any language.
struct WaitMessage {
  WaitText text = WaitText::OpeningTouchscreen;
  int attempt = 0;  ///< for "%n": which attempt this is, from 1; 0 where the text has none
  bool operator==(const WaitMessage&) const = default;
};

/// The English source text of `text`, the key under which a translation catalogue holds it. "%n" stands for
/// the attempt. Lives as long as the program.
const char* waitTemplate(WaitText text);

/// Tells the user what a blocked program is waiting for.
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
  WaitScope(WaitNotice& notice, WaitText text) : notice_(notice) { notice_.waitingFor({.text = text}); }
  ~WaitScope() { notice_.done(); }
  WaitScope(const WaitScope&) = delete;
  WaitScope& operator=(const WaitScope&) = delete;

  void change(const WaitMessage& message) { notice_.waitingFor(message); }

 private:
  WaitNotice& notice_;
};

}  // namespace touchpanel
