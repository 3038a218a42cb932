// What the service keeps, on disks that are slow, full, or hold something else.
#include <gtest/gtest.h>

#include "driver/service/StateStore.h"
#include "support/FakeFileWorker.h"
#include "support/FakePropertyListFiles.h"
#include "support/RecordingDiagnostics.h"

namespace touchpanel::testing {
namespace {

const TouchscreenIdentity kHere{0x00110000, 0x0080, "pci-0000:00:14.0-usb-0:2"};
const TouchscreenIdentity kThere{0x00120000, 0x0080, "pci-0000:00:14.0-usb-0:2/../3"};
constexpr char kFile[] = "/state/touchscreen-pci-0000:00:14.0-usb-0:2-0080.plist";
constexpr char kFormerFile[] = "/state/touchscreen-00110000-0080.plist";

Dictionary state(int value) { return {{"configration", Dictionary{{"mode", value}}}}; }

class StateStore : public ::testing::Test {
 protected:
  void whenDurable() {
    store->whenDurable([this](Status status) { answers.push_back(status); });
  }

  FakePropertyListFiles files;
  FakeFileWorker worker;
  RecordingDiagnostics diagnostics;
  std::vector<Status> answers;
  std::unique_ptr<driver::StateStore> store =
      std::make_unique<driver::StateStore>(files, worker, "/state", diagnostics);
};

TEST_F(StateStore, WritesTheNewestOnceAndAnswersWhoWaitedForWhatIsOnDisk) {
  whenDurable();
  store->save(kHere, state(0));
  whenDurable();
  for (int i = 1; i < 16; ++i) {
    store->save(kHere, state(i));
    store->save(kThere, state(i));
  }
  whenDurable();
  EXPECT_EQ(answers.size(), 1U) << "the one who asked before there was anything to write";
  EXPECT_EQ(store->load(kHere), state(15)) << "the newest, for one that is plugged in again meanwhile";
  worker.runOne();
  EXPECT_EQ(answers.size(), 2U);
  worker.runOne();
  EXPECT_EQ(answers.size(), 2U) << "each waits for every file";
  worker.finish();
  EXPECT_EQ(answers, (std::vector<Status>{kSuccess, kSuccess, kSuccess}));
  EXPECT_EQ(files.writeAttempts, 3);
  EXPECT_EQ(files.files.at(kFile), state(15));
  const auto saves = store->saves();
  store->save(kHere, state(15));
  EXPECT_EQ(store->saves(), saves) << "of what is on disk already";
  store->save(kHere, state(1));
  store.reset();
  EXPECT_EQ(files.files.at(kFile), state(1)) << "written before the service ends";
}

TEST_F(StateStore, KeepsWhatAFullDiskDidNotTakeUntilItDoes) {
  files.writeStatus = kErrorNoSpace;
  for (int i = 0; i < 3; ++i) {
    store->save(kHere, state(1));
    whenDurable();
    worker.finish();
  }
  EXPECT_EQ(answers, (std::vector<Status>{kErrorNoSpace, kErrorNoSpace, kErrorNoSpace}));
  EXPECT_EQ(store->load(kHere), state(1));
  EXPECT_EQ(diagnostics.lines.size(), 1U);
  files.writeStatus = kSuccess;
  store->save(kThere, state(2));
  worker.finish();
  EXPECT_EQ(diagnostics.lines.size(), 1U) << "one is still not saved";
  store->save(kHere, state(1));
  worker.finish();
  EXPECT_EQ(diagnostics.lines.size(), 2U);
  EXPECT_EQ(files.files.at(kFile), state(1));
}

TEST_F(StateStore, TakesOverWhatWasKeptByLocationForTheFirstThatIsPluggedInThere) {
  files.files[kFormerFile] = state(7);
  EXPECT_EQ(store->load(kHere), state(7));
  EXPECT_EQ(store->load({kHere.locationId, kHere.productId, "another-bus-of-the-same-number"}), Dictionary());
  EXPECT_EQ(store->load(kThere), Dictionary());
  EXPECT_TRUE(files.files.contains(kFile));
  EXPECT_EQ(files.files.size(), 1U);
  store->save(kThere, state(8));
  worker.finish();
  EXPECT_TRUE(files.files.contains("/state/touchscreen-pci-0000:00:14.0-usb-0:2_2f.._2f3-0080.plist"));
}

TEST_F(StateStore, SaysOnceWhichFileCannotBeReadAndGoesOnWithoutIt) {
  for (const auto status : {kErrorUnsupported, kErrorNotPermitted, kErrorInputOutput}) {
    files.readStatus = status;
    diagnostics.lines.clear();
    driver::StateStore another(files, worker, "/state", diagnostics);
    for (int i = 0; i < 2; ++i) EXPECT_EQ(another.load(kHere), Dictionary());
    ASSERT_EQ(diagnostics.lines.size(), 1U);
    EXPECT_NE(diagnostics.lines[0].find(kFile), std::string::npos);
  }
}

}  // namespace
}  // namespace touchpanel::testing
