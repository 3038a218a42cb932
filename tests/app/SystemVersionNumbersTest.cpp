#include <map>

#include <gmock/gmock.h>

#include "app/SystemVersionNumbers.h"
#include "support/RecordingDiagnostics.h"

namespace touchpanel::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr auto kSysv = VersionSelector::Sysv;
constexpr auto kSys1 = VersionSelector::Sys1;
constexpr auto kSys2 = VersionSelector::Sys2;
constexpr auto kSys3 = VersionSelector::Sys3;

/// Answers what the test lists; a selector that it does not list fails with `error`.
struct StubSystemVersion final : SystemVersion {
  Status query(VersionSelector selector, std::int32_t& response) override {
    asked.push_back(selector);
    const auto found = answers.find(selector);
    if (found == answers.end()) return error;
    response = found->second;
    return successStatus;
  }
  std::map<VersionSelector, std::int32_t> answers;
  Status error = -5551;
  Status successStatus = kSuccess;
  std::vector<VersionSelector> asked;
};

TEST(SystemVersionNumbers, AreReadFromTheFormThatTheSystemHas) {
  struct Case {
    std::map<VersionSelector, std::int32_t> answers;
    std::uint32_t major, minor, bugFix;
    std::vector<VersionSelector> asked;
  };
  const Case cases[] = {
      {{{kSysv, 0x1039}}, 10, 0, 9, {kSysv}},
      {{{kSysv, 0x103F}}, 10, 0, 15, {kSysv}},
      {{{kSysv, 0x0922}}, 9, 0, 2, {kSysv}},
      {{{kSysv, 0x1040}, {kSys1, 10}, {kSys2, 4}, {kSys3, 11}}, 10, 4, 11, {kSysv, kSys1, kSys2, kSys3}},
      {{{kSysv, 0x10000}, {kSys1, 12}, {kSys2, 0}, {kSys3, 1}}, 12, 0, 1, {kSysv, kSys1, kSys2, kSys3}},
  };
  for (const auto& c : cases) {
    StubSystemVersion system;
    system.answers = c.answers;
    RecordingDiagnostics diagnostics;
    std::uint32_t major = 99, minor = 99, bugFix = 99;
    getSystemVersion(system, diagnostics, &major, &minor, &bugFix);
    EXPECT_EQ(std::tie(major, minor, bugFix), std::tie(c.major, c.minor, c.bugFix));
    EXPECT_EQ(system.asked, c.asked);
    EXPECT_THAT(diagnostics.lines, IsEmpty());
  }
}

TEST(SystemVersionNumbers, AreZeroAfterTheFirstFailure) {
  const std::vector<VersionSelector> order{kSysv, kSys1, kSys2, kSys3};
  for (std::size_t failing = 0; failing < order.size(); ++failing) {
    StubSystemVersion system;
    system.answers = {{kSysv, 0x1058}, {kSys1, 10}, {kSys2, 5}, {kSys3, 8}};
    system.answers.erase(order[failing]);
    RecordingDiagnostics diagnostics;
    std::uint32_t major = 99, minor = 99, bugFix = 99;
    getSystemVersion(system, diagnostics, &major, &minor, &bugFix);
    EXPECT_EQ(major + minor + bugFix, 0U);
    EXPECT_EQ(system.asked.back(), order[failing]);
    EXPECT_THAT(diagnostics.lines, ElementsAre("Unable to obtain system version: -5551"));
  }
}

TEST(SystemVersionNumbers, AreJudgedByTheLowHalfOfTheStatus) {
  StubSystemVersion system;
  system.answers = {{kSysv, 0x1039}};
  system.successStatus = 0x10000;
  RecordingDiagnostics diagnostics;
  std::uint32_t bugFix = 99;
  getSystemVersion(system, diagnostics, nullptr, nullptr, &bugFix);
  EXPECT_EQ(bugFix, 9U);

  system.successStatus = static_cast<Status>(0x7FFFFFFE);
  getSystemVersion(system, diagnostics, nullptr, nullptr, nullptr);
  EXPECT_THAT(diagnostics.lines, ElementsAre("Unable to obtain system version: -2"));
}

}  // namespace
}  // namespace touchpanel::testing
