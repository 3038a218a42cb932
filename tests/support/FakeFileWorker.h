#pragma once

#include <deque>
#include <utility>

#include "platform/FileWorker.h"

namespace touchpanel::testing {

/// A worker whose jobs run when the test says so.
class FakeFileWorker final : public FileWorker {
 public:
  void post(Job job, Done done) override { waiting.emplace_back(std::move(job), std::move(done)); }
  void finish() override {
    while (!waiting.empty()) runOne();
  }
  void runOne() {
    const auto [job, done] = std::move(waiting.front());
    waiting.pop_front();
    done(job());
  }

  std::deque<std::pair<Job, Done>> waiting;
};

}  // namespace touchpanel::testing
