// Loading and saving both configuration files. Saving waits for the disk twice, which is nearly all of its
// time; "Prepare" is the same without the disk.

#include <benchmark/benchmark.h>

#include "config/DataSet.h"
#include "providers/files/LibplistFiles.h"
#include "providers/files/PropertyListCoding.h"
#include "support/TemporaryDirectory.h"

namespace touchpanel {
namespace {

_DEVICT_CONTEXT calibratedContext() {
  _DEVICT_CONTEXT context{};
  context.DeviceConfig.CalibrateStatus = 1;
  context.CalibParams.X.A10 = 1.02F;
  context.CalibParams.Y.A01 = 0.98F;
  return context;
}

/// Both files in a directory of their own.
struct Files {
  testing::TemporaryDirectory directory;
  files::LibplistFiles disk;
  ConfigPaths paths = ConfigPaths::in(directory.path());
  DataSet dataSet{disk, paths};
  Dictionary entry = dataSet.loadedDriverConfig();
  _DEVICT_CONTEXT context = calibratedContext();

  Files() {
    writeDriverConfig(disk, paths, entry);
    writeDeviceConfig(disk, paths, context);
  }
};

void LoadDriverConfig(benchmark::State& state) {
  const Files files;
  for (auto _ : state) benchmark::DoNotOptimize(files.dataSet.loadedDriverConfig());
}
BENCHMARK(LoadDriverConfig);

void LoadDeviceConfig(benchmark::State& state) {
  const Files files;
  for (auto _ : state) benchmark::DoNotOptimize(files.dataSet.loadedDeviceConfig());
}
BENCHMARK(LoadDeviceConfig);

void SaveDriverConfig(benchmark::State& state) {
  Files files;
  for (auto _ : state) {
    if (writeDriverConfig(files.disk, files.paths, files.entry) != kSuccess)
      state.SkipWithError("not written");
  }
}
BENCHMARK(SaveDriverConfig)->UseRealTime();

void SaveDeviceConfig(benchmark::State& state) {
  Files files;
  for (auto _ : state) {
    if (writeDeviceConfig(files.disk, files.paths, files.context) != kSuccess)
      state.SkipWithError("not written");
  }
}
BENCHMARK(SaveDeviceConfig)->UseRealTime();

void PrepareDriverConfig(benchmark::State& state) {
  const Files files;
  for (auto _ : state) benchmark::DoNotOptimize(files::encodePropertyList(files.entry));
}
BENCHMARK(PrepareDriverConfig);

}  // namespace
}  // namespace touchpanel
