// The touch thread: what it waits for, what is called there, and a service that is steered while it is touched.
#include <gtest/gtest.h>
#include <sys/eventfd.h>

#include "driver/service/DriverService.h"
#include "providers/linux/loop/FileDescriptor.h"
#include "providers/linux/loop/MonotonicTime.h"
#include "providers/linux/loop/TouchLoop.h"
#include "support/FakeFileWorker.h"
#include "support/FakePropertyListFiles.h"
#include "support/FakeServicePorts.h"
#include "support/RecordingDiagnostics.h"

namespace touchpanel::testing {
namespace {

using namespace std::chrono_literals;

/// Readable as often as it is told. Its members are the touch thread's own.
class Counter final : public TouchLoop::Source {
 public:
  int descriptor() const override { return file.get(); }
  bool read(std::chrono::microseconds& now) override {
    eventfd_t one = 0;
    if (::eventfd_read(file.get(), &one) != 0) return true;
    now = monotonicTime();
    ++reads;
    if (onRead) onRead();
    return !broken;
  }
  std::optional<std::chrono::microseconds> nextDeadline() const override { return deadline; }
  void tick(std::chrono::microseconds now) override {
    lateness = now - *deadline;
    deadline.reset();
    ticked.release();
  }

  FileDescriptor file{::eventfd(0, EFD_CLOEXEC | EFD_SEMAPHORE)};
  std::function<void()> onRead;
  int reads = 0;
  bool broken = false;
  std::optional<std::chrono::microseconds> deadline;
  std::chrono::microseconds lateness{-1};
  std::binary_semaphore ticked{0};
};

TEST(TouchLoop, ReadsUntilASourceIsRemovedOrBreaksAndTicksWhenItIsDue) {
  TouchLoop loop;
  Counter first, second;
  loop.add(first);
  loop.add(second);
  loop.run([&] { second.broken = true; });
  std::binary_semaphore read{0};
  loop.run([&] { first.onRead = second.onRead = [&] { read.release(); }; });
  for (auto* source : {&first, &second}) {
    ::eventfd_write(source->descriptor(), 2);
    read.acquire();
  }
  loop.run([&] { first.deadline = monotonicTime() + 5ms; });
  first.ticked.acquire();
  EXPECT_GE(first.lateness, 0us) << "never before its time";
  loop.remove(first);
  const int reads = first.reads;
  ::eventfd_write(first.descriptor(), 5);
  loop.run([] {});
  EXPECT_EQ(first.reads, reads);
  EXPECT_EQ(second.reads, 1) << "a broken source would keep the thread busy for ever";
  loop.remove(second);
}

/// Input nodes that press and release one finger on the touch thread, without a pause.
class RestlessInputs final : public TouchInputs {
 public:
  explicit RestlessInputs(TouchLoop& loop) : loop_(loop) {}
  Status open(const std::string&, std::unique_ptr<TouchInput>& input) override {
    input = std::make_unique<Input>(loop_);
    return kSuccess;
  }

 private:
  struct Input final : TouchInput, TouchLoop::Source {
    explicit Input(TouchLoop& on) : loop(on) { loop.add(*this); }
    ~Input() override { loop.remove(*this); }
    InputReports reports() const override { return InputReports::MultiTouchB; }
    void listen(FrameListener* to) override {
      loop.run([&] { listener = to; });
    }
    int descriptor() const override { return alwaysReadable.get(); }
    bool read(std::chrono::microseconds& now) override {
      ++count;
      now = monotonicTime();
      RawFrame frame{now, static_cast<std::uint8_t>(count % 2), {{{0, count % 32768, 9}}}};
      if (listener) listener->frame(frame);
      return true;
    }
    std::optional<std::chrono::microseconds> nextDeadline() const override {
      return listener ? listener->nextDeadline() : std::nullopt;
    }
    void tick(std::chrono::microseconds now) override { listener->tick(now); }

    TouchLoop& loop;
    FileDescriptor alwaysReadable{::eventfd(1, EFD_CLOEXEC)};
    FrameListener* listener = nullptr;
    int count = 0;
  };
  TouchLoop& loop_;
};

TEST(TouchLoop, LetsAServiceBeSteeredWhileItIsTouched) {
  TouchLoop loop;
  RestlessInputs inputs(loop);
  FakeOutputDevices outputs;
  FakeTimers timers;
  FakeNotices notices;
  FakeCalibrationReader reader;
  RecordingDiagnostics diagnostics;
  FakePropertyListFiles files;
  FakeFileWorker worker;
  driver::StateStore store(files, worker, "/state", diagnostics);
  driver::DriverService service({loop, inputs, outputs, timers, notices, reader, diagnostics}, store);
  for (int round = 0; round < 20; ++round) {
    service.touchscreenArrived("/usb", {7, kProductConfigurationOnly});
    service.nodeArrived("/usb", "/event1");
    const auto object = service.registry().instancesOf(class_name::kTouchDriver).at(0);
    const auto set = [&](const char* name, Dictionary value) {
      service.setProperty(object, name, std::move(value), ":1.1",
                          [](Status status) { EXPECT_EQ(status, kSuccess); });
      worker.finish();
    };
    set(property::kCalibration, {{calibration_key::kStatCalibrate, true}});
    const auto captured = [&] {
      return service.registry()
          .properties(object)
          ->dictionary(property::kCalibration)
          ->integer(calibration_key::kX);
    };
    while (captured() == 0) std::this_thread::yield();
    EXPECT_EQ(service.registry()
                  .properties(object)
                  ->dictionary(property::kCalibration)
                  ->integer(calibration_key::kY),
              9);
    for (int mode = 3; mode >= 0; --mode) {
      set(property::kConfigration, {{"mode", mode}});
      timers.advance(1s);
    }
    set(property::kCalibration, {{calibration_key::kStatCalibrate, false}});
    if (round % 2) service.nodeLeft("/event1");
    service.touchscreenLeft("/usb");
    EXPECT_FALSE(outputs.devices[7].frames.empty());
    outputs.devices[7].frames.clear();
  }
}

}  // namespace
}  // namespace touchpanel::testing
