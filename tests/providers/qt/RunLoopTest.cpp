#include <QApplication>
#include <QTest>
#include <QTimer>
#include <array>
#include <stdexcept>

#include <gtest/gtest.h>
#include <unistd.h>

#include "providers/qt/QtAlerts.h"
#include "providers/qt/QtApplication.h"
#include "providers/qt/QtRunLoop.h"
#include "support/RecordingDiagnostics.h"

namespace touchpanel {
namespace {

using namespace std::chrono_literals;

/// A source over a pipe; each byte is one thing to do.
class PipeSource final : public RunLoopSource {
 public:
  PipeSource() { EXPECT_EQ(::pipe(pipe_.data()), 0); }
  ~PipeSource() override {
    ::close(pipe_[0]);
    ::close(pipe_[1]);
  }
  void signal() { EXPECT_EQ(::write(pipe_[1], "x", 1), 1); }
  std::vector<int> descriptors() const override { return {pipe_[0]}; }
  void perform() override {
    char byte = 0;
    EXPECT_EQ(::read(pipe_[0], &byte, 1), 1);
    ++performed;
    if (onPerform) onPerform();
  }
  int performed = 0;
  std::function<void()> onPerform;

 private:
  std::array<int, 2> pipe_{};
};

struct QtRunLoopTest : ::testing::Test {
  QtApplication application;
  testing::RecordingDiagnostics diagnostics;
  CallbackGate gate{application, diagnostics};
  QtCursor cursor;
  QtAlerts alerts{gate, cursor, [](std::string_view) { return QString(); }};
  PipeSource source;
  QtRunLoop loop{gate};
};

TEST_F(QtRunLoopTest, ServesASourceThatThrowsUntilItRemovesItself) {
  loop.addSource(source);
  source.onPerform = [] { throw std::runtime_error("no value for Handle"); };
  source.signal();
  source.signal();
  ASSERT_TRUE(QTest::qWaitFor([&] { return source.performed == 2; }));
  EXPECT_EQ(diagnostics.lines, std::vector<std::string>(2, "internal error: no value for Handle"));
  source.onPerform = [&] { loop.removeSource(source); };
  source.signal();
  source.signal();
  ASSERT_TRUE(QTest::qWaitFor([&] { return source.performed == 3; }));
  QCoreApplication::processEvents();
  EXPECT_EQ(source.performed, 3);
}

TEST_F(QtRunLoopTest, RepeatsATimerUntilItInvalidatesItself) {
  int ticks = 0;
  TimerId timer = 0;
  timer = loop.startRepeatingTimer(1ms, [&] {
    if (++ticks == 3) loop.invalidateTimer(timer);
  });
  int witnessed = 0;
  const auto witness = loop.startRepeatingTimer(1ms, [&] { ++witnessed; });
  ASSERT_TRUE(QTest::qWaitFor([&] { return witnessed >= 9; }));
  loop.invalidateTimer(witness);
  EXPECT_EQ(ticks, 3);
}

TEST_F(QtRunLoopTest, ServesNothingWhileAnAlertIsUpAndEverythingAfterwards) {
  int ticks = 0;
  const auto timer = loop.startRepeatingTimer(1ms, [&] { ++ticks; });
  loop.addSource(source);
  source.signal();
  QTimer::singleShot(0, qApp, [&] {
    int turns = 0;
    QTimer turn;
    QObject::connect(&turn, &QTimer::timeout, [&] { ++turns; });
    turn.start(2);
    EXPECT_TRUE(QTest::qWaitFor([&] { return turns == 5; }));
    EXPECT_EQ(source.performed, 0);
    EXPECT_EQ(ticks, 0);
    QApplication::activeModalWidget()->close();
  });
  alerts.show("Warning", "Not found touch device.", "OK");
  EXPECT_TRUE(QTest::qWaitFor([&] { return source.performed == 1 && ticks > 0; }));
  loop.invalidateTimer(timer);
}

TEST_F(QtRunLoopTest, EndsBeforeOrInsideTheLoopAndServesNothingAfterwards) {
  loop.addSource(source);
  source.onPerform = [&] { application.exit(3); };
  source.signal();
  source.signal();
  EXPECT_EQ(application.run(), 3);
  EXPECT_EQ(source.performed, 1);
  QCoreApplication::processEvents();
  EXPECT_EQ(source.performed, 1);
  EXPECT_EQ(application.run(), 3) << "ended before it runs again";
  application.terminate();
  EXPECT_EQ(application.run(), 3) << "the first end counts";
}

}  // namespace
}  // namespace touchpanel
