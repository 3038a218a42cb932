#pragma once

#include <string_view>

namespace touchpanel {

/// The running program. Both ways of ending it may return to the caller, which then unwinds without doing
/// more.
class Application {
 public:
  virtual ~Application() = default;
  /// Ends the process with `status`, saving and asking nothing.
  virtual void exit(int status) = 0;
  /// Ends the application loop, or keeps it from starting. The process's status is 0.
  virtual void terminate() = 0;
  /// True once exit() or terminate() was called.
  virtual bool isEnding() const = 0;
};

/// Modal alert panels.
class Alerts {
 public:
  virtual ~Alerts() = default;
  /// Shows the panel and blocks until the user has pressed its only button. `advice`, which may be empty, says
  /// below the message why that is so and what to do.
  virtual void show(std::string_view title, std::string_view message, std::string_view button,
                    std::string_view advice) = 0;
  /// A question with two buttons instead. True for `yes`; leaving the panel in any other way is a no.
  virtual bool ask(std::string_view title, std::string_view question, std::string_view advice,
                   std::string_view yes, std::string_view no) = 0;
};

/// The display's presentation: system menu bar and dock, or none of them.
class Presentation {
 public:
  virtual ~Presentation() = default;
  /// `mode` 0 is the normal presentation.
  virtual void setSystemUIMode(int mode, int options) = 0;
};

/// The mouse cursor. Hiding and showing do not count: one show() undoes any number of hide()s.
class Cursor {
 public:
  virtual ~Cursor() = default;
  virtual void hide() = 0;
  virtual void show() = 0;
};

}  // namespace touchpanel
