#include <benchmark/benchmark.h>

#include "ControllerRig.h"
#include "providers/files/LibplistFiles.h"
#include "providers/simulated/SimulatedTouchscreens.h"
#include "support/TemporaryDirectory.h"

/// What a user of a wall of touchscreens waits for, on a simulated machine with 40 of them.
namespace touchpanel {
namespace {

constexpr int kTouchscreens = 40;

class Wall {
 public:
  explicit Wall(PropertyListFiles& files, const std::string& directory = "memory")
      : controller(outletsOf(rig.interface), rig.portsOn(machine_.registry(), machine_.usb(), machine_.usb(),
                                                         files, ConfigPaths::in(directory))) {
    const auto examples = simulated::exampleTouchscreens();
    for (int number = 0; number < kTouchscreens; ++number) {
      auto model = examples[static_cast<std::size_t>(number) % examples.size()];
      model.locationId = 0x14100000U + static_cast<std::uint32_t>(number);
      machine_.plugIn(machine_.add(model));
    }
    controller.awakeFromNib();
    askForCells();
  }

  /// What a table does after a reload when all of its rows are in sight.
  void askForCells() {
    for (std::int32_t row = 0; row < controller.numberOfRows(); ++row)
      for (const auto* column : {entry_key::kSN, entry_key::kFirmwareVersion, entry_key::kCalibrateStatus,
                                 entry_key::kMonitorID, entry_key::kLocationID})
        benchmark::DoNotOptimize(controller.objectValue(column, row));
  }

  testing::ControllerRig rig;

 private:
  simulated::SimulatedTouchscreens machine_;

 public:
  MyController controller;
};

void apply(Wall& wall, benchmark::State& state) {
  wall.controller.Settings();
  for (auto _ : state) {
    wall.rig.interface.singleClickArea.value ^= 1;
    wall.controller.SettingsChange();
    wall.controller.SettingsApply();
    wall.rig.statusLine.messages.clear();
  }
  state.counters["touchscreens"] = wall.controller.numberOfRows();
}

void ApplySettings(benchmark::State& state) {
  testing::FakePropertyListFiles files;
  Wall wall(files);
  apply(wall, state);
}

/// With the file's way to the disk, which is waited for.
void ApplySettingsToDisk(benchmark::State& state) {
  const testing::TemporaryDirectory directory;
  files::LibplistFiles files;
  Wall wall(files, directory.path());
  apply(wall, state);
}

void SelectRow(benchmark::State& state) {
  testing::FakePropertyListFiles files;
  Wall wall(files);
  std::int32_t row = 0;
  for (auto _ : state) wall.controller.shouldSelectRow(row = (row + 1) % kTouchscreens);
}

void ReloadTable(benchmark::State& state) {
  testing::FakePropertyListFiles files;
  Wall wall(files);
  for (auto _ : state) {
    wall.controller.reloadTableViewData();
    wall.askForCells();
  }
}

void TurnTouchOverEverywhere(benchmark::State& state) {
  testing::FakePropertyListFiles files;
  Wall wall(files);
  for (auto _ : state) {
    wall.controller.EnableTouch();
    wall.rig.statusLine.messages.clear();
  }
}

BENCHMARK(ApplySettings)->Unit(benchmark::kMicrosecond);
BENCHMARK(ApplySettingsToDisk)->Unit(benchmark::kMicrosecond);
BENCHMARK(SelectRow)->Unit(benchmark::kMicrosecond);
BENCHMARK(ReloadTable)->Unit(benchmark::kMicrosecond);
BENCHMARK(TurnTouchOverEverywhere)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace touchpanel
