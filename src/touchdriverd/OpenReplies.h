#pragma once

#include <functional>
#include <list>
#include <memory>
#include <string>

#include <sdbus-c++/sdbus-c++.h>

#include "driver/service/StateStore.h"

namespace touchpanel::driver {

/// Property writes on a connection that are not answered yet. Must be destroyed before the connection; whoever answers
/// afterwards answers nobody.
class OpenReplies {
 public:
  /// What answers `result`, the reply to a write of property `name`, once. When the value is in force `taken` is
  /// called before; it may be empty.
  StateStore::Done answering(sdbus::Result<> result, std::string name, std::function<void()> taken);

 private:
  std::shared_ptr<std::list<sdbus::Result<>>> open_ = std::make_shared<std::list<sdbus::Result<>>>();
};

}  // namespace touchpanel::driver
