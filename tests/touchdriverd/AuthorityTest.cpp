// Who may configure touchscreens, on a bus with a polkit of the test's own.
#include <gmock/gmock.h>
#include <poll.h>
#include <unistd.h>

#include "support/PrivateBus.h"
#include "support/RecordingDiagnostics.h"
#include "touchdriverd/Authority.h"

namespace touchpanel::testing {
namespace {

using driver::Authority;
using driver::Trust;
using ::testing::ElementsAre;

/// Answers each check as it is told to, and writes down what it was asked.
class FakePolkit {
 public:
  using Verdict = sdbus::Struct<bool, bool, std::map<std::string, std::string>>;
  using Subject = sdbus::Struct<std::string, std::map<std::string, sdbus::Variant>>;
  enum class Answers { Yes, No, Challenge, Never, Error };

  explicit FakePolkit(Answers answers) : answers_(answers) {
    object_->registerMethod("CheckAuthorization")
        .onInterface(kInterface)
        .implementedAs([this](sdbus::Result<Verdict>&& result, const Subject& subject,
                              const std::string& action, const std::map<std::string, std::string>&,
                              std::uint32_t flags, const std::string&) {
          asked.push_back(action + " " + std::get<1>(subject).at("name").get<std::string>() + " " +
                          std::to_string(flags));
          if (answers_ == Answers::Error)
            return result.returnError(sdbus::Error("org.freedesktop.PolicyKit1.Error.Failed", "?"));
          if (answers_ == Answers::Never || flags != 0) return waiting_.push_back(std::move(result));
          result.returnResults({answers_ == Answers::Yes, answers_ == Answers::Challenge, {}});
        });
    object_->registerMethod("CancelCheckAuthorization")
        .onInterface(kInterface)
        .implementedAs([this](const std::string& question) { asked.push_back("cancel " + question); });
    object_->finishRegistration();
    connection_->requestName("org.freedesktop.PolicyKit1");
  }
  void process() {
    while (connection_->processPendingRequest()) {
    }
  }
  std::vector<std::string> asked;

 private:
  static constexpr char kInterface[] = "org.freedesktop.PolicyKit1.Authority";
  Answers answers_;
  std::unique_ptr<sdbus::IConnection> connection_ = sdbus::createSessionBusConnection();
  std::unique_ptr<sdbus::IObject> object_ =
      sdbus::createObject(*connection_, "/org/freedesktop/PolicyKit1/Authority");
  std::vector<sdbus::Result<Verdict>> waiting_;
};

class AuthorityTest : public ::testing::Test {
 protected:
  using Answers = FakePolkit::Answers;

  Status answer(Trust trust, Authority::Asking asking = Authority::Asking::Unwanted) {
    authority.emplace(*connection, std::move(trust), diagnostics);
    std::optional<Status> status;
    authority->check(client->getUniqueName(), asking, [&](Status answered) { status = answered; });
    happens([&] { return status.has_value(); });
    return status.value_or(kErrorGeneral);
  }
  template <typename Condition>
  bool happens(Condition condition) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (!condition() && std::chrono::steady_clock::now() < end) {
      while (connection->processPendingRequest()) {
      }
      if (polkit) polkit->process();
      const auto data = connection->getEventLoopPollData();
      pollfd waited{data.fd, data.events, 0};
      ::poll(&waited, 1, 1);
    }
    return condition();
  }
  std::string question(const char* flags) const {
    return "com.varnexo.touchdriver.configure " + client->getUniqueName() + " " + flags;
  }

  PrivateBus bus;
  std::unique_ptr<sdbus::IConnection> connection = sdbus::createSessionBusConnection();
  std::unique_ptr<sdbus::IConnection> client = sdbus::createSessionBusConnection();
  RecordingDiagnostics diagnostics;
  std::optional<FakePolkit> polkit;
  std::optional<Authority> authority;
};

TEST_F(AuthorityTest, TrustsItsUsersThenPolkitAndWithoutPolkitItsGroup) {
  const Trust group{{}, ::getegid()};
  const Trust none;
  EXPECT_EQ(answer({{::geteuid()}, std::nullopt}), kSuccess);
  EXPECT_EQ(answer(group), kSuccess);
  EXPECT_EQ(answer({{}, ::getegid() + 12345}), kErrorNotPermitted);
  EXPECT_EQ(answer(none), kErrorNotPermitted);
  EXPECT_TRUE(diagnostics.lines.empty()) << "there need not be a polkit";
  for (const auto& [answers, expected] : {std::pair{Answers::Yes, kSuccess},
                                          {Answers::No, kErrorNotPermitted},
                                          {Answers::Error, kErrorNotPermitted}}) {
    polkit.reset();
    polkit.emplace(answers);
    EXPECT_EQ(answer(group), expected);
    EXPECT_THAT(polkit->asked, ElementsAre(question("0")));
  }
  EXPECT_EQ(diagnostics.lines.size(), 1U);
  authority.emplace(*connection, none, diagnostics);
  int refused = 0;
  authority->check(client->getUniqueName(), Authority::Asking::Unwanted, [&](Status) { ++refused; });
  authority->clientLeft(client->getUniqueName());
  EXPECT_TRUE(happens([&] { return refused == 1; }));
  EXPECT_EQ(diagnostics.lines.size(), 1U) << "polkit knows nobody who has left";
  polkit->asked.clear();
  EXPECT_EQ(answer({{::geteuid()}, std::nullopt}), kSuccess);
  EXPECT_TRUE(polkit->asked.empty()) << "of a trusted user nothing is asked";
}

TEST_F(AuthorityTest, RefusesWhenPolkitNeverAnswersAndLetsOneUserAskOnlySoMuch) {
  polkit.emplace(Answers::Never);
  EXPECT_EQ(answer({}), kErrorNotPermitted);
  int busy = 0;
  int refused = 0;
  for (int i = 0; i < 20; ++i)
    authority->check(client->getUniqueName(), Authority::Asking::Unwanted,
                     [&](Status status) { ++(status == kErrorExclusiveAccess ? busy : refused); });
  EXPECT_TRUE(happens([&] { return busy + refused == 20; }));
  EXPECT_EQ(busy, 4);
}

TEST_F(AuthorityTest, HasAnAdministratorAskedOnceWithoutWaitingUntilTheClientLeaves) {
  polkit.emplace(Answers::Challenge);
  EXPECT_EQ(answer({}), kErrorNotPermitted);
  EXPECT_THAT(polkit->asked, ElementsAre(question("0"))) << "not for a program that nobody watches";
  EXPECT_EQ(answer({}, Authority::Asking::Allowed), kErrorNotPermitted);
  EXPECT_TRUE(happens([&] { return polkit->asked.size() == 3; }));
  authority->clientLeft(client->getUniqueName());
  EXPECT_TRUE(happens([&] { return polkit->asked.size() == 4; }));
  EXPECT_EQ(polkit->asked[2], question("1"));
  EXPECT_EQ(polkit->asked[3], "cancel " + client->getUniqueName());
}

}  // namespace
}  // namespace touchpanel::testing
