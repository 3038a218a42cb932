#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include <sdbus-c++/sdbus-c++.h>
#include <sys/types.h>

#include "platform/OutageReport.h"
#include "platform/Status.h"

namespace touchpanel::driver {

/// Who may configure touchscreens without being asked for.
struct Trust {
  std::set<uid_t> users;       ///< always
  std::optional<gid_t> group;  ///< its members, where there is no polkit
};

/// root, the user of this process, and the members of `group`, which may be empty or unknown to the system. Blocks while
/// the system looks the group up.
Trust trustInRootAnd(const std::string& group);

/// Whether a client of the bus may configure touchscreens. In this order:
///
///     trusted user                         yes
///     polkit is on the bus                 what it says of "com.varnexo.touchdriver.configure"
///     there is none                        a member of the trusted group yes, others no
///
/// Nothing is remembered: each check asks anew. A check takes 1.5 s at the longest.
class Authority {
 public:
  /// kSuccess; kErrorNotPermitted, also when polkit does not answer; kErrorExclusiveAccess while too many requests of the
  /// same user are being checked.
  using Done = std::function<void(Status)>;
  /// Whether an administrator may be asked to allow it. The check does not wait for that: it is refused, and once the
  /// administrator has agreed polkit says yes for some minutes.
  enum class Asking { Allowed, Unwanted };

  /// Neither reference is owned; `connection` must be processed for the answers to come.
  Authority(sdbus::IConnection& connection, Trust trust, Diagnostics& diagnostics);

  /// `done` is called once, not from inside this call, and not after the authority is gone.
  void check(const std::string& client, Asking asking, Done done);
  /// An administrator need not be asked for this client any more, and what polkit says of it does not matter.
  void clientLeft(const std::string& client);

 private:
  struct Client {
    std::string name;
    uid_t user = 0;
    bool isInGroup = false;
    Asking asking = Asking::Unwanted;
  };
  std::optional<Client> identified(const std::string& client,
                                   const std::map<std::string, sdbus::Variant>& credentials) const;
  void askPolkit(const Client& client, Done done);
  Status answerOf(const Client& client, const sdbus::Error* error, bool isAuthorized, bool isChallenge);
  void askAdministrator(const std::string& client);

  Trust trust_;
  OutageReport outage_;
  std::map<uid_t, int> checks_;     ///< under way at polkit
  std::set<std::string> clients_;   ///< that were checked and have not left
  std::set<std::string> askedFor_;  ///< clients for which an administrator is being asked
  std::unique_ptr<sdbus::IProxy> bus_;
  std::unique_ptr<sdbus::IProxy> polkit_;
};

}  // namespace touchpanel::driver
