#include <cmath>
#include <limits>

#include <gmock/gmock.h>

#include "contract/ProductId.h"
#include "history/CalibrationHistory.h"
#include "history/RecordCoding.h"
#include "history/TouchscreenKey.h"
#include "support/FakePropertyListFiles.h"

namespace touchpanel::testing {
namespace {

using ::testing::ElementsAre;
using enum CalibrationEvent;

constexpr char kKey[] = "0080-sn-A1";
constexpr char kPath[] = "/state/0080-sn-A1.plist";

/// A calibrated context that differs from every other number's.
_DEVICT_CONTEXT contextNumber(int number) {
  _DEVICT_CONTEXT context{};
  context.DeviceConfig.CalibrateStatus = 1;
  context.CalibParams.X.A10 = static_cast<float>(number);
  return context;
}

CalibrationRecord acceptedNumber(int number) {
  return {.time = std::chrono::sys_seconds(std::chrono::seconds(number)),
          .event = Accepted,
          .context = contextNumber(number)};
}

struct CalibrationHistoryTest : ::testing::Test {
  /// What is kept, each as its event and the number of its context.
  std::vector<std::pair<CalibrationEvent, int>> kept() {
    std::vector<std::pair<CalibrationEvent, int>> found;
    for (const auto& record : history.read(kKey).records)
      found.emplace_back(record.event, static_cast<int>(record.context.CalibParams.X.A10));
    return found;
  }
  void replaceRecord(std::size_t index, Value value) {
    auto& file = files.files.at(kPath);
    Array records = *file.array("Records");
    records.at(index) = std::move(value);
    file.set("Records", records);
  }

