#include "touchdriverd/Authority.h"

#include <algorithm>
#include <array>
#include <utility>

#include <grp.h>
#include <unistd.h>

namespace touchpanel::driver {

namespace {
constexpr char kBus[] = "org.freedesktop.DBus";
constexpr char kBusPath[] = "/org/freedesktop/DBus";
constexpr char kPolkit[] = "org.freedesktop.PolicyKit1";
constexpr char kPolkitPath[] = "/org/freedesktop/PolicyKit1/Authority";
constexpr char kPolkitInterface[] = "org.freedesktop.PolicyKit1.Authority";
constexpr char kAction[] = "com.varnexo.touchdriver.configure";
constexpr std::uint32_t kNoFlags = 0;
constexpr std::uint32_t kAllowUserInteraction = 1;

/// Below the 2 s for which the control panel waits.
constexpr std::chrono::milliseconds kLongestCheck{1500};
constexpr std::chrono::minutes kLongestQuestion{5};
constexpr int kMostChecksOfAUser = 16;
constexpr std::size_t kMostQuestions = 8;

/// What a bus says when nobody has the name and nobody can be started for it.
constexpr std::array kAbsences = {
    "org.freedesktop.DBus.Error.ServiceUnknown", "org.freedesktop.DBus.Error.NameHasNoOwner",
    "org.freedesktop.DBus.Error.Spawn.ServiceNotFound", "org.freedesktop.systemd1.NoSuchUnit",
    "org.freedesktop.systemd1.UnitMasked"};

bool isAbsence(const sdbus::Error& error) {
  return std::ranges::find(kAbsences, error.getName()) != kAbsences.end();
}

using Credentials = std::map<std::string, sdbus::Variant>;
using Subject = sdbus::Struct<std::string, std::map<std::string, sdbus::Variant>>;
using Verdict = sdbus::Struct<bool, bool, std::map<std::string, std::string>>;

Subject subjectOf(const std::string& client) {
  return Subject{"system-bus-name", {{"name", sdbus::Variant(client)}}};
}
}  // namespace

Trust trustInRootAnd(const std::string& group) {
  Trust trust{{0, ::geteuid()}, std::nullopt};
  const auto* known = group.empty() ? nullptr : ::getgrnam(group.c_str());  // NOLINT(concurrency-mt-unsafe)
  if (known != nullptr) trust.group = known->gr_gid;
  return trust;
}

Authority::Authority(sdbus::IConnection& connection, Trust trust, Diagnostics& diagnostics)
    : trust_(std::move(trust)),
      outage_(diagnostics),
      bus_(sdbus::createProxy(connection, kBus, kBusPath)),
      polkit_(sdbus::createProxy(connection, kPolkit, kPolkitPath)) {}

void Authority::check(const std::string& client, Asking asking, Done done) {
  clients_.insert(client);
  bus_->callMethodAsync("GetConnectionCredentials")
      .onInterface(kBus)
      .withTimeout(kLongestCheck)
      .withArguments(client)
      .uponReplyInvoke([this, client, asking, done = std::move(done)](const sdbus::Error* error,
                                                                      const Credentials& credentials) {
        auto identity = error ? std::nullopt : identified(client, credentials);
        if (!identity) return done(kErrorNotPermitted);
        if (trust_.users.contains(identity->user)) return done(kSuccess);
        identity->asking = asking;
        askPolkit(*identity, done);
      });
}

std::optional<Authority::Client> Authority::identified(const std::string& client,
                                                       const Credentials& credentials) const {
  const auto user = credentials.find("UnixUserID");
  if (user == credentials.end()) return std::nullopt;
  Client identity{.name = client, .user = user->second.get<std::uint32_t>()};
  const auto groups = credentials.find("UnixGroupIDs");
  if (trust_.group && groups != credentials.end()) {
    const auto ids = groups->second.get<std::vector<std::uint32_t>>();
    identity.isInGroup = std::ranges::find(ids, *trust_.group) != ids.end();
  }
  return identity;
}

void Authority::askPolkit(const Client& client, Done done) {
  auto& underWay = checks_[client.user];
  if (underWay >= kMostChecksOfAUser) return done(kErrorExclusiveAccess);
  ++underWay;
  polkit_->callMethodAsync("CheckAuthorization")
      .onInterface(kPolkitInterface)
      .withTimeout(kLongestCheck)
      .withArguments(subjectOf(client.name), std::string(kAction), std::map<std::string, std::string>(),
                     kNoFlags, std::string())
      .uponReplyInvoke(
          [this, client, done = std::move(done)](const sdbus::Error* error, const Verdict& verdict) {
            if (--checks_[client.user] == 0) checks_.erase(client.user);
            // Of a client that has left polkit knows nothing, which is no fault of polkit's.
            if (!clients_.contains(client.name)) return done(kErrorNotPermitted);
            done(answerOf(client, error, std::get<0>(verdict), std::get<1>(verdict)));
          });
}

Status Authority::answerOf(const Client& client, const sdbus::Error* error, bool isAuthorized,
                           bool isChallenge) {
  if (error && !isAbsence(*error)) {
    outage_.begin("polkit does not say who may configure touchscreens: " + error->getMessage() +
                  ". Only root may.");
    return kErrorNotPermitted;
  }
  outage_.end("polkit says again who may configure touchscreens.");
  if (error) return client.isInGroup ? kSuccess : kErrorNotPermitted;
  if (isAuthorized) return kSuccess;
  if (isChallenge && client.asking == Asking::Allowed) askAdministrator(client.name);
  return kErrorNotPermitted;
}

void Authority::askAdministrator(const std::string& client) {
  if (askedFor_.size() >= kMostQuestions || !askedFor_.insert(client).second) return;
  polkit_->callMethodAsync("CheckAuthorization")
      .onInterface(kPolkitInterface)
      .withTimeout(kLongestQuestion)
      .withArguments(subjectOf(client), std::string(kAction), std::map<std::string, std::string>(),
                     kAllowUserInteraction, client)
      .uponReplyInvoke([this, client](const sdbus::Error*, const Verdict&) { askedFor_.erase(client); });
}

void Authority::clientLeft(const std::string& client) {
  clients_.erase(client);
  if (askedFor_.erase(client) == 0) return;
  polkit_->callMethodAsync("CancelCheckAuthorization")
      .onInterface(kPolkitInterface)
      .withArguments(client)
      .uponReplyInvoke([](const sdbus::Error*) {});
}

}  // namespace touchpanel::driver
