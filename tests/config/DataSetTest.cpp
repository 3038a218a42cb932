#include <gmock/gmock.h>

#include "config/DataSet.h"
#include "contract/TouchSettings.h"
#include "support/FakePropertyListFiles.h"

namespace touchpanel {
namespace {

using testing::FakePropertyListFiles;

const ConfigPaths kPaths = ConfigPaths::in("/some/where");

/// An entry with the twelve settings in an order of its own, among other keys.
Dictionary entryWithSettings() {
  return {{"SN", "A"},
          {"TouchSensitivityArea", 12},
          {"TouchSensitivityTime", 11},
          {"EnableTouchSensitivity", false},
          {"RightClickArea", 9},
          {"RightClickTime", 8},
          {"EnableRightClick", true},
          {"Handle", 77},
          {"CalibrateType", 6},
          {"CalibrateMode", 25},
          {"Smoothness", 4},
          {"ClickRange", 3},
          {"EnableTouch", false},
          {"TouchMode", "as it is"},
          {"DoubleClickTime", 500}};
}

TEST(DataSet, NamesItsFilesUnderTheDirectory) {
  EXPECT_EQ(kPaths.driverConfig, "/some/where/com.VARNEXO.Driver.Config.plist");
  EXPECT_EQ(kPaths.deviceConfig, "/some/where/com.VARNEXO.Device.Config.plist");
}

TEST(DataSet, GivesTheDefaultsForFilesThatCannotBeRead) {
  FakePropertyListFiles files;
  const DataSet dataSet(files, kPaths);
  EXPECT_EQ(dataSet.loadedDriverConfig(), (Dictionary{{"TouchMode", 2},
                                                      {"EnableTouch", true},
                                                      {"ClickRange", false},
                                                      {"Smoothness", 1},
                                                      {"CalibrateMode", 4},
                                                      {"CalibrateType", 0},
                                                      {"EnableRightClick", true},
                                                      {"RightClickTime", 1000},
                                                      {"RightClickArea", 5},
                                                      {"EnableTouchSensitivity", true},
                                                      {"TouchSensitivityTime", 100},
                                                      {"TouchSensitivityArea", 5}}));
  EXPECT_EQ(dataSet.loadedDeviceConfig(),
            (Dictionary{{"CalibrateStatus", false}, {"CalibParams", Bytes(116, 0)}}));
}

TEST(DataSet, GivesAReadableFileExactlyAsItIs) {
  FakePropertyListFiles files;
  const DataSet dataSet(files, kPaths);
  files.files[kPaths.driverConfig] = {{"TouchMode", "odd"}, {"Unknown", 1}};
  files.files[kPaths.deviceConfig] = {{"CalibParams", Bytes{1}}};
  EXPECT_EQ(dataSet.loadedDriverConfig(), (Dictionary{{"TouchMode", "odd"}, {"Unknown", 1}}));
  EXPECT_EQ(dataSet.loadedDeviceConfig(), (Dictionary{{"CalibParams", Bytes{1}}}));

  files.files[kPaths.driverConfig] = {};
  EXPECT_TRUE(dataSet.loadedDriverConfig().empty()) << "an empty file is read, and read anew";
}

TEST(WriteDriverConfig, WritesTheTwelveSettingsInTheFilesOrderAndNothingElse) {
  FakePropertyListFiles files;
  files.files[kPaths.driverConfig] = {{"AddedByHand", 1}, {"TouchMode", 0}};
  EXPECT_EQ(writeDriverConfig(files, kPaths, entryWithSettings()), kSuccess);
  EXPECT_EQ(files.files[kPaths.driverConfig], (Dictionary{{"TouchMode", "as it is"},
                                                          {"EnableTouch", false},
                                                          {"ClickRange", 3},
                                                          {"Smoothness", 4},
                                                          {"CalibrateMode", 25},
                                                          {"CalibrateType", 6},
                                                          {"EnableRightClick", true},
                                                          {"RightClickTime", 8},
                                                          {"RightClickArea", 9},
                                                          {"EnableTouchSensitivity", false},
                                                          {"TouchSensitivityTime", 11},
                                                          {"TouchSensitivityArea", 12}}));
  files.writeStatus = kErrorNoSpace;
  EXPECT_EQ(writeDriverConfig(files, kPaths, entryWithSettings()), kErrorNoSpace);
}

TEST(WriteDriverConfig, TouchesNoFileWhenAnyKeyIsMissing) {
  for (const auto& setting : kSettingsInFile) {
    FakePropertyListFiles files;
    auto entry = entryWithSettings();
    entry.remove(setting.key);
    EXPECT_EQ(writeDriverConfig(files, kPaths, entry), kErrorBadArgument) << setting.key;
    EXPECT_EQ(files.writeAttempts, 0) << setting.key;
  }
}

TEST(WriteDeviceConfig, StoresTheStatusAsABooleanAndTheParametersByteForByte) {
  FakePropertyListFiles files;
  std::array<std::uint8_t, kDeviceContextSize> image;
  for (std::size_t i = 0; i < image.size(); ++i) image[i] = static_cast<std::uint8_t>(i);
  _DEVICT_CONTEXT context;
  copyImage(image, context);
  Bytes expected;
  for (int i = 116; i <= 231; ++i) expected.push_back(static_cast<std::uint8_t>(i));

  for (const auto status : std::array<std::uint8_t, 3>{0, 1, 2}) {
    context.DeviceConfig.CalibrateStatus = status;
    EXPECT_EQ(writeDeviceConfig(files, kPaths, context), kSuccess);
    EXPECT_EQ(files.files[kPaths.deviceConfig],
              (Dictionary{{"CalibrateStatus", status != 0}, {"CalibParams", expected}}));
  }
  files.writeStatus = kErrorNoSpace;
  EXPECT_EQ(writeDeviceConfig(files, kPaths, context), kErrorNoSpace);
}

}  // namespace
}  // namespace touchpanel
