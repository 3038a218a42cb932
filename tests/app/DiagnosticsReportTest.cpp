#include <gmock/gmock.h>

#include "ControllerRig.h"
#include "app/DiagnosticsReport.h"
#include "platform/RecentDiagnostics.h"

namespace touchpanel::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

TEST(DiagnosticsReport, TellsVersionsTouchscreensDriversAndLines) {
  ListedTouchscreens rig;
  auto entry = rig.list(0x0080, "IR-0042");
  entry->set(entry_key::kFirmwareVersion, "1.2");
  entry->remove(entry_key::kMonitorID);
  rig.registry.objects.at(rig.handleOf(entry)).properties = Dictionary{
      {property::kCalibration,
       Dictionary{{calibration_key::kCalibrateStatus, true}, {calibration_key::kCalibParams, Bytes(116)}}},
      {property::kConfigration, Dictionary{{configration_key::kMode, 2}}}};
  auto gone = rig.list(0x0C20, "gone");
  rig.registry.remove(rig.handleOf(gone));
  const std::deque<std::string> lines{"first line", "second line"};

  const auto report = diagnosticsReport({{{"touchpanel", "0.1.0"}, {"Qt", "6.4.2"}},
                                         rig.controller.state().deviceListArray,
                                         rig.registry,
                                         lines,
                                         {}});

  EXPECT_EQ(report.substr(0, report.find("  TouchMode")),
            "Versions:\n"
            "  touchpanel: 0.1.0\n"
            "  Qt: 6.4.2\n"
            "\n"
            "Touchscreens:\n"
            "  listed: 2\n"
            "  driver instances: 1\n"
            "\n"
            "Touchscreen:\n"
            "  SN: IR-0042\n"
            "  FirmwareVersion: 1.2\n"
            "  CalibrateStatus: YES\n"
            "  MonitorID: absent\n"
            "  VendorID: 26214\n"
            "  ProductID: 128\n"
            "  LocationID: 0x14100001\n"
            "  Handle: 1\n"
            "  Hiddevice: 3\n"
            "  DoubleClickTime: 500\n"
            "  DoubleClickArea: 5\n");
  EXPECT_THAT(report, HasSubstr("  TouchSensitivityArea: 5\n"
                                "  driver instance: present\n"
                                "  calibration.calibrateStatus: 1\n"
                                "  calibration.calibParams: 116 bytes\n"
                                "  configration.mode: 2\n"
                                "\n"
                                "Touchscreen:\n"
                                "  SN: gone\n"));
  EXPECT_TRUE(
      report.ends_with("  driver instance: gone\n"
                       "\n"
                       "Last diagnostic lines:\n"
                       "  first line\n"
                       "  second line\n"))
      << report;
}

TEST(DiagnosticsReport, HoldsNothingPrivate) {
  struct Case {
    PrivateWords words;
    const char* line;
    const char* reported;
  };
  const Case cases[] = {
      {{"/home/anna", "anna", "till7"},
       "cannot open /home/anna/x of anna on till7",
       "cannot open ~/x of <user> on <host>"},
      {{"/home/anna", "anna", "till7"},
       "/home/annabel annabel anna_b till77",
       "/home/annabel annabel anna_b till77"},
      {{"/home/anna", "anna", "till7"}, "anna", "<user>"},
      {{"", "touch", ""},
       "touchscreen touch touch, no touchpanel",
       "touchscreen <user> <user>, no touchpanel"},
      {{"/", "root", "a-b"}, "/library by root@a-b", "/library by <user>@<host>"},
      {{"/root", "root", ""}, "/root/x", "~/x"},
      {{"", "aa", ""}, "aaa aa", "aaa <user>"},
      {{"", "a-a", ""}, "a-a-a a-a", "<user>-a <user>"},
  };
  for (const auto& c : cases) {
    FakeRegistry registry;
    const std::deque<std::string> lines{c.line};
    const auto report = diagnosticsReport({{}, {}, registry, lines, c.words});
    EXPECT_THAT(report, HasSubstr(std::string("  ") + c.reported + "\n"));
  }
}

TEST(RecentDiagnostics, KeepsTheLastTwoHundredLinesAndPassesAllOn) {
  RecordingDiagnostics output;
  RecentDiagnostics recent(output);
  for (int number = 1; number <= 201; ++number) recent.line(std::to_string(number));
  EXPECT_EQ(output.lines.size(), 201U);
  EXPECT_EQ(recent.lines().size(), 200U);
  EXPECT_EQ(recent.lines().front(), "2");
  EXPECT_EQ(recent.lines().back(), "201");
}

}  // namespace
}  // namespace touchpanel::testing
