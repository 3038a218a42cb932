#include <gmock/gmock.h>

#include "ControllerRig.h"
#include "app/OutcomeSentences.h"

namespace touchpanel::testing {
namespace {

using ::testing::ElementsAre;
using enum CalibrationEvent;
using Write = FakeRegistry::Write;

/// One calibrated touchscreen whose calibration is kept in the device configuration file.
struct HistorySheetTest : ::testing::Test, ListedTouchscreens {
  HistorySheetTest() {
    auto context = contextOf(*entry);
    context.DeviceConfig.CalibrateStatus = 1;
    context.DeviceConfig.DeviceID = 7;
    context.CalibParams.Y.A01 = 2;
    context.FirmwareVer[0] = 'F';
    storeContext(*entry, context);
    calibrated = imageOf(context);
  }
  std::vector<CalibrationRecord> kept() { return earlier.of(*entry).records; }
  std::vector<CalibrationEvent> keptEvents() {
    std::vector<CalibrationEvent> events;
    for (const auto& record : kept()) events.push_back(record.event);
    return events;
  }
  Bytes paramsInFile() { return *files.files.at("device.plist").bytes(device_config_key::kCalibParams); }

  DeviceEntry entry = list(kProductConfigurationOnly, "A1");
  std::array<std::uint8_t, kDeviceContextSize> calibrated;
  EarlierCalibrations earlier{{historyFiles, wallClock, "/state"}, diagnostics};
};

TEST_F(HistorySheetTest, UndoesAResetInDriverTouchscreenAndEntry) {
  controller.Reset();
  EXPECT_THAT(keptEvents(), ElementsAre(AsFound, Reset));
  EXPECT_TRUE(facts.shown.canUndoReset);
  registry.writes.clear();
  controller.UndoReset();

  const auto params = contextOf(*entry).CalibParams;
  const auto image = imageOf(params);
  const Bytes bytes(image.begin(), image.end());
  EXPECT_EQ(imageOf(contextOf(*entry)), calibrated);
  EXPECT_EQ(entry->text(entry_key::kCalibrateStatus), entry_key::kYes);
  EXPECT_TRUE(interface.btnReset.enabled);
  EXPECT_THAT(registry.writes, ElementsAre(Write{handleOf(entry), property::kCalibration,
                                                 Dictionary{{calibration_key::kCalibrateStatus, true},
                                                            {calibration_key::kCalibParams, bytes},
                                                            {calibration_key::kMinX, 0},
                                                            {calibration_key::kMinY, 0},
                                                            {calibration_key::kMaxX, kLogicalMaximum},
                                                            {calibration_key::kMaxY, kLogicalMaximum}}}));
  EXPECT_EQ(paramsInFile(), bytes);
  EXPECT_EQ(status(), sentenceOf(WriteAttempt::Restore, "A1", {}));
  EXPECT_THAT(keptEvents(), ElementsAre(AsFound, Reset, Restored));
  EXPECT_FALSE(facts.shown.canUndoReset);
  controller.UndoReset();
  EXPECT_EQ(kept().size(), 3U) << "there is nothing left to undo";
}

TEST_F(HistorySheetTest, RestoresTheChosenRecordButWhatTheDeviceSaysOfItselfStaysAsItIs) {
  controller.Reset();
  controller.UndoReset();
  auto renewed = contextOf(*entry);
  renewed.FirmwareVer[0] = 'G';
  storeContext(*entry, renewed);
  controller.History();
  EXPECT_EQ(sheets.open, &interface.HistoryWindow);
  EXPECT_EQ(earlierView.shown.device, "A1");
  ASSERT_EQ(earlierView.shown.records.size(), 3U);
  EXPECT_EQ(earlierView.shown.records[1].event, Reset);
  EXPECT_EQ(earlierView.shown.inUse, 0U);

  registry.writes.clear();
  controller.Restore(1);
  EXPECT_EQ(sheets.open, nullptr);
  EXPECT_TRUE(interface.HistoryWindow.isOut);
  EXPECT_FALSE(registry.writes.at(0).value.get<Dictionary>()->boolean(calibration_key::kCalibrateStatus));
  EXPECT_EQ(entry->text(entry_key::kCalibrateStatus), entry_key::kNo);
  EXPECT_EQ(contextOf(*entry).DeviceConfig.DeviceID, 0);
  EXPECT_EQ(contextOf(*entry).FirmwareVer[0], 'G');
  EXPECT_EQ(paramsInFile(), Bytes(kCalibParamsSize));
  EXPECT_EQ(status(), sentenceOf(WriteAttempt::Reset, "A1", {}));
}

TEST_F(HistorySheetTest, RestoresNothingToATouchscreenThatWasUnpluggedMeanwhile) {
  auto other = list(kProductInfrared0080, "B2");
  controller.Reset();
  controller.History();
  const auto writes = registry.writes.size();
  registry.remove(handleOf(entry));
  controller.RemoveDeviceFromArray();
  ASSERT_EQ(controller.state().currentDict, other);
  controller.Restore(1);
  EXPECT_EQ(status(), (StatusMessage{"%1 is not connected any more; nothing was restored.", "A1"}));
  for (auto write = registry.writes.begin() + static_cast<std::ptrdiff_t>(writes);
       write != registry.writes.end(); ++write)
    EXPECT_EQ(write->value, Value(Dictionary())) << "a probe at the most";
  EXPECT_EQ(sheets.open, nullptr);
}

TEST_F(HistorySheetTest, KeepsWhetherAWriteArrivedAndSaysWhenNothingCouldBeKept) {
  files.writeStatus = kErrorNoSpace;
  controller.Reset();
  EXPECT_EQ(kept().back().written, WrittenState::No);
  files.writeStatus = kSuccess;
  controller.RepeatWrite();
  EXPECT_EQ(kept().back().written, WrittenState::Yes);

  historyFiles.writeStatus = kErrorNotPermitted;
  controller.UndoReset();
  EXPECT_EQ(entry->text(entry_key::kCalibrateStatus), entry_key::kYes) << "restored all the same";
  EXPECT_EQ(status(),
            sentenceOfUnkept({.event = Restored, .context = contextOf(*entry)}, "A1", kErrorNotPermitted));
  files.writeStatus = kErrorNoSpace;
  controller.Reset();
  EXPECT_TRUE(status().canRepeat) << "what befell the write comes first";
}

}  // namespace
}  // namespace touchpanel::testing
