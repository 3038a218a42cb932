#pragma once

#include <chrono>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "emulator/console/Touchscreens.h"

namespace touchpanel::emulator {

/// A point in time of a steady clock that the caller reads.
using Time = std::chrono::microseconds;

/// The state of a step of a command.
struct Progress {
  enum class State { Done, Waiting, Failed };
  State state = State::Done;
  Time wakeAt{0};      ///< while waiting: when to look again even if nothing has happened
  std::string reason;  ///< once failed
};

/// One part of a command that takes time. Called again and again until it is done or has failed.
using Step = std::function<Progress(Time now)>;

/// A command: steps in their order, and the reply once all are done.
struct Plan {
  std::deque<Step> steps;
  std::function<std::string()> reply = [] { return std::string(); };
  bool quit = false;  ///< ends the emulator at once, without a reply
};

/// Lines of commands from one source, executed in their order, each to its end before the next one begins.
/// Every command is answered with one line: "ok" and its answer, or "error" and the reason. After an error the next
/// line is taken as usual. Knows neither files nor clocks.
class Session {
 public:
  explicit Session(Touchscreens& touchscreens) : touchscreens_(touchscreens) {}

  /// Takes text as it comes; commands end with a line end.
  void feed(std::string_view text);
  /// No more text comes: what is left of it is a command too.
  void finish();
  /// Goes on as far as possible. To be called after feed(), at the deadline, and when a device has been
  /// talked to.
  void proceed(Time now);

  /// When proceed() is due even if nothing happens.
  std::optional<Time> deadline() const { return deadline_; }
  /// Whether nothing is left to be done.
  bool idle() const { return !current_ && lines_.empty(); }
  /// Whether "quit" was given, which ends the emulator.
  bool quitAsked() const { return quit_; }
  /// Replies that have not been sent yet; the sender removes what it has sent.
  std::string& output() { return output_; }
  const std::string& output() const { return output_; }

 private:
  void begin(const std::string& line, Time now);
  void answer(std::string_view verdict, const std::string& text);

  Touchscreens& touchscreens_;
  std::string partialLine_;
  std::deque<std::string> lines_;
  std::optional<Plan> current_;
  std::optional<Time> deadline_;
  std::string output_;
  bool quit_ = false;
};

}  // namespace touchpanel::emulator
