#pragma once

#include <string>
#include <string_view>

namespace touchpanel {

/// What was done last, with its outcome.
struct StatusMessage {
  /// English, marked for translation in the context "StatusLine" where it stands: "%1" is the touchscreen's
  /// name, "%2" the reason, "%n" the number. A literal: it ends with a NUL and lives as long as the program.
  std::string_view text;
  std::string device = {};
  int count = 0;
  std::string_view reason = {};  ///< a literal like `text`, marked in the same context
  bool canRepeat = false;        ///< the user is offered to try it once more
  bool operator==(const StatusMessage&) const = default;
};

/// The line that shows the user the last outcome.
class StatusLine {
 public:
  virtual ~StatusLine() = default;
  /// Replaces what is shown. Returns at once.
  virtual void show(const StatusMessage& message) = 0;
};

}  // namespace touchpanel