  FakePropertyListFiles files;
  CalibrationHistory history{files, "/state"};
};

TEST_F(CalibrationHistoryTest, KeepsWhatWasFoundWhatWasReplacedAndTheLastTwenty) {
  EXPECT_TRUE(kept().empty());
  EXPECT_EQ(history.keep(kKey, contextNumber(0), acceptedNumber(1)), kSuccess);
  EXPECT_EQ(history.keep(kKey, contextNumber(1), acceptedNumber(2)), kSuccess);
  EXPECT_EQ(history.keep(kKey, contextNumber(7), acceptedNumber(8)), kSuccess)
      << "another program calibrated meanwhile";
  EXPECT_THAT(kept(), ElementsAre(std::pair(AsFound, 0), std::pair(Accepted, 1), std::pair(Accepted, 2),
                                  std::pair(Replaced, 7), std::pair(Accepted, 8)));

  for (int number = 9; number < 40; ++number)
    history.keep(kKey, contextNumber(number - 1), acceptedNumber(number));
  const auto records = kept();
  ASSERT_EQ(records.size(), 1 + CalibrationHistory::kKept);
  EXPECT_EQ(records[0], std::pair(AsFound, 0));
  EXPECT_EQ(records[1], std::pair(Accepted, 20));
  EXPECT_EQ(records.back(), std::pair(Accepted, 39));

  const auto before = files.files;
  files.writeStatus = kErrorNoSpace;
  EXPECT_EQ(history.keep(kKey, contextNumber(39), acceptedNumber(40)), kErrorNoSpace);
  EXPECT_EQ(files.files, before);
}

TEST_F(CalibrationHistoryTest, GivesBackEveryPartOfARecord) {
  auto record = acceptedNumber(1'800'000'000);
  for (auto& byte : record.context.DeviceConfig.Reserved) byte = 0xA5;
  record.context.BarCode[0] = '<';
  record.written = WrittenState::Unknown;
  record.fit = {.targets = 4,
                .pixels = {1.5, 3},
                .millimetres = TouchErrors{0.25, 1},
                .screen = {1920, 1080},
                .touches = {{{96, 1026}, {97.5F, -3}}, {{0, 0}, {1, 2}}}};
  for (const bool inMillimetres : {true, false}) {
    if (!inMillimetres) record.fit->millimetres.reset();
    const auto back = decodedRecord(encodedRecord(record));
    ASSERT_TRUE(back);
    EXPECT_EQ(imageOf(back->context), imageOf(record.context));
    EXPECT_EQ(back->time, record.time);
    EXPECT_EQ(back->event, record.event);
    EXPECT_EQ(back->written, record.written);
    EXPECT_EQ(back->fit, record.fit);
  }
}

TEST_F(CalibrationHistoryTest, LeavesOutWhatIsNoSensibleRecordButLeavesItInTheFile) {
  constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
  auto whole = acceptedNumber(5);
  whole.fit = {.targets = 4,
               .pixels = {1, 2},
               .millimetres = TouchErrors{1, 2},
               .screen = {100, 50},
               .touches = {{{1, 1}, {2, 2}}}};
  auto senseless = contextNumber(0);
  senseless.CalibParams.Y.A00 = std::numeric_limits<float>::infinity();
  const auto image = imageOf(senseless);
  const auto strayed = imageOf(std::array{1.0F, 1.0F, std::numeric_limits<float>::quiet_NaN(), 1.0F});
  const std::pair<const char*, Value> damages[] = {{"DeviceContext", Bytes(292)},
                                                   {"DeviceContext", "text"},
                                                   {"DeviceContext", Bytes(image.begin(), image.end())},
                                                   {"Time", std::int64_t{-1}},
                                                   {"Time", std::int64_t{253402300800}},
                                                   {"Event", "other"},
                                                   {"Written", true},
                                                   {"Targets", 0},
                                                   {"Targets", 26},
                                                   {"MeanPixels", kNaN},
                                                   {"MeanPixels", 2.5},
                                                   {"LargestPixels", "2"},
                                                   {"LargestMillimetres", 1e7},
                                                   {"Width", 0.0},
                                                   {"Height", kNaN},
                                                   {"Touches", Bytes(15)},
                                                   {"Touches", Bytes(5 * 16)},
                                                   {"Touches", Bytes(strayed.begin(), strayed.end())}};
  ASSERT_TRUE(decodedRecord(encodedRecord(whole)));
  for (const auto& [key, value] : damages) {
    auto damaged = encodedRecord(whole);
    damaged.set(key, value);
    EXPECT_FALSE(decodedRecord(damaged)) << key;
  }

  history.keep(kKey, contextNumber(0), acceptedNumber(1));
  replaceRecord(1, "damaged");
  EXPECT_TRUE(history.read(kKey).isDamaged);
  EXPECT_EQ(history.keep(kKey, contextNumber(1), acceptedNumber(2)), kSuccess);
  EXPECT_THAT(kept(), ElementsAre(std::pair(AsFound, 0), std::pair(Replaced, 1), std::pair(Accepted, 2)));
  EXPECT_EQ(files.files.at(kPath).array("Records")->at(1), Value("damaged"));
}

TEST_F(CalibrationHistoryTest, ReadsAndOverwritesNoFileThatIsNotItsOwn) {
  history.keep(kKey, contextNumber(0), acceptedNumber(1));
  const auto own = files.files.at(kPath);
  EXPECT_FALSE(history.read(kKey).isDamaged);
  const std::pair<const char*, Value> differences[] = {
      {"Format", "another"}, {"Version", 2}, {"Name", "0080-sn-B2"}, {"Records", 1}};
  for (const auto& [key, value] : differences) {
    auto foreign = own;
    foreign.set(key, value);
    files.files[kPath] = foreign;
    EXPECT_TRUE(history.read(kKey).isDamaged && kept().empty()) << key;
    EXPECT_EQ(history.keep(kKey, contextNumber(1), acceptedNumber(2)), kErrorUnsupported) << key;
    EXPECT_EQ(files.files.at(kPath), foreign) << key;
  }
}

TEST_F(CalibrationHistoryTest, BeginsAnewBehindAFileThatCannotBeRead) {
  files.readStatus = kErrorUnsupported;
  EXPECT_TRUE(history.read(kKey).isDamaged);
  EXPECT_EQ(history.keep(kKey, contextNumber(5), acceptedNumber(6)), kSuccess);
  EXPECT_THAT(kept(), ElementsAre(std::pair(Replaced, 5), std::pair(Accepted, 6)))
      << "who knows what it was found with";
}

TEST(TouchscreenKey, IsTheBarCodeOrThePlaceAndFitToBeAFilesName) {
  const auto keyOf = [](std::uint16_t product, std::string_view name, std::uint32_t location) {
    return touchscreenKeyOf({{entry_key::kProductID, std::int32_t{product}},
                             {entry_key::kSN, std::string(name)},
                             {entry_key::kLocationID, static_cast<std::int32_t>(location)}});
  };
  EXPECT_EQ(keyOf(kProductInfrared0080, "IR-12", 5), "0080-sn-IR-12");
  EXPECT_EQ(keyOf(kProductInfrared0080, "../a\n\xFF%", 5), "0080-sn-%2e%2e%2fa%0a%ff%25");
  EXPECT_EQ(keyOf(kProductInfrared0080, kind_name::kInfrared, 0xFD100000), "0080-at-fd100000");
  EXPECT_EQ(keyOf(kProductOptical, kind_name::kOptical, 1), "0c20-at-00000001");
}

}  // namespace
}  // namespace touchpanel::testing
