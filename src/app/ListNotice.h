#pragma once

#include <cstdint>
#include <string_view>

#include "discovery/NotListed.h"
#include "platform/StatusLine.h"

namespace touchpanel {

/// What stands in the place of a list without touchscreens, beside the invitation to plug one in.
struct ListNotice {
  enum class State : std::uint8_t {
    Waiting,     ///< a touchscreen is being opened and read
    Refused,     ///< a touchscreen cannot be listed
    ServiceDown  ///< nor can any other, before the touch driver service answers
  };
  State state = State::Waiting;
  StatusMessage why;
  std::string_view advice = {};  ///< what to do: English, marked in the context "Alert"; a literal
  bool operator==(const ListNotice&) const = default;
};

/// The page that is seen while the list is empty.
class EmptyListPage {
 public:
  virtual ~EmptyListPage() = default;
  /// Drawn at once: the program may block as soon as this returns.
  virtual void show(const ListNotice& notice) = 0;
  /// Back to the invitation to plug one in.
  virtual void clear() = 0;
};

ListNotice noticeOf(const NotListed& reason);

}  // namespace touchpanel
