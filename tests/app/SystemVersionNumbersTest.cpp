#include <map>

#include <gmock/gmock.h>

#include "app/SystemVersionNumbers.h"
#include "support/RecordingDiagnostics.h"

namespace touchpanel::testing {
namespace {

using enum VersionSelector;

/// Answers what the test lists; a selector that it does not list fails.
struct StubSystemVersion final : SystemVersion {
  Status query(VersionSelector selector, std::int32_t& response) override {
    asked.push_back(selector);
    const auto found = answers.find(selector);
    if (found == answers.end()) return -5551;
    response = found->second;
    return successStatus;
  }
  std::map<VersionSelector, std::int32_t> answers;
  Status successStatus = kSuccess;
  std::vector<VersionSelector> asked;
};

TEST(SystemVersionNumbers, AreReadFromTheFormThatTheSystemHasOrAreZero) {
  struct Case {
    std::map<VersionSelector, std::int32_t> answers;
    std::array<std::uint32_t, 3> numbers;
    std::vector<VersionSelector> asked;
    std::vector<std::string> lines = {};
    Status successStatus = kSuccess;
  };
  const std::vector<std::string> failed{"Unable to obtain system version: -5551"};
  const Case cases[] = {
      {{{Sysv, 0x1039}}, {10, 0, 9}, {Sysv}},
      {{{Sysv, 0x103F}}, {10, 0, 15}, {Sysv}},
      {{{Sysv, 0x0922}}, {9, 0, 2}, {Sysv}},
      {{{Sysv, 0x1040}, {Sys1, 10}, {Sys2, 4}, {Sys3, 11}}, {10, 4, 11}, {Sysv, Sys1, Sys2, Sys3}},
      {{{Sysv, 0x10000}, {Sys1, 12}, {Sys2, 0}, {Sys3, 1}}, {12, 0, 1}, {Sysv, Sys1, Sys2, Sys3}},
      {{}, {}, {Sysv}, failed},
      {{{Sysv, 0x1058}, {Sys2, 5}, {Sys3, 8}}, {}, {Sysv, Sys1}, failed},
      {{{Sysv, 0x1058}, {Sys1, 10}, {Sys3, 8}}, {}, {Sysv, Sys1, Sys2}, failed},
      {{{Sysv, 0x1058}, {Sys1, 10}, {Sys2, 5}}, {}, {Sysv, Sys1, Sys2, Sys3}, failed},
      // Only the low half of a status counts, and is told with its sign.
      {{{Sysv, 0x1039}}, {10, 0, 9}, {Sysv}, {}, 0x10000},
      {{{Sysv, 0x1039}}, {}, {Sysv}, {"Unable to obtain system version: -2"}, 0x7FFFFFFE},
  };
  for (const auto& c : cases) {
    StubSystemVersion system;
    system.answers = c.answers;
    system.successStatus = c.successStatus;
    RecordingDiagnostics diagnostics;
    std::array<std::uint32_t, 3> numbers{99, 99, 99};
    getSystemVersion(system, diagnostics, &numbers[0], &numbers[1], &numbers[2]);
    EXPECT_EQ(numbers, c.numbers);
    EXPECT_EQ(system.asked, c.asked);
    EXPECT_EQ(diagnostics.lines, c.lines);
    getSystemVersion(system, diagnostics, nullptr, nullptr, nullptr);
  }
}

}  // namespace
}  // namespace touchpanel::testing
