#include <latch>

#include <gtest/gtest.h>

#include "providers/linux/loop/ThreadedFileWorker.h"

namespace touchpanel::testing {
namespace {

using namespace std::chrono_literals;

TEST(ThreadedFileWorker, LetsTheLoopGoOnWhileADiskStallsAndFinishesInOrder) {
  EventLoop loop;
  std::latch stalled(1);
  std::vector<int> ran;
  std::vector<Status> reported;
  {
    ThreadedFileWorker worker(loop);
    const auto report = [&](Status status) { reported.push_back(status); };
    worker.post(
        [&] {
          stalled.wait();
          ran.push_back(1);
          return kErrorNoSpace;
        },
        [&](Status status) {
          report(status);
          worker.post([&] { return ran.push_back(3), kSuccess; }, report);
        });
    worker.post([&] { return ran.push_back(2), kSuccess; }, report);
    bool ticked = false;
    const auto timer = loop.create([&] { ticked = true; });
    timer->arm(loop.now());
    while (!ticked) loop.runOnce(1s);
    EXPECT_TRUE(reported.empty());
    stalled.count_down();
    while (reported.empty()) loop.runOnce(1s);
    worker.finish();
  }
  EXPECT_EQ(ran, (std::vector{1, 2, 3}));
  EXPECT_EQ(reported, (std::vector{kErrorNoSpace, kSuccess, kSuccess}));
  loop.runOnce(0s);
}

}  // namespace
}  // namespace touchpanel::testing
