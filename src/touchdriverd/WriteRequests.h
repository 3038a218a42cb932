#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>

#include <sdbus-c++/sdbus-c++.h>

#include "touchdriverd/Authority.h"

namespace touchpanel::driver {

/// A write that a client asks for, and its answer.
struct WriteRequest {
  std::string client;
  std::string name;  ///< of the property or file
  sdbus::Result<> reply;
  sdbus::Error (*errorOf)(Status status, const std::string& name);
  std::function<void()> taken = {};  ///< called before the answer where the value is in force; may be empty
};

/// The writes of a connection that are not answered yet: each is checked by the authority, then done, and answered when
/// that is finished. A client may have 4 of them under way, all clients together 1024. Must be destroyed before the
/// connection; whoever finishes one afterwards answers nobody.
class WriteRequests {
 public:
  using Done = std::function<void(Status)>;
  using Write = std::function<void(Done)>;

  /// `authority` is not owned.
  explicit WriteRequests(Authority& authority) : authority_(authority) {}

  /// `write` is called once the client is found to be permitted, and calls what it is given once, then or later.
  void take(WriteRequest request, Authority::Asking asking, Write write);
  /// For a write that changes nothing: needs no permission and is called at once.
  void takeUnchecked(WriteRequest request, const Write& write);
  /// Drops the answers to this client, and the writes that it was not permitted yet.
  void clientLeft(const std::string& client);

 private:
  using Open = std::map<std::uint64_t, WriteRequest>;
  /// The number of `request` among the open ones; 0, and it is answered, when there are too many.
  std::uint64_t opened(WriteRequest request);
  static Done answering(std::weak_ptr<Open> all, std::uint64_t number);

  Authority& authority_;
  std::uint64_t last_ = 0;
  std::shared_ptr<Open> open_ = std::make_shared<Open>();
};

}  // namespace touchpanel::driver
