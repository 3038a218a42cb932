#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "driver/service/CalibrationReader.h"
#include "platform/Notices.h"
#include "platform/OutputDevices.h"
#include "platform/Timers.h"
#include "platform/TouchInputs.h"
#include "platform/TouchThread.h"

// Doubles of the ports that the driver service stands on.
namespace touchpanel::testing {

/// The touch thread is the test's own.
class FakeTouchThread final : public TouchThread {
 public:
  void run(const std::function<void()>& call) override { call(); }
};

/// Notices that are given at once.
class FakeNotices final : public Notices {
 public:
  std::unique_ptr<Notice> createNotice(std::function<void()> callback) override {
    return std::make_unique<Immediate>(std::move(callback));
  }

 private:
  struct Immediate final : Notice {
    explicit Immediate(std::function<void()> call) : callback(std::move(call)) {}
    void give() override { callback(); }
    std::function<void()> callback;
  };
};

/// Input nodes by path, whose touches the test makes up.
class FakeTouchInputs final : public TouchInputs {
 public:
  struct Node {
    Status openResult = kSuccess;
    InputReports reports = InputReports::MultiTouchB;
    bool held = false;
    int attempts = 0;
    FrameListener* listener = nullptr;
  };

  Status open(const std::string& path, std::unique_ptr<TouchInput>& input) override {
    auto& node = nodes[path];
    ++node.attempts;
    if (node.openResult == kSuccess) input = std::make_unique<Input>(node);
    return node.openResult;
  }
  void touch(const std::string& path, const RawFrame& frame) {
    tick(frame.time);
    if (nodes[path].listener) nodes[path].listener->frame(frame);
  }
  /// What is due by then happens.
  void tick(std::chrono::microseconds now) {
    for (auto& [path, node] : nodes)
      while (node.listener && node.listener->nextDeadline() && *node.listener->nextDeadline() <= now)
        node.listener->tick(*node.listener->nextDeadline());
  }

  std::map<std::string, Node> nodes;

 private:
  struct Input final : TouchInput {
    explicit Input(Node& of) : node(of) { node.held = true; }
    ~Input() override {
      node.held = false;
      node.listener = nullptr;
    }
    InputReports reports() const override { return node.reports; }
    void listen(FrameListener* listener) override { node.listener = listener; }
    Node& node;
  };
};

/// Devices for the desktop by location, with what was written to each kind.
class FakeOutputDevices final : public OutputDevices {
 public:
  struct Device {
    bool pointer = false;
    bool touch = false;
    OutputDescription description;  ///< of the one made last
    Status writeResult = kSuccess;
    std::vector<OutputFrame> frames;   ///< to the pointer
    std::vector<OutputFrame> touches;  ///< to the touch device
  };

  Status create(const OutputDescription& description, std::unique_ptr<OutputDevice>& device) override {
    if (createResult != kSuccess) return createResult;
    auto& of = devices[description.touchscreen.locationId];
    of.description = description;
    if (description.kind == OutputKind::Pointer)
      device = std::make_unique<Output>(of, of.pointer, of.frames);
    else
      device = std::make_unique<Output>(of, of.touch, of.touches);
    return kSuccess;
  }

  Status createResult = kSuccess;
  std::map<std::uint32_t, Device> devices;

 private:
  struct Output final : OutputDevice {
    Output(Device& of, bool& there, std::vector<OutputFrame>& to) : device(of), exists(there), frames(to) {
      exists = true;
    }
    ~Output() override { exists = false; }
    Status write(const OutputFrame& frame) override {
      if (device.writeResult == kSuccess) frames.push_back(frame);
      return device.writeResult;
    }
    Device& device;
    bool& exists;
    std::vector<OutputFrame>& frames;
  };
};

/// Timers whose clock the test moves.
class FakeTimers final : public Timers {
 public:
  std::chrono::microseconds now() const override { return time; }
  std::unique_ptr<Timer> create(std::function<void()> callback) override {
    return std::make_unique<Armed>(*this, std::move(callback));
  }
  /// Lets time pass and fires what comes due, in order.
  void advance(std::chrono::microseconds duration) {
    const auto end = time + duration;
    int fired = 0;
    while (auto* next = nextDue(end)) {
      ASSERT_LT(++fired, 1000) << "a timer is armed for the present again and again";
      time = std::max(time, *next->due);
      next->due.reset();
      next->callback();
    }
    time = end;
  }

  std::chrono::microseconds time{0};

 private:
  struct Armed final : Timer {
    Armed(FakeTimers& owner, std::function<void()> call) : timers(owner), callback(std::move(call)) {
      timers.all_.push_back(this);
    }
    ~Armed() override { std::erase(timers.all_, this); }
    void arm(std::chrono::microseconds when) override { due = when; }
    void disarm() override { due.reset(); }

    FakeTimers& timers;
    std::function<void()> callback;
    std::optional<std::chrono::microseconds> due;
  };
  Armed* nextDue(std::chrono::microseconds end) {
    Armed* next = nullptr;
    for (auto* timer : all_)
      if (timer->due && *timer->due <= end && (!next || *timer->due < *next->due)) next = timer;
    return next;
  }

  std::vector<Armed*> all_;
};

/// Reads that are under way by location, which the test finishes when it likes.
class FakeCalibrationReader final : public driver::CalibrationReader {
 public:
  std::unique_ptr<driver::PendingRead> start(const TouchscreenIdentity& identity, Done done) override {
    ++started;
    underWay[identity.locationId] = std::move(done);
    return std::make_unique<Pending>(underWay, identity.locationId);
  }
  void finish(std::uint32_t location, Status status, const driver::HeldCalibration& held = {}) {
    const auto done = underWay.at(location);
    done(status, held);
  }

  std::map<std::uint32_t, Done> underWay;
  int started = 0;

 private:
  struct Pending final : driver::PendingRead {
    Pending(std::map<std::uint32_t, Done>& all, std::uint32_t location) : reads(all), locationId(location) {}
    ~Pending() override { reads.erase(locationId); }
    std::map<std::uint32_t, Done>& reads;
    std::uint32_t locationId;
  };
};

}  // namespace touchpanel::testing
